#include "host/app/image/PageBytesModel.h"

namespace {

QString hexadecimal(uchar byte) { return QString("%1").arg(byte, 2, 16, QLatin1Char('0')); }

QString character(uchar byte)
{
    const bool isPrintable = byte >= 0x20 && byte < 0x7f;
    return QString(isPrintable ? QLatin1Char(char(byte)) : QLatin1Char('.'));
}

} // namespace

void PageBytesModel::setContents(const PageContents& contents)
{
    beginResetModel();
    m_contents = contents;
    endResetModel();
}

QModelIndex PageBytesModel::indexOf(int offset, Half half) const
{
    return index(offset / RowBytes, offset % RowBytes + (half == Characters ? RowBytes : 0));
}

int PageBytesModel::offsetOf(const QModelIndex& index)
{
    return index.row() * RowBytes + index.column() % RowBytes;
}

int PageBytesModel::rowCount(const QModelIndex& parent) const
{
    const int bytes = static_cast<int>(m_contents.bytes.size());
    return parent.isValid() ? 0 : (bytes + RowBytes - 1) / RowBytes;
}

int PageBytesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2 * RowBytes;
}

Qt::ItemFlags PageBytesModel::flags(const QModelIndex& index) const
{
    if (offsetOf(index) >= m_contents.bytes.size())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

QVariant PageBytesModel::data(const QModelIndex& index, int role) const
{
    const int offset = offsetOf(index);
    if (offset >= m_contents.bytes.size())
        return QVariant();

    const auto byte = static_cast<uchar>(m_contents.bytes.at(offset));
    switch (role) {
    case Qt::DisplayRole:
        return index.column() < RowBytes ? hexadecimal(byte) : character(byte);
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return descriptionOf(offset);
    default:
        return QVariant();
    }
}

QVariant PageBytesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole && orientation == Qt::Vertical)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::DisplayRole && orientation == Qt::Vertical)
        return section * RowBytes;
    return QVariant();
}

/// What is at \p offset, for those who hear a single cell.
QString PageBytesModel::descriptionOf(int offset) const
{
    const int field = m_contents.fieldAt(offset);
    const QString name = field < 0 ? QString() : m_contents.fields.at(field).name;
    const auto byte = static_cast<uchar>(m_contents.bytes.at(offset));
    return tr("%1: 0x%2 at offset %3 (0x%4)")
        .arg(name, hexadecimal(byte), QString::number(offset), QString::number(offset, 16));
}
