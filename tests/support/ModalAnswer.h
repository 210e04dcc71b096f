#ifndef TESTS_SUPPORT_MODALANSWER_H
#define TESTS_SUPPORT_MODALANSWER_H

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <functional>

/// Answers modal boxes and file dialogs as a person would, while the code that opened them blocks.
///
/// Answers are given in the order in which they were promised, one to each dialog that comes up;
/// a dialog that nobody promised an answer to is dismissed and noted.
class ModalAnswer : public QObject {
    Q_OBJECT

public:
    explicit ModalAnswer(QObject* parent = nullptr);

    /// Clicks the button \p button of the next message box.
    void click(QMessageBox::StandardButton button);
    /// Presses \p key in the next dialog.
    void press(Qt::Key key);
    /// Enters \p path into the next file dialog and opens it, or saves to it.
    void choose(const QString& path);
    /// Dismisses the next file dialog.
    void cancel();
    /// Lets \p answer deal with the next dialog.
    void leaveTo(std::function<void(QWidget*)> answer);
    /// Lets \p look see the next dialog before it gets the answer promised next.
    void inspect(std::function<void(QWidget*)> look);

    /// The texts of the message boxes that came up, the captions of the file dialogs.
    QStringList texts() const { return m_texts; }
    /// Whether each promised answer was given, and no other dialog came up.
    bool allGiven() const { return m_answers.empty() && m_unexpected.isEmpty(); }
    QStringList unexpected() const { return m_unexpected; }

    /// Leaves all dialogs alone from now on.
    void stop() { m_timer.stop(); }

    /// Forgets what came up.
    void clear();

private Q_SLOTS:
    void lookForDialog();

private:
    using Answer = std::function<void(QWidget*)>;

    QTimer m_timer;
    std::deque<Answer> m_answers;
    Answer m_inspect;
    QPointer<QWidget> m_answered;
    QStringList m_texts;
    QStringList m_unexpected;
};

#endif
