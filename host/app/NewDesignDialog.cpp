#include "host/app/NewDesignDialog.h"

#include "host/app/common/WheelGuard.h"
#include "host/app/DesignStorage.h"
#include "ui_NewDesignDialog.h"

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QPushButton>

NewDesignDialog::NewDesignDialog(const QString& folder, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::NewDesignDialog)
{
    m_ui->setupUi(this);
    guardWheel(this);
    m_ui->NewDesignFolder->setText(QDir::toNativeSeparators(folder));
    connect(m_ui->BrowseFolderButton, &QPushButton::clicked, this, &NewDesignDialog::browse);
    connect(m_ui->NewDesignFolder, &QLineEdit::textChanged, this, &NewDesignDialog::check);
    connect(m_ui->NewDesignType, &QComboBox::editTextChanged, this, &NewDesignDialog::check);
    check();
}

NewDesignDialog::~NewDesignDialog() = default;

QString NewDesignDialog::folder() const
{
    QString path = QDir::fromNativeSeparators(m_ui->NewDesignFolder->text().trimmed());
    // A shell reads "~" as the home folder, too.
    if (path == "~" || path.startsWith("~/"))
        path.replace(0, 1, QDir::homePath());
    return path.isEmpty() ? path : QDir::cleanPath(path);
}

QString NewDesignDialog::typeName() const { return m_ui->NewDesignType->currentText(); }

int NewDesignDialog::versionMajor() const { return m_ui->NewVersionMajor->value(); }

int NewDesignDialog::versionMinor() const { return m_ui->NewVersionMinor->value(); }

void NewDesignDialog::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void NewDesignDialog::dropEvent(QDropEvent* event)
{
    const QFileInfo dropped(event->mimeData()->urls().value(0).toLocalFile());
    if (dropped.exists())
        m_ui->NewDesignFolder->setText(QDir::toNativeSeparators(
            dropped.isDir() ? dropped.absoluteFilePath() : dropped.absolutePath()));
}

void NewDesignDialog::browse()
{
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Folder of the Design"), folder());
    if (!chosen.isEmpty())
        m_ui->NewDesignFolder->setText(QDir::toNativeSeparators(chosen));
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
    m_ui->NewDesignHint->setText(problem);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)
        ->setEnabled(!folder().isEmpty() && !typeName().isEmpty() && problem.isEmpty());
}
