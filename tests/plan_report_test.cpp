#include "report/plan_report.h"

#include <gtest/gtest.h>

#include <memory>

#include "files/text_lines.h"
#include "optimise/press_plan.h"
#include "press_fixture.h"
#include "problem_families.h"
#include "run/find_press.h"

namespace brennik {
namespace {

using testing::Bench;

// The press's own plan, written as a plan: every line of last.sol again, in its place, but for
// the method's mark, and the same figures in the block.
TEST(PlanReport, ThePlanOfThePressGivesTheReportOfThePress) {
    for (const bench::ProblemText& example : bench::WorkedExamples()) {
        for (const bool methodB : {false, true}) {
            for (const bool extras : {false, true}) {
                Bench bench;
                bench.Type(example.stock, example.cuts);
                bench.surface.SetValue({methodB ? Ctl::Option2 : Ctl::Option1}, true);
                bench.surface.SetValue({Ctl::Check1}, true);
                bench.m.ShowWasteSummary = ToFlag(extras);
                bench.m.ShowReference = ToFlag(extras);
                bench.surface.SetNextInput("Job 7");
                cmdFind_Click(bench.m, bench.platform);
                ASSERT_FALSE(bench.m.EntryError || bench.m.LengthError || bench.m.FileError);

                const CuttingProblem problem = ProblemOfPress(bench.m);
                const Plan press = PlanOfPress(bench.m, problem);
                auto plan = std::make_unique<Module1>(bench.m);
                plan->Advanced = kTrue;
                ASSERT_TRUE(WritePlanReport(*plan, problem, press, bench.files, bench.clock,
                                            "cheaper.sol"));

                std::vector<std::string> expected = SplitLines(bench.Read("last.sol"));
                for (std::string& line : expected) {
                    if (line.starts_with("Method Used    => ")) {
                        line[20] = '+';
                    }
                }
                EXPECT_EQ(SplitLines(bench.Read("cheaper.sol")), expected);
                EXPECT_EQ(plan->TotalCostA, bench.m.TotalCostA);
                EXPECT_EQ(plan->TotalCostB, bench.m.TotalCostB);
                EXPECT_EQ(plan->TotalMatWasteB, bench.m.TotalMatWasteB);
                EXPECT_EQ(plan->BarsBought, bench.m.BarsBought);
                EXPECT_EQ(bench.folder.FileNames(),
                          (std::vector<std::string>{"cheaper.sol", "last.sol"}));
            }
        }
    }
}

}  // namespace
}  // namespace brennik
