#include "host/app/PropertyDelegate.h"

#include "host/app/PropertyModel.h"

#include <QComboBox>
#include <QLineEdit>

PropertyDelegate::PropertyDelegate(PropertyModel* model, QObject* parent)
    : QStyledItemDelegate(parent), m_model(model)
{
}

QWidget* PropertyDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                        const QModelIndex& index) const
{
    const QStringList choices = m_model->choicesAt(index.row());
    if (choices.isEmpty()) {
        // A text for values of every type: the model converts it, and says when it cannot.
        auto* const edit = new QLineEdit(parent);
        edit->setAccessibleName(m_model->nameAt(index.row()));
        edit->setFrame(false);
        edit->setAcceptDrops(false);
        return edit;
    }
    auto* const box = new QComboBox(parent);
    box->setAccessibleName(m_model->nameAt(index.row()));
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setFrame(false);
    box->setAcceptDrops(false);
    box->addItems(choices);
    // Completion would turn "GP" into "GPM" while "GP" is typed.
    box->setCompleter(nullptr);
    return box;
}

void PropertyDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* const box = qobject_cast<QComboBox*>(editor)) {
        box->setCurrentIndex(box->findText(text));
        box->setEditText(text);
        box->lineEdit()->selectAll();
    } else if (auto* const edit = qobject_cast<QLineEdit*>(editor)) {
        edit->setText(text);
    }
}

void PropertyDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                    const QModelIndex& index) const
{
    const auto* const box = qobject_cast<const QComboBox*>(editor);
    const auto* const edit = qobject_cast<const QLineEdit*>(editor);
    if (box || edit)
        model->setData(index, box ? box->currentText() : edit->text());
}
