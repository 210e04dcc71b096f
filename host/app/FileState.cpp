#include "host/app/FileState.h"

#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/IDesign.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

using OrvanticCore::DesignFile;
using OrvanticCore::IDesign;

namespace {

QString tr(const char* text) { return QCoreApplication::translate("FileState", text); }

} // namespace

QStringList FileState::reasonsOutdated(const DesignFile& file)
{
    QStringList reasons;
    const QFileInfo info(file.filePath());
    if (!file.isGenerated() || !info.exists())
        return reasons;
    const QFileInfo source(info.dir().filePath(info.completeBaseName() + ".bin"));
    if (source.exists() && source != info && source.lastModified() > info.lastModified())
        reasons << tr("%1 has changed since").arg(source.fileName());
    const IDesign* const design = file.design();
    const QString made = file.versionAssociation();
    if (design && !made.isEmpty() && made != design->versionString("."))
        reasons
            << tr("made for version %1, the design is at %2").arg(made, design->versionString("."));
    return reasons;
}

QStringList FileState::words(const DesignFile& file)
{
    QStringList words;
    if (file.isGenerated())
        words << tr("Generated");
    if (!reasonsOutdated(file).isEmpty())
        words << tr("Outdated");
    if (!file.exists())
        words << tr("Missing");
    return words;
}

QString FileState::toolTip(const DesignFile& file)
{
    const QFileInfo info(file.filePath());
    QStringList lines{QDir::toNativeSeparators(file.filePath()).toHtmlEscaped()};
    if (!info.exists())
        lines << tr("There is no such file on the disk.");
    else
        lines << tr("%1, changed %2")
                     .arg(QLocale().formattedDataSize(info.size()),
                          QLocale().toString(info.lastModified(), QLocale::ShortFormat));
    const QStringList reasons = reasonsOutdated(file);
    if (!reasons.isEmpty())
        lines << tr("<b>Outdated</b>: %1. Generate it again.")
                     .arg(reasons.join("; ").toHtmlEscaped());
    return "<p style='white-space:pre'>" + lines.join("<br>") + "</p>";
}
