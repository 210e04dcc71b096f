#ifndef TESTS_SUPPORT_WORKFOLDER_H
#define TESTS_SUPPORT_WORKFOLDER_H

#include <QByteArray>
#include <QString>

/// A folder of the test's own, which ends with it.
class WorkFolder {
public:
    /// In \p parent; an empty one is the folder for temporary files.
    explicit WorkFolder(const QString& parent = QString());
    ~WorkFolder();

    QString path(const QString& name = QString()) const;

    /// Writes a file and returns its path.
    QString write(const QString& name, const QByteArray& bytes) const;
    static QByteArray read(const QString& path);

private:
    Q_DISABLE_COPY(WorkFolder)
    QString m_path;
};

#endif
