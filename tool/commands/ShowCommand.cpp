#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/check/Validator.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Command.h"

#include <QJsonDocument>

#include <CLI/CLI.hpp>

namespace {

constexpr int NameWidth = 14;
constexpr int ShowAll = 1 << 30;

/// Lines of text, one field each, the values below each other.
class Listing {
public:
    explicit Listing(Report* report) : m_report(report) {}

    void line(const QString& indent, const char* name, const QString& value)
    {
        const QStringList parts = value.split(QLatin1Char('\n'));
        QString label = QLatin1String(name);
        for (const QString& part : parts) {
            const QString text = indent + label.leftJustified(NameWidth) + QLatin1Char(' ') +
                                 shownText(part, ShowAll);
            m_report->print(text.trimmed().isEmpty() ? QString() : text);
            label.clear();
        }
    }

    template <class Record, int Count>
    void texts(const FcfLayout::TextField<Record> (&fields)[Count], const QString& indent,
               const Record& record)
    {
        for (const auto& field : fields)
            line(indent, field.name, record.*field.value);
    }

private:
    Report* m_report;
};

QString meaningOf(const FcfLayout::NumberField& field, const FcfHeader& header)
{
    const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
    if (field.value == &FcfHeader::moduleCode)
        return QLatin1String(target ? target->module : "unknown");
    if (field.value == &FcfHeader::deviceCode)
        return QLatin1String(target ? target->device : "unknown");
    return QLatin1String(field.unit);
}

void list(const QString& label, const HeaderPage& page, Report* report)
{
    const FcfHeader& header = page.reading.header;
    const QString indent = QStringLiteral("  ");
    Listing listing(report);
    report->print(
        QStringLiteral("%1: header page of %2 bytes").arg(shownText(label)).arg(page.bytes));
    for (const auto& field : FcfLayout::Numbers)
        listing.line(
            indent, field.name,
            QStringLiteral("%1 %2").arg(header.*field.value).arg(meaningOf(field, header)));
    listing.line(indent, "version", Version{header.versionMajor, header.versionMinor}.text());
    listing.texts(FcfLayout::HeaderTexts, indent, header);
    listing.line(indent, "functions", QString::number(header.functions.size()));
    for (const FcfFunction& function : header.functions) {
        report->print(indent + QLatin1Char('-'));
        listing.texts(FcfLayout::FunctionTexts, indent + indent, function);
    }
}

/// Lists the header pages of images and companions. Never reads a payload.
class ShowCommand : public Command {
public:
    const char* name() const override { return "show"; }
    const char* summary() const override { return "List the header of images and companions"; }
    void declare(CLI::App* app) override
    {
        Arguments::addOperands(app, "FILE", &m_files, "images or companions; - is standard input");
        Arguments::addOption(app, "--field", &m_field, "NAME",
                             "print the value of this field alone, as \"version\"");
        app->add_flag("--check", m_check, "end with 1 if a file is not valid");
    }
    void run(Task* task) override;

private:
    static bool showField(const QString& field, const QJsonObject& header, Task* task);
    static bool check(FcfFile* fcf, Task* task);

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
        const std::optional<QString> path = task->path(argument, "FILE");
        const qint64 limit = m_check ? Validator::LargestFile : FcfExactReader::MaximumBytes;
        auto fcf = path ? task->openFcf(*path, limit, "FILE") : std::nullopt;
        if (!fcf)
            continue;
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
            object["valid"] = check(&*fcf, task);
        shown.append(object);
    }
    task->report.result["files"] = shown;
}

/// Prints the value of \p field alone. Returns false, with an error, if there is no such field.
bool ShowCommand::showField(const QString& field, const QJsonObject& header, Task* task)
{
    const QJsonValue value = header[field];
    if (value.isUndefined()) {
        task->findings.error(ExitCode::Refused, QString(), QStringLiteral("--field"),
                             QStringLiteral("\"%1\" is none of %2")
                                 .arg(shownText(field), header.keys().join(QStringLiteral(", "))));
        return false;
    }
    if (value.isArray())
        task->report.print(QString::fromUtf8(
            asPrintable(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact))));
    else if (value.isDouble())
        task->report.print(QString::number(value.toInt()));
    else
        for (const QString& line : value.toString().split(QLatin1Char('\n')))
            task->report.print(shownText(line, ShowAll));
    return true;
}

/// Returns whether the file is valid; what is wrong with it becomes an error.
bool ShowCommand::check(FcfFile* fcf, Task* task)
{
    const int before = task->findings.list().size();
    if (!task->findings.accept(fcf->page.measure(fcf->file)))
        return false;
    const bool isCompanion = fcf->page.payloadBytes == 0;
    Validator(&fcf->file, isCompanion ? Validator::Companion : Validator::Image, task->codec,
              &task->findings)
        .validate(fcf->page);
    const bool isValid = task->findings.exitCode(before) == ExitCode::Done;
    if (!isValid)
        task->report.print(QStringLiteral("%1: not valid; pelk-fcf verify says more")
                               .arg(shownText(fcf->file.label())));
    return isValid;
}

} // namespace

std::unique_ptr<Command> showCommand() { return std::make_unique<ShowCommand>(); }
