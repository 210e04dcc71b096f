#ifndef HOST_APP_PROPERTYMODEL_H
#define HOST_APP_PROPERTYMODEL_H

#include <OrvanticCore/Design.h>

#include <QtilitiesCore/IAvailablePropertyProvider.h>

#include <QPointer>
#include <QStandardItemModel>

/// The properties of one design, to be edited in place. Their tooltips are the descriptions from
/// the properties' providers, as rich text.
class PropertyModel : public QStandardItemModel {
    Q_OBJECT

public:
    enum Column { NameColumn, ValueColumn, ColumnCount };

    explicit PropertyModel(QObject* parent = nullptr);

    /// \p design may be null. Not owned.
    void setDesign(OrvanticCore::Design* design);

    /// The properties that a user may add to the design, which must not be null, or has added
    /// already: those that the providers in the object pool announce now, each name once.
    QList<Qtilities::Core::PropertySpecification> available() const;
    /// The values that image generators know for a target property; none for any other. The
    /// devices are those of the module that the design has.
    QStringList choicesAt(const QModelIndex& index) const;
    /// Why the value is of no use to image generators; empty if it is, or for an invalid index.
    QString warningAt(const QModelIndex& index) const;
    bool isRemovable(const QModelIndex& index) const;
    QString nameAt(const QModelIndex& index) const;

    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// A value was not taken.
    void refused(const QString& reason);

private:
    /// What a provider announces of the property with that name, or an invalid one.
    Qtilities::Core::PropertySpecification specification(const QString& name) const;
    void load();

    QPointer<OrvanticCore::Design> m_design;
};

#endif
