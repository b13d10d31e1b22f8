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
    ForEveryPress(families, [&folder](const std::string& name, const Family&,
                                      const ProblemText& problem, bool methodB) {
        const ProblemText* pressed = &problem;
        benchmark::RegisterBenchmark(name.c_str(),
                                     [=](benchmark::State& state) {
                                         for (auto _ : state) {
                                             Press(*pressed, methodB, folder);
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
                        Press(*pressed, methodB, folder);
                    } catch (const brennik::testing::EnumerationTimeout&) {
                        state.SkipWithError("the plain walk needs more than a minute");
                        break;
                    }
                }
            })
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->Iterations(1);
    });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak memory: %.1f MB\n", static_cast<double>(usage.ru_maxrss) / 1024.0);
    std::filesystem::remove_all(folder);
    return 0;
}
