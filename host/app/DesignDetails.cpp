#include "host/app/DesignDetails.h"

#include "ui_DesignDetails.h"

#include <QSignalBlocker>

using OrvanticCore::Design;

DesignDetails::DesignDetails(QWidget* parent) : QWidget(parent), m_ui(new Ui::DesignDetails)
{
    m_ui->setupUi(this);
    m_ui->VersionChanges->setFixedHeight(fontMetrics().lineSpacing() * 4);
    // Each sets its own number only: the other one may be larger than its box can show.
    const auto valueChanged = QOverload<int>::of(&QSpinBox::valueChanged);
    connect(m_ui->VersionMajor, valueChanged, this, [this](int number) {
        if (m_design)
            m_design->setVersion(number, m_design->versionMinor());
    });
    connect(m_ui->VersionMinor, valueChanged, this, [this](int number) {
        if (m_design)
            m_design->setVersion(m_design->versionMajor(), number);
    });
    connect(m_ui->VersionChanges, &QPlainTextEdit::textChanged, this, [this] {
        if (m_design)
            m_design->setVersionChanges(m_ui->VersionChanges->toPlainText());
    });
    show();
}

DesignDetails::~DesignDetails() = default;

void DesignDetails::setDesign(Design* design)
{
    if (m_design == design)
        return;
    if (m_design)
        disconnect(m_design, nullptr, this, nullptr);
    m_design = design;
    if (design) {
        connect(design, &Design::versionChanged, this, &DesignDetails::show);
        connect(design, &Design::stateChanged, this, &DesignDetails::show);
    }
    show();
}

void DesignDetails::show()
{
    const QSignalBlocker majorBlocker(m_ui->VersionMajor);
    const QSignalBlocker minorBlocker(m_ui->VersionMinor);
    const QSignalBlocker changesBlocker(m_ui->VersionChanges);
    m_ui->DesignTypeName->setText(m_design ? m_design->typeName() : QString());
    m_ui->VersionMajor->setValue(m_design ? m_design->versionMajor() : 0);
    m_ui->VersionMinor->setValue(m_design ? m_design->versionMinor() : 0);
    const QString changes = m_design ? m_design->versionChanges() : QString();
    // Setting the same text would move the cursor of a user who is typing.
    if (m_ui->VersionChanges->toPlainText() != changes)
        m_ui->VersionChanges->setPlainText(changes);

    const bool editable = m_design && !m_design->isLocked() && !m_design->isReadOnly();
    m_ui->VersionMajor->setEnabled(editable);
    m_ui->VersionMinor->setEnabled(editable);
    // Read-only rather than disabled, so that it can be scrolled and copied.
    m_ui->VersionChanges->setReadOnly(!editable);
    m_ui->VersionChanges->setEnabled(m_design);
    QPalette colours = palette();
    if (!editable)
        colours.setBrush(QPalette::Base, colours.window());
    m_ui->VersionChanges->setPalette(colours);
}
