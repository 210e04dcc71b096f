#include "host/app/image/PageContents.h"

#include "fcf/FcfLayout.h"
#include "host/app/image/PageCheck.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/check/HeaderPage.h"
#include "tool/check/TextRules.h"
#include "tool/files/InputOpener.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QTextCodec>

#include <algorithm>
#include <limits>

namespace {

struct PageContentsTexts {
    Q_DECLARE_TR_FUNCTIONS(PageContents)
};

FcfExactReading readingOf(QByteArray bytes, QTextCodec* codec)
{
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return FcfExactReader::read(&device, codec);
}

/// Lists the fields of one reading.
class FieldList {
public:
    FieldList(const FcfExactReading& reading, int bytes) : m_reading(reading), m_bytes(bytes) {}

    QVector<PageField> made()
    {
        addPreamble();
        for (const FcfSpan& span : m_reading.spans) {
            // The line that deviates is not read.
            if (isUnread(span))
                break;
            if (span.function < 0)
                addText(FcfLayout::HeaderTexts, m_reading.header, span);
            else
                addText(FcfLayout::FunctionTexts, m_reading.header.functions.at(span.function),
                        span);
        }

        if (m_reading.outcome == FcfExactReading::Complete)
            addEnd();
        else
            addUnread();
        return m_fields;
    }

private:
    /// Adds a field, unless the file ends before it does.
    void add(const QString& name, int start, int offset, int length, const QString& value)
    {
        if (offset + length <= m_bytes)
            m_fields << PageField{name, start, offset, length, value, {}};
    }

    void addWord(const QString& name, int offset, const QString& value)
    {
        add(name, offset, offset, FcfLayout::WordBytes, value);
    }

    void addPreamble()
    {
        for (const FcfLayout::NumberField& field : FcfLayout::Numbers)
            addWord(QLatin1String(field.name), field.offset,
                    QString::number(m_reading.header.*field.value));

        for (int word = 0; word < m_reading.reservedWords.size(); ++word)
            addWord(QString("reserved[%1]").arg(word),
                    (FcfLayout::NumberCount + word) * FcfLayout::WordBytes,
                    shownWord(m_reading.reservedWords.at(word)));
    }

    template <class Record, int Count>
    void addText(const FcfLayout::TextField<Record> (&fields)[Count], const Record& record,
                 const FcfSpan& span)
    {
        for (const FcfLayout::TextField<Record>& field : fields) {
            if (qstrcmp(field.name, span.field) != 0)
                continue;
            const int label = static_cast<int>(qstrlen(field.prefix));
            // The line feed before the text belongs to its first line.
            const int start = m_reading.spans.first().offset == span.offset
                                  ? FcfLayout::PreambleBytes
                                  : span.offset - label;
            add(TextRules::fieldName(span.field, span.function), start, span.offset, span.length,
                shownText(record.*field.value, WholeText));
        }
    }

    void addEnd()
    {
        const QString mark = QLatin1String(FcfLayout::TextEnd);
        const int length = static_cast<int>(mark.size());
        const int offset = m_reading.textEnd - length - 1;
        add("textEnd", offset, offset, length, mark);
        if (m_bytes > m_reading.textEnd)
            add("filler", m_reading.textEnd, m_reading.textEnd, m_bytes - m_reading.textEnd,
                QString());
    }

    bool deviates() const { return m_reading.outcome == FcfExactReading::Deviates; }

    bool isUnread(const FcfSpan& span) const
    {
        return deviates() && span.offset > m_reading.deviation.offset;
    }

    /// What is behind the fields that could be read.
    void addUnread()
    {
        const FcfSpan& place = m_reading.deviation;
        const int read = qMin(m_bytes, deviates() ? place.offset : readEnd());
        if (read == m_bytes)
            return;

        const QString name =
            deviates() && place.field ? TextRules::fieldName(place.field, place.function) : "text";
        add(name, read, read, m_bytes - read,
            deviates() ? shownText(m_reading.found) : PageContentsTexts::tr("not read"));
    }

    int readEnd() const
    {
        if (!m_reading.spans.isEmpty())
            return m_reading.spans.last().offset + m_reading.spans.last().length;
        return m_fields.isEmpty() ? 0 : m_fields.last().offset + m_fields.last().length;
    }

    const FcfExactReading& m_reading;
    int m_bytes;
    QVector<PageField> m_fields;
};

/// Gives each of \p errors that is about the first \p pageBytes bytes to the field in which it is.
void addProblems(const QList<Finding>& errors, int pageBytes, PageContents* contents)
{
    const int last = static_cast<int>(contents->bytes.size()) - 1;
    for (const Finding& error : errors) {
        if (error.offset >= pageBytes)
            continue;

        const QString text = error.text().section(": ", 1);
        if (contents->problem.isEmpty())
            contents->problem = text;
        const bool isThere = error.offset >= 0 && error.offset <= last;
        const int field = contents->fieldAt(isThere ? static_cast<int>(error.offset) : last);
        if (field >= 0)
            contents->fields[field].problems << text;
    }
}

} // namespace

PageContents PageContents::of(const QString& path)
{
    PageContents contents;
    // A pipe would block the host until another program writes to it.
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) {
        contents.problem = PageContentsTexts::tr("This is not a file.");
        return contents;
    }

    QTextCodec* const codec = QTextCodec::codecForLocale();
    InputOpener inputs(nullptr, [](const QString&) { return [](const char*, qint64) {}; });
    const auto file = inputs.open(path, FcfFileChecker::LargestFile, QString());
    if (!file) {
        contents.problem = file.error().text().section(": ", 1);
        return contents;
    }

    const auto page = HeaderPage::read(*file, codec, ExitCode::NotValid);
    const auto bytes = file->bytesAt(0, page ? page->bytes : FcfLayout::PageBytes);
    if (!bytes) {
        contents.problem = bytes.error().text().section(": ", 1);
        return contents;
    }

    contents.bytes = *bytes;
    const FcfExactReading reading = page ? page->reading : readingOf(*bytes, codec);
    contents.fields = FieldList(reading, static_cast<int>(bytes->size())).made();
    addProblems(PageCheck::errorsOf(*file), page ? page->bytes : std::numeric_limits<int>::max(),
                &contents);
    return contents;
}

int PageContents::fieldAt(int offset) const
{
    if (offset < 0 || offset >= bytes.size())
        return -1;
    const auto begins = [](int place, const PageField& field) { return place < field.start; };
    const auto next = std::upper_bound(fields.begin(), fields.end(), offset, begins);
    return static_cast<int>(next - fields.begin()) - 1;
}
