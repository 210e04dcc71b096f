#include "generator/model/GeneratorState.h"

namespace {

const char* const Names[WidgetCount + 1] = {"txtInputFile",
                                            "BinFileSize",
                                            "BinFilePages",
                                            "BinFileBlocks",
                                            "btnLoad",
                                            "StatusBar",
                                            "AuthoEditBox",
                                            "MajorVerEditBox",
                                            "MinorVerEditBox",
                                            "CiNumEditBox",
                                            "DescriptionMemo",
                                            "ModuleComboBox",
                                            "FpgaComboBox",
                                            "ConfigComboBox",
                                            "FunctionComboBox",
                                            "ModifyFunctionCheckBox",
                                            "btnRemove",
                                            "EditFunctionName",
                                            "AddNewFunction",
                                            "UploadFunctionButton",
                                            "AuthorFunctions",
                                            "btnItsMe",
                                            "DescriptionMemoFunctions",
                                            "CiNumberEditBoxFunctions",
                                            "finalSize",
                                            "finalPages",
                                            "finalBlocks",
                                            "btnCancel",
                                            "GenerateButton",
                                            "nothing"};

QString line(const char* name, const QString& value)
{
    return QString::fromLatin1("%1 = %2").arg(QString::fromLatin1(name), value);
}

QString described(const WidgetState& widget)
{
    QString text = QLatin1Char('"') + widget.text + QLatin1Char('"');
    text += QLatin1String(widget.isEnabled ? "" : " disabled");
    text += QLatin1String(widget.isVisible ? "" : " hidden");
    text += QLatin1String(widget.isChecked ? " checked" : "");
    if (!widget.items.isEmpty() || widget.index >= 0)
        text += QString::fromLatin1(" item %1 of [").arg(widget.index) +
                widget.items.join(QLatin1String("|")) + QLatin1Char(']');
    return text;
}

bool same(const WidgetState& left, const WidgetState& right)
{
    return left.text == right.text && left.isEnabled == right.isEnabled &&
           left.isVisible == right.isVisible && left.isChecked == right.isChecked &&
           left.items == right.items && left.index == right.index;
}

} // namespace

GeneratorState::GeneratorState()
    : focus(NoWidget), isVisible(false), statusIsPlain(false), isBusy(false), totalPages(0),
      totalBlocks(0), totalSize(0), binPages(0), binBlocks(0), binFileSize(0), moduleCode(0),
      deviceCode(0)
{
}

QStringList GeneratorState::lines() const
{
    QStringList lines;
    for (int name = 0; name < WidgetCount; ++name)
        lines << line(Names[name], described(widgets[name]));
    lines << line("focus", QLatin1String(Names[focus]));
    lines << line("window", QLatin1String(isVisible ? "visible" : "hidden"));
    lines << line("status", QLatin1String(statusIsPlain ? "plain" : "markup"));
    lines << line("pointer", QLatin1String(isBusy ? "busy" : "free"));
    lines << line("functions", QStringList(functions.toList()).join(QLatin1String("|")));
    const qint32 sizes[] = {totalPages, totalBlocks, totalSize, binPages, binBlocks, binFileSize};
    QStringList numbers;
    for (qint32 size : sizes)
        numbers << QString::number(size);
    lines << line("sizes", numbers.join(QLatin1String(" ")));
    lines << line("codes", QString::fromLatin1("%1 %2").arg(moduleCode).arg(deviceCode));
    return lines;
}

bool operator==(const GeneratorState& left, const GeneratorState& right)
{
    for (int name = 0; name < WidgetCount; ++name) {
        if (!same(left.widgets[name], right.widgets[name]))
            return false;
    }
    return left.focus == right.focus && left.isVisible == right.isVisible &&
           left.statusIsPlain == right.statusIsPlain && left.isBusy == right.isBusy &&
           left.functions == right.functions && left.totalPages == right.totalPages &&
           left.totalBlocks == right.totalBlocks && left.totalSize == right.totalSize &&
           left.binPages == right.binPages && left.binBlocks == right.binBlocks &&
           left.binFileSize == right.binFileSize && left.moduleCode == right.moduleCode &&
           left.deviceCode == right.deviceCode;
}

const char* nameOf(WidgetName name) { return Names[name]; }
