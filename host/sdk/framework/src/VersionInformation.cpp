#include <QtilitiesCore/VersionInformation.h>

namespace Qtilities {
namespace Core {

VersionNumber::VersionNumber(int major, int minor, int revision)
    : m_major(major), m_minor(minor), m_revision(revision)
{
}

int VersionNumber::versionMajor() const { return m_major; }

int VersionNumber::versionMinor() const { return m_minor; }

int VersionNumber::versionRevision() const { return m_revision; }

bool VersionNumber::operator==(const VersionNumber& other) const
{
    return m_major == other.m_major && m_minor == other.m_minor && m_revision == other.m_revision;
}

bool VersionNumber::operator!=(const VersionNumber& other) const { return !(*this == other); }

bool VersionNumber::operator<(const VersionNumber& other) const
{
    if (m_major != other.m_major)
        return m_major < other.m_major;
    if (m_minor != other.m_minor)
        return m_minor < other.m_minor;
    return m_revision < other.m_revision;
}

bool VersionNumber::operator>(const VersionNumber& other) const { return other < *this; }

bool VersionNumber::operator<=(const VersionNumber& other) const { return !(other < *this); }

bool VersionNumber::operator>=(const VersionNumber& other) const { return !(*this < other); }

VersionInformation::VersionInformation(int major, int minor, int revision)
    : m_version(major, minor, revision)
{
}

VersionNumber VersionInformation::version() const { return m_version; }

void VersionInformation::addSupportedVersion(const VersionNumber& version)
{
    if (!m_supportedVersions.contains(version))
        m_supportedVersions.append(version);
}

VersionInformation& VersionInformation::operator<<(const VersionNumber& version)
{
    addSupportedVersion(version);
    return *this;
}

QList<VersionNumber> VersionInformation::supportedVersions() const { return m_supportedVersions; }

bool VersionInformation::isSupportedVersion(const VersionNumber& version) const
{
    return m_supportedVersions.contains(version);
}

} // namespace Core
} // namespace Qtilities
