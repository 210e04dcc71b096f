#include "tests/host/app/HostFixture.h"

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

    bool defaultFilterState(const QString& filter) override { return filter == "No Images"; }
    QString filterDescription(const QString& filter) override { return "Hides: " + filter; }
    QStringList designItemFilters() override { return {"No Images", "No Binaries"}; }
    bool filterLinkedItem(AbstractDesignLinkedItem* item, const QString& filter) override
    {
        const auto* const file = dynamic_cast<DesignFile*>(item);
        return file && file->suffix() == (filter == "No Images" ? "fcf" : "bin");
    }
    QStringList designFileNodeFilters() override { return {"No Nodes"}; }
    bool filterDesignFileNode(TreeNode*, const QString& filter) override
    {
        return filter == "No Nodes";
    }

    QAction ofFile;
    QAction ofDesign;
    QMenu belowFile;
    QMenu belowDesign;
    QPixmap icon;
};

bool isHidden(const HostFixture& host, const QString& name)
{
    const QModelIndex index = host.item(name);
    return host.view()->isRowHidden(index.row(), index.parent());
}

} // namespace

/// What extensions add to the design view besides context menus.
class ViewExtensionTest : public QObject {
    Q_OBJECT

private slots:
    void showsToolsOfTheCurrentItem();
    void showsDataAndIconsOfExtensions();
    void hidesWhatFiltersHide();
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

void ViewExtensionTest::hidesWhatFiltersHide()
{
    HostFixture host;
    Extension extension;
    OrvanticCore::Design* const design = host.openDesign("radar");
    QVERIFY(design->restoreFile(host.writeFile("radar/top.fcf", "image")));
    QTRY_VERIFY(isHidden(host, "top.fcf"));
    QVERIFY(!isHidden(host, "top.bin"));

    auto* const filters = host.child<QMenu>("FilterMenu");
    emit filters->aboutToShow();
    QStringList names;
    for (const QAction* action : filters->actions()) {
        names << action->text();
        QCOMPARE(action->toolTip(), "Hides: " + action->text());
        QCOMPARE(action->isChecked(), action->text() == "No Images");
    }
    QCOMPARE(names, QStringList({"No Images", "No Binaries", "No Nodes"}));

    filters->actions().at(0)->trigger();
    QVERIFY(!isHidden(host, "top.fcf"));
    filters->actions().at(1)->trigger();
    QVERIFY(isHidden(host, "top.bin"));
    filters->actions().at(2)->trigger();
    QVERIFY(isHidden(host, "[Bit-stream Files]"));
}

int main(int argc, char** argv)
{
    ViewExtensionTest test;
    return runHostTest(&test, argc, argv);
}

#include "ViewExtensionTest.moc"
