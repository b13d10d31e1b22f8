// Fuzzes the problem-file reader and the whole press behind it. The bytes are a problem file,
// loaded as the headless runner loads one; then Find Solution is pressed in Method B, and again
// in Method A with the waste summary, a reference note and, for a small problem, Advanced.
// Whatever the file holds, a press either refuses the entries or writes a well-formed last.sol,
// and leaves no work file behind; and the second press, reading the boxes as the first wrote
// them back, refuses them exactly when the first did.
//
// An accepted problem is then searched for a cheaper plan, briefly: the press's plan and the
// plan found cut every piece exactly, the plan found is no worse, and its report is written.
//
// Advanced repeats the whole pass for up to 720 arrangements: on forty lengths crowded onto the
// longest bars that is seconds even in a release build, and slower still under the sanitizers,
// so it runs only on problems of at most AdvancedCutRows cutting rows.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "files/file_system.h"
#include "files/problem_files.h"
#include "files/text_lines.h"
#include "fuzz_check.h"
#include "optimise/cheaper_plan.h"
#include "optimise/press_plan.h"
#include "report/clock.h"
#include "report/plan_report.h"
#include "report/report_lines.h"
#include "run/find_press.h"
#include "surface/memory_surface.h"
#include "state/module1.h"
#include "temp_folder.h"

namespace brennik {
namespace {

using fuzzing::Require;

const char* const ProblemName = "problem.pro";
constexpr int AdvancedCutRows = 8;
constexpr double PlanSearchSeconds = 0.05;

// One folder for the whole run of the fuzzer. Every press starts by removing last.sol, so
// whatever else the folder holds after it was left there by that press.
const testing::TempFolder& Folder() {
    static const testing::TempFolder folder;
    return folder;
}

// The width of the finished report's first line for G items on the widest cutting line.
std::size_t ReportWidth(const Module1& m) {
    const std::size_t g = static_cast<std::size_t>(m.MaxItemsInLine);
    if (!m.ShowWasteSummary) {
        return 14 * g + 19;
    }
    return 14 * g + (ShowMoney(m) ? 66 : 46);
}

void CheckReport(const Module1& m, FileSystem& files) {
    Require(m.PiecesLeft == 0, "a written solution has cut every piece");
    std::string report;
    Require(files.ReadFile("last.sol", report), "a press without refusal writes last.sol");
    const std::vector<std::string> lines = SplitLines(report);
    Require(lines.size() >= 6 + 4, "last.sol has a head and a foot");
    // A problem without cutting lengths gets a report of head and foot alone, whose rule
    // lines are wider than its title; the widths below hold for every report that cuts.
    if (m.CutCount == 0) {
        return;
    }
    Require(m.MaxItemsInLine >= 1, "a solution that cuts has a line with an item");
    Require(lines.front().size() == ReportWidth(m), "the first line has the body's width");
    // The reference note is never cut to the body's width; every other line fits in it.
    for (const std::string& line : lines) {
        Require(line.starts_with("Reference") || line.size() <= lines.front().size(),
                "no line of the report is wider than its first");
    }
}

void CheckFolder(const std::set<std::string>& allowed) {
    for (const std::string& name : Folder().FileNames()) {
        Require(allowed.contains(name), "a press leaves no work file behind");
    }
}

// Presses Find Solution and checks what it left; true when it refused the entries.
bool Press(Module1& m, MemorySurface& surface, Platform& platform, Ctl method, bool advanced) {
    platform.files.RemoveFile("last.sol");
    surface.SetValue({method}, true);
    surface.SetValue({Ctl::Check1}, advanced);
    cmdFind_Click(m, platform);

    Require(!m.FileError, "every file of a press can be written in a folder of our own");
    const bool refused = m.EntryError || m.LengthError;
    if (refused) {
        CheckFolder({ProblemName});
    } else {
        CheckReport(m, platform.files);
        CheckFolder({ProblemName, "last.sol"});
    }
    return refused;
}

void CheckCheaperPlan(const Module1& m, const Platform& platform) {
    const CuttingProblem problem = ProblemOfPress(m);
    const Plan press = PlanOfPress(m, problem);
    Require(CutsExactly(problem, press), "the press's plan cuts every piece exactly");
    const PlanSearchOutcome outcome =
        SearchCheaperPlan(problem, press, {PlanSearchSeconds, nullptr, true});
    Require(CutsExactly(problem, outcome.plan), "a cheaper plan cuts every piece exactly");
    Require(!Better(problem, press, outcome.plan), "a cheaper plan is no worse than the press's");
    auto block = std::make_unique<Module1>(m);
    Require(WritePlanReport(*block, problem, outcome.plan, platform.files, platform.clock,
                            "cheaper.sol"),
            "the report of a cheaper plan can be written in a folder of our own");
    CheckFolder({ProblemName, "last.sol", "cheaper.sol"});
    platform.files.RemoveFile("cheaper.sol");
}

}  // namespace
}  // namespace brennik

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    using namespace brennik;
    const std::string folder = Folder().Path();
    DiskFileSystem files(folder, folder);
    files.WriteFile(ProblemName, std::string_view(reinterpret_cast<const char*>(data), size));

    auto m = std::make_unique<Module1>();
    MemorySurface surface;
    surface.SetRecording(false);
    surface.SetNextFileName(Folder().PathOf(ProblemName));
    LoadProblem(*m, surface, files);
    int cutRows = 0;
    for (int row = 1; row <= MaxCutLengths; ++row) {
        cutRows += m->CutLength(row) > 0;
    }

    const FixedClock clock(testing::Moment(1999, 4, 6, 20, 16));
    Platform platform{surface, files, clock};
    const bool refusedFirst = Press(*m, surface, platform, Ctl::Option2, false);

    m->ShowWasteSummary = kTrue;
    m->ShowReference = kTrue;
    surface.SetNextInput("fuzz");
    const bool refusedSecond =
        Press(*m, surface, platform, Ctl::Option1, cutRows <= AdvancedCutRows);
    Require(refusedFirst == refusedSecond, "the boxes written back read as they were typed");
    if (!refusedSecond) {
        CheckCheaperPlan(*m, platform);
    }
    return 0;
}
