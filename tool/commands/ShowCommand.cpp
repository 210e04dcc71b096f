#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/commands/Command.h"
#include "tool/recipe/HeaderJson.h"
#include "tool/recipe/Recipe.h"

#include <QJsonDocument>
#include <QLocale>

namespace {

constexpr int LabelWidth = 14;
constexpr int Kibibyte = 1024;

/// One field, the lines of its value below each other.
void print(const QString& indent, const char* name, const QString& value, Report* report)
{
    QString label = QLatin1String(name);
    for (const QString& line : value.split(QLatin1Char('\n'))) {
        const QString text = indent + label.leftJustified(LabelWidth) + QLatin1Char(' ') +
                             shownText(line, WholeText);
        report->print(text.trimmed().isEmpty() ? QString() : text);
        label.clear();
    }
}

/// A number as people read it.
QString shownNumber(qint32 value, QString unit)
{
    const bool isLarge = unit == "bytes" && value >= Kibibyte;
    if (value == 1 && unit.endsWith(QLatin1Char('s')))
        unit.chop(1);

    QString number = QString::number(value) + QLatin1Char(' ') + unit;
    if (!isLarge)
        return number;
    return QStringLiteral("%1 (%2)").arg(number, QLocale::c().formattedDataSize(value));
}

QString shownTarget(const FcfHeader& header)
{
    const QString slot = QStringLiteral("flash slot %1").arg(header.configNumber);
    const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
    if (!target)
        return "unknown, " + slot;

    return QStringLiteral("%1, %2, %3")
        .arg(QLatin1String(target->module), QLatin1String(target->device), slot);
}

/// A number of the header; codes have no unit.
QString shownField(const FcfLayout::NumberField& field, const FcfHeader& header)
{
    const QString unit = QLatin1String(field.unit);
    const qint32 value = header.*field.value;
    const bool isCounted = unit.endsWith(QLatin1Char('s'));
    return isCounted ? shownNumber(value, unit) : QString::number(value);
}

/// Whether the lines of target and version have the number already.
bool isListedBefore(const FcfLayout::NumberField& field)
{
    return field.value == &FcfHeader::configNumber || field.value == &FcfHeader::versionMajor ||
           field.value == &FcfHeader::versionMinor;
}

void list(const QString& label, const HeaderPage& page, Report* report)
{
    const FcfHeader& header = page.reading.header;
    const QString indent = "  ";
    report->print(
        QStringLiteral("%1: header page of %2 bytes").arg(shownText(label)).arg(page.bytes));
    print(indent, "target", shownTarget(header), report);
    print(indent, "version", Version{header.versionMajor, header.versionMinor}.text(), report);

    for (const auto& field : FcfLayout::Numbers) {
        if (!isListedBefore(field))
            print(indent, field.name, shownField(field, header), report);
    }
    for (const auto& field : FcfLayout::HeaderTexts)
        print(indent, field.name, header.*field.value, report);

    print(indent, "functions", QString::number(header.functions.size()), report);
    for (const FcfFunction& function : header.functions) {
        report->print(indent + QLatin1Char('-'));
        for (const auto& field : FcfLayout::FunctionTexts)
            print(indent + indent, field.name, function.*field.value, report);
    }
}

/// Prints \p value alone.
void printValue(const QJsonValue& value, Report* report)
{
    if (value.isArray()) {
        const QByteArray json = QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact);
        report->print(QString::fromUtf8(asPrintable(json)));
        return;
    }
    if (value.isDouble()) {
        report->print(QString::number(value.toInt()));
        return;
    }

    for (const QString& line : value.toString().split(QLatin1Char('\n')))
        report->print(shownText(line, WholeText));
}

/// Lists the header pages of images and companions. Never reads a payload.
class ShowCommand : public Command {
public:
    explicit ShowCommand(CLI::App* parent)
        : Command(parent, "show", "List the header of images and companions")
    {
        Arguments::addOperands(app, "FILE", &m_files, "images or companions; - is standard input");
        Arguments::addOption(app, "--field", &m_field, "NAME",
                             "print the value of this field alone, as \"version\" (default: all)");
        Arguments::addFlag(app, "--check", &m_check, "end with 1 if a file is not valid");
    }
    void run(Task* task) override;

private:
    std::optional<QJsonObject> showFile(const FcfFile& fcf, const std::optional<QString>& field,
                                        Task* task) const;
    void addFlaw(Finding flaw, Task* task) const;
    static bool hasField(const QString& field, const QJsonObject& header, Task* task);
    static bool check(const FcfFile& fcf, Task* task);

    std::vector<std::string> m_files;
    std::optional<std::string> m_field;
    bool m_check = false;
};

void ShowCommand::run(Task* task)
{
    const auto field = m_field ? task->text(*m_field, "--field") : std::nullopt;
    if (m_field && !field)
        return;

    QJsonArray shown;
    const Task::Reach reach = m_check ? Task::Whole : Task::PageOnly;
    for (const std::string& argument : m_files) {
        const auto fcf = task->openFcf(argument, reach, ExitCode::NotValid, HeaderPage::Escaped);
        if (!fcf)
            continue;

        const auto object = showFile(*fcf, field, task);
        if (!object)
            return;
        shown.append(*object);
    }
    task->report.result["files"] = shown;
}

/// Prints all of \p fcf or \p field alone, and returns the same as JSON. Returns nothing, with an
/// error, if there is no such field.
std::optional<QJsonObject>
ShowCommand::showFile(const FcfFile& fcf, const std::optional<QString>& field, Task* task) const
{
    if (fcf.page.flaw)
        addFlaw(*fcf.page.flaw, task);

    QJsonObject header = HeaderJson::object(fcf.page.reading.header);
    if (field) {
        if (!hasField(*field, header, task))
            return std::nullopt;
        header = QJsonObject{{*field, header[*field]}};
        printValue(header[*field], &task->report);
    } else {
        list(fcf.file.label(), fcf.page, &task->report);
    }

    QJsonObject object{{"file", fcf.file.label()}, {"headerBytes", fcf.page.bytes}};
    object["header"] = header;
    if (m_check)
        object["valid"] = check(fcf, task);
    return object;
}

/// Adds what is wrong with a page that can be shown all the same.
void ShowCommand::addFlaw(Finding flaw, Task* task) const
{
    flaw.severity = m_check ? Finding::Error : Finding::Warning;
    flaw.exitCode = m_check ? ExitCode::NotValid : ExitCode::Done;
    task->findings.add(flaw);
}

/// Whether \p header has \p field; if not, that is an error.
bool ShowCommand::hasField(const QString& field, const QJsonObject& header, Task* task)
{
    if (header.contains(field))
        return true;

    task->refuse(
        "--field",
        QStringLiteral("\"%1\" is none of %2").arg(shownText(field), header.keys().join(", ")));
    return false;
}

/// Returns whether the file is valid; what is wrong with it becomes an error.
bool ShowCommand::check(const FcfFile& fcf, Task* task)
{
    if (fcf.page.flaw)
        return false;

    const int before = task->findings.count();
    const bool isCompanion = fcf.page.payloadBytes == 0;
    const auto kind = isCompanion ? FcfFileChecker::Companion : FcfFileChecker::Image;
    FcfFileChecker(&fcf.file, kind, task->codec, &task->findings).check(fcf.page);

    const bool isValid = task->findings.exitCode(before) == ExitCode::Done;
    if (!isValid)
        task->report.print(QStringLiteral("%1: not valid; pelk-fcf verify reports all of it")
                               .arg(shownText(fcf.file.label())));
    return isValid;
}

} // namespace

CommandPointer showCommand(CLI::App* app) { return std::make_unique<ShowCommand>(app); }
