// The passes of a search worked out ahead, sharing the steps they have in common, against each
// pass run on its own: in every arrangement the outcome must be the same, field by field. The
// problems are made for ties, which is where arrangements part ways.
#include "engine/passes_ahead.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "engine/cutting_pass.h"
#include "engine/pass_bound.h"
#include "press_fixture.h"

namespace brennik {
namespace {

// Few distinct bars, some twice, priced in proportion to their length or not at all, and
// lengths in quarters: many patterns fill a bar exactly, so rows tie on waste and on rate.
testing::Problem TiedProblem(std::mt19937& random, bool methodA) {
    const double bars[] = {6, 6, 3, 4.5, 12, 7.5, 9};
    auto pick = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    testing::Problem problem{{}, {}, {}, methodA};
    const bool priced = methodA || pick(0, 1) == 1;
    for (int r = pick(2, 6); r > 0; --r) {
        const double length = bars[pick(0, 6)];
        problem.stdLengths.push_back(length);
        if (priced) {
            problem.prices.push_back(pick(0, 3) == 0 ? pick(5, 40) : 2 * length);
        }
    }
    for (int i = pick(2, 9); i > 0; --i) {
        problem.cuts.push_back({0.25 * pick(2, 12), pick(1, 40)});
    }
    return problem;
}

// Every order of the standard rows, the rows past them staying in place.
std::vector<Arrangement> EveryOrder(const Module1& m) {
    std::vector<Arrangement> arrangements;
    Arrangement order = StartingOrder();
    do {
        arrangements.push_back(order);
    } while (std::next_permutation(order.begin(), order.begin() + m.StdCount));
    return arrangements;
}

// Given the first pass's figure to beat, a pass stops early only where its bound, which no step
// of the pass on its own ever exceeds, shows that its end cannot beat the least figure of those
// before it. The other passes, and every pass without a figure to beat, end as on their own.
TEST(PassesAhead, EveryPassEndsAsOnItsOwnOrStopsWhereItCannotBeatThePassesBeforeIt) {
    std::mt19937 random(20261123);
    int problemsWithDifferentOutcomes = 0;
    int beaten = 0;
    for (int k = 0; k < 300; ++k) {
        const Module1 m = testing::LoadProblem(TiedProblem(random, k % 2 == 0));
        SCOPED_TRACE("problem " + std::to_string(k));
        const std::vector<Arrangement> arrangements = EveryOrder(m);
        PassesAhead shared(m, arrangements);
        const PassBound bound(m);
        std::vector<PassOutcome> alone;
        for (const Arrangement& arrangement : arrangements) {
            Module1 work = m;
            StartPass(work, m, arrangement);
            alone.push_back(FinishPass(work));
            StartPass(work, m, arrangement);
            do {
                ASSERT_LE(bound.Least(PassProgress::Of(work)), alone.back().progress.Figure(m));
            } while (work.PiecesLeft > 0 && CutNextStep(work));
        }
        double toBeat = alone[0].progress.Figure(m);
        PassesAhead stopping(m, arrangements, toBeat);
        bool outcomesDiffer = false;
        for (std::size_t a = 0; a < arrangements.size(); ++a) {
            ASSERT_TRUE(shared.Of(arrangements[a]) == alone[a]);
            outcomesDiffer |= !(alone[a].progress == alone[0].progress);
            const PassOutcome& outcome = stopping.Of(arrangements[a]);
            const double figure = alone[a].progress.Figure(m);
            if (outcome.beaten) {
                ++beaten;
                EXPECT_LT(a + 1, arrangements.size()) << "the last pass stopped early";
                EXPECT_GE(figure, toBeat);
                EXPECT_GE(bound.Least(outcome.progress), toBeat);
            } else {
                EXPECT_TRUE(outcome == alone[a]);
            }
            toBeat = std::min(toBeat, figure);
        }
        problemsWithDifferentOutcomes += outcomesDiffer;
    }
    EXPECT_GT(problemsWithDifferentOutcomes, 30) << "the problems should make arrangements differ";
    EXPECT_GT(beaten, 100) << "the problems should let passes stop early";
}

}  // namespace
}  // namespace brennik
