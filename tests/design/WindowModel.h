#ifndef TESTS_DESIGN_WINDOWMODEL_H
#define TESTS_DESIGN_WINDOWMODEL_H

#include <QString>
#include <QStringList>

/// A file that a window can be filled from.
struct ModelFile {
    enum Kind { Missing, Binary, Companion, Foreign };

    ModelFile() : kind(Missing), bytes(0) {}
    ModelFile(const QString& filePath, Kind fileKind, int fileBytes)
        : path(filePath), kind(fileKind), bytes(fileBytes)
    {
    }

    QString path;
    Kind kind;
    int bytes;
};

/// The numbers at the start of a header page, in their order, for a test's file.
struct PageNumbers {
    int totalPages, totalBlocks, totalSize, binPages, binBlocks, binFileSize;
    int module, device, config, major, minor;

    static PageNumbers ofCompanion();
    static PageNumbers ofForeignFile();
};

/// What the actions on files of a design put into a generator window.
struct WindowModel {
    QString path;
    QString author;
    QString major;
    QString minor;
    QString ciNumber;
    QString description;
    QString module;
    QString device;
    int configIndex;
    QStringList functions;
    QString functionName;
    QString status;
    QString binSize;
    QString binPages;
    QString binBlocks;
    QString finalSize;
    QString finalPages;
    QString finalBlocks;
    bool editorEnabled;
    bool modifyEnabled;
    bool minimized;

    WindowModel();

    static QStringList devicesOf(const QString& module);

    void setModule(const QString& text);
    void setDevice(const QString& text);
    void setConfigNum(int number);
    void setVersion(int first, int second);
    void setAuthor(const QString& text);
    /// Returns the box that comes up, or nothing.
    QString setDescription(const QString& text);
    void setBinFile(const ModelFile& file);
    /// As setDescription(); what follows a box is finishTxtFile()'s.
    QString setTxtFile(const ModelFile& file);
    void finishTxtFile();
    void clear();

    QStringList state() const;

private:
    void takeNumbers(const PageNumbers& page);
    void takeCompanion();
};

#endif
