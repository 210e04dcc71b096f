#include "host/app/image/FileState.h"

#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/IDesign.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

using OrvanticCore::DesignFile;
using OrvanticCore::IDesign;

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(FileState)
};

} // namespace

QStringList FileState::reasonsOutdated(const DesignFile& file)
{
    QStringList reasons;
    const QFileInfo info(file.filePath());
    if (!file.isGenerated() || !info.exists())
        return reasons;

    const QFileInfo source(info.dir().filePath(info.completeBaseName() + ".bin"));
    if (source.exists() && source != info && source.lastModified() > info.lastModified())
        reasons << Texts::tr("%1 has changed since").arg(source.fileName());

    const IDesign* const design = file.design();
    const QString made = file.versionAssociation();
    if (design && !made.isEmpty() && made != design->versionString("."))
        reasons << Texts::tr("made for version %1, the design is at %2")
                       .arg(made, design->versionString("."));
    return reasons;
}
