#ifndef HOST_APP_PROPERTYMODEL_H
#define HOST_APP_PROPERTYMODEL_H

#include <OrvanticCore/Design.h>

#include <QAbstractTableModel>
#include <QPointer>

/// The properties of one design, to be edited in place.
class PropertyModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { NameColumn, ValueColumn, ColumnCount };

    explicit PropertyModel(QObject* parent = nullptr);

    /// \p design may be null, and stays its owner's.
    void setDesign(OrvanticCore::Design* design);

    /// The description from the property's provider, as rich text; empty without a provider.
    QString descriptionAt(int row) const;
    /// The values to choose from; none where any value will do.
    QStringList choicesAt(int row) const;
    /// Why the value is of no use to image generators; empty if it is.
    QString warningAt(int row) const;
    bool isRemovable(int row) const;
    QString nameAt(int row) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// A value was not taken.
    void refused(const QString& reason);

private:
    void takeProperties();
    bool hasSameNames(const QList<OrvanticCore::DesignProperty>& properties) const;

    QPointer<OrvanticCore::Design> m_design;
    QList<OrvanticCore::DesignProperty> m_properties;
};

#endif
