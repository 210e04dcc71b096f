#include "generator/FileDrop.h"

#include "generator/PelkFcfGenerator.h"

#include <QAbstractScrollArea>
#include <QDropEvent>
#include <QFileInfo>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

namespace {

/// The path of the first local file; empty without one.
QString pathIn(const QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    for (const QUrl& url : urls) {
        if (!url.toLocalFile().isEmpty())
            return url.toLocalFile();
    }
    return QString();
}

} // namespace

FileDrop::FileDrop(PelkFcfGenerator* window) : QObject(window), m_window(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
    const QList<QLineEdit*> fields = window->findChildren<QLineEdit*>();
    for (QLineEdit* field : fields)
        field->installEventFilter(this);
    const QList<QAbstractScrollArea*> areas = window->findChildren<QAbstractScrollArea*>();
    for (QAbstractScrollArea* area : areas)
        area->viewport()->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event)
{
    const bool isDrop = event->type() == QEvent::Drop;
    if (!isDrop && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove)
        return QObject::eventFilter(watched, event);

    QDropEvent* const drop = static_cast<QDropEvent*>(event);
    const QString path = pathIn(drop);
    if (path.isEmpty())
        return QObject::eventFilter(watched, event);

    // A folder is no binary; a text field would paste its URL.
    if (!QFileInfo(path).isFile()) {
        drop->ignore();
        return true;
    }

    drop->acceptProposedAction();
    if (isDrop)
        m_window->setBinFile(path);
    return true;
}
