#include "Build.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"

namespace {

/// Makes the texts of \p record those that a file will hold.
template <class Record, int Count>
void asWritten(const FcfLayout::TextField<Record> (&fields)[Count], Record* record)
{
    for (const auto& field : fields) {
        if (field.whenWritten == FcfLayout::Trimmed)
            record->*field.value = (record->*field.value).trimmed();
    }
}

/// Returns whether something was taken.
template <class Value>
bool completeWith(std::optional<Value>* own, const std::optional<Value>& other)
{
    const bool takes = !*own && other;
    if (takes)
        *own = other;
    return takes;
}

} // namespace

void Build::complete(const Build& other, const QString& origin)
{
    const struct {
        const char* field;
        bool isTaken;
    } fields[] = {{"author", completeWith(&author, other.author)},
                  {"ciNumber", completeWith(&ciNumber, other.ciNumber)},
                  {"module", completeWith(&module, other.module)},
                  {"device", completeWith(&device, other.device)},
                  {"configNumber", completeWith(&configNumber, other.configNumber)},
                  {"version", completeWith(&version, other.version)},
                  {"description", completeWith(&description, other.description)},
                  {"functions", completeWith(&functions, other.functions)}};
    for (const auto& field : fields) {
        if (field.isTaken)
            origins[QLatin1String(field.field)] = origin;
    }
}

Build Build::of(const FcfHeader& header)
{
    Build build;
    build.author = header.author;
    build.ciNumber = header.ciNumber;
    if (const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode)) {
        build.module = QLatin1String(target->module);
        build.device = QLatin1String(target->device);
    }
    build.configNumber = header.configNumber;
    build.version = Version{header.versionMajor, header.versionMinor};
    build.description = header.description;
    build.functions = header.functions;
    return build;
}

void Build::describe(FcfHeader* header) const
{
    header->author = author.value_or(QString());
    header->ciNumber = ciNumber.value_or(QString());
    header->moduleCode = FcfTarget::moduleCode(module.value_or(QString()));
    header->deviceCode =
        FcfTarget::deviceCode(module.value_or(QString()), device.value_or(QString()), 0);
    header->configNumber = configNumber.value_or(0);
    header->versionMajor = version.value_or(Version()).major;
    header->versionMinor = version.value_or(Version()).minor;
    header->description = description.value_or(QString());
    header->functions = functions.value_or(QVector<FcfFunction>());
    asWritten(FcfLayout::HeaderTexts, header);
    for (FcfFunction& function : header->functions)
        asWritten(FcfLayout::FunctionTexts, &function);
}
