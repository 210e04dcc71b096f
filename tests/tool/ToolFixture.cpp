#include "ToolFixture.h"

#include "support/TestFile.h"
#include "tool/commands/CommandLine.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QtEndian>
#include <QTextCodec>

#include <algorithm>

#include <sys/wait.h>
#include <unistd.h>

// Below a folder of the kernel nobody can make a file.
const char* const UnwritableFolder = "/proc/sys";

Arguments operator+(Arguments left, const Arguments& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Arguments toArguments(const QStringList& texts)
{
    Arguments arguments;
    for (const QString& text : texts)
        arguments.push_back(text.toStdString());
    return arguments;
}

QStringList allNames() { return {"top.bin", "top.fcf", "top.fcf.sha256", "top.txt"}; }

QByteArray sha256Of(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QJsonObject Run::json() const { return QJsonDocument::fromJson(out).object(); }

QJsonObject Run::firstFile() const { return json()["files"].toArray()[0].toObject(); }

QJsonObject Run::finding(const QString& field) const
{
    QJsonObject found;
    int count = 0;
    for (const auto& value : json()["findings"].toArray()) {
        if (value.toObject()["field"].toString() != field)
            continue;
        found = value.toObject();
        ++count;
    }
    return count == 1 ? found : QJsonObject();
}

ToolFixture::ToolFixture()
{
    environment.clock = [] { return QDateTime({2024, 5, 31}, {13, 45, 0}); };
    environment.milliseconds = [] { return 0; };
    environment.codec = QTextCodec::codecForName("UTF-8");
}

Run ToolFixture::run(const Arguments& arguments)
{
    QBuffer input(&in);
    QBuffer output;
    QBuffer error;
    input.open(QIODevice::ReadOnly);
    output.open(QIODevice::WriteOnly);
    error.open(QIODevice::WriteOnly);
    environment.in = &input;
    environment.out = &output;
    environment.err = &error;
    Run run;
    run.code = runCommandLine(arguments, environment);
    run.out = output.data();
    run.err = error.data();
    return run;
}

bool ToolFixture::runKilled(const Arguments& arguments, int signal)
{
    const pid_t child = ::fork();
    if (child == 0) {
        // The test library would print what it thinks of it.
        std::signal(signal, SIG_DFL);
        run(arguments);
        ::_exit(0);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child)
        qFatal("waitpid failed");
    return WIFSIGNALED(status) && WTERMSIG(status) == signal;
}

std::string ToolFixture::argument(const QString& name) const
{
    return QFile::encodeName(path(name)).toStdString();
}

void ToolFixture::write(const QString& name, const QByteArray& bytes) const
{
    TestFile::write(path(name), bytes);
}

QByteArray ToolFixture::read(const QString& name) const { return TestFile::read(path(name)); }

bool ToolFixture::exists(const QString& name) const { return QFile::exists(path(name)); }

void ToolFixture::setAge(const QStringList& names, int seconds) const
{
    const QDateTime changed = QDateTime::currentDateTime().addSecs(-seconds);
    for (const QString& name : names) {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadWrite) ||
            !file.setFileTime(changed, QFileDevice::FileModificationTime))
            qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    }
}

void ToolFixture::clear() const
{
    QDir(m_folder.path()).removeRecursively();
    if (!QDir().mkdir(m_folder.path()))
        qFatal("%s cannot be made", qPrintable(m_folder.path()));
}

QStringList ToolFixture::names() const
{
    return QDir(m_folder.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::Name);
}

Arguments ToolFixture::described(const Options& others)
{
    Arguments all{"--author",  "Ann",      "--ci",           "42",       "--module",
                  "DFE",       "--device", "Interface_FPGA", "--config", "1",
                  "--version", "1.0",      "--description",  "Rev B"};
    for (const auto& [option, value] : others) {
        const auto given = std::find(all.begin(), all.end(), option);
        if (given != all.end())
            *(given + 1) = value;
        else
            all = all + Arguments{option, value};
    }
    return all;
}

Arguments ToolFixture::describedWithout(const std::string& option)
{
    Arguments all = described();
    const auto given = std::find(all.begin(), all.end(), option);
    all.erase(given, given + 2);
    return all;
}

Run ToolFixture::create(const QString& name, const Arguments& more, const Options& others)
{
    return run(Arguments{"create", argument(name)} + described(others) + more);
}

Run ToolFixture::createTop(const Arguments& more)
{
    write("top.bin", payload(4000));
    return create("top.bin", more);
}

Arguments ToolFixture::createAll(const Arguments& more) const
{
    return Arguments{"create", argument("top.bin"), "--digest"} + described() + more;
}

Run ToolFixture::verifyAll()
{
    return run({"verify", argument("top.fcf"), "--bin", argument("top.bin"), "--companion",
                argument("top.txt"), "--digest", argument("top.fcf.sha256")});
}

void ToolFixture::makeImage()
{
    const Run made = createTop({"--force"});
    if (made.code != 0)
        qFatal("%s", made.err.constData());
}

QByteArray ToolFixture::payload(int size)
{
    QByteArray bytes = QByteArray(16, '\xff') + QByteArray::fromHex("aa995566");
    quint32 noise = 1;
    while (bytes.size() < size) {
        noise = noise * 1664525u + 1013904223u;
        bytes += static_cast<char>(noise >> 24);
    }
    return bytes.left(size);
}

ForgedImage::ForgedImage() : payload(ToolFixture::payload(4000)) {}

QByteArray ForgedImage::preamble() const
{
    QByteArray bytes;
    const auto append = [&bytes](quint32 word) {
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += static_cast<char>(word >> shift);
    };
    for (const qint32 number : numbers)
        append(static_cast<quint32>(number));
    for (const quint32 word : reserved)
        append(word);
    return bytes;
}

QByteArray ForgedImage::page() const
{
    QByteArray bytes = preamble() + lineFeed + text;
    while (bytes.size() < 2112)
        bytes += QByteArray::fromHex("c3afc2bfc2bd");
    return bytes;
}
