#ifndef HOST_APP_DESIGNFILTERS_H
#define HOST_APP_DESIGNFILTERS_H

#include <QMap>
#include <QObject>

class DesignModel;
class DesignView;
class QMenu;
class QModelIndex;

/// Hides the rows of the design view that the filters of extensions name. The user switches each
/// filter in a menu, which has no entry without extensions that have filters.
class DesignFilters : public QObject {
    Q_OBJECT

public:
    /// All stay their owner's.
    DesignFilters(DesignModel* model, DesignView* view, QMenu* menu);

    /// Hides and shows rows again.
    void apply();

private:
    void fillMenu();
    bool isOn(const QString& filter) const;
    bool isHidden(const QModelIndex& index) const;
    void applyBelow(const QModelIndex& parent);

    DesignModel* m_model;
    DesignView* m_view;
    QMenu* m_menu;
    /// What the user has switched, by name.
    QMap<QString, bool> m_switched;
};

#endif
