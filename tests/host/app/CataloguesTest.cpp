#include "host/app/Catalogues.h"
#include "support/TestProgram.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("PelkFcfGenerator", text);
}

} // namespace

/// Runs in German, in which the plug-in has a catalogue.
class CataloguesTest : public QObject {
    Q_OBJECT

private slots:
    void takesNoCatalogueWithoutItsPlugin();
    void installsTheCatalogueBesideAPlugin();
};

void CataloguesTest::takesNoCatalogueWithoutItsPlugin()
{
    QTemporaryDir folder;
    QVERIFY(
        QFile::copy(ZORV_PLUGIN_FOLDER "/ZORV_Plugin_de.qm", folder.filePath("ZORV_Plugin_de.qm")));
    Catalogues::installForPlugins({folder.path()});
    QCOMPARE(translated("Generate"), QString("Generate"));
}

void CataloguesTest::installsTheCatalogueBesideAPlugin()
{
    Catalogues::installForPlugins({"/no/such/folder", ZORV_PLUGIN_FOLDER});
    QCOMPARE(translated("Generate"), QString("Erzeugen"));
}

ZORV_TEST_MAIN(CataloguesTest)
{
    // Made by scripts/setup.
    qputenv("LC_ALL", "de_DE.UTF-8");
    QCoreApplication application(argc, argv);
    CataloguesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "CataloguesTest.moc"
