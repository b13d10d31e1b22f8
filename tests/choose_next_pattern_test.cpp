#include "engine/choose_next_pattern.h"

#include <gtest/gtest.h>

#include "press_fixture.h"

namespace brennik {
namespace {

TEST(ChooseNextPattern, LeastWasteInMethodBLowestRateInMethodAEarlierRowOnATie) {
    const std::vector<testing::Cut> feet = {{9.3, 5}, {7.3, 5}, {6.3, 5}, {3.4, 5}, {2.4, 5}};
    const struct {
        testing::Problem problem;
        float chosen, waste;
        int32_t count;
    } cases[] = {
        // Both Methods prefer the bar without waste, which here is also the cheaper rate.
        {{{6, 5.4}, {20, 18}, {{5.4, 3}, {0.55, 1}}, false}, 2, 0, 3},
        {{{6, 5.4}, {20, 18}, {{5.4, 3}, {0.55, 1}}, true}, 2, 0, 3},
        // Both rows fill exactly: B keeps the first, A takes the lower rate.
        {{{20, 18}, {21, 17.5}, feet, false}, 1, 0, 5},
        {{{20, 18}, {21, 17.5}, feet, true}, 2, 0, 5},
        // Equal rates go to the first row.
        {{{6, 5.4}, {20, 18}, {{5.4, 2}, {0.6, 2}}, true}, 1, 0, 2},
        // A takes the waste of the row that it chose, not the least waste.
        {{{20, 10}, {30, 9}, {{9, 4}, {2, 1}}, true}, 2, 1, 4},
        {{{6}, {}, {{4.3, 11}, {1.65, 11}}, false}, 1, 0.05f, 11},
        // A bar near the entry limit wastes more than the marker of a row without a pattern,
        // and its rate is far above the rate marker; it is still chosen.
        {{{99999.9}, {}, {{1, 1}}, false}, 1, 99998.9f, 1},
        {{{99999.9}, {99999.9}, {{0.01, 1}}, true}, 1, 99999.89f, 1},
        // No row has a pattern.
        {{{5, 4}, {}, {{6, 1}}, false}, 0, 0, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE("case " + std::to_string(&c - cases));
        Module1 m = testing::LoadProblem(c.problem);
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
