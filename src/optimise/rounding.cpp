#include "optimise/rounding.h"

#include <algorithm>
#include <cmath>

#include "optimise/bar_filling.h"

namespace brennik {

namespace {

constexpr double RoundingShare = 0.8;

bool NothingWanted(const std::vector<int64_t>& demand) {
    return std::all_of(demand.begin(), demand.end(), [](int64_t d) { return d <= 0; });
}

void Buy(const Column& column, int64_t bars, std::vector<int64_t>& demand) {
    for (std::size_t j = 0; j < demand.size(); ++j) {
        demand[j] = std::max<int64_t>(0, demand[j] - bars * column.pieces[j]);
    }
}

// Buys `count` bars of a way of cutting, which joins the master's columns if it is new.
void BuyColumn(MasterLp& master, int stock, const std::vector<int64_t>& pieces, int64_t count,
               std::vector<int64_t>& bars, std::vector<int64_t>& demand) {
    const std::size_t k = master.ColumnOf(stock, pieces);
    bars.resize(master.Columns().size(), 0);
    bars[k] += count;
    Buy(master.Columns()[k], count, demand);
}

// What is still wanted, each length cut on its own, from the standard length whose bars of that
// length alone cost least by the master's figure.
void CutEachAlone(const CuttingProblem& problem, MasterLp& master, std::vector<int64_t>& bars,
                  std::vector<int64_t>& demand) {
    for (std::size_t j = 0; j < demand.size(); ++j) {
        if (demand[j] <= 0) {
            continue;
        }
        int bestStock = -1;
        int64_t bestBars = 0;
        std::vector<int64_t> bestPieces;
        for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
            const int64_t fits =
                std::min(demand[j], problem.stock[s].length100 / problem.pieces[j].length100);
            if (fits == 0) {
                continue;
            }
            const int64_t needed = (demand[j] + fits - 1) / fits;
            if (bestStock < 0 || static_cast<double>(needed) * master.BarFigure(s) <
                                     static_cast<double>(bestBars) * master.BarFigure(bestStock)) {
                bestStock = s;
                bestBars = needed;
                bestPieces.assign(demand.size(), 0);
                bestPieces[j] = fits;
            }
        }
        if (bestStock < 0) {
            continue;  // fits no bar: the intake refuses such a length before any plan
        }
        BuyColumn(master, bestStock, bestPieces, bestBars, bars, demand);
    }
}

// What is still wanted, bar after bar: of every standard length the fullest bar of what is left,
// and of those the one whose figure per length put to use is least, cut as often as what is
// left allows.
bool FillGreedily(const CuttingProblem& problem, MasterLp& master, std::vector<int64_t>& bars,
                  std::vector<int64_t>& demand, const Deadline& deadline) {
    while (!NothingWanted(demand) && !deadline.Passed()) {
        int bestStock = -1;
        double bestRate = 0;
        std::vector<int64_t> bestPieces;
        for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
            const int64_t bar = problem.stock[s].length100;
            std::vector<BarItem> items;
            for (std::size_t j = 0; j < demand.size(); ++j) {
                const int64_t length = problem.pieces[j].length100;
                items.push_back({length, length <= bar ? std::min(demand[j], bar / length) : 0,
                                 static_cast<double>(length)});
            }
            const BarFilling filling = FillBar(items, bar, 0, deadline);
            if (filling.value <= 0) {
                continue;
            }
            const double rate = master.BarFigure(s) / filling.value;
            if (bestStock < 0 || rate < bestRate) {
                bestStock = s;
                bestRate = rate;
                bestPieces = filling.counts;
            }
        }
        if (bestStock < 0) {
            return false;
        }
        int64_t count = INT64_MAX;
        for (std::size_t j = 0; j < demand.size(); ++j) {
            if (bestPieces[j] > 0) {
                count = std::min(count, demand[j] / bestPieces[j]);
            }
        }
        BuyColumn(master, bestStock, bestPieces, std::max<int64_t>(count, 1), bars, demand);
    }
    return NothingWanted(demand);
}

}  // namespace

std::vector<int64_t> RoundResidually(const CuttingProblem& problem, MasterLp& master,
                                     const Deadline& deadline) {
    // The LP is solved again for what is left while most of the time left lasts; the rest of
    // the time is for cutting what is then left bar by bar.
    const Deadline rounding = deadline.Within(deadline.SecondsLeft() * RoundingShare);
    std::vector<int64_t> demand = master.Demand();
    std::vector<int64_t> bars(master.Columns().size(), 0);
    std::vector<double> values = master.ColumnValues();
    while (!NothingWanted(demand) && !deadline.Passed()) {
        bars.resize(master.Columns().size(), 0);
        bool bought = false;
        for (std::size_t k = 0; k < values.size(); ++k) {
            const auto whole = static_cast<int64_t>(std::floor(values[k] + 1e-6));
            if (whole > 0) {
                bars[k] += whole;
                Buy(master.Columns()[k], whole, demand);
                bought = true;
            }
        }
        // Once the LP takes no column wholly, rounding one up would buy a bar for a fraction of
        // its pieces; what is left is cut bar by bar instead.
        if (!bought || NothingWanted(demand) || rounding.Passed()) {
            break;
        }
        master.SetDemand(demand);
        master.Solve(rounding);
        values = master.ColumnValues();
    }
    bars.resize(master.Columns().size(), 0);
    FillGreedily(problem, master, bars, demand, deadline);
    CutEachAlone(problem, master, bars, demand);
    return bars;
}

Plan PlanOfColumns(const CuttingProblem& problem, const MasterLp& master,
                   const std::vector<int64_t>& bars) {
    Plan covering;
    for (std::size_t k = 0; k < bars.size() && k < master.Columns().size(); ++k) {
        if (bars[k] > 0) {
            const Column& column = master.Columns()[k];
            covering.push_back({column.stock, bars[k], column.pieces});
        }
    }
    return TrimmedToQuantities(problem, covering);
}

}  // namespace brennik
