#ifndef HOST_APP_IMAGE_PAGECONTENTS_H
#define HOST_APP_IMAGE_PAGECONTENTS_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/// One field of a header page. Places are in bytes from the start of the page.
struct PageField {
    /// The name that findings have for it.
    QString name;
    /// Where it begins, with the label of a text.
    int start;
    /// Where its value is, and how many bytes that has.
    int offset;
    int length;
    /// On one line, with escapes for what cannot be shown.
    QString value;
    /// What is wrong with it, in English as the tool says it.
    QStringList problems;
};

/// The header page of an image or a companion, as bytes and as fields. Never a payload.
struct PageContents {
    /// The bytes of the page. Of a page whose text does not end, these are the first 2112: nothing
    /// says where the payload would begin.
    QByteArray bytes;
    /// Every byte belongs to one of them; in the order of the page. What cannot be read is the last
    /// one.
    QVector<PageField> fields;
    /// Why there are no bytes, or the first thing that is wrong with them. Empty for a valid page.
    QString problem;

    /// Reads the page of the file at \p path, which may be anything.
    static PageContents of(const QString& path);

    /// The index of the field that the byte at \p offset belongs to, or -1.
    int fieldAt(int offset) const;
};

#endif
