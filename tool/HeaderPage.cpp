#include "HeaderPage.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/InputFile.h"
#include "tool/Session.h"
#include "tool/TextRules.h"

#include <QTextCodec>

namespace {

/// What stands where the first text line should begin; no longer than its keyword.
QString firstTextOf(InputFile* file, Session* session)
{
    const auto bytes =
        file->bytesAt(FcfLayout::PreambleBytes + 1,
                      static_cast<qint64>(qstrlen(FcfLayout::FirstLineKeyword)), session);
    return session->codec()->toUnicode(bytes.value_or(QByteArray()));
}

void explain(const FcfExactReading& reading, InputFile* file, ExitCode exitCode, Session* session)
{
    Findings* const findings = &session->findings;
    const QString end = QStringLiteral("the end");
    switch (reading.outcome) {
    case FcfExactReading::NoText:
        findings
            ->error(exitCode, file->label(), QStringLiteral("text"),
                    QStringLiteral("is no FCF header page: it ends before the text"))
            .at(qMin<qint64>(file->size(), FcfLayout::PreambleBytes))
            .comparing(QLatin1String(FcfLayout::FirstLineKeyword), end);
        break;
    case FcfExactReading::NoFilenameLine: {
        const QString found = firstTextOf(file, session);
        findings
            ->error(exitCode, file->label(), QStringLiteral("fileName"),
                    QStringLiteral("is no FCF header page: its text does not begin with \"%1\"")
                        .arg(QLatin1String(FcfLayout::FirstLineKeyword)))
            .at(FcfLayout::PreambleBytes + 1)
            .comparing(QLatin1String(FcfLayout::FirstLineKeyword), found);
        break;
    }
    case FcfExactReading::EndedEarly:
        findings
            ->error(exitCode, file->label(), QStringLiteral("text"),
                    QStringLiteral("is no whole FCF header page: its text does not end"))
            .at(qMin<qint64>(file->size(), FcfExactReader::MaximumBytes))
            .comparing(QLatin1String(FcfLayout::TextEnd),
                       file->size() > FcfExactReader::MaximumBytes ? QStringLiteral("more text")
                                                                   : end);
        break;
    case FcfExactReading::Deviates: {
        const char* const field = reading.deviation.field;
        findings
            ->error(exitCode, file->label(),
                    field ? TextRules::fieldName(field, reading.deviation.function)
                          : QStringLiteral("text"),
                    QStringLiteral("is not what an FCF header page has here"))
            .at(reading.deviation.offset)
            .comparing(reading.expected, reading.found);
        break;
    }
    case FcfExactReading::Complete:
        break;
    }
}

} // namespace

bool HeaderPage::read(InputFile* file, ExitCode exitCode, Session* session)
{
    InputSource source(file, 0);
    reading = FcfExactReader::read(&source, session->codec());
    // The reader takes a file that fails for one that ends.
    if (!source.failure().isEmpty())
        return file->refuse(source.failure(), QString(), session);
    if (reading.outcome != FcfExactReading::Complete) {
        explain(reading, file, exitCode, session);
        return false;
    }
    const int textEnd = reading.textEnd;
    bytes = textEnd + FcfWriter(session->codec()).fillerFor(textEnd).size();
    return true;
}
