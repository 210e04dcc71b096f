#include "fcf/FcfExactReader.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfLineSource.h"

#include <QCoreApplication>

namespace {

using FcfLayout::TextField;

/// Parses one page. Each step returns false where the text ends early or deviates.
class PageParser {
    Q_DECLARE_TR_FUNCTIONS(FcfExactReader)

public:
    PageParser(FcfLineSource* source, FcfExactReading* reading)
        : m_source(source), m_reading(reading)
    {
    }

    void readPreamble()
    {
        for (const FcfLayout::NumberField& field : FcfLayout::Numbers)
            m_reading->header.*field.value = m_source->takeWord();
        for (int word = 0; word < FcfLayout::ReservedWordCount; ++word)
            m_reading->reservedWords.append(static_cast<quint32>(m_source->takeWord()));
    }

    FcfExactReading::Outcome readText()
    {
        const QString rest = m_source->takeLine();
        // The start of a character that is cut off decodes to nothing.
        if (!rest.isEmpty() || !m_source->lineIsDecodable()) {
            deviate(nullptr, -1, tr("a line feed"), rest);
            return FcfExactReading::Deviates;
        }
        const QString line = m_source->takeLine();
        if (m_source->isAtEnd())
            return FcfExactReading::NoText;
        if (!line.contains(QLatin1String(FcfLayout::FirstLineKeyword)))
            return FcfExactReading::NoFilenameLine;

        if (readRecord(FcfLayout::HeaderTexts, -1, line, &m_reading->header) && readFunctions()) {
            m_reading->textEnd = m_source->position();
            return FcfExactReading::Complete;
        }
        return m_reading->expected.isEmpty() ? FcfExactReading::EndedEarly
                                             : FcfExactReading::Deviates;
    }

private:
    bool readFunctions()
    {
        QVector<FcfFunction>* const functions = &m_reading->header.functions;
        QString line = m_source->takeLine();
        while (line != QLatin1String(FcfLayout::TextEnd)) {
            if (m_source->isAtEnd())
                return false;
            const int index = static_cast<int>(functions->size());
            functions->append(FcfFunction());
            if (!readRecord(FcfLayout::FunctionTexts, index, line, &functions->last()))
                return false;
            line = m_source->takeLine();
        }
        return isWhole(nullptr, -1, line);
    }

    /// Reads the fields of \p record, the first of which is in \p line already. The last field is
    /// the one that may have several lines; it ends with the mark behind it.
    template <class Record, int Count>
    bool readRecord(const TextField<Record> (&fields)[Count], int function, QString line,
                    Record* record)
    {
        for (const TextField<Record>& field : fields) {
            if (&field != fields)
                line = m_source->takeLine();
            if (m_source->isAtEnd() || !begins(field, function, line))
                return false;
            QString* const value = &(record->*field.value);
            *value = line.mid(prefixOf(field).size());
            if (field.hasLines && !readFurtherLines(field, function, value))
                return false;
        }
        return true;
    }

    template <class Record>
    bool readFurtherLines(const TextField<Record>& field, int function, QString* value)
    {
        for (;;) {
            const QString line = m_source->takeLine();
            if (m_source->isAtEnd() || !isWhole(field.name, function, line))
                return false;
            if (line == QLatin1String(FcfLayout::RecordEnd))
                return true;
            // An editor or a transfer has converted the file, which would be read to its end.
            if (line == QLatin1String(FcfLayout::RecordEnd) + QLatin1Char('\r'))
                return deviate(field.name, function,
                               tr("a line feed without a carriage return at the end of the line"),
                               line);
            *value += QLatin1Char('\n') + line;
            m_reading->spans.last().length = lineEnd() - m_reading->spans.last().offset;
        }
    }

    template <class Record>
    static QString prefixOf(const TextField<Record>& field)
    {
        return QLatin1String(field.prefix);
    }

    /// Whether \p line may be the first of \p field.
    template <class Record>
    bool begins(const TextField<Record>& field, int function, const QString& line)
    {
        const QString prefix = prefixOf(field);
        if (!line.startsWith(prefix))
            return deviate(field.name, function, prefix, line);
        const int offset = m_source->lineOffset() + int(prefix.size());
        const FcfSpan span = {field.name, function, offset, lineEnd() - offset};
        m_reading->spans.append(span);
        return isWhole(field.name, function, line);
    }

    bool isWhole(const char* field, int function, const QString& line)
    {
        if (!m_source->lineIsDecodable())
            return deviate(field, function, tr("text that can be decoded"), line);
        return m_source->lineIsEnded() ||
               deviate(field, function, tr("a line feed at the end of the line"), line);
    }

    bool deviate(const char* field, int function, const QString& expected, const QString& found)
    {
        const int offset = m_source->lineOffset();
        const FcfSpan span = {field, function, offset, lineEnd() - offset};
        m_reading->deviation = span;
        m_reading->expected = expected;
        m_reading->found = found;
        return false;
    }

    /// Where the line taken last ends, without its line feed.
    int lineEnd() const { return m_source->position() - (m_source->lineIsEnded() ? 1 : 0); }

    FcfLineSource* m_source;
    FcfExactReading* m_reading;
};

} // namespace

FcfExactReading FcfExactReader::read(QIODevice* device, QTextCodec* codec)
{
    FcfExactReading reading;
    FcfLineSource source(device, codec, MaximumBytes, FcfLineSource::LineFeed);
    PageParser parser(&source, &reading);
    parser.readPreamble();
    reading.outcome = parser.readText();
    return reading;
}
