#include "tool/files/DigestList.h"

#include "tool/files/FileSystem.h"

#include <QDir>
#include <QFile>

namespace {

constexpr int HexDigits = 64;

/// The text without the carriage return that editors on other systems leave at its end.
QByteArray withoutReturn(const QByteArray& text)
{
    return text.endsWith('\r') ? text.chopped(1) : text;
}

/// A name that sha256sum has escaped, as it marks by a backslash at the start of the line.
QByteArray unescaped(const QByteArray& name)
{
    QByteArray text;
    for (int index = 0; index < name.size(); ++index) {
        const bool isEscape = name.at(index) == '\\' && index + 1 < name.size();
        if (!isEscape) {
            text += name.at(index);
            continue;
        }

        ++index;
        const char escaped = name.at(index);
        text += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped;
    }
    return text;
}

/// Either form of sha256sum: "DIGEST  NAME", or with --tag "SHA256 (NAME) = DIGEST".
std::optional<DigestList::Entry> parsed(const QByteArray& line)
{
    static const QByteArray tag = "SHA256 (";
    static const QByteArray tagEnd = ") = ";

    QByteArray text = withoutReturn(line);
    const bool isEscaped = text.startsWith('\\');
    if (isEscaped)
        text.remove(0, 1);

    DigestList::Entry entry;
    QByteArray digits = text.left(HexDigits);
    const QByteArray separator = text.mid(HexDigits, 2);
    const auto nameEnd = text.lastIndexOf(tagEnd);
    if (text.startsWith(tag) && nameEnd > 0) {
        digits = text.mid(nameEnd + tagEnd.size());
        entry.path = text.mid(tag.size(), nameEnd - tag.size());
    } else if (separator == "  " || separator == " *") {
        entry.path = text.mid(HexDigits + separator.size());
    }
    if (isEscaped)
        entry.path = unescaped(entry.path);

    entry.digest = QByteArray::fromHex(digits);
    const bool isDigest = digits.size() == HexDigits && entry.digest.toHex() == digits.toLower();
    if (!isDigest || entry.path.isEmpty())
        return std::nullopt;
    return entry;
}

QByteArray lastName(const QByteArray& path) { return path.mid(path.lastIndexOf('/') + 1); }

} // namespace

DigestList::DigestList(const QByteArray& lines, const QString& folder) : m_folder(folder)
{
    for (const QByteArray& line : lines.split('\n')) {
        if (const auto entry = parsed(line))
            m_entries << *entry;
    }
}

QList<DigestList::Entry> DigestList::entriesOfFile(const QString& path) const
{
    const auto file = FileSystem::identityOf(path);
    if (!file)
        return {};

    QList<Entry> found;
    for (const Entry& entry : m_entries) {
        // Another name may be a link to the file, which is in the list under its own.
        if (lastName(entry.path) != FileSystem::nameOf(path))
            continue;

        const QString listed = QFile::decodeName(entry.path);
        const bool isFromList = FileSystem::identityOf(QDir(m_folder).filePath(listed)) == file;
        if (isFromList || FileSystem::identityOf(listed) == file)
            found << entry;
    }
    return found;
}

QList<DigestList::Entry> DigestList::entriesOfName(const QString& path) const
{
    QList<Entry> found;
    for (const Entry& entry : m_entries) {
        if (lastName(entry.path) == FileSystem::nameOf(path))
            found << entry;
    }
    return found;
}

bool DigestList::isDigest(const QByteArray& lines)
{
    const QByteArray line = lines.trimmed();
    return !line.contains('\n') && parsed(line).has_value();
}
