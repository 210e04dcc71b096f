#ifndef HOST_APP_OPENDESIGNS_H
#define HOST_APP_OPENDESIGNS_H

#include <QList>
#include <QObject>
#include <QString>

#include <memory>

namespace OrvanticCore {
class Design;
}

/// The designs that are open. They belong to this object and are listed in the design manager, in
/// the order in which they were opened.
class OpenDesigns : public QObject {
    Q_OBJECT

public:
    explicit OpenDesigns(QObject* parent = nullptr);
    ~OpenDesigns() override;

    const QList<OrvanticCore::Design*>& designs() const { return m_designs; }

    /// The open design in \p folder, or null.
    OrvanticCore::Design* designIn(const QString& folder) const;

    /// Opens the design in \p folder, unless it is open. Returns null with the reason in \p error.
    OrvanticCore::Design* open(const QString& folder, QString* error);

    /// Makes \p folder when there is none, writes the description of a new design into it and opens
    /// that. Returns null with the reason in \p error, also when a design is there already.
    OrvanticCore::Design* create(const QString& folder, const QString& typeName, int versionMajor,
                                 int versionMinor, QString* error);

    /// Reads the description of \p design again. The design is closed and deleted, and the new one
    /// takes its place. Returns null with the reason in \p error; then nothing has changed.
    OrvanticCore::Design* reload(OrvanticCore::Design* design, QString* error);

    /// Closes and deletes \p design, saved or not.
    void close(OrvanticCore::Design* design);

signals:
    void opened(OrvanticCore::Design* design);
    void aboutToClose(OrvanticCore::Design* design);

private:
    OrvanticCore::Design* take(std::unique_ptr<OrvanticCore::Design> design);

    QList<OrvanticCore::Design*> m_designs;
};

#endif
