#include "tool/base/Text.h"
#include "tool/commands/Command.h"
#include "tool/files/FileCompare.h"
#include "tool/recipe/HeaderJson.h"

namespace {

constexpr int NameWidth = 24;

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
    const QString name = shownText(field["field"].toString()).leftJustified(NameWidth);
    return QStringLiteral("%1 %2 | %3").arg(name, shownValue(field["a"]), shownValue(field["b"]));
}

QString shownPayload(const QJsonObject& payload)
{
    const auto number = [&](const char* name) { return payload[name].toVariant().toLongLong(); };
    return QStringLiteral("%1 %2 bytes | %3 bytes; %4 differ, the first at offset %5 of the "
                          "payload")
        .arg("payload", -NameWidth)
        .arg(number("bytesA"))
        .arg(number("bytesB"))
        .arg(number("differingBytes"))
        .arg(number("firstOffset"));
}

/// What the payloads of \p a and \p b differ in; empty if they are the same. All that is in one
/// alone differs. A companion has no payload to compare.
Result<QJsonObject> comparePayloads(const FcfFile& a, const FcfFile& b, const Task& task)
{
    const qint64 bytesA = a.page.payloadBytes;
    const qint64 bytesB = b.page.payloadBytes;
    const qint64 common = qMin(bytesA, bytesB);
    if (common == 0)
        return QJsonObject();

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

/// Lists how two images or companions differ.
class DiffCommand : public Command {
public:
    explicit DiffCommand(CLI::App* parent)
        : Command(parent, "diff", "Say how two images or companions differ")
    {
        Arguments::addRequired(app, "A", &m_a, "", "an image or a companion");
        Arguments::addRequired(app, "B", &m_b, "", "what to compare it with");
    }
    void run(Task* task) override;

private:
    std::optional<std::string> m_a;
    std::optional<std::string> m_b;
};

void DiffCommand::run(Task* task)
{
    const auto a = task->openFcf(*m_a, Task::Whole, ExitCode::Refused);
    const auto b = task->openFcf(*m_b, Task::Whole, ExitCode::Refused);
    if (!a || !b)
        return;

    const auto payload = task->findings.valueOf(comparePayloads(*a, *b, *task));
    if (!payload)
        return;

    const QJsonArray fields =
        HeaderJson::differences(a->page.reading.header, b->page.reading.header);
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

} // namespace

CommandPointer diffCommand(CLI::App* app) { return std::make_unique<DiffCommand>(app); }
