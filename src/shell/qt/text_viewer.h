// The program's own text viewer, for a desktop without an application for text files: the file
// read-only in a monospaced font, in a maximised window that can print it.
#pragma once

#include <QString>
#include <QWidget>

namespace brennik {

void ShowTextViewer(const QString& path, QWidget* owner);

}  // namespace brennik
