#ifndef TESTS_ARCHIVE_ARCHIVEMODEL_H
#define TESTS_ARCHIVE_ARCHIVEMODEL_H

#include <QMap>
#include <QString>
#include <QStringList>

/// What the form for configuration packages knows of a design.
struct ArchivedDesign {
    int major;
    int minor;
    QString folder;
    bool hasStructure;
    /// The folder that the structure has for each extension.
    QMap<QString, QString> folders;

    ArchivedDesign() : major(0), minor(0), hasStructure(false) {}
};

/// What it knows of a dialog, which can give another answer each time.
struct ArchivingDialog {
    /// -1 for none.
    int design;
    QStringList extensions;
    int extensionsAsked;

    ArchivingDialog() : design(-1), extensionsAsked(0) {}
};

/// The form for configuration packages and what is around it, as plain values.
///
/// Each function is an action of a user or of the host. It adds what can be seen meanwhile to the
/// trace, in order.
struct ArchiveModel {
    QStringList packageTypes;
    int packageType;
    QStringList designTypes;
    int designType;
    QString projectCm;
    int sequence;
    int major;
    int minor;
    QString destination;
    QMap<QString, QString> firmware;
    QMap<QString, QString> software;
    /// -1 for none.
    int dialog;

    QList<ArchivedDesign> designs;
    QList<ArchivingDialog> dialogs;
    /// What the settings files have for the package type; null for nothing.
    QList<QString> saved;
    int settings;

    /// Whether the texts of the form were marked by a translator when it was made.
    bool marked;
    bool marks;
    QStringList trace;

    ArchiveModel();

    /// A new form in the same host.
    void make();

    void typeProjectCm(const QString& text);
    void choosePackageType(int index);
    void chooseDesignType(int index);
    void addDesignType(const QString& label);
    void setSequence(int value);
    void setMajor(int value);
    void setMinor(int value);

    void setDialog(int index);
    void updateDialog();
    void updatePackageName();
    void handlePackageTypeChange();

    /// A line for each thing that can be seen.
    QStringList state() const;

private:
    void setSpin(int* spin, int value, int least);
    QString codeOf(QMap<QString, QString>* table) const;
    QString extension();
    QString destinationFolder();
};

#endif
