#include "optimise/cheaper_plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <iostream>
#include <map>
#include <random>

#include "optimise/bar_filling.h"
#include "plain_bound.h"

namespace brennik {
namespace {

using testing::EveryPatternLp;
using testing::ForEveryPattern;

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
int64_t LeastWholeFigure(const CuttingProblem& problem) {
    std::vector<std::pair<int64_t, std::vector<int64_t>>> patterns;
    ForEveryPattern(problem, [&](int s, const std::vector<int64_t>& pieces) {
        const StockLength& bar = problem.stock[s];
        patterns.emplace_back(problem.objective == Objective::Cost ? bar.price100 : bar.length100,
                              pieces);
    });
    std::map<std::vector<int64_t>, int64_t> known;
    const std::function<int64_t(const std::vector<int64_t>&)> least =
        [&](const std::vector<int64_t>& demand) -> int64_t {
        if (std::all_of(demand.begin(), demand.end(), [](int64_t d) { return d == 0; })) {
            return 0;
        }
        if (const auto it = known.find(demand); it != known.end()) {
            return it->second;
        }
        int64_t best = INT64_MAX;
        for (const auto& [figure, pieces] : patterns) {
            std::vector<int64_t> rest = demand;
            for (std::size_t j = 0; j < rest.size(); ++j) {
                rest[j] = std::max<int64_t>(0, rest[j] - pieces[j]);
            }
            if (rest != demand) {
                best = std::min(best, figure + least(rest));
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

// Each length cut on its own, from the first bar it fits.
Plan EachLengthAlone(const CuttingProblem& problem) {
    Plan plan;
    for (std::size_t j = 0; j < problem.pieces.size(); ++j) {
        for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
            const int64_t fits = problem.stock[s].length100 / problem.pieces[j].length100;
            if (fits > 0) {
                const int64_t pieces = std::min(fits, problem.pieces[j].quantity);
                PlanLine line{s, problem.pieces[j].quantity / pieces,
                              std::vector<int64_t>(problem.pieces.size(), 0)};
                line.pieces[j] = pieces;
                plan.push_back(line);
                if (problem.pieces[j].quantity % pieces != 0) {
                    line.bars = 1;
                    line.pieces[j] = problem.pieces[j].quantity % pieces;
                    plan.push_back(line);
                }
                break;
            }
        }
    }
    return plan;
}

double Figure(const CuttingProblem& problem, const Plan& plan) {
    return static_cast<double>(problem.objective == Objective::Cost ? PlanCost(problem, plan)
                                                                    : PlanMaterial(problem, plan)) /
           100;
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

        for (const Objective figure : {Objective::Cost, Objective::Material}) {
            const double least =
                figure == Objective::Cost ? *outcome.leastCost : *outcome.leastMaterial;
            EXPECT_NEAR(least, EveryPatternLp(problem, figure).value, 0.005 + 1e-9);
            // No pattern of all there are lowers the relaxation at its final prices.
            const std::vector<double>& duals =
                figure == Objective::Cost ? outcome.costDuals : outcome.materialDuals;
            ForEveryPattern(problem, [&](int s, const std::vector<int64_t>& pieces) {
                double value = 0;
                for (std::size_t j = 0; j < pieces.size(); ++j) {
                    value += static_cast<double>(pieces[j]) * duals[j];
                }
                const double bar = testing::PlainBarFigure(problem, figure, s);
                EXPECT_GE(bar - value, -1e-9 * bar - 1e-9);
            });
        }
        const double least =
            objective == Objective::Cost ? *outcome.leastCost : *outcome.leastMaterial;
        const auto whole = static_cast<double>(LeastWholeFigure(problem)) / 100;
        EXPECT_LE(least, whole + 0.005);
        EXPECT_TRUE(CutsExactly(problem, outcome.plan));
        EXPECT_FALSE(Better(problem, start, outcome.plan));
        // Within a bar of the dearest length of the best whole plan.
        double dearest = 0;
        for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
            dearest = std::max(dearest, testing::PlainBarFigure(problem, objective, s));
        }
        EXPECT_LE(Figure(problem, outcome.plan), whole + dearest + 1e-9);
        worse += Figure(problem, outcome.plan) > whole + 1e-9;
    }
    std::cout << worse << " of 150 plans above the best whole plan\n";
    EXPECT_LE(worse, 5);
}

TEST(CheaperPlan, KeepsThePlanToBeatWhenNothingBeatsIt) {
    const CuttingProblem problem =
        MakeProblem({Stock(12, 12)}, {Piece(6, 4), Piece(4, 3)}, Objective::Cost);
    const Plan best = {{0, 2, {2, 0}}, {0, 1, {0, 3}}};
    const PlanSearchOutcome outcome = SearchCheaperPlan(problem, best, {});
    EXPECT_EQ(outcome.plan, best);
    EXPECT_FALSE(outcome.improved);
    EXPECT_EQ(outcome.leastCost, 36.0);
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
        const std::optional<double> least =
            objective == Objective::Cost ? outcome.leastCost : outcome.leastMaterial;
        ASSERT_TRUE(least);
        EXPECT_LE(*least, Figure(problem, outcome.plan) + 0.005);
    }
}

TEST(CheaperPlan, ACancelBeforeTheStartGivesThePlanToBeat) {
    std::mt19937 random(7);
    const CuttingProblem problem = SmallProblem(random, Objective::Material);
    const Plan start = EachLengthAlone(problem);
    const std::atomic<bool> cancel{true};
    const PlanSearchOutcome outcome = SearchCheaperPlan(problem, start, {10, &cancel, true});
    EXPECT_TRUE(outcome.cancelled);
    EXPECT_TRUE(outcome.stoppedEarly);
    EXPECT_EQ(outcome.plan, start);
}

TEST(CuttingPlan, SurplusPiecesComeOutOfTheBarsThatHeldThem) {
    const CuttingProblem problem =
        MakeProblem({Stock(10, 10)}, {Piece(3, 7), Piece(1, 2)}, Objective::Cost);
    // 3 bars of 3 x 3 and 1 x 1 hold 9 and 3: two 3s and one 1 too many.
    const Plan exact = TrimmedToQuantities(problem, {{0, 3, {3, 1}}});
    EXPECT_TRUE(CutsExactly(problem, exact));
    EXPECT_EQ(exact, (Plan{{0, 2, {3, 1}}, {0, 1, {1, 0}}}));
    // A bar left with nothing is not bought.
    EXPECT_EQ(TrimmedToQuantities(problem, {{0, 3, {3, 1}}, {0, 1, {0, 1}}, {0, 1, {3, 0}}}),
              (Plan{{0, 2, {3, 1}}, {0, 1, {1, 0}}}));
}

// Both routes of FillBar against every filling there is, with and without a threshold, and the
// search cut short.
TEST(FillBar, FindsTheMostValuableFillingOrSaysHowHighOneCouldBe) {
    std::mt19937 random(11);
    const Deadline none(60, nullptr);
    const auto search = [&none](const std::vector<BarItem>& items, int64_t capacity,
                                double threshold) {
        return FillBarBySearch(items, capacity, threshold, none, 1'000'000);
    };
    for (int round = 0; round < 300; ++round) {
        const auto between = [&random](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(random);
        };
        std::vector<BarItem> items;
        for (int k = between(1, 5); k > 0; --k) {
            items.push_back({between(3, 40), between(1, 6), between(1, 100) / 7.0});
        }
        const int64_t capacity = between(10, 120);
        double best = 0;
        const std::function<void(std::size_t, int64_t, double)> every =
            [&](std::size_t k, int64_t room, double value) {
                if (k == items.size()) {
                    best = std::max(best, value);
                    return;
                }
                for (int64_t c = 0; c <= items[k].most && c * items[k].length <= room; ++c) {
                    every(k + 1, room - c * items[k].length,
                          value + static_cast<double>(c) * items[k].value);
                }
            };
        every(0, capacity, 0);

        for (const BarFilling& filling :
             {search(items, capacity, 0), FillBarByTable(items, capacity, 0)}) {
            EXPECT_TRUE(filling.complete);
            EXPECT_NEAR(filling.value, best, 1e-9);
            // The best filling and those it beat on the way fit, and are worth what they say.
            std::vector<std::vector<int64_t>> fillings = filling.runnersUp;
            fillings.push_back(filling.counts);
            for (const std::vector<int64_t>& counts : fillings) {
                double worth = 0;
                int64_t length = 0;
                for (std::size_t k = 0; k < items.size(); ++k) {
                    EXPECT_LE(counts[k], items[k].most);
                    worth += static_cast<double>(counts[k]) * items[k].value;
                    length += counts[k] * items[k].length;
                }
                EXPECT_LE(length, capacity);
                EXPECT_LE(worth, best + 1e-9);
                if (&counts == &fillings.back()) {
                    EXPECT_NEAR(worth, filling.value, 1e-9);
                }
            }
        }
        EXPECT_LE(search(items, capacity, best).value, best + 1e-9);
        EXPECT_GE(search(items, capacity, best).upperBound, best - 1e-9);
        const BarFilling cut = FillBarBySearch(items, capacity, 0, none, 0);
        EXPECT_GE(cut.upperBound, best - 1e-9);
    }
}

}  // namespace
}  // namespace brennik
