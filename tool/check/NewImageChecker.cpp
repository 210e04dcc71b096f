#include "tool/check/NewImageChecker.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "fcf/FcfWriter.h"
#include "fcf/FormLimits.h"
#include "tool/base/Text.h"
#include "tool/check/Findings.h"
#include "tool/check/TextRules.h"
#include "tool/recipe/Recipe.h"

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

static_assert(NewImageChecker::LargestBinary == 2147483647 - FcfLayout::PageBytes,
              "a header is counted as one page");

NewImageChecker::NewImageChecker(Findings* findings, const QString& file,
                                 const QHash<QString, QString>& origins)
    : m_findings(findings), m_file(file), m_origins(origins)
{
}

void NewImageChecker::checkRecipe(const Recipe& recipe) const
{
    checkRequired(recipe);
    checkTarget(recipe.module.value_or(QString()), recipe.device.value_or(QString()));
    checkSlot(recipe.configNumber.value_or(FcfTarget::FirstSlot));

    const Version version = recipe.version.value_or(Version());
    if (version.major < 0 || version.minor < 0)
        refuse("version", QStringLiteral("%1 has a negative number").arg(version.text()));

    checkFunctionNames(recipe);
}

void NewImageChecker::checkRequired(const Recipe& recipe) const
{
    forEachRecipeField([&](const auto& field) {
        const QString name = QLatin1String(field.name);
        if (!field.isRequired || recipe.refused.contains(name))
            return;

        const auto& value = recipe.*field.value;
        if (value && !isBlank(*value))
            return;

        refuse(name,
               QStringLiteral("is %1: give %2")
                   .arg(QLatin1String(value ? "blank" : "missing"), QLatin1String(field.option)));
    });
}

void NewImageChecker::checkTarget(const QString& module, const QString& device) const
{
    if (isBlank(module))
        return;

    const QStringList modules = FcfTarget::modules();
    if (!modules.contains(module)) {
        refuse("module",
               QStringLiteral("\"%1\" is none of %2").arg(shownText(module), quotedList(modules)));
        return;
    }

    const QStringList devices = FcfTarget::devicesOf(module);
    if (!isBlank(device) && !devices.contains(device))
        refuse("device", QStringLiteral("\"%1\" is no device of module %2, which has %3")
                             .arg(shownText(device), module, quotedList(devices)));
}

void NewImageChecker::checkSlot(qint32 slot) const
{
    if (slot >= FcfTarget::FirstSlot && slot <= FcfTarget::LastSlot)
        return;

    refuse("configNumber", QStringLiteral("%1 is no slot from %2 to %3")
                               .arg(slot)
                               .arg(FcfTarget::FirstSlot)
                               .arg(FcfTarget::LastSlot));
}

void NewImageChecker::checkFunctionNames(const Recipe& recipe) const
{
    const auto functions = recipe.functions.value_or(QVector<FcfFunction>());
    for (int index = 0; index < functions.size(); ++index) {
        if (functions.at(index).name.isEmpty())
            m_findings->warning(m_file, TextRules::fieldName("name", index), "is empty");
    }
}

void NewImageChecker::checkBinarySize(qint64 bytes) const
{
    if (bytes == 0)
        refuse("binFileSize", "the binary is empty");
    else if (bytes > LargestBinary)
        refuse("binFileSize",
               QStringLiteral("the binary is too large: a size field holds no more than %1 bytes "
                              "and a header page")
                   .arg(LargestBinary));
}

void NewImageChecker::checkTexts(const FcfHeader& header, QTextCodec* codec) const
{
    if (checkBytes(header, codec) && checkLength(header, codec))
        checkReaders(header, codec);
}

/// Checks that each text can be written as it is. Returns whether all can.
bool NewImageChecker::checkBytes(const FcfHeader& header, QTextCodec* codec) const
{
    const auto breaches = TextRules::brokenRecords(header) + TextRules::notEncodable(header, codec);
    for (const TextRules::Breach& breach : breaches)
        refuse(breach.field, breach.reason);
    if (!breaches.isEmpty())
        return false;

    if (codec->mibEnum() != MibOfUtf8)
        m_findings->warning(m_file, "text",
                            QStringLiteral("this locale writes texts in %1, but the target "
                                           "reads UTF-8")
                                .arg(QString::fromLatin1(codec->name())));
    return true;
}

/// Checks that all texts fit in the page together. Returns whether they do.
bool NewImageChecker::checkLength(const FcfHeader& header, QTextCodec* codec) const
{
    const auto bytes = FcfWriter(codec).compose(header).size();
    if (bytes <= FcfLayout::PageBytes)
        return true;

    refuse("text",
           QStringLiteral("the header is too long by %1 bytes: of its %2, labels included, %3")
               .arg(QString::number(bytes - FcfLayout::PageBytes), QString::number(bytes),
                    TextRules::largestShares(header, codec)));
    return false;
}

/// Warns of texts that people or the generator window do not see as they are.
void NewImageChecker::checkReaders(const FcfHeader& header, QTextCodec* codec) const
{
    if (header.description.size() > FormLimits::DescriptionLength)
        m_findings->warning(
            m_file, "description",
            QStringLiteral("has %1 characters: the generator window cuts it behind %2")
                .arg(header.description.size())
                .arg(FormLimits::DescriptionLength));

    const auto breaches = TextRules::unprintable(header) + TextRules::lostInForm(header, codec);
    for (const TextRules::Breach& breach : breaches)
        m_findings->warning(fileOf(breach.field), breach.field, breach.reason);
}

/// The file that \p field is from; the functions of a recipe are one field.
QString NewImageChecker::fileOf(const QString& field) const
{
    return m_origins.value(field.section(QLatin1Char('['), 0, 0), m_file);
}

void NewImageChecker::refuse(const QString& field, const QString& reason) const
{
    m_findings->refuse(fileOf(field), field, reason);
}
