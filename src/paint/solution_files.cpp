#include "paint/solution_files.h"

#include <QPdfWriter>
#include <QSvgGenerator>

#include "diagram/report_reader.h"
#include "paint/diagram_painter.h"

namespace brennik {

namespace {

// The width of the SVG picture in its own units, about that of a screen.
constexpr double SvgWidth = 900;
constexpr double SvgMargin = 12;

QString PathOf(const std::string& path) {
    return QString::fromStdString(path);
}

}  // namespace

bool WriteSolutionPdf(const std::string& path, const SolutionDocument& document) {
    QPdfWriter writer(PathOf(path));
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
    writer.setResolution(600);
    writer.setTitle(QString::fromStdString("Cutting plan " + document.fileName));
    writer.setCreator("Brennik");
    return PrintSolution(writer, document) > 0;
}

bool WriteDiagramSvg(const std::string& path, const std::string& report) {
    const Diagram diagram = DiagramOf(ReadReport(report), SvgWidth - 2 * SvgMargin);
    const QSizeF size(SvgWidth, diagram.Height() + 2 * SvgMargin);
    QSvgGenerator svg;
    svg.setFileName(PathOf(path));
    svg.setSize(size.toSize());
    svg.setViewBox(QRectF(QPointF(0, 0), size));
    svg.setTitle("Cutting diagram");
    svg.setDescription("Every cutting line of the plan as one bar, drawn to scale");
    QPainter painter;
    if (!painter.begin(&svg)) {
        return false;
    }
    painter.fillRect(QRectF(QPointF(0, 0), size), Qt::white);
    painter.translate(SvgMargin, SvgMargin);
    PaintBands(painter, diagram, 0, diagram.bands.size());
    return painter.end();
}

}  // namespace brennik
