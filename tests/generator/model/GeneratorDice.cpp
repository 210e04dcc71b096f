#include "generator/model/GeneratorDice.h"

namespace {

/// More numbers than any run draws, so that texts are equal on purpose alone.
const int Marks = 1 << 20;

// The fields of TypeText.
enum Field {
    Author,
    CiNumber,
    FunctionName,
    FunctionAuthor,
    FunctionDescription,
    FunctionNumber,
    Description
};

const Action Rare[] = {SetModule,
                       SetDevice,
                       SetConfigNum,
                       SetVersion,
                       SetAuthor,
                       SetCINumber,
                       SetDescription,
                       SetBinFile,
                       SetTxtFile,
                       ReplaceByTxtFile,
                       ClearScreen,
                       ReadConfigFile,
                       DisplayConfigFileInfo,
                       DisplayBinFileSizeInfo,
                       SaveToFile,
                       UpdateConfigData,
                       DisplayFunctionInfo,
                       CheckFunction,
                       AddFunction,
                       UpdateComboBoxFpga};
const int RareCount = sizeof Rare / sizeof *Rare;

} // namespace

QVector<Step> GeneratorDice::sequence(int count)
{
    m_steps.clear();
    if (oneIn(4)) {
        add(NewWindow, below(2));
        if (oneIn(2))
            addScene();
    }
    while (m_steps.size() < count) {
        if (oneIn(2))
            addScene();
        else
            addAny();
    }
    return m_steps;
}

int GeneratorDice::text()
{
    const int kind = oneIn(3) ? 0 : below(TextKinds);
    return 32 * below(Marks) + kind;
}

int GeneratorDice::functionName() { return oneIn(2) ? 32 * below(Marks) + 22 : text(); }

int GeneratorDice::binaryPath() { return oneIn(3) ? below(pathCount()) : below(11); }

int GeneratorDice::companionPath() { return oneIn(6) ? below(pathCount()) : 11 + below(7); }

quint32 GeneratorDice::plan()
{
    quint32 plan = 0;
    for (int i = 0; i < 4; ++i) {
        const quint32 answer = oneIn(3) ? static_cast<quint32>(below(4)) : 0;
        const quint32 deed = oneIn(3) ? static_cast<quint32>(below(Reaction::DeedCount)) : 0;
        plan |= (answer | deed << 4) << (8 * i);
    }
    return plan;
}

void GeneratorDice::add(Action action, int a, int b)
{
    const Step step = {action, a, b, plan()};
    m_steps << step;
}

void GeneratorDice::addAny()
{
    const Action action = oneIn(3) ? Rare[below(RareCount)]
                                   : static_cast<Action>(below(oneIn(4) ? ActionCount : SetModule));
    const bool loads = action == MenuLoad || action == SetTxtFile || action == ReplaceByTxtFile ||
                       action == ReadConfigFile || action == MakeCompanion || action == CutFile;
    const bool takesBinary = action == ClickLoad || action == TypePath || action == SetBinFile ||
                             action == SaveToFile || action == MakeBinary;
    int a = below(1000);
    if (loads)
        a = companionPath();
    else if (takesBinary)
        a = binaryPath();
    int b = text();
    if (action == MakeBinary)
        b = oneIn(20) ? BinaryKinds * below(1000) + BinaryKinds - 1
                      : BinaryKinds * below(1000) + below(BinaryKinds - 1);
    add(action, a, b);
}

void GeneratorDice::addScene()
{
    switch (below(10)) {
    case 0:
    case 1:
        addBuild();
        break;
    case 2:
    case 3:
        addFunctions();
        break;
    case 4:
        addLoad();
        break;
    case 5:
        addRemoval();
        break;
    case 6:
        addTroubleOnDisk();
        addBuild();
        break;
    case 7:
        addRound();
        break;
    case 8:
        addOddPath();
        break;
    default:
        add(MenuClear);
        add(SetModule, below(3));
        addBuild();
    }
}

void GeneratorDice::addBuild()
{
    if (!oneIn(4))
        add(oneIn(2) ? SetBinFile : ClickLoad, binaryPath());
    if (!oneIn(5))
        add(TypeText, Author, text());
    if (!oneIn(6))
        add(TypeText, CiNumber, text());
    if (oneIn(3))
        add(TypeText, Description, text());
    if (oneIn(4))
        add(SetVersion, below(1200) - 100, below(1200) - 100);
    if (oneIn(3))
        add(ChooseDevice, below(4));
    if (oneIn(3))
        add(FitPage, below(17));
    add(oneIn(12) ? SaveToFile : ClickGenerate, binaryPath(), text());
    // The same once more, over the files that are there now.
    if (oneIn(3))
        add(ClickGenerate, 0, text());
}

/// A build that is loaded again.
void GeneratorDice::addRound()
{
    static const int Binaries[] = {0, 1, 2, 8, 10};
    static const int Companions[] = {11, 12, 13, 14, 17};
    const int number = below(5);
    if (oneIn(2))
        addFunctions();
    add(SetBinFile, Binaries[number]);
    // Copied under a bar of progress.
    if (oneIn(12)) {
        add(MakeBinary, Binaries[number], BinaryKinds * below(1000) + BinaryKinds - 1);
        add(SetBinFile, Binaries[number]);
    }
    add(TypeText, Author, text());
    add(TypeText, CiNumber, text());
    if (oneIn(2))
        add(TypeText, Description, text());
    add(ClickGenerate, 0, text());
    if (oneIn(2))
        add(MenuClear);
    add(oneIn(2) ? MenuLoad : SetTxtFile, Companions[number]);
    if (oneIn(3))
        add(ChooseFunction, below(4));
}

/// Something that is no file in the place of one.
void GeneratorDice::addOddPath()
{
    const Action kind = oneIn(2) ? MakePipe : MakeFolder;
    if (oneIn(2)) {
        const int path = companionPath();
        add(RemoveFile, path);
        add(kind, path);
        add(oneIn(2) ? SetTxtFile : ReadConfigFile, path);
        return;
    }
    const int path = oneIn(4) ? 24 + below(3) : below(11);
    add(RemoveFile, path);
    add(kind, path);
    add(TypePath, path);
    add(TypeText, Author, text());
    add(TypeText, CiNumber, text());
    add(ClickGenerate, 0, text());
}

void GeneratorDice::addFunctions()
{
    if (oneIn(3))
        add(ClickClearParameters);
    for (int count = 1 + below(3); count > 0; --count) {
        if (!oneIn(6))
            add(TypeText, FunctionName, functionName());
        if (oneIn(2))
            add(TypeText, FunctionAuthor, text());
        if (oneIn(2))
            add(TypeText, FunctionDescription, text());
        if (oneIn(2))
            add(TypeText, FunctionNumber, text());
        if (oneIn(8))
            add(ClickItsMe);
        // Named while the warning is open, so that the name may be there already.
        if (oneIn(8)) {
            add(TypeText, FunctionName, 1);
            add(ClickUpload);
            m_steps.last().plan = static_cast<quint32>(Reaction::RenameFunction) << 4;
        }
        add(oneIn(12) ? CheckFunction : ClickUpload);
    }
    if (oneIn(2))
        add(ChooseFunction, below(4));
}

void GeneratorDice::addLoad()
{
    const int path = companionPath();
    if (oneIn(2))
        add(MakeCompanion, path, below(Marks));
    if (oneIn(4))
        add(CutFile, path, below(1000));
    if (oneIn(3))
        addFunctions();
    static const Action Loads[] = {MenuLoad, SetTxtFile, ReplaceByTxtFile};
    add(Loads[below(3)], path);
    if (oneIn(2))
        add(ClickModify);
    if (oneIn(2))
        add(ChooseFunction, below(4));
    if (oneIn(3))
        addBuild();
}

void GeneratorDice::addRemoval()
{
    addFunctions();
    if (oneIn(2))
        addFunctions();
    add(ChooseFunction, below(4));
    add(ClickRemove, 0, text());
    if (oneIn(2))
        add(ChooseFunction, below(3));
    if (oneIn(3))
        addBuild();
}

void GeneratorDice::addTroubleOnDisk()
{
    switch (below(6)) {
    case 0:
        add(RemoveFile, below(pathCount()));
        break;
    case 1:
        add(MakeFolder, 11 + below(12));
        break;
    case 2:
        add(MakePipe, 11 + below(12));
        break;
    case 3: // An image, or a companion, that is the binary under another name.
        add(MakeLink, 20 + below(2), 9);
        add(SetBinFile, 9);
        break;
    case 4:
        add(RemoveFile, binaryPath());
        break;
    default:
        add(MakeBinary, binaryPath(), below(Marks));
    }
}
