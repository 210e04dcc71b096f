#ifndef TESTS_GENERATOR_MODEL_GENERATORMODEL_H
#define TESTS_GENERATOR_MODEL_GENERATORMODEL_H

#include "generator/model/DiskModel.h"
#include "generator/model/GeneratorState.h"

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

/// The least that the header takes of an image.
const int PageBytes = 2112;

/// Something that is noticed while an action goes on, with the window and the files as they are at
/// that moment.
struct Observation {
    /// What it is, and everything that a person or a program gets of it.
    QString event;
    GeneratorState state;
    QMap<QString, FileState> files;
};

/// The rules of the generator window, each action in the steps in which the window takes it.
///
/// What happens while a box, a file dialog or the signal is open, and how it is answered, is asked
/// of the functions below.
class GeneratorModel {
public:
    enum Answer { Yes, No };

    GeneratorModel();

    // The world around the window.
    DiskModel disk;
    /// The moment of each reading of the clock.
    std::function<QDateTime()> clock;
    /// Called for each observation but dialogs.
    std::function<void(const QString& event)> observe;
    /// Called while a box is open. Returns its answer, Yes for that of a box with one button.
    std::function<Answer(const QString& box)> answer;
    /// Called while a file dialog is open. Returns the path chosen; empty for none.
    std::function<QString(const QString& dialog)> choose;
    QString currentUserName;

    /// A window that is not shown yet.
    void construct(bool deletesItself);
    void show();
    void toggleFunctions();

    GeneratorState form;
    /// False once a window that deletes itself is closed.
    bool exists;
    bool isUnfolded;

    // The rest of the plug-in.
    void setModule(const QString& module);
    void setDevice(const QString& device);
    void setConfigNum(int number);
    void setVersion(int major, int minor);
    void setAuthor(const QString& author) { setText(AuthoEditBox, author); }
    void setCINumber(const QString& number) { setText(CiNumEditBox, number); }
    void setDescription(const QString& description) { setText(DescriptionMemo, description); }
    void setBinFile(const QString& path);
    void setTxtFile(const QString& path);
    void replaceByTxtFile(const QString& path);
    void displayBinFileSizeInfo(const QString& path);
    void clearScreen();
    bool updateConfigData();
    void saveTofile(QString binPath);

    // The slots.
    void updateComboBoxFPGA();
    void openFileDialog();
    void generateButtonClick();
    void btnRemove_clicked();
    void modifyFunctionsCheckBoxClick();
    void uploadFunctionButtonClick();
    bool checkFunction();
    void fileOpenAccept();
    void displayConfigFileInfo(const QString& path);
    bool readConfigFile(const QString& path) { return load(path, false); }
    void addFunction();
    void displayFunctionInfo(int index);
    void addNewFuction();
    void addNew();
    void on_btnCancel_clicked() { close(); }
    void on_btnItsMe_clicked();

    // What Qt does for a person.
    void close();
    void deleteLater() { m_isDoomed = true; }
    /// Replaces the text of an edit.
    void setText(WidgetName name, const QString& text);
    void select(WidgetName box, int index);
    void tick();
    /// Ends an action: a window that is to go is gone.
    void endAction();

    /// Bytes of the header page that Generate would write next, without filler.
    int headerBytes(const QString& imageName, const QDateTime& moment) const;

private:
    struct Lines;
    struct Page;

    Answer inform(const QString& text);
    Answer ask(const QString& text, bool hasDefault);
    void setStatus(const QString& text, bool isPlain = false);
    bool load(const QString& path, bool replacing);
    void showLoadingFailed();
    void logLoadingFailed(const QString& path, const QString& reason);
    void log(int kind, const QString& text);
    void setEditable(bool editable);
    void clearFunctionFields();
    void clearItems(WidgetName box);
    void addItem(WidgetName box, const QString& text);
    void updateVisible();
    void giveFocus(WidgetName name);
    void descriptionMemoExit();
    QString entry(int index) const;
    void showNumbers(const QVector<qint32>& numbers);
    void selectTarget(qint32 module, qint32 device);
    bool readTexts(Lines* lines);
    bool readFunction(const QString& first, Lines* lines);
    void appendDescription(const QStringList& paragraphs);
    QByteArray header(const QString& imageName, const QDateTime& moment) const;
    void showTotals();
    bool writeHeader(Page* page, const QString& imageName);
    bool closeWhole(const Page& page);
    bool fillHeaders(Page* image, Page* companion);
    bool appendPayload(Page* image, const QString& binary, qint64 bytes);
    bool refuseTooLong(const QString& image, const QString& companion);
    bool cannotOpen(const QString& path);
    bool notComplete(const QString& path, const QString& reason);
    void generationFailed();

    bool m_deletesItself;
    bool m_isDoomed;
};

#endif
