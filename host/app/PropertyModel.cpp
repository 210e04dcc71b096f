#include "host/app/PropertyModel.h"

#include "host/app/DesignHistory.h"
#include "host/app/PropertyCatalog.h"

#include <QApplication>
#include <QStyle>

using OrvanticCore::Design;
using OrvanticCore::DesignProperty;
using Qtilities::Core::PropertySpecification;

PropertyModel::PropertyModel(QObject* parent) : QStandardItemModel(0, ColumnCount, parent)
{
    setHorizontalHeaderLabels({tr("Property"), tr("Value")});
}

void PropertyModel::setDesign(Design* design)
{
    if (m_design == design)
        return;
    if (m_design)
        disconnect(m_design, nullptr, this, nullptr);
    m_design = design;
    if (design)
        connect(design, &Design::propertiesChanged, this, &PropertyModel::load);
    setRowCount(0);
    load();
}

void PropertyModel::load()
{
    const QList<DesignProperty> properties =
        m_design ? m_design->designProperties() : QList<DesignProperty>();
    bool hasSameNames = properties.count() == rowCount();
    for (int row = 0; hasSameNames && row < rowCount(); ++row)
        hasSameNames = properties.at(row).name == nameAt(index(row, NameColumn));
    // Views keep their place when only values have changed.
    if (!hasSameNames)
        setRowCount(0);
    setRowCount(properties.count());
    for (int row = 0; row < rowCount(); ++row) {
        const DesignProperty& property = properties.at(row);
        const QModelIndex name = index(row, NameColumn);
        const QModelIndex value = index(row, ValueColumn);
        const QString description = PropertyCatalog::find(m_design, property.name).d_description;
        QStandardItemModel::setData(name, property.name, Qt::EditRole);
        QStandardItemModel::setData(name, description, Qt::ToolTipRole);
        QStandardItemModel::setData(value, property.value, Qt::EditRole);
        QStandardItemModel::setData(value, description, Qt::ToolTipRole);
        const QIcon warning = QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
        QStandardItemModel::setData(value, warningAt(value).isEmpty() ? QVariant() : warning,
                                    Qt::DecorationRole);
    }
}

QStringList PropertyModel::choicesAt(const QModelIndex& index) const
{
    return m_design ? PropertyCatalog::choices(*m_design, nameAt(index)) : QStringList();
}

QString PropertyModel::warningAt(const QModelIndex& index) const
{
    const QStringList known = choicesAt(index);
    const QString value = index.siblingAtColumn(ValueColumn).data().toString();
    if (known.isEmpty() || value.isEmpty() || known.contains(value))
        return QString();
    return tr("\"%1\" is none of %2: the generator keeps its own selection.")
        .arg(value, known.join(", "));
}

bool PropertyModel::isRemovable(const QModelIndex& index) const
{
    return m_design && index.isValid() &&
           PropertyCatalog::find(m_design, nameAt(index)).d_removable;
}

QString PropertyModel::nameAt(const QModelIndex& index) const
{
    return index.siblingAtColumn(NameColumn).data().toString();
}

bool PropertyModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    const DesignProperty property = m_design->designProperties().at(index.row());
    // Without a text there is no value, rather than an empty one.
    QVariant taken = value.toString().isEmpty() ? QVariant() : value;
    const PropertySpecification announced = PropertyCatalog::find(m_design, property.name);
    if (taken.isValid() && announced.isValid() && !taken.convert(int(announced.d_data_type))) {
        const QString kind = announced.d_data_type == QVariant::Int ? tr("whole number")
                                                                    : tr("value of this property");
        emit refused(tr("\"%1\" is no %2. The value is as before.").arg(value.toString(), kind));
        return false;
    }
    if (taken != property.value || taken.isValid() != property.value.isValid())
        DesignHistory::record(m_design, tr("Change %1").arg(property.name), [&] {
            m_design->setDesignProperty(property.name, taken, property.category);
        });
    return true;
}

Qt::ItemFlags PropertyModel::flags(const QModelIndex& index) const
{
    const bool isEditable = m_design && index.column() == ValueColumn && !m_design->isLocked() &&
                            !m_design->isReadOnly() &&
                            !PropertyCatalog::find(m_design, nameAt(index)).d_read_only;
    return QStandardItemModel::flags(index).setFlag(Qt::ItemIsEditable, isEditable);
}
