#ifndef TESTS_ROAD_ROAD_H
#define TESTS_ROAD_ROAD_H

#include "support/ModalAnswer.h"

#include <QString>

#include <stdexcept>

class QWidget;

/// What was not as it should be.
class RoadBlock : public std::runtime_error {
public:
    explicit RoadBlock(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// The way of a person through the host's real menu and windows: opens the generator from the Tools
/// menu, makes an image with two functions, loads the companion again and makes the image anew.
class Road {
public:
    /// \p screenshot may be empty for none.
    Road(const QString& binary, const QString& screenshot);

    /// Throws a RoadBlock at the first thing that falls short.
    void drive();

    /// The files that were made and the header that the image has, as far as the road was gone.
    QString report() const { return m_report; }

private:
    void openGenerator();
    void chooseBinary();
    void describeBuild();
    void addFunction(const QString& name, const QString& author, const QString& description);
    void generate();
    void checkOutput();
    void reload();
    void takeScreenshot() const;

    template <class Widget>
    Widget* find(const char* name) const;
    void click(const char* button);
    void type(const char* field, const QString& text);
    void chooseFromMenu(QWidget* window, const QString& menu, const QString& entry);

    QString m_binary;
    QString m_image;
    QString m_companion;
    QString m_screenshot;
    QString m_report;
    ModalAnswer m_dialogs;
    QWidget* m_generator = nullptr;
};

#endif
