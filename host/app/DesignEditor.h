#ifndef HOST_APP_DESIGNEDITOR_H
#define HOST_APP_DESIGNEDITOR_H

#include <OrvanticCore/Design.h>

#include <QPointer>
#include <QWidget>

#include <memory>

class PropertyModel;
class QMenu;

namespace Ui {
class DesignEditor;
}

/// Edits what belongs to one design as a whole: its version, what is new in that, and its
/// properties. Which properties may be added is asked of the providers in the object pool each
/// time.
///
/// For drivers: "VersionMajor", "VersionMinor", "VersionChanges", "PropertyView",
/// "AddPropertyButton" with its "AddPropertyMenu", "RemovePropertyButton", "PropertyHelp".
class DesignEditor : public QWidget {
    Q_OBJECT

public:
    explicit DesignEditor(QWidget* parent = nullptr);
    ~DesignEditor() override;

    /// \p design may be null. Not owned.
    void setDesign(OrvanticCore::Design* design);

private:
    bool isEditable() const;
    void showVersion();
    void refresh();
    void fillMenu();
    /// Adds nothing when \p design, for which the menu was made, is no longer the one shown.
    void addProperty(OrvanticCore::Design* design, const QString& name, const QVariant& value);
    void removeCurrent();
    /// Shows the description of the current property, below \p problem unless that is empty.
    void showHelp(const QString& problem);

    std::unique_ptr<Ui::DesignEditor> m_ui;
    QPointer<OrvanticCore::Design> m_design;
    PropertyModel* m_model;
    QMenu* m_menu;
};

#endif
