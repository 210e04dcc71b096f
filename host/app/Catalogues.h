#ifndef HOST_CATALOGUES_H
#define HOST_CATALOGUES_H

#include <QString>
#include <QStringList>

/// The texts of windows in the language of the user's desktop.
namespace Catalogues {

/// Installs the catalogue \p name of \p folder for the first language of the user, if it is there.
void install(const QString& name, const QString& folder);

/// Installs the catalogues that are beside the plug-ins in \p folders: NAME_de.qm for libNAME.so in
/// German.
void installForPlugins(const QStringList& folders);

} // namespace Catalogues

#endif
