// The form for configuration packages and its model get the same actions in random order, and look
// the same after each of them and at each of the form's signals.

#include "archive/ArchiveModelTest.h"

#include "support/FindWidget.h"

#include <OrvanticCore/DesignManager.h>

#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QSettings>
#include <QSpinBox>
#include <QtTest>

using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using OrvanticCore::Interfaces::IDesignArchiveExtension;

namespace {

const char PackageTypeKey[] = "Plugins/ZORV_Plugin/active_package_type";

/// The folders for which the structures have rules, by extension.
QMap<QString, QString> folders(int kind)
{
    QMap<QString, QString> folders;
    if (kind > 1)
        folders[QLatin1String("zip")] = QLatin1String("archives");
    if (kind > 2) {
        folders[QLatin1String("tar.gz")] = QLatin1String("of tape/a.zip");
        folders[QString()] = QLatin1String("nameless");
    }
    return folders;
}

/// Selects an item, -1 for none. Qt 6 would announce once more that none is selected.
void select(QComboBox* box, int index)
{
    if (box->currentIndex() != index)
        box->setCurrentIndex(index);
}

} // namespace

QList<Model::Kind> ArchiveModelTest::kinds() const
{
    return QList<Kind>() << Kind{"settings-before", 2} << Kind{"restart", 3} << Kind{"project", 5}
                         << Kind{"key", 5} << Kind{"package-type", 6} << Kind{"design-type", 6}
                         << Kind{"number", 6} << Kind{"dialog", 8} << Kind{"slot", 4}
                         << Kind{"design", 5} << Kind{"answers", 4} << Kind{"close-design", 2}
                         << Kind{"settings", 3} << Kind{"translator", 2};
}

QStringList ArchiveModelTest::branches() const
{
    return QStringList() << QLatin1String("a label without a code is listed")
                         << QLatin1String("another answer for the extension")
                         << QLatin1String("dialog taken back")
                         << QLatin1String("dialog without a design")
                         << QLatin1String("mapped folder") << QLatin1String("name")
                         << QLatin1String("no folder mapped") << QLatin1String("no package type")
                         << QLatin1String("same dialog again") << QLatin1String("version clamped");
}

void ArchiveModelTest::begin()
{
    m_model = ArchiveModel();
    m_trace.clear();
    for (int file = 0; file < Files; ++file) {
        const QString path = folder() + QString::fromLatin1("/%1.ini").arg(file);
        QFile::remove(path);
        QSettings(path, QSettings::IniFormat).sync();
        m_model.saved << QString();
    }
    DesignManager::instance()->setSettingsFilePath(folder() + QLatin1String("/0.ini"));
    for (int index = 0; index < Hosted; ++index) {
        m_designs << nullptr;
        m_model.designs << ArchivedDesign();
        openDesign(index);
        m_dialogs << new NotingArchiveDialog(index, &m_trace);
        m_dialogs.last()->extensions = QStringList(QLatin1String(index == 0 ? "zip" : "tar.gz"));
        m_dialogs.last()->archived = m_designs.at(index);
        m_model.dialogs << ArchivingDialog();
        m_model.dialogs.last().extensions = m_dialogs.last()->extensions;
        m_model.dialogs.last().design = index;
    }
    make();
    m_model.make();
}

void ArchiveModelTest::make()
{
    m_plugin.start();
    m_extension = LoadedPlugin::pooled<IDesignArchiveExtension>();
    connect(m_extension->objectBase(), SIGNAL(destinationPathChanged(QString)),
            SLOT(notePath(QString)));
}

void ArchiveModelTest::end()
{
    m_extension->setArchiveDialogWidget(nullptr);
    QCoreApplication::removeTranslator(&m_translator);
    m_plugin.end();
    qDeleteAll(m_dialogs);
    m_dialogs.clear();
    qDeleteAll(m_designs);
    m_designs.clear();
}

void ArchiveModelTest::openDesign(int index)
{
    RecordingDesign* const design =
        new RecordingDesign(QString::fromLatin1("/work.zip/design %1").arg(index), &m_trace);
    design->major = 3 + index;
    design->minor = 14 + index;
    m_designs[index] = design;
    ArchivedDesign& modelled = m_model.designs[index];
    modelled = ArchivedDesign();
    modelled.major = design->major;
    modelled.minor = design->minor;
    modelled.folder = design->folder;
}

void ArchiveModelTest::notePath(const QString& path)
{
    m_trace << QLatin1String("emit ") + path << state();
}

QString ArchiveModelTest::perform(const ModelAction& action)
{
    typedef void (ArchiveModelTest::*Act)(const ModelAction&);
    const Act acts[] = {&ArchiveModelTest::prepareSettings,   &ArchiveModelTest::restart,
                        &ArchiveModelTest::typeProjectCm,     &ArchiveModelTest::pressKey,
                        &ArchiveModelTest::choosePackageType, &ArchiveModelTest::chooseDesignType,
                        &ArchiveModelTest::setNumber,         &ArchiveModelTest::setDialog,
                        &ArchiveModelTest::callSlot,          &ArchiveModelTest::changeDesign,
                        &ArchiveModelTest::changeDialog,      &ArchiveModelTest::closeDesign,
                        &ArchiveModelTest::changeSettings,    &ArchiveModelTest::translate};
    m_trace.clear();
    m_model.trace.clear();
    (this->*acts[action.kind])(action);
    if (!m_model.trace.isEmpty())
        reach("name");
    if (m_model.packageType < 0)
        reach("no package type");
    if (m_model.firmware.contains(QString()) && m_model.designTypes.contains(QString()))
        reach("a label without a code is listed");
    return difference(m_model.trace + m_model.state(), m_trace + state());
}

// What the settings have when the next form is made.
void ArchiveModelTest::prepareSettings(const ModelAction& action)
{
    const char* const values[] = {"7010 (Firmware)", "7030 (Software)", "7030", "",
                                  "7030 (software)"};
    const int file = action.choice(0, Files);
    const QString value = QLatin1String(values[action.choice(1, 5)]);
    QSettings settings(folder() + QString::fromLatin1("/%1.ini").arg(file), QSettings::IniFormat);
    settings.setValue(QLatin1String("Others/of another"), QLatin1String("kept"));
    settings.setValue(QLatin1String(PackageTypeKey), value);
    settings.sync();
    m_model.saved[file] = value;
}

void ArchiveModelTest::restart(const ModelAction&)
{
    m_extension->setArchiveDialogWidget(nullptr);
    m_plugin.end();
    make();
    m_model.make();
}

void ArchiveModelTest::typeProjectCm(const ModelAction& action)
{
    const char* const texts[] = {"GNRL", "", " hx 7 ", "a/b.zip", "Ünï"};
    const QString text = QString::fromUtf8(texts[action.choice(0, 5)]);
    find<QLineEdit>(form(), "txtProjectCM")->setText(text);
    m_model.typeProjectCm(text);
}

void ArchiveModelTest::pressKey(const ModelAction& action)
{
    if (action.choice(0, 2) == 0) {
        QLineEdit* const line = find<QLineEdit>(form(), "txtProjectCM");
        line->end(false);
        QTest::keyClick(line, Qt::Key_X);
        m_model.typeProjectCm(m_model.projectCm + QLatin1Char('x'));
        return;
    }
    const bool up = action.choice(1, 2) == 0;
    const Qt::Key key = up ? Qt::Key_Up : Qt::Key_Down;
    QTest::keyClick(find<QWidget>(form(), "spinBoxSequenceNumber"), key);
    m_model.setSequence(m_model.sequence + (up ? 1 : -1));
    QTest::keyClick(find<QWidget>(form(), "spinBoxVersionMajor"), key);
    m_model.setMajor(m_model.major + (up ? 1 : -1));
}

void ArchiveModelTest::choosePackageType(const ModelAction& action)
{
    const int index = action.choice(0, 3) - 1;
    select(find<QComboBox>(form(), "cmbPackageType"), index);
    m_model.choosePackageType(index);
}

void ArchiveModelTest::chooseDesignType(const ModelAction& action)
{
    QComboBox* const box = find<QComboBox>(form(), "cmbDesignType");
    if (action.choice(0, 8) == 0) {
        const QString label = QString::fromLatin1("Foreign %1").arg(action.choice(1, 3));
        box->addItem(label);
        m_model.addDesignType(label);
        return;
    }
    const int index = action.choice(1, m_model.designTypes.count() + 1) - 1;
    select(box, index);
    m_model.chooseDesignType(index);
}

void ArchiveModelTest::setNumber(const ModelAction& action)
{
    const int value = action.choice(0, 2) == 0 ? action.numbers[1] : action.numbers[1] * 3 - 50;
    switch (action.choice(2, 3)) {
    case 0:
        find<QSpinBox>(form(), "spinBoxSequenceNumber")->setValue(value);
        m_model.setSequence(value);
        return;
    case 1:
        find<QSpinBox>(form(), "spinBoxVersionMajor")->setValue(value);
        m_model.setMajor(value);
        return;
    default:
        find<QSpinBox>(form(), "spinBoxVersionMinor")->setValue(value);
        m_model.setMinor(value);
    }
}

void ArchiveModelTest::setDialog(const ModelAction& action)
{
    const int index = action.choice(0, 5) == 0 ? -1 : action.choice(1, Hosted);
    if (index < 0 && m_model.dialog >= 0)
        reach("dialog taken back");
    if (index >= 0 && index == m_model.dialog)
        reach("same dialog again");
    if (index >= 0 && m_model.dialogs.at(index).design < 0)
        reach("dialog without a design");
    if (index >= 0 && m_model.dialogs.at(index).design >= 0 &&
        m_model.designs.at(m_model.dialogs.at(index).design).major > 99)
        reach("version clamped");
    m_extension->setArchiveDialogWidget(index < 0 ? nullptr : m_dialogs.at(index));
    m_model.setDialog(index);
}

void ArchiveModelTest::callSlot(const ModelAction& action)
{
    QObject* const object = m_extension->objectBase();
    switch (action.choice(0, 4)) {
    case 0:
        QMetaObject::invokeMethod(object, "updatePackageName");
        m_model.updatePackageName();
        return;
    case 1:
        QMetaObject::invokeMethod(object, "handlePackageTypeChange");
        m_model.handlePackageTypeChange();
        return;
    case 2:
        m_extension->handleDestinationPathChanged(QLatin1String("/of/the/dialog.zip"));
        return;
    default:
        m_extension->updateArchiveDialogWidget();
        m_model.updateDialog();
    }
}

void ArchiveModelTest::changeDesign(const ModelAction& action)
{
    const int index = action.choice(0, Hosted);
    RecordingDesign* const design = m_designs.at(index);
    ArchivedDesign& modelled = m_model.designs[index];
    if (action.choice(1, 2) == 0) {
        const int majors[] = {0, 5, 12, 99, 100, 2026, -1};
        design->major = modelled.major = majors[action.choice(2, 7)];
        design->minor = modelled.minor = majors[action.numbers[2] / 7 % 7];
        return;
    }
    const int kind = action.choice(2, 4);
    design->ownStructure.reset(kind == 0 ? nullptr : new DesignStructure);
    modelled.hasStructure = kind != 0;
    modelled.folders = folders(kind);
    foreach (const QString& extension, modelled.folders.keys()) {
        // A file of that name is kept elsewhere than others of its extension.
        design->ownStructure->addFileAssociation(QLatin1String("a.") + extension,
                                                 QLatin1String("Named"), QLatin1String("named"));
        design->ownStructure->addFileAssociation(QLatin1String("*.") + extension,
                                                 QLatin1String("Packages"),
                                                 modelled.folders.value(extension));
    }
    reach(modelled.folders.isEmpty() ? "no folder mapped" : "mapped folder");
}

void ArchiveModelTest::changeDialog(const ModelAction& action)
{
    const int index = action.choice(0, Hosted);
    const char* const extensions[] = {"zip", "tar.gz", "", "7z"};
    QStringList answers(QLatin1String(extensions[action.choice(1, 4)]));
    if (action.numbers[1] > 50) {
        answers << QLatin1String(extensions[(action.numbers[1] + 1) % 4]);
        reach("another answer for the extension");
    }
    m_dialogs.at(index)->extensions = m_model.dialogs[index].extensions = answers;
    const int design = action.choice(2, Hosted + 1) - 1;
    m_dialogs.at(index)->archived = design < 0 ? nullptr : m_designs.at(design);
    m_model.dialogs[index].design = design;
}

void ArchiveModelTest::closeDesign(const ModelAction& action)
{
    const int index = action.choice(0, Hosted);
    for (int dialog = 0; dialog < Hosted; ++dialog) {
        if (m_model.dialogs.at(dialog).design == index) {
            m_dialogs.at(dialog)->archived = nullptr;
            m_model.dialogs[dialog].design = -1;
        }
    }
    delete m_designs.at(index);
    openDesign(index);
}

void ArchiveModelTest::changeSettings(const ModelAction& action)
{
    m_model.settings = action.choice(0, Files);
    DesignManager::instance()->setSettingsFilePath(
        folder() + QString::fromLatin1("/%1.ini").arg(m_model.settings));
}

void ArchiveModelTest::translate(const ModelAction& action)
{
    m_model.marks = action.choice(0, 2) == 0;
    QCoreApplication::removeTranslator(&m_translator);
    if (m_model.marks)
        QCoreApplication::installTranslator(&m_translator);
    // The windows get to know it when events run.
    QCoreApplication::processEvents();
}

static Model* makeModel(const QString& folder) { return new ArchiveModelTest(folder); }

int main(int argc, char** argv)
{
    return runModel(argc, argv, QString::fromUtf8(ZORV_SEQUENCES), &makeModel);
}

#include "moc_ArchiveModelTest.cpp"
