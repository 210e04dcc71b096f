#ifndef TESTS_TOOL_VERIFYINGTEST_H
#define TESTS_TOOL_VERIFYINGTEST_H

#include "ToolFixture.h"

#include <QFile>
#include <QtTest>

/// One thing that is wrong with a file, as verify must report it.
struct Lie {
    QString field;
    int offset;
    QString expected;
    QString found;
};

inline QString hexByte(char byte)
{
    return QString("0x%1").arg(static_cast<uchar>(byte), 2, 16, QLatin1Char('0'));
}

/// What the tests share that let verify look at honest and forged images.
class VerifyingTest : public QObject {
protected:
    Run verify(const ForgedImage& image, const Arguments& more = {})
    {
        return verifyBytes(image.bytes(), more);
    }

    Run verifyBytes(const QByteArray& bytes, const Arguments& more = {})
    {
        // Some file systems wait for the disk when a file is written anew.
        QFile::remove(m_tool.path("top.fcf"));
        m_tool.write("top.fcf", bytes);
        return m_tool.run(Arguments{"verify", m_tool.argument("top.fcf"), "--json"} + more);
    }

    /// The findings of \p run that make a file not valid.
    static QList<QJsonObject> errorsOf(const Run& run)
    {
        QList<QJsonObject> errors;
        for (const auto& value : run.json()["findings"].toArray()) {
            if (value.toObject()["severity"].toString() == "error")
                errors << value.toObject();
        }
        return errors;
    }

    void checkFinding(const Run& run, const Lie& lie)
    {
        QCOMPARE(run.code, 1);
        const QJsonObject finding = run.finding(lie.field);
        QVERIFY2(!finding.isEmpty(), run.out);
        QCOMPARE(finding["severity"].toString(), QString("error"));
        QCOMPARE(finding["offset"].toInt(), lie.offset);
        QCOMPARE(finding["expected"].toString(), lie.expected);
        QCOMPARE(finding["found"].toString(), lie.found);
    }

    ToolFixture m_tool;
};

#endif
