#ifndef TESTS_TOOLKIT_TESTS_H
#define TESTS_TOOLKIT_TESTS_H

class QObject;

// The tests of the program, in the order in which they run. The caller owns what they return.
QObject* newIdentityTest();
QObject* newFormTest();
QObject* newSizesTest();
QObject* newFunctionsTest();
QObject* newFilesTest();
QObject* newDesignActionsTest();
QObject* newPackageNameTest();

#endif
