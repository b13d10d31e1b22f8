#include "files/settings.h"

#include <gtest/gtest.h>

#include "failing_files.h"
#include "press_fixture.h"

namespace brennik {
namespace {

TEST(PageWidthFrom, TestsTheRangeBeforeRoundingHalvesToEven) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"60", 60},   {"200", 200},  {"59", 66},    {"201", 66},   {"59.9", 66},
        {"60.5", 60}, {"61.5", 62},  {"99.5", 100}, {"200.4", 66}, {"", 66},
        {"abc", 66},  {"70abc", 70}, {" 66", 66},   {"1e2", 100}};
    for (const auto& [text, width] : cases) {
        EXPECT_EQ(PageWidthFrom(text), width) << "typed: " << text;
    }
}

TEST(Settings, FirstStartWritesTheDefaultsAndOkWritesThePanel) {
    testing::Bench bench;
    bench.m.PageWidth = 0;
    LoadSettings(bench.m, bench.surface, bench.files);
    EXPECT_EQ(bench.Read("brennik.cnf"), "#FALSE#,#FALSE#,66\r\n");
    EXPECT_EQ(bench.m.PageWidth, 66);

    // The panel shows the values in force; nothing counts before Ok.
    bench.m.ShowReference = kTrue;
    OpenSettingsPanel(bench.m, bench.surface);
    EXPECT_TRUE(bench.surface.State({Ctl::Frame1}).visible);
    EXPECT_EQ(bench.surface.Text({Ctl::Text7}), " 66");
    EXPECT_TRUE(bench.surface.Value({Ctl::Check3}));
    EXPECT_FALSE(bench.surface.Value({Ctl::Check2}));
    bench.surface.SetValue({Ctl::Check2}, true);
    bench.surface.SetValue({Ctl::Check3}, false);
    bench.surface.SetText({Ctl::Text7}, "99.5");
    EXPECT_EQ(bench.m.ShowWasteSummary, kFalse);

    ApplySettings(bench.m, bench.surface, bench.files);
    EXPECT_EQ(bench.Read("brennik.cnf"), "#TRUE#,#FALSE#,100\r\n");
    EXPECT_FALSE(bench.surface.State({Ctl::Frame1}).visible);

    // A width out of range counts as 66, and the panel shows that, not what was typed.
    bench.surface.SetText({Ctl::Text7}, "300");
    ApplySettings(bench.m, bench.surface, bench.files);
    OpenSettingsPanel(bench.m, bench.surface);
    EXPECT_EQ(bench.surface.Text({Ctl::Text7}), " 66");

    // A file that cannot be written does not keep the settings from applying.
    testing::FailingFiles failing(bench.files, testing::FileOp::Write, 1);
    bench.surface.SetText({Ctl::Text7}, "120");
    ApplySettings(bench.m, bench.surface, failing);
    EXPECT_EQ(bench.m.PageWidth, 120);
    EXPECT_EQ(bench.Status(), " Cannot write the settings file !.");
}

// What Ok writes reads back; a damaged file leaves the flags false and a usable page width.
TEST(Settings, LoadReadsTheFirstLineAndRepairsNothing) {
    const std::vector<std::tuple<std::string, bool, bool, int>> cases = {
        {"#TRUE#,#FALSE#,100\r\n", true, false, 100},
        {"", false, false, 66},
        {"#TRUE#", true, false, 66},
        {"#TRUE#,#TRUE#,0", true, true, 66},
        {"#TRUE#,#TRUE#,70abc", true, true, 66},
        {"#TRUE#,#TRUE#,32768", true, true, 66},
        {"yes,#TRUE#,120\r\n#TRUE#", false, true, 120},
        {"\xff\xfe garbage,,", false, false, 66},
    };
    for (const auto& [contents, waste, reference, width] : cases) {
        testing::Bench bench;
        bench.files.WriteFile("brennik.cnf", contents);
        LoadSettings(bench.m, bench.surface, bench.files);
        EXPECT_EQ(bench.m.ShowWasteSummary != 0, waste) << contents;
        EXPECT_EQ(bench.m.ShowReference != 0, reference) << contents;
        EXPECT_EQ(bench.m.PageWidth, width) << contents;
        EXPECT_EQ(bench.Read("brennik.cnf"), contents);
    }
}

}  // namespace
}  // namespace brennik
