// SearchWholeBars: COIN-OR CBC on the columns of the master LP.
#include <coin/CbcEventHandler.hpp>
#include <coin/CbcModel.hpp>
#include <coin/CoinPackedMatrix.hpp>
#include <coin/OsiClpSolverInterface.hpp>

#include <cmath>

#include "optimise/rounding.h"

namespace brennik {

namespace {

// Stops CBC at the next node once the deadline has passed or the search was cancelled.
class StopAtDeadline final : public CbcEventHandler {
public:
    explicit StopAtDeadline(const Deadline& deadline) : deadline_(deadline) {}
    CbcAction event(CbcEvent) override { return deadline_.Passed() ? stop : noAction; }
    CbcEventHandler* clone() const override { return new StopAtDeadline(*this); }

private:
    const Deadline& deadline_;
};

double Figure(const MasterLp& master, const std::vector<int64_t>& bars) {
    double figure = 0;
    for (std::size_t k = 0; k < bars.size(); ++k) {
        figure += static_cast<double>(bars[k]) * master.BarFigure(master.Columns()[k].stock);
    }
    return figure;
}

}  // namespace

std::vector<int64_t> SearchWholeBars(const CuttingProblem& problem, const MasterLp& master,
                                     const std::vector<int64_t>& start, const Deadline& deadline) {
    const std::vector<Column>& columns = master.Columns();
    const auto n = static_cast<int>(columns.size());
    const auto rows = static_cast<int>(problem.pieces.size());
    if (deadline.Passed() || n == 0 || static_cast<int>(start.size()) != n) {
        return start;
    }

    CoinPackedMatrix matrix(true, 0, 0);
    matrix.setDimensions(rows, 0);
    std::vector<double> lower(static_cast<std::size_t>(n), 0.0);
    std::vector<double> upper(static_cast<std::size_t>(n));
    std::vector<double> objective(static_cast<std::size_t>(n));
    for (int k = 0; k < n; ++k) {
        CoinPackedVector column;
        int64_t most = 0;  // no column is ever worth buying more often than its rarest piece asks
        for (int j = 0; j < rows; ++j) {
            const int64_t pieces = columns[k].pieces[j];
            if (pieces > 0) {
                column.insert(j, static_cast<double>(pieces));
                most = std::max(most, (problem.pieces[j].quantity + pieces - 1) / pieces);
            }
        }
        matrix.appendCol(column);
        upper[k] = static_cast<double>(std::max(most, start[k]));
        objective[k] = master.BarFigure(columns[k].stock);
    }
    std::vector<double> rowLower;
    for (const WantedPiece& piece : problem.pieces) {
        rowLower.push_back(static_cast<double>(piece.quantity));
    }
    const std::vector<double> rowUpper(static_cast<std::size_t>(rows), COIN_DBL_MAX);

    OsiClpSolverInterface solver;
    solver.messageHandler()->setLogLevel(0);
    solver.loadProblem(matrix, lower.data(), upper.data(), objective.data(), rowLower.data(),
                       rowUpper.data());
    for (int k = 0; k < n; ++k) {
        solver.setInteger(k);
    }

    CbcModel model(solver);
    model.setLogLevel(0);
    model.messageHandler()->setLogLevel(0);
    model.setMaximumSeconds(std::max(0.01, deadline.SecondsLeft()));
    StopAtDeadline stopper(deadline);
    model.passInEventHandler(&stopper);
    std::vector<double> startValues(start.begin(), start.end());
    const double startFigure = Figure(master, start);
    model.setBestSolution(startValues.data(), n, startFigure, true);
    // A plan must beat the start by at least a cent of the cheapest bar's figure to count.
    model.setCutoffIncrement(0.005);
    model.branchAndBound();

    const double* best = model.bestSolution();
    if (best == nullptr) {
        return start;
    }
    std::vector<int64_t> bars(static_cast<std::size_t>(n));
    for (int k = 0; k < n; ++k) {
        bars[k] = std::llround(best[k]);
    }
    // Only a covering plan that is really cheaper replaces the start.
    std::vector<int64_t> covered(static_cast<std::size_t>(rows), 0);
    for (int k = 0; k < n; ++k) {
        for (int j = 0; j < rows; ++j) {
            covered[j] += bars[k] * columns[k].pieces[j];
        }
    }
    for (int j = 0; j < rows; ++j) {
        if (covered[j] < problem.pieces[j].quantity) {
            return start;
        }
    }
    return Figure(master, bars) < startFigure ? bars : start;
}

}  // namespace brennik
