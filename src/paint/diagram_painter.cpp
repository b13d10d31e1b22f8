#include "paint/diagram_painter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>

namespace brennik {

namespace {

// Texts are set in fonts of 100 pixels and scaled down to their size, so that their widths
// do not depend on the resolution of the device.
constexpr double ReferenceSize = 100;

QFont StyleFont(TextStyle style) {
    QFont font;
    font.setFamilies({"Liberation Sans", "DejaVu Sans", "Arial"});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(ReferenceSize));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setBold(style == TextStyle::Title || style == TextStyle::Heading ||
                 style == TextStyle::Bold);
    return font;
}

QColor ColourOf(Colour colour) {
    return {colour.red, colour.green, colour.blue};
}

// Diagonal lines across a box, one every `step` units, in `pen`.
void Hatch(QPainter& painter, const QRectF& box, const QColor& colour, double step) {
    painter.save();
    painter.setClipRect(box, Qt::IntersectClip);
    painter.setPen(QPen(colour, 0.6));
    for (double x = box.left() - box.height(); x < box.right(); x += step) {
        painter.drawLine(QPointF(x, box.bottom()), QPointF(x + box.height(), box.top()));
    }
    painter.restore();
}

void PaintBox(QPainter& painter, const DiagramBox& box) {
    const QRectF rect(box.x, box.y, box.width, box.height);
    const QColor colour = ColourOf(box.colour);
    const QPen outline(QColor(60, 60, 60), 0.6);
    switch (box.shade) {
        case Shade::Rule:
            painter.fillRect(rect, colour);
            return;
        case Shade::Remainder:
            painter.fillRect(rect, QColor(238, 238, 238));
            Hatch(painter, rect, QColor(150, 150, 150), 5);
            break;
        case Shade::PieceRun:
            painter.fillRect(rect, colour);
            Hatch(painter, rect, colour.darker(140), 3);
            break;
        case Shade::Piece:
        case Shade::Swatch:
            painter.fillRect(rect, colour);
            break;
    }
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
}

void PaintText(QPainter& painter, const DiagramText& text) {
    const double scale = FontSize(text.style) / ReferenceSize;
    Qt::Alignment align = Qt::AlignVCenter;
    align |= text.align == Align::Left    ? Qt::AlignLeft
             : text.align == Align::Right ? Qt::AlignRight
                                          : Qt::AlignHCenter;
    painter.save();
    painter.setFont(StyleFont(text.style));
    painter.setPen(ColourOf(text.colour));
    painter.translate(text.x, text.y);
    painter.scale(scale, scale);
    painter.drawText(QRectF(0, 0, text.width / scale, text.height / scale),
                     static_cast<int>(align) | Qt::TextSingleLine,
                     QString::fromUtf8(text.text.data(), static_cast<qsizetype>(text.text.size())));
    painter.restore();
}

}  // namespace

TextWidth DiagramTextWidth() {
    return [](std::string_view text, TextStyle style) {
        const QFontMetricsF metrics(StyleFont(style));
        const QString string = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        return metrics.horizontalAdvance(string) * FontSize(style) / ReferenceSize;
    };
}

Diagram DiagramOf(const SolutionReport& report, double width) {
    return LayOutDiagram(report, width, DiagramTextWidth());
}

void PaintBand(QPainter& painter, const DiagramBand& band) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const DiagramBox& box : band.boxes) {
        PaintBox(painter, box);
    }
    for (const DiagramText& text : band.texts) {
        PaintText(painter, text);
    }
    painter.restore();
}

void PaintBands(QPainter& painter, const Diagram& diagram, std::size_t first, std::size_t last) {
    painter.save();
    for (std::size_t k = first; k < last && k < diagram.bands.size(); ++k) {
        PaintBand(painter, diagram.bands[k]);
        painter.translate(0, diagram.bands[k].height);
    }
    painter.restore();
}

}  // namespace brennik
