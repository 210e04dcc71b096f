#include "host/app/PluginList.h"

#include "host/app/common/HostLog.h"
#include "host/app/common/WindowPlace.h"

#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QLibrary>
#include <QPluginLoader>
#include <QTextBrowser>

using Qtilities::ExtensionSystem::Interfaces::IPlugin;
using Qtilities::Logging::Logger;

namespace {

struct PluginListTexts {
    Q_DECLARE_TR_FUNCTIONS(PluginList)
};

QStringList librariesIn(const QString& folder)
{
    QStringList libraries;
    const QDir dir(folder);
    for (const QString& name : dir.entryList(QDir::Files, QDir::Name)) {
        if (QLibrary::isLibrary(name))
            libraries << dir.absoluteFilePath(name);
    }
    return libraries;
}

/// What the library at \p path reports of itself. The host has loaded it already, and starts
/// nothing here.
QString describe(const QString& path)
{
    QPluginLoader loader(path);
    const auto* const plugin = qobject_cast<IPlugin*>(loader.instance());
    const QString place = QDir::toNativeSeparators(path);
    if (!plugin)
        return PluginListTexts::tr(
                   "<h3>%1</h3><p>This library is no plug-in that can be loaded. %2</p>")
            .arg(place.toHtmlEscaped(), loader.errorString().toHtmlEscaped());

    const auto version = plugin->pluginVersionInformation().version();
    QStringList lines{plugin->pluginDescription(),
                      plugin->pluginPublisher(),
                      plugin->pluginPublisherWebsite(),
                      plugin->pluginPublisherContact(),
                      plugin->pluginCopyright(),
                      plugin->pluginLicense(),
                      place};
    lines.removeAll(QString());

    return QString("<h3>%1 %2.%3.%4</h3><p>%5</p>")
        .arg(plugin->pluginName().toHtmlEscaped())
        .arg(version.versionMajor())
        .arg(version.versionMinor())
        .arg(version.versionRevision())
        .arg(lines.join('\n').toHtmlEscaped().replace('\n', "<br>"));
}

} // namespace

void PluginList::logMissing(const QStringList& folders)
{
    bool hasLibrary = false;
    for (const QString& folder : folders) {
        const QString shown = QDir::toNativeSeparators(QDir(folder).absolutePath());
        if (!QFileInfo(folder).isDir())
            HostLog::add(Logger::Error,
                         PluginListTexts::tr("There is no plug-in folder \"%1\".").arg(shown));
        hasLibrary = hasLibrary || !librariesIn(folder).isEmpty();
    }
    if (!hasLibrary)
        HostLog::add(Logger::Warning,
                     PluginListTexts::tr("No plug-in was found: the host makes no images."));
}

void PluginList::showAbout(const QStringList& folders, QWidget* parent)
{
    QString html;
    for (const QString& folder : folders) {
        for (const QString& library : librariesIn(folder))
            html += describe(library);
    }

    QDialog dialog(parent);
    dialog.setObjectName("AboutPluginsDialog");
    dialog.setWindowTitle(PluginListTexts::tr("About Plug-ins"));

    auto* const text = new QTextBrowser(&dialog);
    text->setObjectName("AboutPluginsText");
    text->setAccessibleName(dialog.windowTitle());
    text->setOpenExternalLinks(true);
    text->setHtml(html.isEmpty() ? PluginListTexts::tr("<p>No plug-in was found.</p>") : html);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

    auto* const layout = new QVBoxLayout(&dialog);
    layout->addWidget(text);
    layout->addWidget(buttons);
    resizeToScreen(&dialog, QSize(560, 360));
    dialog.exec();
}
