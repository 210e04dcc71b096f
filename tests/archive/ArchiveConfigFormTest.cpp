#include "archive/ArchiveHost.h"
#include "support/TestProgram.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QtTest>
#include <QVBoxLayout>

using ZORV_Plugin::ZORV_ArchiveConfigExtension;

class ArchiveConfigFormTest : public QObject {
    Q_OBJECT

private slots:
    void init() { host.reset(new ArchiveHost); }

    void hasAFrameOfItsOwnSize();
    void hasNoIconWhereTheHostHasNone();
    void takesAParent();
    void laysTheGridOut_data();
    void laysTheGridOut();
    void putsASpacerBehindEachLabel_data();
    void putsASpacerBehindEachLabel();
    void limitsItsFields();

private:
    QGridLayout* grid() const { return host->find<QGridLayout>("gridLayout"); }

    QScopedPointer<ArchiveHost> host;
};

void ArchiveConfigFormTest::hasAFrameOfItsOwnSize()
{
    const auto* const form = host->extension();
    QCOMPARE(form->objectName(), QString("ZORV_ArchiveConfigExtension"));
    QCOMPARE(form->size(), QSize(544, 175));
    QCOMPARE(form->windowTitle(), QString("Create Design Archive"));
    QCOMPARE(form->layout(), host->find<QVBoxLayout>("verticalLayout"));
    QCOMPARE(form->layout()->count(), 1);
    auto* const group = host->find<QGroupBox>("groupBoxConfigParameters");
    QCOMPARE(form->layout()->itemAt(0)->widget(), group);
    QCOMPARE(group->title(), QString("Configuration Parameters"));
    QCOMPARE(group->layout(), grid());
}

void ArchiveConfigFormTest::hasNoIconWhereTheHostHasNone()
{
    QVERIFY(!QFile::exists(":/icons/config_output_16x16.png"));
    QVERIFY(host->extension()->windowIcon().pixmap(16).isNull());
}

void ArchiveConfigFormTest::takesAParent()
{
    QWidget parent;
    const ZORV_ArchiveConfigExtension child(&parent);
    QCOMPARE(child.parent(), &parent);
}

void ArchiveConfigFormTest::laysTheGridOut_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QList<int>>("place");
    QTest::addColumn<QString>("text");

    const auto row = [](const char* name, const QList<int>& place, const char* text) {
        QTest::newRow(name) << QByteArray(name) << place << QString(text);
    };
    row("label_3", {0, 0, 1, 1}, "Project CM:");
    row("txtProjectCM", {0, 2, 1, 2}, "GNRL");
    row("label_2", {1, 0, 1, 1}, "Package Type:");
    row("cmbPackageType", {1, 2, 1, 2}, "7010 (Firmware)");
    row("labelFirmwareDesignType", {2, 0, 1, 1}, "Design Type:");
    row("cmbDesignType", {2, 2, 1, 2}, "Electrical Test Firmware");
    row("label_5", {3, 0, 1, 1}, "Sequence Number:");
    row("spinBoxSequenceNumber", {3, 3, 1, 1}, "1");
    row("label_6", {4, 0, 1, 1}, "Revision:");
    row("spinBoxVersionMajor", {4, 2, 1, 1}, "0");
    row("spinBoxVersionMinor", {4, 3, 1, 1}, "0");
}

void ArchiveConfigFormTest::laysTheGridOut()
{
    QFETCH(QByteArray, name);
    auto* const widget = host->find<QWidget>(name.constData());
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid()->getItemPosition(grid()->indexOf(widget), &row, &column, &rows, &columns);
    QTEST(QList<int>({row, column, rows, columns}), "place");
    const char* const property = widget->inherits("QComboBox")  ? "currentText"
                                 : widget->inherits("QSpinBox") ? "value"
                                                                : "text";
    QTEST(widget->property(property).toString(), "text");
    QCOMPARE(grid()->count(), 16);
}

void ArchiveConfigFormTest::putsASpacerBehindEachLabel_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("spansTwoColumns");

    QTest::newRow("project") << 0 << 386 << false;
    QTest::newRow("package type") << 1 << 386 << false;
    QTest::newRow("design type") << 2 << 386 << false;
    QTest::newRow("sequence number") << 3 << 464 << true;
    QTest::newRow("revision") << 4 << 386 << false;
}

void ArchiveConfigFormTest::putsASpacerBehindEachLabel()
{
    QFETCH(int, row);
    QFETCH(int, width);
    QFETCH(bool, spansTwoColumns);
    QLayoutItem* const item = grid()->itemAtPosition(row, 1);
    QVERIFY(item);
    const QSpacerItem* const spacer = item->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(width, 20));
    QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(grid()->itemAtPosition(row, 2) == item, spansTwoColumns);
}

void ArchiveConfigFormTest::limitsItsFields()
{
    QCOMPARE(host->projectCm()->minimumSize(), QSize(0, 0));
    for (QComboBox* box : {host->packageType(), host->designType()}) {
        QVERIFY(!box->isEditable());
        QCOMPARE(box->minimumSize(), QSize(150, 0));
        QCOMPARE(box->maximumSize(), QSize(150, 16777215));
    }
    QCOMPARE(host->sequence()->minimum(), 1);
    for (QSpinBox* box : {host->major(), host->minor()})
        QCOMPARE(box->minimum(), 0);
    for (QSpinBox* box : {host->sequence(), host->major(), host->minor()}) {
        QCOMPARE(box->maximum(), 99);
        QCOMPARE(box->singleStep(), 1);
    }
    host->sequence()->setValue(0);
    QCOMPARE(host->sequence()->value(), 1);
    QVERIFY(!host->packageType()->itemData(0).isValid());
    QVERIFY(!host->packageType()->itemData(1).isValid());
    QCOMPARE(host->packageType()->count(), 2);
}

ZORV_WINDOW_TEST(ArchiveConfigFormTest)
#include "ArchiveConfigFormTest.moc"
