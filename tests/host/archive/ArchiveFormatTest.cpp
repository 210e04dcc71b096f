#include "host/app/archive/ArchiveDestination.h"
#include "support/TestProgram.h"

#include <OrvanticCore/Design.h>

#include <QtTest>

class ArchiveFormatTest : public QObject {
    Q_OBJECT

private slots:
    void offersZipFirst();
    void changesTheExtensionWithTheFormat_data();
    void changesTheExtensionWithTheFormat();
    void putsASuffixInFrontOfTheExtension_data();
    void putsASuffixInFrontOfTheExtension();
};

void ArchiveFormatTest::offersZipFirst()
{
    QCOMPARE(ArchiveFormats::all(),
             QList<ArchiveFormat>({ArchiveFormat::Zip, ArchiveFormat::TarGz}));
    QCOMPARE(ArchiveFormats::extension(ArchiveFormat::Zip), QString("zip"));
    QCOMPARE(ArchiveFormats::extension(ArchiveFormat::TarGz), QString("tar.gz"));
}

void ArchiveFormatTest::changesTheExtensionWithTheFormat_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("asZip");
    QTest::addColumn<QString>("asTarGz");

    QTest::newRow("zip") << "/a/b.zip"
                         << "/a/b.zip"
                         << "/a/b.tar.gz";
    QTest::newRow("tar.gz") << "/a/b.tar.gz"
                            << "/a/b.zip"
                            << "/a/b.tar.gz";
    QTest::newRow("capitals") << "/a/B.ZIP"
                              << "/a/B.zip"
                              << "/a/B.tar.gz";
    QTest::newRow("dots in the name") << "/a.zip/b-1.0.zip"
                                      << "/a.zip/b-1.0.zip"
                                      << "/a.zip/b-1.0.tar.gz";
    QTest::newRow("an extension of its own") << "/a/b.pkg"
                                             << "/a/b.pkg"
                                             << "/a/b.pkg";
    QTest::newRow("none") << "/a/b"
                          << "/a/b"
                          << "/a/b";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
}

void ArchiveFormatTest::changesTheExtensionWithTheFormat()
{
    QFETCH(QString, path);
    const ArchiveDestination destination(nullptr, QString());
    QTEST(destination.withFormat(path, ArchiveFormat::Zip), "asZip");
    QTEST(destination.withFormat(path, ArchiveFormat::TarGz), "asTarGz");
}

void ArchiveFormatTest::putsASuffixInFrontOfTheExtension_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("with");
    QTest::addColumn<QString>("without");

    QTest::newRow("without one") << "/a/b.zip"
                                 << "/a/b-V-1_0.zip"
                                 << "/a/b.zip";
    QTest::newRow("with one") << "/a/b-V-1_0.tar.gz"
                              << "/a/b-V-1_0.tar.gz"
                              << "/a/b.tar.gz";
    QTest::newRow("with another one") << "/a/b-V-2_0.zip"
                                      << "/a/b-V-2_0-V-1_0.zip"
                                      << "/a/b-V-2_0.zip";
    QTest::newRow("no extension") << "/a/b"
                                  << "/a/b-V-1_0"
                                  << "/a/b";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
}

void ArchiveFormatTest::putsASuffixInFrontOfTheExtension()
{
    QFETCH(QString, path);
    OrvanticCore::Design design("/a", "Firmware Design");
    design.setVersion(1, 0);
    const ArchiveDestination destination(&design, QString());
    QTEST(destination.withVersion(path, true), "with");
    QTEST(destination.withVersion(path, false), "without");
}

ZORV_TEST(ArchiveFormatTest)
#include "ArchiveFormatTest.moc"
