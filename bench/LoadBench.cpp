// Loads an image or companion into the generator window once, for tools that count what it takes.
// Usage: load-bench FILE. Fails when nothing was loaded.

#include "generator/PelkFcfGenerator.h"

#include <QApplication>
#include <QLineEdit>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    PelkFcfGenerator window;
    window.setTxtFile(application.arguments().value(1));
    const auto* const author = window.findChild<QLineEdit*>("AuthoEditBox");
    return author->text().isEmpty() ? 1 : 0;
}
