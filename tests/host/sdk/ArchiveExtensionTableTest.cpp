#include <OrvanticCore/DesignArchiveOutputParserDialog.h>
#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QtTest>

#include <cstring>

using OrvanticCore::Interfaces::IDesignArchiveExtension;
using OrvanticCore::Interfaces::ILinkedExtension;

namespace {

/// The place of a virtual operation in its class's table, counted in entries. A pointer to a
/// virtual member begins with the entry's offset in bytes, plus one.
template <typename Operation>
int placeOf(Operation operation)
{
    std::intptr_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset % 2 == 1 ? static_cast<int>((offset - 1) / std::intptr_t(sizeof(void*))) : -1;
}

} // namespace

/// A host built elsewhere calls the operations by their place, not by their name.
class ArchiveExtensionTableTest : public QObject {
    Q_OBJECT

private slots:
    void beginsWithTheDestructorAndTheSixOperationsOfLinkedExtensions();
    void goesOnWithTheNineOperationsOfItsOwn();
    void hasTheFlagsOfThePackage();
};

void ArchiveExtensionTableTest::beginsWithTheDestructorAndTheSixOperationsOfLinkedExtensions()
{
    // A destructor takes two entries.
    QCOMPARE(placeOf(&ILinkedExtension::designStructureIDs), 2);
    QCOMPARE(placeOf(&ILinkedExtension::isDesignStructureIDsInversed), 3);
    QCOMPARE(placeOf(&ILinkedExtension::designStructureOriginNames), 4);
    QCOMPARE(placeOf(&ILinkedExtension::isDesignStructureOriginNamesInversed), 5);
    QCOMPARE(placeOf(&ILinkedExtension::designTypeNames), 6);
    QCOMPARE(placeOf(&ILinkedExtension::isDesignTypeNamesInversed), 7);
}

void ArchiveExtensionTableTest::goesOnWithTheNineOperationsOfItsOwn()
{
    QCOMPARE(placeOf(&IDesignArchiveExtension::extensionWidget), 8);
    QCOMPARE(placeOf(&IDesignArchiveExtension::archiveType), 9);
    // The tenth entry is the protected signal destinationPathChanged().
    QCOMPARE(placeOf(&IDesignArchiveExtension::destinationPathOnActivation), 11);
    QCOMPARE(placeOf(&IDesignArchiveExtension::handleDestinationPathChanged), 12);
    QCOMPARE(placeOf(&IDesignArchiveExtension::setArchiveDialogWidget), 13);
    QCOMPARE(placeOf(&IDesignArchiveExtension::updateArchiveDialogWidget), 14);
    QCOMPARE(placeOf(&IDesignArchiveExtension::archiveDesignItems), 15);
    QCOMPARE(placeOf(&IDesignArchiveExtension::archiveIncludeInstaller), 16);
}

void ArchiveExtensionTableTest::hasTheFlagsOfThePackage()
{
    QCOMPARE(int(IDesignArchiveExtension::SourceFiles), 0x01);
    QCOMPARE(int(IDesignArchiveExtension::GeneratedFiles), 0x02);
    QCOMPARE(int(IDesignArchiveExtension::ExternalFiles), 0x04);
    QCOMPARE(int(IDesignArchiveExtension::DesignFolders), 0x08);
    QCOMPARE(int(IDesignArchiveExtension::DesignDescription), 0x10);
}

QTEST_GUILESS_MAIN(ArchiveExtensionTableTest)
#include "ArchiveExtensionTableTest.moc"
