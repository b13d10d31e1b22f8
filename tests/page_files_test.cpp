#include "report/page_files.h"

#include <gtest/gtest.h>

#include "files/text_lines.h"
#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Bench;

// A report whose first line is `width` columns wide, with a shorter and an empty line below.
void WriteReport(Bench& bench, std::size_t width) {
    std::string first;
    for (std::size_t column = 0; column < width; ++column) {
        first += static_cast<char>('a' + column % 26);
    }
    bench.files.WriteFile("last.sol", JoinLines({first, "short", ""}));
}

std::vector<std::string> Page(Bench& bench, int page) {
    return SplitLines(bench.Read("page" + std::to_string(page)));
}

TEST(ViewSolution, PagesFollowTheWidthOfTheFirstLine) {
    const std::vector<std::tuple<int, std::size_t, int>> cases = {
        {66, 66, 1}, {66, 67, 2}, {60, 122, 3}, {66, 626, 4}, {200, 0, 0}};
    for (const auto& [pageWidth, reportWidth, pages] : cases) {
        Bench bench;
        bench.m.PageWidth = static_cast<int16_t>(pageWidth);
        WriteReport(bench, reportWidth);
        ViewSolution(bench.m, bench.surface, bench.files);
        for (int page = 1; page <= 4; ++page) {
            EXPECT_EQ(bench.files.FileExists("page" + std::to_string(page)), page <= pages)
                << "width " << reportWidth << " page " << page;
        }
    }
}

TEST(ViewSolution, EveryPageHasEveryLineCutAtItsColumns) {
    Bench bench;
    bench.m.PageWidth = 60;
    WriteReport(bench, 122);
    ViewSolution(bench.m, bench.surface, bench.files);
    const std::vector<std::string> third = Page(bench, 3);
    ASSERT_EQ(third.size(), 3u);
    EXPECT_EQ(third[0], "qr");  // columns 121 and 122
    EXPECT_EQ(third[1], "");
    EXPECT_EQ(Page(bench, 1)[1], "short");
    EXPECT_EQ(Page(bench, 1)[0].size(), 60u);
    EXPECT_EQ(bench.Read("page2").substr(0, 3), "ijk");  // columns 61 to 63

    bench.m.PageWidth = 66;  // 626 columns: ten pages, of which four files hold 264 columns
    WriteReport(bench, 626);
    ViewSolution(bench.m, bench.surface, bench.files);
    EXPECT_EQ(Page(bench, 4)[0].size(), 66u);
    EXPECT_FALSE(bench.files.FileExists("page5"));
}

TEST(ViewSolution, NarrowerReportLeavesNoStalePage) {
    Bench bench;
    bench.m.PageWidth = 66;
    WriteReport(bench, 200);
    ViewSolution(bench.m, bench.surface, bench.files);
    EXPECT_TRUE(bench.files.FileExists("page4"));
    WriteReport(bench, 100);
    ViewSolution(bench.m, bench.surface, bench.files);
    EXPECT_TRUE(bench.files.FileExists("page2"));
    EXPECT_FALSE(bench.files.FileExists("page3"));
    EXPECT_FALSE(bench.files.FileExists("page4"));
}

TEST(ViewSolution, OpensTheViewerOnLastSol) {
    Bench bench;
    WriteReport(bench, 66);
    ViewSolution(bench.m, bench.surface, bench.files);
    ASSERT_FALSE(bench.surface.Events().empty());
    const SurfaceEvent& last = bench.surface.Events().back();
    EXPECT_EQ(last.op, SurfaceOp::StartViewer);
    EXPECT_EQ(last.text, bench.folder.Path() + "/last.sol");
}

TEST(ViewSolution, WithoutASolutionMakesNoPageAndStartsNoViewer) {
    Bench bench;
    bench.files.WriteFile("page1", "old");
    ViewSolution(bench.m, bench.surface, bench.files);
    EXPECT_EQ(bench.Status(), " There is no solution to view yet !.");
    EXPECT_TRUE(bench.folder.FileNames().empty());
    for (const SurfaceEvent& event : bench.surface.Events()) {
        EXPECT_NE(event.op, SurfaceOp::StartViewer);
    }
}

}  // namespace
}  // namespace brennik
