#ifndef TESTS_ARCHIVE_ARCHIVEHOST_H
#define TESTS_ARCHIVE_ARCHIVEHOST_H

#include "archive/ZORV_ArchiveConfigExtension.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignArchiveOutputParserDialog.h>

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// An archive dialog without a form, which notes what an extension asks of it.
class NotingDialog : public OrvanticCore::DesignArchiveOutputParserDialog {
    Q_OBJECT

public:
    QString currentExtension() const override { return extension; }
    OrvanticCore::IDesign* design() const override { return archivedDesign; }
    void setAppendVersionCheckboxVisible(bool visible) override;
    void setDestinationPathReadOnly(bool read_only) override;
    void setIncludedItemsGroupboxVisible(bool visible) override;

    QString extension = "zip";
    OrvanticCore::IDesign* archivedDesign = nullptr;
    /// For example "append version: false".
    QStringList calls;
};

/// What the extension has around it in a host: settings, a dialog and a design of version 1.0
/// without a structure.
class ArchiveHost {
public:
    /// The settings file lies in a folder of the host's own and has \p packageType, or nothing at
    /// all when that is null.
    explicit ArchiveHost(const QString& packageType = QString());
    ~ArchiveHost();

    /// Makes a new extension, as a restart does.
    void restart();
    /// Sets the dialog.
    void attach();

    ZORV_Plugin::ZORV_ArchiveConfigExtension* extension() const { return m_extension.get(); }
    /// The extension, as hosts see it.
    OrvanticCore::Interfaces::IDesignArchiveExtension* interface() const;
    NotingDialog& dialog() { return m_dialog; }
    OrvanticCore::Design& design() { return m_design; }

    template <class Widget>
    Widget* find(const char* name) const
    {
        auto* const widget = m_extension->findChild<Widget*>(name);
        if (!widget)
            qFatal("The form has no %s", name);
        return widget;
    }
    QComboBox* packageType() const { return find<QComboBox>("cmbPackageType"); }
    QComboBox* designType() const { return find<QComboBox>("cmbDesignType"); }
    QLineEdit* projectCm() const { return find<QLineEdit>("txtProjectCM"); }
    QSpinBox* sequence() const { return find<QSpinBox>("spinBoxSequenceNumber"); }
    QSpinBox* major() const { return find<QSpinBox>("spinBoxVersionMajor"); }
    QSpinBox* minor() const { return find<QSpinBox>("spinBoxVersionMinor"); }
    QStringList designTypes() const;

    /// The paths that were emitted since the last call.
    QStringList takePaths();
    /// The package type in the settings file; null when there is none.
    QVariant savedPackageType() const;
    QString settingsPath() const;

private:
    QTemporaryDir m_folder;
    QString m_settingsBefore;
    OrvanticCore::Design m_design;
    NotingDialog m_dialog;
    std::unique_ptr<ZORV_Plugin::ZORV_ArchiveConfigExtension> m_extension;
    std::unique_ptr<QSignalSpy> m_paths;
};

#endif
