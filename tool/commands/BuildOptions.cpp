#include "tool/commands/BuildOptions.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/commands/Command.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

/// A slot is called so as well.
const std::string SlotOption = "--config";
constexpr char SlotNames[] = "--config,--slot";
/// Many times what a page has room for: enough to say by how much a text is too long.
constexpr int LargestDescriptionFile = 256 * 1024;

/// Everything in the file at \p path, if it is no more than \p limit bytes.
std::optional<QByteArray> wholeFile(const QString& path, qint64 limit, const char* option,
                                    Task* task)
{
    auto bytes = task->bytesOf(path, limit + 1, option);
    if (!bytes || bytes->size() <= limit)
        return bytes;
    task->findings.error(ExitCode::Refused, InputFile::labelOf(path), QLatin1String(option),
                         QStringLiteral("has more than %1 bytes").arg(limit));
    return std::nullopt;
}

std::optional<QString> textOfFile(const QString& path, const char* option, Task* task)
{
    const auto bytes = wholeFile(path, LargestDescriptionFile, option, task);
    auto text = bytes ? task->text(bytes->toStdString(), option) : std::nullopt;
    if (!text)
        return std::nullopt;
    // How editors on other systems mark the file and end its lines is no part of the text.
    if (text->startsWith(QChar::ByteOrderMark))
        text->remove(0, 1);
    return text->replace("\r\n", "\n");
}

/// The build of the recipe at \p path, with the text of the file that it names.
Build withDescription(Build build, const QString& path, Task* task)
{
    if (!build.descriptionFile)
        return build;
    const QString file = QFileInfo(path).dir().filePath(*build.descriptionFile);
    build.description = textOfFile(file, "descriptionFile", task);
    return build;
}

/// Reads the arguments of one option each into a build.
class Reader {
public:
    Reader(Build* build, Task* task) : m_build(build), m_task(task) {}

    void read(const std::string& argument, const BuildField<QString>& field)
    {
        auto& value = m_build->*field.value;
        if (field.value != &Build::description || argument.substr(0, 1) != "@") {
            value = m_task->text(argument, field.option);
        } else if (argument.substr(0, 2) == "@@") {
            value = m_task->text(argument.substr(1), field.option);
        } else if (const auto path = m_task->path(argument.substr(1), field.option)) {
            value = textOfFile(*path, field.option, m_task);
            m_build->origins[QLatin1String(field.name)] = *path;
        }
    }

    void read(const std::string& argument, const BuildField<qint32>& field)
    {
        read(argument, field, &wholeNumber, "\"%1\" is not a number");
    }

    void read(const std::string& argument, const BuildField<Version>& field)
    {
        read(argument, field, &Version::of, "\"%1\" is not two numbers like 1.12");
    }

    /// Functions have several arguments each.
    void read(const std::string&, const BuildField<QVector<FcfFunction>>&) const {}

    void readFunctions(const std::vector<std::string>& arguments)
    {
        QVector<FcfFunction> functions;
        for (std::size_t index = 0; index < arguments.size(); ++index) {
            const auto& field = FcfLayout::FunctionTexts[index % FcfLayout::FunctionTextCount];
            if (index % FcfLayout::FunctionTextCount == 0)
                functions.append(FcfFunction());
            functions.last().*field.value =
                m_task->text(arguments[index], "--function").value_or(QString());
        }
        if (!functions.isEmpty())
            m_build->functions = functions;
    }

private:
    template <class Value>
    void read(const std::string& argument, const BuildField<Value>& field,
              std::optional<Value> (*parse)(const QString&), const QString& complaint)
    {
        const auto text = m_task->text(argument, field.option);
        m_build->*field.value = text ? parse(*text) : std::nullopt;
        if (text && !(m_build->*field.value))
            m_task->refuse(field.option, complaint.arg(shownText(*text)));
    }

    Build* m_build;
    Task* m_task;
};

const QString DatePattern = "yyyy-MM-dd";
const QString TimePattern = "HH:mm:ss";
/// Behind the date and a T.
constexpr int TimeStart = 11;
/// The last second of the year 9999, so that a date keeps its form.
constexpr qint64 LastSecond = 253402300799;

/// What --date-time says.
Result<QDateTime> given(const QString& text)
{
    // In UTC, which has every time of day: a local clock that is put forward leaves some out.
    const QDate date = QDate::fromString(text.left(DatePattern.size()), DatePattern);
    const QTime time = QTime::fromString(text.mid(TimeStart, TimePattern.size()), TimePattern);
    // An offset from UTC, as version control systems write it, says nothing about the time of day.
    // Qt would take signs, letters and less than there must be.
    static const QRegularExpression digits("^[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}"
                                           "(Z|[+-][0-9]{2}:[0-9]{2})?\\z");
    if (digits.match(text).hasMatch() && date.isValid() && time.isValid())
        return QDateTime(date, time, Qt::UTC);
    return failure(ExitCode::Refused, QString(), "--date-time",
                   QStringLiteral("\"%1\" is not a date and time like 2024-05-31T13:45:00")
                       .arg(shownText(text)));
}

/// What SOURCE_DATE_EPOCH says, in UTC.
Result<QDateTime> sourceDate(const QByteArray& value)
{
    const QString text = QString::fromLatin1(value);
    static const QRegularExpression digits("^[0-9]{1,12}\\z");
    const qint64 seconds = text.toLongLong();
    if (digits.match(text).hasMatch() && seconds <= LastSecond)
        return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    return failure(
        ExitCode::Refused, QString(), "SOURCE_DATE_EPOCH",
        QStringLiteral("\"%1\" is not a number of seconds since 1970, up to the year 9999")
            .arg(shownText(text)));
}

} // namespace

void BuildOptions::declare(CLI::App* app)
{
    forEachBuildField([&](const auto& field) {
        if (std::is_same_v<decltype(field), const BuildField<QVector<FcfFunction>>&>)
            Argument::addRepeatedOption(app, field.option, FcfLayout::FunctionTextCount,
                                        &m_functions, field.type, field.help);
        else
            Argument::addOption(app, field.option == SlotOption ? SlotNames : field.option,
                                &m_given[field.name], field.type, field.help);
        if (field.isRequired)
            Argument::setGroup(app, field.option, "Required, unless --like gives it");
    });
    std::string footer = "Modules and their devices:\n";
    for (const QString& module : FcfTarget::modules())
        footer += QStringLiteral("  %1: %2\n")
                      .arg(module, FcfTarget::devicesOf(module).join(", "))
                      .toStdString();
    Argument::setFooter(app, footer + '\n');
    Argument::addOption(app, "--like", &m_like, "FILE",
                        "take what is not given from an image (.fcf), a companion (.txt) or a "
                        "recipe (.json; - is a recipe on standard input)");
    Argument::addOption(app, "--date-time", &m_dateTime, "YYYY-MM-DDTHH:MM:SS",
                        "the date and time in the header (default: SOURCE_DATE_EPOCH in UTC, or "
                        "without that the clock)");
    Argument::addOption(app, "--date-format", &m_dateFormat, "locale|iso",
                        "how the date is written (default: locale)");
}

Build BuildOptions::build(Task* task) const
{
    Build build;
    Reader reader(&build, task);
    forEachBuildField([&](const auto& field) {
        const auto given = m_given.find(field.name);
        if (given == m_given.end() || !given->second)
            return;
        reader.read(*given->second, field);
        if (!(build.*field.value))
            build.refused << QLatin1String(field.name);
    });
    reader.readFunctions(m_functions);
    if (!m_like)
        return build;

    std::optional<Build> base = like(task);
    if (!base) {
        forEachBuildField([&](const auto& field) {
            if (!(build.*field.value))
                build.refused << QLatin1String(field.name);
        });
        return build;
    }
    // A device belongs to its module: another module's is of no use.
    if (build.module && build.module != base->module)
        base->device.reset();
    build.complete(*base, InputFile::labelOf(QFile::decodeName(m_like->c_str())));
    return build;
}

std::optional<Build> BuildOptions::like(Task* task) const
{
    constexpr char option[] = "--like";
    const std::optional<QString> path = task->path(*m_like, option);
    if (!path)
        return std::nullopt;

    if (*path == StandardStream || path->endsWith(".json")) {
        const auto json = wholeFile(*path, BuildJson::MaximumRecipeBytes, option, task);
        if (!json)
            return std::nullopt;
        const auto build = BuildJson::readRecipe(*json, InputFile::labelOf(*path));
        if (build)
            return withDescription(*build, *path, task);
        for (const Finding& error : build.error())
            task->findings.add(error);
        return std::nullopt;
    }
    if (path->endsWith(".fcf") || path->endsWith(".txt")) {
        // An image may be made anew from what it says itself.
        return task->findings.valueOf(
            task->inputs
                .open(*path, FcfExactReader::MaximumBytes, QLatin1String(option),
                      Inputs::Replaceable)
                .and_then([task](const InputFile& file) {
                    return HeaderPage::read(file, task->codec, ExitCode::Refused);
                })
                .map([](const HeaderPage& page) { return Build::of(page.reading.header); }));
    }
    task->findings.error(ExitCode::Refused, *path, QLatin1String(option),
                         "the name ends with neither .fcf, .txt nor .json");
    return std::nullopt;
}

void BuildOptions::stamp(FcfHeader* header, Task* task) const
{
    Findings& findings = task->findings;
    QDateTime moment = task->environment.clock();
    if (const auto& source = task->environment.sourceDateEpoch)
        moment = findings.valueOf(sourceDate(*source)).value_or(moment);
    if (const auto text = m_dateTime ? task->text(*m_dateTime, "--date-time") : std::nullopt)
        moment = findings.valueOf(given(*text)).value_or(moment);
    header->stamp(moment);
    const auto format = m_dateFormat ? task->text(*m_dateFormat, "--date-format") : std::nullopt;
    if (format == "iso")
        header->date = moment.date().toString(Qt::ISODate);
    else if (format && format != "locale")
        task->refuse(
            "--date-format",
            QStringLiteral("\"%1\" is neither \"locale\" nor \"iso\"").arg(shownText(*format)));
}
