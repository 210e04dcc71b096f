#include "host/app/StartPage.h"

#include "host/app/DesignSession.h"
#include "ui_StartPage.h"

#include <QDir>
#include <QFileInfo>
#include <QStyle>

StartPage::StartPage(QWidget* parent) : QWidget(parent), m_ui(new Ui::StartPage)
{
    m_ui->setupUi(this);
    m_ui->StartNewButton->setIcon(style()->standardIcon(QStyle::SP_FileDialogNewFolder));
    m_ui->StartOpenButton->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    connect(m_ui->StartNewButton, &QPushButton::clicked, this,
            [this] { emit chosen("File.NewDesign"); });
    connect(m_ui->StartOpenButton, &QPushButton::clicked, this,
            [this] { emit chosen("File.OpenDesign"); });
}

StartPage::~StartPage() = default;

void StartPage::showEvent(QShowEvent* event)
{
    while (QLayoutItem* const item = m_ui->recent->takeAt(0)) {
        delete item->widget();
        delete item;
    }

    for (const QString& folder : DesignSession::recentFolders().mid(0, 3)) {
        auto* const button = new QCommandLinkButton(QFileInfo(folder).fileName().replace("&", "&&"),
                                                    QDir::toNativeSeparators(folder));
        button->setObjectName("StartRecentButton");
        button->setIcon(QIcon(":/icons/radar_22x22.png"));
        m_ui->recent->addWidget(button);

        // The slot is called later, since the button is deleted when the page is shown next.
        connect(
            button, &QPushButton::clicked, this, [this, folder] { emit recentChosen(folder); },
            Qt::QueuedConnection);
    }

    QWidget::showEvent(event);
}
