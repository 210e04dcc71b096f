#ifndef TESTS_DESIGN_DESIGNMODEL_H
#define TESTS_DESIGN_DESIGNMODEL_H

#include <QMap>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QVariant>

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

/// One design, as plain values.
struct DesignValues {
    bool exists;
    bool open;
    QString type;
    int major;
    int minor;
    QMap<QString, QVariant> properties;
    bool hasStructure;
    /// The node for bit-stream files; null for none.
    QString node;
    /// Null when files can be added.
    QString refusal;
    /// What is new in the version. Not shared when the property is one of another kind.
    QVariant changes;
    bool changesAreShared;
    /// The marks of each file by its path, in the order in which they were added.
    QList<QPair<QString, QString>> files;
    int cycles;

    DesignValues();
    int indexOf(const QString& path) const;
};

/// What happens in the moment in which events run, or in which a file has been added.
struct HostActs {
    enum InEvents {
        Nothing,
        DeletesDesign,
        RemovesFile,
        ClosesWindow,
        BeginsCycle,
        TakesDesignFromList,
        OpensAnother,
        DropsItsStructure
    } inEvents;
    enum WhenAdded { Stays, ChangesVersion, DropsStructure, DropsWindow } whenAdded;
    /// The file that is removed, if the design has it.
    QString path;

    HostActs() : inEvents(Nothing), whenAdded(Stays) {}
};

/// The actions on the files of designs, and what is around them, as plain values.
struct DesignModel {
    QList<DesignValues> designs;
    /// What was clicked last: its design, or -1, and the file. Not valid when that is gone.
    bool hasItem;
    int itemDesign;
    ModelFile item;

    bool hasCreate;
    bool hasOpen;
    QString createText;
    QString openText;
    bool createEnabled;
    bool openEnabled;
    bool marks;
    QString user;

    bool hasWindow;
    /// Whether the last action made the window.
    bool opened;
    WindowModel window;
    QStringList trace;

    DesignModel();

    /// The texts of the actions that the menu gets.
    void contextMenu(const QString& context, bool isDesignFile, int design, const ModelFile& file);
    /// The menu of nothing.
    void contextMenuOfNothing() { hasItem = false; }
    void closeDesign(int design);
    void removeFile(int design, const QString& path);
    void refreshForDesignState(bool locked, bool read_only);
    void create();
    void open();
    void newFiles(const QStringList& paths, const HostActs& acts);

    /// The window's own line after it has generated.
    void logGenerated();

    /// The one design that is open, or -1.
    int onlyDesign() const;
    QStringList state() const;

private:
    QString shown(const char* text) const;
    void needWindow();
    void noteBox(const QString& text);
    void showWindow();
    void note(int design, const QString& line);
    QVariant readProperty(int design, const char* name);
    void fillTarget(int design);
    QString takeFile(int design, const QString& path, const HostActs& acts);
    void writeTarget(int design);
    void actInEvents(int design, const HostActs& acts, QStringList* handled);
};

#endif
