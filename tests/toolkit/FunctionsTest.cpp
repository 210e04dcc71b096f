#include "support/ModalAnswer.h"
#include "toolkit/Host.h"
#include "toolkit/Tests.h"

#include <OrvanticCore/DesignManager.h>

#include <QCheckBox>
#include <QComboBox>
#include <QtTest>

class FunctionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void addsFunctionsWithTheKeys();
    void changesAFunctionOfTheSameName();
    void keepsAFunctionWhenTheAnswerIsNo();
    void removesAFunction();
    void warnsOfAnEmptyName();
    void entersTheUser();
    void cutsALongDescription();

private:
    void upload(const char* name, const char* author);

    QWidget* m_window;
    QScopedPointer<ModalAnswer> m_answers;
};

void FunctionsTest::init()
{
    m_window = Host::instance()->chooseGenerator();
    QVERIFY(m_window);
    m_answers.reset(new ModalAnswer);
    upload("Pulse", "Zoe");
    upload("Sweep", "");
    upload("Scan", "Mae");
}

void FunctionsTest::cleanup()
{
    QVERIFY(m_answers->allGiven());
    m_answers.reset();
    clearForm(m_window);
}

void FunctionsTest::upload(const char* name, const char* author)
{
    enter(m_window, "EditFunctionName", QString::fromUtf8(name));
    enter(m_window, "AuthorFunctions", QString::fromUtf8(author));
    press(m_window, "UploadFunctionButton");
}

void FunctionsTest::addsFunctionsWithTheKeys()
{
    QCOMPARE(itemsOf(m_window, "FunctionComboBox"), QStringList() << QLatin1String("Pulse")
                                                                  << QLatin1String("Sweep")
                                                                  << QLatin1String("Scan"));
    choose(m_window, "FunctionComboBox", QLatin1String("Sweep"));
    QCOMPARE(textOf(m_window, "EditFunctionName"), QString::fromLatin1("Sweep"));
    QCOMPARE(textOf(m_window, "AuthorFunctions"), QString::fromLatin1("0000"));
    QCOMPARE(textOf(m_window, "DescriptionMemoFunctions"), QString::fromLatin1("0000"));
    QCOMPARE(textOf(m_window, "CiNumberEditBoxFunctions"), QString::fromLatin1("0000"));
}

void FunctionsTest::changesAFunctionOfTheSameName()
{
    m_answers->click(QMessageBox::Yes);
    upload("Sweep", "Ada");
    QCOMPARE(m_answers->texts(),
             QStringList(QLatin1String("The Function already exists, click Yes to override it and "
                                       "No to cancel")));
    QCOMPARE(find<QComboBox>(m_window, "FunctionComboBox")->count(), 3);
    choose(m_window, "FunctionComboBox", QLatin1String("Sweep"));
    QCOMPARE(textOf(m_window, "AuthorFunctions"), QString::fromLatin1("Ada"));
}

void FunctionsTest::keepsAFunctionWhenTheAnswerIsNo()
{
    m_answers->press(Qt::Key_Return);
    upload("Scan", "Ada");
    choose(m_window, "FunctionComboBox", QLatin1String("Scan"));
    QCOMPARE(textOf(m_window, "AuthorFunctions"), QString::fromLatin1("Mae"));
}

void FunctionsTest::removesAFunction()
{
    choose(m_window, "FunctionComboBox", QLatin1String("Sweep"));
    m_answers->click(QMessageBox::Yes);
    press(m_window, "btnRemove");
    QCOMPARE(itemsOf(m_window, "FunctionComboBox"),
             QStringList() << QLatin1String("Pulse") << QLatin1String("Scan"));
    QCOMPARE(textOf(m_window, "AuthoEditBox"), QString::fromLatin1("1"));
    choose(m_window, "FunctionComboBox", QLatin1String("Pulse"));
    choose(m_window, "FunctionComboBox", QLatin1String("Scan"));
    QCOMPARE(textOf(m_window, "AuthorFunctions"), QString::fromLatin1("Mae"));
}

void FunctionsTest::warnsOfAnEmptyName()
{
    m_answers->click(QMessageBox::Ok);
    upload("", "Mae");
    QCOMPARE(m_answers->texts(),
             QStringList(QLatin1String("Please enter a Function Name before uploading Function "
                                       "field is empty")));
    QCOMPARE(itemsOf(m_window, "FunctionComboBox").last(), QString());
    QCOMPARE(find<QComboBox>(m_window, "FunctionComboBox")->count(), 4);
}

void FunctionsTest::entersTheUser()
{
    press(m_window, "btnItsMe");
    QCOMPARE(textOf(m_window, "AuthorFunctions"),
             OrvanticCore::DesignManager::instance()->currentUserName());
}

void FunctionsTest::cutsALongDescription()
{
    m_answers->click(QMessageBox::Ok);
    enter(m_window, "DescriptionMemo", QString(1500, QLatin1Char('x')));
    QCOMPARE(textOf(m_window, "DescriptionMemo"), QString(1000, QLatin1Char('x')));
    QCOMPARE(m_answers->texts().count(), 1);
}

QObject* newFunctionsTest() { return new FunctionsTest; }

#include "FunctionsTest.moc"
