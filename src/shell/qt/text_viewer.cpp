#include "shell/qt/text_viewer.h"

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace brennik {

void ShowTextViewer(const QString& path, QWidget* owner) {
    auto* window = new QWidget(nullptr, Qt::Window);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(QFileInfo(path).fileName());

    auto* text = new QPlainTextEdit(window);
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        text->setPlainText(QString::fromUtf8(file.readAll()).remove('\r'));
    }

    auto* print = new QPushButton("&Print...", window);
    QObject::connect(print, &QPushButton::clicked, window, [text, window] {
        QPrinter printer;
        QPrintDialog dialog(&printer, window);
        if (dialog.exec() == QDialog::Accepted) {
            text->print(&printer);
        }
    });

    auto* layout = new QVBoxLayout(window);
    layout->addWidget(print, 0, Qt::AlignLeft);
    layout->addWidget(text);
    if (owner != nullptr) {
        window->setWindowIcon(owner->windowIcon());
    }
    // Without a window manager to maximise it, the window still takes the whole screen.
    if (const QScreen* screen = owner != nullptr ? owner->screen() : nullptr) {
        window->setGeometry(screen->availableGeometry());
    }
    window->showMaximized();
    window->activateWindow();
}

}  // namespace brennik
