#ifndef HOST_APP_IMAGE_PAGEBYTESMODEL_H
#define HOST_APP_IMAGE_PAGEBYTESMODEL_H

#include "host/app/image/PageContents.h"

#include <QAbstractTableModel>

/// The bytes of a header page, sixteen in a row: first all as hexadecimal numbers, then all as
/// ASCII characters.
class PageBytesModel : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int RowBytes = 16;

    using QAbstractTableModel::QAbstractTableModel;

    const PageContents& contents() const { return m_contents; }
    void setContents(const PageContents& contents);

    /// The cell of the byte at \p offset, among the numbers or the characters.
    enum Half { Numbers, Characters };
    QModelIndex indexOf(int offset, Half half = Numbers) const;
    /// The offset of the byte in a cell, which may be behind the last one.
    static int offsetOf(const QModelIndex& index);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString descriptionOf(int offset) const;

    PageContents m_contents;
};

#endif
