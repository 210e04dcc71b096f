#include <QtilitiesCore/IAvailablePropertyProvider.h>
#include <QtilitiesCore/ObjectManager.h>
#include <QtilitiesCore/QtilitiesCoreApplication.h>
#include <QtilitiesCore/VersionInformation.h>
#include <QtilitiesLogging/Logger.h>

namespace Qtilities {
namespace Core {

QtilitiesCategory::QtilitiesCategory(const QString& level) : m_access(1)
{
    if (!level.isEmpty())
        m_levels.append(CategoryLevel{level, m_access});
}

QtilitiesCategory::QtilitiesCategory(const QString& levels, const QString& separator) : m_access(1)
{
    for (const QString& level : levels.split(separator))
        m_levels.append(CategoryLevel{level, m_access});
}

QString QtilitiesCategory::toString(const QString& join) const { return toStringList().join(join); }

QStringList QtilitiesCategory::toStringList(int level) const
{
    QStringList names;
    for (const CategoryLevel& each : m_levels)
        names.append(each.name);
    return level < 0 ? names : names.mid(0, level + 1);
}

bool QtilitiesCategory::operator==(const QtilitiesCategory& other) const
{
    return toStringList() == other.toStringList();
}

VersionNumber::VersionNumber(int major, int minor, int revision)
    : m_separator(QLatin1String(".")), m_major(major), m_minor(minor), m_revision(revision)
{
}

bool VersionNumber::operator==(const VersionNumber& other) const
{
    return m_major == other.m_major && m_minor == other.m_minor && m_revision == other.m_revision;
}

VersionInformation::VersionInformation(int major, int minor, int revision)
    : m_fixed(false), m_version(major, minor, revision)
{
}

void VersionInformation::addSupportedVersion(const VersionNumber& version)
{
    m_supported.append(version);
}

bool VersionInformation::isSupportedVersion(const VersionNumber& version) const
{
    return m_supported.contains(version);
}

SharedProperty::SharedProperty(const char* name, QVariant value)
    : m_locked(false), m_value(value), m_name(QString::fromLatin1(name))
{
}

bool SharedProperty::isValid() { return !m_name.isEmpty() && m_value.isValid(); }

bool SharedProperty::setValue(QVariant value)
{
    m_value = value;
    return true;
}

SharedProperty ObjectManager::getSharedProperty(const QObject* object, const char* name)
{
    return object->property(name).value<SharedProperty>();
}

bool ObjectManager::setSharedProperty(QObject* object, SharedProperty property)
{
    object->setProperty(property.propertyName().toLatin1().constData(),
                        QVariant::fromValue(property));
    return true;
}

bool ObjectManager::propertyExists(const QObject* object, const char* name)
{
    return object->dynamicPropertyNames().contains(name);
}

void ObjectManager::registerObject(QObject* object, QtilitiesCategory category)
{
    Q_UNUSED(category)
    if (object->objectName().isEmpty())
        object->setObjectName(QString::fromLatin1(object->metaObject()->className()));
    m_pool.append(object);
    emit newObjectAdded(object);
}

void ObjectManager::removeObject(QObject* object)
{
    m_pool.removeAll(object);
    emit objectRemoved(object);
}

QList<QObject*> ObjectManager::registeredInterfaces(const QString& iface) const
{
    QList<QObject*> found;
    for (QObject* object : m_pool) {
        if (object->qt_metacast(iface.toLatin1().constData()))
            found.append(object);
    }
    return found;
}

namespace {

class ContextManager : public Interfaces::IContextManager {
public:
    int contextID(const QString& context) override
    {
        return context == QLatin1String("qti.def.Context.Standard") ? 17 : -1;
    }
    int contextCount() const override { return 1; }
};

} // namespace

Interfaces::IObjectManager* QtilitiesCoreApplication::objectManager()
{
    static ObjectManager manager;
    return &manager;
}

Interfaces::IContextManager* QtilitiesCoreApplication::contextManager()
{
    static ContextManager manager;
    return &manager;
}

PropertySpecification::PropertySpecification()
    : d_data_type(QVariant::Invalid), d_removable(true), d_read_only(false),
      d_add_during_construction(false), d_internal(false), d_is_exportable(true)
{
}

QString PropertySpecification::propertyName() const
{
    return d_property_name.isEmpty() ? d_displayed_name : d_property_name;
}

bool PropertySpecification::isValid() const { return !propertyName().isEmpty(); }

bool PropertySpecification::operator==(const PropertySpecification& other) const
{
    return propertyName() == other.propertyName() && d_class_name == other.d_class_name;
}

} // namespace Core

namespace Logging {

Logger* Logger::instance()
{
    static Logger logger;
    logger.m_initialized = true;
    return &logger;
}

void Logger::logPriorityMessage(const QString& engine_name, Logger::MessageType message_type,
                                const QVariant& message, const QVariant& msg1, const QVariant& msg2,
                                const QVariant& msg3)
{
    Q_UNUSED(engine_name)
    emit newPriorityMessage(message_type, QLatin1String("framework: ") + message.toString() +
                                              msg1.toString() + msg2.toString() + msg3.toString());
}

} // namespace Logging
} // namespace Qtilities
