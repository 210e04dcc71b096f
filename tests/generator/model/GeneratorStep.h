#ifndef TESTS_GENERATOR_MODEL_GENERATORSTEP_H
#define TESTS_GENERATOR_MODEL_GENERATORSTEP_H

#include <QString>
#include <QVector>

/// What a step of a sequence does. Those of a person do nothing with a widget that is disabled.
enum Action {
    // A person; a hidden window is shown first. TEXT and PATH are numbers of textOf() and pathOf().
    TypeText,  // a: widget, b: TEXT
    TypePath,  // a: PATH, into txtInputFile
    FitPage,   // a: how many bytes more than a page the header shall have, less 8
    ClickLoad, // a: PATH
    MenuLoad,  // a: PATH
    MenuClear,
    ClickGenerate,
    ClickCancel,
    ClickUpload,
    ClickRemove,
    ClickClearParameters,
    ClickModify,
    ClickItsMe,
    ChooseModule,   // a: row
    ChooseDevice,   // a: row
    ConfigNumber,   // a: row
    ChooseFunction, // a: row
    FoldFunctions,
    ShowAgain,
    NewWindow, // a: whether it deletes itself when it is closed; it is not shown

    // The rest of the plug-in. A PATH is absolute where b is odd.
    SetModule,        // a: module or another text
    SetDevice,        // a: device or another text
    SetConfigNum,     // a: number
    SetVersion,       // a, b: numbers
    SetAuthor,        // b: TEXT
    SetCINumber,      // b: TEXT
    SetDescription,   // b: TEXT
    SetBinFile,       // a: PATH
    SetTxtFile,       // a: PATH
    ReplaceByTxtFile, // a: PATH
    ClearScreen,
    ReadConfigFile,         // a: PATH
    DisplayConfigFileInfo,  // a: PATH
    DisplayBinFileSizeInfo, // a: PATH
    SaveToFile,             // a: PATH
    UpdateConfigData,
    DisplayFunctionInfo, // a: row
    CheckFunction,
    AddFunction,
    UpdateComboBoxFpga,

    // The disk.
    MakeBinary,    // a: PATH, b: size
    MakeCompanion, // a: PATH, b: what is special about it
    CutFile,       // a: PATH, b: thousandths of it that stay
    MakeFolder,    // a: PATH
    MakePipe,      // a: PATH
    MakeLink,      // a: PATH, to PATH b
    RemoveFile,    // a: PATH
    ActionCount
};

/// One step: an action with its three numbers. Any of them are harmless in any state.
struct Step {
    Action action;
    int a;
    int b;
    /// What happens at each box, file dialog or signal of the step: eight bits for each, the lowest
    /// for the first. See Reaction.
    quint32 plan;
};

/// The name of \p action in a sequence.
const char* nameOf(Action action);

/// What is done while a box, a file dialog or the signal is open, and how it is answered.
struct Reaction {
    enum Answer { ClickYes, ClickNo, PressEscape, PressEnter };
    enum Deed {
        Nothing,
        EditAuthor,
        RenameFunction,
        EditFunctionAuthor,
        EditFunctionDescription,
        EditFunctionNumber,
        EditInputFile,
        EditMajorVersion,
        ChangeSlot,
        ChangeModule,
        CloseWindow,
        DeleteWindow,
        RemoveBinary,
        BlockCompanion,
        ReplaceBinary,
        DeedCount
    };

    Reaction(quint32 plan, int number);

    Answer answer;
    Deed deed;
};

/// Text number \p number: in its lowest five bits what is special about it, above them what makes
/// it unlike all others. Texts with line feeds have none in \p oneLine.
QString textOf(int number, bool oneLine);
const int TextKinds = 24;

/// Module number \p number, some of which are none; and the same of devices.
QString moduleOf(int number);
QString deviceOf(int number);

/// Path number \p number, relative to the working folder.
QString pathOf(int number);
int pathCount();

/// The content of a binary, by the number that says its size.
QByteArray binaryOf(int number);
const int BinaryKinds = 14;

/// A header page with what the bits of \p number say, with or without a payload.
QByteArray companionOf(int number);

#endif
