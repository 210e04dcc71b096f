#include "tool/recipe/Recipe.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

/// Makes the texts of \p record those that a file will have.
template <class Record, int Count>
void asWritten(const FcfLayout::TextField<Record> (&fields)[Count], Record* record)
{
    for (const auto& field : fields) {
        if (field.whenWritten == FcfLayout::Trimmed)
            record->*field.value = (record->*field.value).trimmed();
    }
}

} // namespace

QString Version::text() const { return QStringLiteral("%1.%2").arg(major).arg(minor); }

std::optional<Version> Version::of(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    const std::optional<qint32> major = wholeNumber(parts.value(0));
    const std::optional<qint32> minor = wholeNumber(parts.value(1));
    if (parts.size() != 2 || !major || !minor)
        return std::nullopt;

    return Version{*major, *minor};
}

std::optional<qint32> wholeNumber(const QString& text)
{
    static const QRegularExpression digits("^-?[0-9]{1,10}\\z");
    bool fits = false;
    const int number = text.toInt(&fits);
    if (!fits || !digits.match(text).hasMatch())
        return std::nullopt;

    return number;
}

void Recipe::complete(const Recipe& other, const QString& origin)
{
    forEachRecipeField([&](const auto& field) {
        if (this->*field.value || !(other.*field.value))
            return;

        this->*field.value = other.*field.value;
        origins[QLatin1String(field.name)] = origin;
    });
}

Recipe Recipe::of(const FcfHeader& header)
{
    Recipe recipe;
    forEachRecipeField([&](const auto& field) {
        if (field.header)
            recipe.*field.value = header.*field.header;
    });

    if (const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode)) {
        recipe.module = QLatin1String(target->module);
        recipe.device = QLatin1String(target->device);
    }

    recipe.version = Version{header.versionMajor, header.versionMinor};
    return recipe;
}

void Recipe::fill(FcfHeader* header) const
{
    forEachRecipeField([&](const auto& field) {
        if (field.header && this->*field.value)
            header->*field.header = *(this->*field.value);
    });

    const QString moduleName = module.value_or(QString());
    header->moduleCode = FcfTarget::moduleCode(moduleName);
    header->deviceCode = FcfTarget::deviceCode(moduleName, device.value_or(QString()), 0);
    header->versionMajor = version.value_or(Version()).major;
    header->versionMinor = version.value_or(Version()).minor;

    asWritten(FcfLayout::HeaderTexts, header);
    for (FcfFunction& function : header->functions)
        asWritten(FcfLayout::FunctionTexts, &function);
}
