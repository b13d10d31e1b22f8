#include "report/page_files.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "files/text_lines.h"

namespace brennik {

namespace {

constexpr int MaxPages = 4;

std::string PageName(int page) {
    return "page" + std::to_string(page);
}

}  // namespace

void ViewSolution(const Module1& m, Surface& surface, FileSystem& files) {
    const std::size_t width = static_cast<std::size_t>(std::max<int>(m.PageWidth, 1));
    // No page of an earlier, wider report may stay behind; a missing one is no failure.
    for (int page = 1; page <= MaxPages; ++page) {
        files.RemoveFile(PageName(page));
    }

    constexpr const char* NoSolution = " There is no solution to view yet !.";
    std::string report;
    if (!files.ReadFile("last.sol", report)) {
        SetStatus(surface, White, Red, NoSolution);
        surface.Refresh({Ctl::txtLong});
        return;
    }
    ClearStatusOf(surface, NoSolution);
    const std::vector<std::string> lines = SplitLines(report);
    const std::size_t firstWidth = lines.empty() ? 0 : lines.front().size();
    const int pages =
        static_cast<int>(std::min<std::size_t>((firstWidth + width - 1) / width, MaxPages));

    // A page that cannot be written is passed over; the others and the viewer still come.
    for (int page = 1; page <= pages; ++page) {
        const std::size_t from = (page - 1) * width;
        std::vector<std::string> slices;
        slices.reserve(lines.size());
        for (const std::string& line : lines) {
            slices.push_back(from < line.size() ? line.substr(from, width) : std::string());
        }
        files.WriteFile(PageName(page), JoinLines(slices));
    }
    surface.StartViewer((std::filesystem::path(files.CurrentFolder()) / "last.sol").string());
}

}  // namespace brennik
