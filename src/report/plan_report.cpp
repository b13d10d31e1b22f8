#include "report/plan_report.h"

#include <vector>

#include "engine/cutting_pass.h"
#include "report/report_assembly.h"
#include "report/report_lines.h"
#include "state/number_texts.h"
#include "state/ordering.h"

namespace brennik {

bool WritePlanReport(Module1& m, const CuttingProblem& problem, const Plan& plan, FileSystem& files,
                     const Clock& clock, const std::string& target) {
    m.CutLength = m.MasterCutLength;
    m.CutQty = m.MasterCutQty;
    std::vector<std::string> tiny1;
    WriteReportHead(m, clock, tiny1);
    ResetPassTotals(m);
    m.PiecesLeft = m.TotalPieces;

    // Each line is a cutting step of its standard row, with the waste per bar that the pattern
    // search would have found for that pattern.
    for (const PlanLine& line : plan) {
        const int row = line.stock + 1;
        for (int j = 1; j <= m.CutCount; ++j) {
            m.PatternPieces(row, j) = static_cast<int32_t>(line.pieces[j - 1]);
        }
        m.ChosenStd = static_cast<float>(row);
        m.ChosenBars = static_cast<int32_t>(line.bars);
        m.ChosenWaste = Round2(static_cast<float>(LineWaste(problem, line)) / 100.0f);
        ApplyChosenPattern(m);
        WriteCuttingLine(m, tiny1);
    }
    KeepBarsBought(m);
    WriteReportFoot(m, tiny1, "+");
    if (!AssembleReport(m, files, clock, tiny1, target)) {
        RemoveWorkFiles(files, target);
        return false;
    }
    return true;
}

}  // namespace brennik
