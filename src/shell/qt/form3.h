// Form3, the help tip: hints on choosing a method, shown beside the main screen without
// blocking it.
#pragma once

#include <QDialog>

namespace brennik {

class Form3 final : public QDialog {
public:
    // Placed at its spot relative to the main screen `beside`.
    explicit Form3(QWidget* beside);

    static const char* HintText();
};

}  // namespace brennik
