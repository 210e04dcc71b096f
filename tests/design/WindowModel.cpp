#include "design/WindowModel.h"

#include <QFileInfo>

namespace {

const char NotCompatible[] = "please select a correct text file,the selected file is not "
                             "compartable with this programme ";
const char TooLong[] =
    "The Description can not be more 1000 characters long The description is too long";

int pagesOf(int bytes)
{
    const int all = (bytes + 2111) / 2112;
    return all <= 64 ? all : all - all / 64 * 64;
}

int blocksOf(int bytes)
{
    const int all = (bytes + 2111) / 2112;
    return all <= 64 ? 0 : all / 64;
}

QString number(int value, const char* unit) { return QString::number(value) + QLatin1String(unit); }

} // namespace

PageNumbers PageNumbers::ofCompanion()
{
    const PageNumbers numbers = {11, 12, 13013, 14, 15, 16016, 2, 4, 6, 21, 22};
    return numbers;
}

PageNumbers PageNumbers::ofForeignFile()
{
    const PageNumbers numbers = {31, 32, 33033, 34, 35, 36036, 1, 2, 9, 41, 42};
    return numbers;
}

WindowModel::WindowModel()
    : module(QLatin1String("DFE")), device(QLatin1String("Interface_FPGA")), configIndex(0),
      binSize(QLatin1String("size")), binPages(QLatin1String("pages")),
      binBlocks(QLatin1String("file blocks")), editorEnabled(true), modifyEnabled(false),
      minimized(false)
{
}

QStringList WindowModel::devicesOf(const QString& module)
{
    QStringList devices;
    if (module == QLatin1String("DFE"))
        devices << QLatin1String("Interface_FPGA") << QLatin1String("Processing_FPGA_1")
                << QLatin1String("Clock_Master_Device");
    else if (module == QLatin1String("DFE2"))
        devices << QLatin1String("Processing_FPGA");
    else if (module == QLatin1String("GPM"))
        devices << QLatin1String("Interface_FPGA") << QLatin1String("Processing_FPGA_1")
                << QLatin1String("Processing_FPGA_2") << QLatin1String("Processing_FPGA_3");
    return devices;
}

void WindowModel::setModule(const QString& text)
{
    const QStringList modules = QStringList() << QLatin1String("DFE") << QLatin1String("DFE2")
                                              << QLatin1String("GPM");
    if (text == module || !modules.contains(text))
        return;
    module = text;
    device = devicesOf(module).first();
}

void WindowModel::setDevice(const QString& text)
{
    if (devicesOf(module).contains(text))
        device = text;
}

void WindowModel::setConfigNum(int config)
{
    if (config >= 1 && config <= 10)
        configIndex = config - 1;
}

void WindowModel::setVersion(int first, int second)
{
    major = QString::number(first).left(3);
    minor = QString::number(second).left(3);
}

void WindowModel::setAuthor(const QString& text) { author = text.left(20); }

QString WindowModel::setDescription(const QString& text)
{
    description = text.left(1000);
    return text.length() > 1000 ? QLatin1String(TooLong) : QString();
}

void WindowModel::setBinFile(const ModelFile& file)
{
    path = file.path;
    binSize = number(file.bytes, "  Bytes");
    binPages = number(pagesOf(file.bytes), " Pages");
    binBlocks = number(blocksOf(file.bytes), " blocks");
}

QString WindowModel::setTxtFile(const ModelFile& file)
{
    QString box;
    if (file.kind == ModelFile::Missing) {
        path = file.path;
        status = QString::fromLatin1("<font color='red'>Loading %1 failed.</font>").arg(path);
    } else if (file.kind == ModelFile::Companion) {
        takeCompanion();
        status = QString::fromLatin1("<font color='green'>Loaded %1 successfully.</font>")
                     .arg(file.path);
        modifyEnabled = true;
    } else {
        takeNumbers(PageNumbers::ofForeignFile());
        // The list shows nothing when it is emptied.
        if (!functions.isEmpty())
            functionName.clear();
        functions.clear();
        modifyEnabled = true;
        box = QLatin1String(NotCompatible);
    }
    editorEnabled = false;
    path = file.path;
    return box;
}

void WindowModel::finishTxtFile()
{
    path.replace(QLatin1String(".txt"), QLatin1String(".bin"));
    functionName.clear();
}

void WindowModel::takeNumbers(const PageNumbers& page)
{
    finalPages = number(page.totalPages, " Pages");
    finalBlocks = number(page.totalBlocks, " Blocks");
    finalSize = number(page.totalSize, " bytes");
    binPages = number(page.binPages, " Pages");
    binBlocks = number(page.binBlocks, " Blocks");
    binSize = number(page.binFileSize, " bytes");
    // The codes select by place: 1 the second module, 2 the first; 1, 2 and 4 a device.
    setModule(QLatin1String(page.module == 1 ? "DFE2" : "DFE"));
    const QStringList devices = devicesOf(module);
    const int index = page.device == 1 ? 0 : page.device == 2 ? 1 : 2;
    device = devices.value(index);
    configIndex = page.config - 1;
    major = QString::number(page.major);
    minor = QString::number(page.minor);
}

void WindowModel::takeCompanion()
{
    clear();
    takeNumbers(PageNumbers::ofCompanion());
    ciNumber = QLatin1String("CI of file");
    author = QLatin1String("Author of file");
    description = QLatin1String("First of file\nSecond of file");
    functions = QStringList() << QLatin1String("filter") << QLatin1String("mixer");
}

void WindowModel::clear()
{
    path.clear();
    author.clear();
    ciNumber.clear();
    major.clear();
    minor.clear();
    description.clear();
    functions.clear();
    functionName.clear();
    status.clear();
    binSize.clear();
    binPages.clear();
    binBlocks.clear();
    finalSize.clear();
    finalPages.clear();
    finalBlocks.clear();
}

QStringList WindowModel::state() const
{
    QStringList lines;
    lines << QLatin1String("path ") + path << QLatin1String("author ") + author
          << QLatin1String("version ") + major + QLatin1Char('.') + minor
          << QLatin1String("CI ") + ciNumber << QLatin1String("description ") + description
          << QLatin1String("target ") + module + QLatin1Char('/') + device + QLatin1Char('/') +
                 QString::number(configIndex)
          << QLatin1String("devices ") + devicesOf(module).join(QLatin1String(", "))
          << QString::fromLatin1("functions %1: ").arg(functions.count()) +
                 functions.join(QLatin1String(", "))
          << QLatin1String("function ") + functionName << QLatin1String("status ") + status
          << QLatin1String("binary ") + binSize + binPages + binBlocks
          << QLatin1String("image ") + finalSize + finalPages + finalBlocks;
    lines << QString::fromLatin1("editor %1 modify %2 minimized %3")
                 .arg(editorEnabled)
                 .arg(modifyEnabled)
                 .arg(minimized);
    return lines;
}
