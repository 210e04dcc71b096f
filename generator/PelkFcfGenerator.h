#ifndef GENERATOR_PELKFCFGENERATOR_H
#define GENERATOR_PELKFCFGENERATOR_H

#include "fcf/FcfHeader.h"
#include "fcf/FcfSizes.h"
#include "generator/FcfClock.h"

#include <QMainWindow>
#include <QScopedPointer>
#include <QString>
#include <QStringList>
#include <QVector>

class FcfOutput;
class Ui_PelkFcfGenerator;
struct FcfReading;

namespace QtCreatorUtilities {
class DetailsWidget;
}

/// The window in which a user describes one build and has its image made.
///
/// It fills an FcfHeader from the form, which the writer puts into an image and its companion
/// beside the binary. It fills the form again from an image or a companion.
class PelkFcfGenerator : public QMainWindow {
    Q_OBJECT

public:
    /// Starts with module "DFE", its first device, slot 1 and no function.
    explicit PelkFcfGenerator(QWidget* parent = nullptr);
    ~PelkFcfGenerator() override;

    /// Selects the module with exactly that text; an unknown one changes nothing.
    void setModule(const QString& module);
    QString getModule() const;

    /// Selects the device with exactly that text, among those of the module selected before.
    void setDevice(const QString& device);
    QString getDevice() const;

    /// Selects a flash slot from 1 to 10; any other number changes nothing.
    void setConfigNum(int number);
    int getConfigNum() const;

    void setVersion(int major, int minor);
    void setAuthor(const QString& author);
    void setCINumber(const QString& number);
    void setDescription(const QString& description);

    /// Takes the binary at \p path as the input, and measures it.
    void setBinFile(const QString& path);

    /// Loads the companion or image at \p path into the form, which keeps the functions that it
    /// lists and the description that it has.
    void setTxtFile(const QString& path);

    /// Loads the companion or image at \p path in place of what the form has. The form keeps its
    /// texts when the file cannot be opened or is neither.
    void replaceByTxtFile(const QString& path);

    /// Shows the size of the binary at \p path and notes it for the next header.
    void displayBinFileSizeInfo(const QString& path);

    /// Shows the window before all others, also when it was hidden, covered or minimised.
    void bringToFront();

    /// Empties the form, but for the target. The function list stays in memory; see addNew().
    void clearScreen();

    /// Derives the codes of the target, checks the form and calls the writer. Returns whether the
    /// writer was called, not whether it succeeded.
    bool updateConfigData();

    /// Writes the image of the binary at \p binPath and its companion, and shows the result.
    void saveTofile(QString binPath);

    /// Replaces the clock of the "Date: " and "Time: " lines, which is read once for each file.
    void setClock(const FcfClock& clock);

Q_SIGNALS:
    /// Sent after a successful generation, with the paths of the image and of the companion.
    void newFilesCreated(QStringList files);

public Q_SLOTS:
    void updateComboBoxFPGA();
    void openFileDialog();
    void generateButtonClick();
    void btnRemove_clicked();
    void modifyFunctionsCheckBoxClick();
    void DescriptionMemoExit();
    void uploadFunctionButtonClick();
    /// Returns whether the upload must not add a new function.
    bool checkFunction();
    void fileOpenAccept();
    void displayConfigFileInfo(QString file);
    /// Returns whether the whole text was read.
    bool readConfigFile(QString filename);
    void addFunction();
    void displayFunctionInfo(int new_selection);
    void addNewFuction();
    void addNew();
    void on_btnCancel_clicked();
    void on_btnItsMe_clicked();

private:
    void listTargets();
    void connectWidgets();
    QtCreatorUtilities::DetailsWidget* foldInto(QWidget* holder, QWidget* body,
                                                const QString& summary);

    void clearFunctionFields();
    void functionsFieldSetEditable();
    void functionsFieldSetNotEditable();
    void setFunctionFieldsEnabled(bool enabled);
    /// Returns the editor's content as one function.
    FcfFunction editedFunction() const;
    /// Puts \p function into the editor.
    void editFunction(const FcfFunction& function);
    /// The function at \p index of the list, empty where there is none.
    FcfFunction functionAt(int index) const;

    /// What a load does with the functions and texts that the form has.
    enum LoadMode { AddToForm, ReplaceForm };
    void loadTxtFile(const QString& path, LoadMode mode);
    bool load(const QString& path, LoadMode mode);
    void makeRoomFor(const FcfReading& reading);
    void showNumbers(const FcfHeader& header);
    void selectTarget(const FcfHeader& header);
    void showTexts(const FcfReading& reading);
    void showFunctionRead(const FcfFunction& function);
    void showLoadingFailed();
    /// Shows \p text as it is, whatever markup a path in it looks like.
    void showPlainStatus(const QString& text);
    void showStatus(const QString& html);

    FcfHeader headerFromForm() const;
    bool mayOverwrite(const QString& imagePath);
    bool writeContents(FcfOutput* output, const QString& imageName);
    bool writeHeaders(FcfOutput* output, const QString& imageName);
    bool appendPayload(FcfOutput* output);
    void showTotals();
    void showGenerated(const QStringList& files);
    void showGenerationFailed();
    void reportFailure(FcfOutput* output);
    static void removeFiles(FcfOutput* output);
    void warnOfOtherSize(const QString& binPath, qint64 payloadBytes) const;

    QScopedPointer<Ui_PelkFcfGenerator> ui;
    FcfClock m_clock;
    QtCreatorUtilities::DetailsWidget* functionsDetails;
    QtCreatorUtilities::DetailsWidget* targetDetails;

    /// Four texts for each function (name, author, description, CI number), in the combo box's
    /// order.
    QVector<QString> functions;

    qint32 moduleCode;
    /// Keeps its value over generations in which the device has no code of its own.
    qint32 deviceCode;

    /// Those of the binary when it was last selected.
    FcfSizes m_sizes;
};

#endif
