#include "Build.h"

#include "fcf/FcfTarget.h"

namespace {

template <class Value>
void completeWith(std::optional<Value>* own, const std::optional<Value>& other)
{
    if (!*own)
        *own = other;
}

} // namespace

void Build::complete(const Build& other)
{
    completeWith(&author, other.author);
    completeWith(&ciNumber, other.ciNumber);
    completeWith(&module, other.module);
    completeWith(&device, other.device);
    completeWith(&configNumber, other.configNumber);
    completeWith(&version, other.version);
    completeWith(&description, other.description);
    completeWith(&functions, other.functions);
}

Build Build::of(const FcfHeader& header)
{
    Build build;
    build.author = header.author;
    build.ciNumber = header.ciNumber;
    FcfTarget::Target target;
    if (FcfTarget::find(header.moduleCode, header.deviceCode, &target)) {
        build.module = target.module;
        build.device = target.device;
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
}
