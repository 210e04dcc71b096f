#include "generator/GeneratorTest.h"
#include "support/SampleHeaders.h"
#include "support/TestProgram.h"

#include <QtCreatorUtilities/DetailsWidget.h>

#include <QFileDialog>
#include <QTranslator>
#include <QtTest>

namespace {

/// Puts every text of the window into angle quotes.
class Quoting : public QTranslator {
public:
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return qstrcmp(context, "PelkFcfGenerator") == 0
                   ? QString::fromUtf8("«%1»").arg(QString::fromUtf8(source))
                   : QString();
    }
    bool isEmpty() const override { return false; }
};

QString quoted(const QString& text) { return QString::fromUtf8("«%1»").arg(text); }

} // namespace

/// Each text that the window shows can be translated.
class TranslationTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void initTestCase() { QCoreApplication::installTranslator(&m_translator); }
    void cleanupTestCase() { QCoreApplication::removeTranslator(&m_translator); }

    void translatesItsPanels();
    void translatesTheBinaryDialogAndItsResults();
    void translatesTheDocumentDialogAndItsResults();
    void translatesTheSizesOfAFile();
    void translatesTheBoxesOfFunctions();
    void translatesTheChecksBeforeGenerating();
    void translatesTheResultsOfGenerating();

private:
    Quoting m_translator;
};

void TranslationTest::translatesItsPanels()
{
    QStringList summaries;
    for (const auto* panel : driver->window()->findChildren<QtCreatorUtilities::DetailsWidget*>())
        summaries << panel->summaryText();
    summaries.sort();
    QCOMPARE(summaries, QStringList({quoted("<b>Functions In Build:</b>"),
                                     quoted("<b>Target Flash Location:</b>")}));
    QCOMPARE(driver->window()->windowTitle(), quoted("Pelk FCF Generator"));
}

void TranslationTest::translatesTheBinaryDialogAndItsResults()
{
    driver->dialogs().cancel();
    driver->dialogs().inspect([](QWidget* dialog) {
        QCOMPARE(qobject_cast<QFileDialog*>(dialog)->nameFilters(),
                 QStringList(quoted("Xilinx Binary Configuration Files (*.bin)")));
    });
    driver->click("btnLoad");
    QCOMPARE(driver->dialogs().texts(), QStringList(quoted("Select Bin File")));
    QCOMPARE(driver->text("StatusBar"), quoted("Failed to load *.bin file"));

    const QString binary = driver->binary("top.bin", 10);
    driver->type("txtInputFile", driver->path("x"));
    driver->dialogs().leaveTo([&](QWidget* dialog) {
        auto* const files = qobject_cast<QFileDialog*>(dialog);
        files->setNameFilter("all (*)");
        files->findChild<QLineEdit*>("fileNameEdit")->setText(binary);
        QTest::keyClick(files->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
    driver->click("btnLoad");
    QCOMPARE(driver->text("StatusBar"), quoted("Loaded ") + binary + quoted(" successfully."));
    QCOMPARE(driver->text("BinFileSize"), "10" + quoted("  Bytes"));
    QCOMPARE(driver->text("BinFilePages"), "1" + quoted(" Pages"));
    QCOMPARE(driver->text("BinFileBlocks"), "0" + quoted(" blocks"));
}

void TranslationTest::translatesTheDocumentDialogAndItsResults()
{
    driver->dialogs().cancel();
    driver->dialogs().inspect([](QWidget* dialog) {
        QCOMPARE(qobject_cast<QFileDialog*>(dialog)->nameFilters(),
                 QStringList(quoted("Document files (*.txt)")));
    });
    driver->chooseFromFileMenu(quoted("Load"));
    QCOMPARE(driver->dialogs().texts(), QStringList(quoted("Open Document")));
    QCOMPARE(driver->text("StatusBar"),
             quoted("<font color='red'>Loading ") + quoted(" failed.</font>"));

    driver->dialogs().clear();
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->setTxtFile(driver->binary("other.txt", 3000));
    QCOMPARE(driver->dialogs().texts(),
             QStringList(quoted("please select a correct text file,the selected file is not "
                                "compartable with this programme ")));
}

void TranslationTest::translatesTheSizesOfAFile()
{
    const QString companion = driver->writeHeader("top.txt", sampleHeader());
    driver->window()->setTxtFile(companion);
    QCOMPARE(driver->text("StatusBar"),
             quoted("<font color='green'>Loaded ") + companion + quoted(" successfully.</font>"));
    QCOMPARE(driver->text("finalPages"), "1" + quoted(" Pages"));
    QCOMPARE(driver->text("finalBlocks"), "2" + quoted(" Blocks"));
    QCOMPARE(driver->text("finalSize"), "3" + quoted(" bytes"));
    QCOMPARE(driver->text("BinFilePages"), "4" + quoted(" Pages"));
    QCOMPARE(driver->text("BinFileBlocks"), "5" + quoted(" Blocks"));
    QCOMPARE(driver->text("BinFileSize"), "6" + quoted(" bytes"));
}

void TranslationTest::translatesTheBoxesOfFunctions()
{
    driver->dialogs().inspect(
        [](QWidget* box) { QCOMPARE(box->windowTitle(), quoted("Pelk FCF Generator")); });
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("UploadFunctionButton");
    driver->upload("A", "a", "d", "1");
    driver->dialogs().click(QMessageBox::No);
    driver->upload("A", "a", "d", "1");
    driver->dialogs().click(QMessageBox::No);
    driver->click("btnRemove");
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->setDescription(QString(1001, 'x'));
    QCOMPARE(
        driver->dialogs().texts(),
        QStringList(
            {quoted("Please enter a Function Name before uploading Function field is empty"),
             quoted("The Function already exists, click Yes to override it and No to cancel"),
             quoted("Are you sure you want to remove the function?, click Yes to remove it and No "
                    "to cancel"),
             quoted("The Description can not be more 1000 characters long The description is too "
                    "long")}));
}

void TranslationTest::translatesTheChecksBeforeGenerating()
{
    for (int missing = 0; missing < 3; ++missing)
        driver->dialogs().click(QMessageBox::Ok);
    driver->click("GenerateButton");
    driver->window()->setBinFile(driver->binary("top.bin", 10));
    driver->click("GenerateButton");
    driver->window()->setAuthor("a");
    driver->click("GenerateButton");
    QCOMPARE(driver->dialogs().texts(), QStringList({quoted("Please select a bin file first"),
                                                     quoted("Please enter the author 's name"),
                                                     quoted("Please enter a CI number")}));
}

void TranslationTest::translatesTheResultsOfGenerating()
{
    driver->window()->setBinFile(driver->binary("top.bin", 10));
    driver->window()->setAuthor("a");
    driver->window()->setCINumber("1");
    driver->window()->saveTofile(driver->path("top.bin"));
    QCOMPARE(driver->text("StatusBar"),
             quoted("<font color='green'>Successfully generated output files.</font>"));
    QCOMPARE(driver->text("finalSize"), "2122" + quoted(" bytes"));
    QCOMPARE(driver->text("finalPages"), "2" + quoted(" pages"));
    QCOMPARE(driver->text("finalBlocks"), "0" + quoted(" blocks"));
    QCOMPARE(driver->log(),
             QStringList("2 " + quoted("Pelk FCF Generator: " +
                                       quoted("Successfully generated output files."))));

    driver->dialogs().click(QMessageBox::No);
    driver->window()->saveTofile(driver->path("top.bin"));
    QCOMPARE(driver->text("StatusBar"),
             quoted("<font color='red'>Failed to generate output file.</font>"));
    driver->window()->setCINumber(QString(3000, 'x'));
    driver->dialogs().click(QMessageBox::Yes);
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->saveTofile(driver->path("top.bin"));
    driver->window()->setCINumber("1");
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->saveTofile(driver->path("no/such/top.bin"));
    const QString question = quoted("A fcf file already exists at path:<br><br>") +
                             driver->path("top.fcf") +
                             quoted("<br><br>Do you want to overwrite it?");
    QCOMPARE(driver->dialogs().texts(),
             QStringList({question, question,
                          quoted("The file Size is too large please change some fields"),
                          quoted("can't open ") + driver->path("no/such/top.fcf")}));
}

ZORV_WINDOW_TEST(TranslationTest)
#include "TranslationTest.moc"
