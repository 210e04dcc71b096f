#include "FcfReader.h"

#include "FcfLayout.h"
#include "FcfLineSource.h"

#include <QTextCodec>

namespace {

using FcfLayout::TextField;

/// The walk through one page. Each step returns false where the text ends early.
///
/// What a line gives is the rule's affair; what follows what is not.
class Walk {
public:
    Walk(FcfLineSource* source, bool exact, FcfReading* reading)
        : m_source(source), m_exact(exact), m_reading(reading)
    {
    }

    void readNumbers()
    {
        for (const FcfLayout::NumberField& field : FcfLayout::Numbers)
            m_reading->header.*field.value = m_source->takeWord();
    }

    FcfReading::Outcome readText()
    {
        QString line;
        if (!skipReservedWords(&line))
            return FcfReading::Deviates;
        if (!m_source->takeLine(&line))
            return FcfReading::NoText;
        if (!line.contains(QLatin1String(FcfLayout::FirstLineKeyword)))
            return FcfReading::NoFilenameLine;

        const bool ended = readRecord(FcfLayout::HeaderTexts, -1, line, &m_reading->header,
                                      &m_reading->descriptionLines) &&
                           readFunctions();
        if (ended)
            m_reading->exact.textEnd = m_source->position();
        if (!m_reading->exact.expected.isEmpty())
            return FcfReading::Deviates;
        return ended ? FcfReading::Complete : FcfReading::EndedEarly;
    }

private:
    /// Also takes the line feed behind the words, through \p line.
    bool skipReservedWords(QString* line)
    {
        if (!m_exact) {
            m_source->takeLine(line);
            return true;
        }
        for (int word = 0; word < FcfLayout::ReservedWordCount; ++word)
            m_reading->exact.reservedWords.append(static_cast<quint32>(m_source->takeWord()));
        m_source->takeLine(line);
        return line->isEmpty() || deviate(0, -1, tr("a line feed"), *line);
    }

    bool readFunctions()
    {
        QString line;
        while (m_source->takeLine(&line)) {
            if (endsText(line))
                return isWhole(0, -1, line);
            FcfFunction function;
            QStringList description;
            const bool whole =
                readRecord(FcfLayout::FunctionTexts, m_reading->header.functions.size(), line,
                           &function, &description);
            m_reading->header.functions.append(function);
            if (!whole)
                return false;
        }
        return false;
    }

    /// Reads the fields of \p record, the first of which stands in \p line already. The last field
    /// is the one that may go on over several lines; these are put into \p values.
    template <class Record, int Count>
    bool readRecord(const TextField<Record> (&fields)[Count], int function, QString line,
                    Record* record, QStringList* values)
    {
        bool more = true;
        for (const TextField<Record>& field : fields) {
            if (&field != fields)
                more = m_source->takeLine(&line);
            if (!more || !begins(field, function, line))
                return false;
            if (field.lineJoint)
                more = readLines(field, function, line, values);
            record->*field.value =
                field.lineJoint ? values->join(QLatin1String(m_exact ? "\n" : field.lineJoint))
                                : valueIn(line, field);
        }
        return more;
    }

    template <class Record>
    bool readLines(const TextField<Record>& field, int function, QString line, QStringList* values)
    {
        QString value = valueIn(line, field);
        // The line that a prefix begins is never a mark on its own.
        bool end = !m_exact && endsRecord(value);
        while (!end) {
            values->append(value);
            if (!m_source->takeLine(&line) || !isWhole(field.name, function, line))
                return false;
            value = line;
            end = endsRecord(value);
        }
        return true;
    }

    template <class Record>
    QString valueIn(const QString& line, const TextField<Record>& field) const
    {
        if (m_exact)
            return line.mid(QString(QLatin1String(field.prefix)).size());
        const QString value = line.section(QLatin1String(field.separator), 1, 1);
        return field.whenRead == FcfLayout::Trimmed ? value.trimmed() : value;
    }

    bool endsRecord(const QString& line) const { return isMark(line, FcfLayout::RecordEnd); }

    bool endsText(const QString& line) const { return isMark(line, FcfLayout::TextEnd); }

    bool isMark(const QString& line, const char* mark) const
    {
        return m_exact ? line == QLatin1String(mark) : line.contains(QLatin1String(mark));
    }

    /// Whether \p line may be the first of \p field.
    template <class Record>
    bool begins(const TextField<Record>& field, int function, const QString& line)
    {
        if (!m_exact)
            return true;
        const QString prefix = QLatin1String(field.prefix);
        if (!line.startsWith(prefix))
            return deviate(field.name, function, prefix, line);
        m_reading->exact.spans.append(
            FcfSpan(field.name, function, m_source->lineOffset() + prefix.size()));
        return isWhole(field.name, function, line);
    }

    bool isWhole(const char* field, int function, const QString& line)
    {
        if (!m_exact)
            return true;
        if (!m_source->lineIsDecodable())
            return deviate(field, function, tr("text that can be decoded"), line);
        return m_source->lineIsEnded() ||
               deviate(field, function, tr("a line feed at the end of the line"), line);
    }

    bool deviate(const char* field, int function, const QString& expected, const QString& found)
    {
        FcfExactReading* const exact = &m_reading->exact;
        exact->deviation = FcfSpan(field, function, m_source->lineOffset());
        exact->expected = expected;
        exact->found = found;
        return false;
    }

    static QString tr(const char* text) { return FcfReader::tr(text); }

    FcfLineSource* m_source;
    const bool m_exact;
    FcfReading* m_reading;
};

} // namespace

FcfReader::FcfReader(QTextCodec* codec, Rule rule)
    : m_codec(codec ? codec : QTextCodec::codecForLocale()), m_rule(rule)
{
}

FcfReading FcfReader::read(QIODevice* device) const
{
    FcfReading reading;
    FcfLineSource source(device, m_codec, MaximumBytes,
                         m_rule == Exact ? FcfLineSource::LineFeed
                                         : FcfLineSource::LineFeedWithOrWithoutReturn);
    Walk walk(&source, m_rule == Exact, &reading);
    walk.readNumbers();
    reading.outcome = walk.readText();
    return reading;
}
