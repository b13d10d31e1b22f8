#include "engine/find_best_pattern.h"

#include <gtest/gtest.h>

#include <random>

#include "pattern_oracle.h"

namespace brennik {
namespace {

// A block holding the cutting list (longest first, as ordered) and the Method.
Module1 ListOf(std::vector<std::pair<float, int32_t>> cuts, bool methodA = false) {
    Module1 m;
    m.CutCount = static_cast<int16_t>(cuts.size());
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        m.CutLength(static_cast<int>(i + 1)) = cuts[i].first;
        m.CutQty(static_cast<int>(i + 1)) = cuts[i].second;
    }
    m.MethodA = ToFlag(methodA);
    return m;
}

std::vector<int32_t> PiecesOf(const Module1& m, int row) {
    std::vector<int32_t> pieces;
    for (int i = 1; i <= m.CutCount; ++i) {
        pieces.push_back(m.PatternPieces(row, i));
    }
    return pieces;
}

using Pieces = std::vector<int32_t>;

TEST(Scale100, GivesTheNearestWholeNumberOfHundredths) {
    EXPECT_EQ(Scale100(1234.56f), 123456.0f);
    EXPECT_EQ(Scale100(8.1f), 810.0f);
    EXPECT_EQ(Scale100(16.2f), 1620.0f);
    EXPECT_EQ(Scale100(99999.9f), 9999990.0f);
    EXPECT_EQ(Scale100(0.01f), 1.0f);
    EXPECT_EQ(Scale100(0.0f), 0.0f);
}

TEST(FindBestPattern, LongestRemainingLengthIsAlwaysInThePattern) {
    Module1 m = ListOf({{7.5f, 20}, {6.5f, 25}, {5.1f, 24}, {4.5f, 21}});
    FindBestPattern(m, 12, 12, m.CutLength, m.CutQty, 1);
    EXPECT_EQ(PiecesOf(m, 1), (Pieces{1, 0, 0, 1}));
    EXPECT_EQ(m.PatternBars(1), 20);
    EXPECT_EQ(m.RankMat(1, 1), 0.0f);
    EXPECT_EQ(m.RankMat(1, 2), 1.0f);
    EXPECT_EQ(m.EngineStd, 1);
}

TEST(FindBestPattern, ExhaustedLengthPassesTheMinimumOn) {
    Module1 m = ListOf({{7.5f, 0}, {6.5f, 25}, {5.1f, 24}, {4.5f, 1}});
    FindBestPattern(m, 12, 12, m.CutLength, m.CutQty, 2);
    EXPECT_EQ(PiecesOf(m, 2), (Pieces{0, 1, 1, 0}));
    EXPECT_EQ(m.PatternBars(2), 24);
    EXPECT_EQ(m.RankMat(2, 1), 0.4f);
}

TEST(FindBestPattern, BarExactlyAsLongAsTheFirstLength) {
    Module1 m = ListOf({{5.4f, 3}, {4.3f, 9}, {1.1f, 9}});
    FindBestPattern(m, 5.4f, 18, m.CutLength, m.CutQty, 1);
    EXPECT_EQ(PiecesOf(m, 1), (Pieces{1, 0, 0}));
    EXPECT_EQ(m.RankMat(1, 1), 0.0f);
    EXPECT_EQ(m.PatternBars(1), 3);
}

TEST(FindBestPattern, EqualWastesKeepTheFirstPatternVisited) {
    Module1 m = ListOf({{6, 100}, {4, 100}, {3, 100}, {2, 100}});
    FindBestPattern(m, 12, 0, m.CutLength, m.CutQty, 1);
    EXPECT_EQ(PiecesOf(m, 1), (Pieces{2, 0, 0, 0}));
    EXPECT_EQ(m.PatternBars(1), 50);
}

TEST(FindBestPattern, CountsNeverExceedWhatIsLeft) {
    Module1 m = ListOf({{1.3f, 1}});
    FindBestPattern(m, 5.2f, 0, m.CutLength, m.CutQty, 1);
    EXPECT_EQ(PiecesOf(m, 1), (Pieces{1}));
    EXPECT_FLOAT_EQ(m.RankMat(1, 1), 3.9f);

    Module1 seven = ListOf({{1, 7}});
    FindBestPattern(seven, 3, 0, seven.CutLength, seven.CutQty, 1);
    EXPECT_EQ(PiecesOf(seven, 1), (Pieces{3}));
    EXPECT_EQ(seven.PatternBars(1), 2);
}

TEST(FindBestPattern, TwoRowsOfOneLengthAreTwoLengths) {
    Module1 m = ListOf({{3, 2}, {3, 5}});
    FindBestPattern(m, 10, 0, m.CutLength, m.CutQty, 1);
    EXPECT_EQ(PiecesOf(m, 1), (Pieces{2, 1}));
    EXPECT_EQ(m.PatternBars(1), 1);
}

TEST(FindBestPattern, TwoPiecesOfEightPointOneFillABarOfSixteenPointTwo) {
    Module1 m = ListOf({{8.1f, 4}});
    FindBestPattern(m, 16.2f, 0, m.CutLength, m.CutQty, 1);
    EXPECT_EQ(PiecesOf(m, 1), (Pieces{2}));
    EXPECT_EQ(m.RankMat(1, 1), 0.0f);
}

TEST(FindBestPattern, RowsWithoutAPatternAreMarked) {
    Module1 m = ListOf({{6, 1}, {1, 5}}, true);
    FindBestPattern(m, 5, 10, m.CutLength, m.CutQty, 3);  // too short for the first length
    EXPECT_EQ(PiecesOf(m, 3), (Pieces{0, 0}));
    EXPECT_EQ(m.PatternBars(3), 0);
    EXPECT_EQ(m.RankMat(3, 1), NoPatternWaste);
    EXPECT_EQ(m.RankMon(3, 1), NoPatternRate);
    EXPECT_EQ(m.RankMon(3, 2), 3.0f);

    FindBestPattern(m, 0, 0, m.CutLength, m.CutQty, 4);  // an empty row, marked twice
    EXPECT_EQ(m.RankMat(4, 1), NoPatternWaste);
    EXPECT_EQ(m.RankMon(4, 1), NoPatternRate);
    EXPECT_EQ(m.PatternBars(4), 0);
}

TEST(FindBestPattern, MoneyFigureIsPricePerLengthPutToUse) {
    Module1 m = ListOf({{5.4f, 1}, {0.55f, 1}}, true);
    FindBestPattern(m, 6, 20, m.CutLength, m.CutQty, 1);
    EXPECT_EQ(m.RankMon(1, 1), 2000.0f / 595.0f);
    EXPECT_FLOAT_EQ(m.RankMat(1, 1), 0.05f);

    // Bars without waste at the same price per length give the same f32 figure.
    Module1 even = ListOf({{5.4f, 1}, {0.6f, 1}}, true);
    FindBestPattern(even, 6, 20, even.CutLength, even.CutQty, 1);
    FindBestPattern(even, 5.4f, 18, even.CutLength, even.CutQty, 2);
    EXPECT_EQ(even.RankMon(1, 1), even.RankMon(2, 1));

    // A pattern without a price cannot be ranked by money.
    FindBestPattern(even, 6, 0, even.CutLength, even.CutQty, 3);
    EXPECT_EQ(even.RankMon(3, 1), NoPatternRate);
    EXPECT_EQ(even.PatternBars(3), 0);
    EXPECT_EQ(even.RankMat(3, 1), 0.0f);
}

TEST(FindBestPattern, HugeCountsInALongBarAreExact) {
    // 99999 pieces of 0.01 need a count far beyond 16 bits.
    Module1 m = ListOf({{0.01f, 99999}});
    FindBestPattern(m, 99999.9f, 0, m.CutLength, m.CutQty, 1);
    EXPECT_EQ(PiecesOf(m, 1), (Pieces{99999}));
    EXPECT_EQ(m.PatternBars(1), 1);
    EXPECT_FLOAT_EQ(m.RankMat(1, 1), 99999.9f - 999.99f);
}

// Random problems with two-decimal lengths, checked call by call against the complete
// enumeration: the whole state a pass goes through, not only its first step.
void CheckAgainstTheCompleteEnumeration() {
    std::mt19937 random(20261122);
    auto uniform = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    int callsChecked = 0;
    int problem = 0;
    while (problem < 2000) {
        const int cuts = uniform(1, 8);
        const bool methodA = uniform(0, 1) == 1;
        // Bar lengths in hundredths with a chosen grain, so that exact and near fills both occur.
        const int grain = std::vector<int>{1, 5, 10, 25, 50, 100}[uniform(0, 5)];
        std::vector<float> bars;
        for (int r = 0; r < 3; ++r) {
            bars.push_back(static_cast<float>(uniform(200, 1500) / grain * grain) / 100.0f);
        }
        std::vector<std::pair<float, int32_t>> list;
        double combinations = 1;
        for (int i = 0; i < cuts; ++i) {
            const int hundredths = std::max(grain, uniform(40, 1200) / grain * grain);
            const int32_t quantity = uniform(1, 12);
            list.emplace_back(static_cast<float>(hundredths) / 100.0f, quantity);
            combinations *= std::min<double>(quantity, 1500.0 / hundredths) + 1;
        }
        if (combinations > 3e5) {
            continue;
        }
        ++problem;
        std::sort(list.begin(), list.end(),
                  [](const auto& a, const auto& b) { return a.first > b.first; });
        Module1 m = ListOf(list, methodA);

        // Walk the list down by taking random patterns away, checking every state on the way.
        while (true) {
            std::vector<float> lengths;
            std::vector<int32_t> quantities;
            int32_t left = 0;
            for (int i = 1; i <= m.CutCount; ++i) {
                lengths.push_back(m.CutLength(i));
                quantities.push_back(m.CutQty(i));
                left += m.CutQty(i);
            }
            if (left == 0) {
                break;
            }
            for (int r = 1; r <= 3; ++r) {
                const float price = static_cast<float>(uniform(0, 3000)) / 100.0f;
                for (int i = 1; i <= m.CutCount; ++i) {
                    m.PatternPieces(r, i) = 0;
                }
                FindBestPattern(m, bars[r - 1], price, m.CutLength, m.CutQty,
                                static_cast<uint8_t>(r));
                const testing::OraclePattern expected = testing::OracleFindBestPattern(
                    bars[r - 1], price, lengths, quantities, methodA);
                ASSERT_EQ(PiecesOf(m, r), expected.pieces) << "problem " << problem;
                ASSERT_EQ(testing::OracleFindBestPattern(bars[r - 1], price, lengths, quantities,
                                                         methodA, true)
                              .pieces,
                          expected.pieces)
                    << "the plain walk's two cuts change nothing";
                ASSERT_EQ(m.PatternBars(r), expected.bars) << "problem " << problem;
                ASSERT_EQ(m.RankMat(r, 1), expected.rankMat) << "problem " << problem;
                if (methodA) {
                    ASSERT_EQ(m.RankMon(r, 1), expected.rankMon) << "problem " << problem;
                }
                ++callsChecked;
            }
            const int take = uniform(1, m.CutCount);
            m.CutQty(take) = std::max(0, m.CutQty(take) - uniform(1, 6));
        }
    }
    EXPECT_GT(callsChecked, 20000);
}

TEST(FindBestPattern, AgreesWithTheCompleteEnumerationOnRandomProblems) {
    ForgetPatterns();
    CheckAgainstTheCompleteEnumeration();
}

TEST(FindBestPattern, TableOfReachableSumsAgreesWithTheCompleteEnumeration) {
    SetWalkBudget(0);  // every search answered by the table
    ForgetPatterns();
    CheckAgainstTheCompleteEnumeration();
    SetWalkBudget(-1);
    ForgetPatterns();
}

}  // namespace
}  // namespace brennik
