#include "HeaderPage.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/InputFile.h"
#include "tool/Session.h"
#include "tool/TextRules.h"

namespace {

void explain(const FcfReading& reading, const InputFile& file, ExitCode exitCode,
             Findings* findings)
{
    const FcfExactReading& exact = reading.exact;
    switch (reading.outcome) {
    case FcfReading::NoText:
        findings->error(exitCode, file.label(), QString(),
                        QStringLiteral("is no FCF header page: it ends before the text"));
        break;
    case FcfReading::NoFilenameLine:
        findings
            ->error(exitCode, file.label(), QString(),
                    QStringLiteral("is no FCF header page: its text does not begin with \"%1\"")
                        .arg(QLatin1String(FcfLayout::FirstLineKeyword)))
            .at(FcfLayout::PreambleBytes + 1);
        break;
    case FcfReading::EndedEarly:
        findings->error(exitCode, file.label(), QString(),
                        QStringLiteral("is no whole FCF header page: its text does not end"));
        break;
    case FcfReading::Deviates: {
        const char* const field = exact.deviation.field;
        findings
            ->error(exitCode, file.label(),
                    field ? TextRules::fieldName(field, exact.deviation.function) : QString(),
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
    // The reader takes a device that fails for one that ends, so fail here first.
    if (!file->bytesAt(0, FcfLayout::PreambleBytes, session) || !file->device().seek(0))
        return false;
    reading = FcfReader(session->codec(), FcfReader::Exact).read(&file->device());
    if (reading.outcome != FcfReading::Complete) {
        explain(reading, *file, exitCode, &session->findings);
        return false;
    }
    const int textEnd = reading.exact.textEnd;
    bytes = textEnd + FcfWriter(session->codec()).fillerFor(textEnd).size();
    return true;
}
