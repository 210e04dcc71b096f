#include "host/app/image/RemakeCommands.h"

#include "host/app/Commands.h"
#include "host/app/common/HostError.h"
#include "host/app/common/HostLog.h"
#include "host/app/DesignHistory.h"
#include "host/app/DesignSession.h"
#include "host/app/DesignView.h"
#include "host/app/image/FileState.h"
#include "host/app/image/GeneratedFiles.h"
#include "host/app/image/TargetDialog.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QAction>
#include <QApplication>
#include <QFileInfo>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using Qtilities::Logging::Logger;

namespace {

QString nameOf(const Remake& remake) { return QFileInfo(remake.files.image).fileName(); }

} // namespace

RemakeCommands::RemakeCommands(DesignSession* session, DesignView* view)
    : QObject(view), m_session(session), m_view(view),
      m_makeAgain(Commands::add("Design.MakeAgain", tr("Make Image A&gain"), QKeySequence("Ctrl+G"),
                                this, [this] { remakeSelected(); })),
      m_makeAllAgain(Commands::add("Design.MakeAllAgain", tr("Make All &Outdated Again..."),
                                   QKeySequence("Ctrl+Shift+G"), this,
                                   [this] { remakeOutdated(); }))
{
    m_makeAgain->setIcon(Commands::icon(QStyle::SP_BrowserReload));
    m_makeAgain->setToolTip(tr("Makes the image of the selected file again, with the texts and "
                               "functions that it has, for the version of the design"));

    connect(view, &DesignView::currentItemChanged, this, &RemakeCommands::refresh);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RemakeCommands::refresh);
    // The view says nothing when the design that was current alone is closed.
    connect(view->model(), &QAbstractItemModel::rowsRemoved, this, &RemakeCommands::refresh);
    // The files on the disk decide, too.
    connect(view->model(), &QAbstractItemModel::dataChanged, this, &RemakeCommands::refresh);
    connect(session, &DesignSession::opened, this, [this](const Design* design) {
        connect(design, &Design::stateChanged, this, &RemakeCommands::refresh);
    });
    refresh();
}

void RemakeCommands::refresh()
{
    const Design* const design = m_view->currentDesign();
    const bool isEditable = design && !design->isLocked() && !design->isReadOnly();
    const bool hasImage = !selectedImages().isEmpty();
    // An invisible action cannot be enabled, so that this comes first.
    m_makeAgain->setVisible(hasImage);
    m_makeAgain->setEnabled(isEditable && hasImage);
    m_makeAllAgain->setEnabled(isEditable);
}

QList<ImageFiles> RemakeCommands::selectedImages() const
{
    QList<ImageFiles> images;
    for (const DesignFile* file : m_view->selectedFiles()) {
        const ImageFiles image = ImageFiles::of(file->filePath());
        if (image.canBeMadeAgain() && !images.contains(image))
            images << image;
    }
    return images;
}

void RemakeCommands::remakeSelected()
{
    Design* const design = m_view->currentDesign();
    if (!design)
        return;

    const Items items = itemsOf(*design, selectedImages());
    if (items.count() == 1)
        remakeOne(design, items.first().remake);
    else if (!items.isEmpty())
        remakeAll(design, items);
}

void RemakeCommands::remakeOutdated()
{
    Design* const design = m_view->currentDesign();
    if (!design)
        return;

    QList<ImageFiles> images;
    for (const DesignFile* file : design->files()) {
        const ImageFiles image = ImageFiles::of(file->filePath());
        if (image.canBeMadeAgain() && !images.contains(image) &&
            FileState::of(*file).needsAttention())
            images << image;
    }
    if (images.isEmpty()) {
        m_session->showMessage("NothingOutdatedBox",
                               tr("No image of \"%1\" is outdated.").arg(design->name()));
        return;
    }

    const Items items = itemsOf(*design, images);
    if (!items.isEmpty())
        remakeAll(design, items);
}

RemakeCommands::Items RemakeCommands::itemsOf(const Design& design, const QList<ImageFiles>& images)
{
    Items items;
    ImageTarget target = ImageTarget::of(design);
    for (const ImageFiles& image : images) {
        Remake remake{image, target, design.versionString(".")};
        remake.target = target.completedBy(remake.presentTarget());
        if (!remake.target.isComplete()) {
            TargetDialog dialog(nameOf(remake), remake.target, m_view->window());
            if (dialog.exec() != QDialog::Accepted)
                return Items();
            // It becomes the target of the design, and so that of the images that follow.
            target = dialog.target();
            remake.target = target;
        }

        const DesignFile* const file = design.fileAt(image.image);
        const FileState state = file ? FileState::of(*file) : FileState();
        items << RemakeDialog::Item{remake, state.outdated.join("; ") + state.invalid};
    }
    return items;
}

void RemakeCommands::remakeOne(Design* design, const Remake& remake)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QStringList warnings;
    QString error;
    try {
        warnings = remake.run();
    } catch (const HostError& problem) {
        error = problem.text();
    }
    QApplication::restoreOverrideCursor();

    if (!error.isEmpty()) {
        m_session->showError("CannotRemakeBox",
                             tr("%1 was not made again.\n\n%2").arg(nameOf(remake), error));
        return;
    }
    for (const QString& warning : warnings)
        HostLog::add(Logger::Warning, warning);
    note(design, {remake});
}

void RemakeCommands::remakeAll(Design* design, const Items& items)
{
    RemakeDialog dialog(items, m_view->window());
    dialog.exec();
    if (!dialog.made().isEmpty())
        note(design, dialog.made());
}

void RemakeCommands::note(Design* design, const QList<Remake>& made)
{
    QStringList paths;
    bool hasOneTarget = true;
    for (const Remake& remake : made) {
        hasOneTarget = hasOneTarget && remake.target == made.first().target;
        paths << remake.files.image << remake.files.companion;
        HostLog::add(Logger::Info, tr("%1 was made again for version %2 and %3.")
                                       .arg(nameOf(remake), remake.version, remake.target.text()));
    }

    QList<DesignFile*> files;
    const QString step = made.count() == 1 ? tr("Make %1 Again").arg(nameOf(made.first()))
                                           : tr("Make %1 Images Again").arg(made.count());
    DesignHistory::record(design, step, [&] {
        files = GeneratedFiles::note(design, paths);
        // With several targets none of them is that of the design.
        if (hasOneTarget)
            GeneratedFiles::noteTarget(design, made.first().target);
    });
    design->refreshFiles(files);
}
