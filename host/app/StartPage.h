#ifndef HOST_APP_STARTPAGE_H
#define HOST_APP_STARTPAGE_H

#include <QWidget>

#include <memory>

namespace Ui {
class StartPage;
}

/// What the window shows while no design is open: buttons for the first steps, and the designs
/// opened last.
///
/// For drivers: "NoDesignHint", "StartNewButton", "StartOpenButton", "StartRecentButton".
class StartPage : public QWidget {
    Q_OBJECT

public:
    explicit StartPage(QWidget* parent = nullptr);
    ~StartPage() override;

signals:
    /// The identifier of a command of the host.
    void chosen(const QString& command);
    void recentChosen(const QString& folder);

protected:
    void showEvent(QShowEvent* event) override;

private:
    std::unique_ptr<Ui::StartPage> m_ui;
};

#endif
