#include "shell/qt/progress_line.h"

#include <QPainter>
#include <algorithm>

#include "shell/qt/twips.h"

namespace brennik {

namespace {
constexpr int Thickness = 5;  // pixels
}

ProgressLine::ProgressLine(QWidget* parent, QColor colour, int x1, int x2, int y)
    : QWidget(parent), colour_(colour), x1_(x1), x2_(x2), y_(y) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    Reposition();
}

void ProgressLine::SetX1(int twips) {
    x1_ = twips;
    Reposition();
}

void ProgressLine::SetX2(int twips) {
    x2_ = twips;
    Reposition();
}

void ProgressLine::Reposition() {
    const int left = Px(std::min(x1_, x2_));
    const int right = Px(std::max(x1_, x2_));
    // A line of no length still shows its round pen end, as a dot at the centre.
    setGeometry(left - Thickness / 2, Px(y_) - Thickness / 2, right - left + Thickness, Thickness);
}

void ProgressLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour_);
    painter.drawRoundedRect(rect(), Thickness / 2.0, Thickness / 2.0);
}

}  // namespace brennik
