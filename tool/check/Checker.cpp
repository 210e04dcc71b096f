#include "tool/check/Checker.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "fcf/FcfWriter.h"
#include "tool/base/Text.h"
#include "tool/build/Build.h"
#include "tool/check/Findings.h"
#include "tool/check/TextRules.h"

#include <QTextCodec>

namespace {

QString quotedList(const QStringList& names)
{
    return QLatin1Char('"') + names.join(QStringLiteral("\", \"")) + QLatin1Char('"');
}

QString missing(const char* option) { return QStringLiteral("is missing: give %1").arg(option); }

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
    const auto checkText = [&](const QString& field, const std::optional<QString>& text,
                               const char* option) {
        if (!text.value_or(QString()).trimmed().isEmpty() || build.refused.contains(field))
            return;
        refuse(field, build.origins.contains(field)
                          ? QStringLiteral("is blank: give %1").arg(QLatin1String(option))
                          : missing(option));
    };
    checkText(QStringLiteral("author"), build.author, "--author");
    checkText(QStringLiteral("ciNumber"), build.ciNumber, "--ci");
    checkTarget(build);
    checkNumbers(build);

    int index = 0;
    for (const FcfFunction& function : build.functions.value_or(QVector<FcfFunction>())) {
        if (function.name.isEmpty())
            m_findings->warning(m_file, TextRules::fieldName("name", index),
                                QStringLiteral("is empty"));
        ++index;
    }
}

void Checker::checkTarget(const Build& build) const
{
    const QString module = QStringLiteral("module");
    const QString device = QStringLiteral("device");
    if (!build.module) {
        if (!build.refused.contains(module))
            refuse(module, missing("--module"));
        return;
    }
    if (!FcfTarget::modules().contains(*build.module)) {
        refuse(module, QStringLiteral("\"%1\" is none of %2")
                           .arg(shownText(*build.module), quotedList(FcfTarget::modules())));
        return;
    }
    const QStringList devices = FcfTarget::devicesOf(*build.module);
    if (!build.device && !build.refused.contains(device))
        refuse(device, missing("--device"));
    else if (build.device && !devices.contains(*build.device))
        refuse(device, QStringLiteral("\"%1\" is no device of module %2, which has %3")
                           .arg(shownText(*build.device), *build.module, quotedList(devices)));
}

void Checker::checkNumbers(const Build& build) const
{
    const QString slot = QStringLiteral("configNumber");
    const QString version = QStringLiteral("version");
    const qint32 number = build.configNumber.value_or(FcfTarget::FirstSlot);
    if (!build.configNumber && !build.refused.contains(slot))
        refuse(slot, missing("--config"));
    if (number < FcfTarget::FirstSlot || number > FcfTarget::LastSlot)
        refuse(slot, QStringLiteral("%1 is no slot from %2 to %3")
                         .arg(number)
                         .arg(FcfTarget::FirstSlot)
                         .arg(FcfTarget::LastSlot));
    if (!build.version && !build.refused.contains(version))
        refuse(version, missing("--version MAJOR.MINOR"));
    if (build.version && (build.version->major < 0 || build.version->minor < 0))
        refuse(version, QStringLiteral("%1 has a negative number").arg(build.version->text()));
}

void Checker::checkBinarySize(qint64 bytes) const
{
    if (bytes == 0)
        refuse(QStringLiteral("binFileSize"), QStringLiteral("the binary is empty"));
    else if (bytes > LargestBinary)
        refuse(QStringLiteral("binFileSize"),
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
        m_findings->warning(m_file, QStringLiteral("text"),
                            QStringLiteral("this locale writes texts in %1, but the target "
                                           "reads UTF-8")
                                .arg(QString::fromLatin1(codec->name())));
    const int excess = FcfWriter(codec).compose(header).size() - FcfLayout::PageBytes;
    if (excess > 0)
        refuse(QStringLiteral("text"),
               QStringLiteral("the header text is too long by %1 bytes; the largest "
                              "fields are %2")
                   .arg(QString::number(excess), TextRules::largestTexts(header, codec)));
    // A reader has its limits too.
    if (excess > 0)
        return;
    if (header.description.size() > FcfLayout::FormDescriptionLength)
        m_findings->warning(
            m_file, QStringLiteral("description"),
            QStringLiteral("has %1 characters: the generator window cuts it behind %2")
                .arg(header.description.size())
                .arg(FcfLayout::FormDescriptionLength));
    for (const TextRules::Breach& breach :
         TextRules::unprintable(header) + TextRules::lostInForm(header, codec))
        m_findings->warning(fileOf(breach.field), breach.field, breach.reason);
}

void Checker::refuse(const QString& field, const QString& reason) const
{
    m_findings->error(ExitCode::Refused, fileOf(field), field, reason);
}
