#ifndef GENERATOR_MENUKEY_H
#define GENERATOR_MENUKEY_H

#include <QObject>

class QAction;
class QMenuBar;

/// Opens a menu by Alt and the first letter of its title, whose text is fixed and has no mnemonic.
/// A field that has the focus would take the letter as typed.
class MenuKey : public QObject {
    Q_OBJECT

public:
    /// \p menu is one of \p bar. Owned by \p bar.
    MenuKey(QMenuBar* bar, QAction* menu);

private Q_SLOTS:
    void openMenu();

private:
    QMenuBar* m_bar;
    QAction* m_menu;
};

#endif
