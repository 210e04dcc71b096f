#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QtTest>

namespace {

/// The text of a file of the project, its line breaks and runs of blanks made single blanks.
QString textOf(const char* path)
{
    QFile file(QStringLiteral(PROJECT_FOLDER "/") + path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    return QString::fromUtf8(file.readAll()).replace("\\\n", " ").simplified();
}

QString lacking(const QString& path, const QString& text) { return path + " lacks: " + text; }

/// "a, b or c"
QString enumerated(QStringList words)
{
    const QString last = words.takeLast();
    return words.isEmpty() ? last : words.join(", ") + " or " + last;
}

QStringList emphasised(QStringList words)
{
    return words.replaceInStrings(QRegularExpression("^(.*)$"), "*\\1*");
}

QStringList allDevices()
{
    QStringList devices;
    for (const auto& target : FcfTarget::Targets)
        devices << target.device;
    devices.removeDuplicates();
    devices.sort();
    return devices;
}

/// The words between \p before and \p after, sorted.
QStringList wordsBetween(const QString& text, const QString& before, const QString& after)
{
    const int start = text.indexOf(before) + before.size();
    QStringList words = text.mid(start, text.indexOf(after, start) - start).split(' ');
    words.sort();
    return words;
}

} // namespace

/// Each list of modules, devices, codes and slots in the project agrees with the one table.
class TargetListsTest : public QObject {
    Q_OBJECT

private slots:
    void theFormatDocumentAgrees();
    void theMeaningsOfTheCodesAgree();
    void theKaitaiDescriptionAgrees();
    void theHexPatternAgrees();
    void theManualAgrees();
    void theCompletionsAgree_data();
    void theCompletionsAgree();
    void theFormatTestsAgree();
    void theGuideAgrees();
    void theRecipeSchemaAgrees();
};

void TargetListsTest::theFormatDocumentAgrees()
{
    QString rows;
    for (const auto& target : FcfTarget::Targets)
        rows += QString("| %1 | %2 | %3 | %4 | ")
                    .arg(target.moduleCode)
                    .arg(target.deviceCode)
                    .arg(target.module, target.device);
    const QString document = textOf("docs/fcf-format.md");
    QVERIFY2(document.contains("|---|---|---|---| " + rows + "A device without"),
             qPrintable(lacking("docs/fcf-format.md", rows)));
    QVERIFY(document.contains(
        QString("`configNumber` is %1 to %2.").arg(FcfTarget::FirstSlot).arg(FcfTarget::LastSlot)));
}

void TargetListsTest::theMeaningsOfTheCodesAgree()
{
    for (const auto& field : FcfLayout::Numbers) {
        const QString meaning = field.meaning;
        for (const auto& target : FcfTarget::Targets) {
            const QRegularExpression module(
                QString("\\b%1 for (\\w+ and )?%2\\b").arg(target.moduleCode).arg(target.module));
            if (field.value == &FcfHeader::moduleCode)
                QVERIFY2(module.match(meaning).hasMatch(),
                         qPrintable(lacking("fcf/FcfLayout.cpp", target.module)));
            const QRegularExpression device(
                QString("\\b%1 ([\\w()]+ or )?%2\\b").arg(target.deviceCode).arg(target.device));
            if (field.value == &FcfHeader::deviceCode && target.deviceCode != FcfTarget::NoCode)
                QVERIFY2(device.match(meaning.simplified().replace(" (GPM)", "")).hasMatch(),
                         qPrintable(lacking("fcf/FcfLayout.cpp", target.device)));
        }
        if (field.value == &FcfHeader::configNumber)
            QVERIFY(meaning.endsWith(
                QString(" %1 to %2").arg(FcfTarget::FirstSlot).arg(FcfTarget::LastSlot)));
    }
}

void TargetListsTest::theKaitaiDescriptionAgrees()
{
    const QString document = textOf("docs/fcf.ksy");
    for (const auto& target : FcfTarget::Targets) {
        const QRegularExpression name(QString("module_code:.* %1: (\\w+_or_)?%2(_or_\\w+)?\\b")
                                          .arg(target.moduleCode)
                                          .arg(QString(target.module).toLower()));
        QVERIFY2(name.match(document).hasMatch(),
                 qPrintable(lacking("docs/fcf.ksy", target.module)));
    }
}

void TargetListsTest::theHexPatternAgrees()
{
    const QString document = textOf("docs/fcf.hexpat");
    for (const auto& target : FcfTarget::Targets) {
        const QRegularExpression module(
            QString("enum ModuleCode : s32 \\{[^}]*\\b(\\w+_or_)?%1(_or_\\w+)? = %2\\b")
                .arg(target.module)
                .arg(target.moduleCode));
        QVERIFY2(module.match(document).hasMatch(),
                 qPrintable(lacking("docs/fcf.hexpat", target.module)));
        const bool hasCode = target.deviceCode != FcfTarget::NoCode;
        const QRegularExpression device(
            QString("enum DeviceCode : s32 \\{[^}]*\\b(\\w+_or_)?%1(_or_\\w+)? = %2\\b")
                .arg(hasCode ? target.device : "Without_code")
                .arg(target.deviceCode));
        QVERIFY2(device.match(document).hasMatch(),
                 qPrintable(lacking("docs/fcf.hexpat", target.device)));
    }
}

void TargetListsTest::theManualAgrees()
{
    QStringList targets;
    for (const QString& module : FcfTarget::modules())
        targets << QString("*%1* with %2")
                       .arg(module, enumerated(emphasised(FcfTarget::devicesOf(module))));
    const QString manual = textOf("packaging/man/pelk-fcf.1.scd");
    QVERIFY2(manual.contains(targets.join(", ") + '.'),
             qPrintable(lacking("packaging/man/pelk-fcf.1.scd", targets.join(", "))));
    QVERIFY(manual.contains(
        QString("The flash slot, %1 to %2.").arg(FcfTarget::FirstSlot).arg(FcfTarget::LastSlot)));
}

void TargetListsTest::theCompletionsAgree_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("modules");
    QTest::addColumn<QString>("devices");
    QTest::addColumn<QString>("beforeAllDevices");
    QTest::addColumn<QString>("afterAllDevices");
    QTest::newRow("bash") << QByteArray("packaging/completions/pelk-fcf.bash")
                          << "--module) _pelk_fcf_words %1; return ;;"
                          << " %1) _pelk_fcf_words %2 ;;"
                          << " *) _pelk_fcf_words Interface_FPGA "
                          << " ;;";
    QTest::newRow("zsh") << QByteArray("packaging/completions/_pelk-fcf") << ":module:(%1)'"
                         << " %1) devices=(%2) ;;"
                         << " *) devices=(Interface_FPGA "
                         << ") ;;";
    QTest::newRow("fish") << QByteArray("packaging/completions/pelk-fcf.fish")
                          << " -l module -a '%1' "
                          << " case %1 printf '%s\\n' %2 case "
                          << " case '*' printf '%s\\n' Interface_FPGA "
                          << " end";
}

void TargetListsTest::theCompletionsAgree()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, modules);
    QFETCH(QString, devices);
    QFETCH(QString, beforeAllDevices);
    QFETCH(QString, afterAllDevices);
    const QString completion = textOf(path);
    QVERIFY(completion.contains(modules.arg(FcfTarget::modules().join(' '))));
    for (const QString& module : FcfTarget::modules()) {
        const QString list = devices.arg(module, FcfTarget::devicesOf(module).join(' '));
        QVERIFY2(completion.contains(list), qPrintable(lacking(path, list)));
    }
    QStringList others = allDevices();
    others.removeAll("Interface_FPGA");
    QCOMPARE(wordsBetween(completion, beforeAllDevices, afterAllDevices), others);
}

void TargetListsTest::theFormatTestsAgree()
{
    const QString script = textOf("tests/formats/kaitai-test.js");
    for (const QString& module : FcfTarget::modules()) {
        const QString list =
            QString(" %1: ['%2'],").arg(module, FcfTarget::devicesOf(module).join("', '"));
        QVERIFY2(script.contains(list), qPrintable(lacking("tests/formats/kaitai-test.js", list)));
    }
}

void TargetListsTest::theGuideAgrees()
{
    QVERIFY(
        textOf("docs/guide/from-a-design.md")
            .contains("| ZORV Pelk Module | text | `" + FcfTarget::modules().join("`, `") + '`'));
    const QString changing = textOf("docs/guide/changing-a-build.md");
    for (const auto& target : FcfTarget::Targets) {
        const QString row = QString("| %1, %2 | ").arg(target.module, target.device);
        QVERIFY2(changing.contains(row),
                 qPrintable(lacking("docs/guide/changing-a-build.md", row)));
    }
}

void TargetListsTest::theRecipeSchemaAgrees()
{
    QFile file(PROJECT_FOLDER "/docs/schemas/recipe.schema.json");
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject properties =
        QJsonDocument::fromJson(file.readAll()).object()["properties"].toObject();
    const auto values = [&properties](const char* property) {
        QStringList texts = properties[property].toObject()["enum"].toVariant().toStringList();
        texts.sort();
        return texts;
    };
    QCOMPARE(values("module"), FcfTarget::modules());
    QCOMPARE(values("device"), allDevices());
    const QJsonObject slot = properties["configNumber"].toObject();
    QCOMPARE(slot["minimum"].toInt(), FcfTarget::FirstSlot);
    QCOMPARE(slot["maximum"].toInt(), FcfTarget::LastSlot);
}

QTEST_GUILESS_MAIN(TargetListsTest)
#include "TargetListsTest.moc"
