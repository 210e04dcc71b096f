#include "Session.h"

#include "fcf/FcfWriter.h"

#include <QFile>
#include <QIODevice>
#include <QJsonDocument>
#include <QTextCodec>

QString isInput(const ReadFile& input)
{
    return QStringLiteral("is the input itself, \"%1\"").arg(shownText(input.label));
}

const QString StandardStream = QStringLiteral("-");
const QString StandardOutputLabel = QStringLiteral("standard output");

Session::Session(Environment* environment, const char* command)
    : m_environment(environment), m_command(command)
{
}

std::optional<QString> Session::text(const std::string& argument, const QString& field)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text =
        codec()->toUnicode(argument.data(), static_cast<int>(argument.size()), &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return text;
    findings.error(ExitCode::Refused, QString(), field,
                   QStringLiteral("\"%1\" is not text in the encoding of this locale, %2")
                       .arg(shownText(text), QString::fromLatin1(codec()->name())));
    return std::nullopt;
}

std::optional<QString> Session::path(const std::string& argument, const QString& field)
{
    const QByteArray bytes = QByteArray::fromStdString(argument);
    QString path = QFile::decodeName(bytes);
    if (path.isEmpty()) {
        findings.error(ExitCode::Refused, QString(), field,
                       QStringLiteral("the name of a file cannot be empty"));
        return std::nullopt;
    }
    const bool isWhole = QFile::encodeName(path) == bytes;
    // Qt takes such a name for one of its own resources.
    if (path.startsWith(QLatin1Char(':')))
        path.prepend(QStringLiteral("./"));
    if (isWhole)
        return path;
    findings.error(ExitCode::Refused, path, field,
                   QStringLiteral("the name is not text in the encoding of this locale, %1")
                       .arg(QString::fromLatin1(codec()->name())));
    return std::nullopt;
}

const ReadFile* Session::inputWith(const std::optional<FileSystem::Identity>& identity) const
{
    for (const ReadFile& input : inputs) {
        if (identity == input.identity)
            return &input;
    }
    return nullptr;
}

const ReadFile* Session::inputAtOut() const
{
    const auto* const file = qobject_cast<const QFile*>(m_environment->out);
    if (!file || !FileSystem::isFile(file->handle()))
        return nullptr;
    return inputWith(FileSystem::identityOf(file->handle()));
}

int Session::finish()
{
    if (quiet)
        findings.dropNotes();
    QString reason;
    const QByteArray bytes = outBytes();
    const ReadFile* const input = inputAtOut();
    if (!bytes.isEmpty() && input)
        findings.error(ExitCode::Refused, StandardOutputLabel, QString(), isInput(*input));
    else if (!bytes.isEmpty() && !FcfWriter::writeAll(m_environment->out, bytes, &reason))
        findings.error(ExitCode::CannotAccess, StandardOutputLabel, QString(),
                       QStringLiteral("cannot be written: %1").arg(reason));
    writeMessages();
    return static_cast<int>(findings.exitCode());
}

bool Session::goesToOut(const Finding& finding) const
{
    const bool isResult =
        finding.severity != Finding::Error || finding.exitCode == ExitCode::NotValid;
    return findingsAreResults && isResult && !json;
}

QByteArray Session::outBytes() const
{
    if (outIsTaken)
        return m_raw;
    if (json && m_raw.isEmpty()) {
        QJsonObject object = result;
        object["schema"] = SchemaVersion;
        object["command"] = m_command;
        object["exitCode"] = static_cast<int>(findings.exitCode());
        object["findings"] = findings.toJson();
        return QJsonDocument(object).toJson();
    }
    QString text;
    for (const Finding& finding : findings.list()) {
        if (goesToOut(finding))
            text += finding.text() + QLatin1Char('\n');
    }
    if (!json) {
        for (const QString& line : m_lines)
            text += line + QLatin1Char('\n');
    }
    return m_raw + encoded(text);
}

void Session::writeMessages()
{
    QString text;
    for (const Finding& finding : findings.list()) {
        if (!goesToOut(finding))
            text += QStringLiteral("pelk-fcf: %1\n").arg(finding.text());
    }
    // There is nowhere left to say that a message cannot be written.
    FcfWriter::writeAll(m_environment->err, encoded(text), nullptr);
}

QByteArray Session::encoded(const QString& text) const
{
    const QScopedPointer<QTextEncoder> encoder(codec()->makeEncoder(QTextCodec::IgnoreHeader));
    return encoder->fromUnicode(text);
}
