// A cutting problem and a plan for it in whole hundredths: the standard lengths that may be
// bought, the pieces wanted, and how many bars are cut in each way. The figures of a plan are
// exact whole hundredths, so that plans compare without rounding.
#pragma once

#include <cstdint>
#include <vector>

namespace brennik {

struct StockLength {
    float length = 0;  // as the entry holds it
    float price = 0;   // 0 when it has none
    int64_t length100 = 0;
    int64_t price100 = 0;
};

struct WantedPiece {
    float length = 0;
    int64_t length100 = 0;
    int64_t quantity = 0;
};

// What a plan keeps small: the cost of the bars (Method A) or the material bought (Method B).
enum class Objective { Cost, Material };

struct CuttingProblem {
    std::vector<StockLength> stock;   // the standard rows, in their order
    std::vector<WantedPiece> pieces;  // the cutting rows, in their order
    Objective objective = Objective::Material;
    bool allPriced = false;
};

// `bars` bars of standard row `stock` (from 0), each cut into `pieces`[j] pieces of cutting
// row j.
struct PlanLine {
    int stock = 0;
    int64_t bars = 0;
    std::vector<int64_t> pieces;
    bool operator==(const PlanLine&) const = default;
};
using Plan = std::vector<PlanLine>;

// Builds a problem from standard and cutting rows given as entered.
CuttingProblem MakeProblem(const std::vector<StockLength>& stock,
                           const std::vector<WantedPiece>& pieces, Objective objective);
StockLength Stock(float length, float price);
WantedPiece Piece(float length, int64_t quantity);

int64_t PlanCost(const CuttingProblem& problem, const Plan& plan);
int64_t PlanMaterial(const CuttingProblem& problem, const Plan& plan);
// Hundredths of one bar of the line that no piece takes; negative when the bar is overfilled.
int64_t LineWaste(const CuttingProblem& problem, const PlanLine& line);

// Whether plan `a` is strictly better than plan `b` by the problem's objective, the other figure
// breaking ties.
bool Better(const CuttingProblem& problem, const Plan& a, const Plan& b);

// Every piece cut exactly as often as asked, every bar holding what it is cut into, every line
// of at least one bar and one piece.
bool CutsExactly(const CuttingProblem& problem, const Plan& plan);

// Bars that together hold at least every piece asked for, made into an exact plan: pieces beyond
// the quantities are left out of the bars that held them (a line splits where only some of its
// bars lose a piece), bars left empty are not bought, and equal lines are merged.
Plan TrimmedToQuantities(const CuttingProblem& problem, Plan covering);

}  // namespace brennik
