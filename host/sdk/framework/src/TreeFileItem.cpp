#include <QtilitiesCoreGui/TreeFileItem.h>

#include <QFileInfo>

namespace Qtilities {
namespace CoreGui {

TreeFileItem::TreeFileItem(const QString& file_path)
    : TreeItemBase(QFileInfo(file_path).fileName()), m_filePath(file_path)
{
}

TreeFileItem::~TreeFileItem() {}

QString TreeFileItem::filePath() const { return m_filePath; }

QString TreeFileItem::fileName() const { return QFileInfo(filePath()).fileName(); }

QString TreeFileItem::suffix() const { return QFileInfo(filePath()).suffix(); }

QString TreeFileItem::completeSuffix() const { return QFileInfo(filePath()).completeSuffix(); }

bool TreeFileItem::exists() const { return QFileInfo(filePath()).exists(); }

} // namespace CoreGui
} // namespace Qtilities
