#include "fcf/PayloadCopy.h"
#include "support/FullDisk.h"
#include "support/StubbornDevices.h"
#include "support/TestFile.h"
#include "support/TestProgram.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <fcntl.h>

namespace {

constexpr int PageBytes = 2112;

QByteArray content(int bytes)
{
    QByteArray content(bytes, Qt::Uninitialized);
    char* const data = content.data();
    for (int i = 0; i < bytes; ++i)
        data[i] = static_cast<char>(i * 31 + i / 251);
    return content;
}

} // namespace

class PayloadCopyTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void copiesBetweenDevices_data();
    void copiesBetweenDevices();
    void copiesBetweenFiles_data();
    void copiesBetweenFiles();
    void startsAtThePositionOfBothFiles();
    void copiesToAFileThatTheKernelRefuses();
    void showsEachByteToAnObserverThatAsks();
    void countsEachByteForAnObserverThatDoesNot();
    void reportsAPayloadThatEndsEarly();
    void reportsAPayloadThatHasGrown();
    void reportsAnImageThatIsItsOwnPayload();
    void doesNotFollowAPayloadThatNeverEnds();
    void reportsAPayloadThatCannotBeRead();
    void reportsAnImageThatTakesNoMore();
    void reportsADiskThatFillsUp();

private:
    /// A new file with \p bytes in it.
    QString file(const char* name, const QByteArray& bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void PayloadCopyTest::init() { m_folder = std::make_unique<QTemporaryDir>(); }

QString PayloadCopyTest::file(const char* name, const QByteArray& bytes) const
{
    return TestFile::write(m_folder->filePath(name), bytes);
}

void PayloadCopyTest::copiesBetweenDevices_data()
{
    QTest::addColumn<int>("bytes");
    for (const int bytes : {0, 1, 1023, 1024, 1025, 262143, 262144, 262145, 3000000})
        QTest::newRow(qPrintable(QString("%1 bytes").arg(bytes))) << bytes;
}

void PayloadCopyTest::copiesBetweenDevices()
{
    QFETCH(int, bytes);
    QByteArray expected = content(bytes);
    QBuffer payload(&expected);
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QBuffer image;
    QVERIFY(image.open(QIODevice::WriteOnly));
    PayloadCopy copy(&payload, bytes, &image);
    QVERIFY2(copy.run(), qPrintable(copy.error()));
    QVERIFY(image.data() == expected);
}

void PayloadCopyTest::copiesBetweenFiles_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<bool>("seen");
    for (const int bytes : {0, 1, 2111, 262145, 4194303, 4194304, 4194305, 9000000}) {
        QTest::newRow(qPrintable(QString("%1 bytes by the kernel").arg(bytes))) << bytes << false;
        QTest::newRow(qPrintable(QString("%1 bytes in pieces").arg(bytes))) << bytes << true;
    }
}

void PayloadCopyTest::copiesBetweenFiles()
{
    QFETCH(int, bytes);
    QFETCH(bool, seen);
    const QByteArray expected = content(bytes);
    QFile payload(file("in", expected));
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QFile image(file("out", QByteArray(PageBytes, 'h')));
    QVERIFY(image.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    QVERIFY(image.seek(image.size()));
    PayloadCopy copy(&payload, bytes, &image);
    QVERIFY2(copy.run(seen ? PayloadCopy::Seen : PayloadCopy::Unseen), qPrintable(copy.error()));
    QCOMPARE(image.write("end"), qint64(3));
    image.close();
    QVERIFY(TestFile::read(image.fileName()) == QByteArray(PageBytes, 'h') + expected + "end");
}

void PayloadCopyTest::startsAtThePositionOfBothFiles()
{
    QFile payload(file("in", "header, payload"));
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QCOMPARE(payload.read(8), QByteArray("header, "));
    QFile image(file("out", "0123456789"));
    QVERIFY(image.open(QIODevice::ReadWrite));
    QCOMPARE(image.write("ab"), qint64(2));
    PayloadCopy copy(&payload, 7, &image);
    QVERIFY2(copy.run(), qPrintable(copy.error()));
    image.close();
    QCOMPARE(TestFile::read(image.fileName()), QByteArray("abpayload9"));
}

void PayloadCopyTest::copiesToAFileThatTheKernelRefuses()
{
    const QByteArray expected = content(600000);
    QFile payload(file("in", expected));
    QVERIFY(payload.open(QIODevice::ReadOnly));
    const QString path = file("out", "before ");
    QFile image;
    // As standard output is after >>, without QFile knowing it.
    const int descriptor = ::open(QFile::encodeName(path), O_WRONLY | O_APPEND | O_CLOEXEC);
    QVERIFY(image.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                       QFileDevice::AutoCloseHandle));
    PayloadCopy copy(&payload, expected.size(), &image);
    QVERIFY2(copy.run(), qPrintable(copy.error()));
    QVERIFY((::fcntl(descriptor, F_GETFL) & O_APPEND) != 0);
    image.close();
    QVERIFY(TestFile::read(path) == "before " + expected);
}

void PayloadCopyTest::showsEachByteToAnObserverThatAsks()
{
    const QByteArray expected = content(600000);
    QFile payload(file("in", expected));
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QFile image(m_folder->filePath("out"));
    QVERIFY(image.open(QIODevice::WriteOnly));
    QByteArray seen;
    const auto observer = [&](const char* data, qint64 bytes) {
        seen.append(data, static_cast<int>(bytes));
    };
    QVERIFY(PayloadCopy(&payload, expected.size(), &image).run(PayloadCopy::Seen, observer));
    QVERIFY(seen == expected);
}

void PayloadCopyTest::countsEachByteForAnObserverThatDoesNot()
{
    const QByteArray expected = content(9000000);
    QFile payload(file("in", expected));
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QFile image(m_folder->filePath("out"));
    QVERIFY(image.open(QIODevice::WriteOnly));
    qint64 counted = 0;
    int calls = 0;
    const auto observer = [&](const char*, qint64 bytes) {
        counted += bytes;
        ++calls;
    };
    QVERIFY(PayloadCopy(&payload, expected.size(), &image).run(PayloadCopy::Unseen, observer));
    QCOMPARE(counted, qint64(expected.size()));
    QVERIFY(calls > 2);
}

void PayloadCopyTest::reportsAPayloadThatEndsEarly()
{
    QFile payload(file("in", QByteArray(1024, 'x')));
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QFile image(m_folder->filePath("out"));
    QVERIFY(image.open(QIODevice::WriteOnly));
    PayloadCopy copy(&payload, 1025, &image);
    QVERIFY(!copy.run());
    QVERIFY(copy.isPayloadAtFault());
    QCOMPARE(copy.error(), QString("the payload ends after 1024 of 1025 bytes"));
}

void PayloadCopyTest::reportsAPayloadThatHasGrown()
{
    const QByteArray bytes(1025, 'x');
    QFile payload(file("in", bytes));
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QFile image(m_folder->filePath("out"));
    QVERIFY(image.open(QIODevice::WriteOnly));
    PayloadCopy copy(&payload, 1024, &image);
    QVERIFY(!copy.run());
    QVERIFY(copy.isPayloadAtFault());
    QCOMPARE(copy.error(), QString("the payload is longer than its 1024 bytes"));
    image.close();
    QCOMPARE(TestFile::read(image.fileName()), bytes.left(1024));
}

void PayloadCopyTest::reportsAnImageThatIsItsOwnPayload()
{
    const QString path = file("in", content(300000));
    QFile payload(path);
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QFile image(path);
    QVERIFY(image.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    QVERIFY(image.seek(image.size()));
    PayloadCopy copy(&payload, 300000, &image);
    QVERIFY(!copy.run());
    QCOMPARE(copy.error(), QString("the payload is longer than its 300000 bytes"));
    QCOMPARE(QFile(path).size(), qint64(600000));
}

void PayloadCopyTest::doesNotFollowAPayloadThatNeverEnds()
{
    EndlessSource payload(QByteArray(), "endless ");
    QBuffer image;
    QVERIFY(image.open(QIODevice::WriteOnly));
    QVERIFY(!PayloadCopy(&payload, 3000, &image).run());
    QCOMPARE(payload.taken(), qint64(3001));
}

void PayloadCopyTest::reportsAPayloadThatCannotBeRead()
{
    FailingSource payload(QByteArray(4000, 'x'), 1500);
    QBuffer image;
    QVERIFY(image.open(QIODevice::WriteOnly));
    PayloadCopy copy(&payload, 4000, &image);
    QVERIFY(!copy.run());
    QVERIFY(copy.isPayloadAtFault());
    QCOMPARE(copy.error(), QString("Input/output error"));
}

void PayloadCopyTest::reportsAnImageThatTakesNoMore()
{
    QByteArray bytes(4000, 'x');
    QBuffer payload(&bytes);
    QVERIFY(payload.open(QIODevice::ReadOnly));
    LimitedSink image(3999, LimitedSink::Fails);
    PayloadCopy copy(&payload, 4000, &image);
    QVERIFY(!copy.run());
    QVERIFY(!copy.isPayloadAtFault());
    QCOMPARE(copy.error(), QString("No space left on device"));
}

void PayloadCopyTest::reportsADiskThatFillsUp()
{
    const QByteArray expected = content(300000);
    QFile payload(file("in", expected));
    QVERIFY(payload.open(QIODevice::ReadOnly));
    QFile image(m_folder->filePath("out"));
    QVERIFY(image.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    PayloadCopy copy(&payload, expected.size(), &image);
    {
        const FullDisk disk(100000);
        QVERIFY(!copy.run());
    }
    QVERIFY(!copy.isPayloadAtFault());
    QCOMPARE(copy.error(), QString("File too large"));
    QVERIFY(TestFile::read(image.fileName()) == expected.left(100000));
}

ZORV_TEST(PayloadCopyTest)
#include "PayloadCopyTest.moc"
