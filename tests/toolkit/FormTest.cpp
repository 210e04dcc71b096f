#include "toolkit/Host.h"
#include "toolkit/Tests.h"

#include <QtCreatorUtilities/DetailsWidget.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

using QtCreatorUtilities::DetailsWidget;

namespace {

QString quoted(const QString& text) { return QLatin1Char('"') + text + QLatin1Char('"'); }

/// What a person sees of the object: its name, its type, its text, title or items, and its limits.
QString lineFor(const QObject* object)
{
    QStringList words;
    words << object->objectName() << QString::fromLatin1(object->metaObject()->className());
    foreach (const char* property, QList<const char*>() << "text"
                                                        << "title"
                                                        << "plainText") {
        const QVariant value = object->property(property);
        if (value.isValid() && !object->inherits("QComboBox"))
            words << quoted(value.toString());
    }
    if (const QComboBox* const box = qobject_cast<const QComboBox*>(object)) {
        for (int index = 0; index < box->count(); ++index)
            words << quoted(box->itemText(index));
    }
    if (const QLineEdit* const line = qobject_cast<const QLineEdit*>(object)) {
        if (line->maxLength() < 32767)
            words << QString::fromLatin1("at-most-%1").arg(line->maxLength());
    }
    const QWidget* const widget = qobject_cast<const QWidget*>(object);
    if (widget && !widget->isEnabled())
        words << QLatin1String("disabled");
    return words.join(QLatin1String(" "));
}

void savePicture(QWidget* window, const char* name)
{
    const QByteArray folder = qgetenv("SCREENSHOTS");
    if (folder.isEmpty())
        return;
    QPixmap picture(window->size());
    window->render(&picture);
    if (!picture.save(QFile::decodeName(folder) + QLatin1Char('/') + QLatin1String(name)))
        qFatal("cannot save %s", name);
}

/// The name of a visible widget with a text that it does not show whole; empty when there is none.
QString clippedWidget(const QWidget* window)
{
    foreach (const QWidget* widget, window->findChildren<QWidget*>()) {
        const bool hasText = widget->inherits("QLabel") || widget->inherits("QPushButton") ||
                             widget->inherits("QCheckBox");
        if (!widget->isVisible() || !hasText)
            continue;
        const QSize needed = widget->minimumSizeHint();
        // In its parent, which itself may be scrolled.
        const QRect place = widget->geometry();
        if (place.width() < needed.width() || place.height() < needed.height() ||
            !widget->parentWidget()->rect().contains(place))
            return widget->objectName();
    }
    return QString();
}

} // namespace

class FormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void hasEveryObjectWithItsTypeAndText();
    void showsEveryTextWhole_data();
    void showsEveryTextWhole();
    void listsTheDevicesOfTheModule();
    void emptiesTheForm();

private:
    QWidget* m_window;
};

void FormTest::initTestCase()
{
    m_window = Host::instance()->chooseGenerator();
    QVERIFY(m_window);
}

void FormTest::hasEveryObjectWithItsTypeAndText()
{
    QCOMPARE(m_window->objectName(), QString::fromLatin1("PelkFcfGenerator"));
    QCOMPARE(m_window->windowTitle(), QString::fromLatin1("Pelk FCF Generator"));
    const QString form = QString::fromUtf8(WorkFolder::read(QLatin1String(FORM_FILE)));
    foreach (const QString& line, form.trimmed().split(QLatin1Char('\n'))) {
        const QString name = line.section(QLatin1Char(' '), 0, 0);
        const QList<QObject*> objects = m_window->findChildren<QObject*>(name);
        QVERIFY2(objects.count() == 1, qPrintable(name));
        QCOMPARE(lineFor(objects.first()), line);
    }
}

void FormTest::showsEveryTextWhole_data()
{
    QTest::addColumn<bool>("unfolded");
    QTest::addColumn<QString>("picture");
    QTest::newRow("as it opens") << false << QString::fromLatin1("window.png");
    QTest::newRow("with the functions unfolded") << true << QString::fromLatin1("functions.png");
}

void FormTest::showsEveryTextWhole()
{
    QFETCH(bool, unfolded);
    QFETCH(QString, picture);
    QWidget* const functions = find<QWidget>(m_window, "widgetFunctions");
    DetailsWidget* const panel = qobject_cast<DetailsWidget*>(functions->parentWidget());
    QVERIFY(panel);
    if (unfolded)
        panel->setState(DetailsWidget::Expanded);
    QCOMPARE(functions->isVisible(), unfolded);
    // The window manager gives the window its size some time later.
    QVERIFY2(waitFor([this] { return clippedWidget(m_window).isEmpty(); }),
             qPrintable(clippedWidget(m_window)));
    savePicture(m_window, picture.toLatin1().constData());
}

void FormTest::listsTheDevicesOfTheModule()
{
    choose(m_window, "ModuleComboBox", QLatin1String("GPM"));
    QCOMPARE(itemsOf(m_window, "FpgaComboBox").count(), 4);
    choose(m_window, "ModuleComboBox", QLatin1String("DFE2"));
    QCOMPARE(itemsOf(m_window, "FpgaComboBox"), QStringList(QLatin1String("Processing_FPGA")));
    choose(m_window, "ModuleComboBox", QLatin1String("DFE"));
    QCOMPARE(itemsOf(m_window, "FpgaComboBox"),
             QStringList() << QLatin1String("Interface_FPGA") << QLatin1String("Processing_FPGA_1")
                           << QLatin1String("Clock_Master_Device"));
}

void FormTest::emptiesTheForm()
{
    enter(m_window, "AuthoEditBox", QLatin1String("R. Vos"));
    enter(m_window, "DescriptionMemo", QLatin1String("Front end"));
    choose(m_window, "ConfigComboBox", QLatin1String("4"));
    clearForm(m_window);
    QCOMPARE(textOf(m_window, "AuthoEditBox"), QString());
    QCOMPARE(textOf(m_window, "DescriptionMemo"), QString());
    QCOMPARE(find<QComboBox>(m_window, "ConfigComboBox")->currentText(), QString::fromLatin1("4"));
    choose(m_window, "ConfigComboBox", QLatin1String("1"));
}

QObject* newFormTest() { return new FormTest; }

#include "FormTest.moc"
