#ifndef TESTS_PLUGIN_PLUGINMODELTEST_H
#define TESTS_PLUGIN_PLUGINMODELTEST_H

#include "plugin/PluginModel.h"
#include "support/LoadedPlugin.h"
#include "support/MarkingTranslator.h"
#include "support/ModelRun.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

/// The plug-in as its library has it, beside a model of it.
class PluginModelTest : public QObject, public Model {
    Q_OBJECT

public:
    explicit PluginModelTest(const QString& folder);

    QList<Kind> kinds() const override;
    QStringList branches() const override;
    int actionsOfShortRun() const override { return 1500; }
    void begin() override;
    void end() override;
    QString perform(const ModelAction& action) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void askForInstance(const ModelAction& action);
    void initialize(const ModelAction& action);
    void finalize(const ModelAction& action);
    void choose(const ModelAction& action);
    void closeWindow(const ModelAction& action);
    void minimize(const ModelAction& action);
    void cover(const ModelAction& action);
    void useField(const ModelAction& action);
    void deleteInstance(const ModelAction& action);
    void translate(const ModelAction& action);

    void activateOther();
    bool isActive() const { return m_window && QApplication::activeWindow() == m_window; }
    QWidget* field() const { return m_window->findChild<QWidget*>(QLatin1String("AuthoEditBox")); }
    QStringList state() const;
    QStringList identity() const;
    QStringList extensions() const;

    PluginModel m_model;
    LoadedPlugin m_plugin;
    Qtilities::ExtensionSystem::Interfaces::IPlugin* m_instance = nullptr;
    QPointer<QWidget> m_window;
    QWidget m_other;
    MarkingTranslator m_translator;
    QStringList m_embedded;
};

#endif
