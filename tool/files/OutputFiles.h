#ifndef TOOL_FILES_OUTPUTFILES_H
#define TOOL_FILES_OUTPUTFILES_H

#include "tool/base/Result.h"

#include <QFile>
#include <QString>

#include <memory>
#include <vector>

/// Files of one folder that are completed unseen and then put in place together.
///
/// They have no name until place(), so that a run that ends early, however it ends, leaves nothing.
/// See TemporaryFile for file systems that have no such files.
class OutputFiles {
public:
    enum Existing { Keep, Replace };

    explicit OutputFiles(Existing existing) : m_existing(existing) {}
    ~OutputFiles();
    Q_DISABLE_COPY(OutputFiles)

    /// Adds the file \p path, open for writing; it stays this object's. The first one is put in
    /// place last. From the start nobody may read it who may not read what it is to replace.
    Result<QFile*> add(const QString& path);

    /// Adds the file \p path with all of \p bytes.
    Status add(const QString& path, const QByteArray& bytes);

    /// Brings all files to the disk and then puts them in place, one after the other, while the
    /// folder is locked against other runs. Until all are on the disk nothing changes. After an
    /// error what was put where nothing was is removed again, but what was replaced stays so.
    Status place();

private:
    struct File {
        QString path;
        QByteArray name;
        QFile device;
        /// Its name in the folder while it has no other; may be empty.
        QByteArray temporary;
        bool isNew = false;
    };

    Status place(File* file);
    Status placeNew(const File& file) const;
    Status replace(File* file) const;
    Status link(const File& file, const QByteArray& name) const;
    Status rename(const File& file) const;
    void forgetTemporary(File* file);
    void rollBack();

    const Existing m_existing;
    QByteArray m_folderPath;
    int m_folder = -1;
    std::vector<std::unique_ptr<File>> m_files;
};

#endif
