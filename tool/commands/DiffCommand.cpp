#include "tool/base/Text.h"
#include "tool/check/FcfFileDifferences.h"
#include "tool/commands/Command.h"
#include "tool/files/FileCompare.h"
#include "tool/recipe/HeaderJson.h"

#include <QHash>

namespace {

constexpr int FieldWidth = 24;

QString shownValue(const QJsonValue& value)
{
    if (value.isUndefined() || value.isNull())
        return "-";
    if (value.isString())
        return QStringLiteral("\"%1\"").arg(shownText(value.toString()));
    return QString::number(value.toInt());
}

QString shownField(const QJsonObject& field)
{
    const QString name = shownText(field["field"].toString()).leftJustified(FieldWidth);
    return QStringLiteral("%1 %2 | %3").arg(name, shownValue(field["a"]), shownValue(field["b"]));
}

QString shownPayload(const QJsonObject& payload)
{
    const auto number = [&](const char* name) { return payload[name].toVariant().toLongLong(); };
    return QStringLiteral("%1 %2 bytes | %3 bytes; %4 differ, the first at offset %5 of the "
                          "payload")
        .arg("payload", -FieldWidth)
        .arg(number("bytesA"))
        .arg(number("bytesB"))
        .arg(number("differingBytes"))
        .arg(number("firstOffset"));
}

/// What the payloads of \p a and \p b differ in; empty if they are the same. All that is in one
/// alone differs.
Result<QJsonObject> comparePayloads(const FcfFile& a, const FcfFile& b, const Task& task)
{
    const qint64 bytesA = a.page.payloadBytes;
    const qint64 bytesB = b.page.payloadBytes;
    const qint64 common = qMin(bytesA, bytesB);
    const auto difference =
        FileCompare::compare(a.payload(), b.payload(), task.progress("diff", common));
    if (!difference)
        return tl::unexpected<Finding>(difference.error());

    const qint64 differing = difference->count + qMax(bytesA, bytesB) - common;
    if (differing == 0)
        return QJsonObject();

    return QJsonObject{{"firstOffset", difference->count > 0 ? difference->offset : common},
                       {"differingBytes", differing},
                       {"bytesA", bytesA},
                       {"bytesB", bytesB}};
}

/// The numbers behind a field that is shown as a text.
const QHash<QString, QStringList> Numbers{{"version", {"versionMajor", "versionMinor"}},
                                          {"module", {"moduleCode"}},
                                          {"device", {"deviceCode"}}};

/// The name in --ignore of what is listed as \p field, like "functions[fft].author".
QString ignorableName(const QString& field) { return field.section(QLatin1Char('['), 0, 0); }

/// Lists how two images or companions differ.
class DiffCommand : public Command {
public:
    explicit DiffCommand(CLI::App* parent)
        : Command(parent, "diff", "Say how two images or companions differ")
    {
        Arguments::addRequired(app, "A", &m_a, "", "an image or a companion");
        Arguments::addRequired(app, "B", &m_b, "", "what to compare it with");
        Arguments::addOption(app, "--ignore", &m_ignore, "FIELD[,FIELD]",
                             "leave these fields out, as \"date,time,fileName\" (default: none)");
    }
    void run(Task* task) override;

private:
    std::optional<QStringList> ignored(Task* task) const;

    std::optional<std::string> m_a;
    std::optional<std::string> m_b;
    std::optional<std::string> m_ignore;
};

void DiffCommand::run(Task* task)
{
    const std::optional<QStringList> ignored = this->ignored(task);
    const auto a = task->openFcf(*m_a, Task::Whole, ExitCode::Refused);
    const auto b = task->openFcf(*m_b, Task::Whole, ExitCode::Refused);
    if (!ignored || !a || !b)
        return;

    const auto found = task->findings.valueOf(FcfFileDifferences::find(*a, *b, task->codec));
    const auto payload = ignored->contains(FcfFileDifferences::Payload)
                             ? QJsonObject()
                             : task->findings.valueOf(comparePayloads(*a, *b, *task));
    if (!found || !payload)
        return;

    QJsonArray fields;
    for (const auto& field : *found) {
        if (!ignored->contains(ignorableName(field.toObject()["field"].toString())))
            fields.append(field);
    }

    const bool isSame = fields.isEmpty() && payload->isEmpty();
    task->report.verdict = isSame ? ExitCode::Done : ExitCode::NotValid;
    task->report.result["same"] = isSame;
    task->report.result["fields"] = fields;
    task->report.result["payload"] = payload->isEmpty() ? QJsonValue() : QJsonValue(*payload);

    for (const auto& field : fields)
        task->report.print(shownField(field.toObject()));
    if (!payload->isEmpty())
        task->report.print(shownPayload(*payload));
}

/// The names given with --ignore, or nothing, with an error, if one of them is not known.
std::optional<QStringList> DiffCommand::ignored(Task* task) const
{
    if (!m_ignore)
        return QStringList();
    const auto text = task->text(*m_ignore, "--ignore");
    if (!text)
        return std::nullopt;

    const QStringList known =
        HeaderJson::object(FcfHeader()).keys() + FcfFileDifferences::otherNames();
    QStringList ignored;
    for (const QString& name : text->split(QLatin1Char(','))) {
        if (!known.contains(name)) {
            task->refuse(
                "--ignore",
                QStringLiteral("\"%1\" is none of %2").arg(shownText(name), known.join(", ")));
            return std::nullopt;
        }
        ignored << name << Numbers.value(name);
    }
    return ignored;
}

} // namespace

CommandPointer diffCommand(CLI::App* app) { return std::make_unique<DiffCommand>(app); }
