#include "host/app/DesignDetails.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QSpinBox>

using OrvanticCore::Design;

namespace {

/// The generator's fields take three digits.
constexpr int MaximumVersion = 999;

} // namespace

DesignDetails::DesignDetails(QWidget* parent)
    : QWidget(parent), m_type(new QLabel(this)), m_major(makeSpinBox("VersionMajor")),
      m_minor(makeSpinBox("VersionMinor")), m_changes(new QPlainTextEdit(this))
{
    m_type->setObjectName("DesignTypeName");
    m_changes->setObjectName("VersionChanges");
    m_changes->setTabChangesFocus(true);
    m_changes->setAccessibleName(tr("Changes in this version"));
    // A file that is dropped here goes to the window, which adds it to the design.
    m_changes->setAcceptDrops(false);
    m_changes->setFixedHeight(fontMetrics().lineSpacing() * 4);
    m_major->setAccessibleName(tr("Major version"));
    m_minor->setAccessibleName(tr("Minor version"));

    auto* const version = new QHBoxLayout;
    version->addWidget(m_major);
    version->addWidget(new QLabel(".", this));
    version->addWidget(m_minor);
    version->addStretch();
    auto* const form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(tr("Type:"), m_type);
    form->addRow(tr("&Version:"), version);
    form->addRow(tr("&Changes:"), m_changes);
    if (auto* const label = qobject_cast<QLabel*>(form->labelForField(version)))
        label->setBuddy(m_major);

    // Each sets its own number only: the other one may be larger than its box can show.
    const auto valueChanged = QOverload<int>::of(&QSpinBox::valueChanged);
    connect(m_major, valueChanged, this, &DesignDetails::takeMajor);
    connect(m_minor, valueChanged, this, &DesignDetails::takeMinor);
    connect(m_changes, &QPlainTextEdit::textChanged, this, &DesignDetails::takeChanges);
    show();
}

QSpinBox* DesignDetails::makeSpinBox(const QString& name)
{
    auto* const box = new QSpinBox(this);
    box->setObjectName(name);
    box->setMaximum(MaximumVersion);
    return box;
}

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
    const QSignalBlocker majorBlocker(m_major);
    const QSignalBlocker minorBlocker(m_minor);
    const QSignalBlocker changesBlocker(m_changes);
    m_type->setText(m_design ? m_design->typeName() : QString());
    m_major->setValue(m_design ? m_design->versionMajor() : 0);
    m_minor->setValue(m_design ? m_design->versionMinor() : 0);
    const QString changes = m_design ? m_design->versionChanges() : QString();
    // Setting the same text would move the cursor of a user who is typing.
    if (m_changes->toPlainText() != changes)
        m_changes->setPlainText(changes);

    const bool editable = m_design && !m_design->isLocked() && !m_design->isReadOnly();
    m_major->setEnabled(editable);
    m_minor->setEnabled(editable);
    // Read-only rather than disabled, so that it can be scrolled and copied.
    m_changes->setReadOnly(!editable);
    m_changes->setEnabled(m_design);
    QPalette colours = palette();
    if (!editable)
        colours.setBrush(QPalette::Base, colours.window());
    m_changes->setPalette(colours);
}

void DesignDetails::takeMajor(int number)
{
    if (m_design)
        m_design->setVersion(number, m_design->versionMinor());
}

void DesignDetails::takeMinor(int number)
{
    if (m_design)
        m_design->setVersion(m_design->versionMajor(), number);
}

void DesignDetails::takeChanges()
{
    if (m_design)
        m_design->setVersionChanges(m_changes->toPlainText());
}
