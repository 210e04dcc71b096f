#ifndef TESTS_TOOL_TOOLFIXTURE_H
#define TESTS_TOOL_TOOLFIXTURE_H

#include "tool/console/Environment.h"

#include <QByteArray>
#include <QDir>
#include <QJsonObject>
#include <QString>
#include <QTemporaryDir>

#include <csignal>
#include <map>
#include <string>
#include <vector>

/// How one run of the tool went.
struct Run {
    int code = -1;
    QByteArray out;
    QByteArray err;

    QJsonObject json() const;
    /// What the JSON says of the first file.
    QJsonObject firstFile() const;
    /// The one finding about \p field; an empty object when there are none or several.
    QJsonObject finding(const QString& field) const;
};

using Arguments = std::vector<std::string>;

Arguments operator+(Arguments left, const Arguments& right);
Arguments toArguments(const QStringList& texts);

/// Options with a value each.
using Options = std::map<std::string, std::string>;

/// In hexadecimal digits.
QByteArray sha256Of(const QByteArray& bytes);

/// "top.bin" and all that is made of it.
QStringList allNames();

/// A folder of its own, and the tool run in this process at a fixed time.
class ToolFixture {
public:
    ToolFixture();

    Run run(const Arguments& arguments);

    /// Runs the tool in a process of its own. Returns whether \p signal ended it.
    bool runKilled(const Arguments& arguments, int signal = SIGKILL);

    /// The path of \p name in the folder; one that is absolute already stays.
    QString path(const QString& name) const { return QDir(m_folder.path()).filePath(name); }
    std::string argument(const QString& name) const;

    void write(const QString& name, const QByteArray& bytes) const;
    QByteArray read(const QString& name) const;
    bool exists(const QString& name) const;
    /// Has all of \p names be changed at the same moment, \p seconds ago.
    void setAge(const QStringList& names, int seconds) const;
    /// Empties the folder.
    void clear() const;
    /// All names in the folder, hidden ones too, sorted.
    QStringList names() const;

    /// All options that create requires, and a description; some with other values, or further
    /// ones.
    static Arguments described(const Options& others = {});
    /// The same but for \p option.
    static Arguments describedWithout(const std::string& option);
    /// Runs create on the file \p name with these options.
    Run create(const QString& name, const Arguments& more = {}, const Options& others = {});
    /// Makes "top.bin", and "top.fcf" of it.
    Run createTop(const Arguments& more = {});
    /// The arguments that make all there is of "top.bin".
    Arguments createAll(const Arguments& more = {}) const;
    /// Checks that it is all of what "top.bin" is now.
    Run verifyAll();
    /// Makes "top.bin", and replaces "top.fcf" and "top.txt" by those of it.
    void makeImage();

    /// Bytes with a sync word near their start, \p size of them.
    static QByteArray payload(int size);

    Environment environment;
    QByteArray in;

private:
    QTemporaryDir m_folder;
};

/// A folder in which even the administrator cannot make files.
extern const char* const UnwritableFolder;

/// Writes images byte by byte without any of the code under test, so that each can lie.
struct ForgedImage {
    qint32 numbers[11] = {3, 0, 6112, 2, 0, 4000, 1, 1, 1, 1, 0};
    quint32 reserved[5] = {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF};
    QByteArray lineFeed = "\n";
    QByteArray text = "Filename: top.fcf\nCI No: 42\nAuthor: Ann\nDate: 31 May 2024\n"
                      "Time: 13:45:00\nDescription: Rev B\n---\n"
                      "Function name: fft\nFunction author: Bob\nFunction CI No: 7\n"
                      "Function description: Spectrum\n---\n----\n";
    QByteArray payload;

    ForgedImage();
    QByteArray preamble() const;
    /// Preamble, text and filler.
    QByteArray page() const;
    QByteArray bytes() const { return page() + payload; }
};

#endif
