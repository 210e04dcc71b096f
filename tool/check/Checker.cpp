#include "tool/check/Checker.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "fcf/FcfWriter.h"
#include "fcf/FormLimits.h"
#include "tool/base/Text.h"
#include "tool/build/Build.h"
#include "tool/check/Findings.h"
#include "tool/check/TextRules.h"

#include <QTextCodec>

namespace {

QString quotedList(const QStringList& names)
{
    return QLatin1Char('"') + names.join("\", \"") + QLatin1Char('"');
}

bool isBlank(const QString& text) { return text.trimmed().isEmpty(); }

template <class Value>
bool isBlank(const Value& /*value*/)
{
    return false;
}

constexpr int MibOfUtf8 = 106;

} // namespace

static_assert(Checker::LargestBinary == 2147483647 - FcfLayout::PageBytes,
              "a header is counted as one page");

Checker::Checker(Findings* findings, const QString& file, const QHash<QString, QString>& origins)
    : m_findings(findings), m_file(file), m_origins(origins)
{
}

QString Checker::fileOf(const QString& field) const
{
    return m_origins.value(field.section(QLatin1Char('['), 0, 0), m_file);
}

void Checker::checkBuild(const Build& build) const
{
    forEachBuildField([&](const auto& field) {
        const QString name = QLatin1String(field.name);
        const auto& value = build.*field.value;
        if (!field.isRequired || build.refused.contains(name) || (value && !isBlank(*value)))
            return;
        const bool isBlankThere = value && build.origins.contains(name);
        refuse(name, QStringLiteral("is %1: give %2")
                         .arg(QLatin1String(isBlankThere ? "blank" : "missing"),
                              QLatin1String(field.option)));
    });
    checkTarget(build.module.value_or(QString()), build.device.value_or(QString()));

    const qint32 slot = build.configNumber.value_or(FcfTarget::FirstSlot);
    if (slot < FcfTarget::FirstSlot || slot > FcfTarget::LastSlot)
        refuse("configNumber", QStringLiteral("%1 is no slot from %2 to %3")
                                   .arg(slot)
                                   .arg(FcfTarget::FirstSlot)
                                   .arg(FcfTarget::LastSlot));
    const Version version = build.version.value_or(Version());
    if (version.major < 0 || version.minor < 0)
        refuse("version", QStringLiteral("%1 has a negative number").arg(version.text()));

    int index = 0;
    for (const FcfFunction& function : build.functions.value_or(QVector<FcfFunction>())) {
        if (function.name.isEmpty())
            m_findings->warning(m_file, TextRules::fieldName("name", index), "is empty");
        ++index;
    }
}

void Checker::checkTarget(const QString& module, const QString& device) const
{
    const QStringList modules = FcfTarget::modules();
    const QStringList devices = FcfTarget::devicesOf(module);
    if (!isBlank(module) && !modules.contains(module))
        refuse("module",
               QStringLiteral("\"%1\" is none of %2").arg(shownText(module), quotedList(modules)));
    else if (!isBlank(module) && !isBlank(device) && !devices.contains(device))
        refuse("device", QStringLiteral("\"%1\" is no device of module %2, which has %3")
                             .arg(shownText(device), module, quotedList(devices)));
}

void Checker::checkBinarySize(qint64 bytes) const
{
    if (bytes == 0)
        refuse("binFileSize", "the binary is empty");
    else if (bytes > LargestBinary)
        refuse("binFileSize",
               QStringLiteral("the binary is too large: a size field holds no more than %1 bytes "
                              "and a header page")
                   .arg(LargestBinary));
}

void Checker::checkTexts(const FcfHeader& header, QTextCodec* codec) const
{
    const auto broken = TextRules::brokenRecords(header);
    const auto notEncodable = TextRules::notEncodable(header, codec);
    for (const TextRules::Breach& breach : broken + notEncodable)
        refuse(breach.field, breach.reason);
    if (!broken.isEmpty() || !notEncodable.isEmpty())
        return;

    if (codec->mibEnum() != MibOfUtf8)
        m_findings->warning(m_file, "text",
                            QStringLiteral("this locale writes texts in %1, but the target "
                                           "reads UTF-8")
                                .arg(QString::fromLatin1(codec->name())));
    const int excess = FcfWriter(codec).compose(header).size() - FcfLayout::PageBytes;
    if (excess > 0)
        refuse("text", QStringLiteral("the header text is too long by %1 bytes; the largest "
                                      "fields are %2")
                           .arg(QString::number(excess), TextRules::largestTexts(header, codec)));
    // A reader has its limits too.
    if (excess > 0)
        return;
    if (header.description.size() > FormLimits::DescriptionLength)
        m_findings->warning(
            m_file, "description",
            QStringLiteral("has %1 characters: the generator window cuts it behind %2")
                .arg(header.description.size())
                .arg(FormLimits::DescriptionLength));
    for (const TextRules::Breach& breach :
         TextRules::unprintable(header) + TextRules::lostInForm(header, codec))
        m_findings->warning(fileOf(breach.field), breach.field, breach.reason);
}

void Checker::refuse(const QString& field, const QString& reason) const
{
    m_findings->error(ExitCode::Refused, fileOf(field), field, reason);
}
