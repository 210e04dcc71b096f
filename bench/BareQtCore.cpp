// The least that a program on QtCore can do: what every start of pelk-fcf includes.

#include <QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return application.arguments().isEmpty() ? 1 : 0;
}
