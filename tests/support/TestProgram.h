#ifndef TESTS_SUPPORT_TESTPROGRAM_H
#define TESTS_SUPPORT_TESTPROGRAM_H

#include <QtTest>

/// A class of tests in a program of many, which runs the one that its first argument names, with
/// the further arguments of Qt Test.
class TestEntry {
public:
    /// Runs the tests in an application of their own; gives the number of failures.
    using Run = int (*)(int argc, char** argv);

    TestEntry(const char* name, Run run);
};

/// Runs a \p Test in an \p Application.
template <class Test, class Application>
int runTest(int argc, char** argv)
{
    const Application application(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

/// For the tests of class Test that need no window.
#define ZORV_TEST(Test) const TestEntry entryOf##Test(#Test, &runTest<Test, QCoreApplication>);

/// For the tests of class Test in windows.
#define ZORV_WINDOW_TEST(Test) const TestEntry entryOf##Test(#Test, &runTest<Test, QApplication>);

/// Followed by the body of a function with the arguments argc and argv, which runs the tests of
/// class Test.
#define ZORV_TEST_MAIN(Test)                                                                       \
    static int mainOf##Test(int argc, char** argv);                                                \
    const TestEntry entryOf##Test(#Test, &mainOf##Test);                                           \
    static int mainOf##Test(int argc, char** argv)

#endif
