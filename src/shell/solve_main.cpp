// brennik-solve: the headless companion of the desktop program. It loads a problem file into
// the entry boxes as Load does, sets the run mode and the settings, presses Find Solution once
// on the in-memory screen, and prints what the screen shows, or the report it wrote.
#include <QGuiApplication>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/better_solution.h"
#include "files/file_system.h"
#include "files/problem_files.h"
#include "files/settings.h"
#include "optimise/cheaper_plan.h"
#include "optimise/press_plan.h"
#include "paint/solution_files.h"
#include "report/clock.h"
#include "report/page_files.h"
#include "report/plan_report.h"
#include "run/find_press.h"
#include "run/results_panel.h"
#include "surface/memory_surface.h"
#include "state/module1.h"
#include "state/number_texts.h"

namespace brennik {
namespace {

constexpr const char* Usage =
    "Usage: brennik-solve [--method A|B] [--advanced] [--waste-summary] [--reference TEXT]\n"
    "                     [--dir DIR] [--now YYYY-MM-DDTHH:MM] [--page-width N] [--pages]\n"
    "                     [--print] [--verbose] [--bound] [--optimise] [--time-limit S]\n"
    "                     [--pdf FILE] [--svg FILE] PROBLEM_FILE\n";

constexpr const char* Help =
    "\n"
    "Solves the problem in PROBLEM_FILE (a .pro or .csv problem file) exactly as one press of\n"
    "Find Solution in the desktop program does, and writes last.sol into DIR.\n"
    "\n"
    "  --method A|B      Method A keeps the waste of money small and needs every price;\n"
    "                    without them it runs as Method B, which keeps the waste of\n"
    "                    material small. Default: A, as the program starts.\n"
    "  --advanced        tick Advanced: also try other orders of the standard lengths\n"
    "  --waste-summary   put the WASTE SUMMARY columns into the report\n"
    "  --reference TEXT  ask for a reference note and answer it with TEXT\n"
    "  --dir DIR         the folder for last.sol and the work files (default: here)\n"
    "  --now TIME        the date and time stamped on the report (default: now)\n"
    "  --page-width N    the width of a page file, 60 to 200 (otherwise 66, the default)\n"
    "  --pages           after the press, cut last.sol into the page files page1 to page4\n"
    "                    as View & Print does\n"
    "  --print           print last.sol instead of the figures\n"
    "  --verbose         also print every status text of the press, in order, with the\n"
    "                    attempt of the Advanced search at which it was set\n"
    "  --bound           after the press, work out the least cost (when every standard\n"
    "                    length has a price) and the least material that any plan could\n"
    "                    reach, and how far the press's plan lies above them\n"
    "  --optimise        after the press, search for a cheaper plan and write it to\n"
    "                    cheaper.sol beside last.sol, which keeps the press's plan\n"
    "  --time-limit S    seconds for --bound and --optimise together (default 10); on\n"
    "                    Ctrl-C or at the limit the best plan found so far is written\n"
    "  --pdf FILE        write last.sol as Save as PDF of the solution window does: the\n"
    "                    report in slices of the page width, then the cutting diagram\n"
    "  --svg FILE        write the cutting diagram of last.sol as an SVG picture\n"
    "  --help            show this text\n"
    "\n"
    "Exit status: 0 when last.sol was written, 1 when the entries were refused (the status\n"
    "text goes to standard error), 2 for a usage error, a problem file that cannot be read,\n"
    "or a file (last.sol, cheaper.sol, the PDF or the SVG) that cannot be written.\n";

struct Options {
    bool methodB = false;
    bool advanced = false;
    bool wasteSummary = false;
    std::optional<std::string> reference;
    std::string dir = ".";
    std::optional<std::tm> now;
    int16_t pageWidth = DefaultPageWidth;
    bool pages = false;
    bool print = false;
    bool verbose = false;
    bool bound = false;
    bool optimise = false;
    double timeLimit = 10;
    std::optional<std::string> pdf;
    std::optional<std::string> svg;
    std::string problemFile;
};

[[noreturn]] void Fail(const std::string& message) {
    std::cerr << "brennik-solve: " << message << "\n";
    std::exit(2);
}

std::optional<std::tm> ParseMoment(const std::string& text) {
    std::tm moment{};
    int year = 0;
    int month = 0;
    char tail = 0;
    if (std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d%c", &year, &month, &moment.tm_mday,
                    &moment.tm_hour, &moment.tm_min, &tail) != 5 ||
        month < 1 || month > 12 || moment.tm_mday < 1 || moment.tm_mday > 31 ||
        moment.tm_hour > 23 || moment.tm_min > 59) {
        return std::nullopt;
    }
    moment.tm_year = year - 1900;
    moment.tm_mon = month - 1;
    return moment;
}

double SecondsFrom(const std::string& text) {
    const std::optional<double> seconds = WholeNumberValue(text);
    if (!seconds || !(*seconds >= 0)) {
        Fail("--time-limit takes a number of seconds, not '" + text + "'");
    }
    return *seconds;
}

Options ParseOptions(int argc, char** argv) {
    Options options;
    std::vector<std::string> args(argv + 1, argv + argc);
    auto valueOf = [&](std::size_t& i) -> const std::string& {
        if (i + 1 >= args.size()) {
            Fail(args[i] + " needs a value\n" + Usage);
        }
        return args[++i];
    };
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--help" || arg == "-h") {
            std::cout << Usage << Help;
            std::exit(0);
        } else if (arg == "--method") {
            const std::string& method = valueOf(i);
            if (method != "A" && method != "B") {
                Fail("--method takes A or B, not '" + method + "'");
            }
            options.methodB = method == "B";
        } else if (arg == "--advanced") {
            options.advanced = true;
        } else if (arg == "--waste-summary") {
            options.wasteSummary = true;
        } else if (arg == "--reference") {
            options.reference = valueOf(i);
        } else if (arg == "--dir") {
            options.dir = valueOf(i);
        } else if (arg == "--now") {
            options.now = ParseMoment(valueOf(i));
            if (!options.now) {
                Fail("--now takes a time like 1999-04-06T20:16, not '" + args[i] + "'");
            }
        } else if (arg == "--page-width") {
            options.pageWidth = PageWidthFrom(valueOf(i));
        } else if (arg == "--pages") {
            options.pages = true;
        } else if (arg == "--print") {
            options.print = true;
        } else if (arg == "--verbose") {
            options.verbose = true;
        } else if (arg == "--bound") {
            options.bound = true;
        } else if (arg == "--optimise" || arg == "--optimize") {
            options.optimise = true;
        } else if (arg == "--time-limit") {
            options.timeLimit = SecondsFrom(valueOf(i));
        } else if (arg == "--pdf") {
            options.pdf = std::filesystem::absolute(valueOf(i)).string();
        } else if (arg == "--svg") {
            options.svg = std::filesystem::absolute(valueOf(i)).string();
        } else if (arg.starts_with("-") && arg != "-") {
            Fail("unknown option " + arg + "\n" + Usage);
        } else if (!options.problemFile.empty()) {
            Fail("only one problem file, please\n" + std::string(Usage));
        } else {
            options.problemFile = arg;
        }
    }
    if (options.problemFile.empty()) {
        Fail("no problem file given\n" + std::string(Usage));
    }
    return options;
}

// The in-memory screen, keeping every text of the status line with the attempt of the search
// at which it was set.
class StatusLog final : public MemorySurface {
public:
    explicit StatusLog(const Module1& m) : m_(m) { SetRecording(false); }

    void SetText(Control box, std::string_view text) override {
        MemorySurface::SetText(box, text);
        if (box.name == Ctl::txtLong && logging_) {
            texts_.emplace_back(m_.SeqStep, std::string(text));
        }
    }
    void StartLogging() { logging_ = true; }
    const std::vector<std::pair<int, std::string>>& Texts() const { return texts_; }

private:
    const Module1& m_;
    bool logging_ = false;
    std::vector<std::pair<int, std::string>> texts_;
};

void PrintStatusTexts(const StatusLog& log) {
    const std::string* previous = nullptr;
    for (const auto& [attempt, text] : log.Texts()) {
        if (previous != nullptr && *previous == text) {
            continue;  // the intake clears the line once for every row
        }
        previous = &text;
        if (attempt > 0) {
            std::cout << "status at attempt " << attempt << ": \"" << text << "\"\n";
        } else {
            std::cout << "status: \"" << text << "\"\n";
        }
    }
}

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void PrintFigures(const Module1& m, const StatusLog& screen) {
    const bool methodA = m.MethodA != 0;
    const bool money = methodA || m.AllPriced;
    const Ctl bars = methodA ? Ctl::txtMon : Ctl::txtMat;
    std::printf("Method %s%s\n", methodA ? "A" : "B",
                screen.Value({Ctl::Check1}) ? ", Advanced" : "");
    std::printf("%10s %10s %8s\n", "Length", "Price", "Bars");
    for (int row = 1; row <= MaxStdLengths; ++row) {
        const std::string length = screen.Text({Ctl::txtSL, row});
        if (!length.empty()) {
            std::printf("%10s %10s %8s\n", length.c_str(), screen.Text({Ctl::txtSP, row}).c_str(),
                        Trimmed(screen.Text({bars, row})).c_str());
        }
    }
    auto figure = [&](Ctl box, int row) { return Trimmed(screen.Text({box, row})); };
    const Ctl cost = methodA ? Ctl::Text3 : Ctl::Text6;
    const Ctl monWaste = methodA ? Ctl::Text1 : Ctl::Text4;
    const Ctl matWaste = methodA ? Ctl::Text2 : Ctl::Text5;
    if (money) {
        std::printf("Total cost         %s\n", figure(cost, 0).c_str());
    }
    std::printf("Waste of material  %s (%s %%)\n", figure(matWaste, 1).c_str(),
                figure(matWaste, 2).c_str());
    if (money) {
        std::printf("Waste of money     %s (%s %%)\n", figure(monWaste, 1).c_str(),
                    figure(monWaste, 2).c_str());
    }
}

// Ctrl-C during the search for a cheaper plan stops it, and the best plan so far is written.
std::atomic<bool> cancelRequested{false};

extern "C" void RequestCancel(int) {
    cancelRequested.store(true);
}

void PrintGap(const CuttingProblem& problem, const Plan& plan, const PlanSearchOutcome& outcome) {
    if (const std::optional<double> above = PercentAboveLeast(problem, plan, outcome)) {
        std::printf("This plan is %.2f %% above\n", *above);
    }
}

void PrintStop(const PlanSearchOutcome& outcome, const char* what) {
    if (outcome.cancelled) {
        std::printf("The search was cancelled: %s.\n", what);
    } else if (outcome.stoppedEarly) {
        std::printf("The time limit ran out: %s.\n", what);
    }
}

void PrintBound(const CuttingProblem& problem, const Plan& pressPlan,
                const PlanSearchOutcome& outcome) {
    if (outcome.leastCost) {
        std::printf("Least possible cost      %.2f\n", *outcome.leastCost);
    }
    if (outcome.leastMaterial) {
        std::printf("Least possible material  %.2f\n", *outcome.leastMaterial);
    }
    PrintGap(problem, pressPlan, outcome);
    if (!outcome.boundProven) {
        PrintStop(outcome, "the least figures are lower bounds that a longer search may raise");
    }
}

// The plan's figures in the form of the press's, from the read-out boxes its block would fill.
void PrintCheaperPlan(const Module1& planBlock, bool advanced, const CuttingProblem& problem,
                      const PlanSearchOutcome& outcome, bool withGap) {
    StatusLog screen(planBlock);
    screen.SetValue({Ctl::Check1}, advanced);
    RefreshResults(planBlock, screen);
    ShowEntriesAndBars(planBlock, screen);
    std::printf("Cheaper plan\n");
    PrintFigures(planBlock, screen);
    if (withGap) {
        PrintGap(problem, outcome.plan, outcome);
    }
    if (!outcome.improved) {
        std::printf("No cheaper plan was found: cheaper.sol holds the plan of the press.\n");
    }
    PrintStop(outcome, "this is the best plan found so far");
}

// Qt's notes on its surroundings (no runtime folder, no session) mean nothing to a shell user;
// only its errors are passed on.
void QtErrorsOnly(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::cerr << "brennik-solve: " << message.toStdString() << "\n";
    }
}

// The PDF and the SVG of last.sol. Qt draws them under its offscreen platform, which needs no
// display. False when one could not be written.
bool WriteDrawings(const Options& options, FileSystem& files) {
    std::string report;
    if (!files.ReadFile("last.sol", report)) {
        std::cerr << "brennik-solve: cannot read last.sol\n";
        return false;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(QtErrorsOnly);
    int argc = 1;
    char name[] = "brennik-solve";
    char* argv[] = {name, nullptr};
    const QGuiApplication application(argc, argv);
    if (options.pdf && !WriteSolutionPdf(*options.pdf, {"last.sol", report, options.pageWidth})) {
        std::cerr << "brennik-solve: cannot write " << *options.pdf << "\n";
        return false;
    }
    if (options.svg && !WriteDiagramSvg(*options.svg, report)) {
        std::cerr << "brennik-solve: cannot write " << *options.svg << "\n";
        return false;
    }
    return true;
}

int Solve(const Options& options) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path dir = fs::absolute(options.dir, error);
    if (error || !fs::is_directory(dir)) {
        Fail("no such folder: " + options.dir);
    }
    const fs::path problemPath = fs::absolute(options.problemFile, error);
    DiskFileSystem files(dir.string(), dir.string());
    std::string contents;
    if (error || !files.ReadFile(problemPath.string(), contents)) {
        Fail("cannot read " + options.problemFile);
    }

    auto m = std::make_unique<Module1>();
    StatusLog screen(*m);
    screen.SetValue({options.methodB ? Ctl::Option2 : Ctl::Option1}, true);
    screen.SetValue({Ctl::Check1}, options.advanced);
    m->ShowWasteSummary = ToFlag(options.wasteSummary);
    m->ShowReference = ToFlag(options.reference.has_value());
    m->PageWidth = options.pageWidth;
    screen.SetNextInput(options.reference);

    screen.SetNextFileName(problemPath.string());
    LoadProblem(*m, screen, files);

    std::unique_ptr<Clock> clock;
    if (options.now) {
        clock = std::make_unique<FixedClock>(*options.now);
    } else {
        clock = std::make_unique<SystemClock>();
    }
    Platform platform{screen, files, *clock};
    screen.StartLogging();
    cmdFind_Click(*m, platform);

    const std::string status = screen.Text({Ctl::txtLong});
    if (m->EntryError || m->LengthError) {
        if (options.verbose) {
            PrintStatusTexts(screen);
        }
        // With neither a standard nor a cutting length the form says nothing; a shell should.
        std::cerr << (status.empty() ? "brennik-solve: the problem has no lengths to solve"
                                     : status)
                  << "\n";
        return 1;
    }
    if (m->FileError) {
        std::cerr << "brennik-solve:" << status << "\n";
        return 2;
    }
    if (options.pages) {
        ViewSolution(*m, screen, files);
    }

    // Only a problem the press accepted is searched for its least figures and a cheaper plan.
    std::optional<PlanSearchOutcome> outcome;
    const CuttingProblem problem = ProblemOfPress(*m);
    const Plan pressPlan = PlanOfPress(*m, problem);
    std::unique_ptr<Module1> planBlock;
    if (options.bound || options.optimise) {
        std::signal(SIGINT, RequestCancel);
        outcome = SearchCheaperPlan(problem, pressPlan,
                                    {options.timeLimit, &cancelRequested, options.optimise});
        std::signal(SIGINT, SIG_DFL);
    }
    if (options.optimise) {
        planBlock = std::make_unique<Module1>(*m);
        planBlock->Advanced = ToFlag(options.advanced);
        if (!WritePlanReport(*planBlock, problem, outcome->plan, files, *clock, "cheaper.sol")) {
            std::cerr << "brennik-solve: cannot write cheaper.sol\n";
            return 2;
        }
    }
    if ((options.pdf || options.svg) && !WriteDrawings(options, files)) {
        return 2;
    }
    if (options.verbose) {
        PrintStatusTexts(screen);
    }
    if (options.print) {
        std::string report;
        if (!files.ReadFile("last.sol", report)) {
            Fail("cannot read last.sol");
        }
        std::cout << report;
    } else {
        std::cout << status << "\n";
        PrintFigures(*m, screen);
    }
    std::cout.flush();
    if (options.bound) {
        PrintBound(problem, pressPlan, *outcome);
    }
    if (options.optimise) {
        PrintCheaperPlan(*planBlock, options.advanced, problem, *outcome, options.bound);
    }
    return 0;
}

}  // namespace
}  // namespace brennik

int main(int argc, char** argv) {
    return brennik::Solve(brennik::ParseOptions(argc, argv));
}
