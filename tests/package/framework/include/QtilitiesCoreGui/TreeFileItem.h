#ifndef FRAMEWORK_TREEFILEITEM_H
#define FRAMEWORK_TREEFILEITEM_H

#include <TreeItemBase.h>

namespace Qtilities {
namespace CoreGui {

class QTILITIES_CORE_EXPORT TreeFileItem : public TreeItemBase {
    Q_OBJECT

public:
    explicit TreeFileItem(const QString& file_path = QString(),
                          const QString& relative_to = QString(), bool watch = false);
    virtual QString filePath() const { return m_path; }
    QString fileName() const;
    QString suffix() const;
    QString completeSuffix() const;
    virtual bool exists() const;
    virtual QString relativeTo() const { return m_relativeTo; }

private:
    bool m_watched;
    QString m_relativeTo;
    QString m_path;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
