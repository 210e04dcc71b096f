#include <OrvanticCore/DesignArchiveOutputParserDialog.h>

namespace OrvanticCore {

DesignArchiveOutputParserDialog::DesignArchiveOutputParserDialog(QWidget* parent) : QDialog(parent)
{
}

DesignArchiveOutputParserDialog::~DesignArchiveOutputParserDialog() {}

} // namespace OrvanticCore
