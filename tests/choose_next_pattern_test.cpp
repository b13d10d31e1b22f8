#include "engine/choose_next_pattern.h"

#include <gtest/gtest.h>

namespace brennik {
namespace {

// A block ready for a cutting step: sequence, prices, ordered list and Method.
Module1 StepOf(std::vector<float> bars, std::vector<float> prices,
               std::vector<std::pair<float, int32_t>> cuts, bool methodA) {
    Module1 m;
    for (std::size_t r = 0; r < bars.size(); ++r) {
        m.StdLength(static_cast<int>(r + 1)) = bars[r];
        m.StdPrice(static_cast<int>(r + 1)) = r < prices.size() ? prices[r] : 0.0f;
    }
    m.SeqLength = m.StdLength;
    m.SeqPrice = m.StdPrice;
    m.CutCount = static_cast<int16_t>(cuts.size());
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        m.CutLength(static_cast<int>(i + 1)) = cuts[i].first;
        m.CutQty(static_cast<int>(i + 1)) = cuts[i].second;
    }
    m.MethodA = ToFlag(methodA);
    m.MethodB = ToFlag(!methodA);
    return m;
}

TEST(ChooseNextPattern, BothMethodsPreferTheBarWithoutWasteAndTheLowerRate) {
    for (bool methodA : {false, true}) {
        Module1 m = StepOf({6, 5.4f}, {20, 18}, {{5.4f, 3}, {0.55f, 1}}, methodA);
        ChooseNextPattern(m);
        EXPECT_EQ(m.ChosenStd, 2.0f) << "Method A: " << methodA;
        EXPECT_EQ(m.ChosenWaste, 0.0f);
        EXPECT_EQ(m.ChosenBars, 3);
        EXPECT_EQ(m.PatternPieces(1, 1), 1);
        EXPECT_EQ(m.PatternPieces(1, 2), 1);
    }
}

TEST(ChooseNextPattern, RowOrderBreaksTiesInMethodBAndRatesDecideInMethodA) {
    const std::vector<std::pair<float, int32_t>> cuts = {
        {9.3f, 5}, {7.3f, 5}, {6.3f, 5}, {3.4f, 5}, {2.4f, 5}};
    Module1 b = StepOf({20, 18}, {21, 17.5f}, cuts, false);
    ChooseNextPattern(b);
    EXPECT_EQ(b.ChosenStd, 1.0f);

    Module1 a = StepOf({20, 18}, {21, 17.5f}, cuts, true);
    ChooseNextPattern(a);
    EXPECT_EQ(a.ChosenStd, 2.0f);
    EXPECT_EQ(a.ChosenWaste, 0.0f);
    EXPECT_EQ(a.PatternPieces(2, 1), 1);
    EXPECT_EQ(a.PatternPieces(2, 3), 1);
    EXPECT_EQ(a.PatternPieces(2, 5), 1);
    EXPECT_FLOAT_EQ(a.RankMon(1, 1), 0.9722222f);
}

TEST(ChooseNextPattern, EqualRatesGoToTheRowThatStandsFirst) {
    Module1 m = StepOf({6, 5.4f}, {20, 18}, {{5.4f, 2}, {0.6f, 2}}, true);
    ChooseNextPattern(m);
    EXPECT_EQ(m.ChosenStd, 1.0f);
    EXPECT_EQ(m.RankMon(1, 1), m.RankMon(2, 1));
}

TEST(ChooseNextPattern, MethodATakesTheWasteOfTheRowItChose) {
    // Row 1 (20 at 30) fills exactly; row 2 (10 at 9) wastes 1 but is cheaper per length used.
    Module1 m = StepOf({20, 10}, {30, 9}, {{9, 4}, {2, 1}}, true);
    ChooseNextPattern(m);
    EXPECT_EQ(m.ChosenStd, 2.0f);
    EXPECT_EQ(m.ChosenWaste, 1.0f);
    EXPECT_EQ(m.ChosenBars, 4);
}

TEST(ChooseNextPattern, SingleStandardLengthIsChosenEveryTime) {
    Module1 m = StepOf({12}, {12}, {{7.5f, 20}, {4.5f, 21}}, false);
    ChooseNextPattern(m);
    EXPECT_EQ(m.ChosenStd, 1.0f);
    for (int r = 2; r <= MaxStdLengths; ++r) {
        EXPECT_EQ(m.RankMat(r, 1), NoPatternWaste);
        EXPECT_EQ(m.PatternBars(r), 0);
    }
}

TEST(ChooseNextPattern, ChosenWasteIsRoundedToTwoDecimals) {
    Module1 m = StepOf({6}, {}, {{4.3f, 11}, {1.65f, 11}}, false);
    ChooseNextPattern(m);
    EXPECT_EQ(m.ChosenWaste, 0.05f);
    EXPECT_EQ(m.ChosenBars, 11);
}

TEST(ChooseNextPattern, RowsWithoutPatternRankLastEvenAboveTheMarkers) {
    // A bar near the entry limit wastes more than the marker value of an empty row.
    Module1 m = StepOf({99999.9f}, {}, {{1, 1}}, false);
    ChooseNextPattern(m);
    EXPECT_EQ(m.ChosenStd, 1.0f);
    EXPECT_EQ(m.ChosenBars, 1);
    EXPECT_FLOAT_EQ(m.ChosenWaste, 99998.9f);

    Module1 a = StepOf({99999.9f}, {99999.9f}, {{0.01f, 1}}, true);
    ChooseNextPattern(a);  // a rate of 9999990 per length used, far above the marker
    EXPECT_EQ(a.ChosenStd, 1.0f);
    EXPECT_EQ(a.ChosenBars, 1);
}

TEST(ChooseNextPattern, NoRowWithAPatternGivesNoBars) {
    Module1 m = StepOf({5, 4}, {}, {{6, 1}}, false);
    ChooseNextPattern(m);
    EXPECT_EQ(m.ChosenBars, 0);
}

}  // namespace
}  // namespace brennik
