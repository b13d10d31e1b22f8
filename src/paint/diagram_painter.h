// Draws the cutting diagram with Qt: the one routine behind the window, the printer, the PDF
// and the SVG. Texts are measured and drawn in the same font, scaled to the sheet's units, so
// a label that fits in the layout fits on every device.
#pragma once

#include <QPainter>

#include "diagram/diagram_layout.h"

namespace brennik {

// The widths of texts as the painter draws them, for LayOutDiagram.
TextWidth DiagramTextWidth();

// The diagram of a report at `width` units, measured by the painter's fonts.
Diagram DiagramOf(const SolutionReport& report, double width);

// Draws one band with its top left corner at the painter's origin.
void PaintBand(QPainter& painter, const DiagramBand& band);

// Draws the bands from `first` up to `last` one under the other from the painter's origin.
void PaintBands(QPainter& painter, const Diagram& diagram, std::size_t first, std::size_t last);

}  // namespace brennik
