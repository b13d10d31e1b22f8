#include "shell/qt/app_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace brennik {

namespace {

// Writable in fact, not only by its permission bits: a file can be made there.
bool CanWriteIn(const QString& folder) {
    QFile probe(QDir(folder).filePath(".brennik-write-test"));
    if (!probe.open(QIODevice::WriteOnly)) {
        return false;
    }
    probe.close();
    probe.remove();
    return true;
}

}  // namespace

QString ChooseAppFolder(const QString& programFolder, const QString& installedBinDir) {
    const QString canonical = QFileInfo(programFolder).canonicalFilePath();
    const bool installed =
        !installedBinDir.isEmpty() && canonical == QFileInfo(installedBinDir).canonicalFilePath();
    if (!installed && CanWriteIn(programFolder)) {
        return canonical;
    }
    const QString perUser = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(perUser);
    return perUser;
}

}  // namespace brennik
