#include "state/ordering.h"

#include <gtest/gtest.h>

#include "surface/memory_surface.h"

namespace brennik {
namespace {

TEST(Ordering, LongestFirstStableWithPricesQuantitiesAndBarsMovingAlong) {
    Module1 m;
    // A gap and two equal lengths. Each cutting row holds half its bar's length and the price
    // as quantity, the last in the last row, so that both lists sort alike.
    const float lengths[] = {5, 0, 6, 6};
    for (int r = 1; r <= 4; ++r) {
        m.StdLength(r) = lengths[r - 1];
        m.StdPrice(r) = lengths[r - 1] > 0 ? static_cast<float>(r) : 0;
        m.BarsBought(r) = lengths[r - 1] > 0 ? 10 * r : 0;
        m.CutLength(r == 4 ? MaxCutLengths : r) = lengths[r - 1] / 2;
        m.CutQty(r == 4 ? MaxCutLengths : r) = lengths[r - 1] > 0 ? r : 0;
    }
    SortStdLengths(m);
    SortCutLengths(m);
    const float sorted[][3] = {{6, 3, 30}, {6, 4, 40}, {5, 1, 10}, {0, 0, 0}};
    for (int r = 1; r <= 4; ++r) {
        SCOPED_TRACE(r);
        EXPECT_EQ(m.StdLength(r), sorted[r - 1][0]);
        EXPECT_EQ(m.StdPrice(r), sorted[r - 1][1]);
        EXPECT_EQ(m.BarsBought(r), sorted[r - 1][2]);
        EXPECT_EQ(m.CutLength(r), sorted[r - 1][0] / 2);
        EXPECT_EQ(m.CutQty(r), sorted[r - 1][1]);
    }
    EXPECT_EQ(m.MasterCutLength, m.CutLength);
    EXPECT_EQ(m.MasterCutQty, m.CutQty);
}

// Method A needs a price on every standard length; without one the form switches to B.
TEST(ClassifyProblem, CountsUpToTheFirstGapAndSwitchesToMethodBWithoutEveryPrice) {
    const struct {
        std::vector<float> lengths, prices;
        int stdCount, priceCount;
        bool methodA;
    } cases[] = {
        {{6, 5}, {20, 18}, 2, 2, true},
        {{6, 5, 4}, {20, 0, 12}, 3, 2, false},
        {{6, 0, 5}, {2, 0, 3}, 1, 2, false},  // prices count behind the gap, lengths don't
        {{}, {}, 0, 0, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.lengths.size());
        Module1 m;
        for (std::size_t r = 0; r < c.lengths.size(); ++r) {
            m.StdLength(static_cast<int>(r + 1)) = c.lengths[r];
            m.StdPrice(static_cast<int>(r + 1)) = c.prices[r];
            m.CutLength(static_cast<int>(r + 1)) = c.lengths[r];
        }
        MemorySurface surface;
        surface.SetValue({Ctl::Option1}, true);
        ClassifyProblem(m, surface);
        EXPECT_EQ(std::tie(m.StdCount, m.CutCount, m.PriceCount),
                  std::tuple(c.stdCount, c.stdCount, c.priceCount));
        EXPECT_EQ(std::tie(m.AllPriced, m.MethodA, m.MethodB),
                  std::tuple(ToFlag(c.methodA), ToFlag(c.methodA), ToFlag(!c.methodA)));
        EXPECT_EQ(surface.Value({Ctl::Option2}), !c.methodA);
    }
}

}  // namespace
}  // namespace brennik
