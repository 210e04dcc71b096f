#include "generator/GeneratorTest.h"

#include "support/PlainFcf.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTextCodec>
#include <QtTest>

class GenerateTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void writesImageAndCompanionBesideTheBinary();
    void copiesBinariesOfAnySize_data();
    void copiesBinariesOfAnySize();
    void showsTotalsAfterWriting();
    void announcesBothFilesOnceAndLogsIt();
    void closesTheWindow();
    void asksForWhatIsMissing_data();
    void asksForWhatIsMissing();
    void writesTheCodesOfTheTarget_data();
    void writesTheCodesOfTheTarget();
    void keepsTheDeviceCodeWhereTheDeviceHasNone();
    void writesZeroForNoSlot();
    void writesVersionsAsNumbers_data();
    void writesVersionsAsNumbers();
    void writesTextsAsTyped();
    void takesDateAndTimeForEachFile();
    void stampsBothFilesApartAcrossASecond();
    void writesEmptyTextsForFunctionsNotInMemory();
    void derivesTheCodesBeforeItsChecks();
    void takesABlankForAnAuthorAndANumber();
    void takesABlankForAPath();
    void encodesTextsInTheLocalesCodec();
};

void GenerateTest::writesImageAndCompanionBesideTheBinary()
{
    const QString binary = driver->binary("top.bin", 300000);
    driver->fillIn(binary);
    driver->type("MajorVerEditBox", "2");
    driver->type("MinorVerEditBox", "17");
    driver->type("DescriptionMemo", "Front end\nsecond line");
    driver->select("ModuleComboBox", 2);
    driver->select("FpgaComboBox", 3);
    driver->select("ConfigComboBox", 9);
    driver->upload("Chirp", "Z", "up\ndown", "42");
    driver->upload("Bank", "", "", "");
    const PlainFcf image = generate();

    QCOMPARE(QString::fromStdString(image.fault), QString());
    const std::array<std::int32_t, 11> numbers = {16, 2, 302112, 15, 2, 300000, 2, 8, 10, 2, 17};
    QVERIFY(image.numbers == numbers);
    for (const std::uint32_t word : image.reserved)
        QCOMPARE(word, 0xFFFFFFFFu);
    const std::vector<std::string> lines = {"",
                                            "Filename: top.fcf",
                                            "CI No: CI-0042",
                                            "Author: R. Vos",
                                            "Date: 21 Nov 2026",
                                            "Time: 09:05:07",
                                            "Description: Front end",
                                            "second line",
                                            "---",
                                            "Function name: Chirp",
                                            "Function author: Z",
                                            "Function CI No: 42",
                                            "Function description: up",
                                            "down",
                                            "---",
                                            "Function name: Bank",
                                            "Function author: 0000",
                                            "Function CI No: 0000",
                                            "Function description: 0000",
                                            "---",
                                            "----"};
    QVERIFY(image.lines == lines);
    QVERIFY(image.payload == driver->content(binary).toStdString());
    QCOMPARE(driver->content(driver->path("top.txt")),
             driver->content(driver->path("top.fcf")).left(int(image.headerBytes)));
    QCOMPARE(driver->text("StatusBar"), QString(Green));
}

void GenerateTest::copiesBinariesOfAnySize_data()
{
    QTest::addColumn<int>("bytes");
    for (const int bytes : {0, 1, 1023, 1024, 1025, 2048, 2112, 133056, 133057, 1048576, 3145729})
        QTest::newRow(qPrintable(QString("%1 bytes").arg(bytes))) << bytes;
}

void GenerateTest::copiesBinariesOfAnySize()
{
    QFETCH(int, bytes);
    const QString binary = driver->binary("top.bin", bytes);
    driver->fillIn(binary);
    const PlainFcf image = generate();
    QVERIFY(image.payload == driver->content(binary).toStdString());
    QCOMPARE(image.numbers[5], bytes);
    QCOMPARE(image.numbers[2], bytes + 2112);
    const int totalPages = (bytes + 2112 + 2111) / 2112;
    QCOMPARE(image.numbers[1], totalPages <= 64 ? 0 : totalPages / 64);
    QCOMPARE(image.numbers[0], totalPages <= 64 ? totalPages : totalPages % 64);
}

void GenerateTest::showsTotalsAfterWriting()
{
    driver->fillIn(driver->binary("top.bin", 133057));
    QCOMPARE(driver->text("finalSize"), QString());
    generate();
    QCOMPARE(driver->text("finalSize"), QString("135169 bytes"));
    QCOMPARE(driver->text("finalPages"), QString("1 pages"));
    QCOMPARE(driver->text("finalBlocks"), QString("1 blocks"));
}

void GenerateTest::announcesBothFilesOnceAndLogsIt()
{
    driver->fillIn(driver->binary("top.bin", 10));
    QSignalSpy created(driver->window(), &PelkFcfGenerator::newFilesCreated);
    QString statusThen;
    connect(driver->window(), &PelkFcfGenerator::newFilesCreated, this,
            [&] { statusThen = driver->text("StatusBar"); });
    generate();
    QCOMPARE(created.count(), 1);
    QCOMPARE(created[0][0].toStringList(),
             QStringList({driver->path("top.fcf"), driver->path("top.txt")}));
    QVERIFY(statusThen.startsWith("Loaded "));
    QCOMPARE(driver->log(),
             QStringList("2 Pelk FCF Generator: Successfully generated output files."));
}

void GenerateTest::closesTheWindow()
{
    driver->fillIn(driver->binary("top.bin", 10));
    QVERIFY(driver->window()->isVisible());
    generate();
    QVERIFY(!driver->window()->isVisible());
}

void GenerateTest::asksForWhatIsMissing_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("author");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("box");
    QTest::newRow("everything") << ""
                                << ""
                                << ""
                                << "Please select a bin file first";
    QTest::newRow("the binary") << ""
                                << "a"
                                << "1"
                                << "Please select a bin file first";
    QTest::newRow("the author") << "top.bin"
                                << ""
                                << ""
                                << "Please enter the author 's name";
    QTest::newRow("the CI number") << "top.bin"
                                   << "a"
                                   << ""
                                   << "Please enter a CI number";
}

void GenerateTest::asksForWhatIsMissing()
{
    QFETCH(QString, path);
    QFETCH(QString, author);
    QFETCH(QString, number);
    QFETCH(QString, box);
    QSignalSpy created(driver->window(), &PelkFcfGenerator::newFilesCreated);
    if (!path.isEmpty())
        driver->window()->setBinFile(driver->binary(path, 10));
    driver->type("AuthoEditBox", author);
    driver->type("CiNumEditBox", number);
    driver->dialogs().inspect([](QWidget* widget) {
        QVERIFY(widget->isModal());
        QVERIFY(!widget->parent());
    });
    driver->dialogs().press(Qt::Key_Return);
    driver->click("GenerateButton");
    QCOMPARE(driver->dialogs().texts(), QStringList(box));
    QVERIFY(driver->window()->isVisible());
    QCOMPARE(created.count(), 0);
    QVERIFY(!driver->exists(driver->path("top.fcf")));
    QVERIFY(!driver->exists(driver->path("top.txt")));
    QCOMPARE(driver->text("AuthoEditBox"), author);
}

void GenerateTest::writesTheCodesOfTheTarget_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("moduleCode");
    QTest::addColumn<int>("deviceCode");
    const auto row = [](const char* module, const char* device, int moduleCode, int deviceCode) {
        QTest::newRow(qPrintable(QString("%1 %2").arg(module, device)))
            << module << device << moduleCode << deviceCode;
    };
    row("DFE", "Interface_FPGA", 1, 1);
    row("DFE", "Processing_FPGA_1", 1, 2);
    row("DFE", "Clock_Master_Device", 1, 4);
    row("DFE2", "Processing_FPGA", 2, 0);
    row("GPM", "Interface_FPGA", 2, 1);
    row("GPM", "Processing_FPGA_1", 2, 2);
    row("GPM", "Processing_FPGA_2", 2, 4);
    row("GPM", "Processing_FPGA_3", 2, 8);
}

void GenerateTest::writesTheCodesOfTheTarget()
{
    QFETCH(QString, module);
    QFETCH(QString, device);
    driver->fillIn(driver->binary("top.bin", 10));
    driver->window()->setModule(module);
    driver->window()->setDevice(device);
    QCOMPARE(driver->window()->getDevice(), device);
    const PlainFcf image = generate();
    QTEST(image.numbers[6], "moduleCode");
    QTEST(image.numbers[7], "deviceCode");
}

void GenerateTest::keepsTheDeviceCodeWhereTheDeviceHasNone()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->window()->setModule("GPM");
    driver->window()->setDevice("Processing_FPGA_3");
    QCOMPARE(generate().numbers[7], 8);
    driver->window()->setModule("DFE2");
    QCOMPARE(generate().numbers[7], 8);
    // Neither device has a code with the other module.
    auto* const devices = driver->find<QComboBox>("FpgaComboBox");
    devices->addItem("Processing_FPGA_2");
    driver->window()->setDevice("Processing_FPGA_2");
    QCOMPARE(generate().numbers[7], 8);
    driver->window()->setModule("GPM");
    devices->addItem("Clock_Master_Device");
    driver->window()->setDevice("Clock_Master_Device");
    QCOMPARE(generate().numbers[7], 8);

    driver->reopen();
    driver->fillIn(driver->path("top.bin"));
    driver->window()->setModule("DFE2");
    QCOMPARE(generate().numbers[7], 0);
}

void GenerateTest::writesZeroForNoSlot()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->find<QComboBox>("ConfigComboBox")->setCurrentIndex(-1);
    QCOMPARE(generate().numbers[8], 0);
}

void GenerateTest::writesVersionsAsNumbers_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("number");
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("digits") << "042" << 42;
    QTest::newRow("a fraction") << "1.5" << 0;
    QTest::newRow("negative") << "-7" << -7;
    QTest::newRow("letters") << "1a" << 0;
}

void GenerateTest::writesVersionsAsNumbers()
{
    QFETCH(QString, typed);
    driver->fillIn(driver->binary("top.bin", 10));
    driver->type("MajorVerEditBox", typed);
    driver->type("MinorVerEditBox", typed);
    const PlainFcf image = generate();
    QTEST(image.numbers[9], "number");
    QTEST(image.numbers[10], "number");
}

void GenerateTest::writesTextsAsTyped()
{
    driver->fillIn(driver->binary("top.bin", 10));
    const QString text = QString::fromUtf8("<b>雷达</b> &amp; \"é\"");
    driver->type("AuthoEditBox", "  <i>R</i> & \"V\" ");
    driver->type("CiNumEditBox", " " + text + " ");
    driver->type("DescriptionMemo", "  " + text + "\nline: 2  ");
    driver->upload(" " + text + " ", text, text + "\n ", text);
    const PlainFcf image = generate();
    const std::string bytes = text.toStdString();
    QCOMPARE(QString::fromStdString(image.valueOf("Author: ")), QString("  <i>R</i> & \"V\" "));
    QVERIFY(image.valueOf("CI No: ") == " " + bytes + " ");
    QVERIFY(image.valueOf("Description: ") == bytes);
    QVERIFY(image.lines[7] == "line: 2");
    QVERIFY(image.valueOf("Function name: ") == " " + bytes + " ");
    QVERIFY(image.valueOf("Function author: ") == bytes);
    QVERIFY(image.valueOf("Function description: ") == bytes);
    QVERIFY(image.valueOf("Function CI No: ") == bytes);
}

void GenerateTest::takesDateAndTimeForEachFile()
{
    driver->fillIn(driver->binary("top.bin", 10));
    int readings = 0;
    driver->window()->setClock([&] {
        ++readings;
        return QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7));
    });
    generate();
    QCOMPARE(readings, 2);
}

void GenerateTest::stampsBothFilesApartAcrossASecond()
{
    driver->fillIn(driver->binary("top.bin", 10));
    QDateTime now(QDate(2026, 12, 31), QTime(23, 59, 59));
    driver->window()->setClock([&] {
        QDateTime reading = now;
        now = now.addSecs(1);
        return reading;
    });
    const PlainFcf image = generate();
    const PlainFcf companion = PlainFcf::fromFile(driver->path("top.txt").toStdString());
    QCOMPARE(image.valueOf("Date: "), std::string("31 Dec 2026"));
    QCOMPARE(image.valueOf("Time: "), std::string("23:59:59"));
    QCOMPARE(companion.valueOf("Date: "), std::string("1 Jan 2027"));
    QCOMPARE(companion.valueOf("Time: "), std::string("00:00:00"));
    for (const PlainFcf& page : {image, companion})
        QVERIFY(page.headerBytes >= 2112 && page.headerBytes <= 2117);
    QCOMPARE(image.payload.size(), std::size_t(10));
}

void GenerateTest::writesEmptyTextsForFunctionsNotInMemory()
{
    driver->allowListFaults();
    driver->fillIn(driver->binary("top.bin", 10));
    driver->find<QComboBox>("FunctionComboBox")->addItem("only an item");
    const PlainFcf image = generate();
    QCOMPARE(image.lines.size(), std::size_t(14));
    QCOMPARE(image.lines[8], std::string("Function name: "));
    QCOMPARE(image.lines[12], std::string("---"));
}

void GenerateTest::derivesTheCodesBeforeItsChecks()
{
    driver->window()->setBinFile(driver->binary("top.bin", 10));
    driver->type("CiNumEditBox", "1");
    driver->window()->setModule("GPM");
    driver->window()->setDevice("Processing_FPGA_3");
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("GenerateButton");
    QVERIFY(!driver->exists(driver->path("top.fcf")));

    // Of a device without a code it is the code of the attempt before.
    driver->type("AuthoEditBox", "a");
    driver->window()->setModule("DFE2");
    QCOMPARE(generate().numbers[7], 8);
}

void GenerateTest::takesABlankForAnAuthorAndANumber()
{
    driver->window()->setBinFile(driver->binary("top.bin", 10));
    driver->type("AuthoEditBox", " ");
    driver->type("CiNumEditBox", " ");
    const PlainFcf image = generate();
    QCOMPARE(image.valueOf("Author: "), std::string(" "));
    QCOMPARE(image.valueOf("CI No: "), std::string(" "));
}

void GenerateTest::takesABlankForAPath()
{
    const QString folder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(driver->path("")));
    driver->type("txtInputFile", " ");
    driver->type("AuthoEditBox", "a");
    driver->type("CiNumEditBox", "1");
    driver->click("GenerateButton");
    QVERIFY(QDir::setCurrent(folder));
    // No box: the writer was called, with a binary, image and companion of that one name.
    QCOMPARE(driver->dialogs().texts(), QStringList());
    QVERIFY(!driver->window()->isVisible());
    QVERIFY(driver->exists(driver->path(" ")));
}

void GenerateTest::encodesTextsInTheLocalesCodec()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->type("AuthoEditBox", QString::fromUtf8("Zoë"));
    QTextCodec* const before = QTextCodec::codecForLocale();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    driver->click("GenerateButton");
    const QByteArray page = driver->content(driver->path("top.txt"));
    driver->window()->addNew();
    driver->window()->setTxtFile(driver->path("top.txt"));
    QTextCodec::setCodecForLocale(before);
    QVERIFY(page.contains("\nAuthor: Zo\xEB\n"));
    QVERIFY(page.size() >= 2112 && page.size() <= 2114);
    QVERIFY(page.endsWith("\xEF\xBF\xBD\xEF\xBF\xBD"));
    QCOMPARE(driver->text("AuthoEditBox"), QString::fromUtf8("Zoë"));
}

QTEST_MAIN(GenerateTest)
#include "GenerateTest.moc"
