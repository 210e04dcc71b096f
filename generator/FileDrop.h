#ifndef GENERATOR_FILEDROP_H
#define GENERATOR_FILEDROP_H

#include <QObject>

class PelkFcfGenerator;

/// Makes a file that is dropped on a generator window its input, wherever it is dropped: a text
/// field would paste the file's URL.
class FileDrop : public QObject {
    Q_OBJECT

public:
    /// Owned by \p window.
    explicit FileDrop(PelkFcfGenerator* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    PelkFcfGenerator* m_window;
};

#endif
