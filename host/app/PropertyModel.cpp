#include "host/app/PropertyModel.h"

#include "fcf/FcfTarget.h"
#include "host/app/DesignHistory.h"
#include "host/app/image/ImageTarget.h"
#include "toolkit/QtDifferences.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QApplication>
#include <QSet>
#include <QStyle>

using OrvanticCore::Design;
using OrvanticCore::DesignProperty;
using Qtilities::Core::PropertySpecification;
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;
using Qtilities::CoreGui::QtilitiesApplication;

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
    setRowCount(static_cast<int>(properties.count()));

    for (int row = 0; row < rowCount(); ++row) {
        const DesignProperty& property = properties.at(row);
        const QModelIndex name = index(row, NameColumn);
        const QModelIndex value = index(row, ValueColumn);
        const QString description = specification(property.name).d_description;

        QStandardItemModel::setData(name, property.name, Qt::EditRole);
        QStandardItemModel::setData(name, description, Qt::ToolTipRole);
        QStandardItemModel::setData(value, property.value, Qt::EditRole);
        QStandardItemModel::setData(value, description, Qt::ToolTipRole);
        const QIcon warning = QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
        QStandardItemModel::setData(value, warningAt(value).isEmpty() ? QVariant() : warning,
                                    Qt::DecorationRole);
    }
}

QList<PropertySpecification> PropertyModel::available() const
{
    const QList<QObject*> providers = QtilitiesApplication::objectManager()->registeredInterfaces(
        qobject_interface_iid<IAvailablePropertyProvider*>());
    QList<PropertySpecification> available;
    QSet<QString> names;
    for (QObject* provider : providers) {
        const auto* const interface = qobject_cast<IAvailablePropertyProvider*>(provider);
        for (const PropertySpecification& property : interface->availableProperties()) {
            if (!property.isValid() || property.d_internal ||
                !m_design->inherits(property.d_class_name.toLatin1().constData()) ||
                names.contains(property.propertyName()))
                continue;

            names << property.propertyName();
            available << property;
        }
    }
    return available;
}

PropertySpecification PropertyModel::specification(const QString& name) const
{
    for (const PropertySpecification& property :
         m_design ? available() : QList<PropertySpecification>()) {
        if (property.propertyName() == name)
            return property;
    }
    return PropertySpecification();
}

QStringList PropertyModel::choicesAt(const QModelIndex& index) const
{
    if (!m_design)
        return QStringList();

    const QString property = nameAt(index);
    QStringList values;
    if (property == ImageTarget::ModuleProperty)
        values = FcfTarget::modules();

    if (property == ImageTarget::DeviceProperty) {
        values =
            FcfTarget::devicesOf(m_design->designProperty(ImageTarget::ModuleProperty).toString());
        for (const QString& module : values.isEmpty() ? FcfTarget::modules() : QStringList())
            values << FcfTarget::devicesOf(module);
        values.removeDuplicates();
    }

    if (property == ImageTarget::SlotProperty) {
        for (int number = FcfTarget::FirstSlot; number <= FcfTarget::LastSlot; ++number)
            values << QString::number(number);
    }
    return values;
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
    return m_design && index.isValid() && specification(nameAt(index)).d_removable;
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
    // An empty text means no value, rather than an empty one.
    QVariant taken = value.toString().isEmpty() ? QVariant() : value;
    const PropertySpecification announced = specification(property.name);
    if (taken.isValid() && announced.isValid() &&
        !Toolkit::convert(&taken, announced.d_data_type)) {
        const QString kind = int(announced.d_data_type) == QMetaType::Int
                                 ? tr("whole number")
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
                            !m_design->isReadOnly() && !specification(nameAt(index)).d_read_only;
    return QStandardItemModel::flags(index).setFlag(Qt::ItemIsEditable, isEditable);
}
