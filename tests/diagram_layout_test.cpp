// The diagram's layout from a report: one bar to scale per cutting line with its pieces and
// remainder, one colour per cutting length on every bar, pieces too narrow to draw one by one
// drawn as one block, and the largest plan still laid out within its sheet.
#include "diagram/diagram_layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Bench;

constexpr double SheetWidth = 500;

// Every character as wide as half its font.
double HalfEmWidth(std::string_view text, TextStyle style) {
    return static_cast<double>(text.size()) * FontSize(style) / 2;
}

struct Bars {
    std::vector<std::vector<const DiagramBox*>> pieces;  // per bar, pieces and runs
    std::vector<const DiagramBox*> remainders;
    std::vector<std::string> texts;
};

// Pointers into `diagram`, which must outlive them.
Bars BarsOf(const Diagram& diagram) {
    Bars bars;
    for (const DiagramBand& band : diagram.bands) {
        std::vector<const DiagramBox*> pieces;
        for (const DiagramBox& box : band.boxes) {
            EXPECT_LE(box.x + box.width, diagram.width + 1e-9) << "a shape beyond the sheet";
            if (box.shade == Shade::Piece || box.shade == Shade::PieceRun) {
                pieces.push_back(&box);
            } else if (box.shade == Shade::Remainder) {
                bars.remainders.push_back(&box);
            }
        }
        if (!pieces.empty()) {
            bars.pieces.push_back(pieces);
        }
        for (const DiagramText& text : band.texts) {
            bars.texts.push_back(text.text);
        }
    }
    return bars;
}

Diagram Pressed(const testing::Rows& stock, const testing::Rows& cuts) {
    Bench bench;
    bench.Press(stock, cuts);
    return LayOutDiagram(ReadReport(bench.Read("last.sol")), SheetWidth, HalfEmWidth);
}

TEST(DiagramLayout, EveryCuttingLineIsOneBarOfItsPiecesAndRemainder) {
    const Diagram diagram = Pressed(testing::kTwelveStock, testing::kTwelveCuts);
    const Bars bars = BarsOf(diagram);
    // 12 = 7.5 + 4.5 x 20; 6.5 + 5.1 + rest 0.4 x 24; 6.5 + 4.5 + rest 1 x 1.
    ASSERT_EQ(bars.pieces.size(), 3u);
    ASSERT_EQ(bars.remainders.size(), 2u);
    std::map<double, Colour> colourOf;
    std::set<std::vector<uint8_t>> colours;
    for (const auto& pieces : bars.pieces) {
        ASSERT_EQ(pieces.size(), 2u);
        EXPECT_EQ(pieces[0]->x, 0);
        EXPECT_EQ(pieces[1]->x, pieces[0]->width);
        for (const DiagramBox* piece : pieces) {
            const auto [at, added] = colourOf.emplace(piece->width, piece->colour);
            EXPECT_EQ(at->second, piece->colour) << "one length, one colour";
            colours.insert({piece->colour.red, piece->colour.green, piece->colour.blue});
        }
    }
    EXPECT_EQ(colours.size(), 4u) << "four lengths, four colours";
    const double scale = bars.pieces[0][0]->width / 7.5;
    EXPECT_NEAR(bars.remainders[0]->width, 0.4 * scale, 1e-9);
    EXPECT_NEAR(bars.pieces[0][1]->x + bars.pieces[0][1]->width, 12 * scale, 1e-9);
    // A label on a piece reads: its ink stands far from the fill in brightness.
    const auto brightness = [](Colour c) {
        return 0.299 * c.red + 0.587 * c.green + 0.114 * c.blue;
    };
    int labels = 0;
    for (const DiagramBand& band : diagram.bands) {
        for (const DiagramText& text : band.texts) {
            for (const DiagramBox& box : band.boxes) {
                if (box.shade == Shade::Piece && box.x == text.x && box.width == text.width) {
                    EXPECT_GT(std::abs(brightness(text.colour) - brightness(box.colour)), 100);
                    ++labels;
                }
            }
        }
    }
    EXPECT_EQ(labels, 6);
    for (const char* text : {"x 20", "x 24", "x 1", "rest 0.4", "1", "7.5", "Standard length 12"}) {
        EXPECT_NE(std::count(bars.texts.begin(), bars.texts.end(), text), 0) << text;
    }
}

TEST(DiagramLayout, PiecesTooNarrowToDrawAreOneBlockWithTheirCount) {
    const Diagram diagram = Pressed({{"9999", ""}}, {{"0.5", "19998"}});
    const Bars bars = BarsOf(diagram);
    ASSERT_EQ(bars.pieces.size(), 1u);
    ASSERT_EQ(bars.pieces[0].size(), 1u);
    EXPECT_EQ(bars.pieces[0][0]->shade, Shade::PieceRun);
    EXPECT_NE(std::count(bars.texts.begin(), bars.texts.end(), "19998 x 0.5"), 0);
}

TEST(DiagramLayout, FortyLengthsGetFortyColoursAndLengthsLoseTrailingZeros) {
    std::set<std::vector<uint8_t>> colours;
    for (std::size_t rank = 0; rank < MaxCutLengths; ++rank) {
        const Colour colour = PieceColour(rank);
        colours.insert({colour.red, colour.green, colour.blue});
    }
    EXPECT_EQ(colours.size(), static_cast<std::size_t>(MaxCutLengths));
    EXPECT_EQ(LengthText(210), "210");
    EXPECT_EQ(LengthText(0.8), "0.8");
    EXPECT_EQ(LengthText(1.65), "1.65");
    EXPECT_EQ(LengthText(99999.9), "99999.9");
}

}  // namespace
}  // namespace brennik
