// The report last.sol as the pass assembles it from its work lines, compared with whole texts
// and read back as the diagram reads it, and the grouping of cutting lines by standard length.
#include "report/report_assembly.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "diagram/report_reader.h"
#include "files/text_lines.h"
#include "press_fixture.h"
#include "run/run_pass.h"

namespace brennik {
namespace {

using testing::Bench;
using testing::kTwelveCuts;
using testing::kTwelveStock;
using Lines = std::vector<std::string>;

// last.sol without trailing blanks and with a line end before each line, as a raw string holds it.
std::string StrippedReport(Bench& bench) {
    std::string text;
    for (std::string line : SplitLines(bench.Read("last.sol"))) {
        line.erase(line.find_last_not_of(' ') + 1);
        text += "\n" + line;
    }
    return text + "\n";
}

// The manual's example of the bar of twelve prints this report whole, as its page files.
TEST(ReportAssembly, MethodAReportWithWasteSummaryAndReference) {
    Bench bench;
    bench.Type(kTwelveStock, kTwelveCuts);
    bench.m.Advanced = kTrue;
    bench.m.ShowWasteSummary = kTrue;
    bench.m.ShowReference = kTrue;
    bench.surface.SetNextInput("U channel Aluminium.");
    RunPass(bench.m, bench.platform);
    // The first line, which the page files measure, keeps the blanks up to its full width.
    EXPECT_EQ(bench.Read("last.sol").find('\r'), 14u * 2 + 66);
    EXPECT_EQ(bench.folder.FileNames(), Lines{"last.sol"});
    const SolutionReport read = bench.ReadBack();
    EXPECT_EQ(read.date + " " + read.time + " " + read.method, "06-Apr-1999 08:16 PM AA");
    EXPECT_EQ(std::tie(read.materialPercent, read.moneyPercent, read.wasteTotals.bars,
                       read.totalCost, read.reference),
              std::tuple(1.96, 1.96, 25, 540.0, "U channel Aluminium."));

    // Without the summary the foot is cut to the details, while a long reference note stands
    // whole. Two items in the widest line of four cutting lengths: the method line spans two slots.
    bench.m.Advanced = kFalse;
    bench.m.ShowWasteSummary = kFalse;
    bench.m.ReferenceText = std::string(280, 'x') + " end of note" + std::string(8, 'y');
    RunPass(bench.m, bench.platform);
    const Lines report = SplitLines(bench.Read("last.sol"));
    ASSERT_GE(report.size(), 5u);
    EXPECT_EQ(report.back(), "Reference      =>   " + bench.m.ReferenceText);
    EXPECT_EQ(report[report.size() - 5], "Method Used    => A  " + std::string(26, ' '));
}

// Every bar of 10 yields pieces of one length only, so no line has more than one item and the
// titles are cut to the width of the details; so they are without cutting lengths.
TEST(ReportAssembly, NarrowDetailsCutTheTitles) {
    Bench bench;
    bench.Type({{"10", ""}}, {{"5", "4"}, {"3", "3"}});
    RunPass(bench.m, bench.platform);
    const Lines plain = SplitLines(bench.Read("last.sol"));
    EXPECT_EQ(plain.at(0), "STANDARD LENGTHS    CUTTING DETAI");
    for (const std::string& line : plain) {
        EXPECT_LE(line.size(), 33u) << line;
    }
    const SolutionReport narrow = bench.ReadBack();
    EXPECT_EQ(narrow.date + narrow.time, "") << "no room for the stamps";

    bench.m.ShowWasteSummary = kTrue;
    RunPass(bench.m, bench.platform);
    EXPECT_EQ(StrippedReport(bench), R"(
STANDARD LENGTHS    CUTTING DETAI    WASTE SUMMARY    06-Apr
----------------    -------------    -------------     20:16

Length  Quantity    Num. x Length    No.  Material     Total
          (Total)                    [x]     Waste     Waste
----------------    -------------    -----------------------
     10        2       2 x      5
     10        1       3 x      3      1      1.00      1.00
          (    3)
----------------    -------------    -----------------------
Method Used    => B                    1                1.00

----------------                     Waste Material = 3.33 %
)");
    // With one cutting length the whole title fits.
    bench.Type({}, {{"5", "4"}, {"", ""}});
    RunPass(bench.m, bench.platform);
    EXPECT_EQ(SplitLines(bench.Read("last.sol")).at(0),
              "STANDARD LENGTHS    CUTTING DETAILS  WASTE SUMMARY    06-Apr");

    // Without cutting lengths the pass is done, and the report has its head and foot only.
    bench.Type({{"6", "10"}}, {{"", ""}});
    bench.surface.SetValue({Ctl::Option1}, true);
    bench.m.ShowWasteSummary = kFalse;
    RunPass(bench.m, bench.platform);
    EXPECT_EQ(bench.Status(), " Done !.");
    EXPECT_EQ(StrippedReport(bench), R"(
STANDARD LENGTHS    CUTTING DETAI
----------------    -------------

Length  Quantity    Num. x Length
   (Price)(Total)
----------------    -------------
----------------    -------------
Method Used    => A
Total  Cost    =>            0.00
----------------             ====
)");
}

TEST(ReportReader, OtherTextIsNamedAFaultAndGivesNoPlan) {
    for (const char* text : {"", "Dear User,\r\n", "STANDARD LENGTHS    CUTTING DETAILS\r\n"}) {
        const SolutionReport report = ReadReport(text);
        EXPECT_FALSE(report.faults.empty()) << text;
        EXPECT_TRUE(report.groups.empty()) << text;
    }
}

// GroupByLength on lines written by hand, each with the row that cut it, of (length, price, bars).
Lines Grouped(bool methodA, const std::vector<std::tuple<float, float, int32_t>>& rows,
              const std::vector<std::pair<std::string, uint8_t>>& lines) {
    Bench bench;
    bench.m.MethodA = ToFlag(methodA);
    bench.m.MethodB = ToFlag(!methodA);
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const int row = static_cast<int>(r + 1);
        std::tie(bench.m.StdLength(row), bench.m.StdPrice(row), bench.m.BarsBought(row)) = rows[r];
    }
    Lines tiny3;
    for (const auto& [line, row] : lines) {
        tiny3.push_back(line);
        bench.m.PassLines.push_back({row, 0, 0, 0, {}});
    }
    EXPECT_TRUE(bench.files.WriteFile("tiny3.sol", JoinLines(tiny3)));
    EXPECT_TRUE(GroupByLength(bench.m, bench.files));
    return SplitLines(bench.Read("tiny4.sol"));
}

TEST(GroupByLength, EachRowListsTheLinesItCutLongestFirstAndEveryLineNeedsItsRow) {
    // The longest length has no bars: the groups open with a line of one space.
    EXPECT_EQ(Grouped(false, {{12, 0, 0}, {6, 0, 3}}, {{"six", 2}}),
              (Lines{" ", "six", "          (    3)"}));
    // A length without bars between two groups leaves one dividing line.
    EXPECT_EQ(Grouped(true, {{12, 24, 1}, {8, 16, 0}, {6, 0.5f, 2}},
                      {{"six a", 3}, {"twelve", 1}, {"six b", 3}}),
              (Lines{"twelve", "   (24.00)(    1)", " ", "six a", "six b", "     (.50)(    2)"}));
    // A bar of 12345.67 whose length the lines cannot hold whole, second in the pass.
    EXPECT_EQ(Grouped(true, {{6, 10, 1}, {12345.67f, 20, 2}},
                      {{"2345.67 first", 2}, {"      6 only", 1}, {"2345.67 second", 2}}),
              (Lines{"2345.67 first", "2345.67 second", "   (20.00)(    2)", " ", "      6 only",
                     "   (10.00)(    1)"}));
    // Rows of equal length each keep their own lines and summary.
    EXPECT_EQ(Grouped(true, {{6, 10, 2}, {6, 12, 3}, {8, 15, 1}},
                      {{"six at 10", 1}, {"six at 12", 2}, {"eight", 3}, {"six at 10 again", 1}}),
              (Lines{"eight", "   (15.00)(    1)", " ", "six at 10", "six at 10 again",
                     "   (10.00)(    2)", " ", "six at 12", "   (12.00)(    3)"}));

    // Lines without their rows are refused.
    Bench bench;
    ASSERT_TRUE(bench.files.WriteFile("tiny3.sol", JoinLines({"one", "two"})));
    bench.m.PassLines = {{1, 0, 0, 0, {}}};
    EXPECT_FALSE(GroupByLength(bench.m, bench.files));
}

}  // namespace
}  // namespace brennik
