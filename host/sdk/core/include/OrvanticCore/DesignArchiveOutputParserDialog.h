#ifndef ORVANTICCORE_DESIGNARCHIVEOUTPUTPARSERDIALOG_H
#define ORVANTICCORE_DESIGNARCHIVEOUTPUTPARSERDIALOG_H

#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QDialog>
#include <QString>

namespace OrvanticCore {

class IDesign;

/// The host's archive dialog, as archive extensions see it. The host derives its dialog from it.
class ORVANTICCORE_SHARED_EXPORT DesignArchiveOutputParserDialog : public QDialog {
    Q_OBJECT

public:
    explicit DesignArchiveOutputParserDialog(QWidget* parent = nullptr);
    ~DesignArchiveOutputParserDialog() override;

    /// The file extension of the chosen archive format, without the first dot.
    virtual QString currentExtension() const = 0;

    /// The design that is archived, or null. It stays the host's.
    virtual IDesign* design() const = 0;

    /// The control that puts the design's version behind the archive's name.
    virtual void setAppendVersionCheckboxVisible(bool visible) = 0;

    virtual void setDestinationPathReadOnly(bool read_only) = 0;

    /// The controls by which the user chooses what goes into the archive.
    virtual void setIncludedItemsGroupboxVisible(bool visible) = 0;

private:
    Q_DISABLE_COPY(DesignArchiveOutputParserDialog)
};

} // namespace OrvanticCore

#endif
