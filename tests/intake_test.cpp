#include "state/intake.h"

#include <gtest/gtest.h>

#include <string>

#include "surface/memory_surface.h"

namespace brennik {
namespace {

const char* const kUnacceptable = " Unacceptable Entry !.";
const char* const kTooLong = " This length exceeds the longest standard length !.";

void EnterCut(MemorySurface& surface, int row, const char* length, const char* quantity) {
    surface.SetText({Ctl::txtL, row}, length);
    surface.SetText({Ctl::txtN, row}, quantity);
}

TEST(ReadEntries, WritesAcceptedValuesBackInNormalFormAndDropsBadStandardRowsInSilence) {
    // A half goes to the even digit. Beyond the limits or without a number, a standard row goes
    // whole, a price alone.
    const std::pair<const char*, const char*> stock[] = {{"6.126", ".8"},    {"99999.9", " 2.125"},
                                                         {"99999.91", "30"}, {"0.001", "30"},
                                                         {"1", "100000"},    {"1", "abc"}};
    MemorySurface surface;
    for (int r = 1; r <= MaxStdLengths; ++r) {
        surface.SetText({Ctl::txtSL, r}, stock[r - 1].first);
        surface.SetText({Ctl::txtSP, r}, stock[r - 1].second);
    }
    EnterCut(surface, 1, "2.5", "3.9");
    EnterCut(surface, 2, "99999.9", "99999.9");
    Module1 m;
    ReadEntries(m, surface);
    EXPECT_EQ(m.EntryError, kFalse);
    EXPECT_EQ(m.StdLength(1), 6.13f);
    EXPECT_EQ(m.StdPrice(2), 2.12f);
    EXPECT_EQ(m.CutQty(1), 3);
    EXPECT_EQ(m.CutLength(2), EntryLimit);
    EXPECT_EQ(m.CutQty(2), MaxQuantity);
    const std::vector<std::pair<Control, std::string>> shown = {
        {{Ctl::txtSL, 1}, "6.13"}, {{Ctl::txtSP, 1}, "0.8"}, {{Ctl::txtSL, 2}, "99999.9"},
        {{Ctl::txtSL, 3}, ""},     {{Ctl::txtSP, 3}, ""},    {{Ctl::txtSL, 4}, ""},
        {{Ctl::txtSL, 5}, "1"},    {{Ctl::txtSP, 5}, ""},    {{Ctl::txtSP, 6}, ""},
        {{Ctl::txtN, 1}, "3"},     {{Ctl::txtLong}, ""}};
    for (const auto& [box, text] : shown) {
        EXPECT_EQ(surface.Text(box), text) << ControlName(box);
    }
    EXPECT_EQ(m.StdLength(3), 0.0f);
    EXPECT_EQ(m.StdPrice(3), 0.0f);
    EXPECT_EQ(m.StdPrice(6), 0.0f);
}

TEST(ReadEntries, RefusesTheFirstCuttingRowThatCannotBeCut) {
    const std::pair<const char*, const char*> cases[] = {
        {"100000", "1"}, {"99999.91", "1"}, {"-1", "2"}, {"0.001", "3"}, {"2", "100000"},
        {"2", "-1"},     {"2", "0.5"},      {"2", ""},   {"", "3"},      {"abc", "-0.5"},
    };
    for (const auto& [length, quantity] : cases) {
        SCOPED_TRACE(std::string(length) + " / " + quantity);
        MemorySurface surface;
        surface.SetText({Ctl::txtSL, 1}, "6");
        EnterCut(surface, 1, "2", "4");
        EnterCut(surface, 2, length, quantity);
        EnterCut(surface, 3, "-3", "5");
        Module1 m;
        ReadEntries(m, surface);
        EXPECT_EQ(m.EntryError, kTrue);
        EXPECT_EQ(surface.State({Ctl::txtLong}).text, kUnacceptable);
        EXPECT_EQ(surface.State({Ctl::txtLong}).back, White);
        EXPECT_EQ(surface.State({Ctl::txtLong}).fore, Red);
        EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Red);
        EXPECT_EQ(surface.State({Ctl::txtN, 2}).fore, Red);
        EXPECT_EQ(surface.Focus(), (Control{Ctl::txtL, 2}));
        EXPECT_EQ(surface.Text({Ctl::txtL, 2}), length) << "the bad row keeps its text";
        EXPECT_EQ(surface.State({Ctl::txtL, 3}).fore, Black) << "rows below are not read";
        EXPECT_EQ(m.CutQty(1), 4);

        surface.SetText({Ctl::txtL, 2}, "3");
        surface.SetText({Ctl::txtN, 2}, "7");
        ReadEntries(m, surface);  // mended, the next bad row is told
        EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Black);
        EXPECT_EQ(surface.State({Ctl::txtL, 3}).fore, Red);
        EXPECT_EQ(surface.Focus(), (Control{Ctl::txtL, 3}));
    }
}

TEST(CheckCutLengths, TellsTheFirstRowThatFitsNoStandardLength) {
    MemorySurface surface;
    Module1 m;
    m.StdLength(1) = 5;
    m.StdLength(3) = 6;  // rows without a length are passed over
    m.CutLength(1) = 6;  // equal to the longest
    m.CutLength(2) = 6.01f;
    m.CutLength(3) = 9;
    CheckCutLengths(m, surface);
    EXPECT_EQ(m.LengthError, kTrue);
    EXPECT_EQ(surface.State({Ctl::txtLong}).text, kTooLong);
    EXPECT_EQ(surface.State({Ctl::txtLong}).back, White);
    EXPECT_EQ(surface.State({Ctl::txtLong}).fore, Red);
    EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Red);
    EXPECT_EQ(surface.State({Ctl::txtL, 3}).fore, Black) << "not reached";

    m.CutLength(2) = 2;
    m.CutLength(3) = 0;
    CheckCutLengths(m, surface);
    EXPECT_EQ(m.LengthError, kFalse);
    EXPECT_EQ(surface.State({Ctl::txtLong}).text, "");
    EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Black);
}

}  // namespace
}  // namespace brennik
