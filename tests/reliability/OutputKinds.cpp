#include "OutputKinds.h"

#include "archive/ArchiveHost.h"
#include "generator/GeneratorDriver.h"
#include "host/archive/ArchivedDesign.h"
#include "host/HostErrorOf.h"
#include "tool/ToolFixture.h"

#include "host/app/archive/ArchiveJob.h"
#include "host/app/DesignStorage.h"

#include <OrvanticCore/Design.h>

#include <QDir>
#include <QTemporaryDir>

namespace {

/// Makes its archive in the caller's thread. A copy of this process has no other, and one that is
/// just ending when the copy is made would leave its locks in it.
class ArchiveInThisThread : public ArchiveJob {
public:
    using ArchiveJob::ArchiveJob;
    using ArchiveJob::run;
};

class WindowOutput : public Output {
public:
    QString file() const override { return m_driver.path("top.fcf"); }

    void prepare() override
    {
        m_driver.reopen();
        m_size += 10000;
        m_driver.fillIn(m_driver.write("top.bin", ToolFixture::payload(m_size)));
    }

    QString write() override
    {
        const int logged = m_driver.log().size();
        m_driver.dialogs().clear();
        if (QFileInfo(file()).exists())
            m_driver.dialogs().click(QMessageBox::Yes);
        m_driver.click("GenerateButton");
        const QString status = m_driver.text("StatusBar");
        if (status.contains("Successfully"))
            return QString();
        return (m_driver.dialogs().texts() + m_driver.log().mid(logged) + QStringList(status))
            .join('\n');
    }

private:
    GeneratorDriver m_driver;
    int m_size = 4000;
};

class ToolOutput : public Output {
public:
    QString file() const override { return m_tool.path("top.fcf"); }
    void prepare() override { m_tool.write("top.bin", ToolFixture::payload(++m_size)); }

    QString write() override
    {
        const Run run = m_tool.run(m_tool.createAll({"--force"}));
        return run.code == 0 ? QString() : QString::fromUtf8(run.err);
    }

private:
    ToolFixture m_tool;
    int m_size = 4000;
};

class ArchiveOutput : public Output {
public:
    ArchiveOutput() { QDir().mkpath(folder()); }

    QString file() const override { return m_bench.outside("archives/radar.zip"); }
    void prepare() override { ++m_version; }

    QString write() override
    {
        ArchivePlan plan(m_bench.design(), ArchivePlan::Items(QFlag(0x1B)));
        plan.setDescription("design.json", QByteArray::number(m_version));
        ArchiveInThisThread job({plan, ArchiveFormat::Zip, file(), folder(), true});
        job.run();
        return job.outcome() == ArchiveJob::Written ? QString() : job.error() + '.';
    }

private:
    ArchivedDesign m_bench;
    int m_version = 0;
};

class DescriptionOutput : public Output {
public:
    QString file() const override { return m_folder.filePath("design.json"); }
    void prepare() override { m_design.setVersion(++m_version, 0); }

    QString write() override
    {
        const QString error = hostErrorOf([this] { DesignStorage::save(&m_design); });
        return error.isEmpty() ? QString() : error + '.';
    }

private:
    QTemporaryDir m_folder;
    OrvanticCore::Design m_design{m_folder.path(), "Firmware Design"};
    int m_version = 0;
};

/// The user is told nothing: what is chosen is used until the host ends.
class SettingsOutput : public Output {
public:
    QString file() const override { return m_host.settingsPath(); }
    void prepare() override {}

    QString write() override
    {
        m_host.packageType()->setCurrentIndex(1 - m_host.packageType()->currentIndex());
        return QString();
    }

private:
    ArchiveHost m_host;
};

} // namespace

QByteArray Output::content() const
{
    QFile opened(file());
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
}

QStringList Output::names() const
{
    return QDir(folder()).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

std::unique_ptr<Output> makeOutput(OutputKind kind)
{
    switch (kind) {
    case OutputKind::WindowImage:
        return std::make_unique<WindowOutput>();
    case OutputKind::ToolImage:
        return std::make_unique<ToolOutput>();
    case OutputKind::Archive:
        return std::make_unique<ArchiveOutput>();
    case OutputKind::Description:
        return std::make_unique<DescriptionOutput>();
    case OutputKind::Settings:
        break;
    }
    return std::make_unique<SettingsOutput>();
}
