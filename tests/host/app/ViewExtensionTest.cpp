#include "host/app/HostFixture.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/IDesignViewExtensions.h>

#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QtTest>

using OrvanticCore::AbstractDesignLinkedItem;
using OrvanticCore::DesignFile;
using OrvanticCore::IDesign;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::CoreGui::TreeFileItem;
using Qtilities::CoreGui::TreeNode;

namespace {

/// Changes everything in the design view that an extension can change.
class Extension : public QObject, public IDesignViewExtensions {
    Q_OBJECT
    Q_INTERFACES(OrvanticCore::Interfaces::IDesignViewExtensions)

public:
    Extension()
        : ofFile("File Tool"), ofDesign("Design Tool"), belowFile("File Menu"),
          belowDesign("Design Menu"), icon(16, 16)
    {
        icon.fill(Qt::magenta);
        QtilitiesApplication::objectManager()->registerObject(this);
    }

    QList<QAction*> toolBarActions(TreeFileItem*, const QString&) override { return {&ofFile}; }
    QList<QMenu*> toolBarMenus(TreeFileItem*, const QString&) override { return {&belowFile}; }
    QList<QAction*> designToolBarActions(IDesign*, const QString&) override { return {&ofDesign}; }
    QList<QMenu*> designToolBarMenus(IDesign*, const QString&) override { return {&belowDesign}; }

    QVariant customItemRoleData(AbstractDesignLinkedItem*, int role) override
    {
        return role == Qt::ToolTipRole ? QVariant("Checked by nobody") : QVariant();
    }
    QVariant customDesignFileNodeRoleData(TreeNode* node, int role) override
    {
        return role == Qt::DisplayRole ? QVariant("[" + node->getName() + "]") : QVariant();
    }
    QIcon designTypeIcon(const QString& type_name) override
    {
        return type_name == "Firmware Design" ? QIcon(icon) : QIcon();
    }

    QAction ofFile;
    QAction ofDesign;
    QMenu belowFile;
    QMenu belowDesign;
    QPixmap icon;
};

} // namespace

/// What extensions add to the design view besides context menus.
class ViewExtensionTest : public QObject {
    Q_OBJECT

private slots:
    void showsToolsOfTheCurrentItem();
    void showsDataAndIconsOfExtensions();
};

void ViewExtensionTest::showsToolsOfTheCurrentItem()
{
    HostFixture host;
    Extension extension;
    host.openDesign("radar");
    const auto* const toolBar = host.child<QToolBar>("ToolBar");
    host.view()->setCurrentIndex(host.item("top.bin"));
    QTRY_VERIFY(toolBar->actions().contains(&extension.ofFile));
    QVERIFY(toolBar->actions().contains(extension.belowFile.menuAction()));
    QVERIFY(!toolBar->actions().contains(&extension.ofDesign));

    host.view()->setCurrentIndex(host.item("radar"));
    QTRY_VERIFY(toolBar->actions().contains(&extension.ofDesign));
    QVERIFY(toolBar->actions().contains(extension.belowDesign.menuAction()));
    QVERIFY(!toolBar->actions().contains(&extension.ofFile));
}

void ViewExtensionTest::showsDataAndIconsOfExtensions()
{
    HostFixture host;
    Extension extension;
    host.openDesign("radar");
    QCOMPARE(host.item("top.bin").data(Qt::ToolTipRole).toString(), QString("Checked by nobody"));
    QVERIFY(host.item("[Bit-stream Files]").isValid());
    const auto icon = host.item("radar").data(Qt::DecorationRole).value<QIcon>();
    QCOMPARE(icon.pixmap(16, 16).toImage().pixelColor(8, 8), QColor(Qt::magenta));
}

HOST_TEST(ViewExtensionTest)

#include "ViewExtensionTest.moc"
