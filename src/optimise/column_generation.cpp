#include "optimise/column_generation.h"

#include <coin/ClpSimplex.hpp>

#include <algorithm>
#include <cmath>

#include "optimise/bar_filling.h"

namespace brennik {

namespace {

// A filling must beat its bar's figure by this share to join the LP: dual prices are exact only
// to about this, and a column that CLP would not take in would come back again and again.
constexpr double PricingTolerance = 1e-9;

}  // namespace

MasterLp::MasterLp(const CuttingProblem& problem, Objective objective)
    : problem_(problem), objective_(objective), lp_(std::make_unique<ClpSimplex>()) {
    lp_->setLogLevel(0);
    lp_->setDualTolerance(1e-9);
    lp_->setPrimalTolerance(1e-9);
    lp_->resize(static_cast<int>(problem.pieces.size()), 0);
    std::vector<int64_t> demand;
    for (const WantedPiece& piece : problem.pieces) {
        demand.push_back(piece.quantity);
    }
    SetDemand(demand);
    for (int s = 0; s < static_cast<int>(problem.stock.size()); ++s) {
        for (std::size_t j = 0; j < problem.pieces.size(); ++j) {
            const int64_t fits = problem.stock[s].length100 / problem.pieces[j].length100;
            const int64_t pieces = std::min(fits, problem.pieces[j].quantity);
            if (pieces > 0) {
                std::vector<int64_t> alone(problem.pieces.size(), 0);
                alone[j] = pieces;
                AddColumn(s, alone);
            }
        }
    }
}

MasterLp::~MasterLp() = default;

double MasterLp::BarFigure(int stock) const {
    const StockLength& bar = problem_.stock[stock];
    return static_cast<double>(objective_ == Objective::Cost ? bar.price100 : bar.length100) /
           100.0;
}

void MasterLp::SetDemand(const std::vector<int64_t>& demand) {
    demand_ = demand;
    for (std::size_t j = 0; j < demand.size(); ++j) {
        lp_->setRowBounds(static_cast<int>(j), static_cast<double>(demand[j]), COIN_DBL_MAX);
    }
}

bool MasterLp::AddColumn(int stock, const std::vector<int64_t>& pieces) {
    const std::size_t before = columns_.size();
    return ColumnOf(stock, pieces) == before;
}

std::size_t MasterLp::ColumnOf(int stock, const std::vector<int64_t>& pieces) {
    for (std::size_t k = 0; k < columns_.size(); ++k) {
        if (columns_[k].stock == stock && columns_[k].pieces == pieces) {
            return k;
        }
    }
    std::vector<int> rows;
    std::vector<double> counts;
    for (std::size_t j = 0; j < pieces.size(); ++j) {
        if (pieces[j] > 0) {
            rows.push_back(static_cast<int>(j));
            counts.push_back(static_cast<double>(pieces[j]));
        }
    }
    lp_->addColumn(static_cast<int>(rows.size()), rows.data(), counts.data(), 0.0, COIN_DBL_MAX,
                   BarFigure(stock));
    columns_.push_back({stock, pieces});
    return columns_.size() - 1;
}

bool MasterLp::SolveLp() {
    if (lp_->getNumCols() == 0) {
        return false;  // CLP does not take an LP without columns
    }
    // Columns added keep the last basis primal feasible; a new demand keeps it dual feasible.
    lp_->primal();
    if (!lp_->isProvenOptimal()) {
        lp_->dual();
    }
    return lp_->isProvenOptimal();
}

std::vector<double> MasterLp::ColumnValues() const {
    const double* values = lp_->getColSolution();
    return std::vector<double>(values, values + lp_->getNumCols());
}

double MasterLp::PriceOut(const std::vector<double>& duals, const Deadline& deadline, bool& added,
                          bool& complete) {
    double ratio = 1;
    for (int s = 0; s < static_cast<int>(problem_.stock.size()); ++s) {
        const int64_t bar = problem_.stock[s].length100;
        std::vector<BarItem> items;
        for (std::size_t j = 0; j < duals.size(); ++j) {
            const int64_t length = problem_.pieces[j].length100;
            items.push_back(
                {length, length <= bar ? std::min(demand_[j], bar / length) : 0, duals[j]});
        }
        const double figure = BarFigure(s);
        const double threshold = figure * (1 + PricingTolerance);
        const BarFilling filling = FillBar(items, bar, threshold, deadline);
        complete = complete && filling.complete;
        ratio = std::max(ratio, filling.upperBound / figure);
        if (filling.value > threshold && AddColumn(s, filling.counts)) {
            added = true;
        }
        for (const std::vector<int64_t>& counts : filling.runnersUp) {
            AddColumn(s, counts);
        }
    }
    return ratio;
}

Relaxation MasterLp::Solve(const Deadline& deadline) {
    Relaxation relaxation;
    for (;;) {
        if (!SolveLp()) {
            relaxation.proven = false;
            return relaxation;
        }
        relaxation.value = lp_->objectiveValue();
        const double* rowDuals = lp_->dualRowSolution();
        relaxation.duals.assign(problem_.pieces.size(), 0);
        for (std::size_t j = 0; j < relaxation.duals.size(); ++j) {
            relaxation.duals[j] = demand_[j] > 0 ? std::max(0.0, rowDuals[j]) : 0.0;
        }
        bool added = false;
        bool complete = true;
        // Farley's bound: the duals shrunk by the most any filling beats its bar by are feasible
        // for the dual of the whole relaxation, so the LP's value shrunk alike bounds it below.
        const double ratio = PriceOut(relaxation.duals, deadline, added, complete);
        relaxation.lowerBound = std::max(relaxation.lowerBound, relaxation.value / ratio);
        if (!added) {
            relaxation.proven = complete;
            if (complete) {
                relaxation.lowerBound =
                    std::max(relaxation.lowerBound, relaxation.value / (1 + PricingTolerance));
            }
            return relaxation;
        }
        if (deadline.Passed()) {
            relaxation.proven = false;
            return relaxation;
        }
    }
}

}  // namespace brennik
