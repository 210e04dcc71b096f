#include "FcfReader.h"

#include "FcfLayout.h"
#include "FcfLineSource.h"

#include <QTextCodec>

namespace {

using FcfLayout::TextField;

template <class Record>
QString valueIn(const QString& line, const TextField<Record>& field)
{
    const QString value = line.section(QLatin1String(field.separator), 1, 1);
    return field.whenRead == FcfLayout::Trimmed ? value.trimmed() : value;
}

bool endsRecord(const QString& line) { return line.contains(QLatin1String(FcfLayout::RecordEnd)); }

bool endsText(const QString& line) { return line.contains(QLatin1String(FcfLayout::TextEnd)); }

/// The walk through one page. Each step returns false where the text ends early.
class Walk {
public:
    Walk(FcfLineSource* source, FcfReading* reading) : m_source(source), m_reading(reading) {}

    void readNumbers()
    {
        for (const FcfLayout::NumberField& field : FcfLayout::Numbers)
            m_reading->header.*field.value = m_source->takeWord();
    }

    FcfReading::Outcome readText()
    {
        QString line;
        m_source->takeLine(&line); // the reserved words and the preamble's line feed
        if (!m_source->takeLine(&line))
            return FcfReading::NoText;
        if (!line.contains(QLatin1String(FcfLayout::FirstLineKeyword)))
            return FcfReading::NoFilenameLine;

        const bool ended = readRecord(FcfLayout::HeaderTexts, line, &m_reading->header,
                                      &m_reading->descriptionLines) &&
                           readFunctions();
        return ended ? FcfReading::Complete : FcfReading::EndedEarly;
    }

private:
    bool readFunctions()
    {
        QString line;
        while (m_source->takeLine(&line)) {
            if (endsText(line))
                return true;
            FcfFunction function;
            QStringList description;
            const bool whole = readRecord(FcfLayout::FunctionTexts, line, &function, &description);
            m_reading->header.functions.append(function);
            if (!whole)
                return false;
        }
        return false;
    }

    /// Reads the fields of \p record, the first of which stands in \p line already. The last field
    /// is the one that may go on over several lines; these are put into \p values.
    template <class Record, int Count>
    bool readRecord(const TextField<Record> (&fields)[Count], QString line, Record* record,
                    QStringList* values)
    {
        bool more = true;
        for (const TextField<Record>& field : fields) {
            if (&field != fields)
                more = m_source->takeLine(&line);
            if (!more)
                return false;
            if (field.lineJoint)
                more = readLines(field, line, values);
            record->*field.value = field.lineJoint ? values->join(QLatin1String(field.lineJoint))
                                                   : valueIn(line, field);
        }
        return more;
    }

    template <class Record>
    bool readLines(const TextField<Record>& field, QString line, QStringList* values)
    {
        for (QString value = valueIn(line, field); !endsRecord(value); value = line) {
            values->append(value);
            if (!m_source->takeLine(&line))
                return false;
        }
        return true;
    }

    FcfLineSource* m_source;
    FcfReading* m_reading;
};

} // namespace

FcfReader::FcfReader(QTextCodec* codec) : m_codec(codec ? codec : QTextCodec::codecForLocale()) {}

FcfReading FcfReader::read(QIODevice* device) const
{
    FcfReading reading;
    FcfLineSource source(device, m_codec, MaximumBytes);
    Walk walk(&source, &reading);
    walk.readNumbers();
    reading.outcome = walk.readText();
    return reading;
}
