#include "fcf/FcfReader.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfLineSource.h"

namespace {

/// Returns the piece between the first and the second \p separator of \p line. It is cut out in
/// place, since a line may be long.
QString valueAt(const char* separator, QString line)
{
    const QLatin1String mark(separator);
    const auto first = line.indexOf(mark);
    line.remove(0, first < 0 ? line.size() : first + static_cast<int>(qstrlen(separator)));
    const auto second = line.indexOf(mark);
    if (second >= 0)
        line.truncate(second);
    return line;
}

bool endsRecord(const QString& line) { return line.contains(QLatin1String(FcfLayout::RecordEnd)); }

bool endsText(const QString& line) { return line.contains(QLatin1String(FcfLayout::TextEnd)); }

/// Returns why \p source has no further line.
FcfReading::Outcome endOf(const FcfLineSource& source, FcfReading::Outcome atBound)
{
    if (source.hasFailed())
        return FcfReading::ReadFailed;
    return source.allowance() == 0 ? atBound : FcfReading::EndedEarly;
}

/// Reads the lines of the header up to and including its end mark. Returns false where the text
/// ends before it.
bool readHeader(const QString& firstLine, FcfLineSource* source, FcfReading* reading)
{
    FcfHeader* const header = &reading->header;
    header->fileName = valueAt(": ", firstLine).trimmed();
    header->ciNumber = valueAt(": ", source->takeLine()).trimmed();
    header->author = valueAt(": ", source->takeLine()).trimmed();
    header->date = valueAt(": ", source->takeLine()).trimmed();
    header->time = valueAt(": ", source->takeLine()).trimmed();

    QString line = valueAt(":", source->takeLine()).trimmed();
    while (!endsRecord(line)) {
        if (source->isAtEnd())
            return false;
        if (reading->hasDescription)
            header->description += QLatin1Char('\n');
        header->description += line;
        reading->hasDescription = true;
        line = source->takeLine();
    }
    return true;
}

/// Reads a function's lines up to and including its end mark. Returns false where the text ends
/// before it.
bool readFunction(const QString& firstLine, FcfLineSource* source, FcfFunction* function)
{
    function->name = valueAt(": ", firstLine);
    function->author = valueAt(": ", source->takeLine()).trimmed();
    function->ciNumber = valueAt(":", source->takeLine());

    QString line = valueAt(": ", source->takeLine());
    while (!endsRecord(line)) {
        if (source->isAtEnd())
            return false;
        function->description += line;
        line = source->takeLine();
    }
    return true;
}

FcfReading::Outcome readFunctions(FcfLineSource* source, QVector<FcfFunction>* functions)
{
    const FcfReading::Outcome atBound = source->allowance() > FcfReader::MaximumFunctionBytes
                                            ? FcfReading::FunctionsTooLong
                                            : FcfReading::TooLong;
    source->limitTo(FcfReader::MaximumFunctionBytes);

    QString line = source->takeLine();
    while (!endsText(line)) {
        if (source->isAtEnd())
            return endOf(*source, atBound);
        if (functions->size() == FcfReader::MaximumFunctions)
            return FcfReading::TooManyFunctions;

        functions->append(FcfFunction());
        if (!readFunction(line, source, &functions->last()))
            return endOf(*source, atBound);
        line = source->takeLine();
    }
    return FcfReading::Complete;
}

FcfReading::Outcome readText(FcfLineSource* source, FcfReading* reading)
{
    // The reserved words, up to the line feed that ends the preamble.
    source->takeLine();

    const QString firstLine = source->takeLine();
    if (!firstLine.contains(QLatin1String(FcfLayout::FirstLineKeyword)))
        return FcfReading::NoFilenameLine;

    if (!readHeader(firstLine, source, reading))
        return endOf(*source, FcfReading::TooLong);
    return readFunctions(source, &reading->header.functions);
}

} // namespace

FcfReading FcfReader::read(QIODevice* device, QTextCodec* codec)
{
    FcfReading reading;
    FcfLineSource source(device, codec, MaximumBytes, FcfLineSource::LineFeedWithOrWithoutReturn);
    for (const FcfLayout::NumberField& field : FcfLayout::Numbers)
        reading.header.*field.value = source.takeWord();
    reading.outcome = readText(&source, &reading);
    return reading;
}
