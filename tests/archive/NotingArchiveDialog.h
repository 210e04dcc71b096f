#ifndef TESTS_ARCHIVE_NOTINGARCHIVEDIALOG_H
#define TESTS_ARCHIVE_NOTINGARCHIVEDIALOG_H

#include <OrvanticCore/DesignArchiveOutputParserDialog.h>

#include <QStringList>

/// Does nothing but notes what is asked of it, and answers as its model.
class NotingArchiveDialog : public OrvanticCore::DesignArchiveOutputParserDialog {
public:
    NotingArchiveDialog(int number, QStringList* trace) : m_number(number), m_trace(trace) {}

    QString currentExtension() const override
    {
        note(QLatin1String("extension"));
        return extensions.at(asked++ % extensions.count());
    }
    OrvanticCore::IDesign* design() const override { return archived; }
    void setAppendVersionCheckboxVisible(bool visible) override
    {
        note(QString::fromLatin1("append version %1").arg(visible));
    }
    void setDestinationPathReadOnly(bool read_only) override
    {
        note(QString::fromLatin1("read-only %1").arg(read_only));
    }
    void setIncludedItemsGroupboxVisible(bool visible) override
    {
        note(QString::fromLatin1("included items %1").arg(visible));
    }

    OrvanticCore::IDesign* archived = nullptr;
    QStringList extensions;
    mutable int asked = 0;

private:
    void note(const QString& what) const
    {
        *m_trace << QString::fromLatin1("dialog %1: %2").arg(m_number).arg(what);
    }

    int m_number;
    QStringList* m_trace;
};

#endif
