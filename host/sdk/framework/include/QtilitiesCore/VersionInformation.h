#ifndef QTILITIESCORE_VERSIONINFORMATION_H
#define QTILITIESCORE_VERSIONINFORMATION_H

#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QList>

namespace Qtilities {
namespace Core {

/// Three numbers, compared from the major one down. A plain value.
class QTILITIES_SHARED_EXPORT VersionNumber {
public:
    VersionNumber(int major, int minor = 0, int revision = 0);

    int versionMajor() const;
    int versionMinor() const;
    int versionRevision() const;

    bool operator==(const VersionNumber& other) const;
    bool operator!=(const VersionNumber& other) const;
    bool operator<(const VersionNumber& other) const;
    bool operator>(const VersionNumber& other) const;
    bool operator<=(const VersionNumber& other) const;
    bool operator>=(const VersionNumber& other) const;

private:
    int m_major;
    int m_minor;
    int m_revision;
};

/// A component's own version and the host versions that it was made for. A plain value.
class QTILITIES_SHARED_EXPORT VersionInformation {
public:
    VersionInformation(int major, int minor = 0, int revision = 0);

    VersionNumber version() const;

    /// Adds a host version; one that is listed already is not listed again.
    void addSupportedVersion(const VersionNumber& version);
    VersionInformation& operator<<(const VersionNumber& version);

    /// In the order in which they were added.
    QList<VersionNumber> supportedVersions() const;
    bool isSupportedVersion(const VersionNumber& version) const;

private:
    VersionNumber m_version;
    QList<VersionNumber> m_supportedVersions;
};

} // namespace Core
} // namespace Qtilities

#endif
