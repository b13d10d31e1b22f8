#include "run/results_panel.h"

#include <gtest/gtest.h>

#include "shell/memory_surface.h"

namespace brennik {
namespace {

Module1 MethodBStep(bool allPriced) {
    Module1 m;
    m.MethodB = kTrue;
    m.AllPriced = ToFlag(allPriced);
    m.ChosenStd = 2;
    m.BarsUsedB(2) = 186;
    m.TotalMatWasteB = 12.5;
    m.MatWastePctB = 0.05;
    m.TotalMonWasteB = 3.5;
    m.MonWastePctB = 0.06;
    m.TotalCostB = 6128.8;
    m.PercentCut = 50;
    return m;
}

TEST(RefreshResults, ShowsFiguresWithoutTrailingZerosRightAligned) {
    MemorySurface surface;
    RefreshResults(MethodBStep(true), surface);
    EXPECT_EQ(surface.Text({Ctl::Text5, 1}), "        12.5");
    EXPECT_EQ(surface.Text({Ctl::Text5, 2}), "   .05");
    EXPECT_EQ(surface.Text({Ctl::Text4, 1}), "         3.5");
    EXPECT_EQ(surface.Text({Ctl::Text6}), "          6128.8");
    EXPECT_EQ(surface.Text({Ctl::txtMat, 2}), "     186");
    // Only the row just cut changes.
    EXPECT_EQ(surface.Text({Ctl::txtMat, 1}), "");
}

TEST(RefreshResults, RepaintsEveryControlRightAfterWritingIt) {
    MemorySurface surface;
    RefreshResults(MethodBStep(true), surface);
    const auto& events = surface.Events();
    ASSERT_FALSE(events.empty());
    for (std::size_t k = 0; k < events.size(); k += 2) {
        ASSERT_LT(k + 1, events.size());
        EXPECT_NE(events[k].op, SurfaceOp::Refresh);
        EXPECT_EQ(events[k + 1].op, SurfaceOp::Refresh);
        EXPECT_EQ(events[k + 1].control, events[k].control);
    }
    EXPECT_EQ(events[0].control, (Control{Ctl::Text4, 1}));
}

TEST(RefreshResults, MoneyBoxesStayEmptyWithoutAllPrices) {
    MemorySurface surface;
    RefreshResults(MethodBStep(false), surface);
    EXPECT_EQ(surface.Text({Ctl::Text4, 1}), "");
    EXPECT_EQ(surface.Text({Ctl::Text6}), "");
    EXPECT_EQ(surface.Text({Ctl::Text5, 1}), "        12.5");
}

TEST(RefreshResults, LinesGrowFromTheirCentresCuttingHalvesDown) {
    MemorySurface surface;
    RefreshResults(MethodBStep(false), surface);
    EXPECT_EQ(surface.State({Ctl::Line4}).x1, 7763);
    EXPECT_EQ(surface.State({Ctl::Line4}).x2, 8827);

    Module1 a;
    a.MethodA = kTrue;
    a.ChosenStd = 1;
    a.PercentCut = 50;
    RefreshResults(a, surface);
    EXPECT_EQ(surface.State({Ctl::Line1}).x1, 7770);
    EXPECT_EQ(surface.State({Ctl::Line1}).x2, 8850);
    a.PercentCut = 100;
    RefreshResults(a, surface);
    EXPECT_EQ(surface.State({Ctl::Line1}).x1, 7230);
    EXPECT_EQ(surface.State({Ctl::Line1}).x2, 9390);
}

TEST(RefreshResults, DuringTheSearchOnlyTheTotalsChange) {
    MemorySurface surface;
    Module1 m = MethodBStep(true);
    m.Advanced = kTrue;
    m.SeqStep = 31;
    RefreshResults(m, surface);
    EXPECT_EQ(surface.Text({Ctl::txtMat, 2}), "");
    EXPECT_EQ(surface.State({Ctl::Line4}).x1, 7200);
    EXPECT_EQ(surface.Text({Ctl::Text6}), "          6128.8");
}

TEST(RefreshResults, FigureWiderThanItsFieldLosesItsLeftmostCharacters) {
    MemorySurface surface;
    Module1 m = MethodBStep(true);
    m.MatWastePctB = 1234.56;
    RefreshResults(m, surface);
    EXPECT_EQ(surface.Text({Ctl::Text5, 2}), "234.56");
}

}  // namespace
}  // namespace brennik
