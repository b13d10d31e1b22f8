#include "run/results_panel.h"

#include <gtest/gtest.h>

#include "surface/memory_surface.h"

namespace brennik {
namespace {

TEST(RefreshResults, ShowsTheStepRightAlignedMoneyOnlyWhenAllPricedAndTotalsAloneInTheSearch) {
    for (const bool priced : {true, false}) {
        for (const bool searching : {false, true}) {
            Module1 m;
            m.MethodB = kTrue;
            m.AllPriced = ToFlag(priced);
            m.Advanced = ToFlag(searching);
            m.SeqStep = searching ? 31 : 0;
            m.ChosenStd = 2;
            m.BarsUsedB(2) = 186;
            m.TotalMatWasteB = 12.5;
            m.MatWastePctB = 1234.56;  // wider than its field: the leftmost characters go
            m.TotalCostB = 6128.8;
            m.PercentCut = 50;
            MemorySurface surface;
            RefreshResults(m, surface);
            EXPECT_EQ(surface.Text({Ctl::Text5, 1}), "        12.5");
            EXPECT_EQ(surface.Text({Ctl::Text5, 2}), "234.56");
            EXPECT_EQ(surface.Text({Ctl::Text6}), priced ? "          6128.8" : "");
            EXPECT_EQ(surface.Text({Ctl::txtMat, 2}), searching ? "" : "     186");
            EXPECT_EQ(surface.Text({Ctl::txtMat, 1}), "") << "only the row just cut changes";
            // The line of the method grows from its centre, halves cut down.
            EXPECT_EQ(surface.State({Ctl::Line4}).x1, searching ? 7200 : 7763);
            EXPECT_EQ(surface.State({Ctl::Line4}).x2, searching ? 9390 : 8827);
            // Every control is repainted right after it is written.
            const auto& events = surface.Events();
            ASSERT_EQ(events.size() % 2, 0u);
            for (std::size_t k = 0; k < events.size(); k += 2) {
                EXPECT_EQ(events[k + 1].op, SurfaceOp::Refresh);
                EXPECT_EQ(events[k + 1].control, events[k].control);
            }
        }
    }
}

}  // namespace
}  // namespace brennik
