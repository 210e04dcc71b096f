#include "VerifyCommand.h"

#include "tool/Digest.h"
#include "tool/FileKind.h"
#include "tool/HeaderPage.h"
#include "tool/InputFile.h"
#include "tool/Progress.h"
#include "tool/Session.h"

void VerifyCommand::declare(CLI::App* app)
{
    addOperands(app, "FILE", &m_files, "images or companions; - is standard input");
    addOption(app, "--bin", &m_binary, "BIN", "the binary that the payload must be");
    addOption(app, "--companion", &m_companion, "TXT", "the companion that the header must be");
    addOption(app, "--digest", &m_digest, "FILE",
              "the image's SHA-256; without it, FILE.sha256 is taken if there is one");
    addOption(app, "--type", &m_type, "image|companion",
              "what FILE is, when its name does not end with .fcf or .txt");
}

void VerifyCommand::run(Session* session)
{
    session->findingsAreResults = true;
    if (!usageIsRight(session))
        return;
    QJsonArray results;
    for (const std::string& argument : m_files) {
        const std::optional<QString> path = session->path(argument, QStringLiteral("FILE"));
        if (!path)
            continue;
        const QString label = InputFile::labelOf(*path);
        QJsonObject result{{"file", label}};
        const int findingsBefore = session->findings.list().size();
        verify(*path, session, &result);
        const ExitCode verdict = session->findings.exitCode(findingsBefore);
        const bool isKnown = verdict == ExitCode::Done || verdict == ExitCode::NotValid;
        result["valid"] = isKnown ? QJsonValue(verdict == ExitCode::Done) : QJsonValue();
        results.append(result);
        if (isKnown)
            session->print(QStringLiteral("%1: %2").arg(
                shownText(label),
                verdict == ExitCode::Done ? QStringLiteral("valid") : QStringLiteral("not valid")));
    }
    session->result["files"] = results;
}

bool VerifyCommand::usageIsRight(Session* session) const
{
    if (m_files.size() == 1 || (!m_binary && !m_companion && !m_digest))
        return true;
    session->findings.error(ExitCode::Refused, QString(), QStringLiteral("FILE"),
                            QStringLiteral("--bin, --companion and --digest are about one file"));
    return false;
}

void VerifyCommand::verify(const QString& path, Session* session, QJsonObject* result) const
{
    const std::optional<Validator::Kind> kind = kindOfFile(path, m_type, session);
    if (kind == Validator::Companion && m_digest) {
        session->findings.error(ExitCode::Refused, path, QStringLiteral("--digest"),
                                QStringLiteral("is of an image; this is a companion"));
        return;
    }
    InputFile file;
    HeaderPage page;
    if (!kind || !file.open(path, Validator::LargestFile, QStringLiteral("FILE"), session) ||
        !page.read(&file, ExitCode::NotValid, session))
        return;
    Validator(&file, *kind, session).validate(page);
    bool payloadIsKnown = compareOthers(&file, *kind, page, session);
    if (*kind == Validator::Image) {
        payloadIsKnown = checkDigest(&file, session) || payloadIsKnown;
        (*result)["payloadCompared"] = payloadIsKnown;
        if (!payloadIsKnown)
            session->findings.note(
                file.label(), QStringLiteral("payload"),
                QStringLiteral("the header holds no checksum of the payload, so only its length "
                               "was checked; --bin or a digest tells more"));
    }
}

bool VerifyCommand::compareOthers(InputFile* file, Validator::Kind kind, const HeaderPage& page,
                                  Session* session) const
{
    const Validator validator(file, kind, session);
    if (m_companion) {
        const QString option = QStringLiteral("--companion");
        const std::optional<QString> path = session->path(*m_companion, option);
        InputFile companion;
        if (path && companion.open(*path, Validator::LargestFile, option, session))
            validator.compareCompanion(page, &companion);
    }
    if (!m_binary)
        return false;
    const QString option = QStringLiteral("--bin");
    const std::optional<QString> path = session->path(*m_binary, option);
    InputFile binary;
    if (!path || !binary.open(*path, Validator::LargestFile, option, session))
        return false;
    validator.compareBinary(page, &binary);
    return true;
}

bool VerifyCommand::checkDigest(InputFile* file, Session* session) const
{
    const QString field = QStringLiteral("digest");
    std::optional<QString> path;
    if (m_digest)
        path = session->path(*m_digest, QStringLiteral("--digest"));
    else if (!file->isStandardInput() &&
             FileSystem::targetKindOf(Digest::pathFor(file->path())) == FileSystem::Kind::File)
        path = Digest::pathFor(file->path());
    InputFile digestFile;
    if (!path || !digestFile.open(*path, Digest::MaximumBytes, field, session))
        return false;
    const auto lines = digestFile.bytesAt(0, Digest::MaximumBytes, session);
    if (!lines)
        return false;

    const bool hasName = !file->isStandardInput();
    const QList<QByteArray> expected =
        Digest::find(*lines, hasName ? std::optional<QString>(file->path()) : std::nullopt);
    // Without a name to look for, only a lone one can be meant.
    if (expected.isEmpty() || (!hasName && expected.size() > 1)) {
        session->findings
            .error(ExitCode::NotValid, *path, field,
                   QStringLiteral("holds no SHA-256 of \"%1\"").arg(shownText(file->label())))
            .at(0)
            .comparing(QStringLiteral("a line of sha256sum for that name"),
                       QStringLiteral("none in %1 bytes").arg(lines->size()));
        return false;
    }
    Progress progress(session, QStringLiteral("verify"), file->size());
    InputSource source(file, 0);
    MeteredSource metered(&source, &progress);
    const std::optional<QByteArray> found = Digest::of(&metered);
    if (!found)
        file->refuse(source.failure(), QString(), session);
    for (const QByteArray& digest : expected) {
        if (found && *found != digest)
            session->findings
                .error(ExitCode::NotValid, file->label(), field,
                       QStringLiteral("is not that of %1").arg(shownText(*path)))
                .at(0)
                .comparing(QString::fromLatin1(digest.toHex()),
                           QString::fromLatin1(found->toHex()));
    }
    return found.has_value();
}
