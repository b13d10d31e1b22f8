// The report's work lines one at a time: the date and time stamps, a cutting line with and
// without its waste block, and the foot with its totals.
#include "report/report_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "temp_folder.h"

namespace brennik {
namespace {

using testing::Moment;

// A problem of these cutting lengths, every standard length priced, settled for the report with
// the waste summary, and the cutting step just applied: `bars` bars of `stdLength` in standard
// row `row`, each cut into `pieces` of the cutting lengths in turn.
Module1 SettledProblem(const std::vector<float>& lengths, bool methodA,
                       std::vector<int32_t> pieces = {}, int row = 1, float stdLength = 0,
                       int32_t bars = 0) {
    Module1 m;
    m.CutCount = static_cast<int16_t>(lengths.size());
    pieces.resize(lengths.size());
    for (int j = 1; j <= m.CutCount; ++j) {
        m.CutLength(j) = lengths[static_cast<std::size_t>(j - 1)];
        m.PatternPieces(row, j) = pieces[static_cast<std::size_t>(j - 1)];
    }
    m.StdLength(row) = stdLength;
    m.ChosenStd = static_cast<float>(row);
    m.ChosenBars = bars;
    m.MethodA = ToFlag(methodA);
    m.MethodB = ToFlag(!methodA);
    m.AllPriced = kTrue;
    m.ShowWasteSummary = kTrue;
    return m;
}

TEST(ReportStamps, TwelveHourClockAroundMidnightAndNoon) {
    EXPECT_EQ(DateStamp(Moment(2024, 12, 31, 0, 0), true), "31-Dec-2024");
    const std::vector<std::tuple<int, int, const char*, const char*>> times = {
        {0, 5, "12:05 AM", "00:05"}, {11, 59, "11:59 AM", "11:59"}, {12, 0, "12:00 PM", "12:00"}};
    for (const auto& [hour, minute, twelve, twentyFour] : times) {
        EXPECT_EQ(TimeStamp(Moment(1999, 4, 6, hour, minute), true), twelve);
        EXPECT_EQ(TimeStamp(Moment(1999, 4, 6, hour, minute), false), twentyFour);
    }
}

// A bar of 6 cut into 4.3 and 1.65 on 11 bars, with 0.05 waste per bar, among eight lengths.
TEST(CuttingLine, WasteBlockFollowsTheMethodAndItsPricesAndValuesLoseWhatTheirFieldCannotHold) {
    Module1 m = SettledProblem({5.5f, 4.3f, 3.2f, 2.1f, 1.65f, 1.2f, 1.0f, 0.5f}, true,
                               {0, 1, 0, 0, 1}, 2, 6, 11);
    m.ChosenWaste = 0.05f;
    m.BarMonWasteA = 0.17;
    m.StepMonWasteA = 1.87;
    m.BarMonWasteB = 0.2;
    m.StepMonWasteB = 2.2;
    std::vector<std::string> tiny1;
    WriteCuttingLine(m, tiny1);
    m.MethodA = kFalse;
    m.MethodB = kTrue;
    WriteCuttingLine(m, tiny1);
    m.AllPriced = kFalse;
    WriteCuttingLine(m, tiny1);
    m.ShowWasteSummary = kFalse;
    WriteCuttingLine(m, tiny1);
    m.ShowWasteSummary = kTrue;
    m.ChosenWaste = 0;
    WriteCuttingLine(m, tiny1);

    const std::string body =
        "      6       11       1 x    4.3    1 x   1.65" + std::string(84, ' ');
    EXPECT_EQ(tiny1,
              (std::vector<std::string>{body + "     11      0.05      0.55      0.17      1.87",
                                        body + "     11      0.05      0.55      0.20      2.20",
                                        body + "     11      0.05      0.55", body, body}));
    ASSERT_EQ(m.PassLines.size(), 5u);
    for (const CutLineRecord& line : m.PassLines) {
        EXPECT_EQ(std::tie(line.row, line.stdLength, line.bars), std::tuple(2, 6.0f, 11));
    }
    // Only the three lines with a waste block count their bars.
    EXPECT_EQ(m.WasteBarsTotal, 33.0f);

    // Values lose what their field cannot hold.
    m = SettledProblem({99999.9f, 210.0f, 1.65f, 1.234f, 0.8f}, true, {1, 1, 1, 1, 123456}, 1,
                       12345.67f, 1);
    m.ShowWasteSummary = kFalse;
    WriteCuttingLine(m, tiny1);
    EXPECT_EQ(tiny1.back(),
              "2345.67        1       1 x99999.9    1 x    210    1 x   1.65    1 x   1.23"
              "23456 x     .8");
    EXPECT_EQ(m.MaxItemsInLine, 5.0f);
}

// Method B with every length priced shows the money figures; a two-digit percentage fills a field.
TEST(ReportFoot, MethodBPricedShowsMoneyAndCost) {
    Module1 m = SettledProblem({3, 2, 1}, false);
    m.WasteBarsTotal = 7;
    m.TotalMatWasteB = 123.45;
    m.TotalMonWasteB = 67.8;
    m.TotalCostB = 6128.8;
    m.MatWastePctB = 12.5;
    m.MonWastePctB = 0.94;
    m.TotalCostA = 999;  // the other Method's figures are not printed
    std::vector<std::string> tiny1;
    WriteReportFoot(m, tiny1);
    EXPECT_EQ(tiny1,
              (std::vector<std::string>{
                  "----------------    -------------" + std::string(28, '-') + "    ---" +
                      std::string(40, '-'),
                  "Method Used    => B  " + std::string(40, ' ') + "      7" +
                      std::string(10, ' ') + "    123.45" + std::string(10, ' ') + "     67.80",
                  "Total  Cost    =>         6128.80",
                  "----------------          =======" + std::string(28, ' ') +
                      "    Waste Material =12.50 %      Money = 0.94 %",
              }));
}

}  // namespace
}  // namespace brennik
