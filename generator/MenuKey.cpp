#include "generator/MenuKey.h"

#include <QAction>
#include <QMenuBar>
#include <QShortcut>

namespace {

/// Returns an empty sequence for a text without letters.
QKeySequence keyFor(const QString& text)
{
    for (const QChar& character : text) {
        if (character.isLetter())
            return QKeySequence(static_cast<int>(Qt::ALT) | character.toUpper().unicode());
    }
    return QKeySequence();
}

} // namespace

MenuKey::MenuKey(QMenuBar* bar, QAction* menu) : QObject(bar), m_bar(bar), m_menu(menu)
{
    QShortcut* const shortcut = new QShortcut(keyFor(menu->text()), bar);
    connect(shortcut, SIGNAL(activated()), SLOT(openMenu()));
}

void MenuKey::openMenu() { m_bar->setActiveAction(m_menu); }
