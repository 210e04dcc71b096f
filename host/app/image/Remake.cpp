#include "host/app/image/Remake.h"

#include "fcf/FcfExactReader.h"
#include "host/app/common/HostError.h"
#include "host/app/image/ToolRun.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

QStringList Remake::run() const
{
    QStringList arguments{"create",    files.binary,
                          "--output",  files.image,
                          "--like",    files.image,
                          "--version", version,
                          "--module",  target.module,
                          "--device",  target.device,
                          "--config",  QString::number(target.slot),
                          "--force"};
    if (QFileInfo::exists(files.digest))
        arguments << "--digest";

    const ToolRun run = ToolRun::of(arguments);
    if (!run.errors.isEmpty())
        throw HostError(run.errors.join('\n'));
    return run.warnings;
}

ImageTarget Remake::presentTarget() const
{
    QFile file(files.image);
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return ImageTarget();

    const FcfExactReading reading = FcfExactReader::read(&file, QTextCodec::codecForLocale());
    return ImageTarget::of(reading.header);
}
