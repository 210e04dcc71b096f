#ifndef HOST_APP_PROPERTYEDITOR_H
#define HOST_APP_PROPERTYEDITOR_H

#include <OrvanticCore/Design.h>

#include <QPointer>
#include <QWidget>

class PropertyModel;
class QMenu;
class QPushButton;
class QTextBrowser;
class QTreeView;

/// Adds, edits and removes the properties of one design. What may be added is asked of the
/// providers in the object pool each time.
///
/// For drivers: "PropertyView", "AddPropertyButton" with its "AddPropertyMenu",
/// "RemovePropertyButton", "PropertyHelp".
class PropertyEditor : public QWidget {
    Q_OBJECT

public:
    explicit PropertyEditor(QWidget* parent = nullptr);

    /// \p design may be null, and stays its owner's.
    void setDesign(OrvanticCore::Design* design);

private:
    QTreeView* buildView();
    void refresh();
    void fillMenu();
    /// Adds nothing when \p design, for which the menu was made, is no longer the one shown.
    void addProperty(OrvanticCore::Design* design, const QString& name, const QVariant& value);
    void removeCurrent();
    void showHelp();
    void showRefusal(const QString& reason);
    void showText(const QString& problem);

    QPointer<OrvanticCore::Design> m_design;
    PropertyModel* m_model;
    QTreeView* m_view;
    QMenu* m_menu;
    QPushButton* m_add;
    QPushButton* m_remove;
    QTextBrowser* m_help;
};

#endif
