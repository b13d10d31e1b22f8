// Test support for the report: a fresh work folder on disk, a fixed moment for the stamps, and a
// whole pass as RunPass drives it around the engine, from the head to last.sol.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/cutting_pass.h"
#include "files/file_system.h"
#include "files/text_lines.h"
#include "problem_fixture.h"
#include "report/clock.h"
#include "report/report_assembly.h"
#include "report/report_lines.h"
#include "state/module1.h"
#include "state/ordering.h"
#include "temp_folder.h"

namespace brennik::testing {

// LoadProblem, then the standard rows put back in the order the problem gives them, as a pass in
// the best sequence of the Advanced search has them.
inline void LoadArrangedProblem(Module1& m, const Problem& problem, MemorySurface& surface) {
    LoadProblem(m, problem, surface);
    m.StdLength.Fill(0);
    m.StdPrice.Fill(0);
    for (std::size_t r = 0; r < problem.stdLengths.size(); ++r) {
        m.StdLength(static_cast<int>(r + 1)) =
            static_cast<float>(RoundEven2(problem.stdLengths[r]));
    }
    for (std::size_t r = 0; r < problem.prices.size(); ++r) {
        m.StdPrice(static_cast<int>(r + 1)) = static_cast<float>(RoundEven2(problem.prices[r]));
    }
}

// The report's part of a pass: the head, the cutting loop with a line per step, the bars of each
// row, the foot, tiny1.sol, and the four assembly steps. False when a file step failed.
inline bool RunReportedPass(Module1& m, FileSystem& files, const Clock& clock) {
    std::vector<std::string> tiny1;
    WriteReportHead(m, clock, tiny1);
    ResetPassTotals(m);
    m.PiecesLeft = m.TotalPieces;
    while (m.PiecesLeft > 0 && CutNextStep(m)) {
        WriteCuttingLine(m, tiny1);
    }
    for (int row = 1; row <= m.StdCount; ++row) {
        const float used = m.MethodA ? m.BarsUsedA(row) : m.BarsUsedB(row);
        m.BarsBought(row) = static_cast<int32_t>(std::lround(used));
    }
    WriteReportFoot(m, tiny1);
    return files.WriteFile("tiny1.sol", JoinLines(tiny1)) && SqueezeSlots(m, files) &&
           SplitReport(m, files, clock) && GroupByLength(m, files) && JoinReport(files);
}

// The lines of a file of the folder; none when it cannot be read.
inline std::vector<std::string> ReadLinesOf(FileSystem& files, const std::string& name) {
    std::string contents;
    if (!files.ReadFile(name, contents)) {
        return {};
    }
    return SplitLines(contents);
}

}  // namespace brennik::testing
