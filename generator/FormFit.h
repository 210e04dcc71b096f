#ifndef GENERATOR_FORMFIT_H
#define GENERATOR_FORMFIT_H

#include <QEvent>
#include <QList>
#include <QMap>
#include <QObject>
#include <QSize>

class QMainWindow;
class QScrollArea;
class QWidget;

/// Gives a window the height that its scrolled form needs, as far as the screen has it: when it is
/// first shown, and when a part of the form is folded or unfolded. Folding gives back what
/// unfolding took.
class FormFit : public QObject {
    Q_OBJECT

public:
    /// Owned by \p window. \p bodies are the parts of the form that are folded by hiding.
    FormFit(QMainWindow* window, QScrollArea* area, const QList<QWidget*>& bodies);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void handleWindowEvent(QEvent::Type type);
    void handleBodyEvent(QWidget* body, QEvent::Type type);
    void growWide();
    void grow();
    void moveUp();
    void shrink(int height);
    /// The height that is free once \p body is folded: its own, less what was scrolled out of view.
    int spareHeight(const QWidget* body) const;
    /// The size that the window may have on its screen, without the frame.
    QSize availableSize() const;

    QMainWindow* m_window;
    QScrollArea* m_area;
    bool m_wasShown;
    /// The height by which the window grew when a body was unfolded.
    QMap<QWidget*, int> m_grown;
};

#endif
