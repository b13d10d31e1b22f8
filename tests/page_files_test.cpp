#include "report/page_files.h"

#include <gtest/gtest.h>

#include "files/text_lines.h"
#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Bench;

// Views a report: `width` columns of the alphabet over and over, then a shorter and an empty line.
void ViewReport(Bench& bench, std::size_t width) {
    std::string first;
    for (std::size_t column = 0; column < width; ++column) {
        first += static_cast<char>('a' + column % 26);
    }
    bench.files.WriteFile("last.sol", JoinLines({first, "short", ""}));
    ViewSolution(bench.m, bench.surface, bench.files);
}

// Each report but the last is narrower than the one before, whose pages must not stay behind; ten
// pages wide, only four files are written.
TEST(ViewSolution, PagesFollowTheWidthOfTheFirstLineAndCutEveryLineAtTheirColumns) {
    // (page width, report width, page files)
    const std::vector<std::tuple<std::size_t, std::size_t, int>> cases = {
        {66, 626, 4}, {66, 67, 2}, {66, 66, 1}, {200, 0, 0}, {60, 122, 3}};
    Bench bench;
    for (const auto& [pageWidth, reportWidth, pages] : cases) {
        bench.m.PageWidth = static_cast<int16_t>(pageWidth);
        ViewReport(bench, reportWidth);
        const std::string first = SplitLines(bench.Read("last.sol")).at(0);
        for (int page = 1; page <= 5; ++page) {
            const std::string name = "page" + std::to_string(page);
            ASSERT_EQ(bench.files.FileExists(name), page <= pages) << reportWidth << " " << name;
            if (page <= pages) {
                const std::size_t from = static_cast<std::size_t>(page - 1) * pageWidth;
                EXPECT_EQ(SplitLines(bench.Read(name)).at(0), first.substr(from, pageWidth));
            }
        }
    }
    EXPECT_EQ(SplitLines(bench.Read("page1")),
              (std::vector<std::string>{bench.Read("last.sol").substr(0, 60), "short", ""}));
    EXPECT_EQ(SplitLines(bench.Read("page3")), (std::vector<std::string>{"qr", "", ""}));
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
