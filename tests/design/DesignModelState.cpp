// What can be seen of the actions, the designs and the window.

#include "design/DesignModelTest.h"

#include "design/ReservedScreen.h"
#include "support/FindWidget.h"
#include "support/Offscreen.h"

#include <OrvanticCore/DesignManager.h>

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTextEdit>

using OrvanticCore::DesignManager;

namespace {

QString lineIn(const QWidget* window, const char* name)
{
    return find<QLineEdit>(window, name)->text();
}

QString labelIn(const QWidget* window, const char* name)
{
    return find<QLabel>(window, name)->text();
}

QStringList itemsIn(const QWidget* window, const char* name)
{
    const QComboBox* const box = find<QComboBox>(window, name);
    QStringList items;
    for (int index = 0; index < box->count(); ++index)
        items << box->itemText(index);
    return items;
}

/// What is wrong with the place and the life of a window that was just opened.
QString faultOf(const QWidget* window)
{
    const QPoint middle =
        ReservedScreen::available().center() - ReservedScreen::askedFor().center();
    if (window->pos() != middle)
        return QString::fromLatin1(" at %1,%2 in place of %3,%4")
            .arg(window->pos().x())
            .arg(window->pos().y())
            .arg(middle.x())
            .arg(middle.y());
    if (window->parent() || !window->testAttribute(Qt::WA_DeleteOnClose) ||
        window->testAttribute(Qt::WA_QuitOnClose))
        return QLatin1String(" with another life");
    return QString();
}

} // namespace

QWidget* DesignModelTest::shownWindow()
{
    foreach (QWidget* candidate, LoadedPlugin::generatorWindows()) {
        if (candidate->isVisible())
            return candidate;
    }
    return nullptr;
}

QStringList DesignModelTest::windowState(const QWidget* window)
{
    const auto line = [window](const char* name) { return lineIn(window, name); };
    const auto label = [window](const char* name) { return labelIn(window, name); };
    const QStringList functions = itemsIn(window, "FunctionComboBox");
    QStringList lines;
    lines << QLatin1String("path ") + line("txtInputFile")
          << QLatin1String("author ") + line("AuthoEditBox")
          << QLatin1String("version ") + line("MajorVerEditBox") + QLatin1Char('.') +
                 line("MinorVerEditBox")
          << QLatin1String("CI ") + line("CiNumEditBox")
          << QLatin1String("description ") +
                 find<QTextEdit>(window, "DescriptionMemo")->toPlainText()
          << QString::fromLatin1("target %1/%2/%3")
                 .arg(find<QComboBox>(window, "ModuleComboBox")->currentText(),
                      find<QComboBox>(window, "FpgaComboBox")->currentText())
                 .arg(find<QComboBox>(window, "ConfigComboBox")->currentIndex())
          << QLatin1String("devices ") + itemsIn(window, "FpgaComboBox").join(QLatin1String(", "))
          << QString::fromLatin1("functions %1: ").arg(functions.count()) +
                 functions.join(QLatin1String(", "))
          << QLatin1String("function ") + line("EditFunctionName")
          << QLatin1String("status ") + label("StatusBar")
          << QLatin1String("binary ") + label("BinFileSize") + label("BinFilePages") +
                 label("BinFileBlocks")
          << QLatin1String("image ") + label("finalSize") + label("finalPages") +
                 label("finalBlocks");
    lines << QString::fromLatin1("editor %1 modify %2 minimized %3")
                 .arg(find<QWidget>(window, "EditFunctionName")->isEnabled())
                 .arg(find<QWidget>(window, "ModifyFunctionCheckBox")->isEnabled())
                 .arg(window->isMinimized());
    return lines;
}

QStringList DesignModelTest::state()
{
    QStringList lines;
    const QAction* const actions[] = {m_create, m_open};
    for (int index = 0; index < 2; ++index) {
        const QAction* const known = actions[index];
        if (!known)
            continue;
        const bool icon =
            known->icon().pixmap(16).toImage().convertToFormat(QImage::Format_ARGB32) ==
            QImage(QLatin1String(":/icons/radar_icon.ico")).convertToFormat(QImage::Format_ARGB32);
        lines << QString::fromLatin1("%1 \"%2\" enabled %3")
                     .arg(QLatin1String(index == 0 ? "create" : "open"), known->text())
                     .arg(known->isEnabled());
        if (!icon || known->parent())
            lines << QLatin1String("an action with another icon, or a parent");
    }
    for (int index = 0; index < Designs; ++index) {
        const RecordingDesign* const design = m_designs[index];
        if (!design)
            continue;
        lines << QString::fromLatin1("design %1 open %2 cycle %3")
                     .arg(index)
                     .arg(DesignManager::instance()->designs().count(m_designs[index]))
                     .arg(design->tree()->isProcessingCycleActive());
        foreach (const QString& name, design->properties.keys())
            lines << QString::fromLatin1("%1 = %2").arg(name,
                                                        design->properties.value(name).toString());
        lines << design->files();
    }
    QWidget* const shown = shownWindow();
    lines << QString::fromLatin1("window %1 opened %2%3")
                 .arg(shown != nullptr)
                 .arg(shown && shown != m_window)
                 .arg(shown && shown != m_window ? faultOf(shown) : QString());
    // One that was minimized comes back.
    const bool settled =
        shown && shown == m_window && !m_wasMinimized && !shown->isMinimized() && isOffscreen();
    if (settled && shown->pos() != m_place)
        lines << QLatin1String("it has moved");
    m_wasMinimized = shown && shown->isMinimized();
    m_window = shown;
    m_place = shown ? shown->pos() : QPoint();
    if (shown)
        lines << windowState(shown);
    return lines;
}
