// The linear relaxation of a cutting problem, solved by column generation (Gilmore and Gomory):
// a master LP over the ways of cutting found so far, solved by COIN-OR CLP, and for every
// standard length the most valuable filling of a bar at the LP's dual prices. A way of cutting
// whose filling is worth more than its bar's cost joins the LP, until there is none.
#pragma once

#include <memory>
#include <vector>

#include "optimise/cutting_plan.h"
#include "optimise/deadline.h"

class ClpSimplex;

namespace brennik {

// A way of cutting one bar of standard row `stock`.
struct Column {
    int stock = 0;
    std::vector<int64_t> pieces;
};

struct Relaxation {
    double value = 0;  // optimum of the master LP over the columns it has
    // No plan, not even a fractional one, has a lower figure. Equal to `value` when proven.
    double lowerBound = 0;
    bool proven = false;        // no way of cutting lowers the LP: `value` is its optimum
    std::vector<double> duals;  // the price of one piece of each cutting row, at the end
};

class MasterLp {
public:
    // Starts with, for every standard length and cutting row that fits it, the bar cut into as
    // many pieces of that row alone as it holds and are wanted.
    MasterLp(const CuttingProblem& problem, Objective objective);
    ~MasterLp();
    MasterLp(const MasterLp&) = delete;
    MasterLp& operator=(const MasterLp&) = delete;

    // The figure of one bar of standard row `stock`, in the units of the entries.
    double BarFigure(int stock) const;

    // The pieces still wanted of each cutting row; the LP covers at least these.
    void SetDemand(const std::vector<int64_t>& demand);
    const std::vector<int64_t>& Demand() const { return demand_; }

    // Adds a way of cutting unless the LP has it already; says whether it was added.
    bool AddColumn(int stock, const std::vector<int64_t>& pieces);
    // The place of a way of cutting among the columns, where it is added if it is new.
    std::size_t ColumnOf(int stock, const std::vector<int64_t>& pieces);
    const std::vector<Column>& Columns() const { return columns_; }

    // Column generation from the columns there are, until no way of cutting prices out or the
    // deadline has passed. The LP's values of the columns are then those of ColumnValues().
    Relaxation Solve(const Deadline& deadline);
    std::vector<double> ColumnValues() const;

private:
    bool SolveLp();
    // The most valuable filling of one bar of every standard length at these duals; adds those
    // that price out. Returns how much the best filling is worth against its bar, at most.
    double PriceOut(const std::vector<double>& duals, const Deadline& deadline, bool& added,
                    bool& complete);

    const CuttingProblem& problem_;
    Objective objective_;
    std::unique_ptr<ClpSimplex> lp_;
    std::vector<int64_t> demand_;
    std::vector<Column> columns_;
};

}  // namespace brennik
