#include "design/DesignFixture.h"

#include "generator/PelkFcfGenerator.h"
#include "support/TestFile.h"

#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>
#include <QtilitiesLogging/Logger.h>

#include <QApplication>
#include <QPointer>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using Qtilities::Logging::Logger;
using ZORV_Plugin::ZORV_FileTypeExtensions;

DesignFixture::DesignFixture()
    : m_design(new Design(m_folder.path(), "Firmware Design")),
      m_extensions(new ZORV_FileTypeExtensions)
{
    qRegisterMetaType<QList<DesignFile*>>("QList<OrvanticCore::DesignFile*>");
    auto* const structure = new DesignStructure;
    structure->rootNode()->addNode("Firmware")->addNode("Bit-stream Files");
    structure->rootNode()->addNode("Other Files");
    structure->addFileAssociation("*.bit", "Bit-stream Files");
    structure->setUnassignedFileAssociationsNode("Other Files");
    m_design->setStructure(structure);
    m_design->setVersion(2, 7);
    DesignManager::instance()->addDesign(m_design.data());
    connect(Logger::instance(), &Logger::newPriorityMessage, this,
            [this](Logger::MessageType type, const QString& text) {
                m_log << QString::number(type) + ":" + text;
            });
}

DesignFixture::~DesignFixture()
{
    if (window())
        closeWindow();
    // Nobody else does: the extensions leave them to the end of the process.
    m_extensions.reset();
    qDeleteAll(m_actions);
}

void DesignFixture::closeDesign() { m_design.reset(); }

Design* DesignFixture::openSecondDesign()
{
    m_secondDesign.reset(new Design(m_secondFolder.path(), "Firmware Design"));
    DesignManager::instance()->addDesign(m_secondDesign.data());
    return m_secondDesign.data();
}

QString DesignFixture::path(const QString& name) const { return m_folder.filePath(name); }

QString DesignFixture::writeFile(const QString& name, const QByteArray& bytes)
{
    return TestFile::write(path(name), bytes);
}

DesignFile* DesignFixture::addFile(const QString& name, const QByteArray& bytes)
{
    return m_design->addFile(writeFile(name, bytes), nullptr);
}

QAction* DesignFixture::actionFor(DesignFile* item)
{
    const QList<QAction*> actions = m_extensions->contextMenuActions(item, "MainDesignWidget");
    for (QAction* action : actions)
        m_actions << action;
    return actions.count() == 1 ? actions.first() : nullptr;
}

PelkFcfGenerator* DesignFixture::window()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* const generator = qobject_cast<PelkFcfGenerator*>(widget);
        if (generator && generator->isVisible())
            return generator;
    }
    return nullptr;
}

bool DesignFixture::closeWindow()
{
    const QPointer<PelkFcfGenerator> open = window();
    return open && open->close() && QTest::qWaitFor([open] { return !open; });
}

#include "moc_DesignFixture.cpp"
