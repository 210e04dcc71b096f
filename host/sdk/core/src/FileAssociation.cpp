#include <OrvanticCore/FileAssociation.h>

#include <QRegExp>

namespace OrvanticCore {

FileAssociation::FileAssociation(const QString& pattern, const QString& design_node,
                                 const QString& working_folder)
    : m_pattern(pattern), m_designNode(design_node), m_workingFolder(working_folder)
{
}

QString FileAssociation::pattern() const { return m_pattern; }

QString FileAssociation::designNode() const { return m_designNode; }

QString FileAssociation::workingFolderPath() const { return m_workingFolder; }

bool FileAssociation::matches(const QString& file_name) const
{
    return file_name == m_pattern ||
           QRegExp(m_pattern, Qt::CaseInsensitive, QRegExp::Wildcard).exactMatch(file_name);
}

} // namespace OrvanticCore
