#include "fcf/FcfLayout.h"
#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/check/Validator.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Command.h"

#include <CLI/CLI.hpp>

namespace {

constexpr int NameWidth = 24;

/// How two images or companions differ.
class DiffCommand : public Command {
public:
    const char* name() const override { return "diff"; }
    const char* summary() const override { return "Say how two images or companions differ"; }
    void declare(CLI::App* app) override
    {
        Arguments::addOperand(app, "A", &m_files[0], "an image or a companion");
        Arguments::addOperand(app, "B", &m_files[1], "what to compare it with");
    }
    void run(Task* task) override;

private:
    std::optional<FcfFile> open(const std::string& argument, Task* task) const;
    void compareObjects(const QJsonObject& a, const QJsonObject& b, const QString& place);
    void compareFunctions(const QJsonArray& a, const QJsonArray& b);
    void add(const QString& field, const QJsonValue& a, const QJsonValue& b);
    Status comparePayloads(const FcfFile& a, const FcfFile& b, Task* task);

    std::string m_files[2];
    QJsonArray m_fields;
    QJsonObject m_payload;
};

QString shownValue(const QJsonValue& value)
{
    if (value.isUndefined() || value.isNull())
        return QStringLiteral("-");
    return value.isString() ? QStringLiteral("\"%1\"").arg(shownText(value.toString()))
                            : QString::number(value.toInt());
}

/// The functions by their names; a name that several have gets a number.
QMap<QString, QJsonObject> byName(const QJsonArray& functions)
{
    QMap<QString, QJsonObject> all;
    for (const auto& function : functions) {
        const QString name = function.toObject()["name"].toString();
        QString key = name;
        for (int number = 2; all.contains(key); ++number)
            key = QStringLiteral("%1 #%2").arg(name).arg(number);
        all[key] = function.toObject();
    }
    return all;
}

std::optional<FcfFile> DiffCommand::open(const std::string& argument, Task* task) const
{
    const std::optional<QString> path = task->path(argument, "FILE");
    auto file = path ? task->open(*path, Validator::LargestFile, "FILE") : std::nullopt;
    auto page =
        file ? task->findings.valueOf(HeaderPage::read(*file, task->codec, ExitCode::Refused))
             : std::nullopt;
    if (!page || !task->findings.accept(page->measure(*file)))
        return std::nullopt;
    return FcfFile{std::move(*file), std::move(*page)};
}

void DiffCommand::run(Task* task)
{
    const auto a = open(m_files[0], task);
    const auto b = open(m_files[1], task);
    if (!a || !b)
        return;
    QJsonObject headers[] = {BuildJson::header(a->page.reading.header),
                             BuildJson::header(b->page.reading.header)};
    const QJsonArray functions[] = {headers[0].take("functions").toArray(),
                                    headers[1].take("functions").toArray()};
    compareObjects(headers[0], headers[1], QString());
    compareFunctions(functions[0], functions[1]);
    if (!task->findings.accept(comparePayloads(*a, *b, task)))
        return;
    const bool isSame = m_fields.isEmpty() && m_payload.isEmpty();
    task->report.verdict = isSame ? ExitCode::Done : ExitCode::NotValid;
    task->report.result["same"] = isSame;
    task->report.result["fields"] = m_fields;
    task->report.result["payload"] = m_payload.isEmpty() ? QJsonValue() : QJsonValue(m_payload);
    for (const auto& field : m_fields) {
        const QJsonObject object = field.toObject();
        task->report.print(shownText(object["field"].toString()).leftJustified(NameWidth) +
                           QLatin1Char(' ') + shownValue(object["a"]) + QStringLiteral(" | ") +
                           shownValue(object["b"]));
    }
    if (!m_payload.isEmpty())
        task->report.print(
            QStringLiteral("payload").leftJustified(NameWidth) +
            QStringLiteral(" %1 bytes | %2 bytes; %3 differ, the first at offset %4 of the payload")
                .arg(m_payload["bytesA"].toVariant().toLongLong())
                .arg(m_payload["bytesB"].toVariant().toLongLong())
                .arg(m_payload["differingBytes"].toVariant().toLongLong())
                .arg(m_payload["firstOffset"].toVariant().toLongLong()));
}

void DiffCommand::compareObjects(const QJsonObject& a, const QJsonObject& b, const QString& place)
{
    for (const QString& key : a.keys()) {
        if (a[key] != b[key])
            add(place + key, a[key], b[key]);
    }
}

void DiffCommand::compareFunctions(const QJsonArray& a, const QJsonArray& b)
{
    const QMap<QString, QJsonObject> own = byName(a);
    const QMap<QString, QJsonObject> other = byName(b);
    for (auto function = own.cbegin(); function != own.cend(); ++function) {
        const QString place = QStringLiteral("functions[%1]").arg(function.key());
        if (other.contains(function.key()))
            compareObjects(function.value(), other[function.key()], place + QLatin1Char('.'));
        else
            add(place, function.value()["description"], QJsonValue());
    }
    for (auto function = other.cbegin(); function != other.cend(); ++function) {
        if (!own.contains(function.key()))
            add(QStringLiteral("functions[%1]").arg(function.key()), QJsonValue(),
                function.value()["description"]);
    }
}

void DiffCommand::add(const QString& field, const QJsonValue& a, const QJsonValue& b)
{
    m_fields.append(QJsonObject{{"field", field}, {"a", a}, {"b", b}});
}

/// What one has more than the other differs. A companion has no payload to compare.
Status DiffCommand::comparePayloads(const FcfFile& a, const FcfFile& b, Task* task)
{
    const qint64 bytes = qMin(a.page.payloadBytes, b.page.payloadBytes);
    if (bytes == 0)
        return {};
    qint64 done = 0;
    qint64 first = -1;
    qint64 count = qMax(a.page.payloadBytes, b.page.payloadBytes) - bytes;
    Status other;
    const CopyObserver progress = task->progress(QStringLiteral("diff"), bytes);
    Status status =
        readAll({&a.file, a.page.bytes, bytes, nullptr}, [&](const char* data, qint64 size) {
            const auto theirs = b.file.bytesAt(b.page.bytes + done, size);
            if (!theirs || theirs->size() < size) {
                other = theirs ? Status(b.file.notRead(QStringLiteral("it ends early")))
                               : Status(tl::unexpected<Finding>(theirs.error()));
                return;
            }
            for (int index = 0; index < theirs->size(); ++index) {
                if (data[index] == theirs->at(index))
                    continue;
                first = first < 0 ? done + index : first;
                ++count;
            }
            done += size;
            progress(data, size);
        });
    if (count > 0)
        m_payload = QJsonObject{{"firstOffset", first < 0 ? bytes : first},
                                {"differingBytes", count},
                                {"bytesA", a.page.payloadBytes},
                                {"bytesB", b.page.payloadBytes}};
    return status ? other : status;
}

} // namespace

std::unique_ptr<Command> diffCommand() { return std::make_unique<DiffCommand>(); }
