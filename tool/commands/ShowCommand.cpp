#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Command.h"

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
    }
    void run(Task* task) override;

private:
    std::vector<std::string> m_files;
};

void ShowCommand::run(Task* task)
{
    QJsonArray shown;
    for (const std::string& argument : m_files) {
        const std::optional<QString> path = task->path(argument, "FILE");
        const auto fcf =
            path ? task->openFcf(*path, FcfExactReader::MaximumBytes, "FILE") : std::nullopt;
        if (!fcf)
            continue;
        list(fcf->file.label(), fcf->page, &task->report);
        shown.append(QJsonObject{{"file", fcf->file.label()},
                                 {"headerBytes", fcf->page.bytes},
                                 {"header", BuildJson::header(fcf->page.reading.header)}});
    }
    task->report.result["files"] = shown;
}

} // namespace

std::unique_ptr<Command> showCommand() { return std::make_unique<ShowCommand>(); }
