// Whole presses with the engine and with the plain complete enumeration in its place: every
// pattern must be the plain walk's, ties included, so every last.sol and status are the same.
#include <gtest/gtest.h>

#include "engine/find_best_pattern.h"
#include "plain_pattern_search.h"
#include "press_fixture.h"
#include "problem_families.h"

namespace brennik {
namespace {

// The report and the status after one Advanced press.
std::pair<std::string, std::string> PressOnce(const bench::ProblemText& problem, bool methodB,
                                              bool wasteSummary) {
    testing::Bench bench;
    bench.Press(problem.stock, problem.cuts, {methodB, true, wasteSummary});
    return {bench.Read("last.sol"), bench.Status()};
}

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
