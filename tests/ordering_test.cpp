#include "state/ordering.h"

#include <gtest/gtest.h>

#include "shell/memory_surface.h"

namespace brennik {
namespace {

TEST(SortStdLengths, LongestFirstWithPricesAndGapsMovingAlong) {
    Module1 m;
    m.StdLength(1) = 5;
    m.StdPrice(1) = 10;
    m.StdLength(3) = 6;
    m.StdPrice(3) = 20;
    m.BarsBought(3) = 7;
    SortStdLengths(m);
    EXPECT_EQ(m.StdLength(1), 6.0f);
    EXPECT_EQ(m.StdPrice(1), 20.0f);
    EXPECT_EQ(m.BarsBought(1), 7);
    EXPECT_EQ(m.StdLength(2), 5.0f);
    EXPECT_EQ(m.StdPrice(2), 10.0f);
    EXPECT_EQ(m.StdLength(3), 0.0f);

    MemorySurface surface;
    surface.SetValue({Ctl::Option1}, true);
    ClassifyProblem(m, surface);
    EXPECT_EQ(m.StdCount, 2);
    EXPECT_EQ(m.PriceCount, 2);
    EXPECT_TRUE(m.AllPriced);
    EXPECT_EQ(m.MethodA, kTrue);
    EXPECT_EQ(m.MethodB, kFalse);
    EXPECT_TRUE(surface.Value({Ctl::Option1}));
}

TEST(SortStdLengths, EqualLengthsKeepTheirEnteredOrder) {
    Module1 m;
    m.StdLength(1) = 4;
    m.StdLength(2) = 6;
    m.StdPrice(2) = 1;
    m.StdLength(3) = 6;
    m.StdPrice(3) = 2;
    SortStdLengths(m);
    EXPECT_EQ(m.StdPrice(1), 1.0f);
    EXPECT_EQ(m.StdPrice(2), 2.0f);
    EXPECT_EQ(m.StdLength(3), 4.0f);
}

TEST(SortCutLengths, StableDescendingAndCopiedToTheMasterList) {
    Module1 m;
    m.CutLength(1) = 2;
    m.CutQty(1) = 5;
    m.CutLength(2) = 3;
    m.CutQty(2) = 1;
    m.CutLength(4) = 2;  // a gap at row 3, an equal length below
    m.CutQty(4) = 9;
    m.CutLength(40) = 7;
    m.CutQty(40) = 2;
    SortCutLengths(m);
    EXPECT_EQ(m.CutLength(1), 7.0f);
    EXPECT_EQ(m.CutLength(2), 3.0f);
    EXPECT_EQ(m.CutLength(3), 2.0f);
    EXPECT_EQ(m.CutQty(3), 5);
    EXPECT_EQ(m.CutLength(4), 2.0f);
    EXPECT_EQ(m.CutQty(4), 9);
    EXPECT_EQ(m.CutLength(5), 0.0f);
    EXPECT_EQ(m.MasterCutLength, m.CutLength);
    EXPECT_EQ(m.MasterCutQty, m.CutQty);

    MemorySurface surface;
    ClassifyProblem(m, surface);
    EXPECT_EQ(m.CutCount, 4);
}

TEST(ClassifyProblem, MissingPriceSwitchesMethodAToBOnTheForm) {
    Module1 m;
    m.StdLength(1) = 6;
    m.StdLength(2) = 5;
    m.StdLength(3) = 4;
    m.StdPrice(1) = 20;
    m.StdPrice(3) = 12;
    MemorySurface surface;
    surface.SetValue({Ctl::Option1}, true);
    ClassifyProblem(m, surface);
    EXPECT_EQ(m.PriceCount, 2);
    EXPECT_FALSE(m.AllPriced);
    EXPECT_EQ(m.MethodB, kTrue);
    EXPECT_EQ(m.MethodA, kFalse);
    EXPECT_TRUE(surface.Value({Ctl::Option2}));
    EXPECT_FALSE(surface.Value({Ctl::Option1}));
    EXPECT_EQ(m.StdPrice(3), 12.0f);
}

TEST(ClassifyProblem, NothingEnteredIsNotAllPriced) {
    Module1 m;
    MemorySurface surface;
    surface.SetValue({Ctl::Option1}, true);
    ClassifyProblem(m, surface);
    EXPECT_EQ(m.StdCount, 0);
    EXPECT_EQ(m.PriceCount, 0);
    EXPECT_FALSE(m.AllPriced);
    EXPECT_TRUE(m.MethodB);
}

TEST(ClassifyProblem, CountsStopAtTheFirstEmptyRowButPricesAreCountedEverywhere) {
    Module1 m;
    m.StdLength(1) = 6;
    m.StdLength(3) = 5;  // behind a gap: not counted
    m.StdPrice(1) = 2;
    m.StdPrice(3) = 3;
    MemorySurface surface;
    surface.SetValue({Ctl::Option1}, true);
    ClassifyProblem(m, surface);
    EXPECT_EQ(m.StdCount, 1);
    EXPECT_EQ(m.PriceCount, 2);
    EXPECT_FALSE(m.AllPriced);
}

TEST(ResetPassTotals, LoadsTheSequenceAndZeroesEveryTotal) {
    Module1 m;
    m.StdLength(1) = 6;
    m.StdPrice(1) = 20;
    m.TotalCostA = 5;
    m.TotalMatWasteB = 3;
    m.MonWastePctB = 1;
    m.BarsUsedA(2) = 4;
    m.BarsUsedB(1) = 4;
    m.BarsBought(6) = 9;
    m.MaxItemsInLine = 3;
    m.WasteBarsTotal = 8;
    m.TotalPieces = 17;
    ResetPassTotals(m);
    EXPECT_EQ(m.SeqLength(1), 6.0f);
    EXPECT_EQ(m.SeqPrice(1), 20.0f);
    EXPECT_EQ(m.TotalCostA, 0.0);
    EXPECT_EQ(m.TotalMatWasteB, 0.0);
    EXPECT_EQ(m.MonWastePctB, 0.0);
    EXPECT_EQ(m.BarsUsedA(2), 0.0f);
    EXPECT_EQ(m.BarsUsedB(1), 0.0f);
    EXPECT_EQ(m.BarsBought(6), 0);
    EXPECT_EQ(m.MaxItemsInLine, 0.0f);
    EXPECT_EQ(m.WasteBarsTotal, 0.0f);
    EXPECT_EQ(m.TotalPieces, 17);
}

}  // namespace
}  // namespace brennik
