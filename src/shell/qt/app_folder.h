// The folder where the program keeps its files (settings, last.sol, last.pro, the page files,
// the two documents): its own folder where that is writable, as in a build tree or a portable
// copy, else a per-user data folder, made on the first start.
#pragma once

#include <QString>

namespace brennik {

// installedBinDir: the folder an installed program runs from, which is never used for files.
QString ChooseAppFolder(const QString& programFolder, const QString& installedBinDir);

}  // namespace brennik
