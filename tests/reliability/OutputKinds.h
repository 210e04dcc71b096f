#ifndef TESTS_RELIABILITY_OUTPUTKINDS_H
#define TESTS_RELIABILITY_OUTPUTKINDS_H

#include <QByteArray>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include <memory>

/// Writes a file in one of the ways in which the programs write files. The same input gives the
/// same bytes.
class Output {
public:
    Output() = default;
    virtual ~Output() = default;

    /// The file that is written, in a folder that has nothing else but its input.
    virtual QString file() const = 0;
    /// Gets ready to write, each time something else.
    virtual void prepare() = 0;
    /// Writes, over an older file if there is one. Returns what the user is told when it failed,
    /// and nothing otherwise.
    virtual QString write() = 0;

    QString folder() const { return QFileInfo(file()).path(); }
    /// Null without a file.
    QByteArray content() const;
    /// What is in the folder, hidden files too.
    QStringList names() const;

private:
    Q_DISABLE_COPY(Output)
};

enum class OutputKind { WindowImage, ToolImage, Archive, Description, Settings };

std::unique_ptr<Output> makeOutput(OutputKind kind);

#endif
