#include "report/report_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report_fixture.h"

namespace brennik {
namespace {

using testing::Moment;

std::string Spaces(int count) {
    return std::string(static_cast<std::size_t>(count), ' ');
}

std::string Dashes(int count) {
    return std::string(static_cast<std::size_t>(count), '-');
}

// A problem of `cutCount` cutting lengths, settled for the report: Method A or Method B with or
// without prices.
Module1 SettledProblem(int cutCount, bool methodA, bool allPriced) {
    Module1 m;
    m.CutCount = static_cast<int16_t>(cutCount);
    for (int j = 1; j <= cutCount; ++j) {
        m.CutLength(j) = static_cast<float>(cutCount + 1 - j);
        m.CutQty(j) = 10 * j;
    }
    m.MethodA = ToFlag(methodA);
    m.MethodB = ToFlag(!methodA);
    m.AllPriced = ToFlag(allPriced);
    return m;
}

TEST(ReportStamps, DateAndTimeWithLeadingZeros) {
    EXPECT_EQ(DateStamp(Moment(1999, 4, 6, 20, 16), true), "06-Apr-1999");
    EXPECT_EQ(DateStamp(Moment(1999, 4, 6, 20, 16), false), "06-Apr");
    EXPECT_EQ(DateStamp(Moment(2024, 12, 31, 0, 0), true), "31-Dec-2024");
    EXPECT_EQ(TimeStamp(Moment(1999, 4, 6, 20, 16), true), "08:16 PM");
    EXPECT_EQ(TimeStamp(Moment(1999, 4, 6, 20, 16), false), "20:16");
    EXPECT_EQ(TimeStamp(Moment(1999, 4, 6, 0, 5), true), "12:05 AM");
    EXPECT_EQ(TimeStamp(Moment(1999, 4, 6, 0, 5), false), "00:05");
    EXPECT_EQ(TimeStamp(Moment(1999, 4, 6, 12, 0), true), "12:00 PM");
    EXPECT_EQ(TimeStamp(Moment(1999, 4, 6, 11, 59), true), "11:59 AM");
}

TEST(ReportHead, OneCuttingLengthWithoutWasteSummary) {
    Module1 m = SettledProblem(1, true, true);
    m.LineRows = {1, 1};
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    std::vector<std::string> tiny1;
    WriteReportHead(m, clock, tiny1);
    const std::vector<std::string> expected = {
        "STANDARD LENGTHS    CUTTING DETAILS ",
        "----------------    --------------- ",
        "",
        "Length  Quantity    Num. x Length",
        "   (Price)(Total)  " + Spaces(14),
        "----------------    -------------",
    };
    EXPECT_EQ(tiny1, expected);
    // The head counts the pieces for the cutting loop and starts a new list of rows.
    EXPECT_EQ(m.TotalPieces, 10);
    EXPECT_TRUE(m.LineRows.empty());
}

TEST(ReportHead, WasteSummaryWithMoneyStandsOverItsBlockAndEndsWithTheStamps) {
    Module1 m = SettledProblem(3, true, true);
    m.ShowWasteSummary = kTrue;
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    std::vector<std::string> tiny1;
    WriteReportHead(m, clock, tiny1);
    ASSERT_EQ(tiny1.size(), 6u);
    EXPECT_EQ(tiny1[0], "STANDARD LENGTHS    CUTTING DETAILS" + Spaces(29) + " WASTE SUMMARY" +
                            Spaces(19) + "06-Apr-1999");
    EXPECT_EQ(tiny1[1], "----------------    ---------------" + Spaces(29) + " -------------" +
                            Spaces(22) + "08:16 PM");
    EXPECT_EQ(tiny1[2], "");
    EXPECT_EQ(tiny1[3], "Length  Quantity    Num. x Length" + Spaces(28) +
                            "    No.  Material     Total     Money     Total");
    EXPECT_EQ(tiny1[4], "   (Price)(Total)  " + Spaces(42) +
                            "    [x]     Waste     Waste     Waste     Waste");
    EXPECT_EQ(tiny1[5], "----------------    -------------" + Dashes(28) + "    ---" + Dashes(40));
    // Every line but the empty one spans the body and the 47 columns of the block.
    for (int k : {0, 1, 3, 4, 5}) {
        EXPECT_EQ(tiny1[k].size(), 14u * 3 + 66) << "line " << k + 1;
    }
    EXPECT_EQ(tiny1[0].find("WASTE"), tiny1[3].find("No."));
    EXPECT_EQ(tiny1[1].find('-', 35), tiny1[3].find("No."));
}

TEST(ReportHead, WasteSummaryWithoutMoneyHasTheShortBlockAndTheShortStamps) {
    Module1 m = SettledProblem(2, false, false);
    m.ShowWasteSummary = kTrue;
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    std::vector<std::string> tiny1;
    WriteReportHead(m, clock, tiny1);
    ASSERT_EQ(tiny1.size(), 6u);
    EXPECT_EQ(tiny1[0], "STANDARD LENGTHS    CUTTING DETAILS" + Spaces(15) + " WASTE SUMMARY" +
                            Spaces(4) + "06-Apr");
    EXPECT_EQ(tiny1[1], "----------------    ---------------" + Spaces(15) + " -------------" +
                            Spaces(5) + "20:16");
    EXPECT_EQ(tiny1[3],
              "Length  Quantity    Num. x Length" + Spaces(14) + "    No.  Material     Total");
    EXPECT_EQ(tiny1[4], "          (Total)  " + Spaces(28) + "    [x]     Waste     Waste");
    EXPECT_EQ(tiny1[5], "----------------    -------------" + Dashes(14) + "    ---" + Dashes(20));
    for (int k : {0, 1, 3, 4, 5}) {
        EXPECT_EQ(tiny1[k].size(), 14u * 2 + 46) << "line " << k + 1;
    }
}

// The line of the worked example: C = 8, Method A, a bar of 6 cut into 4.3 and 1.65 on 11 bars,
// 0.05 waste and 0.17 money waste per bar.
Module1 WorkedStep() {
    Module1 m = SettledProblem(8, true, true);
    const float lengths[] = {5.5f, 4.3f, 3.2f, 2.1f, 1.65f, 1.2f, 1.0f, 0.5f};
    for (int j = 1; j <= 8; ++j) {
        m.CutLength(j) = lengths[j - 1];
    }
    m.ShowWasteSummary = kTrue;
    m.StdLength(1) = 9;
    m.StdLength(2) = 6;
    m.ChosenStd = 2;
    m.ChosenBars = 11;
    m.ChosenWaste = 0.05f;
    m.PatternPieces(2, 2) = 1;
    m.PatternPieces(2, 5) = 1;
    m.BarMonWasteA = 0.17;
    m.StepMonWasteA = 1.87;
    return m;
}

TEST(CuttingLine, WorkedExampleEndsEveryValueOnItsColumn) {
    Module1 m = WorkedStep();
    std::vector<std::string> tiny1;
    WriteCuttingLine(m, tiny1);
    ASSERT_EQ(tiny1.size(), 1u);
    const std::string& line = tiny1[0];
    EXPECT_EQ(line, "      6       11       1 x    4.3    1 x   1.65" + Spaces(84) +
                        "     11      0.05      0.55      0.17      1.87");
    EXPECT_EQ(m.LineText, line);

    // (last column, counted from 1, and the value that ends there)
    const std::vector<std::pair<std::size_t, std::string>> fields = {
        {7, "6"},    {16, "11"},    {24, "1"},     {33, "4.3"},   {38, "1"},    {47, "1.65"},
        {138, "11"}, {148, "0.05"}, {158, "0.55"}, {168, "0.17"}, {178, "1.87"}};
    for (const auto& [lastColumn, value] : fields) {
        ASSERT_GE(lastColumn, value.size());
        EXPECT_EQ(line.substr(lastColumn - value.size(), value.size()), value) << value;
        EXPECT_EQ(line[lastColumn - value.size() - 1], ' ') << value;
    }
    EXPECT_EQ(line.size(), 178u);

    EXPECT_EQ(m.ItemsInLine, 2.0f);
    EXPECT_EQ(m.MaxItemsInLine, 2.0f);
    EXPECT_EQ(m.WasteBarsTotal, 11.0f);
    EXPECT_EQ(m.LineRows, std::vector<uint8_t>{2});
}

TEST(CuttingLine, LengthsPassThroughThePictureAndLoseWhatTheirFieldCannotHold) {
    Module1 m = SettledProblem(5, true, true);
    const float lengths[] = {99999.9f, 210.0f, 1.65f, 1.234f, 0.8f};
    for (int j = 1; j <= 5; ++j) {
        m.CutLength(j) = lengths[j - 1];
        m.PatternPieces(1, j) = j == 5 ? 123456 : 1;
    }
    m.StdLength(1) = 12345.67f;
    m.ChosenStd = 1;
    m.ChosenBars = 1;
    std::vector<std::string> tiny1;
    WriteCuttingLine(m, tiny1);
    // A line with an item for every cutting length needs no filling spaces.
    EXPECT_EQ(tiny1.at(0),
              "2345.67        1       1 x99999.9    1 x    210    1 x   1.65    1 x   1.23"
              "23456 x     .8");
    EXPECT_EQ(m.MaxItemsInLine, 5.0f);
}

TEST(CuttingLine, StepWithoutWasteHasNoBlockAndAddsNoBars) {
    Module1 m = WorkedStep();
    m.ChosenWaste = 0;
    m.WasteBarsTotal = 7;
    m.MaxItemsInLine = 3;
    std::vector<std::string> tiny1;
    WriteCuttingLine(m, tiny1);
    EXPECT_EQ(tiny1.at(0), "      6       11       1 x    4.3    1 x   1.65" + Spaces(84));
    EXPECT_EQ(m.WasteBarsTotal, 7.0f);
    EXPECT_EQ(m.MaxItemsInLine, 3.0f);
}

TEST(CuttingLine, MethodBBlockHasMoneyOnlyWhenAllPriced) {
    Module1 m = WorkedStep();
    m.MethodA = kFalse;
    m.MethodB = kTrue;
    m.BarMonWasteB = 0.2;
    m.StepMonWasteB = 2.2;
    std::vector<std::string> tiny1;
    WriteCuttingLine(m, tiny1);
    m.AllPriced = kFalse;
    WriteCuttingLine(m, tiny1);
    const std::string body = "      6       11       1 x    4.3    1 x   1.65" + Spaces(84);
    EXPECT_EQ(tiny1.at(0), body + "     11      0.05      0.55      0.20      2.20");
    EXPECT_EQ(tiny1.at(1), body + "     11      0.05      0.55");
    EXPECT_EQ(m.WasteBarsTotal, 22.0f);

    // Without the waste summary no line has a block and nothing is counted.
    m.ShowWasteSummary = kFalse;
    WriteCuttingLine(m, tiny1);
    EXPECT_EQ(tiny1.at(2), body);
    EXPECT_EQ(m.WasteBarsTotal, 22.0f);
    EXPECT_EQ(m.LineRows, (std::vector<uint8_t>{2, 2, 2}));
}

TEST(ReportFoot, MethodAAdvancedWithSummaryAndReference) {
    Module1 m = SettledProblem(4, true, true);
    m.Advanced = kTrue;
    m.ShowWasteSummary = kTrue;
    m.ShowReference = kTrue;
    m.ReferenceText = "U channel Aluminium.";
    m.WasteBarsTotal = 25;
    m.TotalMatWasteA = 10.6;
    m.TotalMonWasteA = 10.6;
    m.TotalCostA = 540;
    m.MatWastePctA = 1.96;
    m.MonWastePctA = 1.96;
    m.TotalCostB = 999;  // the other Method's figures are not printed
    std::vector<std::string> tiny1;
    WriteReportFoot(m, tiny1);
    const std::vector<std::string> expected = {
        "----------------    -------------" + Dashes(42) + "    ---" + Dashes(40),
        "Method Used    => AA " + Spaces(54) + "     25" + Spaces(10) + "     10.60" + Spaces(10) +
            "     10.60",
        "Total  Cost    =>          540.00",
        "----------------   " + Spaces(8) + "======" + Spaces(42) +
            "    Waste Material = 1.96 %      Money = 1.96 %",
        "",
        "Reference      =>   U channel Aluminium.",
    };
    EXPECT_EQ(tiny1, expected);
}

TEST(ReportFoot, MethodBPricedFillsThePercentFields) {
    Module1 m = SettledProblem(3, false, true);
    m.ShowWasteSummary = kTrue;
    m.WasteBarsTotal = 7;
    m.TotalMatWasteB = 123.45;
    m.TotalMonWasteB = 67.8;
    m.TotalCostB = 6128.8;
    m.MatWastePctB = 12.5;
    m.MonWastePctB = 0.94;
    std::vector<std::string> tiny1;
    WriteReportFoot(m, tiny1);
    const std::vector<std::string> expected = {
        "----------------    -------------" + Dashes(28) + "    ---" + Dashes(40),
        "Method Used    => B  " + Spaces(40) + "      7" + Spaces(10) + "    123.45" + Spaces(10) +
            "     67.80",
        "Total  Cost    =>         6128.80",
        "----------------   " + Spaces(7) + "=======" + Spaces(28) +
            "    Waste Material =12.50 %      Money = 0.94 %",
    };
    EXPECT_EQ(tiny1, expected);
}

TEST(ReportFoot, MethodBUnpricedHasNoCostAndOnlyTheMaterialFigures) {
    Module1 m = SettledProblem(2, false, false);
    m.Advanced = kTrue;
    m.ShowWasteSummary = kTrue;
    std::vector<std::string> tiny1;
    WriteReportFoot(m, tiny1);
    const std::vector<std::string> expected = {
        "----------------    -------------" + Dashes(14) + "    ---" + Dashes(20),
        "Method Used    => BA " + Spaces(26) + "      0" + Spaces(10) + "      0.00",
        Spaces(33),
        "----------------" + Spaces(31) + "    Waste Material = 0.00 %",
    };
    EXPECT_EQ(tiny1, expected);
}

TEST(ReportFoot, UnderlineHasOneSignPerCharacterOfTheCostEndingInColumn33) {
    const std::vector<std::pair<double, int>> cases = {{540, 6}, {6128.8, 7}, {10374, 8}, {0.5, 4}};
    for (const auto& [cost, signs] : cases) {
        Module1 m = SettledProblem(3, true, true);
        m.TotalCostA = cost;
        std::vector<std::string> tiny1;
        WriteReportFoot(m, tiny1);
        ASSERT_EQ(tiny1.size(), 4u);
        const std::string& underline = tiny1[3];
        EXPECT_EQ(underline.substr(0, 33),
                  "----------------" + Spaces(17 - signs) + std::string(signs, '='))
            << cost;
        EXPECT_EQ(tiny1[2].find_first_not_of(' ', 17), underline.find('=')) << cost;
        // Without the waste summary the foot stops at the body width.
        EXPECT_EQ(underline, underline.substr(0, 33) + Spaces(28)) << cost;
        EXPECT_EQ(tiny1[0], "----------------    -------------" + Dashes(28)) << cost;
        EXPECT_EQ(tiny1[1], "Method Used    => A  " + Spaces(40)) << cost;
    }
}

}  // namespace
}  // namespace brennik
