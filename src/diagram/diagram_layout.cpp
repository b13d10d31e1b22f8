#include "diagram/diagram_layout.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>

namespace brennik {

namespace {

constexpr Colour Ink{0, 0, 0};
constexpr Colour Grey{90, 90, 90};
constexpr Colour White{255, 255, 255};
constexpr double BarHeight = 20;
constexpr double BarBand = 28;
constexpr double BarTop = 3;
constexpr double Padding = 4;
// Pieces narrower than this are drawn as one block per item.
constexpr double NarrowestPiece = 3;

int64_t Hundredths(double value) {
    return std::llround(value * 100);
}

std::string MoneyText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

// The text colour that reads on a fill: black on light colours, white on dark ones.
Colour InkOn(Colour fill) {
    const double luminance = 0.299 * fill.red + 0.587 * fill.green + 0.114 * fill.blue;
    return luminance < 128 ? White : Ink;
}

class Sheet {
public:
    Sheet(double width, const TextWidth& textWidth) : width_(width), textWidth_(textWidth) {
        diagram_.width = width;
    }

    DiagramBand& Band(double height, bool keepWithNext = false) {
        DiagramBand& band = diagram_.bands.emplace_back();
        band.height = height;
        band.keepWithNext = keepWithNext;
        return band;
    }

    // One line of text across the sheet, with an optional second text at its right end.
    void Line(const std::string& left, TextStyle style, const std::string& right = "",
              bool keepWithNext = false) {
        const double height = TextHeight(style) + Padding;
        DiagramBand& band = Band(height, keepWithNext);
        band.texts.push_back(
            {0, Padding / 2, width_, TextHeight(style), left, style, Align::Left, Ink});
        if (!right.empty()) {
            band.texts.push_back({0, Padding / 2, width_, TextHeight(style), right, TextStyle::Body,
                                  Align::Right, Ink});
        }
    }

    void Rule(double space) {
        DiagramBand& band = Band(space);
        band.boxes.push_back({0, space / 2, width_, 0.75, Shade::Rule, Grey});
    }

    bool Fits(const std::string& text, TextStyle style, double width) const {
        return textWidth_(text, style) + 2 * Padding <= width;
    }
    double TextWidthOf(const std::string& text, TextStyle style) const {
        return textWidth_(text, style);
    }
    double Width() const { return width_; }
    Diagram Take() { return std::move(diagram_); }

private:
    double width_;
    const TextWidth& textWidth_;
    Diagram diagram_;
};

// Every cutting length of the report, longest first, with the pieces cut of it.
std::map<int64_t, int64_t, std::greater<>> PiecesByLength(const SolutionReport& report) {
    std::map<int64_t, int64_t, std::greater<>> pieces;
    for (const ReportGroup& group : report.groups) {
        for (const ReportLine& line : group.lines) {
            for (const ReportItem& item : line.items) {
                pieces[Hundredths(item.length)] += item.pieces * line.bars;
            }
        }
    }
    return pieces;
}

void LayOutLegend(Sheet& sheet, const std::map<int64_t, int64_t, std::greater<>>& pieces) {
    sheet.Line("Cutting lengths", TextStyle::Heading, "", true);
    std::vector<std::string> entries;
    double widest = 0;
    for (const auto& [length, count] : pieces) {
        entries.push_back(LengthText(static_cast<double>(length) / 100) + ": " +
                          std::to_string(count) + (count == 1 ? " piece" : " pieces"));
        widest = std::max(widest, sheet.TextWidthOf(entries.back(), TextStyle::Body));
    }
    const double swatch = TextHeight(TextStyle::Body);
    const double entryWidth = swatch + 3 * Padding + widest;
    const std::size_t columns =
        std::max<std::size_t>(1, static_cast<std::size_t>(sheet.Width() / entryWidth));
    for (std::size_t first = 0; first < entries.size(); first += columns) {
        DiagramBand& band = sheet.Band(swatch + Padding);
        for (std::size_t k = first; k < std::min(entries.size(), first + columns); ++k) {
            const double x = static_cast<double>(k - first) * entryWidth;
            band.boxes.push_back({x, Padding / 2, swatch, swatch, Shade::Swatch, PieceColour(k)});
            band.texts.push_back({x + swatch + Padding, Padding / 2, widest + Padding, swatch,
                                  entries[k], TextStyle::Body, Align::Left, Ink});
        }
    }
}

// One cutting line: its bar from the left edge at `scale` units per length, the number of bars
// in the column at the right. Returns the hundredths of each bar that no piece takes.
int64_t LayOutBar(Sheet& sheet, const ReportLine& line, double scale, double countColumn,
                  const std::map<int64_t, std::size_t>& rankOf) {
    DiagramBand& band = sheet.Band(BarBand);
    double x = 0;
    int64_t left = Hundredths(line.stdLength);
    for (const ReportItem& item : line.items) {
        const Colour colour = PieceColour(rankOf.at(Hundredths(item.length)));
        const double piece = item.length * scale;
        const std::string length = LengthText(item.length);
        left -= item.pieces * Hundredths(item.length);
        if (piece < NarrowestPiece) {
            const double run = piece * static_cast<double>(item.pieces);
            band.boxes.push_back({x, BarTop, run, BarHeight, Shade::PieceRun, colour});
            const std::string label = std::to_string(item.pieces) + " x " + length;
            if (sheet.Fits(label, TextStyle::Small, run)) {
                band.texts.push_back({x, BarTop, run, BarHeight, label, TextStyle::Small,
                                      Align::Centre, InkOn(colour)});
            }
            x += run;
            continue;
        }
        const bool labelled = sheet.Fits(length, TextStyle::Small, piece);
        for (int64_t k = 0; k < item.pieces; ++k, x += piece) {
            band.boxes.push_back({x, BarTop, piece, BarHeight, Shade::Piece, colour});
            if (labelled) {
                band.texts.push_back({x, BarTop, piece, BarHeight, length, TextStyle::Small,
                                      Align::Centre, InkOn(colour)});
            }
        }
    }
    // The number of bars beside the bar, with the remainder under it when the bar has no room.
    const double count = sheet.Width() - countColumn + Padding;
    DiagramText& bars = band.texts.emplace_back(
        DiagramText{count, BarTop, countColumn - Padding, BarHeight,
                    "x " + std::to_string(line.bars), TextStyle::Bold, Align::Left, Ink});
    if (left > 0) {
        const double end = line.stdLength * scale;
        const std::string rest = LengthText(static_cast<double>(left) / 100);
        band.boxes.push_back({x, BarTop, end - x, BarHeight, Shade::Remainder, Grey});
        if (sheet.Fits(rest, TextStyle::Small, end - x)) {
            band.texts.push_back(
                {x, BarTop, end - x, BarHeight, rest, TextStyle::Small, Align::Centre, Ink});
        } else {
            bars.height = BarHeight / 2;
            band.texts.push_back({count, BarTop + BarHeight / 2, countColumn - Padding,
                                  BarHeight / 2, "rest " + rest, TextStyle::Small, Align::Left,
                                  Grey});
        }
    }
    return left;
}

void LayOutFoot(Sheet& sheet, const SolutionReport& report, int64_t leftOver) {
    sheet.Rule(10);
    std::string bars;
    for (const ReportGroup& group : report.groups) {
        const double length = group.lines.empty() ? 0 : group.lines.front().stdLength;
        bars +=
            (bars.empty() ? "" : ",  ") + LengthText(length) + " x " + std::to_string(group.bars);
    }
    sheet.Line("Method used: " + report.method, TextStyle::Bold);
    sheet.Line("Bars to buy: " + bars, TextStyle::Body);
    if (report.totalCost) {
        sheet.Line("Total cost: " + MoneyText(*report.totalCost), TextStyle::Bold);
    }
    if (report.wasteSummary) {
        const WasteColumns& totals = report.wasteTotals;
        sheet.Line("Waste of material: " + MoneyText(totals.total) + " (" +
                       MoneyText(report.materialPercent.value_or(0)) + " %)",
                   TextStyle::Body);
        if (totals.moneyTotal) {
            sheet.Line("Waste of money: " + MoneyText(*totals.moneyTotal) + " (" +
                           MoneyText(report.moneyPercent.value_or(0)) + " %)",
                       TextStyle::Body);
        }
    } else {
        sheet.Line("Left over: " + LengthText(static_cast<double>(leftOver) / 100),
                   TextStyle::Body);
    }
    if (report.reference) {
        sheet.Line("Reference: " + *report.reference, TextStyle::Body);
    }
}

}  // namespace

double Diagram::Height() const {
    double height = 0;
    for (const DiagramBand& band : bands) {
        height += band.height;
    }
    return height;
}

double FontSize(TextStyle style) {
    switch (style) {
        case TextStyle::Title:
            return 14;
        case TextStyle::Heading:
            return 11;
        case TextStyle::Small:
            return 7.5;
        case TextStyle::Body:
        case TextStyle::Bold:
            break;
    }
    return 9;
}

double TextHeight(TextStyle style) {
    return std::ceil(FontSize(style) * 1.4);
}

Colour PieceColour(std::size_t rank) {
    // Hues a golden angle apart, in three steps of lightness that change every third colour.
    const double hue = std::fmod(static_cast<double>(rank) * 137.508 + 200, 360) / 60;
    const double lightness[] = {0.72, 0.58, 0.84};
    const double l = lightness[(rank / 3) % 3];
    const double chroma = (1 - std::abs(2 * l - 1)) * 0.75;
    const double second = chroma * (1 - std::abs(std::fmod(hue, 2) - 1));
    const double base = l - chroma / 2;
    double rgb[3] = {0, 0, 0};
    const int sector = static_cast<int>(hue) % 6;
    const int order[6][2] = {{0, 1}, {1, 0}, {1, 2}, {2, 1}, {2, 0}, {0, 2}};
    rgb[order[sector][0]] = chroma;
    rgb[order[sector][1]] = second;
    const auto channel = [base](double value) {
        return static_cast<uint8_t>(std::lround((value + base) * 255));
    };
    return {channel(rgb[0]), channel(rgb[1]), channel(rgb[2])};
}

std::string LengthText(double value) {
    std::string text = MoneyText(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

Diagram LayOutDiagram(const SolutionReport& report, double width, const TextWidth& textWidth) {
    Sheet sheet(width, textWidth);
    const std::string stamp = report.date + (report.time.empty() ? "" : "  " + report.time);
    sheet.Line("Cutting diagram", TextStyle::Title, stamp);
    if (!report.faults.empty()) {
        sheet.Line(
            "Some lines of this file are not those of a solution report; the diagram "
            "leaves them out.",
            TextStyle::Body);
    }
    const auto pieces = PiecesByLength(report);
    std::map<int64_t, std::size_t> rankOf;
    for (const auto& [length, count] : pieces) {
        rankOf.emplace(length, rankOf.size());
    }
    if (!pieces.empty()) {
        LayOutLegend(sheet, pieces);
    }

    double longest = 0;
    for (const ReportGroup& group : report.groups) {
        for (const ReportLine& line : group.lines) {
            longest = std::max(longest, line.stdLength);
        }
    }
    const double countColumn = std::max(sheet.TextWidthOf("x 999999", TextStyle::Bold),
                                        sheet.TextWidthOf("rest 99999.99", TextStyle::Small)) +
                               2 * Padding;
    const double scale = longest > 0 ? std::max(width - countColumn, 1.0) / longest : 0;
    int64_t leftOver = 0;
    for (const ReportGroup& group : report.groups) {
        const double length = group.lines.empty() ? 0 : group.lines.front().stdLength;
        sheet.Rule(8);
        std::string summary = std::to_string(group.bars) + (group.bars == 1 ? " bar" : " bars");
        if (group.price) {
            summary = "price " + MoneyText(*group.price) + ",  " + summary;
        }
        sheet.Line("Standard length " + LengthText(length), TextStyle::Heading, summary, true);
        for (const ReportLine& line : group.lines) {
            const int64_t left = LayOutBar(sheet, line, scale, countColumn, rankOf);
            leftOver += std::max<int64_t>(left, 0) * line.bars;
        }
    }
    if (report.groups.empty()) {
        sheet.Line("There is nothing to cut.", TextStyle::Body);
    }
    LayOutFoot(sheet, report, leftOver);
    return sheet.Take();
}

}  // namespace brennik
