#ifndef FRAMEWORK_VERSIONINFORMATION_H
#define FRAMEWORK_VERSIONINFORMATION_H

#include "QtilitiesCore_global.h"

#include <QList>
#include <QString>

namespace Qtilities {
namespace Core {

class QTILITIES_CORE_EXPORT VersionNumber {
public:
    VersionNumber(int major, int minor = 0, int revision = 0);
    virtual ~VersionNumber() {}
    int versionMajor() const { return m_major; }
    int versionMinor() const { return m_minor; }
    int versionRevision() const { return m_revision; }
    bool operator==(const VersionNumber& other) const;
    bool operator!=(const VersionNumber& other) const { return !(*this == other); }

private:
    QString m_separator;
    int m_major, m_minor, m_revision;
};

class QTILITIES_CORE_EXPORT VersionInformation {
public:
    VersionInformation(int major, int minor = 0, int revision = 0);
    VersionNumber version() const { return m_version; }
    void addSupportedVersion(const VersionNumber& version);
    void operator<<(const VersionNumber& version) { addSupportedVersion(version); }
    QList<VersionNumber> supportedVersions() const { return m_supported; }
    bool isSupportedVersion(const VersionNumber& version) const;

private:
    bool m_fixed;
    VersionNumber m_version;
    QList<VersionNumber> m_supported;
};

} // namespace Core
} // namespace Qtilities

#endif
