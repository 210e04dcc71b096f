#include <VersionInformation.h>

namespace Qtilities {
namespace Core {

VersionNumber::VersionNumber(int major, int minor, int revision)
    : d_major(major), d_minor(minor), d_revision(revision)
{
}

int VersionNumber::versionMajor() const { return d_major; }

int VersionNumber::versionMinor() const { return d_minor; }

int VersionNumber::versionRevision() const { return d_revision; }

bool VersionNumber::operator==(const VersionNumber& other) const
{
    return d_major == other.d_major && d_minor == other.d_minor && d_revision == other.d_revision;
}

bool VersionNumber::operator!=(const VersionNumber& other) const { return !(*this == other); }

bool VersionNumber::operator<(const VersionNumber& other) const
{
    if (d_major != other.d_major)
        return d_major < other.d_major;
    if (d_minor != other.d_minor)
        return d_minor < other.d_minor;
    return d_revision < other.d_revision;
}

bool VersionNumber::operator>(const VersionNumber& other) const { return other < *this; }

bool VersionNumber::operator<=(const VersionNumber& other) const { return !(other < *this); }

bool VersionNumber::operator>=(const VersionNumber& other) const { return !(*this < other); }

VersionInformation::VersionInformation(int major, int minor, int revision)
    : d_version(major, minor, revision)
{
}

VersionNumber VersionInformation::version() const { return d_version; }

void VersionInformation::addSupportedVersion(const VersionNumber& version)
{
    if (!d_supported_versions.contains(version))
        d_supported_versions.append(version);
}

VersionInformation& VersionInformation::operator<<(const VersionNumber& version)
{
    addSupportedVersion(version);
    return *this;
}

QList<VersionNumber> VersionInformation::supportedVersions() const { return d_supported_versions; }

bool VersionInformation::isSupportedVersion(const VersionNumber& version) const
{
    return d_supported_versions.contains(version);
}

} // namespace Core
} // namespace Qtilities
