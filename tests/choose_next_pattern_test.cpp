#include "engine/choose_next_pattern.h"

#include <gtest/gtest.h>

namespace brennik {
namespace {

using Cuts = std::vector<std::pair<float, int32_t>>;

TEST(ChooseNextPattern, LeastWasteInMethodBLowestRateInMethodAEarlierRowOnATie) {
    const Cuts feet = {{9.3f, 5}, {7.3f, 5}, {6.3f, 5}, {3.4f, 5}, {2.4f, 5}};
    const struct {
        std::vector<float> bars, prices;
        Cuts cuts;
        bool methodA;
        float chosen, waste;
        int32_t count;
    } cases[] = {
        // Both Methods prefer the bar without waste, which here is also the cheaper rate.
        {{6, 5.4f}, {20, 18}, {{5.4f, 3}, {0.55f, 1}}, false, 2, 0, 3},
        {{6, 5.4f}, {20, 18}, {{5.4f, 3}, {0.55f, 1}}, true, 2, 0, 3},
        // Both rows fill exactly: B keeps the first, A takes the lower rate.
        {{20, 18}, {21, 17.5f}, feet, false, 1, 0, 5},
        {{20, 18}, {21, 17.5f}, feet, true, 2, 0, 5},
        // Equal rates go to the first row.
        {{6, 5.4f}, {20, 18}, {{5.4f, 2}, {0.6f, 2}}, true, 1, 0, 2},
        // A takes the waste of the row that it chose, not the least waste.
        {{20, 10}, {30, 9}, {{9, 4}, {2, 1}}, true, 2, 1, 4},
        {{6}, {}, {{4.3f, 11}, {1.65f, 11}}, false, 1, 0.05f, 11},
        // A bar near the entry limit wastes more than the marker of a row without a pattern,
        // and its rate is far above the rate marker; it is still chosen.
        {{99999.9f}, {}, {{1, 1}}, false, 1, 99998.9f, 1},
        {{99999.9f}, {99999.9f}, {{0.01f, 1}}, true, 1, 99999.89f, 1},
        // No row has a pattern.
        {{5, 4}, {}, {{6, 1}}, false, 0, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE("case " + std::to_string(&c - cases));
        Module1 m;
        for (std::size_t r = 0; r < c.bars.size(); ++r) {
            m.StdLength(static_cast<int>(r + 1)) = c.bars[r];
            m.StdPrice(static_cast<int>(r + 1)) = r < c.prices.size() ? c.prices[r] : 0.0f;
        }
        m.SeqLength = m.StdLength;
        m.SeqPrice = m.StdPrice;
        m.CutCount = static_cast<int16_t>(c.cuts.size());
        for (std::size_t i = 0; i < c.cuts.size(); ++i) {
            m.CutLength(static_cast<int>(i + 1)) = c.cuts[i].first;
            m.CutQty(static_cast<int>(i + 1)) = c.cuts[i].second;
        }
        m.MethodA = ToFlag(c.methodA);
        m.MethodB = ToFlag(!c.methodA);
        ChooseNextPattern(m);
        EXPECT_EQ(m.ChosenBars, c.count);
        if (c.count > 0) {
            EXPECT_EQ(m.ChosenStd, c.chosen);
            EXPECT_EQ(m.ChosenWaste, c.waste);
        }
    }
}

}  // namespace
}  // namespace brennik
