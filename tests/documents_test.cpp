#include "shell/documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "failing_files.h"
#include "files/settings.h"
#include "files/text_lines.h"
#include "press_fixture.h"
#include "report/page_files.h"
#include "run/find_press.h"
#include "temp_folder.h"

namespace brennik {
namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;
using Lines = std::vector<std::string>;

// The manual is paged for printing: 61 lines to a page, the last of them its number.
constexpr std::size_t PageLines = 61;
constexpr std::size_t MaxColumns = 77;

// The reports of the manual were made at this moment, and its stamps show it.
const std::tm ManualMoment = testing::Moment(2025, 6, 12, 14, 5);

const Lines ReadmeHeadings = {
    "  Dear User,",
    "  A brief description",
    "  The following software environment is required to run this program.",
    "  Printing the document file for more Information",
    "  Guidelines for installation",
};

const Lines ManualHeadings = {
    "Getting  Started",
    "  Brief description",
    "  Detailed  description",
    "A Brennik to help you.",
    "Example - 1",
    "Example - 2",
    "Example - 3",
    "Example - 4",
    "User  Manual",
    "1.0 An interesting  puzzle",
    "2.0 A Brennik to help you",
    "3.0 How to use the Brennik",
    "3.1 Entering a problem",
    "3.2 Selecting a \"Run mode\"",
    "3.3 Finding the solution",
    "3.4 Viewing the solution",
    "3.5 Printing the solution",
    "3.6 Saving a problem",
    "3.7 Loading a problem",
    "3.8 Entering a new problem",
    "3.9 Exit the program",
    "4.0 Exploring the solution",
    "5.0 Configuring the program",
    "6.0 Special  notes",
};

std::string TrimRight(const std::string& text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string TrimLeft(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first);
}

// Runs of blanks as one, so that a figure is found however the columns are aligned.
std::string Collapsed(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c != ' ' || out.empty() || out.back() != ' ') {
            out += c;
        }
    }
    return out;
}

std::optional<double> NumberOf(const std::string& token) {
    char* end = nullptr;
    const double value = std::strtod(token.c_str(), &end);
    if (token.empty() || *end != '\0') {
        return std::nullopt;
    }
    return value;
}

std::vector<std::string> Tokens(const std::string& line) {
    std::istringstream words(line);
    std::vector<std::string> tokens;
    for (std::string word; words >> word;) {
        tokens.push_back(word);
    }
    return tokens;
}

std::string Fixed2(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

// Where the manual puts each heading: the index of the one line that is exactly the heading.
std::size_t HeadingLine(const Lines& manual, const std::string& heading) {
    std::size_t found = manual.size();
    for (std::size_t i = 0; i < manual.size(); ++i) {
        if (manual[i] == heading) {
            EXPECT_EQ(found, manual.size()) << "heading \"" << heading << "\" stands twice";
            found = i;
        }
    }
    EXPECT_LT(found, manual.size()) << "no heading \"" << heading << "\"";
    return found;
}

// The lines from a heading of the manual to the next one.
Lines Section(const Lines& manual, const std::string& heading) {
    const std::size_t begin = HeadingLine(manual, heading);
    std::size_t end = manual.size();
    for (const std::string& other : ManualHeadings) {
        const std::size_t at = HeadingLine(manual, other);
        if (at > begin && at < end) {
            end = at;
        }
    }
    return begin < end ? Lines(manual.begin() + begin, manual.begin() + end) : Lines();
}

bool ContainsBlock(const Lines& text, const Lines& block) {
    for (std::size_t i = 0; i + block.size() <= text.size(); ++i) {
        if (std::equal(block.begin(), block.end(), text.begin() + i)) {
            return true;
        }
    }
    return false;
}

TEST(DocumentText, EveryLineIsPlainAsciiOfAtMost77Columns) {
    for (const auto& [name, text] :
         {std::pair{"readme", ReadmeText()}, std::pair{"manual", ManualText()}}) {
        SCOPED_TRACE(name);
        ASSERT_FALSE(text.empty());
        EXPECT_EQ(text.back(), '\n') << "the last line has its end";
        const Lines lines = SplitLines(text);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            EXPECT_LE(lines[i].size(), MaxColumns) << "line " << i + 1;
            for (const char c : lines[i]) {
                EXPECT_TRUE(c >= ' ' && c <= '~')
                    << "line " << i + 1 << " holds character code " << int(c);
            }
        }
    }
}

TEST(DocumentText, HeadingsOfTheOutlineStandInOrder) {
    for (const auto& [text, headings] :
         {std::pair{ReadmeText(), ReadmeHeadings}, std::pair{ManualText(), ManualHeadings}}) {
        const Lines lines = SplitLines(text);
        std::optional<std::size_t> previous;
        for (const std::string& heading : headings) {
            const std::size_t at = HeadingLine(lines, heading);
            EXPECT_TRUE(!previous || at > *previous) << "\"" << heading << "\" is out of order";
            previous = at;
        }
    }
}

TEST(ManualPages, EveryPageHas61LinesEndingInItsNumber) {
    const Lines manual = SplitLines(ManualText());
    ASSERT_EQ(manual.size() % PageLines, 0u) << "the last page is padded to its foot";
    for (std::size_t i = 0; i < manual.size(); ++i) {
        const bool pageEnd = (i + 1) % PageLines == 0;
        const std::string footer = "- " + std::to_string((i + 1) / PageLines) + " -";
        if (pageEnd) {
            EXPECT_EQ(TrimLeft(manual[i]), footer) << "line " << i + 1;
            EXPECT_TRUE(manual[i - 1].empty()) << "a blank line keeps the text off the foot";
        } else {
            EXPECT_FALSE(TrimLeft(manual[i]).starts_with("- ") && manual[i].ends_with(" -"))
                << "a page number in the middle of a page, line " << i + 1;
        }
    }
}

TEST(ManualPages, ContentsGiveThePageOfEveryHeading) {
    const Lines manual = SplitLines(ManualText());
    for (const std::string& heading : ManualHeadings) {
        SCOPED_TRACE(heading);
        const std::size_t page = HeadingLine(manual, heading) / PageLines + 1;
        const std::string entry = TrimLeft(heading) + " .";
        int entries = 0;
        for (const std::string& line : manual) {
            if (TrimLeft(line).starts_with(entry)) {
                ++entries;
                EXPECT_EQ(NumberOf(Tokens(line).back()), double(page)) << line;
            }
        }
        EXPECT_EQ(entries, 1);
    }
}

TEST(WriteDocuments, WritesBothTextsWithCrLfLineEnds) {
    testing::TempFolder folder;
    DiskFileSystem files(folder.Path(), folder.Path());
    ASSERT_TRUE(WriteDocuments(files));
    EXPECT_EQ(folder.FileNames(), (Lines{"brennik-manual.txt", "readme.txt"}));
    for (const auto& [name, text] :
         {std::pair{"readme.txt", ReadmeText()}, std::pair{"brennik-manual.txt", ManualText()}}) {
        SCOPED_TRACE(name);
        std::string written;
        ASSERT_TRUE(files.ReadFile(name, written));
        std::size_t lineEnds = 0;
        for (std::size_t i = 0; i < written.size(); ++i) {
            if (written[i] == '\n') {
                ++lineEnds;
                EXPECT_TRUE(i > 0 && written[i - 1] == '\r') << "a bare LF at byte " << i;
            }
        }
        EXPECT_EQ(lineEnds, SplitLines(text).size());
        EXPECT_EQ(SplitLines(written), SplitLines(text));
    }
}

TEST(WriteDocuments, AFailedWriteIsReportedAndTheOtherFileStillWritten) {
    testing::TempFolder folder;
    DiskFileSystem disk(folder.Path(), folder.Path());
    testing::FailingFiles readmeFails(disk, testing::FileOp::Write, 1);
    EXPECT_FALSE(WriteDocuments(readmeFails));
    EXPECT_EQ(folder.FileNames(), (Lines{"brennik-manual.txt"}));

    testing::TempFolder other;
    DiskFileSystem otherDisk(other.Path(), other.Path());
    testing::FailingFiles manualFails(otherDisk, testing::FileOp::Write, 2);
    EXPECT_FALSE(WriteDocuments(manualFails));
    EXPECT_EQ(other.FileNames(), (Lines{"readme.txt"}));
}

// A worked example of the manual: the problem as the user types it, the run mode and settings,
// and where the manual states the problem and prints its solution.
struct WorkedExample {
    std::string name;
    std::string problemSection;
    std::string solutionSection;
    Rows stock;
    Rows cuts;
    bool methodB = false;
    bool advanced = false;
    bool wasteSummary = false;
    std::optional<std::string> reference = std::nullopt;
    // The report is wider than a page of the manual, which shows its page files instead.
    bool asPageFiles = false;
};

const std::vector<WorkedExample> WorkedExamples = {
    {.name = "GettingStarted",
     .problemSection = "  Detailed  description",
     .solutionSection = "A Brennik to help you.",
     .stock = {{"6.1", "30.4"}, {"5.5", "27.5"}, {"4.6", "22.3"}, {"4.3", "20.1"}, {"3.7", "18.6"}},
     .cuts = {{"1.7", "84"},
              {"2.3", "121"},
              {"1.5", "67"},
              {"0.8", "90"},
              {"1.1", "65"},
              {"1.3", "119"},
              {"3.1", "114"},
              {"0.6", "191"}},
     .methodB = true,
     .advanced = true},
    {.name = "Example1Metres",
     .problemSection = "Example - 1",
     .solutionSection = "Example - 1",
     .stock =
         {{"6", "20"}, {"5.4", "18"}, {"4.8", "15"}, {"4.2", "14"}, {"3.6", "12"}, {"3", "11"}},
     .cuts = {{"1.87", "98"},
              {"1.14", "65"},
              {"0.94", "67"},
              {"1.65", "87"},
              {"0.55", "32"},
              {"2.12", "51"},
              {"1.17", "42"},
              {"3.7", "78"},
              {"2.33", "53"},
              {"4.11", "81"},
              {"4.2", "62"},
              {"4.3", "27"},
              {"5.4", "27"}}},
    {.name = "Example2Feet",
     .problemSection = "Example - 2",
     .solutionSection = "Example - 2",
     .stock = {{"20", "21"}, {"18", "17.5"}, {"15", "14.5"}, {"14", "13.5"}, {"12", "13"}},
     .cuts = {{"7.5", "98"},
              {"7.3", "65"},
              {"4.4", "67"},
              {"6.3", "87"},
              {"5.5", "32"},
              {"9.3", "51"},
              {"7.1", "43"},
              {"2.4", "47"},
              {"1.9", "56"},
              {"3.4", "18"}},
     .methodB = true,
     .advanced = true},
    {.name = "Example3Centimetres",
     .problemSection = "Example - 3",
     .solutionSection = "Example - 3",
     .stock =
         {{"660", "46"}, {"600", "42"}, {"540", "38"}, {"480", "33"}, {"420", "29"}, {"360", "24"}},
     .cuts = {{"330", "51"},
              {"325", "67"},
              {"455", "87"},
              {"186", "30"},
              {"210", "72"},
              {"135", "66"},
              {"175", "88"},
              {"145", "67"},
              {"245", "61"}}},
    {.name = "Example4MillimetresWithoutPrices",
     .problemSection = "Example - 4",
     .solutionSection = "Example - 4",
     .stock = {{"6000", ""}, {"5400", ""}, {"4800", ""}, {"4000", ""}, {"3600", ""}, {"3000", ""}},
     .cuts = {{"725", "44"},
              {"730", "63"},
              {"440", "51"},
              {"630", "23"},
              {"555", "71"},
              {"935", "26"},
              {"710", "19"},
              {"345", "31"},
              {"495", "51"},
              {"545", "78"}},
     .methodB = true,
     .advanced = true},
    {.name = "Chapter4BarOf12WithWasteSummaryAndReference",
     .problemSection = "4.0 Exploring the solution",
     .solutionSection = "4.0 Exploring the solution",
     .stock = {{"12", "12"}},
     .cuts = {{"7.5", "20"}, {"4.5", "21"}, {"5.1", "24"}, {"6.5", "25"}},
     .advanced = true,
     .wasteSummary = true,
     .reference = "U channel aluminium.",
     .asPageFiles = true},
};

// Names the example in the test's messages instead of dumping its bytes.
void PrintTo(const WorkedExample& example, std::ostream* out) {
    *out << example.name;
}

class ManualExample : public ::testing::TestWithParam<WorkedExample> {
protected:
    // Presses Find Solution on the example as the manual tells the user to, with the clock at
    // the moment of the manual's reports.
    void SetUp() override {
        const WorkedExample& example = GetParam();
        bench_.Type(example.stock, example.cuts);
        if (example.methodB) {
            bench_.surface.SetValue({Ctl::Option2}, true);
        }
        bench_.surface.SetValue({Ctl::Check1}, example.advanced);
        bench_.m.ShowWasteSummary = ToFlag(example.wasteSummary);
        bench_.m.ShowReference = ToFlag(example.reference.has_value());
        bench_.surface.SetNextInput(example.reference);
        cmdFind_Click(bench_.m, platform_);
        ASSERT_FALSE(bench_.m.EntryError || bench_.m.LengthError) << bench_.Status();
    }

    // The lines of a file the press left, without trailing blanks, as the manual prints them.
    Lines Printed(const std::string& name) {
        Lines lines = SplitLines(bench_.Read(name));
        for (std::string& line : lines) {
            line = TrimRight(line);
        }
        return lines;
    }

    testing::Bench bench_;
    FixedClock clock_{ManualMoment};
    Platform platform_{bench_.surface, bench_.files, clock_};
    const Lines manual_ = SplitLines(ManualText());
};

TEST_P(ManualExample, PrintsTheReportThatTheProgramWrites) {
    const Lines section = Section(manual_, GetParam().solutionSection);
    if (!GetParam().asPageFiles) {
        const Lines report = Printed("last.sol");
        ASSERT_FALSE(report.empty());
        EXPECT_TRUE(ContainsBlock(section, report));
        return;
    }
    bench_.m.PageWidth = DefaultPageWidth;
    ViewSolution(bench_.m, bench_.surface, bench_.files);
    const Lines page1 = Printed("page1");
    const Lines page2 = Printed("page2");
    ASSERT_FALSE(page2.empty());
    EXPECT_FALSE(bench_.files.FileExists("page3")) << "the manual shows two page files";
    EXPECT_TRUE(ContainsBlock(section, page1)) << "page1";
    EXPECT_TRUE(ContainsBlock(section, page2)) << "page2";
}

TEST_P(ManualExample, QuotesTheFiguresThatTheProgramComputes) {
    const Module1& m = bench_.m;
    const bool methodA = m.MethodA != kFalse;
    const bool money = methodA || m.AllPriced != kFalse;
    struct Figure {
        std::string label;
        double total;
        double percent;
    };
    std::vector<Figure> figures = {
        {"Waste of material:", methodA ? m.TotalMatWasteA : m.TotalMatWasteB,
         methodA ? m.MatWastePctA : m.MatWastePctB}};
    if (money) {
        figures.push_back({"Waste of money:", methodA ? m.TotalMonWasteA : m.TotalMonWasteB,
                           methodA ? m.MonWastePctA : m.MonWastePctB});
    }
    const Lines section = Section(manual_, GetParam().solutionSection);
    auto linesWith = [&section](const std::string& text) {
        Lines found;
        for (const std::string& line : section) {
            if (Collapsed(line).find(text) != std::string::npos) {
                found.push_back(Collapsed(line));
            }
        }
        return found;
    };
    for (const Figure& figure : figures) {
        const Lines quoted = linesWith(figure.label);
        ASSERT_EQ(quoted.size(), 1u) << figure.label;
        EXPECT_NE(quoted[0].find(figure.label + " " + Fixed2(figure.total) + " "),
                  std::string::npos)
            << quoted[0];
        EXPECT_NE(quoted[0].find("(" + Fixed2(figure.percent) + " %)"), std::string::npos)
            << quoted[0];
    }
    const Lines cost = linesWith("Total cost:");
    if (money) {
        ASSERT_EQ(cost.size(), 1u);
        EXPECT_TRUE(
            cost[0].ends_with("Total cost: " + Fixed2(methodA ? m.TotalCostA : m.TotalCostB)))
            << cost[0];
    } else {
        EXPECT_TRUE(cost.empty()) << "no cost without prices";
        EXPECT_TRUE(linesWith("Waste of money:").empty()) << "no money without prices";
    }
}

// Every row that the test types stands in the manual's table of the problem, as a length
// followed by its price or quantity.
TEST_P(ManualExample, StatesTheProblemThatIsSolved) {
    const Lines section = Section(manual_, GetParam().problemSection);
    auto hasPair = [&section](const std::pair<std::string, std::string>& row) {
        const std::optional<double> length = NumberOf(row.first);
        const std::optional<double> second = NumberOf(row.second);
        for (const std::string& line : section) {
            const std::vector<std::string> tokens = Tokens(line);
            for (std::size_t i = 0; i < tokens.size(); ++i) {
                const bool first = NumberOf(tokens[i]) == length;
                if (first && !second) {
                    return true;
                }
                if (first && i + 1 < tokens.size() && NumberOf(tokens[i + 1]) == second) {
                    return true;
                }
            }
        }
        return false;
    };
    for (const auto& row : GetParam().stock) {
        EXPECT_TRUE(hasPair(row)) << "standard length " << row.first << ", " << row.second;
    }
    for (const auto& row : GetParam().cuts) {
        EXPECT_TRUE(hasPair(row)) << "cutting length " << row.first << " x " << row.second;
    }
}

std::string ExampleName(const ::testing::TestParamInfo<WorkedExample>& example) {
    return example.param.name;
}

INSTANTIATE_TEST_SUITE_P(Manual, ManualExample, ::testing::ValuesIn(WorkedExamples), ExampleName);

}  // namespace
}  // namespace brennik
