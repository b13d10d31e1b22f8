#include "engine/find_best_pattern.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

#include "plain_pattern_search.h"
#include "press_fixture.h"
#include "problem_families.h"

namespace brennik {
namespace {

using Cuts = std::vector<std::pair<float, int32_t>>;
using Pieces = std::vector<int32_t>;
using Found = std::tuple<Pieces, int32_t, float, float>;  // pieces, bars, waste, rate

// A block holding the cutting list and the Method.
Module1 ListOf(const Cuts& cuts, bool methodA) {
    Module1 m;
    m.CutCount = static_cast<int16_t>(cuts.size());
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        m.CutLength(static_cast<int>(i + 1)) = cuts[i].first;
        m.CutQty(static_cast<int>(i + 1)) = cuts[i].second;
    }
    m.MethodA = ToFlag(methodA);
    return m;
}

// What a search wrote into row `row`; the rate is 0 in Method B, where none is written.
Found Search(decltype(&FindBestPattern) search, Module1& m, float bar, float price, int row) {
    m.PatternPieces.Fill(0);
    m.RankMon.Fill(0);
    search(m, bar, price, m.CutLength, m.CutQty, static_cast<uint8_t>(row));
    Pieces pieces;
    for (int i = 1; i <= m.CutCount; ++i) {
        pieces.push_back(m.PatternPieces(row, i));
    }
    return {pieces, m.PatternBars(row), m.RankMat(row, 1), m.RankMon(row, 1)};
}

// Hand-worked searches, which the plain enumeration must give too.
TEST(FindBestPattern, WorkedCasesAndTheirEdges) {
    const struct {
        float bar, price;
        Cuts cuts;
        bool methodA;
        Found found;
    } cases[] = {
        // The longest length with pieces left is always in, even where a pattern without it
        // would waste less; an exhausted one passes that on.
        {10, 0, {{7, 1}, {5, 2}}, false, {{1, 0}, 1, 3, 0}},
        {12, 12, {{7.5f, 20}, {6.5f, 25}, {5.1f, 24}, {4.5f, 21}}, false, {{1, 0, 0, 1}, 20, 0, 0}},
        {12, 12, {{7.5f, 0}, {6.5f, 25}, {5.1f, 24}}, false, {{0, 1, 1}, 24, 0.4f, 0}},
        // Of equal wastes the first pattern visited, most pieces of the first length, is kept.
        {12, 0, {{6, 100}, {4, 100}, {3, 100}, {2, 100}}, false, {{2, 0, 0, 0}, 50, 0, 0}},
        {10, 0, {{3, 2}, {3, 5}}, false, {{2, 1}, 1, 1, 0}},
        {99999.9f, 0, {{0.01f, 99999}}, false, {{99999}, 1, 98999.91f, 0}},
        // No pattern: a bar shorter than the first length, an empty row, a row without a price.
        {5, 10, {{6, 1}, {1, 5}}, true, {{0, 0}, 0, NoPatternWaste, NoPatternRate}},
        {0, 0, {{6, 1}, {1, 5}}, true, {{0, 0}, 0, NoPatternWaste, NoPatternRate}},
        {6, 0, {{5.4f, 1}, {0.6f, 1}}, true, {{1, 1}, 0, 0, NoPatternRate}},
        {6, 20, {{5.4f, 1}, {0.55f, 1}}, true, {{1, 1}, 1, 0.05f, 2000.0f / 595.0f}},
    };
    int row = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE("case " + std::to_string(&c - cases));
        row = row % MaxStdLengths + 1;
        Module1 m = ListOf(c.cuts, c.methodA);
        EXPECT_EQ(Search(&FindBestPattern, m, c.bar, c.price, row), c.found);
        EXPECT_EQ(m.EngineStd, row);
        EXPECT_EQ(m.RankMat(row, 2), row);
        EXPECT_EQ(m.RankMon(row, 2), c.methodA ? row : 0);
        EXPECT_EQ(Search(&testing::PlainFindBestPattern, m, c.bar, c.price, row), c.found);
    }
}

// How the random problems are drawn: how many, the shortest bar, the fewest and most lengths, the
// shortest length in hundredths and the most pieces wanted of each; and whether every other
// search is answered by the table, so that the walks between read the table of the one before.
struct Draw {
    int problems = 2000, shortestBar = 200, fewestLengths = 1, mostLengths = 8, shortest = 40,
        mostWanted = 12;
    bool tablesBetween = false;
};

// Random problems with two-decimal lengths, checked call by call against the complete
// enumeration: the whole state a pass goes through, not only its first step.
void CheckAgainstTheCompleteEnumeration(const Draw& draw) {
    std::mt19937 random(20261122);
    auto uniform = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    int callsChecked = 0;
    for (int problem = 0; problem < draw.problems;) {
        // Lengths in hundredths with a chosen grain, so that exact and near fills both occur;
        // half of the lists are offset from the grain, so that every sum of a number of pieces
        // falls in one residue of it, as with lengths in arithmetic progression.
        const int grain = std::vector<int>{1, 5, 10, 25, 50, 100}[uniform(0, 5)];
        const int offset = uniform(0, 1) == 1 ? uniform(0, grain - 1) : 0;
        float bars[3];
        for (float& bar : bars) {
            bar = static_cast<float>(uniform(draw.shortestBar, 1500) / grain * grain) / 100.0f;
        }
        Cuts list;
        double combinations = 1;
        for (int i = uniform(draw.fewestLengths, draw.mostLengths); i > 0; --i) {
            const int hundredths =
                std::max(grain, uniform(draw.shortest, 1200) / grain * grain) + offset;
            list.emplace_back(static_cast<float>(hundredths) / 100.0f, uniform(1, draw.mostWanted));
            combinations *= std::min<double>(list.back().second, 1500.0 / hundredths) + 1;
        }
        if (combinations > 3e5) {
            continue;
        }
        ++problem;
        // The program orders the lengths longest first; the search takes any order.
        if (uniform(0, 3) > 0) {
            std::sort(list.begin(), list.end(), [](auto& a, auto& b) { return a.first > b.first; });
        }
        Module1 m = ListOf(list, uniform(0, 1) == 1);
        // Take random pieces away until none are left, checking every state on the way. Now and
        // then some come back, as when the next pass of a search starts from the whole list.
        for (int32_t left = 1; left > 0;) {
            for (int r = 1; r <= 3; ++r) {
                const float bar = bars[r - 1];
                const float price = static_cast<float>(uniform(0, 3000)) / 100.0f;
                if (draw.tablesBetween) {
                    SetWalkBudget(callsChecked % 2 == 0 ? 0 : -1);
                }
                ASSERT_EQ(Search(&FindBestPattern, m, bar, price, r),
                          Search(&testing::PlainFindBestPattern, m, bar, price, r))
                    << "problem " << problem << ", bar " << bar << ", price " << price;
                ++callsChecked;
            }
            const int take = uniform(1, m.CutCount);
            if (uniform(0, 4) == 0) {
                m.CutQty(take) += uniform(1, 3);
            } else {
                m.CutQty(take) = std::max(0, m.CutQty(take) - uniform(1, 6));
            }
            left = 0;
            for (int i = 1; i <= m.CutCount; ++i) {
                left += m.CutQty(i);
            }
        }
    }
    EXPECT_GT(callsChecked, 10 * draw.problems);
}

// Three runs: searches as the engine makes them, every search answered by the table, and lists
// of ten to twelve lengths, long enough for a walk to read the table of the search before it to
// rule out counts, whose pieces run out between the two searches.
TEST(FindBestPattern, AgreesWithTheCompleteEnumerationOnRandomProblems) {
    const std::pair<int64_t, Draw> runs[] = {{-1, {}},
                                             {0, {}},
                                             {-1,
                                              {.problems = 300,
                                               .shortestBar = 1000,
                                               .fewestLengths = 10,
                                               .mostLengths = 12,
                                               .shortest = 100,
                                               .mostWanted = 2,
                                               .tablesBetween = true}}};
    for (const auto& [walkBudget, draw] : runs) {
        SCOPED_TRACE("walk budget " + std::to_string(walkBudget) +
                     (draw.tablesBetween ? ", tables between" : ""));
        SetWalkBudget(walkBudget);
        ForgetPatterns();
        CheckAgainstTheCompleteEnumeration(draw);
    }
    SetWalkBudget(-1);
    ForgetPatterns();
}

// The report and the status after one Advanced press.
std::pair<std::string, std::string> PressOnce(const bench::ProblemText& problem, bool methodB,
                                              bool wasteSummary) {
    testing::Bench bench;
    bench.Press(problem.stock, problem.cuts, {methodB, true, wasteSummary});
    return {bench.Read("last.sol"), bench.Status()};
}

// Whole presses with the engine and with the plain complete enumeration in its place: every
// pattern must be the plain walk's, ties included, so every last.sol and status are the same.
// With the engine's walks, then with every search answered by the table of reachable sums.
TEST(PressEquivalence, EngineAndPlainWalkGiveTheSameReportsOnEveryFamily) {
    for (const int64_t walkBudget : {-1, 0}) {
        SetWalkBudget(walkBudget);
        int presses = 0;
        for (const bench::Family& family : bench::MakeFamilies(30, 7, {4, 7, 4})) {
            for (std::size_t k = 0; k < family.problems.size(); ++k) {
                for (bool methodB : {false, true}) {
                    SCOPED_TRACE(family.name + " " + std::to_string(k) + (methodB ? " B" : " A") +
                                 ", walk budget " + std::to_string(walkBudget));
                    const bool wasteSummary = k % 2 == 0;
                    const auto fast = PressOnce(family.problems[k], methodB, wasteSummary);
                    testing::PlainSearchInUse walkEverything;
                    ASSERT_FALSE(fast.first.empty());
                    EXPECT_EQ(fast, PressOnce(family.problems[k], methodB, wasteSummary));
                    ++presses;
                }
            }
        }
        EXPECT_EQ(presses, 2 * 30 * 14);  // fourteen generated families
    }
    SetWalkBudget(-1);
}

}  // namespace
}  // namespace brennik
