#ifndef HOST_APP_DESIGNROWS_H
#define HOST_APP_DESIGNROWS_H

#include "host/app/DesignModel.h"

#include <QList>
#include <QPointer>
#include <QStandardItem>

namespace OrvanticCore {
class Design;
class DesignFile;
class DesignFolder;
} // namespace OrvanticCore

namespace Qtilities {
namespace CoreGui {
class TreeNode;
}
} // namespace Qtilities

/// The rows of the design model: their texts, icons and subjects.
namespace DesignRows {

using Row = QList<QStandardItem*>;

Row forDesign(OrvanticCore::Design* design);
void refresh(const Row& row, const OrvanticCore::Design& design);
void refresh(const Row& row, const OrvanticCore::DesignFile& file);
void refresh(const Row& row, const OrvanticCore::DesignFolder& folder);

/// Adds the nodes, files and folders of \p design under \p top.
void fill(QStandardItem* top, const OrvanticCore::Design& design);

/// The names of the nodes below \p node, from the top.
QStringList nodeNames(const Qtilities::CoreGui::TreeNode* node);

/// The subject of a row if it is a Subject, else null.
template <class Subject>
Subject* subjectOf(const QModelIndex& index)
{
    const QVariant subject = index.siblingAtColumn(0).data(DesignModel::SubjectRole);
    return qobject_cast<Subject*>(subject.value<QPointer<QObject>>().data());
}

QString keyOf(const OrvanticCore::Design& design);
QString keyOf(const OrvanticCore::DesignFile& file);

} // namespace DesignRows

#endif
