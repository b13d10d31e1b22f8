// Fault injection in the file layer: every file operation that a press, a save, a load, the
// settings and the page files make fails in turn; each time the user must be told, the kept
// files stay whole, no work file stays behind, and the next try works.
#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "diagram/report_reader.h"
#include "failing_files.h"
#include "files/problem_files.h"
#include "files/settings.h"
#include "press_fixture.h"
#include "problem_families.h"
#include "report/page_files.h"
#include "run/find_press.h"

namespace brennik {
namespace {

using testing::Bench;
using testing::FailingFiles;
using testing::FileOp;

const char* const kOpNames[] = {"read", "write", "replace", "remove"};

enum class Only { All, Kept, Work };

// The files of the folder with their bytes: all of them, those the user keeps, or the work files
// of a pass and the copies written aside before they replace a kept file.
std::map<std::string, std::string> Files(Bench& bench, Only only = Only::All) {
    const std::set<std::string> kept = {"last.sol", "last.pro", "brennik.cnf", "kept.pro"};
    std::map<std::string, std::string> files;
    for (const std::string& name : bench.folder.FileNames()) {
        const bool work = name.ends_with(".new") || (name.ends_with(".sol") && name != "last.sol");
        if (only == Only::All || (only == Only::Kept ? kept.contains(name) : work)) {
            files[name] = bench.Read(name);
        }
    }
    return files;
}

// A folder as a session leaves it: settings written, a solution with its page files, the problem
// saved under a name and as last.pro. Then the example in feet is typed, whose Advanced press makes
// two passes, and other settings ticked, for the operation under test to take up.
void PrepareSession(Bench& bench) {
    bench.surface.SetRecording(false);
    bench.surface.SetValue({Ctl::Check2}, true);
    bench.surface.SetText({Ctl::Text7}, "60");
    ApplySettings(bench.m, bench.surface, bench.files);
    bench.Type(testing::kTwelveStock, testing::kTwelveCuts);
    cmdFind_Click(bench.m, bench.platform);
    ViewSolution(bench.m, bench.surface, bench.files);
    SaveLastProblem(bench.m, bench.surface, bench.files);
    bench.surface.SetNextFileName(bench.folder.PathOf("kept.pro"));
    SaveProblem(bench.m, bench.surface, bench.files);

    ClearProblem(bench.m, bench.surface);
    const bench::ProblemText feet = bench::WorkedExamples()[2];
    bench.Type(feet.stock, feet.cuts);
    bench.surface.SetValue({Ctl::Option2}, true);
    bench.surface.SetValue({Ctl::Check2}, false);
    bench.surface.SetValue({Ctl::Check3}, true);
    bench.surface.SetText({Ctl::Text7}, "120");
}

// What the user sees of an outcome besides the files: the status, the settings and the boxes.
std::string Seen(const Bench& bench) {
    std::string seen = "status [" + bench.Status() + "] settings " +
                       std::to_string(bench.m.ShowWasteSummary) +
                       std::to_string(bench.m.ShowReference) + std::to_string(bench.m.PageWidth);
    for (Ctl box : {Ctl::txtSL, Ctl::txtSP, Ctl::txtMat, Ctl::txtL, Ctl::txtN}) {
        for (int row = 1; row <= MaxCutLengths; ++row) {
            seen += " " + bench.surface.Text({box, row});
        }
    }
    return seen;
}

struct Operation {
    std::string name;
    std::function<void(Module1&, Surface&, FileSystem&)> run;
    // The status that each kind of failure must tell; a kind not listed ends as with working files.
    std::map<FileOp, std::string> told;
    // An Advanced press that fails in its second pass leaves the first pass's whole report.
    bool firstReportMayStand = false;
};

// Save on Exit and the settings written on a first start take the same write steps as Save and
// Ok on the settings panel. The file dialogs still answer kept.pro, as when the session saved it.
std::vector<Operation> Operations() {
    const std::string solution = " Cannot write the solution file !.";
    const std::map<FileOp, std::string> pressTold = {
        {FileOp::Read, solution}, {FileOp::Write, solution}, {FileOp::Replace, solution}};
    const std::string problem = " Cannot write the problem file !.";
    const std::string settings = " Cannot write the settings file !.";
    const auto press = [](bool advanced) {
        return [advanced](Module1& m, Surface& surface, FileSystem& files) {
            static const FixedClock clock{testing::Moment(1999, 4, 6, 20, 16)};
            surface.SetValue({Ctl::Check1}, advanced);
            Platform platform{surface, files, clock};
            cmdFind_Click(m, platform);
        };
    };
    return {
        {"Press", press(false), pressTold},
        {"AdvancedPress", press(true), pressTold, true},
        {"Save", SaveProblem, {{FileOp::Write, problem}, {FileOp::Replace, problem}}},
        {"Load", LoadProblem, {{FileOp::Read, " Cannot read the problem file !."}}},
        // An unreadable settings file is passed over in silence, with the defaults in force.
        {"LoadSettings", LoadSettings, {}},
        {"ApplySettings", ApplySettings, {{FileOp::Write, settings}, {FileOp::Replace, settings}}},
        // The page files pass a failed step over; only a report that cannot be read is told.
        {"ViewSolution", ViewSolution, {{FileOp::Read, " There is no solution to view yet !."}}},
    };
}

// The operation's name, in test names and messages.
void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

class FaultInjection : public ::testing::TestWithParam<Operation> {};

TEST_P(FaultInjection, EveryFailingFileStepIsToldOrPassedOverAndTheNextTryWorks) {
    const Operation& operation = GetParam();
    Bench clean;
    PrepareSession(clean);
    FailingFiles counting(clean.files);
    operation.run(clean.m, clean.surface, counting);
    if (operation.firstReportMayStand) {
        ASSERT_EQ(clean.Status(), " Found a Better Solution !.") << "the press makes two passes";
    }
    const std::map<std::string, std::string> cleanFiles = Files(clean);
    const std::map<std::string, std::string> cleanKept = Files(clean, Only::Kept);

    int points = 0;
    for (const FileOp op : {FileOp::Read, FileOp::Write, FileOp::Replace, FileOp::Remove}) {
        for (int nth = 1; nth <= counting.Count(op); ++nth, ++points) {
            SCOPED_TRACE(std::string(kOpNames[static_cast<int>(op)]) + " number " +
                         std::to_string(nth) + " fails");
            Bench bench;
            PrepareSession(bench);
            const std::map<std::string, std::string> keptBefore = Files(bench, Only::Kept);
            FailingFiles failing(bench.files, op, nth);
            operation.run(bench.m, bench.surface, failing);
            ASSERT_GE(failing.Count(op), nth) << "the failure was not reached";

            EXPECT_GE(bench.m.PageWidth, 60);
            EXPECT_LE(bench.m.PageWidth, 200);
            std::map<std::string, std::string> kept = Files(bench, Only::Kept);
            if (operation.told.contains(op)) {
                EXPECT_EQ(bench.Status(), operation.told.at(op));
                EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Red);
                const SolutionReport report = ReadReport(kept["last.sol"]);
                if (operation.firstReportMayStand && report.faults.empty() &&
                    report.methodLabel == "Method Used    => BA ") {
                    kept["last.sol"] = keptBefore.at("last.sol");
                }
                EXPECT_EQ(kept, keptBefore) << "a kept file changed";
            } else {
                EXPECT_EQ(bench.Status(), clean.Status());
                EXPECT_EQ(kept, cleanKept) << "a kept file differs from a clean run's";
            }
            // Removing a work file is best effort: the one whose removal failed may stay.
            EXPECT_LE(Files(bench, Only::Work).size(), op == FileOp::Remove ? 1u : 0u)
                << ::testing::PrintToString(Files(bench, Only::Work));

            operation.run(bench.m, bench.surface, bench.files);
            EXPECT_EQ(Seen(bench), Seen(clean)) << "the next try with working files";
            EXPECT_EQ(Files(bench), cleanFiles) << "the files after the next try";
        }
    }
    std::cout << operation.name << ": " << points << " injection points\n";
    EXPECT_GT(points, 0);
}

INSTANTIATE_TEST_SUITE_P(FileOperations, FaultInjection, ::testing::ValuesIn(Operations()),
                         ::testing::PrintToStringParamName());

}  // namespace
}  // namespace brennik
