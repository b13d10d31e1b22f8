#include "files/problem_files.h"

#include <gtest/gtest.h>

#include <charconv>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "files/text_lines.h"
#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Bench;

// The shortest text that reads back as the same number.
std::string Shortest(auto value) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

// The tables as "length/price ..." for the standard rows, then "| length x quantity ..." for the
// cutting rows, each table up to its last row that holds anything.
std::string Tables(std::string_view contents) {
    const ProblemTables t = ReadProblemTables(contents);
    const auto rows = [](const auto& first, const auto& second, int count, const char* between) {
        std::string text;
        std::string pending;  // rows that hold nothing, until one that does follows
        for (int row = 1; row <= count; ++row) {
            pending += " " + Shortest(first(row)) + between + Shortest(second(row));
            if (first(row) != 0 || second(row) != 0) {
                text += std::exchange(pending, "");
            }
        }
        return text;
    };
    return (rows(t.StdLength, t.StdPrice, MaxStdLengths, "/") + " |" +
            rows(t.CutLength, t.CutQty, MaxCutLengths, "x"))
        .substr(1);
}

TEST(ReadProblemTables, ReadsFieldsTwoAtATime) {
    std::vector<std::pair<std::string, std::string>> cases = {
        {"6.1,30.4\r\n5.5,27.5\r\n , \r\n2.3,121\r\n1.7,84\r\n",
         "6.1/30.4 5.5/27.5 | 2.3x121 1.7x84"},
        // Every form of an empty row ends the standard table.
        {"6,10\r\n,\r\n2,3", "6/10 | 2x3"},
        {"6,10\r\n\r\n2,3", "6/10 | 2x3"},
        {"6,10\r\n   \r\n2,3", "6/10 | 2x3"},
        {"6,10\r\n\t,\r\n2,3", "6/10 | 2x3"},
        {"\357\273\2776,10\r\n , \r\n2,3", "6/10 | 2x3"},  // behind a byte order mark
        // Six standard rows need no separator; without one the cutting rows are standard rows.
        {"6,1\r\n5,2\r\n4,3\r\n3,4\r\n2,5\r\n1,6\r\n.5,7", "6/1 5/2 4/3 3/4 2/5 1/6 | 0.5x7"},
        {"6,10\r\n2.3,121\r\n1.7,84", "6/10 2.3/121 1.7/84 |"},
        // Fields, not lines: a length without its comma takes the next line's length as price,
        // and a field past the end of the file reads 0.
        {"6\r\n5.5,27.5\r\n , \r\n2,3", "6/5.5 27.5/0 0/2 | 3x0"},
        // Quoted fields are read without their quotes; any field not wholly a number reads 0.
        {"\"6\" , \"1,5\"\r\n , \r\n12abc,4\r\n\" 2.5 \",x\r\n3, 7 ", "6/0 | 0x4 2.5x0 3x7"},
        // An empty line among the cutting rows is a row of 0,0; LF alone ends a line too.
        {" , \n2,3\r\n\r\n1,4\r\n1.5", "| 2x3 0x0 1x4 1.5x0"},
        {"", "|"},
        // Quantities round half to even; a number too large is held at its type's largest.
        {"1,1\r\n , \r\n2,2.5\r\n2,3.5\r\n2,3.9\r\n2,-2.5", "1/1 | 2x2 2x4 2x4 2x-2"},
        {"1e39,1e39\r\n-1e39,0\r\n1e39,1e10\r\n-1e39,-1e10",
         "3.4028235e+38/3.4028235e+38 -3.4028235e+38/0 | 3.4028235e+38x2147483647 "
         "-3.4028235e+38x-2147483648"},
    };
    // An empty row after six standard rows is the first cutting row; rows past the 40th go unread.
    std::string lines = "6,1\r\n5,2\r\n4,3\r\n3,4\r\n2,5\r\n1,6\r\n,";
    std::string tables = "6/1 5/2 4/3 3/4 2/5 1/6 | 0x0";
    for (int row = 2; row <= MaxCutLengths + 5; ++row) {
        lines += "\r\n" + std::to_string(row) + ",1";
        tables += row <= MaxCutLengths ? " " + std::to_string(row) + "x1" : "";
    }
    cases.emplace_back(lines, tables);
    for (const auto& [contents, expected] : cases) {
        EXPECT_EQ(Tables(contents), expected) << contents;
    }
}

// The save tests below write problems typed into the boxes; these are the edges of the layout.
TEST(WriteProblemText, WritesTheUnbrokenRunsOfRows) {
    Module1 m;
    CutRows<std::string> quantities;
    EXPECT_EQ(WriteProblemText(m, quantities), " , \r\n");
    // Six standard rows need no separator; a quantity that is no number is written as 0.
    for (int row = 1; row <= MaxStdLengths; ++row) {
        m.StdLength(row) = static_cast<float>(row);
    }
    m.CutLength(1) = 2.3f;
    quantities(1) = "abc";
    m.CutLength(3) = 9;  // behind a gap: not saved
    EXPECT_EQ(WriteProblemText(m, quantities),
              "1,0\r\n2,0\r\n3,0\r\n4,0\r\n5,0\r\n6,0\r\n2.3,0\r\n");
    m.StdLength(3) = 0;
    EXPECT_EQ(WriteProblemText(m, quantities), "1,0\r\n2,0\r\n , \r\n2.3,0\r\n");
}

TEST(ProblemFiles, ClearProblemEmptiesTheEntriesAndTheResults) {
    Bench bench;
    const std::vector<Control> boxes = {
        {Ctl::txtSL, 6}, {Ctl::txtSP, 1}, {Ctl::txtMon, 3}, {Ctl::txtMat, 6}, {Ctl::txtL, 40},
        {Ctl::txtN, 1},  {Ctl::Text1, 2}, {Ctl::Text2, 1},  {Ctl::Text3},     {Ctl::Text4, 2},
        {Ctl::Text5, 1}, {Ctl::Text6},    {Ctl::txtLong}};
    for (const Control box : boxes) {
        bench.surface.SetText(box, "7");
    }
    bench.surface.SetProgress({Ctl::ProgressBar1}, 50);
    ClearProblem(bench.m, bench.surface);
    for (const Control box : boxes) {
        EXPECT_EQ(bench.surface.Text(box), "") << ControlName(box);
    }
    EXPECT_EQ(bench.surface.State({Ctl::ProgressBar1}).progress, 0.0f);
}

// Save and Load open their dialogs in the application's folder, whatever the current one is. A
// cancelled save does not even read the boxes; only the next intake checks a loaded file's values.
TEST(ProblemFiles, SavedProblemLoadsBackIntoTheSameBoxes) {
    const testing::TempFolder work;
    Bench bench;
    DiskFileSystem files(bench.folder.Path(), work.Path());
    bench.Type({{"6.126", "30.4"}, {".8", ""}}, {{"2.3", "121"}, {"", ""}, {"1.7", "84.9"}});
    bench.surface.SetNextFileName("");
    SaveProblem(bench.m, bench.surface, files);
    EXPECT_EQ(bench.surface.Text({Ctl::txtSL, 1}), "6.126");
    EXPECT_TRUE(bench.folder.FileNames().empty() && std::filesystem::is_empty(work.Path()));

    bench.surface.SetNextFileName(bench.folder.PathOf("job.pro"));
    SaveProblem(bench.m, bench.surface, files);
    EXPECT_EQ(bench.surface.LastDialogFolder(), bench.folder.Path());
    EXPECT_EQ(bench.surface.LastDialogFilter(),
              " Brennik  problem  file  (*.pro)|*.pro| Microsoft  Excel comma delimited file  "
              "(*.csv)|*.csv");
    // The cutting row behind the empty row 2 is not saved.
    EXPECT_EQ(bench.Read("job.pro"), "6.13,30.4\r\n0.8,0\r\n , \r\n2.3,121\r\n");
    EXPECT_EQ(bench.folder.FileNames(), std::vector<std::string>{"job.pro"});

    files.SetCurrentFolder(work.Path());
    bench.surface.SetNextFileName(bench.folder.PathOf("job.pro"));
    LoadProblem(bench.m, bench.surface, files);
    EXPECT_EQ(files.CurrentFolder(), bench.folder.Path());
    EXPECT_EQ(bench.surface.LastDialogFilter(),
              " Brennik  problem  files  (*.pro)|*.pro| Microsoft  Excel comma delimited files  "
              "(*.csv)|*.csv| All  files  (*.*)|*.*");
    EXPECT_EQ(bench.surface.Text({Ctl::txtSL, 1}), "6.13");
    EXPECT_EQ(bench.surface.Text({Ctl::txtSP, 2}), "0");  // shows until the next intake
    EXPECT_EQ(bench.surface.Text({Ctl::txtN, 1}), "121");
    EXPECT_EQ(bench.surface.Text({Ctl::txtL, 3}), "");

    // A number too large for its field is held at the largest value, for the intake to refuse.
    bench.files.WriteFile("hand.csv", JoinLines({"1.234,5", "1e39,1e39", ",", "2,0", "3,1e10"}));
    bench.surface.SetNextFileName(bench.folder.PathOf("hand.csv"));
    LoadProblem(bench.m, bench.surface, files);
    EXPECT_EQ(bench.surface.Text({Ctl::txtSL, 1}), "1.234");
    EXPECT_EQ(bench.surface.Text({Ctl::txtSL, 2}), "340282300000000000000000000000000000000");
    EXPECT_EQ(bench.surface.Text({Ctl::txtN, 1}), "0");
    EXPECT_EQ(bench.surface.Text({Ctl::txtN, 2}), "2147483647");
    EXPECT_EQ(bench.Status(), "");
}

TEST(ProblemFiles, SaveLastProblemWritesInTheCurrentFolderEvenARefusedRow) {
    const testing::TempFolder app;
    Bench bench;
    DiskFileSystem files(app.Path(), bench.folder.Path());
    bench.Type({{"6.126", "30.4"}, {".8", ""}}, {{"2.3", "121"}, {"1.5", "0.5"}, {"1.7", "84.9"}});
    SaveLastProblem(bench.m, bench.surface, files);
    EXPECT_EQ(bench.Status(), " Unacceptable Entry !.");
    EXPECT_EQ(bench.Read("last.pro"), "6.13,30.4\r\n0.8,0\r\n , \r\n2.3,121\r\n1.5,0.5\r\n");
    EXPECT_TRUE(std::filesystem::is_empty(app.Path()));
    for (const SurfaceEvent& event : bench.surface.Events()) {
        EXPECT_NE(event.op, SurfaceOp::SaveFileDialog);
    }
}

}  // namespace
}  // namespace brennik
