// How good the plans of a press are and how much cheaper a plan can be, on every problem of the
// generated families in both Methods: after an Advanced press, the time of the least figures
// alone and of the least figures with a cheaper plan, the gap of the press's plan and of the
// cheaper plan to the least figure of the Method, and the least figures held against a separate
// computation (column generation priced by a table over every length a bar can be filled to;
// not for bars too long for such a table). A summary by family follows the runs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "bench_press.h"
#include "optimise/cheaper_plan.h"
#include "optimise/press_plan.h"
#include "plain_least_figure.h"
#include "problem_families.h"

namespace brennik::bench {

namespace {

struct Measure {
    double boundSeconds = 0;
    double planSeconds = 0;
    double pressGap = 0;       // % above the least figure of the Method
    double planGap = 0;        // the same for the cheaper plan
    double barsAbove = 0;      // the cheaper plan's excess in bars of the dearest length
    bool withinTarget = true;  // within 0.5 % or one bar of the least figure
    bool proven = false;
    int checked = 0;      // least figures held against the separate computation
    int disagreeing = 0;  // of those, how many differ by more than 0.01 and 1e-6
};

std::map<std::string, std::vector<Measure>>& Results() {
    static std::map<std::string, std::vector<Measure>> results;
    return results;
}

double Seconds(std::chrono::steady_clock::duration span) {
    return std::chrono::duration<double>(span).count();
}

double Figure(const CuttingProblem& problem, const Plan& plan) {
    return static_cast<double>(problem.objective == Objective::Cost ? PlanCost(problem, plan)
                                                                    : PlanMaterial(problem, plan)) /
           100.0;
}

void Check(const CuttingProblem& problem, Objective objective, std::optional<double> least,
           Measure& measure) {
    if (!least) {
        return;
    }
    const std::optional<double> plain = testing::PlainLeastFigure(problem, objective);
    if (!plain) {
        return;
    }
    ++measure.checked;
    const double difference = std::abs(*plain - *least);
    if (difference > 0.01 && difference > 1e-6 * std::abs(*plain)) {
        ++measure.disagreeing;
        std::fprintf(stderr, "least figure %.6f, separately %.6f\n", *least, *plain);
    }
}

Measure Measured(const ProblemText& text, bool methodB, const std::string& folder) {
    const std::unique_ptr<Module1> m = Press(text, methodB, folder);
    const CuttingProblem problem = ProblemOfPress(*m);
    const Plan press = PlanOfPress(*m, problem);
    Measure measure;

    const auto start = std::chrono::steady_clock::now();
    const PlanSearchOutcome bound = SearchCheaperPlan(problem, press, {10, nullptr, false});
    const auto boundEnd = std::chrono::steady_clock::now();
    const PlanSearchOutcome outcome = SearchCheaperPlan(problem, press, {10, nullptr, true});
    const auto planEnd = std::chrono::steady_clock::now();
    measure.boundSeconds = Seconds(boundEnd - start);
    measure.planSeconds = Seconds(planEnd - boundEnd);
    measure.proven = outcome.boundProven;

    const std::optional<double> least =
        problem.objective == Objective::Cost ? outcome.leastCost : outcome.leastMaterial;
    double dearest = 0;
    for (const StockLength& bar : problem.stock) {
        dearest = std::max(
            dearest, static_cast<double>(problem.objective == Objective::Cost ? bar.price100
                                                                              : bar.length100) /
                         100.0);
    }
    if (least && *least > 0) {
        measure.pressGap = (Figure(problem, press) - *least) / *least * 100;
        measure.planGap = (Figure(problem, outcome.plan) - *least) / *least * 100;
        measure.barsAbove = (Figure(problem, outcome.plan) - *least) / dearest;
        measure.withinTarget = measure.planGap <= 0.5 || measure.barsAbove <= 1.0;
    }
    Check(problem, Objective::Material, outcome.leastMaterial, measure);
    Check(problem, Objective::Cost, outcome.leastCost, measure);
    return measure;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

void PrintSummary() {
    std::printf("\n%-20s %6s %9s %9s %9s %9s %8s %8s %7s %8s %7s\n", "family", "plans", "press gap",
                "max", "plan gap", "max", "bound s", "plan s", "proven", "in aim", "checked");
    for (const auto& [name, measures] : Results()) {
        std::vector<double> pressGaps, planGaps, bounds, plans;
        int proven = 0, within = 0, checked = 0, disagreeing = 0;
        for (const Measure& measure : measures) {
            pressGaps.push_back(measure.pressGap);
            planGaps.push_back(measure.planGap);
            bounds.push_back(measure.boundSeconds);
            plans.push_back(measure.planSeconds);
            proven += measure.proven;
            within += measure.withinTarget;
            checked += measure.checked;
            disagreeing += measure.disagreeing;
        }
        std::printf(
            "%-20s %6zu %8.3f%% %8.3f%% %8.3f%% %8.3f%% %8.3f %8.3f %4d/%-2zu %5d/%-2zu %4d/%d\n",
            name.c_str(), measures.size(), Median(pressGaps),
            *std::max_element(pressGaps.begin(), pressGaps.end()), Median(planGaps),
            *std::max_element(planGaps.begin(), planGaps.end()),
            *std::max_element(bounds.begin(), bounds.end()),
            *std::max_element(plans.begin(), plans.end()), proven, measures.size(), within,
            measures.size(), checked - disagreeing, checked);
    }
    std::printf(
        "gaps: medians and maxima; times: the longest of the family, of the least figures "
        "alone and of the cheaper plan with them; in aim: within 0.5 %% or one bar; "
        "checked: least figures that agree with the separate computation\n");
}

}  // namespace

}  // namespace brennik::bench

int main(int argc, char** argv) {
    using namespace brennik::bench;
    const std::string folder = MakeWorkFolder();
    static const std::vector<Family> families = MakeFamilies(3, 20261122);
    ForEveryPress(families, [&folder](const std::string& name, const Family& family,
                                      const ProblemText& problem, bool methodB) {
        const ProblemText* pressed = &problem;
        const std::string group = family.name + (methodB ? " B" : " A");
        benchmark::RegisterBenchmark(
            (name + "/cheaper plan").c_str(),
            [=](benchmark::State& state) {
                for (auto _ : state) {
                    const Measure measure = Measured(*pressed, methodB, folder);
                    state.SetIterationTime(measure.boundSeconds + measure.planSeconds);
                    state.counters["press_gap_%"] = measure.pressGap;
                    state.counters["plan_gap_%"] = measure.planGap;
                    state.counters["bound_s"] = measure.boundSeconds;
                    state.counters["plan_s"] = measure.planSeconds;
                    Results()[group].push_back(measure);
                }
            })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(1);
    });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    PrintSummary();
    std::filesystem::remove_all(folder);
    return 0;
}
