// Where the forms open: centred on the screen that holds the mouse, and always wholly on a
// screen, whatever the window manager would do with them.
#pragma once

#include <QWidget>

namespace brennik {

void CentreOnMouseScreen(QWidget* window);

// Moves the window in, frame and all, as little as it takes, onto the screen that holds its top
// left corner. The frame counts once the window is shown.
void KeepOnScreen(QWidget* window);

}  // namespace brennik
