#include "optimise/press_plan.h"

namespace brennik {

CuttingProblem ProblemOfPress(const Module1& m) {
    std::vector<StockLength> stock;
    for (int r = 1; r <= m.StdCount; ++r) {
        stock.push_back(Stock(m.StdLength(r), m.StdPrice(r)));
    }
    std::vector<WantedPiece> pieces;
    for (int j = 1; j <= m.CutCount; ++j) {
        pieces.push_back(Piece(m.MasterCutLength(j), m.MasterCutQty(j)));
    }
    return MakeProblem(stock, pieces, m.MethodA ? Objective::Cost : Objective::Material);
}

Plan PlanOfPress(const Module1& m, const CuttingProblem& problem) {
    Plan plan;
    for (const CutLineRecord& record : m.PassLines) {
        PlanLine line{0, record.bars, std::vector<int64_t>(problem.pieces.size(), 0)};
        for (int r = 1; r <= m.StdCount; ++r) {
            if (m.StdLength(r) == record.stdLength && m.StdPrice(r) == record.stdPrice) {
                line.stock = r - 1;
                break;
            }
        }
        for (std::size_t j = 0; j < line.pieces.size(); ++j) {
            line.pieces[j] = record.pieces(static_cast<int>(j) + 1);
        }
        plan.push_back(std::move(line));
    }
    return plan;
}

}  // namespace brennik
