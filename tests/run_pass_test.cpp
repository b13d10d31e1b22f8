#include "run/run_pass.h"

#include <gtest/gtest.h>

#include "failing_files.h"
#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Bench;

const std::vector<std::pair<std::string, std::string>> BarOfTwelve = {{"12", "12"}};
const std::vector<std::pair<std::string, std::string>> BarOfTwelveCuts = {
    {"7.5", "20"}, {"4.5", "21"}, {"5.1", "24"}, {"6.5", "25"}};

// The texts the status line was given, in order, with runs of one text told once.
std::vector<std::string> StatusTexts(const MemorySurface& surface) {
    std::vector<std::string> texts;
    for (const SurfaceEvent& event : surface.Events()) {
        if (event.op == SurfaceOp::SetText && event.control.name == Ctl::txtLong &&
            (texts.empty() || texts.back() != event.text)) {
            texts.push_back(event.text);
        }
    }
    return texts;
}

TEST(RunPass, SolvesFromTheBoxesToLastSol) {
    Bench bench;
    bench.Type(BarOfTwelve, BarOfTwelveCuts);
    RunPass(bench.m, bench.platform);

    EXPECT_FALSE(bench.m.EntryError);
    EXPECT_FALSE(bench.m.LengthError);
    EXPECT_FALSE(bench.m.FileError);
    EXPECT_EQ(StatusTexts(bench.surface),
              (std::vector<std::string>{"", " Calculating the Basic Solution.", " ", " Done !."}));
    EXPECT_EQ(bench.surface.State({Ctl::txtLong}).back, Red);
    EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Yellow);
    EXPECT_EQ(bench.surface.Text({Ctl::Text3}), "             540");
    EXPECT_EQ(bench.surface.Text({Ctl::Text2, 1}), "        10.6");
    EXPECT_EQ(bench.surface.Text({Ctl::Text1, 2}), "  1.96");
    EXPECT_EQ(bench.surface.Text({Ctl::txtMon, 1}), "      45");
    EXPECT_EQ(bench.surface.State({Ctl::Text3}).back, White);
    EXPECT_EQ(bench.surface.State({Ctl::Line1}).x1, 7230);
    EXPECT_EQ(bench.surface.State({Ctl::cmdHelpTip}).caption, "Help Tip");
    EXPECT_EQ(bench.m.BarsBought(1), 45);
    EXPECT_EQ(bench.folder.FileNames(), (std::vector<std::string>{"last.sol"}));
    EXPECT_NE(bench.Read("last.sol").find("Method Used    => A  "), std::string::npos);
}

TEST(RunPass, MarksTheBoxesOfTheMethodWhileCutting) {
    Bench bench;
    bench.Type(BarOfTwelve, BarOfTwelveCuts);
    bench.surface.SetValue({Ctl::Option2}, true);
    RunPass(bench.m, bench.platform);
    std::vector<Control> yellow;
    for (const SurfaceEvent& event : bench.surface.Events()) {
        if (event.op == SurfaceOp::SetBackColor && event.colour == Yellow &&
            event.control.name != Ctl::txtLong) {
            yellow.push_back(event.control);
        }
    }
    EXPECT_EQ(yellow, (std::vector<Control>{{Ctl::txtMat, 1},
                                            {Ctl::Text5, 1},
                                            {Ctl::Text5, 2},
                                            {Ctl::Text4, 1},
                                            {Ctl::Text4, 2},
                                            {Ctl::Text6}}));
    EXPECT_EQ(bench.surface.State({Ctl::txtLong}).back, Blue);
}

TEST(RunPass, RefusedIntakeLeavesPanelAndLastSolAlone) {
    Bench bench;
    bench.Type(BarOfTwelve, BarOfTwelveCuts);
    RunPass(bench.m, bench.platform);
    const std::string before = bench.Read("last.sol");
    bench.surface.SetText({Ctl::txtN, 2}, "-1");
    RunPass(bench.m, bench.platform);

    EXPECT_TRUE(bench.m.EntryError);
    EXPECT_EQ(bench.Status(), " Unacceptable Entry !.");
    EXPECT_EQ(bench.surface.Text({Ctl::Text3}), "             540");
    EXPECT_EQ(bench.Read("last.sol"), before);
    EXPECT_EQ(bench.surface.State({Ctl::cmdHelpTip}).caption, "Help Tip");
}

TEST(RunPass, MethodAWithoutEveryPriceRunsAsMethodB) {
    Bench bench;
    bench.Type({{"12", "12"}, {"6", ""}}, BarOfTwelveCuts);
    RunPass(bench.m, bench.platform);
    EXPECT_TRUE(bench.m.MethodB);
    EXPECT_TRUE(bench.surface.Value({Ctl::Option2}));
    EXPECT_EQ(bench.surface.Text({Ctl::Text6}), "");
    EXPECT_EQ(bench.Status(), " Done !.");
}

TEST(RunPass, AsksForTheReferenceOnceAndCancelGivesAnEmptyNote) {
    Bench bench;
    bench.Type(BarOfTwelve, BarOfTwelveCuts);
    bench.m.ShowReference = kTrue;
    bench.surface.SetNextInput("  U channel  ");
    RunPass(bench.m, bench.platform);
    RunPass(bench.m, bench.platform);
    int asked = 0;
    for (const SurfaceEvent& event : bench.surface.Events()) {
        asked += event.op == SurfaceOp::InputBox;
    }
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(bench.m.ReferenceText, "U channel");
    EXPECT_EQ(bench.surface.LastInputBoxAt(), std::make_pair(1725, 2575));

    bench.m.ReferenceAsked = kFalse;
    bench.surface.SetNextInput(std::nullopt);
    RunPass(bench.m, bench.platform);
    EXPECT_EQ(bench.m.ReferenceText, "");
    EXPECT_NE(bench.Read("last.sol").find("Reference      =>   \r\n"), std::string::npos);
}

TEST(RunPass, StandardLengthsWithoutCuttingLengthsGiveAnEmptyReport) {
    Bench bench;
    bench.Type(BarOfTwelve, {});
    RunPass(bench.m, bench.platform);
    EXPECT_EQ(bench.Status(), " Done !.");
    EXPECT_TRUE(bench.folder.FileNames() == std::vector<std::string>{"last.sol"});
}

TEST(RunPass, EmptyFormStopsSilently) {
    Bench bench;
    RunPass(bench.m, bench.platform);
    EXPECT_TRUE(bench.m.LengthError);
    EXPECT_EQ(bench.Status(), "");
    EXPECT_TRUE(bench.folder.FileNames().empty());
}

TEST(RunPass, UnwritableReportKeepsThePreviousSolution) {
    for (testing::FileOp op : {testing::FileOp::Write, testing::FileOp::Replace}) {
        Bench bench;
        bench.Type(BarOfTwelve, BarOfTwelveCuts);
        RunPass(bench.m, bench.platform);
        const std::string before = bench.Read("last.sol");

        testing::FailingFiles failing(bench.files, op, 1);
        Platform platform{bench.surface, failing, bench.clock};
        bench.surface.SetValue({Ctl::Option2}, true);
        RunPass(bench.m, platform);
        EXPECT_TRUE(bench.m.FileError);
        EXPECT_EQ(bench.Status(), " Cannot write the solution file !.");
        EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Red);
        EXPECT_EQ(bench.Read("last.sol"), before);
        EXPECT_EQ(bench.folder.FileNames(), (std::vector<std::string>{"last.sol"}));

        RunPass(bench.m, bench.platform);  // the next pass works again
        EXPECT_FALSE(bench.m.FileError);
        EXPECT_NE(bench.Read("last.sol"), before);
    }
}

}  // namespace
}  // namespace brennik
