#ifndef HOST_APP_IMAGE_TOOLRUN_H
#define HOST_APP_IMAGE_TOOLRUN_H

#include <QJsonObject>
#include <QStringList>

/// One run of the command-line tool in this process. What the tool checks and writes is the same
/// for both.
struct ToolRun {
    /// The report that --json gives.
    QJsonObject report;
    /// The findings, each with the name of its file, in English as those of the tool.
    QStringList errors;
    QStringList warnings;

    /// Runs the tool with \p arguments, to which --json is added. Paths in them are to be absolute.
    static ToolRun of(const QStringList& arguments);
};

#endif
