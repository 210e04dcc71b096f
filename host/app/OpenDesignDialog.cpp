#include "host/app/OpenDesignDialog.h"

#include "host/app/DesignSession.h"
#include "host/app/DesignStorage.h"

#include <QFileInfo>

OpenDesignDialog::OpenDesignDialog(QWidget* parent) : QFileDialog(parent, tr("Open Design"))
{
    setObjectName("OpenDesignDialog");
    // The desktop's own dialog cannot take a folder and a file alike.
    setOption(QFileDialog::DontUseNativeDialog);
    setFileMode(QFileDialog::ExistingFile);
    setNameFilter(tr("Designs (design.json)"));
    const QStringList recent = DesignSession::recentFolders();
    if (!recent.isEmpty())
        setDirectory(QFileInfo(recent.first()).absolutePath());
}

QString OpenDesignDialog::choose(QWidget* parent)
{
    OpenDesignDialog dialog(parent);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void OpenDesignDialog::accept()
{
    // A file dialog accepts no folder; being done with one does no more than that.
    if (DesignStorage::hasDescription(selectedFiles().value(0)))
        done(QDialog::Accepted);
    else
        QFileDialog::accept();
}
