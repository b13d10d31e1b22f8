#include "state/intake.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <string>
#include <vector>

#include "shell/memory_surface.h"

namespace brennik {
namespace {

const char* const kUnacceptable = " Unacceptable Entry !.";
const char* const kTooLong = " This length exceeds the longest standard length !.";

void EnterCut(MemorySurface& surface, int row, const char* length, const char* quantity) {
    surface.SetText({Ctl::txtL, row}, length);
    surface.SetText({Ctl::txtN, row}, quantity);
}

// Each event as one line of text, so that a sequence compares at a glance.
std::vector<std::string> EventLines(const MemorySurface& surface) {
    std::vector<std::string> lines;
    for (const SurfaceEvent& e : surface.Events()) {
        std::string line = ControlName(e.control);
        switch (e.op) {
            case SurfaceOp::SetText:
                line += " = '" + e.text + "'";
                break;
            case SurfaceOp::SetForeColor:
                line += e.colour == Red ? " fore red" : " fore black";
                break;
            case SurfaceOp::SetBackColor:
                line += e.colour == White ? " back white" : " back other";
                break;
            case SurfaceOp::SetFocus:
                line += " focus";
                break;
            default:
                line += " other";
        }
        lines.push_back(line);
    }
    return lines;
}

TEST(ReadEntries, WritesAcceptedValuesBackInNormalForm) {
    MemorySurface surface;
    surface.SetText({Ctl::txtSL, 1}, "6.126");
    surface.SetText({Ctl::txtSP, 1}, ".8");
    surface.SetText({Ctl::txtSL, 2}, "99999.9");
    surface.SetText({Ctl::txtSP, 2}, " 2.125");  // a half goes to the even digit
    EnterCut(surface, 1, "2.5", "3.9");
    EnterCut(surface, 2, "99999.9", "99999.9");
    Module1 m;
    ReadEntries(m, surface);

    EXPECT_EQ(m.EntryError, kFalse);
    EXPECT_EQ(m.StdLength(1), 6.13f);
    EXPECT_EQ(surface.Text({Ctl::txtSL, 1}), "6.13");
    EXPECT_EQ(surface.Text({Ctl::txtSP, 1}), "0.8");
    EXPECT_EQ(surface.Text({Ctl::txtSL, 2}), "99999.9");
    EXPECT_EQ(m.StdPrice(2), 2.12f);
    EXPECT_EQ(m.CutQty(1), 3);
    EXPECT_EQ(surface.Text({Ctl::txtN, 1}), "3");
    EXPECT_EQ(m.CutLength(2), EntryLimit);
    EXPECT_EQ(surface.Text({Ctl::txtL, 2}), "99999.9");
    EXPECT_EQ(m.CutQty(2), MaxQuantity);
    EXPECT_EQ(surface.Text({Ctl::txtLong}), "");
}

TEST(ReadEntries, DropsABadStandardRowOrPriceInSilence) {
    const char* const badValues[] = {"100000", "99999.91", "1e39", "-5", "0", "abc", "", "0.001"};
    for (const char* bad : badValues) {
        MemorySurface surface;
        surface.SetText({Ctl::txtSL, 1}, bad);
        surface.SetText({Ctl::txtSP, 1}, "30");
        surface.SetText({Ctl::txtSL, 2}, "6");
        surface.SetText({Ctl::txtSP, 2}, bad);
        Module1 m;
        ReadEntries(m, surface);
        EXPECT_EQ(m.StdLength(1), 0.0f) << bad;
        EXPECT_EQ(m.StdPrice(1), 0.0f) << bad;
        EXPECT_EQ(surface.Text({Ctl::txtSL, 1}), "") << bad;
        EXPECT_EQ(surface.Text({Ctl::txtSP, 1}), "") << bad;
        EXPECT_EQ(m.StdLength(2), 6.0f) << bad;
        EXPECT_EQ(m.StdPrice(2), 0.0f) << bad;
        EXPECT_EQ(surface.Text({Ctl::txtSP, 2}), "") << bad;
        EXPECT_EQ(m.EntryError, kFalse) << bad;
        EXPECT_EQ(surface.Text({Ctl::txtLong}), "") << bad;
    }
}

TEST(ReadEntries, RefusesACuttingRowThatCannotBeCut) {
    const struct {
        const char* length;
        const char* quantity;
    } cases[] = {
        {"100000", "1"}, {"99999.91", "1"}, {"1e39", "1"}, {"-1", "2"},
        {"2", "100000"}, {"2", "-1"},       {"2", "1e10"}, {"2.5", "0.5"},
        {"0.001", "3"},  {"2", ""},         {"", "3"},     {"abc", "-0.5"},
    };
    for (const auto& c : cases) {
        MemorySurface surface;
        surface.SetText({Ctl::txtSL, 1}, "6");
        EnterCut(surface, 1, "2", "4");
        EnterCut(surface, 2, c.length, c.quantity);
        EnterCut(surface, 3, "1.234", "5");
        surface.SetForeColor({Ctl::txtL, 3}, Red);
        Module1 m;
        ReadEntries(m, surface);

        const std::string label = std::string(c.length) + " / " + c.quantity;
        EXPECT_EQ(m.EntryError, kTrue) << label;
        EXPECT_EQ(surface.State({Ctl::txtLong}).text, kUnacceptable) << label;
        EXPECT_EQ(surface.State({Ctl::txtLong}).back, White) << label;
        EXPECT_EQ(surface.State({Ctl::txtLong}).fore, Red) << label;
        EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Red) << label;
        EXPECT_EQ(surface.State({Ctl::txtN, 2}).fore, Red) << label;
        EXPECT_EQ(surface.Focus(), (Control{Ctl::txtL, 2})) << label;
        // The bad row keeps its text; the rows below it are not read and keep text and colour.
        EXPECT_EQ(surface.Text({Ctl::txtL, 2}), c.length) << label;
        EXPECT_EQ(surface.Text({Ctl::txtL, 3}), "1.234") << label;
        EXPECT_EQ(surface.State({Ctl::txtL, 3}).fore, Red) << label;
        EXPECT_EQ(m.CutLength(3), 0.0f) << label;
        EXPECT_EQ(m.CutQty(1), 4) << label;
    }
}

TEST(ReadEntries, KeepsTheValuesOfTheRefusedRowHeldWithinTheirFields) {
    MemorySurface surface;
    EnterCut(surface, 1, "1e39", "1e10");
    Module1 m;
    ReadEntries(m, surface);
    EXPECT_EQ(m.CutLength(1), FLT_MAX);
    EXPECT_EQ(m.CutQty(1), INT32_MAX);
    EnterCut(surface, 1, "-1e39", "-1e10");
    ReadEntries(m, surface);
    EXPECT_EQ(m.CutLength(1), -FLT_MAX);
    EXPECT_EQ(m.CutQty(1), INT32_MIN);
}

TEST(ReadEntries, EmptiesACuttingRowWithNothingToCutInSilence) {
    const struct {
        const char* length;
        const char* quantity;
    } cases[] = {{"0.001", ""}, {"abc", "xyz"}, {"0", "0.9"}, {"  ", ""}};
    for (const auto& c : cases) {
        MemorySurface surface;
        EnterCut(surface, 1, c.length, c.quantity);
        EnterCut(surface, 2, "3", "1");
        Module1 m;
        ReadEntries(m, surface);
        EXPECT_EQ(m.EntryError, kFalse) << c.length;
        EXPECT_EQ(surface.Text({Ctl::txtL, 1}), "") << c.length;
        EXPECT_EQ(surface.Text({Ctl::txtN, 1}), "") << c.length;
        EXPECT_EQ(m.CutLength(2), 3.0f) << c.length;
    }
}

TEST(ReadEntries, TellsOnlyTheUpperOfTwoBadRowsAndTheLowerAfterMending) {
    MemorySurface surface;
    surface.SetText({Ctl::txtSL, 1}, "6");
    EnterCut(surface, 1, "2", "1");
    EnterCut(surface, 2, "2", "0");
    EnterCut(surface, 4, "-3", "1");
    Module1 m;
    ReadEntries(m, surface);
    EXPECT_EQ(surface.Focus(), (Control{Ctl::txtL, 2}));
    EXPECT_EQ(surface.State({Ctl::txtL, 4}).fore, Black);

    surface.SetText({Ctl::txtN, 2}, "7");
    ReadEntries(m, surface);
    EXPECT_EQ(m.EntryError, kTrue);
    EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Black);
    EXPECT_EQ(surface.State({Ctl::txtL, 4}).fore, Red);
    EXPECT_EQ(surface.Focus(), (Control{Ctl::txtL, 4}));
    EXPECT_EQ(m.CutQty(2), 7);

    surface.SetText({Ctl::txtL, 4}, "3");
    ReadEntries(m, surface);
    EXPECT_EQ(m.EntryError, kFalse);
    EXPECT_EQ(surface.State({Ctl::txtL, 4}).fore, Black);
    EXPECT_EQ(surface.State({Ctl::txtN, 4}).fore, Black);
    EXPECT_EQ(surface.State({Ctl::txtLong}).text, "");
    EXPECT_EQ(surface.State({Ctl::txtLong}).fore, Black);
}

TEST(ReadEntries, WritesTheBoxesInTheOrderOfItsSteps) {
    MemorySurface surface;
    surface.SetText({Ctl::txtSL, 1}, "6");
    surface.SetText({Ctl::txtSL, 2}, "100000");
    surface.SetText({Ctl::txtSP, 2}, "5");
    EnterCut(surface, 1, "2", "3");
    EnterCut(surface, 2, "2", "");
    surface.ClearEvents();
    Module1 m;
    ReadEntries(m, surface);

    std::vector<std::string> expected = {"txtSL(1) = '6'", "txtSP(1) = ''"};
    // A refused or empty standard row empties its price box twice: with its length, then as a
    // price of 0.
    for (int row = 2; row <= MaxStdLengths; ++row) {
        const std::string r = std::to_string(row);
        expected.insert(expected.end(), {"txtSL(" + r + ") = ''", "txtSP(" + r + ") = ''",
                                         "txtSP(" + r + ") = ''"});
    }
    const auto resetCutRow = [&expected](const std::string& r) {
        expected.insert(expected.end(),
                        {"txtLong fore black", "txtLong = ''", "txtL(" + r + ") fore black",
                         "txtN(" + r + ") fore black"});
    };
    resetCutRow("1");
    expected.insert(expected.end(), {"txtL(1) = '2'", "txtN(1) = '3'"});
    resetCutRow("2");
    expected.insert(expected.end(), {"txtLong back white", "txtLong fore red",
                                     std::string("txtLong = '") + kUnacceptable + "'",
                                     "txtL(2) fore red", "txtN(2) fore red", "txtL(2) focus"});
    EXPECT_EQ(EventLines(surface), expected);
}

TEST(CheckCutLengths, PassesALengthThatSomeStandardLengthHolds) {
    MemorySurface surface;
    surface.SetText({Ctl::txtLong}, kTooLong);
    surface.SetForeColor({Ctl::txtLong}, Red);
    surface.SetForeColor({Ctl::txtL, 3}, Red);
    Module1 m;
    m.StdLength(1) = 5;
    m.StdLength(3) = 7;  // rows without a length are passed over
    m.CutLength(1) = 7;  // equal to the longest
    m.CutLength(2) = 6.5f;
    CheckCutLengths(m, surface);
    EXPECT_EQ(m.LengthError, kFalse);
    EXPECT_EQ(surface.State({Ctl::txtLong}).text, "");
    EXPECT_EQ(surface.State({Ctl::txtLong}).fore, Black);
    EXPECT_EQ(surface.State({Ctl::txtL, 3}).fore, Black);
}

TEST(CheckCutLengths, TellsTheFirstRowThatFitsNoStandardLength) {
    MemorySurface surface;
    surface.SetForeColor({Ctl::txtN, 2}, Red);
    surface.SetForeColor({Ctl::txtL, 3}, Red);
    surface.SetFocus({Ctl::txtL, 1});
    Module1 m;
    m.StdLength(2) = 6;
    m.CutLength(1) = 6;
    m.CutLength(2) = 6.01f;
    m.CutLength(3) = 9;
    CheckCutLengths(m, surface);
    EXPECT_EQ(m.LengthError, kTrue);
    EXPECT_EQ(surface.State({Ctl::txtLong}).text, kTooLong);
    EXPECT_EQ(surface.State({Ctl::txtLong}).back, White);
    EXPECT_EQ(surface.State({Ctl::txtLong}).fore, Red);
    EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Red);
    EXPECT_EQ(surface.State({Ctl::txtN, 2}).fore, Red);  // kept, not set
    EXPECT_EQ(surface.State({Ctl::txtL, 3}).fore, Red);  // not reached
    EXPECT_EQ(surface.Focus(), (Control{Ctl::txtL, 1}));
}

TEST(CheckCutLengths, WithoutStandardLengths) {
    MemorySurface surface;
    Module1 m;
    CheckCutLengths(m, surface);
    EXPECT_EQ(m.LengthError, kTrue);  // neither kind of length: no message, the flag stays set
    EXPECT_EQ(surface.State({Ctl::txtLong}).text, "");

    m.CutLength(3) = 1;  // the empty rows above it pass, as nothing has been entered yet
    CheckCutLengths(m, surface);
    EXPECT_EQ(m.LengthError, kTrue);
    EXPECT_EQ(surface.State({Ctl::txtLong}).text, kTooLong);
    EXPECT_EQ(surface.State({Ctl::txtL, 2}).fore, Black);
    EXPECT_EQ(surface.State({Ctl::txtL, 3}).fore, Red);
}

TEST(ShowStdEntries, WritesTheRowsAndEmptiesTheBarsOfTheMethodInUse) {
    for (const bool methodA : {true, false}) {
        MemorySurface surface;
        for (int row = 1; row <= MaxStdLengths; ++row) {
            surface.SetText({Ctl::txtMon, row}, "4");
            surface.SetText({Ctl::txtMat, row}, "5");
            surface.SetText({Ctl::txtSP, row}, "9");
        }
        Module1 m;
        m.MethodA = ToFlag(methodA);
        m.MethodB = ToFlag(!methodA);
        m.StdLength(1) = 6.1f;
        m.StdPrice(1) = 0.8f;
        m.StdLength(2) = 5;
        surface.ClearEvents();
        ShowStdEntries(m, surface);

        const Ctl emptied = methodA ? Ctl::txtMon : Ctl::txtMat;
        const Ctl kept = methodA ? Ctl::txtMat : Ctl::txtMon;
        EXPECT_EQ(surface.Text({emptied, 6}), "");
        EXPECT_EQ(surface.Text({kept, 6}), methodA ? "5" : "4");
        EXPECT_EQ(surface.Events()[1].op, SurfaceOp::Refresh);
        EXPECT_EQ(surface.Events()[1].control, (Control{emptied, 1}));
        EXPECT_EQ(surface.Text({Ctl::txtSL, 1}), "6.1");
        EXPECT_EQ(surface.Text({Ctl::txtSP, 1}), "0.8");
        EXPECT_EQ(surface.Text({Ctl::txtSP, 2}), "");
        EXPECT_EQ(surface.Text({Ctl::txtSL, 3}), "");
    }
}

}  // namespace
}  // namespace brennik
