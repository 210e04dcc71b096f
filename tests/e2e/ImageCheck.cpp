#include "e2e/ImageCheck.h"

#include "e2e/UserActions.h"

#include "support/PlainFcf.h"

#include <QFileInfo>

using UserActions::require;

namespace {

constexpr int SizeCount = 6;

QString withExtension(QString path, const char* extension)
{
    path.chop(4);
    return path + extension;
}

QString withSize(const QString& path)
{
    return QString("%1 (%2 bytes)\n").arg(path).arg(QFileInfo(path).size());
}

} // namespace

ImageCheck::ImageCheck(const QString& binary)
    : m_image(withExtension(binary, ".fcf")), m_companion(withExtension(binary, ".txt"))
{
    const std::string imageBytes = bytesOfFile(m_image.toStdString());
    const std::string binaryBytes = bytesOfFile(binary.toStdString());
    const PlainFcf image = PlainFcf::fromBytes(imageBytes);
    m_numbers = QList<int>(image.numbers.begin(), image.numbers.end());
    for (const std::string& line : image.lines)
        m_lines << QString::fromStdString(line);
    m_binaryBytes = static_cast<qint64>(binaryBytes.size());

    require(image.fault.empty(), "The image is not valid: " + QString::fromStdString(image.fault));
    require(image.payload == binaryBytes, "The image's payload is not the binary.");
    require(bytesOfFile(m_companion.toStdString()) == imageBytes.substr(0, image.headerBytes),
            "The companion is not the image's header page.");
}

void ImageCheck::expectTarget(const QList<int>& target) const
{
    const auto pages = [](qint64 bytes) { return static_cast<int>((bytes + 2111) / 2112); };
    const int total = pages(m_binaryBytes + 2112);
    const int binary = pages(m_binaryBytes);
    require(m_numbers.mid(0, SizeCount) ==
                QList<int>{total % 64, total / 64, static_cast<int>(m_binaryBytes + 2112),
                           binary % 64, binary / 64, static_cast<int>(m_binaryBytes)},
            "The header's sizes are not those of the binary.");
    require(m_numbers.mid(SizeCount) == target, "The header's target or version is wrong.");
}

void ImageCheck::expectLines(const QStringList& lines) const
{
    int position = 0;
    for (const QString& line : lines) {
        position = m_lines.indexOf(line, position);
        require(position >= 0, "The header does not contain \"" + line + "\" where it should.");
    }
}

QString ImageCheck::report() const
{
    static const QStringList names = {"total pages",   "total blocks",  "total size",
                                      "binary pages",  "binary blocks", "binary size",
                                      "module code",   "device code",   "configuration",
                                      "version major", "version minor"};
    QString report = withSize(m_image) + withSize(m_companion);
    for (int i = 0; i < names.size(); ++i)
        report += QString("  %1 %2\n").arg(names[i], -14).arg(m_numbers[i]);
    for (const QString& line : m_lines.mid(1))
        report += "  " + line + '\n';
    return report;
}
