#include "host/app/DesignEditor.h"

#include "host/app/common/WheelGuard.h"
#include "host/app/DesignHistory.h"
#include "host/app/PropertyModel.h"
#include "ui_DesignEditor.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
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

DesignEditor::DesignEditor(QWidget* parent)
    : QWidget(parent), m_ui(new Ui::DesignEditor), m_model(new PropertyModel(this)),
      m_menu(new QMenu(this))
{
    m_ui->setupUi(this);
    guardWheel(this);
    m_ui->VersionChanges->setFixedHeight(fontMetrics().lineSpacing() * 4);
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

    // Each box sets its own number only, since the other number may be too large for its box.
    const auto valueChanged = QOverload<int>::of(&QSpinBox::valueChanged);
    connect(m_ui->VersionMajor, valueChanged, this, [this](int number) {
        if (m_design)
            m_design->setVersion(number, m_design->versionMinor());
    });
    connect(m_ui->VersionMinor, valueChanged, this, [this](int number) {
        if (m_design)
            m_design->setVersion(m_design->versionMajor(), number);
    });
    connect(m_ui->VersionChanges, &QPlainTextEdit::textChanged, this, [this] {
        if (m_design)
            m_design->setVersionChanges(m_ui->VersionChanges->toPlainText());
    });

    connect(m_menu, &QMenu::aboutToShow, this, &DesignEditor::fillMenu);
    connect(m_menu, &QMenu::hovered, this,
            [this](const QAction* action) { m_ui->PropertyHelp->setHtml(action->toolTip()); });
    connect(m_menu, &QMenu::aboutToHide, this, &DesignEditor::refresh);

    connect(remove, &QAction::triggered, this, &DesignEditor::removeCurrent);
    connect(m_ui->RemovePropertyButton, &QPushButton::clicked, this, &DesignEditor::removeCurrent);
    connect(m_ui->PropertyView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &DesignEditor::refresh);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &DesignEditor::refresh);
    connect(m_model, &PropertyModel::refused, this, &DesignEditor::showHelp);

    showVersion();
    refresh();
}

DesignEditor::~DesignEditor() = default;

void DesignEditor::setDesign(Design* design)
{
    if (m_design == design)
        return;
    if (m_design)
        disconnect(m_design, nullptr, this, nullptr);
    m_design = design;
    m_model->setDesign(design);
    if (design) {
        connect(design, &Design::versionChanged, this, &DesignEditor::showVersion);
        connect(design, &Design::stateChanged, this, &DesignEditor::showVersion);
        connect(design, &Design::stateChanged, this, &DesignEditor::refresh);
    }

    showVersion();
    refresh();
}

bool DesignEditor::isEditable() const
{
    return m_design && !m_design->isLocked() && !m_design->isReadOnly();
}

void DesignEditor::showVersion()
{
    const QSignalBlocker majorBlocker(m_ui->VersionMajor);
    const QSignalBlocker minorBlocker(m_ui->VersionMinor);
    const QSignalBlocker changesBlocker(m_ui->VersionChanges);

    m_ui->DesignTypeName->setText(m_design ? m_design->typeName() : QString());
    m_ui->VersionMajor->setValue(m_design ? m_design->versionMajor() : 0);
    m_ui->VersionMinor->setValue(m_design ? m_design->versionMinor() : 0);

    const QString changes = m_design ? m_design->versionChanges() : QString();
    // Setting the same text would move the cursor of a user who is typing.
    if (m_ui->VersionChanges->toPlainText() != changes)
        m_ui->VersionChanges->setPlainText(changes);

    const bool editable = isEditable();
    m_ui->VersionMajor->setEnabled(editable);
    m_ui->VersionMinor->setEnabled(editable);
    // It is read-only rather than disabled, so that it can be scrolled and copied.
    m_ui->VersionChanges->setReadOnly(!editable);
    m_ui->VersionChanges->setEnabled(m_design);
    QPalette colours = palette();
    if (!editable)
        colours.setBrush(QPalette::Base, colours.window());
    m_ui->VersionChanges->setPalette(colours);
}

void DesignEditor::refresh()
{
    const QModelIndex current = m_ui->PropertyView->currentIndex();
    m_ui->PropertyView->setEnabled(m_design);
    m_ui->AddPropertyButton->setEnabled(isEditable());
    m_ui->RemovePropertyButton->setEnabled(isEditable() && m_model->isRemovable(current));
    showHelp(m_model->warningAt(current));
}

void DesignEditor::fillMenu()
{
    m_menu->clear();
    for (const PropertySpecification& property : m_model->available()) {
        QAction* const action = m_menu->addAction(property.d_displayed_name);
        action->setToolTip(property.d_description);

        const QString name = property.propertyName();
        for (const OrvanticCore::DesignProperty& present : m_design->designProperties()) {
            if (present.name == name)
                action->setEnabled(false);
        }

        // The slot is called when the menu is closed, which would take the focus from the editor of
        // the new value.
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

void DesignEditor::addProperty(Design* design, const QString& name, const QVariant& value)
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

void DesignEditor::removeCurrent()
{
    const QString name = m_model->nameAt(m_ui->PropertyView->currentIndex());
    if (m_ui->RemovePropertyButton->isEnabled())
        DesignHistory::record(m_design, tr("Remove %1").arg(name),
                              [&] { m_design->removeDesignProperty(name); });
}

void DesignEditor::showHelp(const QString& problem)
{
    const QString description = m_ui->PropertyView->currentIndex().data(Qt::ToolTipRole).toString();
    m_ui->PropertyHelp->setHtml(
        problem.isEmpty()
            ? description
            : QString("<p><b>%1</b></p>%2").arg(problem.toHtmlEscaped(), description));
}
