#include "report/report_assembly.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

#include "files/text_lines.h"
#include "report/report_lines.h"
#include "state/number_texts.h"
#include "state/ordering.h"

namespace brennik {

namespace {

// The new report is written beside its target and then put in its place, so that a failed write
// leaves the previous report whole.
const std::string kAsideSuffix = ".new";
const std::array<std::string, 6> kWorkFiles = {"tiny1.sol", "tiny2.sol", "tiny3.sol",
                                               "tiny4.sol", "thead.sol", "tfoot.sol"};

// The head is six lines, taken by count: two of them also start with a dash.
constexpr std::size_t kHeadLines = 6;

bool ReadLines(FileSystem& files, const std::string& name, std::vector<std::string>& lines) {
    std::string contents;
    if (!files.ReadFile(name, contents)) {
        return false;
    }
    lines = SplitLines(contents);
    return true;
}

bool WriteLines(FileSystem& files, const std::string& name, const std::vector<std::string>& lines) {
    return files.WriteFile(name, JoinLines(lines));
}

bool StartsWith(const std::string& line, char first) {
    return !line.empty() && line.front() == first;
}

// The widest cutting line of the solution in items: G, whole although held as an f32.
std::size_t WidestLine(const Module1& m) {
    return m.MaxItemsInLine > 0 ? static_cast<std::size_t>(m.MaxItemsInLine) : 0;
}

// Without the waste summary the head has no stamp yet: date and time go to the right edge of
// the cutting details, or, when they would not fit beside a single slot, are left out and the
// title is cut to the body.
void StampHead(const Module1& m, const Clock& clock, std::vector<std::string>& head) {
    const std::size_t g = WidestLine(m);
    if (g > 1) {
        head[0] = head[0].substr(0, 14 * g + 8) + DateStamp(clock.Now(), true);
        head[1] = head[1].substr(0, 14 * g + 11) + TimeStamp(clock.Now(), true);
    } else {
        head[0] = head[0].substr(0, 33);
        head[1] = head[1].substr(0, 33);
    }
}

// "(price)(bars)" of a group, or only "(bars)" behind blanks when prices are not shown.
std::string SummaryLine(const Module1& m, int row, bool money) {
    std::string line = money ? RightField("(" + PictureText(m.StdPrice(row), "#####.00"), 9) + ")"
                             : std::string(10, ' ');
    return line + "(" + RightField(NumberText(PictureText(m.BarsBought(row), "#####")), 5) + ")";
}

bool HasBars(const Module1& m, int row) {
    return m.StdLength(row) > 0 && m.BarsBought(row) > 0;
}

}  // namespace

bool SqueezeSlots(const Module1& m, FileSystem& files) {
    std::vector<std::string> lines;
    if (!ReadLines(files, "tiny1.sol", lines)) {
        return false;
    }
    // The first 14 x G + 19 columns stay; from column 14 x C + 20 on, the rest follows them.
    const std::size_t keep = 14 * WidestLine(m) + 19;
    const std::size_t resumeAt = 14 * static_cast<std::size_t>(m.CutCount) + 19;
    for (std::string& line : lines) {
        if (StartsWith(line, 'R')) {
            continue;
        }
        std::string squeezed = line.substr(0, std::min(keep, line.size()));
        if (line.size() > resumeAt) {
            squeezed += line.substr(resumeAt);
        }
        line = std::move(squeezed);
    }
    return WriteLines(files, "tiny2.sol", lines);
}

bool SplitReport(const Module1& m, FileSystem& files, const Clock& clock) {
    std::vector<std::string> lines;
    if (!ReadLines(files, "tiny2.sol", lines) || lines.size() < kHeadLines) {
        return false;
    }
    std::vector<std::string> head(lines.begin(), lines.begin() + kHeadLines);
    if (!m.ShowWasteSummary) {
        StampHead(m, clock, head);
    }
    // The head is taken by count; after it the first line that starts with a dash is the foot's
    // separator, as no cutting line starts with one.
    const auto footStart =
        std::find_if(lines.begin() + kHeadLines, lines.end(),
                     [](const std::string& line) { return StartsWith(line, '-'); });
    const std::vector<std::string> cutting(lines.begin() + kHeadLines, footStart);
    const std::vector<std::string> foot(footStart, lines.end());
    return WriteLines(files, "thead.sol", head) && WriteLines(files, "tiny3.sol", cutting) &&
           WriteLines(files, "tfoot.sol", foot);
}

bool GroupByLength(Module1& m, FileSystem& files) {
    std::vector<std::string> lines;
    if (!ReadLines(files, "tiny3.sol", lines)) {
        return false;
    }
    // Every cutting line must have the row that cut it; a line without one would be lost.
    if (lines.size() != m.PassLines.size()) {
        return false;
    }

    // SortStdLengths is a stable sort, longest first; the same sort of the row numbers tells
    // which row of the pass lands on each position.
    std::array<int, MaxStdLengths> rowBefore{};
    std::iota(rowBefore.begin(), rowBefore.end(), 1);
    std::stable_sort(rowBefore.begin(), rowBefore.end(),
                     [&m](int a, int b) { return m.StdLength(a) > m.StdLength(b); });
    SortStdLengths(m);

    const bool money = ShowMoney(m);
    std::vector<std::string> grouped;
    for (int i = 1; i <= MaxStdLengths; ++i) {
        if (HasBars(m, i)) {
            for (std::size_t k = 0; k < lines.size(); ++k) {
                if (m.PassLines[k].row == rowBefore[static_cast<std::size_t>(i - 1)]) {
                    grouped.push_back(lines[k]);
                }
            }
            grouped.push_back(SummaryLine(m, i, money));
        }
        if (i < MaxStdLengths && HasBars(m, i + 1)) {
            grouped.emplace_back(" ");
        }
    }
    return WriteLines(files, "tiny4.sol", grouped);
}

bool JoinReport(FileSystem& files, const std::string& target) {
    std::vector<std::string> report;
    for (const char* part : {"thead.sol", "tiny4.sol", "tfoot.sol"}) {
        std::vector<std::string> lines;
        if (!ReadLines(files, part, lines)) {
            return false;
        }
        report.insert(report.end(), lines.begin(), lines.end());
    }
    const std::string aside = target + kAsideSuffix;
    if (!WriteLines(files, aside, report) || !files.ReplaceFile(aside, target)) {
        return false;
    }
    // The new report is in place; a work file that cannot be removed does not undo it.
    RemoveWorkFiles(files, target);
    return true;
}

void RemoveWorkFiles(FileSystem& files, const std::string& target) {
    for (const std::string& name : kWorkFiles) {
        files.RemoveFile(name);
    }
    files.RemoveFile(target + kAsideSuffix);
}

bool AssembleReport(Module1& m, FileSystem& files, const Clock& clock,
                    const std::vector<std::string>& tiny1, const std::string& target) {
    return files.WriteFile("tiny1.sol", JoinLines(tiny1)) && SqueezeSlots(m, files) &&
           SplitReport(m, files, clock) && GroupByLength(m, files) && JoinReport(files, target);
}

}  // namespace brennik
