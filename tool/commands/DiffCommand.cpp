#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/commands/Command.h"
#include "tool/files/Copy.h"

namespace {

constexpr int NameWidth = 24;

QString shownValue(const QJsonValue& value)
{
    if (value.isUndefined() || value.isNull())
        return "-";
    return value.isString() ? QStringLiteral("\"%1\"").arg(shownText(value.toString()))
                            : QString::number(value.toInt());
}

/// What one has more than the other differs. A companion has no payload to compare.
Result<QJsonObject> comparePayloads(const FcfFile& a, const FcfFile& b, const Task& task)
{
    const qint64 bytes = qMin(a.page.payloadBytes, b.page.payloadBytes);
    if (bytes == 0)
        return QJsonObject();
    const auto difference = FileCompare::compare(
        {&a.file, a.page.bytes, a.page.payloadBytes, nullptr},
        {&b.file, b.page.bytes, b.page.payloadBytes, nullptr}, task.progress("diff", bytes));
    if (!difference)
        return tl::unexpected<Finding>(difference.error());
    const qint64 more = qMax(a.page.payloadBytes, b.page.payloadBytes) - bytes;
    if (difference->count + more == 0)
        return QJsonObject();
    return QJsonObject{{"firstOffset", difference->count > 0 ? difference->offset : bytes},
                       {"differingBytes", difference->count + more},
                       {"bytesA", a.page.payloadBytes},
                       {"bytesB", b.page.payloadBytes}};
}

/// How two images or companions differ.
class DiffCommand : public Command {
public:
    explicit DiffCommand(CLI::App* parent)
        : Command(parent, "diff", "Say how two images or companions differ")
    {
        Argument::addRequired(app, "A", &m_a, "", "an image or a companion");
        Argument::addRequired(app, "B", &m_b, "", "what to compare it with");
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
    const auto payload =
        a && b ? task->findings.valueOf(comparePayloads(*a, *b, *task)) : std::nullopt;
    if (!payload)
        return;
    const QJsonArray fields =
        BuildJson::differences(a->page.reading.header, b->page.reading.header);
    const bool isSame = fields.isEmpty() && payload->isEmpty();
    task->report.verdict = isSame ? ExitCode::Done : ExitCode::NotValid;
    task->report.result["same"] = isSame;
    task->report.result["fields"] = fields;
    task->report.result["payload"] = payload->isEmpty() ? QJsonValue() : QJsonValue(*payload);
    for (const auto& value : fields) {
        const QJsonObject field = value.toObject();
        task->report.print(QStringLiteral("%1 %2 | %3")
                               .arg(shownText(field["field"].toString()).leftJustified(NameWidth),
                                    shownValue(field["a"]), shownValue(field["b"])));
    }
    const auto number = [&](const char* name) { return (*payload)[name].toVariant().toLongLong(); };
    if (!payload->isEmpty())
        task->report.print(QStringLiteral("%1 %2 bytes | %3 bytes; %4 differ, the first at offset "
                                          "%5 of the payload")
                               .arg("payload", -NameWidth)
                               .arg(number("bytesA"))
                               .arg(number("bytesB"))
                               .arg(number("differingBytes"))
                               .arg(number("firstOffset")));
}

} // namespace

CommandPointer diffCommand(CLI::App* app) { return std::make_unique<DiffCommand>(app); }
