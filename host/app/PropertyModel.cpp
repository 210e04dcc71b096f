#include "host/app/PropertyModel.h"

#include "host/app/DesignHistory.h"
#include "host/app/PropertyCatalog.h"
#include "host/app/PropertyChoices.h"

#include <QApplication>
#include <QStyle>

using OrvanticCore::Design;
using OrvanticCore::DesignProperty;
using Qtilities::Core::PropertySpecification;

PropertyModel::PropertyModel(QObject* parent) : QAbstractTableModel(parent) {}

void PropertyModel::setDesign(Design* design)
{
    if (m_design == design)
        return;
    if (m_design)
        disconnect(m_design, nullptr, this, nullptr);
    beginResetModel();
    m_design = design;
    m_properties = design ? design->designProperties() : QList<DesignProperty>();
    endResetModel();
    if (design)
        connect(design, &Design::propertiesChanged, this, &PropertyModel::takeProperties);
}

QString PropertyModel::descriptionAt(int row) const
{
    return m_design && row >= 0 ? PropertyCatalog::find(m_design, nameAt(row)).d_description
                                : QString();
}

QStringList PropertyModel::choicesAt(int row) const
{
    return m_design ? PropertyChoices::valuesOf(*m_design, nameAt(row)) : QStringList();
}

QString PropertyModel::warningAt(int row) const
{
    return m_design && row >= 0
               ? PropertyChoices::warning(*m_design, nameAt(row), m_properties.at(row).value)
               : QString();
}

bool PropertyModel::isRemovable(int row) const
{
    return m_design && row >= 0 && PropertyCatalog::find(m_design, nameAt(row)).d_removable;
}

QString PropertyModel::nameAt(int row) const { return m_properties.at(row).name; }

int PropertyModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_properties.count();
}

int PropertyModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PropertyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    const QStringList titles{tr("Property"), tr("Value")};
    return titles.value(section);
}

QVariant PropertyModel::data(const QModelIndex& index, int role) const
{
    const DesignProperty& property = m_properties.at(index.row());
    if (role == Qt::ToolTipRole)
        return descriptionAt(index.row());
    if (role == Qt::DecorationRole && index.column() == ValueColumn &&
        !warningAt(index.row()).isEmpty())
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return QVariant();
    return index.column() == NameColumn ? property.name : property.value;
}

bool PropertyModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    const DesignProperty property = m_properties.at(index.row());
    // Without a text there is no value, rather than an empty one.
    QVariant taken = value.toString().isEmpty() ? QVariant() : value;
    const PropertySpecification announced = PropertyCatalog::find(m_design, property.name);
    if (taken.isValid() && announced.isValid() && !taken.convert(int(announced.d_data_type))) {
        emit refused(
            announced.d_data_type == QVariant::Int
                ? tr("\"%1\" is no whole number. The value is as before.").arg(value.toString())
                : tr("\"%1\" is no value of this property. The value is as before.")
                      .arg(value.toString()));
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
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (m_design && index.column() == ValueColumn && !m_design->isLocked() &&
        !m_design->isReadOnly() &&
        !PropertyCatalog::find(m_design, nameAt(index.row())).d_read_only)
        flags |= Qt::ItemIsEditable;
    return flags;
}

void PropertyModel::takeProperties()
{
    const QList<DesignProperty> properties = m_design->designProperties();
    if (hasSameNames(properties)) {
        // Views keep their place when only values have changed.
        m_properties = properties;
        emit dataChanged(index(0, NameColumn), index(rowCount() - 1, ColumnCount - 1));
        return;
    }
    beginResetModel();
    m_properties = properties;
    endResetModel();
}

bool PropertyModel::hasSameNames(const QList<DesignProperty>& properties) const
{
    return std::equal(properties.begin(), properties.end(), m_properties.begin(),
                      m_properties.end(),
                      [](const DesignProperty& left, const DesignProperty& right) {
                          return left.name == right.name;
                      });
}
