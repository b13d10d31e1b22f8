// Positions of the screens are given in twips; at 15 twips to the pixel they become the
// device-independent pixels that Qt scales for high-DPI screens.
#pragma once

#include <QRect>
#include <QWidget>

namespace brennik {

inline constexpr int TwipsPerPixel = 15;

inline int Px(int twips) {
    return (twips + TwipsPerPixel / 2) / TwipsPerPixel;
}

inline QRect TwipsRect(int left, int top, int width, int height) {
    return QRect(Px(left), Px(top), Px(width), Px(height));
}

inline void Place(QWidget* widget, int left, int top, int width, int height) {
    widget->setGeometry(TwipsRect(left, top, width, height));
}

}  // namespace brennik
