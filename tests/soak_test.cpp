// Soak: seeded random problems of every family and shape, pressed whole (both Methods, with and
// without Advanced, the waste summary and the reference note), every result held to what must
// hold for any problem. BRENNIK_SOAK_PROBLEMS and BRENNIK_SOAK_SEED set a hand run.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <tuple>

#include "diagram/report_reader.h"
#include "optimise/cheaper_plan.h"
#include "optimise/press_plan.h"
#include "press_fixture.h"
#include "problem_families.h"
#include "report/plan_report.h"
#include "run/find_press.h"

namespace brennik {
namespace {

using testing::Bench;
using testing::Hundredths;
using testing::PiecesAsked;
using testing::PiecesCut;

constexpr const char* kReference = "Job 7";

constexpr int kCiProblems = 1000;
constexpr uint32_t kCiSeed = 20240611;
// A long run stops after this many failing problems.
constexpr int kMostFailingProblems = 5;
// Of so many problems, one is searched for a cheaper plan too.
constexpr int kCheaperPlanEvery = 5;

struct SoakCase {
    std::string family;
    bench::ProblemText problem;
    bool methodB = false;
    bool advanced = false;
    bool wasteSummary = false;
};

// A cutting line as the report shows it: bar length, bars, and pieces by length, in hundredths.
using LineShape = std::pair<std::pair<int64_t, int64_t>, testing::PieceCounts>;

// A plan's lines in one order whatever the order of the lines.
std::vector<LineShape> ShapesOf(const CuttingProblem& problem, const Plan& plan) {
    std::vector<LineShape> shapes;
    for (const PlanLine& line : plan) {
        LineShape& shape = shapes.emplace_back();
        shape.first = {problem.stock[line.stock].length100, line.bars};
        for (std::size_t j = 0; j < line.pieces.size(); ++j) {
            if (line.pieces[j] > 0) {
                shape.second[problem.pieces[j].length100] += line.pieces[j];
            }
        }
    }
    std::sort(shapes.begin(), shapes.end());
    return shapes;
}

// The report's figures against each other, its pieces against those asked, its lines the plan's.
void CheckReport(const SolutionReport& report, const SoakCase& soak, bool advanced,
                 const CuttingProblem& problem, const Plan& plan, const std::string& mark = "") {
    // Method A needs a price on every length; without one the press runs as Method B.
    const bool allPriced = std::none_of(soak.problem.stock.begin(), soak.problem.stock.end(),
                                        [](const auto& row) { return row.second.empty(); });
    std::string label = std::string("Method Used    => ") +
                        (!soak.methodB && allPriced ? "A" : "B") + (advanced ? "A" : "") + mark;
    label.resize(21, ' ');
    const auto reference =
        soak.wasteSummary ? std::optional<std::string>(kReference) : std::nullopt;
    EXPECT_EQ(std::tie(report.wasteSummary, report.money, report.methodLabel, report.reference),
              std::tie(soak.wasteSummary, allPriced, label, reference));

    std::vector<LineShape> shapes;
    int64_t wasteBars = 0;
    int wasteLines = 0;
    double materialWaste = 0, moneyWaste = 0, cost = 0, previousLength = INFINITY;
    for (const ReportGroup& group : report.groups) {
        const double length = group.lines.empty() ? 0 : group.lines.front().stdLength;
        EXPECT_LT(length, previousLength) << "groups not longest first";
        previousLength = length;
        int64_t bars = 0;
        for (const ReportLine& line : group.lines) {
            EXPECT_EQ(line.stdLength, length) << "a line in the group of another length";
            bars += line.bars;
            int64_t waste = Hundredths(line.stdLength);
            LineShape& shape = shapes.emplace_back();
            shape.first = {Hundredths(line.stdLength), line.bars};
            for (const ReportItem& item : line.items) {
                shape.second[Hundredths(item.length)] += item.pieces;
                waste -= item.pieces * Hundredths(item.length);
            }
            EXPECT_GE(waste, 0) << "the pieces of a line do not fit its bar";
            if (line.waste) {
                EXPECT_EQ(line.waste->bars, line.bars);
                EXPECT_LE(std::abs(Hundredths(line.waste->perBar) - waste), 1)
                    << "waste per bar " << line.waste->perBar << " on a bar of " << line.stdLength;
                ++wasteLines;
                wasteBars += line.waste->bars;
                materialWaste += line.waste->total;
                moneyWaste += line.waste->moneyTotal.value_or(0);
            } else if (report.wasteSummary) {
                EXPECT_EQ(waste, 0) << "a line with waste has no waste columns";
            }
        }
        EXPECT_EQ(group.bars, bars) << "group summary of the bars of " << length;
        cost += group.price.value_or(0) * static_cast<double>(group.bars);
    }
    EXPECT_EQ(PiecesCut(report), PiecesAsked(soak.problem.cuts))
        << "pieces in the report differ from those asked";
    std::sort(shapes.begin(), shapes.end());
    EXPECT_EQ(shapes, ShapesOf(problem, plan)) << "the report's lines differ from the plan's";

    if (report.wasteSummary) {
        // Each line's figures are rounded to hundredths; the totals are not.
        const double tolerance = 0.01 * wasteLines + 1e-6;
        EXPECT_EQ(report.wasteTotals.bars, wasteBars) << "the No. total";
        EXPECT_NEAR(report.wasteTotals.total, materialWaste, tolerance) << "the material total";
        if (report.money) {
            EXPECT_NEAR(report.wasteTotals.moneyTotal.value_or(-1), moneyWaste, tolerance)
                << "the money total";
        }
    }
    if (report.money) {
        // The prices count as entered; the total was formed from them as single floats.
        const double tolerance = 0.01 * static_cast<double>(report.groups.size()) + 1e-7 * cost;
        EXPECT_NEAR(report.totalCost.value_or(-1), cost, tolerance) << "the total cost";
    }
}

// A press of the problem with its report checked, and what the Advanced search compares: the
// total cost when every length has a price, else the material left over.
struct Pressed {
    Pressed(const SoakCase& soak, bool advanced) {
        bench.surface.SetRecording(false);
        bench.surface.SetNextInput(kReference);
        bench.Press(soak.problem.stock, soak.problem.cuts,
                    {soak.methodB, advanced, soak.wasteSummary, soak.wasteSummary});
        report = bench.Read("last.sol");
        const CuttingProblem problem = ProblemOfPress(bench.m);
        CheckReport(bench.ReadBack(), soak, advanced, problem, PlanOfPress(bench.m, problem));
        const Module1& m = bench.m;
        objective = m.MethodA ? m.TotalCostA : m.AllPriced ? m.TotalCostB : m.TotalMatWasteB;
    }

    Bench bench;
    std::string report;
    double objective = 0;
};

// The press's own plan, written as a plan, gives last.sol again but for the method's mark, and
// the same figures. A cheaper plan of its problem: every piece cut exactly, never worse than the
// press's plan, not below the least figure, and its report read back as the press's is.
void CheckCheaperPlan(Bench& bench, const SoakCase& soak, bool advanced) {
    const CuttingProblem problem = ProblemOfPress(bench.m);
    const Plan press = PlanOfPress(bench.m, problem);
    ASSERT_TRUE(CutsExactly(problem, press)) << "the press's plan, read from its cutting lines";
    const auto written = [&](const Plan& plan, const std::string& name) {
        auto block = std::make_unique<Module1>(bench.m);
        block->Advanced = ToFlag(advanced);
        EXPECT_TRUE(WritePlanReport(*block, problem, plan, bench.files, bench.clock, name));
        return block;
    };
    const auto own = written(press, "own.sol");
    std::string marked = bench.Read("last.sol");
    marked[marked.find("Method Used    => ") + (advanced ? 20 : 19)] = '+';
    EXPECT_EQ(bench.Read("own.sol"), marked);
    EXPECT_EQ(std::tie(own->TotalCostA, own->TotalCostB, own->TotalMatWasteB, own->BarsBought),
              std::tie(bench.m.TotalCostA, bench.m.TotalCostB, bench.m.TotalMatWasteB,
                       bench.m.BarsBought));
    const PlanSearchOutcome outcome = SearchCheaperPlan(problem, press, {1, nullptr, true});
    EXPECT_TRUE(CutsExactly(problem, outcome.plan));
    EXPECT_FALSE(Better(problem, press, outcome.plan));
    const bool cost = problem.objective == Objective::Cost;
    const std::optional<double> least = cost ? outcome.leastCost : outcome.leastMaterial;
    const int64_t figure =
        cost ? PlanCost(problem, outcome.plan) : PlanMaterial(problem, outcome.plan);
    ASSERT_TRUE(least);
    EXPECT_LE(*least, static_cast<double>(figure) / 100 + 0.005);
    written(outcome.plan, "cheaper.sol");
    CheckReport(bench.ReadBack("cheaper.sol"), soak, advanced, problem, outcome.plan, "+");
}

void CheckPresses(const SoakCase& soak, bool withCheaperPlan) {
    Pressed basic(soak, false);
    ASSERT_EQ(basic.bench.Status(), " Done !.");
    std::optional<Pressed> advanced;
    if (soak.advanced) {
        advanced.emplace(soak, true);
        const std::string status = advanced->bench.Status();
        if (status == " Found a Better Solution !.") {
            EXPECT_LT(advanced->objective, basic.objective)
                << "the search kept a solution no better than the basic one";
        } else {
            EXPECT_TRUE(status == " Sorry,  No Better Solution." ||
                        status == " No Better Solution.")
                << status;
            EXPECT_EQ(advanced->objective, basic.objective);
            // Without a better arrangement the basic solution stands, labelled Advanced.
            std::string expected = basic.report;
            expected[expected.find("Method Used    => ") + 19] = 'A';
            EXPECT_EQ(advanced->report, expected);
        }
    }
    // The form as the press left it, pressed again.
    Pressed& last = advanced ? *advanced : basic;
    cmdFind_Click(last.bench.m, last.bench.platform);
    EXPECT_EQ(last.bench.Read("last.sol"), last.report) << "a second press changed the report";
    if (withCheaperPlan) {
        CheckCheaperPlan(last.bench, soak, soak.advanced);
    }
}

int EnvironmentNumber(const char* name, int fallback) {
    const char* text = std::getenv(name);
    return text != nullptr && *text != '\0' ? std::atoi(text) : fallback;
}

TEST(Soak, RandomProblemsKeepEveryInvariant) {
    const int problems = EnvironmentNumber("BRENNIK_SOAK_PROBLEMS", kCiProblems);
    const auto seed = static_cast<uint32_t>(EnvironmentNumber("BRENNIK_SOAK_SEED", kCiSeed));
    std::mt19937 random(seed);
    std::bernoulli_distribution coin;
    const auto between = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const ::testing::TestResult& result =
        *::testing::UnitTest::GetInstance()->current_test_info()->result();

    int done = 0, failing = 0;
    while (done < problems && failing < kMostFailingProblems) {
        // Shapes from one row up to full forms, quantities from single pieces to the families'.
        static const int kQuantities[] = {1, 3, 12, 60, 0};
        const bench::Shape shape{between(1, MaxStdLengths), between(1, MaxCutLengths),
                                 kQuantities[between(0, 4)]};
        for (const bench::Family& family :
             bench::MakeFamilies(1, static_cast<uint32_t>(random()), shape)) {
            if (done == problems || failing == kMostFailingProblems) {
                break;
            }
            if (family.worstCase && shape.maxQuantity == 0) {
                continue;
            }
            const SoakCase soak{family.name, family.problems.front(), coin(random), coin(random),
                                coin(random)};
            SCOPED_TRACE("problem " + std::to_string(done) + " of seed " + std::to_string(seed) +
                         ": " + soak.family + (soak.methodB ? ", Method B" : ", Method A") +
                         (soak.advanced ? ", Advanced" : "") +
                         (soak.wasteSummary ? ", waste summary" : "") +
                         "\n  standard: " + ::testing::PrintToString(soak.problem.stock) +
                         "\n  cutting: " + ::testing::PrintToString(soak.problem.cuts));
            const int failuresBefore = result.total_part_count();
            CheckPresses(soak, done % kCheaperPlanEvery == 0);
            ++done;
            failing += result.total_part_count() > failuresBefore;
        }
    }
    EXPECT_EQ(done, problems);
}

}  // namespace
}  // namespace brennik
