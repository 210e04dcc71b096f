#ifndef HOST_APP_DESIGNDETAILS_H
#define HOST_APP_DESIGNDETAILS_H

#include <OrvanticCore/Design.h>

#include <QPointer>
#include <QWidget>

#include <memory>

namespace Ui {
class DesignDetails;
}

/// Shows and edits what a design says of itself: its type, its version, and what is new in that.
///
/// For drivers: "VersionMajor", "VersionMinor", "VersionChanges".
class DesignDetails : public QWidget {
    Q_OBJECT

public:
    explicit DesignDetails(QWidget* parent = nullptr);
    ~DesignDetails() override;

    /// \p design may be null, and stays its owner's.
    void setDesign(OrvanticCore::Design* design);

private:
    void show();

    std::unique_ptr<Ui::DesignDetails> m_ui;
    QPointer<OrvanticCore::Design> m_design;
};

#endif
