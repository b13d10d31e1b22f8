#include "shell/qt/screen_place.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace brennik {

namespace {

QRect AvailableAt(const QPoint& point) {
    const QScreen* screen = QGuiApplication::screenAt(point);
    return (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

// The top left corner that keeps a window of `size` inside `room`, nearest to `wanted`; a
// window larger than the room keeps its top left corner in it.
QPoint Inside(const QRect& room, const QSize& size, const QPoint& wanted) {
    const int x = std::max(room.left(), std::min(wanted.x(), room.right() + 1 - size.width()));
    const int y = std::max(room.top(), std::min(wanted.y(), room.bottom() + 1 - size.height()));
    return {x, y};
}

}  // namespace

void CentreOnMouseScreen(QWidget* window) {
    const QRect room = AvailableAt(QCursor::pos());
    const QSize size = window->frameGeometry().size();
    window->move(Inside(room, size, room.center() - QPoint(size.width() / 2, size.height() / 2)));
}

void KeepOnScreen(QWidget* window) {
    const QRect room = AvailableAt(window->pos());
    window->move(Inside(room, window->frameGeometry().size(), window->pos()));
}

}  // namespace brennik
