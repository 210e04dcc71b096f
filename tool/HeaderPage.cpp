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

void explain(const FcfReading& reading, InputFile* file, ExitCode exitCode, Session* session)
{
    Findings* const findings = &session->findings;
    const QString end = QStringLiteral("the end");
    const FcfExactReading& exact = reading.exact;
    switch (reading.outcome) {
    case FcfReading::NoText:
        findings
            ->error(exitCode, file->label(), QStringLiteral("text"),
                    QStringLiteral("is no FCF header page: it ends before the text"))
            .at(qMin<qint64>(file->size(), FcfLayout::PreambleBytes))
            .comparing(QLatin1String(FcfLayout::FirstLineKeyword), end);
        break;
    case FcfReading::NoFilenameLine: {
        const QString found = firstTextOf(file, session);
        findings
            ->error(exitCode, file->label(), QStringLiteral("fileName"),
                    QStringLiteral("is no FCF header page: its text does not begin with \"%1\"")
                        .arg(QLatin1String(FcfLayout::FirstLineKeyword)))
            .at(FcfLayout::PreambleBytes + 1)
            .comparing(QLatin1String(FcfLayout::FirstLineKeyword), found);
        break;
    }
    case FcfReading::EndedEarly:
        findings
            ->error(exitCode, file->label(), QStringLiteral("text"),
                    QStringLiteral("is no whole FCF header page: its text does not end"))
            .at(qMin<qint64>(file->size(), FcfReader::MaximumBytes))
            .comparing(QLatin1String(FcfLayout::TextEnd),
                       file->size() > FcfReader::MaximumBytes ? QStringLiteral("more text") : end);
        break;
    case FcfReading::Deviates: {
        const char* const field = exact.deviation.field;
        findings
            ->error(exitCode, file->label(),
                    field ? TextRules::fieldName(field, exact.deviation.function)
                          : QStringLiteral("text"),
                    QStringLiteral("is not what an FCF header page has here"))
            .at(exact.deviation.offset)
            .comparing(exact.expected, exact.found);
        break;
    }
    case FcfReading::Complete:
        break;
    }
}

} // namespace

bool HeaderPage::read(InputFile* file, ExitCode exitCode, Session* session)
{
    InputSource source(file, 0);
    reading = FcfReader(session->codec(), FcfReader::Exact).read(&source);
    // The reader takes a file that fails for one that ends.
    if (!source.failure().isEmpty())
        return file->refuse(source.failure(), QString(), session);
    if (reading.outcome != FcfReading::Complete) {
        explain(reading, file, exitCode, session);
        return false;
    }
    const int textEnd = reading.exact.textEnd;
    bytes = textEnd + FcfWriter(session->codec()).fillerFor(textEnd).size();
    return true;
}
