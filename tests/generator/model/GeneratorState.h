#ifndef TESTS_GENERATOR_MODEL_GENERATORSTATE_H
#define TESTS_GENERATOR_MODEL_GENERATORSTATE_H

#include <QString>
#include <QStringList>
#include <QVector>

/// The widgets of the generator window that its rules name. Each has the object name of its widget.
enum WidgetName {
    txtInputFile,
    BinFileSize,
    BinFilePages,
    BinFileBlocks,
    btnLoad,
    StatusBar,
    AuthoEditBox,
    MajorVerEditBox,
    MinorVerEditBox,
    CiNumEditBox,
    DescriptionMemo,
    ModuleComboBox,
    FpgaComboBox,
    ConfigComboBox,
    FunctionComboBox,
    ModifyFunctionCheckBox,
    btnRemove,
    EditFunctionName,
    AddNewFunction,
    UploadFunctionButton,
    AuthorFunctions,
    btnItsMe,
    DescriptionMemoFunctions,
    CiNumberEditBoxFunctions,
    finalSize,
    finalPages,
    finalBlocks,
    btnCancel,
    GenerateButton,
    WidgetCount,
    NoWidget = WidgetCount
};

/// What a person can see of one widget. A plain value.
struct WidgetState {
    WidgetState() : isEnabled(true), isVisible(false), isChecked(false), index(-1) {}

    QString text;
    bool isEnabled;
    bool isVisible;
    bool isChecked;
    /// Of a combo box.
    QStringList items;
    int index;
};

/// Everything that the generator window keeps between two actions. A plain value.
struct GeneratorState {
    GeneratorState();

    WidgetState widgets[WidgetCount];
    /// The widget that has the focus in the window.
    WidgetName focus;
    bool isVisible;
    /// Whether a path in the status line is shown as it is, and not as markup.
    bool statusIsPlain;
    /// Whether the pointer says that the window is busy, or a bar of progress is shown.
    bool isBusy;

    /// Four texts for each function: name, author, description, CI number.
    QVector<QString> functions;
    qint32 totalPages, totalBlocks, totalSize, binPages, binBlocks, binFileSize;
    qint32 moduleCode, deviceCode;

    WidgetState& operator[](WidgetName name) { return widgets[name]; }
    const WidgetState& operator[](WidgetName name) const { return widgets[name]; }

    /// Each part as "name = value", in an order that never changes.
    QStringList lines() const;
};

bool operator==(const GeneratorState& left, const GeneratorState& right);

const char* nameOf(WidgetName name);

#endif
