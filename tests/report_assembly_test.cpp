#include "report/report_assembly.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "failing_files.h"
#include "files/text_lines.h"
#include "report_fixture.h"

namespace brennik {
namespace {

using testing::FailingFiles;
using testing::FileOp;
using testing::LoadArrangedProblem;
using testing::LoadProblem;
using testing::Moment;
using testing::Problem;
using testing::ReadLinesOf;
using testing::RunReportedPass;
using testing::TempFolder;

std::string StripTrailing(std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::vector<std::string> Stripped(std::vector<std::string> lines) {
    for (std::string& line : lines) {
        line = StripTrailing(line);
    }
    return lines;
}

const Problem BarOfTwelve{{12}, {12}, {{7.5, 20}, {4.5, 21}, {5.1, 24}, {6.5, 25}}, true};

// Five standard lengths in the best sequence that the Advanced search finds for them.
const Problem FiveLengthsBestSequence{
    {4.3, 4.6, 3.7, 5.5, 6.1},
    {20.1, 22.3, 18.6, 27.5, 30.4},
    {{1.7, 84}, {2.3, 121}, {1.5, 67}, {0.8, 90}, {1.1, 65}, {1.3, 119}, {3.1, 114}, {0.6, 191}},
    false};

class ReportAssembly : public ::testing::Test {
protected:
    TempFolder folder;
    DiskFileSystem files{folder.Path(), folder.Path()};
    MemorySurface surface;
    Module1 m;
};

TEST_F(ReportAssembly, MethodAReportWithWasteSummaryAndReference) {
    LoadProblem(m, BarOfTwelve, surface);
    m.Advanced = kTrue;
    m.ShowWasteSummary = kTrue;
    m.ShowReference = kTrue;
    m.ReferenceText = "U channel Aluminium.";
    const FixedClock clock(Moment(1999, 3, 30, 6, 35));
    ASSERT_TRUE(RunReportedPass(m, files, clock));

    const std::vector<std::string> report = ReadLinesOf(files, "last.sol");
    const std::vector<std::string> expected = {
        "STANDARD LENGTHS    CUTTING DETAILS                WASTE SUMMARY                   "
        "30-Mar-1999",
        "----------------    ---------------                -------------                      "
        "06:35 AM",
        "",
        "Length  Quantity    Num. x Length                  No.  Material     Total     Money     "
        "Total",
        "   (Price)(Total)                                  [x]     Waste     Waste     Waste     "
        "Waste",
        "----------------    ---------------------------    "
        "-------------------------------------------",
        "     12       20       1 x    7.5    1 x    4.5",
        "     12       24       1 x    6.5    1 x    5.1     24      0.40      9.60      0.40      "
        "9.60",
        "     12        1       1 x    6.5    1 x    4.5      1      1.00      1.00      1.00      "
        "1.00",
        "   (12.00)(   45)",
        "----------------    ---------------------------    "
        "-------------------------------------------",
        "Method Used    => AA                                25               10.60               "
        "10.60",
        "Total  Cost    =>          540.00",
        "----------------           ======                  Waste Material = 1.96 %      Money = "
        "1.96 %",
        "",
        "Reference      =>   U channel Aluminium.",
    };
    EXPECT_EQ(Stripped(report), expected);
    ASSERT_FALSE(report.empty());
    EXPECT_EQ(report[0].size(), 14u * 2 + 66);
    EXPECT_EQ(folder.FileNames(), std::vector<std::string>{"last.sol"});
}

TEST_F(ReportAssembly, MethodBReportInTheBestSequenceStampsTheHeadAtTheDetailsEdge) {
    LoadArrangedProblem(m, FiveLengthsBestSequence, surface);
    ASSERT_TRUE(m.MethodB);
    m.Advanced = kTrue;
    m.BetterFound = kTrue;
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    ASSERT_TRUE(RunReportedPass(m, files, clock));

    const std::vector<std::string> report = ReadLinesOf(files, "last.sol");
    const std::vector<std::string> expected = {
        "STANDARD LENGTHS    CUTTING DETAILS               06-Apr-1999",
        "----------------    ---------------                  08:16 PM",
        "",
        "Length  Quantity    Num. x Length",
        "   (Price)(Total)",
        "----------------    -----------------------------------------",
        "    6.1        1       4 x    1.3    1 x     .8",
        "   (30.40)(    1)",
        "",
        "    5.5        2       4 x    1.3",
        "   (27.50)(    2)",
        "",
        "    4.6       19       1 x    3.1    1 x    1.5",
        "    4.6       60       2 x    2.3",
        "    4.6        1       1 x    2.3    1 x    1.7    1 x     .6",
        "   (22.30)(   80)",
        "",
        "    4.3       95       1 x    3.1    2 x     .6",
        "    4.3       48       1 x    1.7    1 x    1.5    1 x    1.1",
        "    4.3       35       1 x    1.7    2 x    1.3",
        "    4.3        8       1 x    1.3    2 x    1.1    1 x     .8",
        "   (20.10)(  186)",
        "",
        "    3.7        1       2 x    1.3    1 x    1.1",
        "    3.7       27       1 x    1.3    3 x     .8",
        "   (18.60)(   28)",
        "----------------    -----------------------------------------",
        "Method Used    => BA",
        "Total  Cost    =>         6128.80",
        "----------------          =======",
    };
    EXPECT_EQ(Stripped(report), expected);
    ASSERT_FALSE(report.empty());
    EXPECT_EQ(report[0].size(), 14u * 3 + 19);
    // The rows leave the assembly longest first, each with its own bars.
    EXPECT_EQ(m.StdLength(1), 6.1f);
    EXPECT_EQ(m.StdPrice(1), 30.4f);
    EXPECT_EQ(m.BarsBought(1), 1);
    EXPECT_EQ(m.StdLength(5), 3.7f);
    EXPECT_EQ(m.BarsBought(5), 28);
}

// Every bar of 10 yields pieces of one length only, so no line has more than one item.
const Problem OneItemPerLine{{10}, {}, {{5, 4}, {3, 3}}, false};

TEST_F(ReportAssembly, OneItemPerLineWithoutSummaryHasNoStampAndACutTitle) {
    LoadProblem(m, OneItemPerLine, surface);
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    ASSERT_TRUE(RunReportedPass(m, files, clock));
    const std::vector<std::string> report = ReadLinesOf(files, "last.sol");
    const std::vector<std::string> expected = {
        "STANDARD LENGTHS    CUTTING DETAI",
        "----------------    -------------",
        "",
        "Length  Quantity    Num. x Length",
        "          (Total)",
        "----------------    -------------",
        "     10        2       2 x      5",
        "     10        1       3 x      3",
        "          (    3)",
        "----------------    -------------",
        "Method Used    => B",
        "",
        "----------------",
    };
    EXPECT_EQ(Stripped(report), expected);
    for (const std::string& line : report) {
        EXPECT_LE(line.size(), 33u) << line;
    }
}

TEST_F(ReportAssembly, OneItemPerLineWithSummaryKeepsTheWholeTitleOnlyForOneLength) {
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    Problem oneLength = OneItemPerLine;
    oneLength.cuts.pop_back();
    LoadProblem(m, oneLength, surface);
    m.ShowWasteSummary = kTrue;
    ASSERT_TRUE(RunReportedPass(m, files, clock));
    EXPECT_EQ(ReadLinesOf(files, "last.sol").at(0),
              "STANDARD LENGTHS    CUTTING DETAILS  WASTE SUMMARY    06-Apr");

    LoadProblem(m, OneItemPerLine, surface);
    m.ShowWasteSummary = kTrue;
    ASSERT_TRUE(RunReportedPass(m, files, clock));
    const std::vector<std::string> report = ReadLinesOf(files, "last.sol");
    ASSERT_GE(report.size(), 2u);
    EXPECT_EQ(report[0], "STANDARD LENGTHS    CUTTING DETAI    WASTE SUMMARY    06-Apr");
    EXPECT_EQ(report[1], "----------------    -------------    -------------     20:16");
}

TEST_F(ReportAssembly, ProblemWithoutCuttingLengthsHasHeadAndFootOnly) {
    LoadProblem(m, Problem{{6}, {10}, {}, false}, surface);
    ASSERT_EQ(m.CutCount, 0);
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    ASSERT_TRUE(RunReportedPass(m, files, clock));
    const std::vector<std::string> expected = {
        "STANDARD LENGTHS    CUTTING DETAI",
        "----------------    -------------",
        "",
        "Length  Quantity    Num. x Length",
        "   (Price)(Total)",
        "----------------    -------------",
        "----------------    -------------",
        "Method Used    => B",
        "Total  Cost    =>            0.00",
        "----------------             ====",
    };
    EXPECT_EQ(Stripped(ReadLinesOf(files, "last.sol")), expected);
}

TEST_F(ReportAssembly, LongReferenceNoteStandsWholeWhileTheFootIsCut) {
    LoadProblem(m, BarOfTwelve, surface);
    m.ShowReference = kTrue;
    m.ReferenceText = std::string(280, 'x') + " end of note";
    m.ReferenceText += std::string(300 - m.ReferenceText.size(), 'y');
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    ASSERT_TRUE(RunReportedPass(m, files, clock));
    const std::vector<std::string> report = ReadLinesOf(files, "last.sol");
    ASSERT_GE(report.size(), 2u);
    EXPECT_EQ(report.back(), "Reference      =>   " + m.ReferenceText);
    EXPECT_EQ(report[report.size() - 2], "");
    // G = 2 here while C = 4: the method line keeps the body of two slots.
    EXPECT_EQ(report[report.size() - 5], "Method Used    => A  " + std::string(26, ' '));
}

TEST_F(ReportAssembly, SqueezeKeepsTheUsedSlotsAndTheWasteColumns) {
    m.CutCount = 3;
    m.MaxItemsInLine = 1;
    const std::string reference = "Reference      =>   " + std::string(100, 'r');
    const std::string wide = std::string(33, 'a') + std::string(28, ' ') + "WASTE";
    const std::vector<std::string> tiny1 = {wide, std::string(40, 'b'), "", reference};
    ASSERT_TRUE(files.WriteFile("tiny1.sol", JoinLines(tiny1)));
    ASSERT_TRUE(SqueezeSlots(m, files));
    const std::vector<std::string> expected = {std::string(33, 'a') + "WASTE", std::string(33, 'b'),
                                               "", reference};
    EXPECT_EQ(ReadLinesOf(files, "tiny2.sol"), expected);

    // With as many items as cutting lengths nothing is dropped.
    m.MaxItemsInLine = 3;
    ASSERT_TRUE(SqueezeSlots(m, files));
    EXPECT_EQ(ReadLinesOf(files, "tiny2.sol"), tiny1);
}

// GroupByLength on cutting lines written by hand, with the rows that cut them.
class GroupingByRow : public ReportAssembly {
protected:
    void SetRow(int row, float length, float price, int32_t bars) {
        m.StdLength(row) = length;
        m.StdPrice(row) = price;
        m.BarsBought(row) = bars;
    }
    std::vector<std::string> Group(const std::vector<std::string>& lines,
                                   std::vector<uint8_t> rows) {
        m.LineRows = std::move(rows);
        EXPECT_TRUE(files.WriteFile("tiny3.sol", JoinLines(lines)));
        EXPECT_TRUE(GroupByLength(m, files));
        return ReadLinesOf(files, "tiny4.sol");
    }
};

TEST_F(GroupingByRow, LongestLengthWithoutBarsOpensWithALineOfOneSpace) {
    m.MethodB = kTrue;
    SetRow(1, 12, 0, 0);
    SetRow(2, 6, 0, 3);
    const std::vector<std::string> expected = {" ", "      6        3 six", "          (    3)"};
    EXPECT_EQ(Group({"      6        3 six"}, {2}), expected);
}

TEST_F(GroupingByRow, LengthWithoutBarsBetweenTwoGroupsLeavesOneSeparator) {
    m.MethodA = kTrue;
    SetRow(1, 12, 24, 1);
    SetRow(2, 8, 16, 0);
    SetRow(3, 6, 0.5f, 2);
    const std::vector<std::string> expected = {"twelve", "   (24.00)(    1)", " ", "six a",
                                               "six b",  "     (.50)(    2)"};
    EXPECT_EQ(Group({"six a", "twelve", "six b"}, {3, 1, 3}), expected);
}

TEST_F(GroupingByRow, LinesFollowTheirRowIntoTheLengthOrder) {
    // As a pass in the best sequence leaves them: the long bar, whose length does not fit the
    // seven columns, stands second until the rows are ordered.
    m.MethodA = kTrue;
    SetRow(1, 6, 10, 1);
    SetRow(2, 12345.67f, 20, 2);
    const std::vector<std::string> lines = {"2345.67 first", "      6 only", "2345.67 second"};
    const std::vector<std::string> expected = {"2345.67 first",     "2345.67 second",
                                               "   (20.00)(    2)", " ",
                                               "      6 only",      "   (10.00)(    1)"};
    EXPECT_EQ(Group(lines, {2, 1, 2}), expected);
    EXPECT_EQ(m.StdLength(1), 12345.67f);
    EXPECT_EQ(m.BarsBought(1), 2);
}

TEST_F(GroupingByRow, RowsOfEqualLengthEachListTheirOwnLines) {
    m.MethodA = kTrue;
    SetRow(1, 6, 10, 2);
    SetRow(2, 6, 12, 3);
    SetRow(3, 8, 15, 1);
    const std::vector<std::string> lines = {"six at 10", "six at 12", "eight", "six at 10 again"};
    const std::vector<std::string> expected = {
        "eight",     "   (15.00)(    1)", " ",
        "six at 10", "six at 10 again",   "   (10.00)(    2)",
        " ",         "six at 12",         "   (12.00)(    3)"};
    EXPECT_EQ(Group(lines, {1, 2, 3, 1}), expected);
}

TEST_F(GroupingByRow, RefusesLinesWithoutTheirRows) {
    SetRow(1, 6, 10, 2);
    ASSERT_TRUE(files.WriteFile("tiny3.sol", JoinLines({"one", "two"})));
    m.LineRows = {1};
    EXPECT_FALSE(GroupByLength(m, files));
}

// Every read, write and replace of a pass in turn fails; the pass counts them from its first
// write of tiny1.sol: writes of tiny1, tiny2, thead, tiny3, tfoot, tiny4 and the new last.sol;
// reads of tiny1, tiny2, tiny3, thead, tiny4 and tfoot; one replace.
using Failure = std::pair<FileOp, int>;

class FailingStep : public ReportAssembly, public ::testing::WithParamInterface<Failure> {};

TEST_P(FailingStep, StopsThePassAndKeepsThePreviousReport) {
    const std::string previous = "the previous report\r\n";
    ASSERT_TRUE(files.WriteFile("last.sol", previous));
    FailingFiles failing(files, GetParam().first, GetParam().second);
    LoadProblem(m, BarOfTwelve, surface);
    m.ShowWasteSummary = kTrue;
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));

    EXPECT_FALSE(RunReportedPass(m, failing, clock));
    RemoveWorkFiles(files);
    std::string contents;
    ASSERT_TRUE(files.ReadFile("last.sol", contents));
    EXPECT_EQ(contents, previous);
    EXPECT_EQ(folder.FileNames(), std::vector<std::string>{"last.sol"});
}

INSTANTIATE_TEST_SUITE_P(EveryFileStep, FailingStep,
                         ::testing::Values(Failure{FileOp::Write, 1}, Failure{FileOp::Write, 2},
                                           Failure{FileOp::Write, 3}, Failure{FileOp::Write, 4},
                                           Failure{FileOp::Write, 5}, Failure{FileOp::Write, 6},
                                           Failure{FileOp::Write, 7}, Failure{FileOp::Read, 1},
                                           Failure{FileOp::Read, 2}, Failure{FileOp::Read, 3},
                                           Failure{FileOp::Read, 4}, Failure{FileOp::Read, 5},
                                           Failure{FileOp::Read, 6}, Failure{FileOp::Replace, 1}));

// The cases above are every file operation of a pass: one more of any kind is never reached.
TEST_F(ReportAssembly, PassMakesSevenWritesSixReadsAndOneReplace) {
    const FixedClock clock(Moment(1999, 4, 6, 20, 16));
    for (const Failure& beyond :
         {Failure{FileOp::Write, 8}, Failure{FileOp::Read, 7}, Failure{FileOp::Replace, 2}}) {
        LoadProblem(m, BarOfTwelve, surface);
        FailingFiles failing(files, beyond.first, beyond.second);
        EXPECT_TRUE(RunReportedPass(m, failing, clock));
    }
}

}  // namespace
}  // namespace brennik
