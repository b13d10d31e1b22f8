// The cutting diagram on the screen: drawn to the width of the window, scrolled both ways and
// zoomed with the buttons, Ctrl and the keys + - 0, or Ctrl and the mouse wheel. It paints with
// the painter of the printed pages, in points as on paper, so it stays sharp at every zoom and
// on high-DPI screens.
#pragma once

#include <QScrollArea>

#include "diagram/diagram_layout.h"
#include "diagram/report_reader.h"

namespace brennik {

class DiagramView final : public QScrollArea {
public:
    explicit DiagramView(QWidget* parent);

    void SetReport(const SolutionReport& report);
    const Diagram& Shown() const { return diagram_; }
    // Pixels per unit of the sheet: the sheet is laid out in points, shown at the zoom.
    double Scale() const;

    void ZoomIn();
    void ZoomOut();
    // Back to zoom 1, the diagram laid out anew to the width of the window.
    void FitWidth();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    class Canvas;
    void LayOut();
    void SetZoom(double zoom);

    SolutionReport report_;
    Diagram diagram_;
    double zoom_ = 1;
    Canvas* canvas_;
};

}  // namespace brennik
