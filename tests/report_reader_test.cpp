// The reader of finished reports, on what the soak test does not hold against the plan: the
// stamps of the head, the percentages and reference of the foot, the method with its mark, and
// text that is no report at all.
#include "diagram/report_reader.h"

#include <gtest/gtest.h>

#include "press_fixture.h"
#include "run/find_press.h"

namespace brennik {
namespace {

using testing::Bench;

SolutionReport PressAndRead(Bench& bench, bool wasteSummary, bool advanced) {
    bench.m.ShowWasteSummary = ToFlag(wasteSummary);
    bench.surface.SetValue({Ctl::Check1}, advanced);
    cmdFind_Click(bench.m, bench.platform);
    return ReadReport(bench.Read("last.sol"));
}

TEST(ReportReader, StampsPercentagesAndReferenceOfTheWasteSummary) {
    Bench bench;
    bench.Type({{"12", "12"}}, {{"7.5", "20"}, {"4.5", "21"}, {"5.1", "24"}, {"6.5", "25"}});
    bench.m.ShowReference = ToFlag(true);
    bench.surface.SetNextInput("U channel Aluminium.");
    const SolutionReport report = PressAndRead(bench, true, true);
    EXPECT_TRUE(report.faults.empty());
    EXPECT_EQ(report.date, "06-Apr-1999");
    EXPECT_EQ(report.time, "08:16 PM");
    EXPECT_EQ(report.method, "AA");
    EXPECT_EQ(report.materialPercent, 1.96);
    EXPECT_EQ(report.moneyPercent, 1.96);
    EXPECT_EQ(report.wasteTotals.bars, 25);
    EXPECT_EQ(report.totalCost, 540);
    EXPECT_EQ(report.reference, "U channel Aluminium.");
}

TEST(ReportReader, StampsWithoutTheSummaryOnlyWhenALineHasTwoItems) {
    Bench wide;
    wide.Type({{"6", ""}}, {{"2.5", "4"}, {"1", "2"}});
    const SolutionReport stamped = PressAndRead(wide, false, false);
    EXPECT_TRUE(stamped.faults.empty());
    EXPECT_EQ(stamped.date, "06-Apr-1999");
    EXPECT_EQ(stamped.time, "08:16 PM");
    EXPECT_EQ(stamped.method, "B");
    EXPECT_FALSE(stamped.totalCost || stamped.materialPercent || stamped.reference);

    Bench narrow;
    narrow.Type({{"6", ""}}, {{"3", "4"}, {"2", "3"}});
    const SolutionReport bare = PressAndRead(narrow, false, false);
    EXPECT_TRUE(bare.faults.empty());
    EXPECT_EQ(bare.date, "");
    EXPECT_EQ(bare.time, "");
}

TEST(ReportReader, OtherTextIsNamedAFaultAndGivesNoPlan) {
    for (const char* text : {"", "Dear User,\r\n", "STANDARD LENGTHS    CUTTING DETAILS\r\n"}) {
        const SolutionReport report = ReadReport(text);
        EXPECT_FALSE(report.faults.empty()) << text;
        EXPECT_TRUE(report.groups.empty()) << text;
    }
}

}  // namespace
}  // namespace brennik
