#ifndef HOST_APP_DESIGNDETAILS_H
#define HOST_APP_DESIGNDETAILS_H

#include <OrvanticCore/Design.h>

#include <QPointer>
#include <QWidget>

class QLabel;
class QPlainTextEdit;
class QSpinBox;

/// Shows and edits what a design says of itself: its type, its version, and what is new in that.
///
/// For drivers: "VersionMajor", "VersionMinor", "VersionChanges".
class DesignDetails : public QWidget {
    Q_OBJECT

public:
    explicit DesignDetails(QWidget* parent = nullptr);

    /// \p design may be null, and stays its owner's.
    void setDesign(OrvanticCore::Design* design);

private:
    QSpinBox* makeSpinBox(const QString& name);
    void show();
    void takeMajor(int number);
    void takeMinor(int number);
    void takeChanges();

    QPointer<OrvanticCore::Design> m_design;
    QLabel* m_type;
    QSpinBox* m_major;
    QSpinBox* m_minor;
    QPlainTextEdit* m_changes;
};

#endif
