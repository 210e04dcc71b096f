#ifndef TESTS_HOST_APP_REMAKEHOST_H
#define TESTS_HOST_APP_REMAKEHOST_H

#include "host/app/HostFixture.h"

#include "fcf/FcfHeader.h"

#include <OrvanticCore/Design.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A host with one design "radar", which has some binaries and images of version 1.0.
class RemakeHost : public HostFixture {
public:
    /// The properties of a design that goes to GPM, Processing_FPGA_2, slot 3.
    static const char Target[];

    /// The header of an image \p name of version 1.0.
    static FcfHeader headerOf(const QString& name);

    /// Closes a dialog that the test has left open.
    static void closeIfOpen(QWidget* dialog);

    /// Makes a binary and its image, and lists both in the design.
    void addImage(const QString& name, const FcfHeader& header, const QByteArray& payload);

    OrvanticCore::Design* open(const QString& properties = Target);

    void select(const QString& name) const { view()->setCurrentIndex(item(name)); }

    /// The header of the image \p name on the disk; an empty one if it is damaged.
    FcfHeader header(const QString& name) const;

private:
    QStringList m_files;
};

#endif
