#include "engine/cutting_pass.h"

#include <gtest/gtest.h>

#include "problem_fixture.h"

namespace brennik {
namespace {

using testing::Cut;
using testing::LoadProblem;
using testing::Problem;
using testing::RunWholePass;
using testing::Step;

const Problem BarOfTwelve{{12}, {12}, {{7.5, 20}, {4.5, 21}, {5.1, 24}, {6.5, 25}}, true};

const Problem Centimetres{{660, 600, 540, 480, 420, 360},
                          {46, 42, 38, 33, 29, 24},
                          {{330, 51},
                           {325, 67},
                           {455, 87},
                           {186, 30},
                           {210, 72},
                           {135, 66},
                           {175, 88},
                           {145, 67},
                           {245, 61}},
                          true};

const Problem MetresSixToThree{{6, 5.4, 4.8, 4.2, 3.6, 3},
                               {20, 18, 15, 14, 12, 11},
                               {{1.87, 98},
                                {1.14, 65},
                                {0.94, 67},
                                {1.65, 87},
                                {0.55, 32},
                                {2.12, 51},
                                {1.17, 42},
                                {3.7, 78},
                                {2.33, 53},
                                {4.11, 81},
                                {4.2, 62},
                                {4.3, 27},
                                {5.4, 27}},
                               true};

std::vector<int32_t> BarsByRow(const StdRows<float>& used) {
    std::vector<int32_t> bars;
    for (int r = 1; r <= MaxStdLengths; ++r) {
        bars.push_back(static_cast<int32_t>(used(r)));
    }
    return bars;
}

TEST(CuttingPass, BarOfTwelveTakesThreeStepsInMethodA) {
    Module1 m;
    MemorySurface surface;
    LoadProblem(m, BarOfTwelve, surface);
    ASSERT_TRUE(m.MethodA);
    EXPECT_EQ(m.TotalPieces, 90);

    std::vector<Step> steps = RunWholePass(m);
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_EQ(steps[0].bars, 20);
    EXPECT_EQ(steps[0].pieces, (std::vector<std::pair<float, int32_t>>{{7.5f, 1}, {4.5f, 1}}));
    EXPECT_EQ(steps[0].waste, 0.0f);
    EXPECT_EQ(steps[1].bars, 24);
    EXPECT_EQ(steps[1].pieces, (std::vector<std::pair<float, int32_t>>{{6.5f, 1}, {5.1f, 1}}));
    EXPECT_EQ(steps[1].waste, 0.4f);
    EXPECT_EQ(steps[2].bars, 1);
    EXPECT_EQ(steps[2].pieces, (std::vector<std::pair<float, int32_t>>{{6.5f, 1}, {4.5f, 1}}));
    EXPECT_EQ(steps[2].waste, 1.0f);

    EXPECT_EQ(m.TotalLengthA, 540.0);
    EXPECT_EQ(m.TotalCostA, 540.0);
    EXPECT_EQ(m.TotalMatWasteA, 10.6);
    EXPECT_EQ(m.TotalMonWasteA, 10.6);
    EXPECT_EQ(m.MatWastePctA, 1.96);
    EXPECT_EQ(m.MonWastePctA, 1.96);
    EXPECT_EQ(m.BarsUsedA(1), 45.0f);
    EXPECT_EQ(m.PiecesLeft, 0);
    EXPECT_EQ(m.PercentCut, 100.0f);
    // The other family stays untouched.
    EXPECT_EQ(m.TotalCostB, 0.0);
    EXPECT_EQ(m.BarsUsedB(1), 0.0f);
}

TEST(CuttingPass, BarOfTwelveInMethodBKeepsMoneyFiguresWhenAllPriced) {
    Module1 m;
    MemorySurface surface;
    Problem problem = BarOfTwelve;
    problem.methodA = false;
    LoadProblem(m, problem, surface);
    RunWholePass(m);
    EXPECT_EQ(m.TotalCostB, 540.0);
    EXPECT_EQ(m.TotalMatWasteB, 10.6);
    EXPECT_EQ(m.TotalMonWasteB, 10.6);
    EXPECT_EQ(m.MatWastePctB, 1.96);
    EXPECT_EQ(m.MonWastePctB, 1.96);
    EXPECT_EQ(m.TotalCostA, 0.0);
}

TEST(CuttingPass, MethodBWithoutPricesLeavesMoneyAtZero) {
    Module1 m;
    MemorySurface surface;
    Problem problem = BarOfTwelve;
    problem.prices.clear();
    LoadProblem(m, problem, surface);
    RunWholePass(m);
    EXPECT_EQ(m.TotalMatWasteB, 10.6);
    EXPECT_EQ(m.TotalCostB, 0.0);
    EXPECT_EQ(m.BarMonWasteB, 0.0);
    EXPECT_EQ(m.StepMonWasteB, 0.0);
    EXPECT_EQ(m.TotalMonWasteB, 0.0);
    EXPECT_EQ(m.MonWastePctB, 0.0);
}

TEST(CuttingPass, CentimetreProblemTakesThirteenStepsInOrder) {
    Module1 m;
    MemorySurface surface;
    LoadProblem(m, Centimetres, surface);
    ASSERT_TRUE(m.MethodA);

    using Pieces = std::vector<std::pair<float, int32_t>>;
    const std::vector<std::tuple<float, int32_t, Pieces>> expected = {
        {600, 67, {{455, 1}, {145, 1}}},
        {600, 20, {{455, 1}, {135, 1}}},
        {660, 25, {{330, 2}}},
        {600, 1, {{330, 1}, {135, 2}}},
        {600, 22, {{325, 1}, {135, 2}}},
        {660, 22, {{325, 2}}},
        {540, 1, {{325, 1}, {210, 1}}},
        {420, 61, {{245, 1}, {175, 1}}},
        {420, 35, {{210, 2}}},
        {600, 1, {{210, 1}, {186, 2}}},
        {540, 13, {{186, 1}, {175, 2}}},
        {600, 5, {{186, 3}}},
        {360, 1, {{175, 1}}},
    };
    std::vector<Step> steps = RunWholePass(m);
    ASSERT_EQ(steps.size(), expected.size());
    for (std::size_t k = 0; k < steps.size(); ++k) {
        SCOPED_TRACE("step " + std::to_string(k + 1));
        EXPECT_EQ(steps[k].stdLength, std::get<0>(expected[k]));
        EXPECT_EQ(steps[k].bars, std::get<1>(expected[k]));
        EXPECT_EQ(steps[k].pieces, std::get<2>(expected[k]));
    }
    EXPECT_EQ(m.TotalCostA, 10374.0);
    EXPECT_EQ(m.TotalMatWasteA, 1000.0);
    EXPECT_EQ(m.TotalLengthA, 148860.0);
    EXPECT_EQ(m.MatWastePctA, 0.67);
    EXPECT_EQ(m.TotalMonWasteA, 69.38);
    EXPECT_EQ(m.MonWastePctA, 0.67);
}

TEST(CuttingPass, MetreProblemInMethodA) {
    Module1 m;
    MemorySurface surface;
    LoadProblem(m, MetresSixToThree, surface);
    RunWholePass(m);
    EXPECT_EQ(BarsByRow(m.BarsUsedA), (std::vector<int32_t>{160, 96, 38, 62, 0, 1}));
    EXPECT_EQ(m.TotalCostA, 6377.0);
    EXPECT_EQ(m.TotalMatWasteA, 18.15);
    EXPECT_EQ(m.MatWastePctA, 0.94);
    EXPECT_EQ(m.TotalMonWasteA, 60.33);
    EXPECT_EQ(m.MonWastePctA, 0.95);
}

// The basic solutions that the Advanced search starts from, all in Method B.
TEST(CuttingPass, BasicSolutionsInMethodB) {
    const Problem feet{{20, 18, 15, 14, 12},
                       {21, 17.5, 14.5, 13.5, 13},
                       {{7.5, 98},
                        {7.3, 65},
                        {4.4, 67},
                        {6.3, 87},
                        {5.5, 32},
                        {9.3, 51},
                        {7.1, 43},
                        {2.4, 47},
                        {1.9, 56},
                        {3.4, 18}}};
    const Problem metres{{6.1, 5.5, 4.6, 4.3, 3.7},
                         {30.4, 27.5, 22.3, 20.1, 18.6},
                         {{1.7, 84},
                          {2.3, 121},
                          {1.5, 67},
                          {0.8, 90},
                          {1.1, 65},
                          {1.3, 119},
                          {3.1, 114},
                          {0.6, 191}}};
    const Problem millimetres{{6000, 5400, 4800, 4000, 3600, 3000},
                              {},
                              {{725, 44},
                               {730, 63},
                               {440, 51},
                               {630, 23},
                               {555, 71},
                               {935, 26},
                               {710, 19},
                               {345, 31},
                               {495, 51},
                               {545, 78}}};
    Module1 m;
    {
        MemorySurface surface;
        LoadProblem(m, feet, surface);
        RunWholePass(m);
        EXPECT_EQ(m.TotalCostB, 3391.0);
        EXPECT_EQ(m.TotalMatWasteB, 15.6);
    }
    {
        MemorySurface surface;
        LoadProblem(m, metres, surface);
        RunWholePass(m);
        EXPECT_EQ(m.TotalCostB, 6412.9);
    }
    {
        MemorySurface surface;
        LoadProblem(m, millimetres, surface);
        RunWholePass(m);
        EXPECT_EQ(m.TotalMatWasteB, 325.0);
        EXPECT_EQ(m.TotalCostB, 0.0);
    }
}

TEST(CuttingPass, StepMoneyIsFormedFromTheRoundedAmountPerBar) {
    // 11 bars of 6 at 20 with 0.05 left: 0.17 a bar and 1.87 for the step, not 1.83.
    Module1 m;
    m.MethodA = kTrue;
    m.AllPriced = kTrue;
    m.StdLength(1) = 6;
    m.StdPrice(1) = 20;
    m.ChosenStd = 1;
    m.ChosenWaste = 0.05f;
    m.ChosenBars = 11;
    m.TotalPieces = 11;
    ApplyChosenPattern(m);
    EXPECT_EQ(m.BarMonWasteA, 0.17);
    EXPECT_EQ(m.StepMonWasteA, 1.87);
    EXPECT_EQ(m.StepMatWasteA, 0.55);
}

TEST(CuttingPass, PassStopsWhenNoRowHasAPattern) {
    Module1 m;
    MemorySurface surface;
    // The intake never lets a length longer than every bar through; the pass must still end.
    LoadProblem(m, {{5}, {}, {{6, 2}, {1, 3}}}, surface);
    EXPECT_TRUE(RunWholePass(m).empty());
    EXPECT_EQ(m.ChosenBars, 0);
    EXPECT_EQ(m.PiecesLeft, 5);
}

TEST(CuttingPass, PercentCutIsShownRoundedDownWithItsFraction) {
    Module1 m;
    MemorySurface surface;
    m.PercentCut = 33.3f;
    ShowPercentCut(m, surface);
    EXPECT_EQ(surface.State({Ctl::cmdHelpTip}).caption, " 33 %");
    EXPECT_EQ(surface.State({Ctl::ProgressBar1}).progress, 33.3f);
    m.PercentCut = 100;
    ShowPercentCut(m, surface);
    EXPECT_EQ(surface.State({Ctl::cmdHelpTip}).caption, " 100 %");
}

}  // namespace
}  // namespace brennik
