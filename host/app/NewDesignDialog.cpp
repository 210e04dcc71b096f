#include "host/app/NewDesignDialog.h"

#include "host/app/DesignStorage.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>

NewDesignDialog::NewDesignDialog(const QString& folder, QWidget* parent)
    : QDialog(parent), m_folder(new QLineEdit(QDir::toNativeSeparators(folder), this)),
      m_type(new QComboBox(this)), m_major(new QSpinBox(this)), m_minor(new QSpinBox(this)),
      m_hint(new QLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setObjectName("NewDesignDialog");
    setWindowTitle(tr("New Design"));
    m_folder->setObjectName("NewDesignFolder");
    m_folder->setMinimumWidth(360);
    m_type->setObjectName("NewDesignType");
    m_type->setEditable(true);
    m_type->addItems({tr("Firmware Design"), tr("Software Design")});
    m_major->setObjectName("NewVersionMajor");
    m_major->setMaximum(999);
    m_major->setValue(1);
    m_minor->setObjectName("NewVersionMinor");
    m_minor->setMaximum(999);
    m_hint->setObjectName("NewDesignHint");
    m_folder->setAccessibleName(tr("Folder"));
    m_type->setAccessibleName(tr("Type"));
    m_major->setAccessibleName(tr("Major version"));
    m_minor->setAccessibleName(tr("Minor version"));
    // What is dropped anywhere in the dialog is the folder, as a path.
    m_folder->setAcceptDrops(false);
    setAcceptDrops(true);

    auto* const browseButton = new QPushButton(tr("&Browse..."), this);
    auto* const place = new QHBoxLayout;
    place->addWidget(m_folder);
    place->addWidget(browseButton);
    auto* const version = new QHBoxLayout;
    version->addWidget(m_major);
    version->addWidget(new QLabel(".", this));
    version->addWidget(m_minor);
    version->addStretch();
    auto* const form = new QFormLayout(this);
    form->addRow(tr("&Folder:"), place);
    form->addRow(tr("&Type:"), m_type);
    form->addRow(tr("&Version:"), version);
    qobject_cast<QLabel*>(form->labelForField(place))->setBuddy(m_folder);
    qobject_cast<QLabel*>(form->labelForField(version))->setBuddy(m_major);
    form->addRow(m_hint);
    form->addRow(m_buttons);

    connect(browseButton, &QPushButton::clicked, this, &NewDesignDialog::browse);
    connect(m_folder, &QLineEdit::textChanged, this, &NewDesignDialog::check);
    connect(m_type, &QComboBox::editTextChanged, this, &NewDesignDialog::check);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    check();
}

QString NewDesignDialog::folder() const
{
    QString path = QDir::fromNativeSeparators(m_folder->text().trimmed());
    // As a shell reads it.
    if (path == "~" || path.startsWith("~/"))
        path.replace(0, 1, QDir::homePath());
    return path.isEmpty() ? path : QDir::cleanPath(path);
}

QString NewDesignDialog::typeName() const { return m_type->currentText(); }

int NewDesignDialog::versionMajor() const { return m_major->value(); }

int NewDesignDialog::versionMinor() const { return m_minor->value(); }

void NewDesignDialog::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void NewDesignDialog::dropEvent(QDropEvent* event)
{
    const QFileInfo dropped(event->mimeData()->urls().value(0).toLocalFile());
    if (dropped.exists())
        m_folder->setText(QDir::toNativeSeparators(dropped.isDir() ? dropped.absoluteFilePath()
                                                                   : dropped.absolutePath()));
}

void NewDesignDialog::browse()
{
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Folder of the Design"), folder());
    if (!chosen.isEmpty())
        m_folder->setText(QDir::toNativeSeparators(chosen));
}

void NewDesignDialog::check()
{
    QString problem;
    if (!folder().isEmpty() && QDir::isRelativePath(folder()))
        problem = tr("Enter the whole path of the folder, or one that begins with \"~/\".");
    else if (QFileInfo(folder()).isFile())
        problem = tr("This is a file, not a folder.");
    else if (!folder().isEmpty() && DesignStorage::hasDescription(folder()))
        problem = tr("There is a design in this folder already.");
    m_hint->setText(problem);
    m_buttons->button(QDialogButtonBox::Ok)
        ->setEnabled(!folder().isEmpty() && !typeName().isEmpty() && problem.isEmpty());
}
