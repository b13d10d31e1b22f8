#include "files/problem_files.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "failing_files.h"
#include "files/text_lines.h"
#include "shell/memory_surface.h"
#include "state/intake.h"
#include "temp_folder.h"

namespace brennik {
namespace {

namespace fs = std::filesystem;

ProblemTables Read(const std::vector<std::string>& lines) {
    return ReadProblemTables(JoinLines(lines));
}

TEST(ReadProblemTables, ReadsTheStandardTableUpToTheSeparator) {
    const ProblemTables t = Read({"6.1,30.4", "5.5,27.5", " , ", "2.3,121", "1.7,84"});
    EXPECT_EQ(t.StdLength(1), 6.1f);
    EXPECT_EQ(t.StdPrice(1), 30.4f);
    EXPECT_EQ(t.StdLength(2), 5.5f);
    EXPECT_EQ(t.StdLength(3), 0.0f);
    EXPECT_EQ(t.CutLength(1), 2.3f);
    EXPECT_EQ(t.CutQty(1), 121);
    EXPECT_EQ(t.CutLength(2), 1.7f);
    EXPECT_EQ(t.CutQty(2), 84);
    EXPECT_EQ(t.CutLength(3), 0.0f);
}

TEST(ReadProblemTables, EveryFormOfAnEmptyRowEndsTheStandardTable) {
    for (const char* separator : {" , ", ",", "", "   ", "\t,"}) {
        const ProblemTables t = Read({"6,10", separator, "2,3"});
        EXPECT_EQ(t.StdLength(2), 0.0f) << '"' << separator << '"';
        EXPECT_EQ(t.CutLength(1), 2.0f) << '"' << separator << '"';
        EXPECT_EQ(t.CutQty(1), 3) << '"' << separator << '"';
    }
}

TEST(ReadProblemTables, SixStandardRowsAreFollowedDirectlyByTheCuttingRows) {
    std::vector<std::string> lines = {"6,1", "5,2", "4,3", "3,4", "2,5", "1,6"};
    EXPECT_EQ(Read(lines).StdLength(6), 1.0f);
    lines.push_back("0.5,7");
    EXPECT_EQ(Read(lines).CutLength(1), 0.5f);

    // A spreadsheet's empty row after six rows becomes cutting row 1; what no longer fits into
    // the forty rows is ignored.
    lines.back() = ",";
    for (int row = 2; row <= MaxCutLengths + 1; ++row) {
        lines.push_back(std::to_string(row) + ",1");
    }
    const ProblemTables t = Read(lines);
    EXPECT_EQ(t.CutLength(1), 0.0f);
    EXPECT_EQ(t.CutLength(2), 2.0f);
    EXPECT_EQ(t.CutLength(MaxCutLengths), 40.0f);
}

TEST(ReadProblemTables, TakesCuttingRowsForStandardRowsWithoutASeparator) {
    const ProblemTables t = Read({"6,10", "2.3,121", "1.7,84"});
    EXPECT_EQ(t.StdLength(2), 2.3f);
    EXPECT_EQ(t.StdPrice(2), 121.0f);
    EXPECT_EQ(t.StdPrice(3), 84.0f);
    EXPECT_EQ(t.StdLength(4), 0.0f);
    EXPECT_EQ(t.CutLength(1), 0.0f);
}

TEST(ReadProblemTables, ReadsFieldsNotLines) {
    // A length without its comma takes the next line's first field as its price.
    const ProblemTables t = Read({"6", "5.5,27.5", " , ", "2,3"});
    EXPECT_EQ(t.StdLength(1), 6.0f);
    EXPECT_EQ(t.StdPrice(1), 5.5f);
    EXPECT_EQ(t.StdLength(2), 27.5f);
    EXPECT_EQ(t.StdPrice(2), 0.0f);
    EXPECT_EQ(t.StdLength(3), 0.0f);
    EXPECT_EQ(t.StdPrice(3), 2.0f);
    EXPECT_EQ(t.CutLength(1), 3.0f);
    EXPECT_EQ(t.CutQty(1), 0);  // past the end of the file
}

TEST(ReadProblemTables, ReadsQuotedFieldsAndTakesOtherTextAsZero) {
    const ProblemTables t = Read({"\"6\" , \"1,5\"", " , ", "12abc,4", "\" 2.5 \",x", "3, 7 "});
    EXPECT_EQ(t.StdLength(1), 6.0f);
    EXPECT_EQ(t.StdPrice(1), 0.0f);
    EXPECT_EQ(t.CutLength(1), 0.0f);
    EXPECT_EQ(t.CutQty(1), 4);
    EXPECT_EQ(t.CutLength(2), 2.5f);
    EXPECT_EQ(t.CutQty(2), 0);
    EXPECT_EQ(t.CutQty(3), 7);
}

TEST(ReadProblemTables, RoundsQuantitiesHalfToEvenAndHoldsHugeNumbers) {
    const ProblemTables t =
        Read({"1e39,1e39", "-1e39,0", "2,2.5", "2,3.5", "2,3.9", "1e39,1e10", "-1e39,-1e10"});
    EXPECT_EQ(t.StdLength(1), FLT_MAX);
    EXPECT_EQ(t.StdPrice(1), FLT_MAX);
    EXPECT_EQ(t.StdLength(2), -FLT_MAX);
    EXPECT_EQ(t.CutQty(1), 2);
    EXPECT_EQ(t.CutQty(2), 4);
    EXPECT_EQ(t.CutQty(3), 4);
    EXPECT_EQ(t.CutLength(4), FLT_MAX);
    EXPECT_EQ(t.CutQty(4), INT32_MAX);
    EXPECT_EQ(t.CutLength(5), -FLT_MAX);
    EXPECT_EQ(t.CutQty(5), INT32_MIN);
}

TEST(ReadProblemTables, ReadsToTheLastByteOfTheFile) {
    // An empty line inside the cutting table is a row without a length; the rows behind it
    // keep their places. A file may end inside a pair, and its lines may end in LF alone.
    const ProblemTables t = ReadProblemTables(" , \n2,3\r\n\r\n1,4\r\n1.5");
    EXPECT_EQ(t.CutLength(2), 0.0f);
    EXPECT_EQ(t.CutLength(3), 1.0f);
    EXPECT_EQ(t.CutQty(3), 4);
    EXPECT_EQ(t.CutLength(4), 1.5f);
    EXPECT_EQ(t.CutQty(4), 0);

    const ProblemTables empty = ReadProblemTables("");
    EXPECT_EQ(empty.StdLength(1), 0.0f);
    EXPECT_EQ(empty.CutLength(1), 0.0f);
}

TEST(WriteProblemText, WritesTheUnbrokenRunsOfRows) {
    Module1 m;
    CutRows<std::string> quantities;
    EXPECT_EQ(WriteProblemText(m, quantities), " , \r\n");

    m.StdLength(1) = 6.1f;
    m.StdPrice(1) = 30.4f;
    m.StdLength(2) = 0.8f;  // without a price
    m.StdLength(4) = 5;     // behind a gap: not saved
    m.CutLength(1) = 2.3f;
    quantities(1) = "121";
    m.CutLength(2) = 1.5f;
    quantities(2) = "0.5";  // a refused row's quantity, as its box holds it
    m.CutLength(4) = 9;
    quantities(4) = "2";
    EXPECT_EQ(WriteProblemText(m, quantities),
              "6.1,30.4\r\n0.8,0\r\n , \r\n2.3,121\r\n1.5,0.5\r\n");

    m.StdLength(1) = 0;
    EXPECT_EQ(WriteProblemText(m, quantities).substr(0, 5), " , \r\n");

    Module1 six;
    for (int row = 1; row <= MaxStdLengths; ++row) {
        six.StdLength(row) = static_cast<float>(row);
    }
    six.CutLength(1) = 1;
    quantities(1) = "abc";
    EXPECT_EQ(WriteProblemText(six, quantities),
              "1,0\r\n2,0\r\n3,0\r\n4,0\r\n5,0\r\n6,0\r\n1,0\r\n");
}

// A form and a disk with an application folder and a different current folder, removed after
// each test.
class ProblemFilesTest : public ::testing::Test {
protected:
    void SetUp() override {
        root_ = folder_.Path();
        fs::create_directories(root_ / "app");
        fs::create_directories(root_ / "work");
        files_ =
            std::make_unique<DiskFileSystem>((root_ / "app").string(), (root_ / "work").string());
    }

    std::string AppPath(const std::string& name) const { return (root_ / "app" / name).string(); }
    std::string WorkPath(const std::string& name) const { return (root_ / "work" / name).string(); }
    std::string WorkFolder() const { return (root_ / "work").string(); }

    std::string Contents(const std::string& path) {
        std::string contents;
        EXPECT_TRUE(files_->ReadFile(path, contents)) << path;
        return contents;
    }

    void EnterProblem() {
        surface_.SetText({Ctl::txtSL, 1}, "6.126");
        surface_.SetText({Ctl::txtSP, 1}, "30.4");
        surface_.SetText({Ctl::txtSL, 2}, ".8");
        surface_.SetText({Ctl::txtL, 1}, "2.3");
        surface_.SetText({Ctl::txtN, 1}, "121");
        surface_.SetText({Ctl::txtL, 3}, "1.7");
        surface_.SetText({Ctl::txtN, 3}, "84.9");
    }

    testing::TempFolder folder_;
    fs::path root_;
    std::unique_ptr<DiskFileSystem> files_;
    MemorySurface surface_;
    Module1 m_;
};

TEST_F(ProblemFilesTest, ClearProblemEmptiesTheProblemAndTheResults) {
    const std::vector<Control> boxes = {
        {Ctl::txtSL, 6}, {Ctl::txtSP, 1}, {Ctl::txtMon, 3}, {Ctl::txtMat, 6}, {Ctl::txtL, 40},
        {Ctl::txtN, 1},  {Ctl::Text1, 2}, {Ctl::Text2, 1},  {Ctl::Text3},     {Ctl::Text4, 2},
        {Ctl::Text5, 1}, {Ctl::Text6},    {Ctl::txtLong}};
    for (const Control box : boxes) {
        surface_.SetText(box, "7");
    }
    surface_.SetBackColor({Ctl::txtLong}, Yellow);
    surface_.SetForeColor({Ctl::txtLong}, Red);
    surface_.SetProgress({Ctl::ProgressBar1}, 50);
    surface_.SetValue({Ctl::Check1}, true);
    m_.StdPrice(6) = 3;
    m_.CutQty(40) = 4;
    ClearProblem(m_, surface_);

    for (const Control box : boxes) {
        EXPECT_EQ(surface_.Text(box), "") << ControlName(box);
    }
    EXPECT_EQ(m_.StdPrice(6), 0.0f);
    EXPECT_EQ(m_.CutQty(40), 0);
    EXPECT_EQ(surface_.State({Ctl::ProgressBar1}).progress, 0.0f);
    EXPECT_EQ(surface_.State({Ctl::txtLong}).back, White);
    EXPECT_EQ(surface_.State({Ctl::txtLong}).fore, Red);
    EXPECT_EQ(surface_.Events().back().op, SurfaceOp::Refresh);
    EXPECT_TRUE(surface_.Value({Ctl::Check1}));
}

TEST_F(ProblemFilesTest, SavedProblemLoadsBackIntoTheSameBoxes) {
    EnterProblem();
    surface_.SetNextFileName(AppPath("job.pro"));
    surface_.ClearEvents();
    SaveProblem(m_, surface_, *files_);
    EXPECT_EQ(files_->CurrentFolder(), files_->AppFolder());
    EXPECT_EQ(surface_.LastDialogFolder(), files_->AppFolder());
    EXPECT_EQ(surface_.Events().front().text, "Save a Problem for Later Use");
    EXPECT_EQ(surface_.LastDialogFilter(),
              " Brennik  problem  file  (*.pro)|*.pro| Microsoft  Excel comma delimited file  "
              "(*.csv)|*.csv");
    // The cutting row behind the empty row 2 is not saved.
    EXPECT_EQ(Contents(AppPath("job.pro")), "6.13,30.4\r\n0.8,0\r\n , \r\n2.3,121\r\n");
    EXPECT_FALSE(files_->FileExists(AppPath("job.pro.new")));

    files_->SetCurrentFolder(WorkFolder());
    surface_.ClearEvents();
    LoadProblem(m_, surface_, *files_);
    EXPECT_EQ(surface_.Events().front().control, (Control{Ctl::txtSL, 1}));  // cleared first
    EXPECT_EQ(files_->CurrentFolder(), files_->AppFolder());
    EXPECT_EQ(surface_.LastDialogFilter(),
              " Brennik  problem  files  (*.pro)|*.pro| Microsoft  Excel comma delimited files  "
              "(*.csv)|*.csv| All  files  (*.*)|*.*");
    EXPECT_EQ(surface_.Text({Ctl::txtSL, 1}), "6.13");
    EXPECT_EQ(surface_.Text({Ctl::txtSP, 2}), "0");  // a price of 0 shows until the next intake
    EXPECT_EQ(surface_.Text({Ctl::txtN, 1}), "121");
    EXPECT_EQ(surface_.Text({Ctl::txtL, 3}), "");
    EXPECT_EQ(m_.StdLength(2), 0.8f);
}

TEST_F(ProblemFilesTest, LoadedValuesAreCheckedOnlyByTheNextIntake) {
    files_->WriteFile(AppPath("hand.csv"),
                      JoinLines({"1.234,5", "1e39,1e39", ",", "2,0", "3,1e10"}));
    surface_.SetValue({Ctl::Option1}, true);
    surface_.SetNextFileName(AppPath("hand.csv"));
    LoadProblem(m_, surface_, *files_);
    EXPECT_EQ(surface_.Text({Ctl::txtSL, 1}), "1.234");
    EXPECT_EQ(surface_.Text({Ctl::txtSL, 2}), "340282300000000000000000000000000000000");
    EXPECT_EQ(surface_.Text({Ctl::txtN, 1}), "0");
    EXPECT_EQ(surface_.Text({Ctl::txtN, 2}), "2147483647");
    EXPECT_EQ(surface_.Text({Ctl::txtLong}), "");
    EXPECT_TRUE(surface_.Value({Ctl::Option1}));

    ReadEntries(m_, surface_);
    EXPECT_EQ(surface_.Text({Ctl::txtSL, 1}), "1.23");
    EXPECT_EQ(surface_.Text({Ctl::txtSL, 2}), "");
    EXPECT_EQ(surface_.Text({Ctl::txtSP, 2}), "");
    EXPECT_EQ(surface_.Focus(), (Control{Ctl::txtL, 1}));

    surface_.SetText({Ctl::txtN, 1}, "1");
    ReadEntries(m_, surface_);
    EXPECT_EQ(surface_.Focus(), (Control{Ctl::txtL, 2}));
}

TEST_F(ProblemFilesTest, CancelledDialogs) {
    EnterProblem();
    surface_.SetNextFileName("");
    surface_.ClearEvents();
    SaveProblem(m_, surface_, *files_);
    EXPECT_EQ(surface_.Events().size(), 1u);  // the dialog alone
    EXPECT_EQ(surface_.Text({Ctl::txtSL, 1}), "6.126");
    EXPECT_TRUE(fs::is_empty(root_ / "app"));

    surface_.SetText({Ctl::Text3}, "12.5");
    LoadProblem(m_, surface_, *files_);
    EXPECT_EQ(surface_.Text({Ctl::txtSL, 1}), "");
    EXPECT_EQ(surface_.Text({Ctl::Text3}), "");
}

TEST_F(ProblemFilesTest, AFileThatCannotBeReadIsToldAndTheFormStaysEmpty) {
    EnterProblem();
    surface_.SetNextFileName(AppPath("missing.pro"));
    LoadProblem(m_, surface_, *files_);
    EXPECT_EQ(surface_.Text({Ctl::txtLong}), " Cannot read the problem file !.");
    EXPECT_EQ(surface_.State({Ctl::txtLong}).back, White);
    EXPECT_EQ(surface_.State({Ctl::txtLong}).fore, Red);
    EXPECT_EQ(surface_.Text({Ctl::txtL, 1}), "");
}

TEST_F(ProblemFilesTest, SaveLastProblemWritesInTheCurrentFolderEvenARefusedRow) {
    SaveLastProblem(m_, surface_, *files_);
    EXPECT_EQ(Contents(WorkPath("last.pro")), " , \r\n");
    EXPECT_EQ(files_->CurrentFolder(), WorkFolder());

    EnterProblem();
    surface_.SetText({Ctl::txtL, 2}, "1.5");
    surface_.SetText({Ctl::txtN, 2}, "0.5");
    SaveLastProblem(m_, surface_, *files_);
    EXPECT_EQ(surface_.Text({Ctl::txtLong}), " Unacceptable Entry !.");
    EXPECT_EQ(Contents(WorkPath("last.pro")),
              "6.13,30.4\r\n0.8,0\r\n , \r\n2.3,121\r\n1.5,0.5\r\n");
    for (const SurfaceEvent& event : surface_.Events()) {
        EXPECT_NE(event.op, SurfaceOp::SaveFileDialog);
    }
}

TEST_F(ProblemFilesTest, AFailedWriteKeepsThePreviousFile) {
    for (const testing::FileOp op : {testing::FileOp::Write, testing::FileOp::Replace}) {
        SCOPED_TRACE(op == testing::FileOp::Write ? "write fails" : "replace fails");
        files_->WriteFile("last.pro", "old\r\n");
        testing::FailingFiles failing(*files_, op, 1);
        EnterProblem();
        SaveLastProblem(m_, surface_, failing);
        EXPECT_EQ(Contents(WorkPath("last.pro")), "old\r\n");
        EXPECT_FALSE(files_->FileExists("last.pro.new"));
        EXPECT_EQ(surface_.Text({Ctl::txtLong}), " Cannot write the problem file !.");
        EXPECT_EQ(surface_.State({Ctl::txtLong}).fore, Red);
    }
}

}  // namespace
}  // namespace brennik
