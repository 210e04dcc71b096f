#include "host/app/FileIcons.h"

#include <QApplication>
#include <QFileInfo>
#include <QHash>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int IconSize = 16;

QIcon standard(QStyle::StandardPixmap pixmap)
{
    return QApplication::style()->standardIcon(pixmap);
}

QColor colourOf(const QString& suffix)
{
    static const QHash<QString, QColor> colours{
        {"bin", QColor(0x2f, 0x6f, 0xb5)}, {"bit", QColor(0x2f, 0x6f, 0xb5)},
        {"fcf", QColor(0x2e, 0x8b, 0x3d)}, {"txt", QColor(0x80, 0x80, 0x80)},
        {"vhd", QColor(0xc0, 0x6a, 0x10)}, {"v", QColor(0xc0, 0x6a, 0x10)},
        {"xdc", QColor(0x8a, 0x4f, 0xa8)}, {"pdf", QColor(0xb5, 0x2b, 0x2b)}};
    return colours.value(suffix);
}

/// The style's document with a label of \p colour that has the first letter of \p suffix.
QPixmap labelled(const QString& suffix, const QColor& colour, int scale)
{
    QPixmap pixmap = standard(QStyle::SP_FileIcon).pixmap(IconSize * scale);
    if (pixmap.isNull())
        pixmap = QPixmap(IconSize * scale, IconSize * scale);
    pixmap = pixmap.scaled(IconSize * scale, IconSize * scale, Qt::KeepAspectRatio,
                           Qt::SmoothTransformation);
    pixmap.setDevicePixelRatio(scale);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    const QRectF label(1, 6, 14, 9);
    painter.drawRoundedRect(label, 2, 2);
    QFont font = QApplication::font();
    font.setPixelSize(8);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(label, Qt::AlignCenter, suffix.left(1).toUpper());
    return pixmap;
}

} // namespace

QIcon FileIcons::forFile(const QString& fileName)
{
    static QHash<QString, QIcon> known;
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    const QColor colour = colourOf(suffix);
    if (!colour.isValid())
        return standard(QStyle::SP_FileIcon);
    if (!known.contains(suffix)) {
        QIcon icon;
        for (int scale = 1; scale <= 3; ++scale)
            icon.addPixmap(labelled(suffix, colour, scale));
        known.insert(suffix, icon);
    }
    return known.value(suffix);
}

QIcon FileIcons::forMissing() { return standard(QStyle::SP_MessageBoxWarning); }

QIcon FileIcons::forNode() { return standard(QStyle::SP_DirIcon); }

QIcon FileIcons::forFolder() { return standard(QStyle::SP_DirLinkIcon); }
