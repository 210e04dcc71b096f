#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/check/Validator.h"
#include "tool/commands/Command.h"

#include <QJsonDocument>
#include <QLocale>

namespace {

constexpr int NameWidth = 14;
constexpr int Kibibyte = 1024;

/// One field, the lines of its value below each other.
void print(const QString& indent, const char* name, const QString& value, Report* report)
{
    QString label = QLatin1String(name);
    for (const QString& line : value.split(QLatin1Char('\n'))) {
        const QString text =
            indent + label.leftJustified(NameWidth) + QLatin1Char(' ') + shownText(line, WholeText);
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
    const QString number = QString::number(value) + QLatin1Char(' ') + unit;
    return isLarge ? QStringLiteral("%1 (%2)").arg(number, QLocale::c().formattedDataSize(value))
                   : number;
}

QString shownTarget(const FcfHeader& header)
{
    const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
    if (!target)
        return "unknown";
    return QStringLiteral("%1, %2, flash slot %3")
        .arg(QLatin1String(target->module), QLatin1String(target->device))
        .arg(header.configNumber);
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
        const QString unit = QLatin1String(field.unit);
        print(indent, field.name,
              unit.endsWith(QLatin1Char('s')) ? shownNumber(header.*field.value, unit)
                                              : QString::number(header.*field.value),
              report);
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

/// Lists the header pages of images and companions. Never reads a payload.
class ShowCommand : public Command {
public:
    explicit ShowCommand(CLI::App* parent)
        : Command(parent, "show", "List the header of images and companions")
    {
        Argument::addOperands(app, "FILE", &m_files, "images or companions; - is standard input");
        Argument::addOption(app, "--field", &m_field, "NAME",
                            "print the value of this field alone, as \"version\" (default: all)");
        Argument::addFlag(app, "--check", &m_check, "end with 1 if a file is not valid");
    }
    void run(Task* task) override;

private:
    static bool showField(const QString& field, const QJsonObject& header, Task* task);
    static bool check(const FcfFile& fcf, Task* task);

    std::vector<std::string> m_files;
    std::optional<std::string> m_field;
    bool m_check = false;
};

void ShowCommand::run(Task* task)
{
    QJsonArray shown;
    const auto field = m_field ? task->text(*m_field, "--field") : std::nullopt;
    if (m_field && !field)
        return;
    for (const std::string& argument : m_files) {
        auto fcf = task->openFcf(argument, m_check ? Task::Whole : Task::PageOnly,
                                 ExitCode::NotValid, HeaderPage::Escaped);
        if (!fcf)
            continue;
        if (auto& flaw = fcf->page.flaw) {
            flaw->severity = m_check ? Finding::Error : Finding::Warning;
            flaw->exitCode = m_check ? ExitCode::NotValid : ExitCode::Done;
            task->findings.add(*flaw);
        }
        QJsonObject header = BuildJson::header(fcf->page.reading.header);
        QJsonObject object{{"file", fcf->file.label()}, {"headerBytes", fcf->page.bytes}};
        if (field) {
            if (!showField(*field, header, task))
                return;
            header = QJsonObject{{*field, header[*field]}};
        } else {
            list(fcf->file.label(), fcf->page, &task->report);
        }
        object["header"] = header;
        if (m_check)
            object["valid"] = check(*fcf, task);
        shown.append(object);
    }
    task->report.result["files"] = shown;
}

/// Prints the value of \p field alone. Returns false, with an error, if there is no such field.
bool ShowCommand::showField(const QString& field, const QJsonObject& header, Task* task)
{
    const QJsonValue value = header[field];
    if (value.isUndefined()) {
        task->refuse(
            "--field",
            QStringLiteral("\"%1\" is none of %2").arg(shownText(field), header.keys().join(", ")));
        return false;
    }
    if (value.isArray())
        task->report.print(QString::fromUtf8(
            asPrintable(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact))));
    else if (value.isDouble())
        task->report.print(QString::number(value.toInt()));
    else
        for (const QString& line : value.toString().split(QLatin1Char('\n')))
            task->report.print(shownText(line, WholeText));
    return true;
}

/// Returns whether the file is valid; what is wrong with it becomes an error.
bool ShowCommand::check(const FcfFile& fcf, Task* task)
{
    if (fcf.page.flaw)
        return false;
    const int before = task->findings.list().size();
    const bool isCompanion = fcf.page.payloadBytes == 0;
    Validator(&fcf.file, isCompanion ? Validator::Companion : Validator::Image, task->codec,
              &task->findings)
        .validate(fcf.page);
    const bool isValid = task->findings.exitCode(before) == ExitCode::Done;
    if (!isValid)
        task->report.print(QStringLiteral("%1: not valid; pelk-fcf verify reports all of it")
                               .arg(shownText(fcf.file.label())));
    return isValid;
}

} // namespace

CommandPointer showCommand(CLI::App* app) { return std::make_unique<ShowCommand>(app); }
