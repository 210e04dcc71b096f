#ifndef TESTS_DESIGN_DESIGNMODEL_H
#define TESTS_DESIGN_DESIGNMODEL_H

#include "design/WindowModel.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

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
