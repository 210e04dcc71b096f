#include "FileCompare.h"

#include "tool/InputFile.h"
#include "tool/Progress.h"

#include <algorithm>

namespace {

constexpr int ChunkBytes = 1024 * 1024;

} // namespace

FileCompare::FileCompare(InputFile* file, qint64 start, InputFile* model, Session* session)
    : m_file(file), m_start(start), m_model(model), m_session(session)
{
}

bool FileCompare::findDifference()
{
    const qint64 bytes = qMin(m_file->size() - m_start, m_model->size());
    Progress progress(m_session, QStringLiteral("verify"), bytes);
    for (qint64 done = 0; done < bytes; done += ChunkBytes) {
        const qint64 wanted = qMin<qint64>(ChunkBytes, bytes - done);
        const auto own = m_file->bytesAt(m_start + done, wanted, m_session);
        const auto other = m_model->bytesAt(done, wanted, m_session);
        if (!own || !other)
            return false;
        if (*own != *other) {
            const int same = firstDifference(*own, *other);
            m_offset = m_start + done + same;
            m_expected = byteAt(*other, same);
            m_found = byteAt(*own, same);
            return true;
        }
        progress.advance(wanted);
    }
    return false;
}

int FileCompare::firstDifference(const QByteArray& one, const QByteArray& other)
{
    return static_cast<int>(
        std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first - one.begin());
}

QString FileCompare::byteAt(const QByteArray& bytes, int index)
{
    if (index >= bytes.size())
        return QStringLiteral("the end");
    return QStringLiteral("0x%1").arg(static_cast<uchar>(bytes.at(index)), 2, 16, QLatin1Char('0'));
}
