#ifndef TESTS_GENERATOR_FORMMODEL_H
#define TESTS_GENERATOR_FORMMODEL_H

#include "support/PlainFcf.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// What a person finds in the form after loading a file, worked out from the file's lines.
struct FormModel {
    /// Whether the end mark was found where the form looks for it. Hyphens inside a text can end
    /// its record early, so that the lines behind it are taken for others and the mark for none.
    bool complete = true;
    QString module;
    QString device;
    int slot = 0;
    QString versionMajor;
    QString versionMinor;
    QString author;
    QString ciNumber;
    QString description;
    /// Name, author, description and CI number of each function.
    QVector<QStringList> functions;
    /// The items of the function list, which keep the blanks around a name.
    QStringList names;

    /// What a window that showed module "DFE" and its first device shows after loading \p fcf.
    static FormModel afterLoading(const PlainFcf& fcf);

    /// The text lines of the image that is generated next, but for file name, date and time.
    QStringList generatedLines() const;
};

#endif
