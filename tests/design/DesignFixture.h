#ifndef TESTS_DESIGN_DESIGNFIXTURE_H
#define TESTS_DESIGN_DESIGNFIXTURE_H

#include "design/ZORV_FileTypeExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QAction>
#include <QObject>
#include <QScopedPointer>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>

class PelkFcfGenerator;

/// One open firmware design of version 2.7 in a folder of its own, which keeps the files "*.bit"
/// under the node "Bit-stream Files", and the extensions under test.
class DesignFixture : public QObject {
    Q_OBJECT

public:
    DesignFixture();
    ~DesignFixture() override;

    OrvanticCore::Design* design() const { return m_design.data(); }
    ZORV_Plugin::ZORV_FileTypeExtensions* extensions() const { return m_extensions.data(); }

    /// The design is closed and deleted.
    void closeDesign();

    /// A second open design, in a folder of its own.
    OrvanticCore::Design* openSecondDesign();

    QString path(const QString& name) const;

    /// Writes a file into the design's folder, and returns its path.
    QString writeFile(const QString& name, const QByteArray& bytes = "bytes");

    /// Writes a file and takes it into the design.
    OrvanticCore::DesignFile* addFile(const QString& name, const QByteArray& bytes = "bytes");

    /// The only action for \p item in the design view, or null when there is not exactly one. It is
    /// deleted with the fixture.
    QAction* actionFor(OrvanticCore::DesignFile* item);

    /// The generator window that is open, or null.
    static PelkFcfGenerator* window();

    /// Closes the window and waits until it has deleted itself.
    static bool closeWindow();

    /// The logger's messages since construction: the number of the type, a colon, and the text.
    QStringList log() const { return m_log; }

private:
    QTemporaryDir m_folder;
    QTemporaryDir m_secondFolder;
    QScopedPointer<OrvanticCore::Design> m_design;
    QScopedPointer<OrvanticCore::Design> m_secondDesign;
    QScopedPointer<ZORV_Plugin::ZORV_FileTypeExtensions> m_extensions;
    QSet<QAction*> m_actions;
    QStringList m_log;
};

#endif
