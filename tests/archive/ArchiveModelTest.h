#ifndef TESTS_ARCHIVE_ARCHIVEMODELTEST_H
#define TESTS_ARCHIVE_ARCHIVEMODELTEST_H

#include "archive/ArchiveModel.h"
#include "archive/NotingArchiveDialog.h"
#include "support/LoadedPlugin.h"
#include "support/MarkingTranslator.h"
#include "support/ModelRun.h"
#include "support/RecordingDesign.h"

#include <OrvanticCore/IDesignArchiveExtension.h>

/// The form for configuration packages beside its model.
class ArchiveModelTest : public QObject, public Model {
    Q_OBJECT

public:
    explicit ArchiveModelTest(const QString& folder)
        : Model(folder), m_plugin(QString::fromUtf8(ZORV_PLUGIN_FILE))
    {
    }

    QList<Kind> kinds() const override;
    QStringList branches() const override;
    int actionsOfShortRun() const override { return 15000; }
    void begin() override;
    void end() override;
    QString perform(const ModelAction& action) override;

private Q_SLOTS:
    void notePath(const QString& path);

private:
    /// Files with settings, and how many designs and dialogs there are.
    static const int Files = 2;
    static const int Hosted = 2;

    void make();
    void prepareSettings(const ModelAction& action);
    void restart(const ModelAction& action);
    void typeProjectCm(const ModelAction& action);
    void pressKey(const ModelAction& action);
    void choosePackageType(const ModelAction& action);
    void chooseDesignType(const ModelAction& action);
    void setNumber(const ModelAction& action);
    void setDialog(const ModelAction& action);
    void callSlot(const ModelAction& action);
    void changeDesign(const ModelAction& action);
    void changeDialog(const ModelAction& action);
    void closeDesign(const ModelAction& action);
    void changeSettings(const ModelAction& action);
    void translate(const ModelAction& action);

    QWidget* form() const { return m_extension->extensionWidget(); }
    QStringList state() const;
    QString settingsLine(int file) const;
    void openDesign(int index);

    ArchiveModel m_model;
    LoadedPlugin m_plugin;
    OrvanticCore::Interfaces::IDesignArchiveExtension* m_extension = nullptr;
    QList<NotingArchiveDialog*> m_dialogs;
    QList<RecordingDesign*> m_designs;
    MarkingTranslator m_translator;
    QStringList m_trace;
};

#endif
