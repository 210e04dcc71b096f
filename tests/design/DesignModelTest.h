#ifndef TESTS_DESIGN_DESIGNMODELTEST_H
#define TESTS_DESIGN_DESIGNMODELTEST_H

#include "design/DesignModel.h"
#include "support/LoadedPlugin.h"
#include "support/MarkingTranslator.h"
#include "support/ModalAnswer.h"
#include "support/ModelRun.h"
#include "support/RecordingDesign.h"

#include <OrvanticCore/IDesignViewExtensions.h>
#include <QtilitiesLogging/Logger.h>

#include <QAction>
#include <QPointer>
#include <QScopedPointer>

/// The actions on files of designs, on designs that record every call, beside a model of them.
class DesignModelTest : public QObject, public Model {
    Q_OBJECT

    // As the logger's signal has it.
    typedef Qtilities::Logging::Logger Logger;

public:
    explicit DesignModelTest(const QString& folder);

    QList<Kind> kinds() const override;
    QStringList branches() const override;
    int actionsOfShortRun() const override { return 6000; }
    void begin() override;
    void end() override;
    QString perform(const ModelAction& action) override;

protected:
    void customEvent(QEvent* event) override;

private Q_SLOTS:
    void noteMessage(Logger::MessageType type, const QString& text);

private:
    static const int Designs = 2;

    typedef void (DesignModelTest::*Act)(const ModelAction&);
    static QList<Act> acts();

    // What the host does.
    void clickFile(const ModelAction& action);
    void lock(const ModelAction& action);
    void openDesigns(const ModelAction& action);
    void closeDesign(const ModelAction& action);
    void changeVersion(const ModelAction& action);
    void changeProperty(const ModelAction& action);
    void changeDescription(const ModelAction& action);
    void changeStructure(const ModelAction& action);
    void changeDesign(const ModelAction& action);
    void removeFile(const ModelAction& action);
    void endCycle(const ModelAction& action);
    void translate(const ModelAction& action);
    void changeUser(const ModelAction& action);
    void reserveEdge(const ModelAction& action);

    // What the user does.
    void trigger(const ModelAction& action);
    void callSlot(const ModelAction& action);
    void announce(const ModelAction& action);
    void handle(const ModelAction& action);
    void generate(const ModelAction& action);
    void type(const ModelAction& action);
    void choose(const ModelAction& action);
    void upload(const ModelAction& action);
    void clearForm(const ModelAction& action);
    void closeWindow(const ModelAction& action);
    void minimize(const ModelAction& action);
    void move(const ModelAction& action);

    void openDesign(int index);
    void setUser(const QString& name);
    QStringList someNewFiles(const ModelAction& action) const;
    HostActs someActs(const ModelAction& action, const QStringList& paths) const;
    void prepareActs(const HostActs& acts);
    void countBranches(const QStringList& paths, const HostActs& acts);
    int onlyDesign() const;
    static QWidget* shownWindow();
    static QStringList windowState(const QWidget* window);
    QStringList state();

    DesignModel m_model;
    LoadedPlugin m_plugin;
    OrvanticCore::Interfaces::IDesignViewExtensions* m_extensions = nullptr;
    QObject* m_object = nullptr;
    QList<ModelFile> m_files;
    RecordingDesign* m_designs[Designs] = {nullptr, nullptr};
    QScopedPointer<Qtilities::CoreGui::TreeFileItem> m_item;
    QScopedPointer<OrvanticCore::DesignFile> m_orphan;
    QPointer<QAction> m_create;
    QPointer<QAction> m_open;
    QPointer<QWidget> m_window;
    QPoint m_place;
    bool m_wasMinimized = false;
    QScopedPointer<ModalAnswer> m_boxes;
    MarkingTranslator m_translator;
    HostActs m_acts;
    int m_uploads = 0;
    QStringList m_trace;
};

#endif
