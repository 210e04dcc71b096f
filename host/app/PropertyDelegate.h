#ifndef HOST_APP_PROPERTYDELEGATE_H
#define HOST_APP_PROPERTYDELEGATE_H

#include <QStyledItemDelegate>

class PropertyModel;

/// Edits the value of a property: in a list that takes other texts too where there are choices,
/// else in a line.
class PropertyDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// \p model stays its owner's.
    explicit PropertyDelegate(PropertyModel* model, QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

private:
    PropertyModel* m_model;
};

#endif
