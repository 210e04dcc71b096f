// How the window gets its input: the binary, and the description of an earlier build.

#include "generator/model/GeneratorModel.h"

#include <QTextCodec>

namespace {

const int NumberCount = 11;

qint32 wordAt(const QByteArray& bytes, int offset)
{
    if (offset + 4 > bytes.size())
        return 0;
    quint32 word = 0;
    for (int i = 0; i < 4; ++i)
        word = word << 8 | static_cast<uchar>(bytes.at(offset + i));
    return static_cast<qint32>(word);
}

/// Between the first and the second \p separator.
QString valueAt(const char* separator, const QString& line)
{
    return line.split(QLatin1String(separator)).value(1);
}

bool endsRecord(const QString& line) { return line.contains(QLatin1String("---")); }

} // namespace

/// The lines behind the numbers.
struct GeneratorModel::Lines {
    explicit Lines(const QByteArray& bytes) : rest(bytes), isAtEnd(false) {}

    QString take()
    {
        isAtEnd = isAtEnd || rest.isEmpty();
        const int end = rest.indexOf('\n');
        QByteArray line = end < 0 ? rest : rest.left(end);
        rest = end < 0 ? QByteArray() : rest.mid(end + 1);
        if (end >= 0 && line.endsWith('\r'))
            line.chop(1);
        return QTextCodec::codecForLocale()->toUnicode(line);
    }

    QByteArray rest;
    /// Whether a line was taken that is not there.
    bool isAtEnd;
};

void GeneratorModel::openFileDialog()
{
    const QString start = form[txtInputFile].text;
    const QString path =
        choose(QString::fromLatin1("file dialog \"Select Bin File\" for \"Xilinx Binary "
                                   "Configuration Files (*.bin)\", parent window, at %1")
                   .arg(disk.isFile(start) ? disk.root + QLatin1Char('/') + disk.key(start)
                                           : QString::fromLatin1("?")));
    if (path.isEmpty()) {
        setStatus(QLatin1String("Failed to load *.bin file"), true);
        return;
    }
    setText(txtInputFile, path);
    setStatus(QLatin1String("Loaded ") + form[txtInputFile].text + QLatin1String(" successfully."),
              true);
    displayBinFileSizeInfo(path);
}

void GeneratorModel::fileOpenAccept()
{
    clearItems(FunctionComboBox);
    form[btnRemove].isEnabled = false;
    clearScreen();
    form.functions.clear();
    setText(txtInputFile,
            choose(QString::fromLatin1("file dialog \"Open Document\" for \"Document files "
                                       "(*.txt)\", parent window, at %1/")
                       .arg(disk.root)));
    const QString path = form[txtInputFile].text;
    readConfigFile(path);
    displayConfigFileInfo(path);
}

void GeneratorModel::setTxtFile(const QString& path)
{
    setText(txtInputFile, path);
    readConfigFile(path);
    displayConfigFileInfo(path);
    clearFunctionFields();
}

void GeneratorModel::replaceByTxtFile(const QString& path)
{
    setText(txtInputFile, path);
    load(path, true);
    displayConfigFileInfo(path);
    clearFunctionFields();
}

void GeneratorModel::displayConfigFileInfo(const QString& path)
{
    QString binary = path;
    setText(txtInputFile, binary.replace(QLatin1String(".txt"), QLatin1String(".bin")));
}

void GeneratorModel::showLoadingFailed()
{
    setStatus(QLatin1String("<font color='red'>Loading ") + form[txtInputFile].text +
              QLatin1String(" failed.</font>"));
}

void GeneratorModel::logLoadingFailed(const QString& path, const QString& reason)
{
    if (!path.isEmpty())
        log(8, QString::fromLatin1("\"%1\" cannot be loaded: %2.").arg(path, reason));
}

bool GeneratorModel::load(const QString& path, bool replacing)
{
    setEditable(false);

    if (!disk.isFile(path)) {
        showLoadingFailed();
        logLoadingFailed(path, disk.whyNotRead(path));
        return false;
    }

    const QByteArray bytes = disk.bytes(path);
    Lines lines(bytes.mid(4 * NumberCount));
    lines.take();
    const bool isCompatible = lines.take().contains(QLatin1String("Filename"));
    if (replacing && isCompatible) {
        clearScreen();
        setText(txtInputFile, path);
    }
    // List and memory agree, whatever the file is.
    if (replacing)
        clearItems(FunctionComboBox);
    form.functions.clear();
    form[ModifyFunctionCheckBox].isEnabled = true;

    QVector<qint32> numbers;
    for (int i = 0; i < NumberCount; ++i)
        numbers << wordAt(bytes, 4 * i);
    showNumbers(numbers);

    if (!isCompatible) {
        inform(QLatin1String("please select a correct text file,the selected file is not "
                             "compartable with this programme "));
        return false;
    }

    if (!readTexts(&lines)) {
        showLoadingFailed();
        logLoadingFailed(path, QString::fromLatin1("it ends before the end mark of its text"));
        return false;
    }
    setStatus(QLatin1String("<font color='green'>Loaded ") + form[txtInputFile].text +
              QLatin1String(" successfully.</font>"));
    return true;
}

void GeneratorModel::showNumbers(const QVector<qint32>& numbers)
{
    form[finalPages].text = QString::number(numbers[0]) + QLatin1String(" Pages");
    form[finalBlocks].text = QString::number(numbers[1]) + QLatin1String(" Blocks");
    form[finalSize].text = QString::number(numbers[2]) + QLatin1String(" bytes");
    form[BinFilePages].text = QString::number(numbers[3]) + QLatin1String(" Pages");
    form[BinFileBlocks].text = QString::number(numbers[4]) + QLatin1String(" Blocks");
    form[BinFileSize].text = QString::number(numbers[5]) + QLatin1String(" bytes");
    selectTarget(numbers[6], numbers[7]);
    select(ConfigComboBox, numbers[8] < 1 ? -1 : numbers[8] - 1);
    setVersion(numbers[9], numbers[10]);
}

void GeneratorModel::selectTarget(qint32 module, qint32 device)
{
    if (module != 1 && module != 2)
        return;
    select(ModuleComboBox, module == 1 ? 1 : 0);
    if (device == 1)
        select(FpgaComboBox, 0);
    else if (device == 2)
        select(FpgaComboBox, 1);
    else if (device == 4)
        select(FpgaComboBox, 2);
    else if (device == 8 && module == 2)
        select(FpgaComboBox, 3);
}

bool GeneratorModel::readTexts(Lines* lines)
{
    setText(CiNumEditBox, valueAt(": ", lines->take()).trimmed());
    setText(AuthoEditBox, valueAt(": ", lines->take()).trimmed());
    lines->take();
    lines->take();

    QStringList paragraphs;
    QString text = valueAt(":", lines->take()).trimmed();
    while (!endsRecord(text) && !lines->isAtEnd) {
        paragraphs << text;
        text = lines->take();
    }
    appendDescription(paragraphs);
    if (lines->isAtEnd)
        return false;

    QString line = lines->take();
    while (!line.contains(QLatin1String("----"))) {
        if (lines->isAtEnd || !readFunction(line, lines))
            return false;
        line = lines->take();
    }
    return true;
}

void GeneratorModel::appendDescription(const QStringList& paragraphs)
{
    // As one change, so that a text that is too long is reported once.
    QString text = form[DescriptionMemo].text;
    for (const QString& paragraph : paragraphs)
        text = text.isEmpty() ? paragraph : text + QLatin1Char('\n') + paragraph;
    setText(DescriptionMemo, text);
}

bool GeneratorModel::readFunction(const QString& first, Lines* lines)
{
    const QString name = valueAt(": ", first);
    addItem(FunctionComboBox, name);
    form[btnRemove].isEnabled = true;
    setText(EditFunctionName, name.trimmed());
    setText(AuthorFunctions, valueAt(": ", lines->take()).trimmed());
    setText(CiNumberEditBoxFunctions, valueAt(":", lines->take()));

    QString description;
    QString text = valueAt(": ", lines->take());
    while (!endsRecord(text) && !lines->isAtEnd) {
        description += text;
        text = lines->take();
    }
    setText(DescriptionMemoFunctions, description);
    addFunction();
    return !lines->isAtEnd;
}
