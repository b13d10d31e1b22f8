#include "engine/cutting_pass.h"

#include <gtest/gtest.h>

#include "press_fixture.h"

namespace brennik {
namespace {

// The example of the manual's chapter on exploring the solution, step by step.
TEST(CuttingPass, BarOfTwelveTakesThreeStepsInMethodA) {
    Module1 m =
        testing::LoadProblem({{12}, {12}, {{7.5, 20}, {4.5, 21}, {5.1, 24}, {6.5, 25}}, true});
    const std::vector<testing::Step> steps = {{12, 20, {{7.5f, 1}, {4.5f, 1}}, 0},
                                              {12, 24, {{6.5f, 1}, {5.1f, 1}}, 0.4f},
                                              {12, 1, {{6.5f, 1}, {4.5f, 1}}, 1}};
    EXPECT_EQ(testing::RunWholePass(m), steps);
    EXPECT_EQ((std::vector<double>{m.TotalLengthA, m.TotalCostA, m.TotalMatWasteA, m.MatWastePctA,
                                   m.TotalMonWasteA, m.MonWastePctA}),
              (std::vector<double>{540, 540, 10.6, 1.96, 10.6, 1.96}));
    EXPECT_EQ(std::tuple(m.BarsUsedA(1), m.PiecesLeft, m.PercentCut), std::tuple(45.0f, 0, 100.0f));
    EXPECT_EQ(m.TotalCostB, 0.0) << "Method B's totals stay untouched";
}

TEST(CuttingPass, PassStopsWhenNoRowHasAPatternAndShowsThePercentCutRoundedDown) {
    // The intake never lets a length longer than every bar through; the pass must still end.
    Module1 m = testing::LoadProblem({{5}, {}, {{6, 2}, {1, 3}}});
    EXPECT_TRUE(testing::RunWholePass(m).empty());
    EXPECT_EQ(m.PiecesLeft, 5);
    m.PercentCut = 33.3f;
    MemorySurface surface;
    ShowPercentCut(m, surface);
    EXPECT_EQ(surface.State({Ctl::cmdHelpTip}).caption, " 33 %");
    EXPECT_EQ(surface.State({Ctl::ProgressBar1}).progress, 33.3f);
}

}  // namespace
}  // namespace brennik
