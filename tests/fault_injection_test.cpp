// Fault injection in the file layer: every file operation that a pass, a press, a save, a load,
// the settings and the page files make fails in turn, or is torn half written, and each time the
// user must be told, the kept files stay whole, no work file stays behind, and the next try works.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "failing_files.h"
#include "files/problem_files.h"
#include "files/settings.h"
#include "press_fixture.h"
#include "report/page_files.h"
#include "report_reader.h"
#include "run/find_press.h"
#include "run/run_pass.h"

namespace brennik {
namespace {

using testing::Bench;
using testing::FailingFiles;
using testing::FileOp;
using Rows = std::vector<std::pair<std::string, std::string>>;

constexpr std::array<FileOp, 4> kFileOps = {FileOp::Read, FileOp::Write, FileOp::Replace,
                                            FileOp::Remove};

const char* OpName(FileOp op) {
    switch (op) {
        case FileOp::Read:
            return "read";
        case FileOp::Write:
            return "write";
        case FileOp::Replace:
            return "replace";
        case FileOp::Remove:
            return "remove";
    }
    return "";
}

// Passes every operation on and counts them by kind. The write numbered `tornWrite` lands only
// the first half of its bytes and reports failure, as a write does when the disk fills up.
class CountingFiles final : public FileSystem {
public:
    explicit CountingFiles(FileSystem& inner, int tornWrite = 0)
        : inner_(inner), tornWrite_(tornWrite) {}

    int Count(FileOp op) const { return counts_[static_cast<std::size_t>(op)]; }

    std::string CurrentFolder() const override { return inner_.CurrentFolder(); }
    bool SetCurrentFolder(const std::string& folder) override {
        return inner_.SetCurrentFolder(folder);
    }
    std::string AppFolder() const override { return inner_.AppFolder(); }
    bool ReadFile(const std::string& name, std::string& contents) override {
        ++counts_[static_cast<std::size_t>(FileOp::Read)];
        return inner_.ReadFile(name, contents);
    }
    bool WriteFile(const std::string& name, std::string_view contents) override {
        if (++counts_[static_cast<std::size_t>(FileOp::Write)] == tornWrite_) {
            inner_.WriteFile(name, contents.substr(0, contents.size() / 2));
            return false;
        }
        return inner_.WriteFile(name, contents);
    }
    bool ReplaceFile(const std::string& from, const std::string& to) override {
        ++counts_[static_cast<std::size_t>(FileOp::Replace)];
        return inner_.ReplaceFile(from, to);
    }
    bool RemoveFile(const std::string& name) override {
        ++counts_[static_cast<std::size_t>(FileOp::Remove)];
        return inner_.RemoveFile(name);
    }
    bool FileExists(const std::string& name) const override { return inner_.FileExists(name); }

private:
    FileSystem& inner_;
    int tornWrite_;
    std::array<int, kFileOps.size()> counts_{};
};

const Rows kFirstStock = {{"12", "12"}};
const Rows kFirstCuts = {{"7.5", "20"}, {"4.5", "21"}, {"5.1", "24"}, {"6.5", "25"}};
// The second problem: its Advanced press finds a better arrangement and so makes two passes.
const Rows kSecondStock = {
    {"20", "21"}, {"18", "17.5"}, {"15", "14.5"}, {"14", "13.5"}, {"12", "13"}};
const Rows kSecondCuts = {{"7.5", "98"}, {"7.3", "65"}, {"4.4", "67"}, {"6.3", "87"},
                          {"5.5", "32"}, {"9.3", "51"}, {"7.1", "43"}, {"2.4", "47"},
                          {"1.9", "56"}, {"3.4", "18"}};

// The files the user keeps, which no failure may damage.
const std::vector<std::string> kKeptFiles = {"last.sol", "last.pro", "brennik.cnf", "kept.pro"};

bool IsWorkFile(const std::string& name) {
    static const std::vector<std::string> work = {"tiny1.sol", "tiny2.sol", "tiny3.sol",
                                                  "tiny4.sol", "thead.sol", "tfoot.sol"};
    return std::find(work.begin(), work.end(), name) != work.end() || name.ends_with(".new");
}

std::vector<std::string> WorkFilesIn(const Bench& bench) {
    std::vector<std::string> names = bench.folder.FileNames();
    std::erase_if(names, [](const std::string& name) { return !IsWorkFile(name); });
    return names;
}

// Every file of the folder with its bytes.
std::map<std::string, std::string> Files(Bench& bench) {
    std::map<std::string, std::string> files;
    for (const std::string& name : bench.folder.FileNames()) {
        files[name] = bench.Read(name);
    }
    return files;
}

std::map<std::string, std::string> KeptFiles(Bench& bench) {
    std::map<std::string, std::string> kept;
    for (const std::string& name : kKeptFiles) {
        if (bench.files.FileExists(name)) {
            kept[name] = bench.Read(name);
        }
    }
    return kept;
}

// A folder as a session leaves it: settings written, a solution with its page files, the problem
// saved under a name and as last.pro. Then another problem is typed and other settings ticked, for
// the operation under test to take up.
void PrepareSession(Bench& bench) {
    bench.surface.SetValue({Ctl::Check2}, true);
    bench.surface.SetText({Ctl::Text7}, "60");
    ApplySettings(bench.m, bench.surface, bench.files);
    bench.Type(kFirstStock, kFirstCuts);
    cmdFind_Click(bench.m, bench.platform);
    ViewSolution(bench.m, bench.surface, bench.files);
    SaveLastProblem(bench.m, bench.surface, bench.files);
    bench.surface.SetNextFileName(bench.folder.PathOf("kept.pro"));
    SaveProblem(bench.m, bench.surface, bench.files);

    ClearProblem(bench.m, bench.surface);
    bench.Type(kSecondStock, kSecondCuts);
    bench.surface.SetValue({Ctl::Option2}, true);
    bench.surface.SetValue({Ctl::Check2}, false);
    bench.surface.SetValue({Ctl::Check3}, true);
    bench.surface.SetText({Ctl::Text7}, "120");
}

// What the user sees of an operation's outcome besides the files: the status line and the
// boxes and settings it may change.
std::string Seen(const Bench& bench) {
    std::string seen =
        "status [" + bench.Status() + "] settings " + std::to_string(bench.m.ShowWasteSummary) +
        std::to_string(bench.m.ShowReference) + std::to_string(bench.m.PageWidth) + " boxes";
    for (Ctl box : {Ctl::txtSL, Ctl::txtSP, Ctl::txtMat}) {
        for (int row = 1; row <= MaxStdLengths; ++row) {
            seen += " " + bench.surface.Text({box, row});
        }
    }
    for (Ctl box : {Ctl::txtL, Ctl::txtN}) {
        for (int row = 1; row <= MaxCutLengths; ++row) {
            seen += " " + bench.surface.Text({box, row});
        }
    }
    return seen;
}

struct Operation {
    std::string name;
    std::function<void(Bench&)> prepare;  // after PrepareSession; may be empty
    std::function<void(Bench&, FileSystem&)> run;
    // The status that a failure of each kind must tell; a kind not listed is passed over, and the
    // operation then ends as it does with working files.
    std::map<FileOp, std::string> told;
};

std::vector<Operation> Operations() {
    const std::string solution = " Cannot write the solution file !.";
    const std::string problem = " Cannot write the problem file !.";
    const std::string settings = " Cannot write the settings file !.";
    return {
        {"Pass",
         {},
         [](Bench& bench, FileSystem& files) {
             Platform platform{bench.surface, files, bench.clock};
             RunPass(bench.m, platform);
         },
         {{FileOp::Read, solution}, {FileOp::Write, solution}, {FileOp::Replace, solution}}},
        {"Save",
         {},
         [](Bench& bench, FileSystem& files) {
             bench.surface.SetNextFileName(bench.folder.PathOf("kept.pro"));
             SaveProblem(bench.m, bench.surface, files);
         },
         {{FileOp::Write, problem}, {FileOp::Replace, problem}}},
        {"SaveOnExit",
         {},
         [](Bench& bench, FileSystem& files) { SaveLastProblem(bench.m, bench.surface, files); },
         {{FileOp::Write, problem}, {FileOp::Replace, problem}}},
        {"Load",
         {},
         [](Bench& bench, FileSystem& files) {
             bench.surface.SetNextFileName(bench.folder.PathOf("kept.pro"));
             LoadProblem(bench.m, bench.surface, files);
         },
         {{FileOp::Read, " Cannot read the problem file !."}}},
        // An unreadable settings file is passed over in silence, with the defaults in force.
        {"LoadSettings",
         {},
         [](Bench& bench, FileSystem& files) { LoadSettings(bench.m, bench.surface, files); },
         {}},
        {"LoadSettingsFirstStart",
         [](Bench& bench) { bench.files.RemoveFile("brennik.cnf"); },
         [](Bench& bench, FileSystem& files) { LoadSettings(bench.m, bench.surface, files); },
         {{FileOp::Write, settings}, {FileOp::Replace, settings}}},
        {"ApplySettings",
         {},
         [](Bench& bench, FileSystem& files) { ApplySettings(bench.m, bench.surface, files); },
         {{FileOp::Write, settings}, {FileOp::Replace, settings}}},
        // The page files pass a failed step over; only a report that cannot be read is told.
        {"ViewSolution",
         {},
         [](Bench& bench, FileSystem& files) { ViewSolution(bench.m, bench.surface, files); },
         {{FileOp::Read, " There is no solution to view yet !."}}},
    };
}

// The outcome of an operation with working files, from the same start.
struct CleanRun {
    std::array<int, kFileOps.size()> counts{};
    std::map<std::string, std::string> files;
    std::string status;
    std::string seen;
};

void Start(Bench& bench, const Operation& operation) {
    bench.surface.SetRecording(false);
    PrepareSession(bench);
    if (operation.prepare) {
        operation.prepare(bench);
    }
}

CleanRun RunClean(const Operation& operation) {
    Bench bench;
    Start(bench, operation);
    CountingFiles counting(bench.files);
    operation.run(bench, counting);
    CleanRun clean;
    for (FileOp op : kFileOps) {
        clean.counts[static_cast<std::size_t>(op)] = counting.Count(op);
    }
    clean.files = Files(bench);
    clean.status = bench.Status();
    clean.seen = Seen(bench);
    return clean;
}

// After a failure: told as the operation tells it, or passed over with the outcome of a clean
// run; kept files whole either way; then the same operation with working files ends as clean.
void CheckFailure(Bench& bench, const Operation& operation, const CleanRun& clean,
                  const std::map<std::string, std::string>& keptBefore,
                  std::optional<std::string> told, bool removeFailed) {
    EXPECT_GE(bench.m.PageWidth, 60);
    EXPECT_LE(bench.m.PageWidth, 200);
    if (told) {
        EXPECT_EQ(bench.Status(), *told);
        EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Red);
        EXPECT_EQ(KeptFiles(bench), keptBefore) << "a kept file changed";
    } else {
        EXPECT_EQ(bench.Status(), clean.status);
        std::map<std::string, std::string> keptClean;
        for (const std::string& name : kKeptFiles) {
            if (clean.files.contains(name)) {
                keptClean[name] = clean.files.at(name);
            }
        }
        EXPECT_EQ(KeptFiles(bench), keptClean) << "a kept file differs from a clean run's";
    }
    // Removing a work file is best effort: the one whose removal failed may stay.
    EXPECT_LE(WorkFilesIn(bench).size(), removeFailed ? 1u : 0u)
        << "work files left: " << ::testing::PrintToString(WorkFilesIn(bench));

    operation.run(bench, bench.files);
    EXPECT_EQ(Seen(bench), clean.seen) << "the next try with working files";
    EXPECT_EQ(Files(bench), clean.files) << "the files after the next try";
}

class FaultInjection : public ::testing::TestWithParam<Operation> {};

TEST_P(FaultInjection, EveryFailingFileStepIsToldOrPassedOverAndTheNextTryWorks) {
    const Operation& operation = GetParam();
    const CleanRun clean = RunClean(operation);
    std::string points;
    int total = 0;
    for (FileOp op : kFileOps) {
        const int count = clean.counts[static_cast<std::size_t>(op)];
        points += std::string(" ") + OpName(op) + " " + std::to_string(count);
        total += count;
        for (int nth = 1; nth <= count; ++nth) {
            SCOPED_TRACE(std::string(OpName(op)) + " number " + std::to_string(nth) + " fails");
            Bench bench;
            Start(bench, operation);
            const std::map<std::string, std::string> keptBefore = KeptFiles(bench);
            FailingFiles failing(bench.files, op, nth);
            CountingFiles reached(failing);
            operation.run(bench, reached);
            ASSERT_GE(reached.Count(op), nth) << "the failure was not reached";
            const auto told = operation.told.find(op);
            CheckFailure(bench, operation, clean, keptBefore,
                         told == operation.told.end() ? std::nullopt
                                                      : std::optional<std::string>(told->second),
                         op == FileOp::Remove);
        }
    }
    std::cout << operation.name << ": " << total << " injection points (" << points.substr(1)
              << ")\n";
    EXPECT_GT(total, 0);
}

// A write that fails half way through leaves what it wrote; no kept file may be the one torn.
TEST_P(FaultInjection, AWriteTornHalfWayDamagesNoKeptFile) {
    const Operation& operation = GetParam();
    const CleanRun clean = RunClean(operation);
    const int writes = clean.counts[static_cast<std::size_t>(FileOp::Write)];
    for (int nth = 1; nth <= writes; ++nth) {
        SCOPED_TRACE("write number " + std::to_string(nth) + " torn");
        Bench bench;
        Start(bench, operation);
        const std::map<std::string, std::string> keptBefore = KeptFiles(bench);
        CountingFiles torn(bench.files, nth);
        operation.run(bench, torn);
        const auto told = operation.told.find(FileOp::Write);
        CheckFailure(
            bench, operation, clean, keptBefore,
            told == operation.told.end() ? std::nullopt : std::optional<std::string>(told->second),
            false);
    }
    std::cout << operation.name << ": " << writes << " writes torn\n";
}

INSTANTIATE_TEST_SUITE_P(FileOperations, FaultInjection, ::testing::ValuesIn(Operations()),
                         [](const ::testing::TestParamInfo<Operation>& param) {
                             return param.param.name;
                         });

// The Advanced press makes two passes; a failure in the second leaves last.sol with the basic
// solution that the first wrote, a whole report all the same.
TEST(FaultInjectionAdvancedPress, EveryFailureLeavesAWholeReport) {
    const Operation press{"AdvancedPress",
                          [](Bench& bench) { bench.surface.SetValue({Ctl::Check1}, true); },
                          [](Bench& bench, FileSystem& files) {
                              Platform platform{bench.surface, files, bench.clock};
                              cmdFind_Click(bench.m, platform);
                          },
                          {}};
    const CleanRun clean = RunClean(press);
    ASSERT_NE(clean.seen.find(" Found a Better Solution !."), std::string::npos);
    int total = 0;
    for (FileOp op : kFileOps) {
        const int count = clean.counts[static_cast<std::size_t>(op)];
        total += count;
        for (int nth = 1; nth <= count; ++nth) {
            SCOPED_TRACE(std::string(OpName(op)) + " number " + std::to_string(nth) + " fails");
            Bench bench;
            Start(bench, press);
            const std::string before = bench.Read("last.sol");
            FailingFiles failing(bench.files, op, nth);
            press.run(bench, failing);
            const std::string report = bench.Read("last.sol");
            if (op == FileOp::Remove) {
                EXPECT_EQ(bench.Status(), " Found a Better Solution !.");
                EXPECT_EQ(report, clean.files.at("last.sol"));
            } else {
                EXPECT_EQ(bench.Status(), " Cannot write the solution file !.");
                const testing::ParsedReport parsed = testing::ParseReport(report);
                EXPECT_TRUE(
                    report == before ||
                    (parsed.faults.empty() && parsed.foot.methodLabel == "Method Used    => BA "))
                    << report;
                EXPECT_TRUE(WorkFilesIn(bench).empty());
            }
            press.run(bench, bench.files);
            EXPECT_EQ(Seen(bench), clean.seen);
            EXPECT_EQ(Files(bench), clean.files);
        }
    }
    std::cout << press.name << ": " << total << " injection points\n";
}

}  // namespace
}  // namespace brennik
