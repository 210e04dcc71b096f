#include "ShowCommand.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/HeaderJson.h"
#include "tool/HeaderPage.h"
#include "tool/InputFile.h"
#include "tool/Session.h"

namespace {

constexpr int NameWidth = 14;
constexpr int ShowAll = 1 << 30;

/// Lines of text, one field each, the values below each other.
class Listing {
public:
    explicit Listing(Session* session) : m_session(session) {}

    void line(const QString& indent, const char* name, const QString& value)
    {
        const QStringList parts = value.split(QLatin1Char('\n'));
        QString label = QLatin1String(name);
        for (const QString& part : parts) {
            const QString text = indent + label.leftJustified(NameWidth) + QLatin1Char(' ') +
                                 shownText(part, ShowAll);
            m_session->print(text.trimmed().isEmpty() ? QString() : text);
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
    Session* m_session;
};

QString meaningOf(const FcfLayout::NumberField& field, const FcfHeader& header)
{
    const FcfTarget::Target* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
    if (field.value == &FcfHeader::moduleCode)
        return QLatin1String(target ? target->module : "unknown");
    if (field.value == &FcfHeader::deviceCode)
        return QLatin1String(target ? target->device : "unknown");
    return QLatin1String(field.unit);
}

void list(const QString& label, const HeaderPage& page, Session* session)
{
    const FcfHeader& header = page.reading.header;
    const QString indent = QStringLiteral("  ");
    Listing listing(session);
    session->print(
        QStringLiteral("%1: header page of %2 bytes").arg(shownText(label)).arg(page.bytes));
    for (const auto& field : FcfLayout::Numbers)
        listing.line(
            indent, field.name,
            QStringLiteral("%1 %2").arg(header.*field.value).arg(meaningOf(field, header)));
    listing.texts(FcfLayout::HeaderTexts, indent, header);
    listing.line(indent, "functions", QString::number(header.functions.size()));
    for (const FcfFunction& function : header.functions) {
        session->print(indent + QLatin1Char('-'));
        listing.texts(FcfLayout::FunctionTexts, indent + indent, function);
    }
}

QJsonObject asJson(const InputFile& file, const HeaderPage& page)
{
    const FcfHeader& header = page.reading.header;
    QJsonObject object;
    object["file"] = file.label();
    object["headerBytes"] = page.bytes;
    object["header"] = HeaderJson::of(header);
    if (const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode))
        object["target"] = QJsonObject{{"module", target->module}, {"device", target->device}};
    return object;
}

} // namespace

void ShowCommand::declare(CLI::App* app)
{
    addOperands(app, "FILE", &m_files, "images or companions; - is standard input");
}

void ShowCommand::run(Session* session)
{
    QJsonArray shown;
    for (const std::string& argument : m_files) {
        const std::optional<QString> path = session->path(argument, QStringLiteral("FILE"));
        InputFile file;
        HeaderPage page;
        if (!path ||
            !file.open(*path, FcfExactReader::MaximumBytes, QStringLiteral("FILE"), session) ||
            !page.read(&file, ExitCode::NotValid, session))
            continue;
        list(file.label(), page, session);
        shown.append(asJson(file, page));
    }
    session->result["files"] = shown;
}
