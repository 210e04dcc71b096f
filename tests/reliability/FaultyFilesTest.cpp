#include "archive/ArchiveHost.h"
#include "generator/FunctionEntries.h"
#include "generator/GeneratorDriver.h"
#include "generator/GeneratorTest.h"
#include "support/FullDisk.h"
#include "support/PlainFcf.h"
#include "support/SampleHeaders.h"
#include "support/TestProgram.h"
#include "tool/ToolFixture.h"

#include "fcf/FcfReader.h"
#include "host/app/archive/ArchivePlan.h"
#include "host/app/archive/ArchiveWriter.h"
#include "host/app/DesignStorage.h"
#include "host/app/ImageInspector.h"
#include "host/HostErrorOf.h"

#include <OrvanticCore/Design.h>

#include <QBuffer>
#include <QFile>
#include <QtTest>

#include <functional>
#include <sys/stat.h>

namespace {

/// Puts something else than a file at a path.
using Place = void (*)(const QString& path);

void placePipe(const QString& path)
{
    if (::mkfifo(QFile::encodeName(path).constData(), 0600) != 0)
        qFatal("no pipe");
}
void placeFolder(const QString& path) { QDir().mkpath(path); }
void placeDevice(const QString& path) { QFile::link("/dev/zero", path); }
void placeLinkToNothing(const QString& path) { QFile::link("none", path); }
void placeLinkToItself(const QString& path) { QFile::link(path, path); }
void placeLinkToPipe(const QString& path)
{
    placePipe(path + ".pipe");
    QFile::link(path + ".pipe", path);
}
void placeNothing(const QString&) {}

void addPlaces()
{
    QTest::addColumn<Place>("place");
    QTest::newRow("nothing") << Place(placeNothing);
    QTest::newRow("a pipe") << Place(placePipe);
    QTest::newRow("a link to a pipe") << Place(placeLinkToPipe);
    QTest::newRow("a folder") << Place(placeFolder);
    QTest::newRow("a device") << Place(placeDevice);
    QTest::newRow("a link to nothing") << Place(placeLinkToNothing);
    QTest::newRow("a link to itself") << Place(placeLinkToItself);
}

} // namespace

Q_DECLARE_METATYPE(Place)

/// Files that are something else, that change meanwhile, and disks that take no more. The user gets
/// a reason, nobody waits for ever, and files that were whole stay so unless the user agreed.
class FaultyFilesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loadsNothingButAFile_data() { addPlaces(); }
    void loadsNothingButAFile();
    void logsATextWithoutEnd_data();
    void logsATextWithoutEnd();
    void endsInRedForABinaryThatIsNoFile_data() { addPlaces(); }
    void endsInRedForABinaryThatIsNoFile();
    void endsInRedForABinaryThatChangesMeanwhile_data();
    void endsInRedForABinaryThatChangesMeanwhile();
    void neverWaitsForAPipeInPlaceOfAnOutput_data();
    void neverWaitsForAPipeInPlaceOfAnOutput();
    void endsInRedWhenTheFolderVanishes();
    void writesThroughALink();

    void inspectsNothingButAFile_data() { addPlaces(); }
    void inspectsNothingButAFile();
    void inspectsAnImageBesideADigestThatIsNoFile();

    void opensNoDesignWithoutAFile_data() { addPlaces(); }
    void opensNoDesignWithoutAFile();
    void opensNoDesignOfOneGibibyte();
    void savesADesignInPlaceOfWhatIsThere_data();
    void savesADesignInPlaceOfWhatIsThere();
    void archivesNothingButAFile_data() { addPlaces(); }
    void archivesNothingButAFile();

    void startsWithFirmwareWithoutSettings_data();
    void startsWithFirmwareWithoutSettings();
    void startsWithFirmwareForDamagedSettings();
    void keepsTheSettingsOnAFullDisk();

private:
    /// Fills in a binary and generates; every question is answered with Yes.
    void generate();

    QScopedPointer<GeneratorDriver> m_driver;
};

void FaultyFilesTest::init() { m_driver.reset(new GeneratorDriver); }

void FaultyFilesTest::cleanup()
{
    QCOMPARE(m_driver->listFault(), QString());
    m_driver.reset();
}

void FaultyFilesTest::loadsNothingButAFile()
{
    QFETCH(Place, place);
    m_driver->upload("old", "o", "o", "o");
    m_driver->type("AuthoEditBox", "R. Vos");
    const QString path = m_driver->path("top.txt");
    place(path);
    m_driver->window()->setTxtFile(path);
    QCOMPARE(m_driver->text("StatusBar"), "<font color='red'>Loading " + path + " failed.</font>");
    QCOMPARE(m_driver->text("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(m_driver->functionNames(), QStringList("old"));
    QCOMPARE(m_driver->log().size(), 1);
    const QString logged = m_driver->log().constFirst();
    QVERIFY2(logged.startsWith("8 Pelk FCF Generator: \"" + path + "\" cannot be loaded: "),
             qPrintable(logged));
    QVERIFY2(!logged.contains("Unknown error"), qPrintable(logged));
}

void FaultyFilesTest::logsATextWithoutEnd_data()
{
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<QString>("reason");
    const QByteArray header = "CI No: 1\nAuthor: a\nDate: d\nTime: t\nDescription: d\n---\n";
    QTest::newRow("a short one") << QByteArray("CI No: 1\n")
                                 << "it ends before the end mark of its text";
    QTest::newRow("a long one") << QByteArray(FcfReader::MaximumBytes, 'x')
                                << "its text does not end within 16777216 bytes";
    QTest::newRow("a function name without end")
        << header + QByteArray(FcfReader::MaximumFunctionBytes + 3000, 'n')
        << "its functions do not end within 1048576 bytes";
    QTest::newRow("a function too many")
        << header + QByteArray("\n\n\n: ---\n").repeated(FcfReader::MaximumFunctions + 1) + "----\n"
        << "it has more than 30000 functions";
}

void FaultyFilesTest::logsATextWithoutEnd()
{
    QFETCH(QByteArray, rest);
    QFETCH(QString, reason);
    const QString path =
        m_driver->write("top.txt", ForgedImage().preamble() + "\nFilename: top.fcf\n" + rest);
    m_driver->window()->setTxtFile(path);
    QCOMPARE(m_driver->text("StatusBar"), "<font color='red'>Loading " + path + " failed.</font>");
    QCOMPARE(m_driver->log(),
             QStringList(
                 QString("8 Pelk FCF Generator: \"%1\" cannot be loaded: %2.").arg(path, reason)));
}

void FaultyFilesTest::generate()
{
    m_driver->type("AuthoEditBox", "a");
    m_driver->type("CiNumEditBox", "1");
    m_driver->click("GenerateButton");
    QVERIFY(!m_driver->window()->isVisible());
}

void FaultyFilesTest::endsInRedForABinaryThatIsNoFile()
{
    QFETCH(Place, place);
    const QString binary = m_driver->path("top.bin");
    place(binary);
    m_driver->window()->setBinFile(binary);
    generate();
    QCOMPARE(m_driver->text("StatusBar"), QString(GeneratorTest::Red));
    QCOMPARE(m_driver->log().size(), 1);
    QVERIFY2(!m_driver->log().constFirst().contains("Unknown error"),
             qPrintable(m_driver->log().constFirst()));
    QCOMPARE(m_driver->dialogs().texts(), QStringList());
}

void FaultyFilesTest::endsInRedForABinaryThatChangesMeanwhile_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("shrinks") << 700 << "the payload ends after 700 of 5000 bytes";
    QTest::newRow("is emptied") << 0 << "the payload ends after 0 of 5000 bytes";
    QTest::newRow("grows") << 5001 << "the payload is longer than its 5000 bytes";
}

void FaultyFilesTest::endsInRedForABinaryThatChangesMeanwhile()
{
    QFETCH(int, bytes);
    QFETCH(QString, reason);
    const QString binary = m_driver->binary("top.bin", 5000);
    m_driver->fillIn(binary);
    // The clock is read once all three files are open.
    m_driver->window()->setClock([binary, bytes] {
        QFile::resize(binary, bytes);
        return QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7));
    });
    m_driver->click("GenerateButton");
    QCOMPARE(m_driver->text("StatusBar"), QString(GeneratorTest::Red));
    QCOMPARE(m_driver->log(), QStringList("8 Pelk FCF Generator: \"" + m_driver->path("top.fcf") +
                                          "\" is not complete: " + reason + "."));
}

void FaultyFilesTest::neverWaitsForAPipeInPlaceOfAnOutput_data()
{
    QTest::addColumn<QString>("pipe");
    QTest::addColumn<QString>("file");
    QTest::newRow("of the image") << "top.fcf"
                                  << "";
    QTest::newRow("of the companion") << "top.txt"
                                      << "";
    QTest::newRow("of the companion of an image to be overwritten") << "top.txt"
                                                                    << "top.fcf";
}

void FaultyFilesTest::neverWaitsForAPipeInPlaceOfAnOutput()
{
    QFETCH(QString, pipe);
    QFETCH(QString, file);
    m_driver->fillIn(m_driver->binary("top.bin", 10));
    placePipe(m_driver->path(pipe));
    if (!file.isEmpty())
        m_driver->write(file, "old");
    if (pipe == "top.fcf" || !file.isEmpty())
        m_driver->dialogs().click(QMessageBox::Yes);
    m_driver->dialogs().click(QMessageBox::Ok);
    m_driver->click("GenerateButton");
    QCOMPARE(m_driver->text("StatusBar"), QString(GeneratorTest::Red));
    QCOMPARE(m_driver->dialogs().texts().constLast(), "can't open " + m_driver->path(pipe));
    QVERIFY(m_driver->dialogs().allGiven());
}

void FaultyFilesTest::endsInRedWhenTheFolderVanishes()
{
    QVERIFY(QDir().mkpath(m_driver->path("disk")));
    m_driver->fillIn(m_driver->binary("disk/top.bin", 5000));
    const QString folder = m_driver->path("disk");
    m_driver->window()->setClock([folder] {
        QDir(folder).removeRecursively();
        return QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7));
    });
    m_driver->click("GenerateButton");
    QCOMPARE(m_driver->text("StatusBar"), QString(GeneratorTest::Red));
    QCOMPARE(m_driver->log(),
             QStringList("8 Pelk FCF Generator: \"" + folder +
                         "/top.fcf\" is not complete: it has 0 bytes, but 169 were written."));
    QVERIFY(!QFileInfo::exists(folder));
}

void FaultyFilesTest::writesThroughALink()
{
    m_driver->fillIn(m_driver->binary("top.bin", 5000));
    QVERIFY(QFile::link("target.fcf", m_driver->path("top.fcf")));
    QVERIFY(QFile::link("target.txt", m_driver->path("top.txt")));
    m_driver->click("GenerateButton");
    QVERIFY(m_driver->text("StatusBar").contains("Successfully"));
    QVERIFY(QFileInfo(m_driver->path("top.fcf")).isSymLink());
    const PlainFcf image = PlainFcf::fromFile(m_driver->path("target.fcf").toStdString());
    QCOMPARE(image.fault, std::string());
    QCOMPARE(image.payload.size(), std::size_t(5000));
}

void FaultyFilesTest::inspectsNothingButAFile()
{
    QFETCH(Place, place);
    const QString path = m_driver->path("top.fcf");
    place(path);
    const ImageReport report = ImageReport::of(path);
    QCOMPARE(report.findings.size(), 1);
    QCOMPARE(report.rows.size(), 1);
}

void FaultyFilesTest::inspectsAnImageBesideADigestThatIsNoFile()
{
    const QString path = m_driver->writeHeader("top.fcf", sampleHeader());
    const int rows = ImageReport::of(path).rows.size();
    placePipe(path + ".sha256");
    QCOMPARE(ImageReport::of(path).rows.size(), rows);
}

void FaultyFilesTest::opensNoDesignWithoutAFile()
{
    QFETCH(Place, place);
    place(m_driver->path("design.json"));
    const QString error = hostErrorOf([this] { DesignStorage::load(m_driver->path("")); });
    QVERIFY2(error.contains("design.json: "), qPrintable(error));
    QVERIFY2(!error.contains("Unknown error"), qPrintable(error));
}

void FaultyFilesTest::opensNoDesignOfOneGibibyte()
{
    const QString path = m_driver->write("design.json", "{");
    QVERIFY(QFile::resize(path, 1LL << 30));
    const QString error = hostErrorOf([this] { DesignStorage::load(m_driver->path("")); });
    QVERIFY2(error.endsWith("it is too large: 1073741824 bytes"), qPrintable(error));
}

void FaultyFilesTest::savesADesignInPlaceOfWhatIsThere_data()
{
    QTest::addColumn<Place>("place");
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("nothing") << Place(placeNothing) << true;
    QTest::newRow("a pipe") << Place(placePipe) << false;
    QTest::newRow("a link to a pipe") << Place(placeLinkToPipe) << false;
    QTest::newRow("a folder") << Place(placeFolder) << false;
    QTest::newRow("a link to nothing") << Place(placeLinkToNothing) << true;
}

void FaultyFilesTest::savesADesignInPlaceOfWhatIsThere()
{
    QFETCH(Place, place);
    QFETCH(bool, isSaved);
    const QString folder = m_driver->path("design");
    QVERIFY(QDir().mkpath(folder));
    place(folder + "/design.json");
    OrvanticCore::Design design(folder, "Firmware Design");
    const QString error = hostErrorOf([&design] { DesignStorage::save(&design); });
    QCOMPARE(error.isEmpty(), isSaved);
    if (isSaved)
        DesignStorage::load(folder);
    else
        QVERIFY(!QFileInfo(folder + "/design.json").isFile());
}

void FaultyFilesTest::archivesNothingButAFile()
{
    QFETCH(Place, place);
    ArchiveMember member;
    member.kind = ArchiveMember::File;
    member.name = "top.bin";
    member.source = m_driver->path("top.bin");
    place(member.source);
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    ArchiveWriter writer(&buffer, "archive", ArchiveFormat::Zip);
    try {
        writer.add(member, [](qint64) {});
        QFAIL("it was archived");
    } catch (const HostError& error) {
        QVERIFY2(error.text().contains(member.source), qPrintable(error.text()));
        QVERIFY2(!error.text().contains("Unknown error"), qPrintable(error.text()));
    }
}

void FaultyFilesTest::startsWithFirmwareWithoutSettings_data()
{
    QTest::addColumn<Place>("place");
    QTest::newRow("nothing") << Place(placeNothing);
    QTest::newRow("a folder") << Place(placeFolder);
    QTest::newRow("a link to nothing") << Place(placeLinkToNothing);
    QTest::newRow("a link to itself") << Place(placeLinkToItself);
}

void FaultyFilesTest::startsWithFirmwareWithoutSettings()
{
    QFETCH(Place, place);
    ArchiveHost host;
    QFile::remove(host.settingsPath());
    place(host.settingsPath());
    host.restart();
    QCOMPARE(host.packageType()->currentText(), QString("7010 (Firmware)"));
    host.packageType()->setCurrentIndex(1);
    QCOMPARE(host.packageType()->currentText(), QString("7030 (Software)"));
}

void FaultyFilesTest::startsWithFirmwareForDamagedSettings()
{
    ArchiveHost host;
    QFile settings(host.settingsPath());
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.write(ToolFixture::payload(5000));
    settings.close();
    host.restart();
    QCOMPARE(host.packageType()->currentText(), QString("7010 (Firmware)"));
}

void FaultyFilesTest::keepsTheSettingsOnAFullDisk()
{
    ArchiveHost host("7030 (Software)");
    QFile settings(host.settingsPath());
    QVERIFY(settings.open(QIODevice::ReadOnly));
    const QByteArray before = settings.readAll();
    settings.close();
    {
        const FullDisk disk(0);
        host.packageType()->setCurrentIndex(0);
        QCOMPARE(host.packageType()->currentText(), QString("7010 (Firmware)"));
    }
    QVERIFY(settings.open(QIODevice::ReadOnly));
    QCOMPARE(settings.readAll(), before);
}

ZORV_WINDOW_TEST(FaultyFilesTest)
#include "FaultyFilesTest.moc"
