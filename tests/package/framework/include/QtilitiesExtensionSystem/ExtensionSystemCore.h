#ifndef FRAMEWORK_EXTENSIONSYSTEMCORE_H
#define FRAMEWORK_EXTENSIONSYSTEMCORE_H

#include <IPlugin.h>

#include <QObject>

namespace Qtilities {
namespace ExtensionSystem {

class QTILITIES_CORE_EXPORT ExtensionSystemCore : public QObject {
    Q_OBJECT

public:
    static ExtensionSystemCore* instance();
    void addPluginPath(const QString& path);
    void initialize();
    void finalize();
    Interfaces::IPlugin* findPlugin(const QString& name) const;

private:
    QStringList m_paths;
    QList<Interfaces::IPlugin*> m_plugins;
};

} // namespace ExtensionSystem
} // namespace Qtilities

#endif
