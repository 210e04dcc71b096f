#include "support/Golden.h"
#include "support/ModalAnswer.h"
#include "toolkit/Host.h"
#include "toolkit/Tests.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QFile>
#include <QLocale>
#include <QSignalSpy>
#include <QTime>
#include <QtTest>

namespace {

const int PageBytes = 2112;
const char TextEnd[] = "\n----\n";

QByteArray payload(int size)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = static_cast<char>((i * 7 + i / 251) % 256);
    return bytes;
}

QByteArray filled(QByteArray text)
{
    while (text.size() < PageBytes)
        text += "\xC3\xAF\xC2\xBF\xC2\xBD";
    return text;
}

/// The value of the line that begins with \p prefix.
QByteArray valueOf(const QByteArray& page, const QByteArray& prefix)
{
    const int start = page.indexOf('\n' + prefix) + 1 + prefix.size();
    return page.mid(start, page.indexOf('\n', start) - start);
}

/// The page with the date and the time of \p golden, and the filler that then belongs to it. The
/// page's own filler is checked before.
QByteArray withStampOf(const QByteArray& golden, const QByteArray& page)
{
    const int end = page.indexOf(TextEnd) + int(sizeof TextEnd) - 1;
    QByteArray text = page.left(end);
    if (filled(text) != page)
        return "another filler";
    foreach (const QByteArray& prefix, QList<QByteArray>() << "Date: "
                                                           << "Time: ")
        text.replace('\n' + prefix + valueOf(page, prefix) + '\n',
                     '\n' + prefix + valueOf(golden, prefix) + '\n');
    return filled(text);
}

} // namespace

class FilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void writesTheFilesOfABuildWithoutFunctions();
    void writesTheFilesOfABuildInSeveralScripts();
    void asksBeforeItOverwrites();
    void namesWhatIsMissing();
    void refusesATextThatIsTooLong();
    void loadsWhatItHasWritten();
    void reportsALoadThatIsCancelled();

private:
    void fillInBuildWithoutFunctions();
    void fillInBuildInSeveralScripts();
    /// Compares the image of \p name and its companion with the golden file, but for the stamp.
    void compare(const QString& name, const char* golden, const QByteArray& binary);

    QScopedPointer<WorkFolder> m_folder;
    QScopedPointer<ModalAnswer> m_answers;
    QWidget* m_window;
};

void FilesTest::init()
{
    m_folder.reset(new WorkFolder);
    m_answers.reset(new ModalAnswer);
    m_window = Host::instance()->chooseGenerator();
    QVERIFY(m_window);
    clearForm(m_window);
    Host::instance()->takeMessages();
}

void FilesTest::cleanup()
{
    QVERIFY(m_answers->allGiven());
    m_answers.reset();
    clearForm(m_window);
}

void FilesTest::fillInBuildWithoutFunctions()
{
    m_answers->choose(m_folder->write(QLatin1String("top.bin"), payload(608324)));
    press(m_window, "btnLoad");
    m_answers->clear();
    enter(m_window, "AuthoEditBox", QLatin1String("R. Vos"));
    enter(m_window, "CiNumEditBox", QLatin1String("CI-0042"));
    enter(m_window, "MajorVerEditBox", QLatin1String("2"));
    enter(m_window, "MinorVerEditBox", QLatin1String("7"));
    enter(m_window, "DescriptionMemo", QLatin1String("Front end"));
    choose(m_window, "ModuleComboBox", QLatin1String("DFE"));
    choose(m_window, "FpgaComboBox", QLatin1String("Interface_FPGA"));
    choose(m_window, "ConfigComboBox", QLatin1String("1"));
}

void FilesTest::fillInBuildInSeveralScripts()
{
    m_answers->choose(m_folder->write(QLatin1String("top.bin"), payload(133056)));
    press(m_window, "btnLoad");
    m_answers->clear();
    // The toolkit's dialog takes quotes for the ends of names.
    enter(m_window, "txtInputFile",
          m_folder->write(QString::fromUtf8("tête & \"queue\" <1>.bin"), payload(133056)));
    enter(m_window, "AuthoEditBox", QString::fromUtf8("Ольга Мбеки"));
    enter(m_window, "CiNumEditBox", QLatin1String(" 7: 8 "));
    enter(m_window, "MajorVerEditBox", QString());
    enter(m_window, "MinorVerEditBox", QLatin1String("-1"));
    enter(m_window, "DescriptionMemo",
          QString::fromUtf8(" \n雷达前端: <b>not bold</b>\n\n& the last line \n\n"));
    choose(m_window, "ModuleComboBox", QLatin1String("GPM"));
    choose(m_window, "FpgaComboBox", QLatin1String("Processing_FPGA_3"));
    choose(m_window, "ConfigComboBox", QLatin1String("10"));

    enter(m_window, "EditFunctionName", QLatin1String(" Pulse & \"chirp\" "));
    enter(m_window, "AuthorFunctions", QString::fromUtf8("Zoë"));
    enter(m_window, "CiNumberEditBoxFunctions", QLatin1String("42"));
    enter(m_window, "DescriptionMemoFunctions", QLatin1String("\tMatched filter,\n1024 taps "));
    press(m_window, "UploadFunctionButton");
    m_answers->click(QMessageBox::Ok);
    press(m_window, "UploadFunctionButton");
    m_answers->clear();
}

void FilesTest::compare(const QString& name, const char* golden, const QByteArray& binary)
{
    const Golden expected(QString::fromUtf8(GOLDEN_FOLDER) + QLatin1Char('/') +
                          QLatin1String(golden));
    const QByteArray companion = WorkFolder::read(m_folder->path(name + QLatin1String(".txt")));
    const QByteArray image = WorkFolder::read(m_folder->path(name + QLatin1String(".fcf")));
    QCOMPARE(expected.difference(withStampOf(expected.bytes(), companion)), QString());
    QCOMPARE(expected.difference(withStampOf(expected.bytes(), image.left(companion.size()))),
             QString());
    QVERIFY(image.mid(companion.size()) == binary);
}

void FilesTest::writesTheFilesOfABuildWithoutFunctions()
{
    fillInBuildWithoutFunctions();
    QSignalSpy created(m_window, SIGNAL(newFilesCreated(QStringList)));
    const QDateTime before = QDateTime::currentDateTime();
    press(m_window, "GenerateButton");
    const QDateTime after = QDateTime::currentDateTime();
    QVERIFY(!m_window->isVisible());
    compare(QLatin1String("top"), "no-functions.golden", payload(608324));

    const QByteArray page = WorkFolder::read(m_folder->path(QLatin1String("top.txt")));
    const QString date = QString::fromUtf8(valueOf(page, "Date: "));
    QVERIFY(date == QLocale::system().toString(before.date(), QLocale::ShortFormat) ||
            date == QLocale::system().toString(after.date(), QLocale::ShortFormat));
    const QTime time =
        QTime::fromString(QString::fromLatin1(valueOf(page, "Time: ")), QLatin1String("hh:mm:ss"));
    QVERIFY(time.isValid());
    QVERIFY(before.date() != after.date() ||
            (time >= before.time().addMSecs(-999) && time <= after.time()));

    QCOMPARE(created.count(), 1);
    QCOMPARE(created.first().first().toStringList(),
             QStringList() << m_folder->path(QLatin1String("top.fcf"))
                           << m_folder->path(QLatin1String("top.txt")));
    QCOMPARE(
        textOf(m_window, "StatusBar"),
        QString::fromLatin1("<font color='green'>Successfully generated output files.</font>"));
    QCOMPARE(textOf(m_window, "finalSize"), QString::fromLatin1("610436 bytes"));
    QCOMPARE(textOf(m_window, "finalPages"), QString::fromLatin1("34 pages"));
    QCOMPARE(textOf(m_window, "finalBlocks"), QString::fromLatin1("4 blocks"));
    const QStringList messages = Host::instance()->takeMessages();
    QCOMPARE(messages.count(), 1);
    QVERIFY(messages.first().startsWith(QLatin1String("2 ")) &&
            messages.first().contains(
                QLatin1String("Pelk FCF Generator: Successfully generated output files.")));
}

void FilesTest::writesTheFilesOfABuildInSeveralScripts()
{
    fillInBuildInSeveralScripts();
    press(m_window, "GenerateButton");
    compare(QString::fromUtf8("tête & \"queue\" <1>"), "several-scripts.golden", payload(133056));
}

void FilesTest::asksBeforeItOverwrites()
{
    const QString image = m_folder->write(QLatin1String("top.fcf"), "the one before");
    fillInBuildWithoutFunctions();
    m_answers->press(Qt::Key_Return);
    press(m_window, "GenerateButton");
    QCOMPARE(m_answers->texts(),
             QStringList(QString::fromLatin1("A fcf file already exists at path:<br><br>%1<br><br>"
                                             "Do you want to overwrite it?")
                             .arg(image)));
    QCOMPARE(WorkFolder::read(image), QByteArray("the one before"));
    QCOMPARE(textOf(m_window, "StatusBar"),
             QString::fromLatin1("<font color='red'>Failed to generate output file.</font>"));

    QCOMPARE(Host::instance()->chooseGenerator(), m_window);
    m_answers->click(QMessageBox::Yes);
    press(m_window, "GenerateButton");
    compare(QLatin1String("top"), "no-functions.golden", payload(608324));
}

void FilesTest::namesWhatIsMissing()
{
    fillInBuildWithoutFunctions();
    enter(m_window, "CiNumEditBox", QString());
    m_answers->click(QMessageBox::Ok);
    press(m_window, "GenerateButton");
    enter(m_window, "AuthoEditBox", QString());
    m_answers->click(QMessageBox::Ok);
    press(m_window, "GenerateButton");
    enter(m_window, "txtInputFile", QString());
    m_answers->click(QMessageBox::Ok);
    press(m_window, "GenerateButton");
    QCOMPARE(m_answers->texts(), QStringList() << QLatin1String("Please enter a CI number")
                                               << QLatin1String("Please enter the author 's name")
                                               << QLatin1String("Please select a bin file first"));
    QVERIFY(m_window->isVisible());
}

void FilesTest::refusesATextThatIsTooLong()
{
    fillInBuildWithoutFunctions();
    enter(m_window, "EditFunctionName", QString(2112, QLatin1Char('x')));
    press(m_window, "UploadFunctionButton");
    m_answers->click(QMessageBox::Ok);
    press(m_window, "GenerateButton");
    QCOMPARE(m_answers->texts(),
             QStringList(QLatin1String("The file Size is too large please change some fields")));
    QVERIFY(!QFile::exists(m_folder->path(QLatin1String("top.fcf"))));
    QVERIFY(!QFile::exists(m_folder->path(QLatin1String("top.txt"))));
}

void FilesTest::loadsWhatItHasWritten()
{
    fillInBuildWithoutFunctions();
    enter(m_window, "EditFunctionName", QLatin1String("Pulse"));
    enter(m_window, "DescriptionMemoFunctions", QLatin1String("Matched filter,\n1024 taps"));
    press(m_window, "UploadFunctionButton");
    choose(m_window, "ConfigComboBox", QLatin1String("7"));
    press(m_window, "GenerateButton");
    clearForm(m_window);
    choose(m_window, "ConfigComboBox", QLatin1String("1"));
    QCOMPARE(Host::instance()->chooseGenerator(), m_window);

    m_answers->choose(m_folder->path(QLatin1String("top.txt")));
    m_window->findChild<QAction*>(QLatin1String("actionLoad"))->trigger();
    QCOMPARE(m_answers->texts(), QStringList(QLatin1String("Open Document")));
    QCOMPARE(textOf(m_window, "txtInputFile"), m_folder->path(QLatin1String("top.bin")));
    QCOMPARE(textOf(m_window, "AuthoEditBox"), QString::fromLatin1("R. Vos"));
    QCOMPARE(textOf(m_window, "CiNumEditBox"), QString::fromLatin1("CI-0042"));
    QCOMPARE(textOf(m_window, "MajorVerEditBox"), QString::fromLatin1("2"));
    QCOMPARE(textOf(m_window, "MinorVerEditBox"), QString::fromLatin1("7"));
    QCOMPARE(textOf(m_window, "DescriptionMemo"), QString::fromLatin1("Front end"));
    QCOMPARE(find<QComboBox>(m_window, "ConfigComboBox")->currentText(), QString::fromLatin1("7"));
    QCOMPARE(itemsOf(m_window, "FunctionComboBox"), QStringList(QLatin1String("Pulse")));
    QVERIFY(find<QCheckBox>(m_window, "ModifyFunctionCheckBox")->isEnabled());
    QVERIFY(!find<QWidget>(m_window, "EditFunctionName")->isEnabled());
}

void FilesTest::reportsALoadThatIsCancelled()
{
    enter(m_window, "AuthoEditBox", QLatin1String("R. Vos"));
    m_answers->cancel();
    m_window->findChild<QAction*>(QLatin1String("actionLoad"))->trigger();
    QCOMPARE(textOf(m_window, "AuthoEditBox"), QString());
    QCOMPARE(textOf(m_window, "txtInputFile"), QString());
    QVERIFY(textOf(m_window, "StatusBar").contains(QLatin1String("red")));
}

QObject* newFilesTest() { return new FilesTest; }

#include "FilesTest.moc"
