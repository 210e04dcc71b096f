#include <FileAssociation.h>

#include <QRegExp>

namespace OrvanticCore {

FileAssociation::FileAssociation(const QString& pattern, const QString& design_node,
                                 const QString& working_folder)
    : d_pattern(pattern), d_design_node(design_node), d_working_folder(working_folder)
{
}

QString FileAssociation::pattern() const { return d_pattern; }

QString FileAssociation::designNode() const { return d_design_node; }

QString FileAssociation::workingFolderPath() const { return d_working_folder; }

bool FileAssociation::matches(const QString& file_name) const
{
    return file_name == d_pattern ||
           QRegExp(d_pattern, Qt::CaseInsensitive, QRegExp::Wildcard).exactMatch(file_name);
}

} // namespace OrvanticCore
