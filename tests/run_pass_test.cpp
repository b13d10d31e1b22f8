#include "run/run_pass.h"

#include <gtest/gtest.h>

#include <tuple>

#include "failing_files.h"
#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Bench;
using Texts = std::vector<std::string>;
using testing::kTwelveCuts;
using testing::kTwelveStock;

TEST(RunPass, SolvesFromTheBoxesToLastSol) {
    Bench bench;
    bench.Type(kTwelveStock, kTwelveCuts);
    RunPass(bench.m, bench.platform);
    Texts statuses;  // each text the status line was given, runs of one text told once
    for (const SurfaceEvent& event : bench.surface.Events()) {
        if (event.op == SurfaceOp::SetText && event.control.name == Ctl::txtLong &&
            (statuses.empty() || statuses.back() != event.text)) {
            statuses.push_back(event.text);
        }
    }
    EXPECT_EQ(statuses, (Texts{"", " Calculating the Basic Solution.", " ", " Done !."}));
    EXPECT_EQ(bench.surface.State({Ctl::txtLong}).back, Red);
    EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Yellow);
    EXPECT_EQ(bench.surface.Text({Ctl::Text3}), "             540");
    EXPECT_EQ(bench.surface.Text({Ctl::txtMon, 1}), "      45");
    EXPECT_EQ(bench.surface.State({Ctl::cmdHelpTip}).caption, "Help Tip");
    EXPECT_EQ(bench.m.BarsBought(1), 45);
}

TEST(RunPass, AsksForTheReferenceOnceAndCancelGivesAnEmptyNote) {
    Bench bench;
    bench.Type(kTwelveStock, kTwelveCuts);
    bench.m.ShowReference = kTrue;
    bench.surface.SetNextInput("  U channel  ");
    RunPass(bench.m, bench.platform);
    bench.surface.SetNextInput("asked twice");
    RunPass(bench.m, bench.platform);
    EXPECT_EQ(bench.m.ReferenceText, "U channel");

    bench.m.ReferenceAsked = kFalse;
    bench.surface.SetNextInput(std::nullopt);
    RunPass(bench.m, bench.platform);
    EXPECT_NE(bench.Read("last.sol").find("Reference      =>   \r\n"), std::string::npos);
}

TEST(RunPass, EmptyFormStopsSilently) {
    Bench empty;
    RunPass(empty.m, empty.platform);
    EXPECT_TRUE(empty.m.LengthError);
    EXPECT_EQ(empty.Status(), "");
    EXPECT_TRUE(empty.folder.FileNames().empty());
}

// A refused intake or an unwritable report keeps the last solution and panel; the next pass works.
TEST(RunPass, AFailedPassKeepsThePreviousSolution) {
    const std::tuple<testing::FileOp, int, std::string> cases[] = {
        {testing::FileOp::Write, 0, " Unacceptable Entry !."},
        {testing::FileOp::Write, 1, " Cannot write the solution file !."},
        {testing::FileOp::Replace, 1, " Cannot write the solution file !."}};
    for (const auto& [op, nth, status] : cases) {
        SCOPED_TRACE(status + (op == testing::FileOp::Replace ? " on replacing" : ""));
        Bench bench;
        bench.Type(kTwelveStock, kTwelveCuts);
        RunPass(bench.m, bench.platform);
        const std::string before = bench.Read("last.sol");
        testing::FailingFiles failing(bench.files, op, nth);
        Platform platform{bench.surface, failing, bench.clock};
        bench.surface.SetValue({Ctl::Option2}, true);
        bench.surface.SetText({Ctl::txtN, 2}, nth == 0 ? "-1" : "21");
        RunPass(bench.m, platform);
        EXPECT_EQ(bench.Status(), status);
        EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Red);
        EXPECT_EQ(bench.Read("last.sol"), before);
        EXPECT_EQ(bench.folder.FileNames(), Texts{"last.sol"});
        EXPECT_EQ(bench.surface.Text({Ctl::Text3}), "             540");

        bench.surface.SetText({Ctl::txtN, 2}, "21");
        RunPass(bench.m, bench.platform);
        EXPECT_FALSE(bench.m.EntryError || bench.m.FileError);
        EXPECT_NE(bench.Read("last.sol"), before);
    }
}

}  // namespace
}  // namespace brennik
