#ifndef FCF_FCFHEADER_H
#define FCF_FCFHEADER_H

#include "fcf/FcfSizes.h"

#include <QDateTime>
#include <QString>
#include <QtGlobal>
#include <QVector>

/// One function of a build. A plain value.
struct FcfFunction {
    QString name;
    QString author;
    QString ciNumber;
    QString description;
};

bool operator==(const FcfFunction& left, const FcfFunction& right);
bool operator!=(const FcfFunction& left, const FcfFunction& right);

/// What the header page of an FCF says about a build. A plain value.
///
/// The numbers are whatever the file or the form had; nothing here checks them. FcfLayout says
/// where each field is in the page, in which unit and what it means.
struct FcfHeader : FcfSizes {
    qint32 moduleCode = 0;
    qint32 deviceCode = 0;
    qint32 configNumber = 0;
    qint32 versionMajor = 0;
    qint32 versionMinor = 0;

    QString fileName;
    QString ciNumber;
    QString author;
    QString date;
    QString time;
    QString description;
    QVector<FcfFunction> functions;

    void setSizes(const FcfSizes& sizes) { FcfSizes::operator=(sizes); }

    /// Sets `date` in the system locale's short format and `time` as hours, minutes and seconds.
    void stamp(const QDateTime& moment);
};

bool operator==(const FcfHeader& left, const FcfHeader& right);
bool operator!=(const FcfHeader& left, const FcfHeader& right);

#endif
