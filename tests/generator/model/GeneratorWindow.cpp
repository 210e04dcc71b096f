#include "generator/model/GeneratorWindow.h"

#include "generator/PelkFcfGenerator.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolButton>
#include <QtTest>

#include <sys/stat.h>

namespace {

// An explicit instantiation may name private members, which these give away: no action shows all of
// what the window keeps.
template <class Tag, typename Tag::Member member>
struct Access {
    friend typename Tag::Member memberOf(Tag) { return member; }
};
struct Functions {
    typedef QVector<QString> PelkFcfGenerator::*Member;
    friend Member memberOf(Functions);
};
struct Sizes {
    typedef FcfSizes PelkFcfGenerator::*Member;
    friend Member memberOf(Sizes);
};
struct ModuleCode {
    typedef qint32 PelkFcfGenerator::*Member;
    friend Member memberOf(ModuleCode);
};
struct DeviceCode {
    typedef qint32 PelkFcfGenerator::*Member;
    friend Member memberOf(DeviceCode);
};
template struct Access<Functions, &PelkFcfGenerator::functions>;
template struct Access<Sizes, &PelkFcfGenerator::m_sizes>;
template struct Access<ModuleCode, &PelkFcfGenerator::moduleCode>;
template struct Access<DeviceCode, &PelkFcfGenerator::deviceCode>;

const qint64 FolderSize = -1;
const qint64 PipeSize = -2;
const qint64 LinkSize = -3;

FileState entryOfSize(qint64 size, const QByteArray& bytes = QByteArray())
{
    FileState state;
    state.size = size;
    state.bytes = bytes;
    return state;
}

QString found(const QMap<QString, FileState>& files, const QString& name)
{
    if (!files.contains(name))
        return QString::fromLatin1("nothing");
    const FileState state = files.value(name);
    return QString::fromLatin1("%1 bytes \"%2\"")
        .arg(state.size)
        .arg(QString::fromUtf8(state.bytes.left(2112)));
}

/// \p text with what no terminal shows as numbers.
QString readable(const QString& text)
{
    QString result;
    for (const QChar letter : text)
        result += letter.unicode() < 0x20 || letter.unicode() == 0x7F
                      ? QString::fromLatin1("\\x%1").arg(letter.unicode(), 2, 16, QLatin1Char('0'))
                      : QString(letter);
    return result;
}

} // namespace

QWidget* GeneratorWindow::widget(WidgetName name) const
{
    QWidget* const widget = m_window->findChild<QWidget*>(QLatin1String(nameOf(name)));
    if (!widget)
        qFatal("the window has no %s", nameOf(name));
    return widget;
}

QLineEdit* GeneratorWindow::lineEdit(WidgetName name) const
{
    return qobject_cast<QLineEdit*>(widget(name));
}

QTextEdit* GeneratorWindow::textEdit(WidgetName name) const
{
    return qobject_cast<QTextEdit*>(widget(name));
}

WidgetState GeneratorWindow::stateOf(QWidget* widget) const
{
    WidgetState state;
    state.isEnabled = widget->isEnabled();
    state.isVisible = widget->isVisible();
    if (QTextEdit* const memo = qobject_cast<QTextEdit*>(widget)) {
        state.text = memo->toPlainText();
    } else if (QComboBox* const box = qobject_cast<QComboBox*>(widget)) {
        state.text = box->currentText();
        state.index = box->currentIndex();
        for (int row = 0; row < box->count(); ++row)
            state.items << box->itemText(row);
    } else {
        state.text = widget->property("text").toString();
        state.isChecked = widget->property("checked").toBool();
    }
    return state;
}

GeneratorState GeneratorWindow::state() const
{
    GeneratorState state;
    QWidget* const focused = m_window->focusWidget();
    for (int name = 0; name < WidgetCount; ++name) {
        QWidget* const widget = this->widget(static_cast<WidgetName>(name));
        state.widgets[name] = stateOf(widget);
        // A hidden window has none, whatever Qt keeps of it.
        if (widget == focused && m_window->isVisible())
            state.focus = static_cast<WidgetName>(name);
    }
    state.isVisible = m_window->isVisible();
    const QLabel* const status = qobject_cast<QLabel*>(widget(StatusBar));
    state.statusIsPlain =
        !status->text().isEmpty() &&
        (status->textFormat() == Qt::PlainText ||
         (status->textFormat() == Qt::AutoText && !Qt::mightBeRichText(status->text())));
    state.isBusy = QApplication::overrideCursor() ||
                   m_window->findChild<QWidget*>(QLatin1String("CopyProgressBar"));

    state.functions = m_window->*memberOf(Functions());
    const FcfSizes& sizes = m_window->*memberOf(Sizes());
    state.totalPages = sizes.totalPages;
    state.totalBlocks = sizes.totalBlocks;
    state.totalSize = sizes.totalSize;
    state.binPages = sizes.binPages;
    state.binBlocks = sizes.binBlocks;
    state.binFileSize = sizes.binFileSize;
    state.moduleCode = m_window->*memberOf(ModuleCode());
    state.deviceCode = m_window->*memberOf(DeviceCode());
    return state;
}

void GeneratorWindow::setText(WidgetName name, const QString& text)
{
    if (QTextEdit* const memo = textEdit(name))
        memo->setPlainText(text);
    else
        lineEdit(name)->setText(text);
}

void GeneratorWindow::enter(WidgetName name, const QString& text)
{
    widget(name)->setFocus();
    if (QTextEdit* const memo = textEdit(name)) {
        memo->selectAll();
        memo->insertPlainText(text);
    } else {
        lineEdit(name)->selectAll();
        lineEdit(name)->insert(text);
    }
}

void GeneratorWindow::choose(WidgetName name, int row)
{
    QWidget* const box = widget(name);
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < row; ++i)
        QTest::keyClick(box, Qt::Key_Down);
}

void GeneratorWindow::foldFunctions()
{
    QWidget* const holder =
        m_window->findChild<QWidget*>(QLatin1String("widgetFunctionDetailsHolder"));
    QTest::mouseClick(holder->findChild<QToolButton*>(), Qt::LeftButton);
}

void GeneratorWindow::focus(PelkFcfGenerator* window)
{
    GeneratorWindow(window).widget(btnCancel)->setFocus();
}

QString GeneratorWindow::description(QDialog* dialog, const PelkFcfGenerator* window)
{
    const QString parent = QLatin1String(!dialog->parentWidget()            ? "none"
                                         : dialog->parentWidget() == window ? "window"
                                                                            : "another");
    if (QFileDialog* const files = qobject_cast<QFileDialog*>(dialog))
        return QString::fromLatin1("file dialog \"%1\" for \"%2\", parent %3, at %4/%5")
            .arg(files->windowTitle(), files->nameFilters().join(QLatin1String("|")), parent,
                 files->directory().absolutePath(),
                 files->findChild<QLineEdit*>(QLatin1String("fileNameEdit"))->text());
    QMessageBox* const box = qobject_cast<QMessageBox*>(dialog);
    if (!box)
        return QString::fromLatin1("another dialog");
    QStringList buttons;
    if (box->button(QMessageBox::Yes))
        buttons << QLatin1String("Yes");
    if (box->button(QMessageBox::No))
        buttons << QLatin1String("No");
    if (box->button(QMessageBox::Ok))
        buttons << QLatin1String("OK");
    if (buttons.size() != box->buttons().size())
        buttons << QLatin1String("others");
    QString byDefault = QLatin1String("none");
    if (box->defaultButton())
        byDefault =
            QLatin1String(box->defaultButton() == box->button(QMessageBox::No) ? "No" : "another");
    return QString::fromLatin1("box \"%1\" titled \"%2\" with %3, default %4, parent %5")
        .arg(box->text(), box->windowTitle(), buttons.join(QLatin1String(" ")), byDefault, parent);
}

void WorkingFolder::remove(const QString& folder)
{
    QStringList folders;
    QDirIterator entries(folder,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        if (entries.fileInfo().isDir() && !entries.fileInfo().isSymLink())
            folders.prepend(entries.filePath());
        else
            QFile::remove(entries.filePath());
    }
    for (const QString& path : folders)
        QDir().rmdir(path);
    QDir().rmdir(folder);
}

void WorkingFolder::write(const QString& file, const QByteArray& bytes)
{
    QFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file));
}

void WorkingFolder::makePipe(const QString& file)
{
    if (mkfifo(QFile::encodeName(file).constData(), 0600) != 0)
        qFatal("cannot make %s", qPrintable(file));
}

FileState WorkingFolder::stateOf(const DiskEntry& entry)
{
    switch (entry.kind) {
    case DiskEntry::Folder:
        return entryOfSize(FolderSize);
    case DiskEntry::Pipe:
        return entryOfSize(PipeSize);
    case DiskEntry::Link:
        return entryOfSize(LinkSize, entry.bytes);
    case DiskEntry::File:
        break;
    }
    return FileState::of(entry.bytes);
}

QMap<QString, FileState> WorkingFolder::files(const QString& folder)
{
    QMap<QString, FileState> files;
    QDirIterator entries(folder,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo info = entries.fileInfo();
        const QString name = entries.filePath().mid(folder.size() + 1);
        if (info.isSymLink())
            files.insert(name, entryOfSize(LinkSize, info.symLinkTarget().toUtf8()));
        else if (info.isDir())
            files.insert(name, entryOfSize(FolderSize));
        else if (!info.isFile())
            files.insert(name, entryOfSize(PipeSize));
        else
            files.insert(name, FileState::ofFile(entries.filePath()));
    }
    return files;
}

QString WorkingFolder::difference(const QMap<QString, FileState>& expected,
                                  const QMap<QString, FileState>& found_)
{
    QStringList names = expected.keys();
    for (const QString& name : found_.keys()) {
        if (!names.contains(name))
            names << name;
    }
    for (const QString& name : names) {
        if (expected.contains(name) != found_.contains(name) ||
            !(expected.value(name) == found_.value(name)))
            return readable(QString::fromLatin1("file %1: expected %2")
                                .arg(name, found(expected, name))) +
                   QLatin1String("\n   found ") + readable(found(found_, name)) + QLatin1Char('\n');
    }
    return QString();
}
