// Times whole presses of Find Solution with the Advanced option, in both Methods, on every
// problem of the generated families: with the engine, and on the plain route ("plain"): the
// complete enumeration in every pattern search and every pass on its own, in turn. A plain walk
// gives up once its press has run for a minute.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>

#include "bench_press.h"
#include "plain_pattern_search.h"
#include "problem_families.h"

int main(int argc, char** argv) {
    using namespace brennik::bench;
    const std::string folder = MakeWorkFolder();

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
                                                     Press(*problem, methodB, folder);
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
                                Press(*problem, methodB, folder);
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
    std::filesystem::remove_all(folder);
    return 0;
}
