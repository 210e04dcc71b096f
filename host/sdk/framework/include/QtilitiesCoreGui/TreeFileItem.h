#ifndef QTILITIESCOREGUI_TREEFILEITEM_H
#define QTILITIESCOREGUI_TREEFILEITEM_H

#include <QtilitiesCore/QtilitiesGlobal.h>
#include <QtilitiesCoreGui/TreeItemBase.h>

namespace Qtilities {
namespace CoreGui {

/// A leaf for a file, which need not exist.
class QTILITIES_SHARED_EXPORT TreeFileItem : public TreeItemBase {
    Q_OBJECT

public:
    explicit TreeFileItem(const QString& file_path = QString());
    ~TreeFileItem() override;

    /// As given to the constructor.
    virtual QString filePath() const;

    /// The last part of the path.
    QString fileName() const;

    /// What follows the last dot of the file name.
    QString suffix() const;

    /// What follows the first dot of the file name.
    QString completeSuffix() const;

    virtual bool exists() const;

private:
    QString m_filePath;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
