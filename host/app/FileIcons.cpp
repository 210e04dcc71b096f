#include "host/app/FileIcons.h"

#include <QApplication>
#include <QFileInfo>
#include <QStyle>

namespace {

QIcon standard(QStyle::StandardPixmap pixmap)
{
    return QApplication::style()->standardIcon(pixmap);
}

} // namespace

QIcon FileIcons::forFile(const QString& fileName)
{
    const QString own = QString(":/icons/file-%1.png").arg(QFileInfo(fileName).suffix().toLower());
    return QFile::exists(own) ? QIcon(own) : standard(QStyle::SP_FileIcon);
}

QIcon FileIcons::forMissing() { return standard(QStyle::SP_MessageBoxWarning); }

QIcon FileIcons::forInvalid() { return standard(QStyle::SP_MessageBoxCritical); }

QIcon FileIcons::forOutdated() { return standard(QStyle::SP_MessageBoxWarning); }

QIcon FileIcons::forNode() { return standard(QStyle::SP_DirIcon); }

QIcon FileIcons::forFolder() { return standard(QStyle::SP_DirLinkIcon); }
