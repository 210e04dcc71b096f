#ifndef TESTS_DESIGN_DESIGNMODELFILES_H
#define TESTS_DESIGN_DESIGNMODELFILES_H

#include "design/DesignModel.h"

#include <OrvanticCore/DesignStructure.h>

/// Makes the files that windows are filled from in \p folder.
QList<ModelFile> makeModelFiles(const QString& folder);

/// A new structure that has a node for "*.bit" by \p kind's rules.
OrvanticCore::DesignStructure* newStructure(int kind);

/// The node for bit-stream files of newStructure(); null for none.
QString nodeOfStructure(int kind);

#endif
