// Times whole presses of Find Solution with the Advanced option, in both Methods, on every
// problem of the generated families: with the engine, and on the plain route ("plain"): the
// complete enumeration in every pattern search and every pass on its own, in turn. A plain walk
// gives up once its press has run for a minute.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "files/file_system.h"
#include "plain_pattern_search.h"
#include "problem_families.h"
#include "report/clock.h"
#include "run/find_press.h"
#include "shell/memory_surface.h"
#include "state/module1.h"

namespace brennik::bench {

namespace {

std::tm FixedMoment() {
    std::tm moment{};
    moment.tm_year = 126;
    moment.tm_mday = 1;
    return moment;
}

// One press on a fresh form, as a user would make it after typing the problem.
void Press(const ProblemText& problem, bool methodB, const std::string& folder) {
    auto m = std::make_unique<Module1>();
    MemorySurface surface;
    surface.SetRecording(false);
    for (std::size_t r = 0; r < problem.stock.size(); ++r) {
        surface.SetText({Ctl::txtSL, static_cast<int>(r + 1)}, problem.stock[r].first);
        surface.SetText({Ctl::txtSP, static_cast<int>(r + 1)}, problem.stock[r].second);
    }
    for (std::size_t i = 0; i < problem.cuts.size(); ++i) {
        surface.SetText({Ctl::txtL, static_cast<int>(i + 1)}, problem.cuts[i].first);
        surface.SetText({Ctl::txtN, static_cast<int>(i + 1)}, problem.cuts[i].second);
    }
    surface.SetValue({methodB ? Ctl::Option2 : Ctl::Option1}, true);
    surface.SetValue({Ctl::Check1}, true);
    DiskFileSystem files(folder, folder);
    FixedClock clock(FixedMoment());
    Platform platform{surface, files, clock};
    cmdFind_Click(*m, platform);
    if (m->EntryError || m->LengthError || m->FileError) {
        std::fprintf(stderr, "a benchmark problem was refused: %s\n",
                     surface.Text({Ctl::txtLong}).c_str());
        std::abort();
    }
}

}  // namespace

}  // namespace brennik::bench

int main(int argc, char** argv) {
    using namespace brennik::bench;
    namespace fs = std::filesystem;
    // The work files of a press go to memory where it can: on a disk's file system, creating and
    // deleting them thousands of times a second makes the search for a free inode part of every
    // press, which a user pressing now and then never meets.
    const fs::path memory = "/dev/shm";
    const fs::path base = fs::is_directory(memory) && access(memory.c_str(), W_OK) == 0
                              ? memory
                              : fs::temp_directory_path();
    const fs::path folder = base / ("brennik-bench-" + std::to_string(getpid()));
    fs::create_directories(folder);

    static const std::vector<Family> families = MakeFamilies(3, 20261122);
    for (const Family& family : families) {
        for (std::size_t k = 0; k < family.problems.size(); ++k) {
            for (bool methodB : {false, true}) {
                const std::string name =
                    family.name + "/" + std::to_string(k + 1) + "/" + (methodB ? "B" : "A");
                const ProblemText* problem = &family.problems[k];
                benchmark::RegisterBenchmark(name.c_str(),
                                             [=](benchmark::State& state) {
                                                 for (auto _ : state) {
                                                     Press(*problem, methodB, folder.string());
                                                 }
                                             })
                    ->Unit(benchmark::kMillisecond)
                    ->UseRealTime();
                benchmark::RegisterBenchmark(
                    (name + "/plain").c_str(),
                    [=](benchmark::State& state) {
                        brennik::testing::PlainSearchInUse walkEverything;
                        for (auto _ : state) {
                            brennik::testing::PlainDeadline() =
                                std::chrono::steady_clock::now() + std::chrono::minutes(1);
                            try {
                                Press(*problem, methodB, folder.string());
                            } catch (const brennik::testing::EnumerationTimeout&) {
                                state.SkipWithError("the plain walk needs more than a minute");
                                break;
                            }
                        }
                    })
                    ->Unit(benchmark::kMillisecond)
                    ->UseRealTime()
                    ->Iterations(1);
            }
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak memory: %.1f MB\n", static_cast<double>(usage.ru_maxrss) / 1024.0);
    fs::remove_all(folder);
    return 0;
}
