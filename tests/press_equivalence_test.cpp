// Whole presses with the engine and with the plain complete enumeration in its place, report
// for report: every pattern the engine finds must be the pattern the plain walk finds, ties
// included, so every last.sol, status and panel figure must come out the same.
#include <gtest/gtest.h>

#include "engine/find_best_pattern.h"
#include "plain_pattern_search.h"
#include "press_fixture.h"
#include "problem_families.h"
#include "run/find_press.h"

namespace brennik {
namespace {

struct Outcome {
    std::string report;
    std::string status;
    std::vector<std::string> panel;
};

Outcome PressOnce(const bench::ProblemText& problem, bool methodB, bool wasteSummary) {
    testing::Bench bench;
    bench.Type(problem.stock, problem.cuts);
    bench.surface.SetValue({methodB ? Ctl::Option2 : Ctl::Option1}, true);
    bench.surface.SetValue({Ctl::Check1}, true);
    bench.m.ShowWasteSummary = ToFlag(wasteSummary);
    cmdFind_Click(bench.m, bench.platform);
    Outcome outcome{bench.Read("last.sol"), bench.Status(), {}};
    for (Ctl box : {Ctl::txtSL, Ctl::txtMon, Ctl::txtMat}) {
        for (int row = 1; row <= MaxStdLengths; ++row) {
            outcome.panel.push_back(bench.surface.Text({box, row}));
        }
    }
    for (Control box : {Control{Ctl::Text1, 1}, Control{Ctl::Text2, 1}, Control{Ctl::Text3},
                        Control{Ctl::Text4, 1}, Control{Ctl::Text5, 1}, Control{Ctl::Text6}}) {
        outcome.panel.push_back(bench.surface.Text(box));
    }
    return outcome;
}

void CheckEveryFamily() {
    int presses = 0;
    for (const bench::Family& family : bench::MakeFamilies(30, 7, {4, 7, 4})) {
        for (std::size_t k = 0; k < family.problems.size(); ++k) {
            for (bool methodB : {false, true}) {
                SCOPED_TRACE(family.name + " " + std::to_string(k) + (methodB ? " B" : " A"));
                const bool wasteSummary = k % 2 == 0;
                const Outcome fast = PressOnce(family.problems[k], methodB, wasteSummary);
                Outcome plain;
                {
                    testing::PlainSearchInUse walkEverything;
                    plain = PressOnce(family.problems[k], methodB, wasteSummary);
                }
                ASSERT_FALSE(fast.report.empty());
                EXPECT_EQ(fast.report, plain.report);
                EXPECT_EQ(fast.status, plain.status);
                EXPECT_EQ(fast.panel, plain.panel);
                ++presses;
            }
        }
    }
    EXPECT_EQ(presses, 2 * 30 * 8);  // eight generated families
}

TEST(PressEquivalence, EngineAndPlainWalkGiveTheSameReportsOnEveryFamily) {
    CheckEveryFamily();
}

TEST(PressEquivalence, TableOfReachableSumsGivesTheSameReportsToo) {
    SetWalkBudget(0);
    CheckEveryFamily();
    SetWalkBudget(-1);
}

}  // namespace
}  // namespace brennik
