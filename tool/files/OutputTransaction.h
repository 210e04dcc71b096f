#ifndef TOOL_FILES_OUTPUTTRANSACTION_H
#define TOOL_FILES_OUTPUTTRANSACTION_H

#include "tool/base/Result.h"

#include <QFile>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

/// Files of one folder that are completed unseen and then get their names together.
///
/// They have no name until commit(), so that a run that ends early, however it ends, leaves
/// nothing. See TemporaryFile for file systems that have no such files.
class OutputTransaction {
public:
    enum Existing { Keep, Replace };

    explicit OutputTransaction(Existing existing) : m_existing(existing) {}
    ~OutputTransaction();
    Q_DISABLE_COPY(OutputTransaction)

    /// Adds the file \p path, open for writing. Owned. The file that is added first gets its name
    /// last. From the start nobody may read it who may not read what it is to replace.
    Result<QFile*> add(const QString& path);

    /// Adds the file \p path with all of \p bytes.
    Status add(const QString& path, const QByteArray& bytes);

    /// Checked by commit() when no other run can change the folder any more; an error ends it.
    void setCondition(std::function<Status()> condition) { m_condition = std::move(condition); }

    /// Syncs all files and then gives them their names, one after the other, while the folder is
    /// locked against other runs. Nothing changes until all are synced. After an error the new
    /// names are removed again, but what was replaced stays replaced.
    Status commit();

private:
    struct File {
        QString path;
        QByteArray name;
        QFile device;
        /// Its name in the folder while it has no other; may be empty.
        QByteArray temporary;
        bool isNew = false;
    };

    Status openFolder(const QString& path);
    Status sync() const;
    void lockFolder() const;
    Status checkNoneExists() const;
    Status nameAll();
    Status name(File* file);
    Status nameNew(const File& file) const;
    Status nameTemporary(const File& file) const;
    Status replace(File* file) const;
    Status link(const File& file, const QByteArray& name) const;
    Status rename(const File& file) const;
    Status syncFolder() const;
    void removeTemporary(File* file);
    void rollBack();

    const Existing m_existing;
    QByteArray m_folderPath;
    int m_folder = -1;
    std::vector<std::unique_ptr<File>> m_files;
    std::function<Status()> m_condition = [] { return Status(); };
};

#endif
