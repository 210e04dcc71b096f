#ifndef REFERENCE_COMMANDS_H
#define REFERENCE_COMMANDS_H

#include <QList>
#include <QString>
#include <QStringList>

/// An option as a command of the tool declares it.
struct Option {
    /// As "--output".
    QString name;
    /// As "-o", or empty.
    QString shortName;
    /// What the help calls its value.
    QString type;
    QString help;
    /// What the help shows above it. An option without a title is shown nowhere.
    QString title;
    bool isFlag;
    bool isRepeated;
};

struct DeclaredCommand {
    QString name;
    QString summary;
    /// Without those that all commands have.
    QList<Option> options;
};

QList<DeclaredCommand> declaredCommands();

QStringList allDevices();

/// The first statement of \p help, without what is in parentheses.
QString brief(QString help);

/// \p text with a capital at its start.
QString capitalised(const QString& text);

#endif
