#include "generator/model/GeneratorStep.h"

#include <QStringList>
#include <QTextCodec>

namespace {

const char* const ActionNames[ActionCount] = {"TypeText",
                                              "TypePath",
                                              "FitPage",
                                              "ClickLoad",
                                              "MenuLoad",
                                              "MenuClear",
                                              "ClickGenerate",
                                              "ClickCancel",
                                              "ClickUpload",
                                              "ClickRemove",
                                              "ClickClearParameters",
                                              "ClickModify",
                                              "ClickItsMe",
                                              "ChooseModule",
                                              "ChooseDevice",
                                              "ConfigNumber",
                                              "ChooseFunction",
                                              "FoldFunctions",
                                              "ShowAgain",
                                              "NewWindow",
                                              "SetModule",
                                              "SetDevice",
                                              "SetConfigNum",
                                              "SetVersion",
                                              "SetAuthor",
                                              "SetCINumber",
                                              "SetDescription",
                                              "SetBinFile",
                                              "SetTxtFile",
                                              "ReplaceByTxtFile",
                                              "ClearScreen",
                                              "ReadConfigFile",
                                              "DisplayConfigFileInfo",
                                              "DisplayBinFileSizeInfo",
                                              "SaveToFile",
                                              "UpdateConfigData",
                                              "DisplayFunctionInfo",
                                              "CheckFunction",
                                              "AddFunction",
                                              "UpdateComboBoxFpga",
                                              "MakeBinary",
                                              "MakeCompanion",
                                              "CutFile",
                                              "MakeFolder",
                                              "MakePipe",
                                              "MakeLink",
                                              "RemoveFile"};

// Extensions elsewhere than at the end, folders with extensions, and names that are nearly equal.
const char* const Paths[] = {"top.bin",
                             "second.bin",
                             "a.bin.d/inner.bin",
                             "b.bin.d/lonely.bin",
                             "x.bin.tar",
                             "my.binary.bin",
                             "plain",
                             "UPPER.BIN",
                             "notes.txt.bin",
                             "own.bin",
                             "<i>\xC3\xA9 &amp; \xE9\x9B\xB7.bin",
                             "top.txt",
                             "second.txt",
                             "a.txt.d/inner.txt",
                             "notes.txt.txt",
                             "old.txt",
                             "older.txt.fcf",
                             "<i>\xC3\xA9 &amp; \xE9\x9B\xB7.txt",
                             "top.fcf",
                             "second.fcf",
                             "own.fcf",
                             "own.txt",
                             "missing/none.bin",
                             "missing.txt",
                             "a.bin.d",
                             "a.fcf.d",
                             "a.txt.d",
                             "",
                             " ",
                             "plain.txt",
                             "top.bin.bin",
                             "TOP.TXT"};
const int PathCount = sizeof Paths / sizeof *Paths;

QByteArray patterned(int bytes, int seed)
{
    QByteArray content(bytes, '\0');
    for (int i = 0; i < bytes; ++i)
        content[i] = static_cast<char>((i * 7 + i / 251 + seed) % 256);
    return content;
}

/// More than 16 MiB, with holes that a copy keeps.
QByteArray huge(int seed)
{
    QByteArray content(17 * 1024 * 1024 + seed, '\0');
    content.replace(0, 100, patterned(100, seed));
    content.replace(content.size() - 100, 100, patterned(100, seed + 1));
    return content;
}

QByteArray word(qint32 number)
{
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(static_cast<quint32>(number) >> shift & 0xFF);
    return bytes;
}

QString functionLines(int number, int function)
{
    const QString kind = QString::fromUtf8("%1").arg(32 * (number % 997) + function);
    const QString texts[] = {
        QString::fromUtf8("loaded %1").arg(kind),
        QString::fromUtf8("\xE2\x80\x83 wide %1\xC2\xA0").arg(kind),
        QString::fromUtf8("x: %1: y").arg(kind),
        QString::fromUtf8("%1 -- \xC3\xA9").arg(kind),
        QString(),
        QString::fromUtf8("<b>%1</b>").arg(kind),
        QString::fromUtf8("name").append(QString::number(number % 3)),
    };
    const int count = sizeof texts / sizeof *texts;
    const auto text = [&texts, number, function](int part) {
        return texts[(number / 64 + 3 * function + part) % count];
    };
    QString description = text(3);
    if (number % 3 == 0)
        description += QString::fromUtf8("\n second %1 \n\nlast: %1").arg(kind);
    return QString::fromUtf8("Function name: %1\nFunction author: %2\nFunction CI No: %3\n"
                             "Function description: %4\n---\n")
        .arg(number % 19 == 0 ? texts[count - 1] : text(0), text(1), text(2), description);
}

QString descriptionOf(int number)
{
    const QString mark = QString::number(number);
    switch (number % 8) {
    case 0:
        return QString::fromUtf8("one %1").arg(mark);
    case 1:
        return QString::fromUtf8(" Rev: B: %1\nsecond: line\n last %1 ").arg(mark);
    case 2:
        return QString((1 + number % 5), QLatin1Char('\n')) + QString(1200, QLatin1Char('d')) +
               mark;
    case 3:
        return QString(980 + number % 41, QLatin1Char('e'));
    case 4:
        return QString();
    case 5:
        return QString::fromUtf8("\n\n<b>%1</b>\n\nend\n").arg(mark);
    case 6:
        return QString(1500, QLatin1Char('\n')) + QString(1100, QLatin1Char('f')) + mark;
    default:
        return QString::fromUtf8("%1 \xC3\xA9\n\xE2\x80\x83 x").arg(mark);
    }
}

/// \p text with one of the marks of the format where a text may have it, by \p kind.
QString withMarksInPlaces(QString text, int kind)
{
    const QLatin1String description("Description: ");
    switch (kind) {
    case 20:
        return text.replace(description, QLatin1String("Description: first\nin --- it\n"));
    case 21:
        return text.replace(description, QLatin1String("Description: first\n--- at its start\n"));
    case 22:
        return text.replace(QLatin1String("Function name: "),
                            QLatin1String("Function name: x----"));
    case 23:
        return text.replace(QLatin1String("Filename: "), QLatin1String("The Filename: "));
    case 24:
        return text.replace(description, QLatin1String("Description:without a blank"));
    case 25:
        return text.remove(QLatin1String("----\n")).remove(QLatin1String("----"));
    case 27:
        return text.replace(description, QLatin1String("Description: in --- it\n"));
    default:
        return text;
    }
}

} // namespace

const char* nameOf(Action action) { return ActionNames[action]; }

Reaction::Reaction(quint32 plan, int number) : answer(ClickYes), deed(Nothing)
{
    const quint32 bits = number < 4 ? plan >> (8 * number) & 0xFF : 0;
    answer = static_cast<Answer>(bits & 3);
    deed = static_cast<Deed>((bits >> 4) % DeedCount);
}

QString moduleOf(int number)
{
    static const char* const Modules[] = {"DFE", "DFE2", "GPM", "dfe", ""};
    return QString::fromLatin1(Modules[qAbs(number) % 5]);
}

QString deviceOf(int number)
{
    static const char* const Devices[] = {
        "Interface_FPGA",      "Processing_FPGA_1", "Processing_FPGA_2", "Processing_FPGA_3",
        "Clock_Master_Device", "Processing_FPGA",   "interface_fpga"};
    return QString::fromLatin1(Devices[qAbs(number) % 7]);
}

QString textOf(int number, bool oneLine)
{
    const int mark = number / 32;
    const QString unique = QString::fromLatin1("t%1").arg(mark);
    QString text;
    switch (number % 32) {
    case 1:
        break;
    case 2:
        text = QString::fromUtf8("  %1 \t").arg(unique);
        break;
    case 3:
        text = QString::fromUtf8("\xE2\x80\x83%1\xC2\xA0").arg(unique);
        break;
    case 4:
        text = QString::fromUtf8("%1: a: b").arg(unique);
        break;
    case 5:
        text = QString::fromUtf8("%1:c").arg(unique);
        break;
    case 6:
        text = QString::fromUtf8("a---%1").arg(unique);
        break;
    case 7:
        text = QString::fromUtf8("%1----z").arg(unique);
        break;
    case 8:
        text = QString::fromUtf8("Zo\xC3\xAB \xE9\x9B\xB7 \xF0\x9F\x9B\xB0 %1").arg(unique);
        break;
    case 9:
        text = QString::fromUtf8("<b>%1</b> &amp;").arg(unique);
        break;
    case 10:
        text = QString(1 + mark % 5, QLatin1Char(' '));
        break;
    case 11:
        text = unique + QString(30 + mark % 60, QLatin1Char('x'));
        break;
    case 12:
        text = QString::fromUtf8("%1\nline two %1\n\nlast %1").arg(unique);
        break;
    case 13:
        text = QString(990 + mark % 25, QLatin1Char('y')) + unique;
        break;
    case 14:
        text = QString(400 + mark % 1800, QLatin1Char('z')) + QLatin1Char('\n') + unique;
        break;
    case 15:
        text = QString::fromUtf8("\n\n%1\n ").arg(unique);
        break;
    case 16:
        text = QString::fromUtf8("Filename %1").arg(unique);
        break;
    case 17:
        text = QString::number(mark);
        break;
    case 18:
        text = QString::fromUtf8("%1.5").arg(mark % 10);
        break;
    case 19:
        text = QString::fromUtf8("-%1").arg(mark % 100);
        break;
    case 20:
        text = QString::fromUtf8("0%1").arg(mark % 100);
        break;
    case 21:
        text = QString::fromUtf8(" %1").arg(mark % 10);
        break;
    case 22: // Few, so that names are equal.
        text = QString::fromUtf8("name%1").arg(mark % 3);
        break;
    case 23:
        text = QString::fromUtf8("NAME%1").arg(mark % 3);
        break;
    default:
        text = unique;
    }
    return oneLine ? text.replace(QLatin1Char('\n'), QLatin1Char(' ')) : text;
}

QString pathOf(int number) { return QString::fromUtf8(Paths[qAbs(number) % PathCount]); }

int pathCount() { return PathCount; }

QByteArray binaryOf(int number)
{
    static const int Sizes[BinaryKinds - 2] = {0,      1,      1023,   1024,   2112,   2113,
                                               133056, 133057, 135168, 135169, 270336, 4096};
    const int kind = qAbs(number) % BinaryKinds;
    if (kind == BinaryKinds - 1)
        return huge(qAbs(number) % 1009);
    return patterned(kind == BinaryKinds - 2 ? 3000 + qAbs(number) % 1009 : Sizes[kind],
                     qAbs(number) % 1009);
}

QByteArray companionOf(int number)
{
    number = qAbs(number);
    static const qint32 ModuleCodes[] = {1, 2, 2, 1, 3, 0};
    static const qint32 DeviceCodes[] = {1, 2, 4, 8, 16, 0, -1};
    static const qint32 Slots[] = {3, 10, 0, 11, -5, 7, 1};
    static const qint32 Versions[] = {12, 123, 1234, -12, -123, 0, 7};
    QByteArray bytes;
    // Numbers that no binary of the test has.
    for (int i = 0; i < 6; ++i)
        bytes += word(1000000 + 10000 * i + number % 9973);
    bytes += word(ModuleCodes[number % 6]) + word(DeviceCodes[number % 7]) +
             word(Slots[number / 7 % 7]) + word(Versions[number / 5 % 7]) +
             word(Versions[number / 11 % 7]) + QByteArray(20, '\xFF');

    const QString mark = QString::number(number);
    const bool isIncompatible = number % 9 == 8;
    QString text =
        QString::fromUtf8(isIncompatible ? "\nFile: top%1\n" : "\nFilename: top%1\n").arg(mark);
    const bool lacksSeparator = number % 13 == 12;
    text += QString::fromUtf8(lacksSeparator ? "CI No %1\nAuthor %1\n"
                                             : "CI No:  ci %1: x\nAuthor: \xE2\x80\x83"
                                               "au %1 \n")
                .arg(mark);
    text += QString::fromUtf8("Date: 1.2.%1\nTime: 3:4\nDescription: ").arg(mark) +
            descriptionOf(number / 4) + QString::fromUtf8("\n---\n");
    for (int function = 0; function < number / 16 % 4; ++function)
        text += functionLines(number, function);
    text += QString::fromUtf8(number % 17 == 16 ? "----" : "----\n");
    text = withMarksInPlaces(text, number % 29);
    if (number % 5 == 4)
        text.replace(QLatin1String("\n"), QLatin1String("\r\n"));
    bytes += QTextCodec::codecForLocale()->fromUnicode(text);
    if (number % 3 == 1)
        bytes += patterned(50 + number % 100, number);
    return bytes;
}
