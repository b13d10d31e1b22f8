#include "optimise/cheaper_plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <map>
#include <numeric>
#include <random>

#include "optimise/bar_filling.h"
#include "plain_bound.h"

namespace brennik {
namespace {

// A small random problem: 1 to 3 bars, 1 to 3 lengths, 1 to 4 pieces of each.
CuttingProblem SmallProblem(std::mt19937& random, Objective objective) {
    const auto between = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    std::vector<StockLength> stock;
    for (int s = between(1, 3); s > 0; --s) {
        const int length = between(40, 120);
        stock.push_back(Stock(static_cast<float>(length) / 10,
                              static_cast<float>(length + between(-9, 30)) / 10));
    }
    std::vector<WantedPiece> pieces;
    for (int j = between(1, 3); j > 0; --j) {
        pieces.push_back(Piece(static_cast<float>(between(10, 40)) / 10, between(1, 4)));
    }
    return MakeProblem(stock, pieces, objective);
}

// The least figure of any whole plan, by trying every pattern on every demand still open.
int64_t LeastWholeFigure(const CuttingProblem& problem, const testing::Patterns& patterns) {
    const bool cost = problem.objective == Objective::Cost;
    std::map<std::vector<int64_t>, int64_t> known = {
        {std::vector<int64_t>(problem.pieces.size(), 0), 0}};
    const std::function<int64_t(const std::vector<int64_t>&)> least =
        [&](const std::vector<int64_t>& demand) -> int64_t {
        if (const auto it = known.find(demand); it != known.end()) {
            return it->second;
        }
        int64_t best = INT64_MAX;
        for (const auto& [s, pieces] : patterns) {
            std::vector<int64_t> rest = demand;
            for (std::size_t j = 0; j < rest.size(); ++j) {
                rest[j] = std::max<int64_t>(0, rest[j] - pieces[j]);
            }
            if (rest != demand) {
                const StockLength& bar = problem.stock[s];
                best = std::min(best, (cost ? bar.price100 : bar.length100) + least(rest));
            }
        }
        return known[demand] = best;
    };
    std::vector<int64_t> demand;
    for (const WantedPiece& piece : problem.pieces) {
        demand.push_back(piece.quantity);
    }
    return least(demand);
}

// Each length cut on its own from the first bar it fits: full bars, then one bar of the rest.
Plan EachLengthAlone(const CuttingProblem& problem) {
    Plan plan;
    for (std::size_t j = 0; j < problem.pieces.size(); ++j) {
        const WantedPiece& piece = problem.pieces[j];
        int s = 0;
        while (problem.stock[s].length100 < piece.length100) {
            ++s;
        }
        const int64_t fits = std::min(piece.quantity, problem.stock[s].length100 / piece.length100);
        PlanLine line{s, piece.quantity / fits, std::vector<int64_t>(problem.pieces.size(), 0)};
        line.pieces[j] = fits;
        plan.push_back(line);
        if (piece.quantity % fits != 0) {
            line.bars = 1;
            line.pieces[j] = piece.quantity % fits;
            plan.push_back(line);
        }
    }
    return plan;
}

TEST(LeastFigures, AreTheRelaxationsOptimumAndBelowEveryWholePlan) {
    std::mt19937 random(20261123);
    int worse = 0;  // plans above the best whole plan
    for (int round = 0; round < 150; ++round) {
        const Objective objective = round % 2 == 0 ? Objective::Cost : Objective::Material;
        const CuttingProblem problem = SmallProblem(random, objective);
        SCOPED_TRACE("problem " + std::to_string(round));
        const Plan start = EachLengthAlone(problem);
        ASSERT_TRUE(CutsExactly(problem, start));
        const PlanSearchOutcome outcome = SearchCheaperPlan(problem, start, {});
        ASSERT_TRUE(outcome.boundProven);
        ASSERT_TRUE(outcome.leastCost && outcome.leastMaterial);

        const testing::Patterns patterns = testing::EveryPattern(problem);
        for (const Objective figure : {Objective::Cost, Objective::Material}) {
            const bool cost = figure == Objective::Cost;
            EXPECT_NEAR(cost ? *outcome.leastCost : *outcome.leastMaterial,
                        testing::SolvePlainLp(problem, figure, patterns).value, 0.005 + 1e-9);
            // No pattern of all there are lowers the relaxation at its final prices.
            const std::vector<double>& duals = cost ? outcome.costDuals : outcome.materialDuals;
            for (const auto& [s, pieces] : patterns) {
                const double value =
                    std::inner_product(pieces.begin(), pieces.end(), duals.begin(), 0.0);
                const double bar = testing::PlainBarFigure(problem, figure, s);
                EXPECT_GE(bar - value, -1e-9 * bar - 1e-9);
            }
        }
        const auto whole = static_cast<double>(LeastWholeFigure(problem, patterns)) / 100;
        EXPECT_LE(*LeastMethodFigure(problem, outcome), whole + 0.005);
        EXPECT_TRUE(CutsExactly(problem, outcome.plan));
        EXPECT_FALSE(Better(problem, start, outcome.plan));
        // Within a bar of the dearest length of the best whole plan.
        double dearest = 0;
        for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
            dearest = std::max(dearest, testing::PlainBarFigure(problem, objective, s));
        }
        EXPECT_LE(MethodFigure(problem, outcome.plan), whole + dearest + 1e-9);
        worse += MethodFigure(problem, outcome.plan) > whole + 1e-9;
    }
    EXPECT_LE(worse, 5);
}

TEST(CheaperPlan, GivesBackThePlanToBeatWhenNothingBeatsItOrOnACancel) {
    const CuttingProblem problem =
        MakeProblem({Stock(12, 12)}, {Piece(6, 4), Piece(4, 3)}, Objective::Cost);
    const Plan best = {{0, 2, {2, 0}}, {0, 1, {0, 3}}};
    const PlanSearchOutcome outcome = SearchCheaperPlan(problem, best, {});
    EXPECT_EQ(outcome.plan, best);
    EXPECT_FALSE(outcome.improved);
    EXPECT_EQ(outcome.leastCost, 36.0);

    std::mt19937 random(7);
    const CuttingProblem small = SmallProblem(random, Objective::Material);
    const Plan start = EachLengthAlone(small);
    const std::atomic<bool> cancel{true};
    const PlanSearchOutcome cancelled = SearchCheaperPlan(small, start, {10, &cancel, true});
    EXPECT_TRUE(cancelled.cancelled);
    EXPECT_TRUE(cancelled.stoppedEarly);
    EXPECT_EQ(cancelled.plan, start);
}

// 40 lengths near 150, 99999 of each, on the longest bars there may be: the relaxation's
// pricing then fills bars of ten million hundredths. The search ends at its limit with an exact
// plan and says whether its least figures are proven.
TEST(CheaperPlan, TheWorstAdmissibleProblemEndsWithAnExactPlan) {
    std::vector<StockLength> stock;
    for (float length : {99999.9f, 88888.8f, 77777.7f, 66666.6f, 55555.5f, 99999.8f}) {
        stock.push_back(Stock(length, length / 100));
    }
    std::vector<WantedPiece> pieces;
    for (int j = 0; j < 40; ++j) {
        pieces.push_back(Piece(149.01f + static_cast<float>(j) * 0.37f, 99999));
    }
    for (const Objective objective : {Objective::Cost, Objective::Material}) {
        const CuttingProblem problem = MakeProblem(stock, pieces, objective);
        const Plan start = EachLengthAlone(problem);
        const PlanSearchOutcome outcome = SearchCheaperPlan(problem, start, {1.0, nullptr, true});
        EXPECT_TRUE(CutsExactly(problem, outcome.plan));
        EXPECT_FALSE(Better(problem, start, outcome.plan));
        const std::optional<double> least = LeastMethodFigure(problem, outcome);
        ASSERT_TRUE(least);
        EXPECT_LE(*least, MethodFigure(problem, outcome.plan) + 0.005);
    }
}

TEST(CuttingPlan, SurplusPiecesComeOutOfTheBarsThatHeldThem) {
    const CuttingProblem problem =
        MakeProblem({Stock(10, 10)}, {Piece(3, 7), Piece(1, 2)}, Objective::Cost);
    // 3 bars of 3 x 3 and 1 x 1 hold 9 and 3: two 3s and one 1 too many.
    EXPECT_EQ(TrimmedToQuantities(problem, {{0, 3, {3, 1}}}),
              (Plan{{0, 2, {3, 1}}, {0, 1, {1, 0}}}));
    // A bar left with nothing is not bought.
    EXPECT_EQ(TrimmedToQuantities(problem, {{0, 3, {3, 1}}, {0, 1, {0, 1}}, {0, 1, {3, 0}}}),
              (Plan{{0, 2, {3, 1}}, {0, 1, {1, 0}}}));
}

// FillBar's two routes against every filling there is, with and without a threshold, and cut short.
TEST(FillBar, FindsTheMostValuableFillingOrSaysHowHighOneCouldBe) {
    std::mt19937 random(11);
    const Deadline none(60, nullptr);
    const int64_t budget = 1'000'000;  // nodes, ample for these bars
    for (int round = 0; round < 300; ++round) {
        const auto between = [&random](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(random);
        };
        std::vector<BarItem> items;
        std::vector<WantedPiece> pieces;  // the items as pieces to cut, to list every filling
        for (int k = between(1, 5); k > 0; --k) {
            items.push_back({between(3, 40), between(1, 6), between(1, 100) / 7.0});
            pieces.push_back({0, items.back().length, items.back().most});
        }
        const int64_t capacity = between(10, 120);
        // The worth of a filling, which must fit the bar.
        const auto worth = [&](const std::vector<int64_t>& counts) {
            double value = 0;
            int64_t length = 0;
            for (std::size_t k = 0; k < items.size(); ++k) {
                EXPECT_LE(counts[k], items[k].most);
                value += static_cast<double>(counts[k]) * items[k].value;
                length += counts[k] * items[k].length;
            }
            EXPECT_LE(length, capacity);
            return value;
        };
        double best = 0;  // the empty filling's
        for (const auto& pattern :
             testing::EveryPattern(MakeProblem({{0, 0, capacity, 0}}, pieces, Objective::Cost))) {
            best = std::max(best, worth(pattern.second));
        }
        for (const BarFilling& filling : {FillBarBySearch(items, capacity, 0, none, budget),
                                          FillBarByTable(items, capacity, 0)}) {
            EXPECT_TRUE(filling.complete);
            EXPECT_NEAR(filling.value, best, 1e-9);
            EXPECT_NEAR(worth(filling.counts), filling.value, 1e-9);
            for (const std::vector<int64_t>& beaten : filling.runnersUp) {
                EXPECT_LE(worth(beaten), best + 1e-9);
            }
        }
        const BarFilling above = FillBarBySearch(items, capacity, best, none, budget);
        EXPECT_LE(above.value, best + 1e-9);
        EXPECT_GE(above.upperBound, best - 1e-9);
        EXPECT_GE(FillBarBySearch(items, capacity, 0, none, 0).upperBound, best - 1e-9);
    }
}

}  // namespace
}  // namespace brennik
