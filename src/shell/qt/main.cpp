// brennik: the desktop program. It takes no arguments of its own; it opens on the start screen
// with its folder as the current folder, so every file without a path lands there.
#include <QApplication>
#include <QDir>
#include <QIcon>

#include "shell/qt/app_folder.h"
#include "shell/qt/form1.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("brennik");
    QApplication::setWindowIcon(QIcon(":/brennik/icon.png"));

    const QString folder =
        brennik::ChooseAppFolder(QApplication::applicationDirPath(), BRENNIK_INSTALLED_BINDIR);
    QDir::setCurrent(folder);

    auto* start = new brennik::Form1(folder.toStdString());
    start->show();
    return QApplication::exec();
}
