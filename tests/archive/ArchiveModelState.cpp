// What can be seen of the form, its settings and its extension.

#include "archive/ArchiveModelTest.h"

#include "support/FindWidget.h"

#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

using OrvanticCore::Interfaces::IDesignArchiveExtension;

namespace {

QString textIn(const QWidget* form, const char* label) { return find<QLabel>(form, label)->text(); }

QString itemsOf(const QComboBox* box)
{
    QStringList items;
    for (int index = 0; index < box->count(); ++index)
        items << box->itemText(index);
    return QString::fromLatin1("%1 (%2): %3")
        .arg(items.join(QLatin1String(", ")))
        .arg(items.count())
        .arg(box->currentIndex());
}

} // namespace

QString ArchiveModelTest::settingsLine(int file) const
{
    QFile stored(folder() + QString::fromLatin1("/%1.ini").arg(file));
    if (!stored.open(QIODevice::ReadOnly))
        return QLatin1String("nothing");
    bool inGroup = false;
    foreach (const QByteArray& line, stored.readAll().split('\n')) {
        if (line.startsWith('['))
            inGroup = line == "[Plugins]";
        const QByteArray key = "ZORV_Plugin\\active_package_type=";
        if (inGroup && line.startsWith(key))
            return QLatin1Char('=') + QString::fromUtf8(line.mid(key.size()));
    }
    return QLatin1String("nothing");
}

QStringList ArchiveModelTest::state() const
{
    QStringList lines;
    lines << form()->windowTitle() << find<QGroupBox>(form(), "groupBoxConfigParameters")->title()
          << textIn(form(), "label_3") << textIn(form(), "label_2")
          << textIn(form(), "labelFirmwareDesignType") << textIn(form(), "label_5")
          << textIn(form(), "label_6");
    lines << QLatin1String("project ") + find<QLineEdit>(form(), "txtProjectCM")->text()
          << QLatin1String("package types ") + itemsOf(find<QComboBox>(form(), "cmbPackageType"))
          << QLatin1String("design types ") + itemsOf(find<QComboBox>(form(), "cmbDesignType"))
          << QString::fromLatin1("numbers %1 %2 %3")
                 .arg(find<QSpinBox>(form(), "spinBoxSequenceNumber")->value())
                 .arg(find<QSpinBox>(form(), "spinBoxVersionMajor")->value())
                 .arg(find<QSpinBox>(form(), "spinBoxVersionMinor")->value());
    const QString destination = m_extension->destinationPathOnActivation();
    lines << QLatin1String(destination.isNull() ? "no destination" : "destination ") + destination;
    for (int file = 0; file < Files; ++file)
        lines << QString::fromLatin1("settings %1: ").arg(file) + settingsLine(file);
    const bool itself =
        m_extension->objectBase() == form() &&
        const_cast<const IDesignArchiveExtension*>(m_extension)->objectBase() == form();
    const bool all = (m_extension->designStructureIDs() + m_extension->designTypeNames() +
                      m_extension->designStructureOriginNames())
                         .isEmpty() &&
                     !m_extension->isDesignStructureIDsInversed() &&
                     !m_extension->isDesignTypeNamesInversed() &&
                     !m_extension->isDesignStructureOriginNamesInversed();
    lines << QString::fromLatin1("%1, %2, installer %3, itself %4, all designs %5")
                 .arg(m_extension->archiveType())
                 .arg(int(m_extension->archiveDesignItems()))
                 .arg(m_extension->archiveIncludeInstaller())
                 .arg(itself)
                 .arg(all);
    return lines;
}
