#include "report/page_files.h"

#include <gtest/gtest.h>

#include "files/text_lines.h"
#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Bench;

// A report whose first line is `width` columns of the alphabet over and over, with a shorter
// and an empty line below; then View & Print.
void ViewReport(Bench& bench, std::size_t width) {
    std::string first;
    for (std::size_t column = 0; column < width; ++column) {
        first += static_cast<char>('a' + column % 26);
    }
    bench.files.WriteFile("last.sol", JoinLines({first, "short", ""}));
    ViewSolution(bench.m, bench.surface, bench.files);
}

TEST(ViewSolution, PagesFollowTheWidthOfTheFirstLine) {
    // (page width, report width, page files)
    const std::vector<std::tuple<int, std::size_t, int>> cases = {
        {66, 66, 1}, {66, 67, 2}, {60, 122, 3}, {66, 626, 4}, {200, 0, 0}};
    for (const auto& [pageWidth, reportWidth, pages] : cases) {
        Bench bench;
        bench.m.PageWidth = static_cast<int16_t>(pageWidth);
        ViewReport(bench, reportWidth);
        for (int page = 1; page <= 5; ++page) {
            EXPECT_EQ(bench.files.FileExists("page" + std::to_string(page)), page <= pages)
                << "width " << reportWidth << " page " << page;
        }
    }
}

TEST(ViewSolution, EveryPageHasEveryLineCutAtItsColumns) {
    Bench bench;
    bench.m.PageWidth = 60;
    ViewReport(bench, 122);
    EXPECT_EQ(SplitLines(bench.Read("page1")),
              (std::vector<std::string>{bench.Read("last.sol").substr(0, 60), "short", ""}));
    EXPECT_EQ(bench.Read("page2").substr(0, 3), "ijk");  // columns 61 to 63
    EXPECT_EQ(SplitLines(bench.Read("page3")), (std::vector<std::string>{"qr", "", ""}));

    // Ten pages wide: four files of 66 columns. A narrower report then leaves no page behind.
    bench.m.PageWidth = 66;
    ViewReport(bench, 626);
    EXPECT_EQ(SplitLines(bench.Read("page4")).at(0).size(), 66u);
    ViewReport(bench, 100);
    EXPECT_TRUE(bench.files.FileExists("page2"));
    EXPECT_FALSE(bench.files.FileExists("page3"));
    EXPECT_FALSE(bench.files.FileExists("page4"));
}

TEST(ViewSolution, OpensTheViewerOnLastSolOnlyWhenThereIsOne) {
    Bench bench;
    bench.files.WriteFile("page1", "old");
    ViewSolution(bench.m, bench.surface, bench.files);
    EXPECT_EQ(bench.Status(), " There is no solution to view yet !.");
    EXPECT_TRUE(bench.folder.FileNames().empty());
    for (const SurfaceEvent& event : bench.surface.Events()) {
        EXPECT_NE(event.op, SurfaceOp::StartViewer);
    }

    ViewReport(bench, 66);
    ASSERT_FALSE(bench.surface.Events().empty());
    EXPECT_EQ(bench.surface.Events().back().op, SurfaceOp::StartViewer);
    EXPECT_EQ(bench.surface.Events().back().text, bench.folder.PathOf("last.sol"));
}

}  // namespace
}  // namespace brennik
