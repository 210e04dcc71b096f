#include "host/archive/NotingExtension.h"

#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCore/QtilitiesCoreApplication.h>

using OrvanticCore::DesignArchiveOutputParserDialog;

NotingExtension::NotingExtension(const QString& type) : m_type(type)
{
    connect(this, &QLineEdit::textEdited, this, &NotingExtension::destinationPathChanged);
    Qtilities::Core::QtilitiesCoreApplication::objectManager()->registerObject(this);
}

void NotingExtension::setArchiveDialogWidget(DesignArchiveOutputParserDialog* widget)
{
    dialog = widget;
    calls << (dialog ? "dialog" : "no dialog");
}

void NotingExtension::updateArchiveDialogWidget()
{
    calls << "update";
    if (!hidesAndLocks)
        return;
    dialog->setAppendVersionCheckboxVisible(false);
    dialog->setDestinationPathReadOnly(true);
    dialog->setIncludedItemsGroupboxVisible(false);
}

void NotingExtension::handleDestinationPathChanged(const QString& new_destination_path)
{
    calls << "path " + new_destination_path;
}

#include "moc_NotingExtension.cpp"
