#include "host/app/StartPage.h"

#include "host/app/DesignSession.h"

#include <QBoxLayout>
#include <QCommandLinkButton>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QStyle>

StartPage::StartPage(QWidget* parent) : QWidget(parent), m_recent(new QVBoxLayout)
{
    setObjectName("StartPage");
    auto* const hint = new QLabel(tr("<h3>No design is open</h3>"
                                     "<p>Open one or make a new one, or drop a design's folder, "
                                     "or files for a new design, here.</p>"),
                                  this);
    hint->setObjectName("NoDesignHint");
    hint->setWordWrap(true);
    auto* const newButton =
        new QCommandLinkButton(tr("&New Design"), tr("in a folder of your files"), this);
    newButton->setObjectName("StartNewButton");
    newButton->setIcon(style()->standardIcon(QStyle::SP_FileDialogNewFolder));
    auto* const openButton =
        new QCommandLinkButton(tr("&Open Design"), tr("from its folder or description"), this);
    openButton->setObjectName("StartOpenButton");
    openButton->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));

    auto* const column = new QVBoxLayout;
    column->addStretch(1);
    column->addWidget(hint);
    column->addWidget(newButton);
    column->addWidget(openButton);
    column->addLayout(m_recent);
    column->addStretch(2);
    auto* const layout = new QHBoxLayout(this);
    layout->addStretch(1);
    layout->addLayout(column, 4);
    layout->addStretch(1);

    connect(newButton, &QPushButton::clicked, this, &StartPage::newChosen);
    connect(openButton, &QPushButton::clicked, this, &StartPage::openChosen);
}

void StartPage::showEvent(QShowEvent* event)
{
    while (QLayoutItem* const item = m_recent->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const QString& folder : DesignSession::recentFolders().mid(0, 3)) {
        auto* const button = new QCommandLinkButton(QFileInfo(folder).fileName().replace("&", "&&"),
                                                    QDir::toNativeSeparators(folder));
        button->setObjectName("StartRecentButton");
        button->setIcon(QIcon(":/icons/radar_22x22.png"));
        m_recent->addWidget(button);
        // Queued: the button is deleted when the page is shown next.
        connect(
            button, &QPushButton::clicked, this, [this, folder] { emit recentChosen(folder); },
            Qt::QueuedConnection);
    }
    QWidget::showEvent(event);
}
