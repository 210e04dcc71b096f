#ifndef TESTS_TOOL_PROGRAMTEST_H
#define TESTS_TOOL_PROGRAMTEST_H

#include "ToolFixture.h"

#include <QObject>
#include <QProcess>
#include <QProcessEnvironment>

/// A test that runs the program itself.
class ProgramTest : public QObject {
protected:
    static Run
    run(const QStringList& arguments, const QByteArray& in = QByteArray(),
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(PELK_FCF, arguments);
        process.write(in);
        process.closeWriteChannel();
        return finished(&process);
    }

    /// Waits for the end of \p process. The code is -1 if a signal ended it.
    static Run finished(QProcess* process)
    {
        if (!process->waitForFinished())
            qFatal("%s", qPrintable(process->errorString()));
        Run run;
        run.code = process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1;
        run.out = process->readAllStandardOutput();
        run.err = process->readAllStandardError();
        return run;
    }

    /// The arguments that make an image of the file \p name.
    static QStringList create(const ToolFixture& tool, const QString& name,
                              const QStringList& more = {})
    {
        QStringList arguments{"create", tool.path(name)};
        for (const std::string& argument : ToolFixture::described())
            arguments << QString::fromStdString(argument);
        return arguments + more;
    }
};

#endif
