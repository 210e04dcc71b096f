#ifndef HOST_APP_IMAGE_REMAKECOMMANDS_H
#define HOST_APP_IMAGE_REMAKECOMMANDS_H

#include "host/app/image/RemakeDialog.h"

#include <QObject>

class DesignSession;
class DesignView;
class QAction;

namespace OrvanticCore {
class Design;
}

/// The commands that make images of the current design again: with the texts and functions that an
/// image has, from the binary as it is now, for the version and target of the design as they are
/// now.
class RemakeCommands : public QObject {
    Q_OBJECT

public:
    /// The commands are added to the menu "Design", which must exist. Nothing is owned.
    RemakeCommands(DesignSession* session, DesignView* view);

    QAction* makeAgain() const { return m_makeAgain; }
    QAction* makeAllAgain() const { return m_makeAllAgain; }

private:
    using Items = QList<RemakeDialog::Item>;

    void refresh();
    /// The images of the selected files, each once.
    QList<ImageFiles> selectedImages() const;
    void remakeSelected();
    void remakeOutdated();

    /// What is to be made of \p images for \p design. Asks for targets that cannot be known.
    /// Returns an empty list when the user cancels.
    Items itemsOf(const OrvanticCore::Design& design, const QList<ImageFiles>& images);
    void remakeOne(OrvanticCore::Design* design, const Remake& remake);
    void remakeAll(OrvanticCore::Design* design, const Items& items);
    void note(OrvanticCore::Design* design, const QList<Remake>& made);

    DesignSession* m_session;
    DesignView* m_view;
    QAction* m_makeAgain;
    QAction* m_makeAllAgain;
};

#endif
