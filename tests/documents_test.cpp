// The readme and the manual that the program writes: their layout and pages, their writing, and
// the manual's worked examples against the reports and figures that the program gives.
#include "shell/documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "failing_files.h"
#include "files/settings.h"
#include "files/text_lines.h"
#include "press_fixture.h"
#include "problem_families.h"
#include "report/page_files.h"
#include "state/number_texts.h"

namespace brennik {
namespace {

using Lines = std::vector<std::string>;
using testing::Collapsed;

// The manual is paged for printing: 61 lines to a page, the last of them its number.
constexpr std::size_t PageLines = 61;

// The index of the one line that is the heading.
std::size_t HeadingLine(const Lines& text, const std::string& heading) {
    const auto is = [&heading](const std::string& line) { return Collapsed(line) == heading; };
    EXPECT_EQ(std::count_if(text.begin(), text.end(), is), 1) << heading;
    return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), is) - text.begin());
}

TEST(DocumentText, PlainAsciiOfAtMost77ColumnsAndTheReadmeOutlineInOrder) {
    for (const std::string_view text : {ReadmeText(), ManualText()}) {
        ASSERT_EQ(text.back(), '\n') << "the last line has its end";
        const Lines lines = SplitLines(text);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_LE(lines[i].size(), 77u) << "line " << i + 1;
            EXPECT_TRUE(std::all_of(lines[i].begin(), lines[i].end(),
                                    [](char c) { return c >= ' ' && c <= '~'; }))
                << "line " << i + 1;
        }
    }
    const Lines readme = SplitLines(ReadmeText());
    const Lines outline = {"Dear User,", "A brief description",
                           "The following software environment is required to run this program.",
                           "Printing the document file for more Information",
                           "Guidelines for installation"};
    for (std::size_t k = 1; k < outline.size(); ++k) {
        EXPECT_LT(HeadingLine(readme, outline[k - 1]), HeadingLine(readme, outline[k]));
    }
}

TEST(ManualPages, EveryPageEndsInItsNumberAndTheContentsGiveEachHeadingsPage) {
    const Lines manual = SplitLines(ManualText());
    ASSERT_EQ(manual.size() % PageLines, 0u) << "the last page is padded to its foot";
    std::size_t entries = 0;
    std::size_t previous = 0;
    for (std::size_t i = 0; i < manual.size(); ++i) {
        const std::string line = Collapsed(manual[i]);
        const bool foot = line.starts_with("- ") && line.ends_with(" -");
        EXPECT_EQ(foot, (i + 1) % PageLines == 0) << "line " << i + 1;
        if (foot) {
            EXPECT_EQ(line, "- " + std::to_string((i + 1) / PageLines) + " -");
            EXPECT_TRUE(manual[i - 1].empty()) << "a blank line keeps the text off the foot";
        }
        // An entry of the contents, "heading ...... page", against the heading's own line.
        const std::size_t dots = line.rfind(" ...");
        if (dots != std::string::npos &&
            line.find_last_not_of("0123456789") == line.rfind(". ") + 1) {
            ++entries;
            const std::string heading = line.substr(0, dots);
            const std::size_t at = HeadingLine(manual, heading);
            EXPECT_EQ(at / PageLines + 1, std::stoul(line.substr(line.rfind(' ')))) << heading;
            EXPECT_GT(at, previous) << heading << " stands out of order";
            previous = at;
        }
    }
    EXPECT_EQ(entries, 25u) << "both halves, every chapter and example";
}

// A failing write lands half of its text; the other document is written whole all the same.
TEST(WriteDocuments, WritesBothTextsWithCrLfAndGoesOnPastAFailedWrite) {
    const auto crLf = [](std::string_view text) {
        std::string lines;
        for (const std::string& line : SplitLines(text)) {
            lines += line + "\r\n";
        }
        return lines;
    };
    const std::string readme = crLf(ReadmeText());
    const std::string manual = crLf(ManualText());
    for (const int failing : {0, 1, 2}) {
        testing::Bench bench;
        testing::FailingFiles files(bench.files, testing::FileOp::Write, failing);
        EXPECT_EQ(WriteDocuments(files), failing == 0);
        EXPECT_EQ(bench.Read("readme.txt"),
                  failing == 1 ? readme.substr(0, readme.size() / 2) : readme);
        EXPECT_EQ(bench.Read("brennik-manual.txt"),
                  failing == 2 ? manual.substr(0, manual.size() / 2) : manual);
    }
}

// The worked examples, pressed as the manual tells the user to with the clock at the moment of
// its reports: the manual prints the report that the program writes, and right after it quotes
// the waste that the program computes, of money only with prices.
TEST(ManualExamples, PrintTheReportAndQuoteTheFiguresThatTheProgramGives) {
    const auto examples = bench::WorkedExamples();
    // The last, wider than a page, is shown as its page files, with waste summary and reference.
    const struct {
        bench::ProblemText problem;
        std::string unit;
        bool methodB = false, advanced = false, chapter4 = false;
    } cases[] = {{examples[0], "m", true, true},
                 {examples[1], "m"},
                 {examples[2], "ft", true, true},
                 {examples[3], "cm"},
                 {examples[4], "mm", true, true},
                 {{testing::kTwelveStock, testing::kTwelveCuts}, "m", false, true, true}};
    const Lines manual = SplitLines(ManualText());
    Lines collapsed;
    std::transform(manual.begin(), manual.end(), std::back_inserter(collapsed), Collapsed);
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        testing::Bench bench;
        bench.surface.SetNextInput("U channel aluminium.");
        bench.clock = FixedClock{testing::Moment(2025, 6, 12, 14, 5)};
        bench.Press(c.problem.stock, c.problem.cuts,
                    {c.methodB, c.advanced, c.chapter4, c.chapter4});
        ASSERT_FALSE(bench.m.EntryError || bench.m.LengthError) << bench.Status();

        // The report, or its page files, as a block of lines, trailing blanks aside.
        bench.m.PageWidth = DefaultPageWidth;
        if (c.chapter4) {
            ViewSolution(bench.m, bench.surface, bench.files);
            EXPECT_FALSE(bench.files.FileExists("page3")) << "the manual shows two page files";
        }
        auto reportEnd = manual.end();
        for (const std::string& name : c.chapter4 ? Lines{"page1", "page2"} : Lines{"last.sol"}) {
            Lines printed = SplitLines(bench.Read(name));
            ASSERT_FALSE(printed.empty()) << name;
            for (std::string& line : printed) {
                line.erase(line.find_last_not_of(' ') + 1);
            }
            reportEnd = std::search(manual.begin(), manual.end(), printed.begin(), printed.end());
            ASSERT_TRUE(reportEnd != manual.end()) << name << " stands nowhere in the manual";
            reportEnd += static_cast<long>(printed.size());
        }

        const Module1& m = bench.m;
        const bool a = m.MethodA != kFalse;
        const auto figure = [](double total, const std::string& unit, double percent) {
            return PictureText(total, "#0.00") + unit + " (" + PictureText(percent, "#0.00") +
                   " %)";
        };
        const Lines figures = {
            "Waste of material: " + figure(a ? m.TotalMatWasteA : m.TotalMatWasteB, " " + c.unit,
                                           a ? m.MatWastePctA : m.MatWastePctB),
            a || m.AllPriced ? "Waste of money: " + figure(a ? m.TotalMonWasteA : m.TotalMonWasteB,
                                                           "", a ? m.MonWastePctA : m.MonWastePctB)
                             : ""};
        const auto from = collapsed.begin() + (reportEnd - manual.begin());
        EXPECT_LT(std::search(from, collapsed.end(), figures.begin(), figures.end()) - from,
                  static_cast<long>(PageLines))
            << figures[0];
    }
}

}  // namespace
}  // namespace brennik
