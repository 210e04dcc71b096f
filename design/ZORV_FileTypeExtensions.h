#ifndef DESIGN_ZORV_FILETYPEEXTENSIONS_H
#define DESIGN_ZORV_FILETYPEEXTENSIONS_H

#include <OrvanticCore/IDesignViewExtensions.h>

#include <QObject>
#include <QStringList>

class PelkFcfGenerator;

namespace ZORV_Plugin {

// By this name moc also has the interface's short name accepted in meta-casts.
using OrvanticCore::Interfaces::IDesignViewExtensions;

struct ZORV_FileTypeExtensionsData;

/// Opens the generator window from the files of a firmware design, and adds what the window
/// generates to the design.
///
/// The actions are made when first needed and never deleted: the host may have them in a menu. The
/// window deletes itself when it is closed.
class ZORV_FileTypeExtensions : public QObject, public IDesignViewExtensions {
    Q_OBJECT
    Q_INTERFACES(OrvanticCore::Interfaces::IDesignViewExtensions)

public:
    explicit ZORV_FileTypeExtensions(QObject* parent = nullptr);
    ~ZORV_FileTypeExtensions() override;

    /// "Create FCF" for a ".bin" file and "Open FCF" for a ".txt" file. Whatever it returns, both
    /// actions work on \p item from now on.
    QList<QAction*> contextMenuActions(Qtilities::CoreGui::TreeFileItem* item,
                                       const QString& context) override;

    /// Enables the actions that exist when the design is neither locked nor read-only.
    void refreshForDesignState(bool locked, bool read_only) override;

public Q_SLOTS:
    /// Opens the window for a new image of the current item, filled in from the only open design.
    void handleActionCreateFCF();

    /// Opens the window with the build that the current item describes.
    void handleActionOpenFCF();

    /// Takes the files into the only open design as generated ones, and records the window's target
    /// in the design's properties.
    void handleNewFilesCreated(QStringList created_files);

private:
    QAction* makeAction(const QString& text, const char* slot) const;
    PelkFcfGenerator* generator();

    ZORV_FileTypeExtensionsData* d;
};

} // namespace ZORV_Plugin

#endif
