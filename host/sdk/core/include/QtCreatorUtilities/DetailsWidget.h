#ifndef QTCREATORUTILITIES_DETAILSWIDGET_H
#define QTCREATORUTILITIES_DETAILSWIDGET_H

#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QWidget>

class QLabel;
class QToolButton;
class QVBoxLayout;

namespace QtCreatorUtilities {

/// A panel with a summary line over a body that the user can fold away.
class ORVANTICCORE_SHARED_EXPORT DetailsWidget : public QWidget {
    Q_OBJECT

public:
    /// NoSummary shows the body alone.
    enum State { Expanded, Collapsed, NoSummary };

    /// Collapsed, with neither summary nor body.
    explicit DetailsWidget(QWidget* parent = nullptr);
    ~DetailsWidget() override;

    /// Makes \p widget a child of the panel, and deletes the body of before. Owned.
    void setWidget(QWidget* widget);

    /// The body, or null. It stays the panel's.
    QWidget* widget() const;

    /// \p text may contain Qt's rich text.
    void setSummaryText(const QString& text);
    QString summaryText() const;

    void setState(State state);
    State state() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void setExpanded(bool expanded);

private:
    void showState();
    Q_DISABLE_COPY(DetailsWidget)

    QWidget* m_header;
    QToolButton* m_arrow;
    QLabel* m_summary;
    QVBoxLayout* m_layout;
    QWidget* m_body;
    State m_state;
};

} // namespace QtCreatorUtilities

#endif
