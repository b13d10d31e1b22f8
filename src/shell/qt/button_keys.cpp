#include "shell/qt/button_keys.h"

#include <QKeyEvent>
#include <QPushButton>

namespace brennik {

namespace {

class ReturnPresses final : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) {
            return false;
        }
        const int key = static_cast<QKeyEvent*>(event)->key();
        auto* button = qobject_cast<QPushButton*>(watched);
        if ((key != Qt::Key_Return && key != Qt::Key_Enter) || button == nullptr ||
            !button->isEnabled()) {
            return false;
        }
        button->click();
        return true;
    }
};

}  // namespace

void PressFocusedButtonOnReturn(QWidget* window) {
    auto* filter = new ReturnPresses(window);
    for (QPushButton* button : window->findChildren<QPushButton*>()) {
        button->installEventFilter(filter);
    }
}

}  // namespace brennik
