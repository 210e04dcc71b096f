#include "support/TestProgram.h"
#include "ToolFixture.h"

#include "fcf/FcfTarget.h"
#include "generator/PelkFcfGenerator.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTextCodec>
#include <QTextEdit>
#include <QtTest>

/// The window and the tool write the same bytes for the same build.
class SameBytesTest : public QObject {
    Q_OBJECT

private slots:
    void writesWhatTheWindowWrites_data();
    void writesWhatTheWindowWrites();

private:
    static void press(PelkFcfGenerator* window, const char* button)
    {
        QTest::mouseClick(window->findChild<QPushButton*>(button), Qt::LeftButton);
    }
    static void type(PelkFcfGenerator* window, const char* edit, const QString& text)
    {
        window->findChild<QLineEdit*>(edit)->setText(text);
    }
    static void fill(PelkFcfGenerator* window, const QString& module, const QString& device,
                     int slot, const QString& description, const QVector<QStringList>& functions);
};

void SameBytesTest::writesWhatTheWindowWrites_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("slot");
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("functionCount");
    QTest::addColumn<int>("payloadBytes");

    int slot = 0;
    for (const QString& module : FcfTarget::modules()) {
        for (const QString& device : FcfTarget::devicesOf(module)) {
            ++slot;
            QTest::newRow(qPrintable(module + " " + device))
                << module << device << slot << QString("Rev %1").arg(slot) << slot % 4
                << slot * 1000;
        }
    }
    QTest::newRow("several lines") << "DFE"
                                   << "Interface_FPGA" << 9 << "one\n  two: Grün\n\nthree \n\n"
                                   << 2 << 1024;
    QTest::newRow("several blocks") << "GPM"
                                    << "Processing_FPGA_2" << 10 << "" << 0 << 400000;
}

void SameBytesTest::fill(PelkFcfGenerator* window, const QString& module, const QString& device,
                         int slot, const QString& description,
                         const QVector<QStringList>& functions)
{
    window->setModule(module);
    window->setDevice(device);
    window->setConfigNum(slot);
    window->setVersion(3, 14);
    window->setAuthor(" Ann Ö");
    window->setCINumber("42 ");
    window->setDescription(description);
    for (const QStringList& function : functions) {
        type(window, "EditFunctionName", function[0]);
        type(window, "AuthorFunctions", function[1]);
        type(window, "CiNumberEditBoxFunctions", function[2]);
        window->findChild<QTextEdit*>("DescriptionMemoFunctions")->setPlainText(function[3]);
        press(window, "UploadFunctionButton");
    }
}

void SameBytesTest::writesWhatTheWindowWrites()
{
    QFETCH(QString, module);
    QFETCH(QString, device);
    QFETCH(int, slot);
    QFETCH(QString, description);
    QFETCH(int, functionCount);
    QFETCH(int, payloadBytes);
    ToolFixture tool;
    tool.environment.codec = QTextCodec::codecForLocale();
    tool.write("top.bin", ToolFixture::payload(payloadBytes));
    QVector<QStringList> functions;
    for (int index = 0; index < functionCount; ++index)
        functions << QStringList{QString(" function %1").arg(index), "Bob: B", "7 ",
                                 "does\n this "};

    PelkFcfGenerator window;
    window.setClock(tool.environment.clock);
    window.setBinFile(tool.path("top.bin"));
    fill(&window, module, device, slot, description, functions);
    window.show();
    press(&window, "GenerateButton");
    const QByteArray image = tool.read("top.fcf");
    const QByteArray companion = tool.read("top.txt");
    QVERIFY(QFile::remove(tool.path("top.fcf")) && QFile::remove(tool.path("top.txt")));

    Arguments arguments{"create",        tool.argument("top.bin"),
                        "--author",      " Ann Ö",
                        "--ci",          "42 ",
                        "--module",      module.toStdString(),
                        "--device",      device.toStdString(),
                        "--config",      std::to_string(slot),
                        "--version",     "3.14",
                        "--description", description.toStdString()};
    for (const QStringList& function : functions) {
        arguments.push_back("--function");
        for (const QString& text : function)
            arguments.push_back(text.toStdString());
    }
    const Run run = tool.run(arguments);
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(tool.read("top.fcf"), image);
    QCOMPARE(tool.read("top.txt"), companion);
}

ZORV_WINDOW_TEST(SameBytesTest)
#include "SameBytesTest.moc"
