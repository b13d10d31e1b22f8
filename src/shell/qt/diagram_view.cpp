#include "shell/qt/diagram_view.h"

#include <QPaintEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "paint/diagram_painter.h"

namespace brennik {

namespace {

constexpr double Margin = 16;
constexpr double NarrowestSheet = 480;
constexpr double ZoomStep = 1.25;
constexpr double LeastZoom = 0.25;
constexpr double MostZoom = 16;

}  // namespace

class DiagramView::Canvas final : public QWidget {
public:
    Canvas(DiagramView& view) : QWidget(&view), view_(view) {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    // Only the bands in the part to be repainted are drawn, so a plan of many lines scrolls
    // as fast as a small one.
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::white);
        const double scale = view_.Scale();
        const Diagram& diagram = view_.diagram_;
        const double top = event->rect().top() / scale - Margin;
        const double bottom = event->rect().bottom() / scale - Margin;
        painter.scale(scale, scale);
        painter.translate(Margin, Margin);
        double y = 0;
        for (const DiagramBand& band : diagram.bands) {
            if (y > bottom) {
                break;
            }
            if (y + band.height >= top) {
                painter.save();
                painter.translate(0, y);
                PaintBand(painter, band);
                painter.restore();
            }
            y += band.height;
        }
    }

private:
    DiagramView& view_;
};

DiagramView::DiagramView(QWidget* parent) : QScrollArea(parent), canvas_(new Canvas(*this)) {
    setWidget(canvas_);
    setWidgetResizable(false);
    setBackgroundRole(QPalette::Base);
}

void DiagramView::SetReport(const SolutionReport& report) {
    report_ = report;
    LayOut();
}

// At zoom 1 the sheet is as wide as the window; a zoomed diagram keeps the width it was laid out
// at, so that zooming lengthens the bars.
void DiagramView::LayOut() {
    const double fitted = viewport()->width() / (Scale() / zoom_) - 2 * Margin;
    const double width = zoom_ == 1 || diagram_.width == 0 ? fitted : diagram_.width;
    diagram_ = DiagramOf(report_, std::max(NarrowestSheet, width));
    SetZoom(zoom_);
}

void DiagramView::SetZoom(double zoom) {
    // The point at the middle of the view stays where it is.
    const double oldScale = Scale();
    const QPointF middle((horizontalScrollBar()->value() + viewport()->width() / 2.0) / oldScale,
                         (verticalScrollBar()->value() + viewport()->height() / 2.0) / oldScale);
    zoom_ = std::clamp(zoom, LeastZoom, MostZoom);
    const double scale = Scale();
    canvas_->resize(static_cast<int>((diagram_.width + 2 * Margin) * scale),
                    static_cast<int>((diagram_.Height() + 2 * Margin) * scale));
    horizontalScrollBar()->setValue(
        static_cast<int>(middle.x() * scale - viewport()->width() / 2.0));
    verticalScrollBar()->setValue(
        static_cast<int>(middle.y() * scale - viewport()->height() / 2.0));
    canvas_->update();
}

double DiagramView::Scale() const {
    return zoom_ * logicalDpiX() / 72.0;
}

void DiagramView::ZoomIn() {
    SetZoom(zoom_ * ZoomStep);
}

void DiagramView::ZoomOut() {
    SetZoom(zoom_ / ZoomStep);
}

void DiagramView::FitWidth() {
    zoom_ = 1;
    LayOut();
}

void DiagramView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    if (zoom_ == 1) {
        LayOut();
    }
}

void DiagramView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QScrollArea::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() > 0) {
        ZoomIn();
    } else if (event->angleDelta().y() < 0) {
        ZoomOut();
    }
    event->accept();
}

}  // namespace brennik
