// The cutting diagram of a report laid out on a sheet of a given width: every cutting line as
// one bar to scale, its pieces as coloured segments and its remainder shaded, in groups under
// their standard length, with a legend of the colours and the report's totals at the foot.
// The layout is a list of bands of shapes; a painter draws them and pages are filled band by band.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "diagram/report_reader.h"

namespace brennik {

struct Colour {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;
    bool operator==(const Colour&) const = default;
};

enum class TextStyle { Title, Heading, Body, Bold, Small };
enum class Align { Left, Centre, Right };

enum class Shade {
    Piece,      // one piece, filled with its length's colour
    PieceRun,   // pieces too narrow to draw one by one, as one block of their colour
    Remainder,  // what is left of the bar, hatched
    Swatch,     // a colour of the legend
    Rule,       // a thin line across the sheet
};

// Positions are in the units of the sheet, from the top left corner of the band.
struct DiagramBox {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    Shade shade = Shade::Piece;
    Colour colour;
};

struct DiagramText {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    std::string text;  // UTF-8
    TextStyle style = TextStyle::Body;
    Align align = Align::Left;
    Colour colour;
};

struct DiagramBand {
    double height = 0;
    std::vector<DiagramBox> boxes;
    std::vector<DiagramText> texts;
    bool keepWithNext = false;  // a heading: never the last band of a page
};

struct Diagram {
    double width = 0;
    std::vector<DiagramBand> bands;
    double Height() const;
};

// The width of a text in the units of the sheet, in a style; the painter's fonts decide it.
using TextWidth = std::function<double(std::string_view text, TextStyle style)>;

// The size of the font of each style and the height of its line, in the units of the sheet.
double FontSize(TextStyle style);
double TextHeight(TextStyle style);

// A report that could not be read lays out as its faults' first line only.
Diagram LayOutDiagram(const SolutionReport& report, double width, const TextWidth& textWidth);

// The colour of the cutting length that stands `rank`-th longest in a report, from 0: near
// colours differ in hue, and lightness varies so that far ones differ too.
Colour PieceColour(std::size_t rank);

// A length or a count as the diagram writes it: at most two decimals, no trailing zeros.
std::string LengthText(double value);

}  // namespace brennik
