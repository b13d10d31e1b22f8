// Return and Enter press the focused push button of a window, as Space does: Qt's widgets answer
// them only in dialogs, and users expect them on every form.
#pragma once

#include <QWidget>

namespace brennik {

// For every push button that `window` holds now.
void PressFocusedButtonOnReturn(QWidget* window);

}  // namespace brennik
