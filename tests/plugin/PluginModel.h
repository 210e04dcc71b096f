#ifndef TESTS_PLUGIN_PLUGINMODEL_H
#define TESTS_PLUGIN_PLUGINMODEL_H

#include <QString>
#include <QStringList>

/// What the plug-in's library and its one window look like, as plain values.
struct PluginModel {
    bool loaded;
    /// How often the instance that is loaded was initialized, and how often any was.
    int starts;
    int allStarts;
    bool hasWindow;
    bool visible;
    bool minimized;
    bool maximized;
    bool active;
    /// The widget in the window that has the focus when the window has it.
    QString focus;
    QString author;
    bool marks;
    QStringList trace;

    PluginModel()
        : loaded(true), starts(0), allStarts(0), hasWindow(false), visible(false), minimized(false),
          maximized(false), active(false), marks(false)
    {
    }

    void initialize();
    void showFcfGenerator();
    void deleteInstance();
    QStringList state() const;
    QStringList extensions() const;
};

#endif
