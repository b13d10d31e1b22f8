#include "engine/cutting_pass.h"

#include <gtest/gtest.h>

#include <tuple>

#include "problem_fixture.h"

namespace brennik {
namespace {

using testing::Problem;
using Pieces = std::vector<std::pair<float, int32_t>>;

const Problem BarOfTwelve{{12}, {12}, {{7.5, 20}, {4.5, 21}, {5.1, 24}, {6.5, 25}}, true};

// The example of the manual's chapter on exploring the solution, step by step.
TEST(CuttingPass, BarOfTwelveTakesThreeStepsInMethodA) {
    Module1 m;
    MemorySurface surface;
    testing::LoadProblem(m, BarOfTwelve, surface);
    EXPECT_EQ(m.TotalPieces, 90);
    const std::vector<testing::Step> steps = testing::RunWholePass(m);
    const std::tuple<int32_t, Pieces, float> expected[] = {{20, {{7.5f, 1}, {4.5f, 1}}, 0},
                                                           {24, {{6.5f, 1}, {5.1f, 1}}, 0.4f},
                                                           {1, {{6.5f, 1}, {4.5f, 1}}, 1}};
    ASSERT_EQ(steps.size(), 3u);
    for (std::size_t k = 0; k < steps.size(); ++k) {
        SCOPED_TRACE("step " + std::to_string(k + 1));
        EXPECT_EQ(steps[k].stdLength, 12.0f);
        EXPECT_EQ(steps[k].bars, std::get<0>(expected[k]));
        EXPECT_EQ(steps[k].pieces, std::get<1>(expected[k]));
        EXPECT_EQ(steps[k].waste, std::get<2>(expected[k]));
    }
    EXPECT_EQ((std::vector<double>{m.TotalLengthA, m.TotalCostA, m.TotalMatWasteA, m.MatWastePctA,
                                   m.TotalMonWasteA, m.MonWastePctA}),
              (std::vector<double>{540, 540, 10.6, 1.96, 10.6, 1.96}));
    EXPECT_EQ(m.BarsUsedA(1), 45.0f);
    EXPECT_EQ(m.PiecesLeft, 0);
    EXPECT_EQ(m.PercentCut, 100.0f);
    EXPECT_EQ(m.TotalCostB, 0.0) << "Method B's totals stay untouched";
}

TEST(CuttingPass, PassStopsWhenNoRowHasAPatternAndShowsThePercentCutRoundedDown) {
    Module1 m;
    MemorySurface surface;
    // The intake never lets a length longer than every bar through; the pass must still end.
    testing::LoadProblem(m, {{5}, {}, {{6, 2}, {1, 3}}}, surface);
    EXPECT_TRUE(testing::RunWholePass(m).empty());
    EXPECT_EQ(m.PiecesLeft, 5);
    m.PercentCut = 33.3f;
    ShowPercentCut(m, surface);
    EXPECT_EQ(surface.State({Ctl::cmdHelpTip}).caption, " 33 %");
    EXPECT_EQ(surface.State({Ctl::ProgressBar1}).progress, 33.3f);
}

}  // namespace
}  // namespace brennik
