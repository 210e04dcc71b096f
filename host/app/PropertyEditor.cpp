#include "host/app/PropertyEditor.h"

#include "host/app/DesignHistory.h"
#include "host/app/PropertyCatalog.h"
#include "host/app/PropertyModel.h"
#include "ui_PropertyEditor.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QStyledItemDelegate>

using OrvanticCore::Design;
using Qtilities::Core::PropertySpecification;
using Qtilities::Core::QtilitiesCategory;

namespace {

/// Edits a value in a list that takes other texts too where there are choices, else in a line,
/// whatever its type is: the model converts the text, and reports when it cannot.
class ValueDelegate : public QStyledItemDelegate {
public:
    ValueDelegate(PropertyModel* model, QObject* parent)
        : QStyledItemDelegate(parent), m_model(model)
    {
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override
    {
        auto* const line = new QLineEdit(parent);
        QWidget* editor = line;
        const QStringList choices = m_model->choicesAt(index);
        if (!choices.isEmpty()) {
            auto* const box = new QComboBox(parent);
            box->setLineEdit(line);
            box->setFrame(false);
            box->setInsertPolicy(QComboBox::NoInsert);
            box->addItems(choices);
            // Completion would turn "GP" into "GPM" while "GP" is typed.
            box->setCompleter(nullptr);
            editor = box;
        }
        line->setFrame(false);
        line->setAcceptDrops(false);
        editor->setAccessibleName(m_model->nameAt(index));
        return editor;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        QStyledItemDelegate::setEditorData(editor, index);
        if (auto* const box = qobject_cast<QComboBox*>(editor)) {
            const QString text = box->currentText();
            box->setCurrentIndex(box->findText(text));
            box->setEditText(text);
            box->lineEdit()->selectAll();
        }
    }

private:
    PropertyModel* m_model;
};

} // namespace

PropertyEditor::PropertyEditor(QWidget* parent)
    : QWidget(parent), m_ui(new Ui::PropertyEditor), m_model(new PropertyModel(this)),
      m_menu(new QMenu(this))
{
    m_ui->setupUi(this);
    m_ui->PropertyView->setModel(m_model);
    m_ui->PropertyView->setItemDelegate(new ValueDelegate(m_model, this));
    m_ui->PropertyView->header()->setSectionResizeMode(PropertyModel::NameColumn,
                                                       QHeaderView::ResizeToContents);
    m_ui->PropertyHelp->viewport()->setAutoFillBackground(false);
    m_menu->setObjectName("AddPropertyMenu");
    m_menu->setToolTipsVisible(true);
    m_ui->AddPropertyButton->setMenu(m_menu);
    auto* const remove = new QAction(tr("Remove"), m_ui->PropertyView);
    remove->setShortcut(QKeySequence::Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    m_ui->PropertyView->addAction(remove);

    connect(m_menu, &QMenu::aboutToShow, this, &PropertyEditor::fillMenu);
    connect(m_menu, &QMenu::hovered, this,
            [this](const QAction* action) { m_ui->PropertyHelp->setHtml(action->toolTip()); });
    connect(m_menu, &QMenu::aboutToHide, this, &PropertyEditor::refresh);
    connect(remove, &QAction::triggered, this, &PropertyEditor::removeCurrent);
    connect(m_ui->RemovePropertyButton, &QPushButton::clicked, this,
            &PropertyEditor::removeCurrent);
    connect(m_ui->PropertyView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PropertyEditor::refresh);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &PropertyEditor::refresh);
    connect(m_model, &PropertyModel::refused, this, &PropertyEditor::showHelp);
    refresh();
}

PropertyEditor::~PropertyEditor() = default;

void PropertyEditor::setDesign(Design* design)
{
    if (m_design == design)
        return;
    if (m_design)
        disconnect(m_design, nullptr, this, nullptr);
    m_design = design;
    m_model->setDesign(design);
    if (design)
        connect(design, &Design::stateChanged, this, &PropertyEditor::refresh);
    refresh();
}

void PropertyEditor::refresh()
{
    const bool editable = m_design && !m_design->isLocked() && !m_design->isReadOnly();
    const QModelIndex current = m_ui->PropertyView->currentIndex();
    m_ui->PropertyView->setEnabled(m_design);
    m_ui->AddPropertyButton->setEnabled(editable);
    m_ui->RemovePropertyButton->setEnabled(editable && m_model->isRemovable(current));
    showHelp(m_model->warningAt(current));
}

void PropertyEditor::fillMenu()
{
    m_menu->clear();
    for (const PropertySpecification& property : PropertyCatalog::availableFor(m_design)) {
        QAction* const action = m_menu->addAction(property.d_displayed_name);
        action->setToolTip(property.d_description);
        const QString name = property.propertyName();
        for (const OrvanticCore::DesignProperty& present : m_design->designProperties()) {
            if (present.name == name)
                action->setEnabled(false);
        }
        // Queued until the menu is closed, which takes the focus from the new value's editor
        // otherwise.
        connect(
            action, &QAction::triggered, this,
            [this, design = m_design.data(), name, value = property.d_default_value] {
                addProperty(design, name, value);
            },
            Qt::QueuedConnection);
    }
    if (m_menu->isEmpty())
        m_menu->addAction(tr("No properties are available"))->setEnabled(false);
}

void PropertyEditor::addProperty(Design* design, const QString& name, const QVariant& value)
{
    // The design may have been closed or locked since the choice.
    if (!m_design || design != m_design || !m_ui->AddPropertyButton->isEnabled())
        return;
    DesignHistory::record(m_design, tr("Add %1").arg(name),
                          [&] { m_design->setDesignProperty(name, value, QtilitiesCategory()); });
    const QModelIndex added = m_model->index(m_model->rowCount() - 1, PropertyModel::ValueColumn);
    m_ui->PropertyView->setFocus();
    m_ui->PropertyView->setCurrentIndex(added);
    m_ui->PropertyView->edit(added);
}

void PropertyEditor::removeCurrent()
{
    const QString name = m_model->nameAt(m_ui->PropertyView->currentIndex());
    if (m_ui->RemovePropertyButton->isEnabled())
        DesignHistory::record(m_design, tr("Remove %1").arg(name),
                              [&] { m_design->removeDesignProperty(name); });
}

void PropertyEditor::showHelp(const QString& problem)
{
    const QString description = m_ui->PropertyView->currentIndex().data(Qt::ToolTipRole).toString();
    m_ui->PropertyHelp->setHtml(
        problem.isEmpty()
            ? description
            : QString("<p><b>%1</b></p>%2").arg(problem.toHtmlEscaped(), description));
}
