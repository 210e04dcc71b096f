#include "BuildOptions.h"

#include "tool/Command.h"
#include "tool/HeaderPage.h"
#include "tool/InputFile.h"
#include "tool/Recipe.h"
#include "tool/Session.h"

#include <QFile>
#include <QRegularExpression>

#include <CLI/CLI.hpp>

#include <limits>

namespace {

constexpr int TextsOfFunction = 4;
/// Many times what a page can hold: enough to say by how much a text is too long.
constexpr int LargestDescriptionFile = 256 * 1024;

void refuse(const QString& option, const QString& reason, Session* session)
{
    session->findings.error(ExitCode::Refused, QString(), option, reason);
}

/// A number of decimal digits alone; QString::toInt() would take blanks and signs too.
std::optional<qint32> wholeNumber(const QString& text)
{
    static const QRegularExpression digits(QStringLiteral("^-?[0-9]{1,10}\\z"));
    bool fits = false;
    const int number = text.toInt(&fits);
    if (!fits || !digits.match(text).hasMatch())
        return std::nullopt;
    return number;
}

/// Everything in the file at \p path, if it is no more than \p limit bytes.
std::optional<QByteArray> wholeFile(const QString& path, qint64 limit, const QString& option,
                                    Session* session)
{
    InputFile file;
    if (!file.open(path, limit, option, session))
        return std::nullopt;
    if (file.size() <= limit)
        return file.bytesAt(0, file.size(), session);
    session->findings.error(ExitCode::Refused, file.label(), option,
                            QStringLiteral("has more than %1 bytes").arg(limit));
    return std::nullopt;
}

} // namespace

void BuildOptions::declare(CLI::App* app)
{
    addOption(app, "--author", &m_author, "TEXT", "who built it");
    addOption(app, "--ci", &m_ciNumber, "TEXT", "configuration item number of the build");
    addOption(app, "--module", &m_module, "NAME", "DFE, DFE2 or GPM");
    addOption(app, "--device", &m_device, "NAME", "a device of the module");
    addOption(app, "--config", &m_configNumber, "SLOT", "flash slot, 1 to 10");
    addOption(app, "--version", &m_version, "MAJOR.MINOR", "version of the build");
    addOption(app, "--description", &m_description, "TEXT|@FILE",
              "what the build is; @FILE takes the text of a file, @@TEXT is @TEXT");
    addRepeatedOption(app, "--function", TextsOfFunction, &m_functions,
                      "NAME AUTHOR CI DESCRIPTION",
                      "a function in the build, four arguments; may be repeated");
    addOption(app, "--like", &m_like, "FILE",
              "take what is not given from an image (.fcf), a companion (.txt) or a recipe (.json; "
              "- is a recipe on standard input)");
}

Build BuildOptions::build(Session* session) const
{
    Build build;
    readText(m_author, "--author", &build.author, session);
    readText(m_ciNumber, "--ci", &build.ciNumber, session);
    readText(m_module, "--module", &build.module, session);
    readText(m_device, "--device", &build.device, session);
    readConfigNumber(&build, session);
    readVersion(&build, session);
    readDescription(&build, session);
    readFunctions(&build, session);
    Build base = like(session);
    // A device belongs to its module: another module's is of no use.
    if (build.module && build.module != base.module)
        base.device.reset();
    const QString origin = QFile::decodeName(m_like.value_or(std::string()).c_str());
    build.complete(base, InputFile::labelOf(origin));
    return build;
}

void BuildOptions::readText(const std::optional<std::string>& argument, const char* option,
                            std::optional<QString>* value, Session* session) const
{
    if (argument)
        *value = session->text(*argument, QLatin1String(option));
}

void BuildOptions::readConfigNumber(Build* build, Session* session) const
{
    std::optional<QString> text;
    readText(m_configNumber, "--config", &text, session);
    if (!text)
        return;
    build->configNumber = wholeNumber(*text);
    if (!build->configNumber)
        refuse(QStringLiteral("--config"),
               QStringLiteral("\"%1\" is not a number").arg(shownText(*text)), session);
}

void BuildOptions::readVersion(Build* build, Session* session) const
{
    std::optional<QString> text;
    readText(m_version, "--version", &text, session);
    if (!text)
        return;
    const QStringList parts = text->split(QLatin1Char('.'));
    const std::optional<qint32> major = wholeNumber(parts.value(0));
    const std::optional<qint32> minor = wholeNumber(parts.value(1));
    if (parts.size() == 2 && major && minor)
        build->version = Version{*major, *minor};
    else
        refuse(QStringLiteral("--version"),
               QStringLiteral("\"%1\" is not two numbers like 1.12").arg(shownText(*text)),
               session);
}

void BuildOptions::readDescription(Build* build, Session* session) const
{
    const QString option = QStringLiteral("--description");
    const std::string start = m_description.value_or(std::string()).substr(0, 2);
    if (start.empty() || start.front() != '@' || start == "@@") {
        readText(m_description, "--description", &build->description, session);
        if (start == "@@" && build->description)
            build->description->remove(0, 1);
        return;
    }
    const std::optional<QString> path = session->path(m_description->substr(1), option);
    if (!path)
        return;
    const std::optional<QByteArray> bytes =
        wholeFile(*path, LargestDescriptionFile, option, session);
    if (!bytes)
        return;
    build->origins["description"] = *path;
    build->description = session->text(bytes->toStdString(), option);
    if (!build->description)
        return;
    // How editors on other systems mark the file and end its lines is no part of the text.
    if (build->description->startsWith(QChar::ByteOrderMark))
        build->description->remove(0, 1);
    build->description->replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

void BuildOptions::readFunctions(Build* build, Session* session) const
{
    if (m_functions.empty())
        return;
    const QString option = QStringLiteral("--function");
    QVector<FcfFunction> functions;
    for (std::size_t first = 0; first + TextsOfFunction <= m_functions.size();
         first += TextsOfFunction) {
        FcfFunction function;
        function.name = session->text(m_functions[first], option).value_or(QString());
        function.author = session->text(m_functions[first + 1], option).value_or(QString());
        function.ciNumber = session->text(m_functions[first + 2], option).value_or(QString());
        function.description = session->text(m_functions[first + 3], option).value_or(QString());
        functions.append(function);
    }
    build->functions = functions;
}

Build BuildOptions::like(Session* session) const
{
    const QString option = QStringLiteral("--like");
    if (!m_like)
        return Build();
    const std::optional<QString> path = session->path(*m_like, option);
    if (!path)
        return Build();

    if (*path == StandardStream || path->endsWith(QStringLiteral(".json"))) {
        const auto json = wholeFile(*path, Recipe::MaximumBytes, option, session);
        Build build;
        QString field;
        QString error;
        if (json && !Recipe::read(*json, &build, &field, &error))
            session->findings.error(ExitCode::Refused, InputFile::labelOf(*path), field, error);
        return build;
    }
    if (path->endsWith(QStringLiteral(".fcf")) || path->endsWith(QStringLiteral(".txt"))) {
        const std::size_t inputsBefore = session->inputs.size();
        InputFile file;
        HeaderPage page;
        if (!file.open(*path, std::numeric_limits<qint32>::max(), option, session))
            return Build();
        // An image may be made anew from what it says itself: nothing else of it is needed.
        session->inputs.resize(inputsBefore);
        const bool isRead = page.read(&file, ExitCode::Refused, session);
        return isRead ? Build::of(page.reading.header) : Build();
    }
    session->findings.error(ExitCode::Refused, *path, option,
                            QStringLiteral("the name ends with neither .fcf, .txt nor .json"));
    return Build();
}
