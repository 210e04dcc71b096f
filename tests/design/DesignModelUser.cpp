// What the user does, with the actions and in the window.

#include "design/DesignModelTest.h"

#include "support/FindWidget.h"
#include "support/Offscreen.h"

#include <OrvanticCore/DesignManager.h>

#include <QComboBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

using OrvanticCore::DesignManager;

void DesignModelTest::trigger(const ModelAction& action)
{
    const bool creates = action.choice(0, 2) == 0;
    if (action.numbers[1] < 70) {
        // On a file that has the action, as most often.
        ModelAction click = {0, {0, 0, 3}};
        const int binaries[] = {0, 0, 1, 5, 6};
        const int companions[] = {2, 2, 3, 3, 4};
        click.numbers[1] = 65 + (creates ? binaries : companions)[action.choice(1, 5)];
        clickFile(click);
    }
    QAction* const chosen = creates ? m_create : m_open;
    if (!chosen || !chosen->isEnabled())
        return;
    chosen->trigger();
    ModelAction slot = action;
    slot.numbers[2] = -1;
    callSlot(slot);
}

void DesignModelTest::callSlot(const ModelAction& action)
{
    const bool creates = action.choice(0, 2) == 0;
    // That of an action that was triggered is done already.
    if (action.numbers[2] >= 0)
        QMetaObject::invokeMethod(m_object,
                                  creates ? "handleActionCreateFCF" : "handleActionOpenFCF");
    const QString before = m_model.window.author + m_model.window.description;
    if (!m_model.hasItem)
        reach("no item");
    else if (m_model.onlyDesign() >= 0 && m_model.hasWindow) {
        reach(creates ? "window used again by create" : "window used again by open");
        if (m_model.window.minimized)
            reach("minimized window");
        if (!creates && !before.isEmpty())
            reach(m_model.item.kind == ModelFile::Missing     ? "missing file over a filled form"
                  : m_model.item.kind == ModelFile::Companion ? "companion over a filled form"
                                                              : "foreign file over a filled form");
    }
    if (creates)
        m_model.create();
    else
        m_model.open();
    if (creates && m_model.trace.join(QString()).contains(QLatin1String("box")))
        reach("long description");
}

QStringList DesignModelTest::someNewFiles(const ModelAction& action) const
{
    QStringList paths;
    for (int number = action.numbers[0]; number > 0; number /= 3)
        paths << folder() + QLatin1String("/new ") + QString::number(number % 3) +
                     QLatin1String(" of 100%2 %1.fcf");
    return paths;
}

HostActs DesignModelTest::someActs(const ModelAction& action, const QStringList& paths) const
{
    HostActs acts;
    acts.inEvents = static_cast<HostActs::InEvents>(action.choice(1, 12) % 8);
    if (action.choice(1, 12) > 8)
        acts.inEvents = HostActs::Nothing;
    acts.whenAdded = static_cast<HostActs::WhenAdded>(action.choice(2, 3));
    if (!paths.isEmpty())
        acts.path = paths.at(action.numbers[2] / 3 % paths.count());
    return acts;
}

void DesignModelTest::countBranches(const QStringList& paths, const HostActs& acts)
{
    const int design = m_model.onlyDesign();
    if (paths.isEmpty())
        reach("no paths");
    if (design < 0) {
        reach(DesignManager::instance()->designs().isEmpty() ? "no design" : "two designs");
        return;
    }
    const DesignValues& values = m_model.designs.at(design);
    if (!values.hasStructure)
        reach("no structure");
    else if (values.node.isNull())
        reach("no node");
    if (!values.refusal.isNull())
        reach("refused");
    QStringList different = paths;
    if (different.removeDuplicates() > 0)
        reach("the same path twice");
    foreach (const QString& path, paths) {
        if (values.indexOf(path) >= 0)
            reach("file present");
    }
    if (acts.whenAdded == HostActs::ChangesVersion)
        reach("version changes");
    if (!m_model.hasWindow)
        reach("no window");
    if (acts.inEvents == HostActs::DeletesDesign)
        reach("design deleted in events");
    if (acts.inEvents == HostActs::RemovesFile)
        reach("file removed in events");
    if (acts.inEvents == HostActs::ClosesWindow && m_model.hasWindow)
        reach("window closed in events");
    if (acts.inEvents == HostActs::BeginsCycle)
        reach("cycle of the host");
}

void DesignModelTest::announce(const ModelAction& action)
{
    if (!m_window)
        return;
    const QStringList paths = someNewFiles(action);
    const HostActs acts = someActs(action, paths);
    countBranches(paths, acts);
    prepareActs(acts);
    QMetaObject::invokeMethod(m_window, "newFilesCreated", Q_ARG(QStringList, paths));
    m_model.newFiles(paths, acts);
}

void DesignModelTest::handle(const ModelAction& action)
{
    const QStringList paths = someNewFiles(action);
    HostActs acts = someActs(action, paths);
    if (action.choice(2, 4) == 3)
        acts.whenAdded = HostActs::DropsWindow;
    countBranches(paths, acts);
    prepareActs(acts);
    QMetaObject::invokeMethod(m_object, "handleNewFilesCreated", Q_ARG(QStringList, paths));
    m_model.newFiles(paths, acts);
}

void DesignModelTest::generate(const ModelAction&)
{
    WindowModel& form = m_model.window;
    const QFileInfo binary(form.path);
    if (!m_window || form.author.isEmpty() || form.ciNumber.isEmpty() || !binary.exists() ||
        !form.path.endsWith(QLatin1String(".bin")) || form.path.count(QLatin1String(".bin")) > 1)
        return;
    reach("generated");
    QString image = form.path;
    image.replace(QLatin1String(".bin"), QLatin1String(".fcf"));
    QString companion = form.path;
    companion.replace(QLatin1String(".bin"), QLatin1String(".txt"));
    QFile::remove(image);
    prepareActs(HostActs());
    QTest::mouseClick(find<QWidget>(m_window, "GenerateButton"), Qt::LeftButton);
    QFile::remove(image);
    QFile::remove(companion);
    m_model.newFiles(QStringList() << image << companion, HostActs());
    m_model.logGenerated();
    m_model.hasWindow = false;
}

void DesignModelTest::type(const ModelAction& action)
{
    if (!m_window)
        return;
    const QString text = QString::fromLatin1("t%1").arg(action.numbers[1]);
    WindowModel& form = m_model.window;
    switch (action.choice(0, 5)) {
    case 0:
        find<QLineEdit>(m_window, "AuthoEditBox")->setText(form.author = text);
        return;
    case 1:
        find<QLineEdit>(m_window, "CiNumEditBox")->setText(form.ciNumber = text);
        return;
    case 2:
        find<QLineEdit>(m_window, "MajorVerEditBox")->setText(form.major = text);
        return;
    case 3:
        find<QTextEdit>(m_window, "DescriptionMemo")->setPlainText(form.description = text);
        return;
    default:
        find<QLineEdit>(m_window, "EditFunctionName")->setText(form.functionName = text);
    }
}

void DesignModelTest::choose(const ModelAction& action)
{
    if (!m_window)
        return;
    QComboBox* const modules = find<QComboBox>(m_window, "ModuleComboBox");
    QComboBox* const devices = find<QComboBox>(m_window, "FpgaComboBox");
    WindowModel& form = m_model.window;
    switch (action.choice(0, 3)) {
    case 0:
        modules->setCurrentIndex(action.choice(1, 3));
        form.setModule(modules->itemText(action.choice(1, 3)));
        return;
    case 1: {
        const QStringList names = WindowModel::devicesOf(form.module);
        devices->setCurrentIndex(action.choice(1, names.count()));
        form.device = names.at(action.choice(1, names.count()));
        return;
    }
    default:
        find<QComboBox>(m_window, "ConfigComboBox")->setCurrentIndex(action.choice(1, 10));
        form.configIndex = action.choice(1, 10);
    }
}

void DesignModelTest::upload(const ModelAction&)
{
    if (!m_window || !m_model.window.editorEnabled)
        return;
    const QString name = QString::fromLatin1("function %1").arg(++m_uploads);
    find<QLineEdit>(m_window, "EditFunctionName")->setText(name);
    find<QPushButton>(m_window, "UploadFunctionButton")->click();
    m_model.window.functions << name;
    m_model.window.functionName.clear();
}

void DesignModelTest::clearForm(const ModelAction&)
{
    if (!m_window)
        return;
    m_window->findChild<QAction*>(QLatin1String("actionNew"))->trigger();
    m_model.window.clear();
    m_model.window.editorEnabled = true;
}

void DesignModelTest::closeWindow(const ModelAction&)
{
    if (m_window)
        m_window->close();
    m_model.hasWindow = false;
}

void DesignModelTest::minimize(const ModelAction&)
{
    if (!m_window || !isOffscreen())
        return;
    m_window->setWindowState(Qt::WindowMinimized);
    m_model.window.minimized = true;
}

void DesignModelTest::move(const ModelAction& action)
{
    if (!m_window || m_model.window.minimized)
        return;
    m_window->move(action.numbers[0], action.numbers[1]);
    m_place = m_window->pos();
}
