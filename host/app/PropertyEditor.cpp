#include "host/app/PropertyEditor.h"

#include "host/app/DesignHistory.h"
#include "host/app/PropertyCatalog.h"
#include "host/app/PropertyDelegate.h"
#include "host/app/PropertyModel.h"

#include <QAction>
#include <QBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTextBrowser>
#include <QTreeView>

using OrvanticCore::Design;
using Qtilities::Core::PropertySpecification;
using Qtilities::Core::QtilitiesCategory;

PropertyEditor::PropertyEditor(QWidget* parent)
    : QWidget(parent), m_model(new PropertyModel(this)), m_view(buildView()),
      m_menu(new QMenu(this)), m_add(new QPushButton(tr("&Add Property"), this)),
      m_remove(new QPushButton(tr("&Remove"), this)), m_help(new QTextBrowser(this))
{
    setObjectName("PropertyEditor");
    m_menu->setObjectName("AddPropertyMenu");
    m_menu->setToolTipsVisible(true);
    m_add->setObjectName("AddPropertyButton");
    m_add->setMenu(m_menu);
    m_remove->setObjectName("RemovePropertyButton");
    m_help->setObjectName("PropertyHelp");
    m_help->setAccessibleName(tr("Help"));
    m_help->setFrameShape(QFrame::NoFrame);
    m_help->viewport()->setAutoFillBackground(false);
    m_help->setTabChangesFocus(true);

    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_remove);
    buttons->addStretch();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view, 1);
    layout->addLayout(buttons);
    layout->addWidget(m_help, 1);

    connect(m_menu, &QMenu::aboutToShow, this, &PropertyEditor::fillMenu);
    connect(m_menu, &QMenu::hovered, this,
            [this](const QAction* action) { m_help->setHtml(action->toolTip()); });
    connect(m_menu, &QMenu::aboutToHide, this, &PropertyEditor::showHelp);
    connect(m_remove, &QPushButton::clicked, this, &PropertyEditor::removeCurrent);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &PropertyEditor::refresh);
    connect(m_model, &QAbstractItemModel::modelReset, this, &PropertyEditor::refresh);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &PropertyEditor::showHelp);
    connect(m_model, &PropertyModel::refused, this, &PropertyEditor::showRefusal);
    refresh();
}

QTreeView* PropertyEditor::buildView()
{
    auto* const view = new QTreeView(this);
    view->setObjectName("PropertyView");
    view->setAccessibleName(tr("Properties"));
    view->setModel(m_model);
    view->setItemDelegate(new PropertyDelegate(m_model, view));
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->setAlternatingRowColors(true);
    view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                          QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    view->header()->setStretchLastSection(true);
    view->header()->setSectionResizeMode(PropertyModel::NameColumn, QHeaderView::ResizeToContents);

    auto* const remove = new QAction(tr("Remove"), view);
    remove->setShortcut(QKeySequence::Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    connect(remove, &QAction::triggered, this, &PropertyEditor::removeCurrent);
    view->addAction(remove);
    return view;
}

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
    m_view->setEnabled(m_design);
    m_add->setEnabled(editable);
    m_remove->setEnabled(editable && m_model->isRemovable(m_view->currentIndex().row()));
    showHelp();
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
    if (!m_design || design != m_design || !m_add->isEnabled())
        return;
    DesignHistory::record(m_design, tr("Add %1").arg(name),
                          [&] { m_design->setDesignProperty(name, value, QtilitiesCategory()); });
    const QModelIndex added = m_model->index(m_model->rowCount() - 1, PropertyModel::ValueColumn);
    m_view->setFocus();
    m_view->setCurrentIndex(added);
    m_view->edit(added);
}

void PropertyEditor::removeCurrent()
{
    const int row = m_view->currentIndex().row();
    if (m_remove->isEnabled() && row >= 0)
        DesignHistory::record(m_design, tr("Remove %1").arg(m_model->nameAt(row)),
                              [&] { m_design->removeDesignProperty(m_model->nameAt(row)); });
}

void PropertyEditor::showHelp() { showText(m_model->warningAt(m_view->currentIndex().row())); }

void PropertyEditor::showRefusal(const QString& reason) { showText(reason); }

void PropertyEditor::showText(const QString& problem)
{
    const QString description = m_model->descriptionAt(m_view->currentIndex().row());
    m_help->setHtml(problem.isEmpty()
                        ? description
                        : QString("<p><b>%1</b></p>%2").arg(problem.toHtmlEscaped(), description));
}
