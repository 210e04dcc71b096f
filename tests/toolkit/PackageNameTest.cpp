#include "toolkit/Host.h"
#include "toolkit/Tests.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignArchiveOutputParserDialog.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>
#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QComboBox>
#include <QSettings>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using OrvanticCore::IDesign;
using OrvanticCore::Interfaces::IDesignArchiveExtension;

namespace {

/// A dialog that archives into ".zip", and notes what the extension does to its controls.
class ArchiveDialog : public OrvanticCore::DesignArchiveOutputParserDialog {
public:
    explicit ArchiveDialog(IDesign* design) : m_design(design) {}

    QString currentExtension() const override { return QLatin1String("zip"); }
    IDesign* design() const override { return m_design; }
    void setAppendVersionCheckboxVisible(bool visible) override { note("version", visible); }
    void setDestinationPathReadOnly(bool read_only) override { note("read-only", read_only); }
    void setIncludedItemsGroupboxVisible(bool visible) override { note("items", visible); }

    QStringList notes;

private:
    void note(const char* what, bool value)
    {
        notes << QString::fromLatin1("%1 %2").arg(QLatin1String(what)).arg(value);
    }

    IDesign* m_design;
};

} // namespace

class PackageNameTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void namesThePackageFromTheForm();
    void goesToTheFolderOfTheStructure();
    void setsUpTheDialog();
    void remembersThePackageType();

private:
    QScopedPointer<Design> m_design;
    QScopedPointer<ArchiveDialog> m_dialog;
    IDesignArchiveExtension* m_extension;
    QWidget* m_form;
};

void PackageNameTest::init()
{
    m_extension = Host::pooled<IDesignArchiveExtension>();
    QVERIFY(m_extension);
    m_form = m_extension->extensionWidget();
    m_design.reset(new Design(QLatin1String("/designs/radar"), QLatin1String("Firmware Design")));
    m_design->setVersion(1, 0);
    m_dialog.reset(new ArchiveDialog(m_design.data()));
    m_extension->setArchiveDialogWidget(m_dialog.data());
    enter(m_form, "txtProjectCM", QLatin1String("GNRL"));
}

void PackageNameTest::cleanup()
{
    choose(m_form, "cmbPackageType", QLatin1String("7010 (Firmware)"));
    find<QSpinBox>(m_form, "spinBoxSequenceNumber")->setValue(1);
    m_extension->setArchiveDialogWidget(nullptr);
}

void PackageNameTest::namesThePackageFromTheForm()
{
    QCOMPARE(m_extension->archiveType(), QString::fromLatin1("VKT Config Package"));
    QCOMPARE(m_extension->destinationPathOnActivation(),
             QString::fromLatin1("/designs/radar/7010-GNRL-ELEC-FW-01-V-01_00.zip"));
    QSignalSpy changed(m_extension->objectBase(), SIGNAL(destinationPathChanged(QString)));
    choose(m_form, "cmbDesignType", QLatin1String("Functional Firmware"));
    find<QSpinBox>(m_form, "spinBoxSequenceNumber")->setValue(42);
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.last().first().toString(),
             QString::fromLatin1("/designs/radar/7010-GNRL-FUNC-FW-42-V-01_00.zip"));
    choose(m_form, "cmbPackageType", QLatin1String("7030 (Software)"));
    QCOMPARE(itemsOf(m_form, "cmbDesignType").count(), 9);
    QCOMPARE(m_extension->destinationPathOnActivation(),
             QString::fromLatin1("/designs/radar/7030-GNRL-CMPL-SW-42-V-01_00.zip"));
}

void PackageNameTest::goesToTheFolderOfTheStructure()
{
    DesignStructure* const structure = new DesignStructure;
    structure->addFileAssociation(QLatin1String("*.zip"), QLatin1String("Archives"),
                                  QLatin1String("archives"));
    m_design->setStructure(structure);
    m_extension->setArchiveDialogWidget(m_dialog.data());
    QCOMPARE(m_extension->destinationPathOnActivation(),
             QString::fromLatin1("/designs/radar/archives/7010-GNRL-ELEC-FW-01-V-01_00.zip"));
}

void PackageNameTest::setsUpTheDialog()
{
    m_extension->updateArchiveDialogWidget();
    QCOMPARE(m_dialog->notes, QStringList()
                                  << QLatin1String("version 0") << QLatin1String("read-only 1")
                                  << QLatin1String("items 0"));
    QCOMPARE(int(m_extension->archiveDesignItems()), 0x13);
    QVERIFY(m_extension->archiveIncludeInstaller());
    QVERIFY(m_extension->designTypeNames().isEmpty());
}

void PackageNameTest::remembersThePackageType()
{
    choose(m_form, "cmbPackageType", QLatin1String("7030 (Software)"));
    const QSettings settings(DesignManager::instance()->settingsFilePath(), QSettings::IniFormat);
    QCOMPARE(settings.value(QLatin1String("Plugins/ZORV_Plugin/active_package_type")).toString(),
             QString::fromLatin1("7030 (Software)"));
}

QObject* newPackageNameTest() { return new PackageNameTest; }

#include "PackageNameTest.moc"
