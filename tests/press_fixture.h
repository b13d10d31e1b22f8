// Test support: a problem put into the shared block as the intake and the ordering leave it, its
// cutting passes run step by step; or typed into the boxes of an in-memory screen and pressed in
// a fresh temporary folder with a fixed clock, the report read back and its pieces counted.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "diagram/report_reader.h"
#include "engine/cutting_pass.h"
#include "files/file_system.h"
#include "report/clock.h"
#include "run/find_press.h"
#include "run/platform.h"
#include "state/module1.h"
#include "state/number_texts.h"
#include "state/ordering.h"
#include "surface/memory_surface.h"
#include "temp_folder.h"

namespace brennik::testing {

using Rows = std::vector<std::pair<std::string, std::string>>;

// The bar of twelve that the manual explores step by step: four lengths, Method A at 12 a bar.
inline const Rows kTwelveStock = {{"12", "12"}};
inline const Rows kTwelveCuts = {{"7.5", "20"}, {"4.5", "21"}, {"5.1", "24"}, {"6.5", "25"}};

// The options of a press as the form's boxes and the settings panel give them.
struct PressOptions {
    bool methodB = false;
    bool advanced = false;
    bool wasteSummary = false;
    bool reference = false;
};

// Everything a press works on, with the form opened as the program opens it (Method A).
struct Bench {
    TempFolder folder;
    Module1 m;
    MemorySurface surface;
    DiskFileSystem files{folder.Path(), folder.Path()};
    FixedClock clock{Moment(1999, 4, 6, 20, 16)};
    Platform platform{surface, files, clock};

    Bench() { surface.SetValue({Ctl::Option1}, true); }

    // Types the rows into the boxes as a user would: texts, in the order given.
    void Type(const Rows& stdRows, const Rows& cutRows) {
        for (std::size_t r = 0; r < stdRows.size(); ++r) {
            surface.SetText({Ctl::txtSL, static_cast<int>(r + 1)}, stdRows[r].first);
            surface.SetText({Ctl::txtSP, static_cast<int>(r + 1)}, stdRows[r].second);
        }
        for (std::size_t i = 0; i < cutRows.size(); ++i) {
            surface.SetText({Ctl::txtL, static_cast<int>(i + 1)}, cutRows[i].first);
            surface.SetText({Ctl::txtN, static_cast<int>(i + 1)}, cutRows[i].second);
        }
    }

    // Types the rows, sets the options and presses Find Solution.
    void Press(const Rows& stdRows, const Rows& cutRows, const PressOptions& options = {}) {
        Type(stdRows, cutRows);
        surface.SetValue({options.methodB ? Ctl::Option2 : Ctl::Option1}, true);
        surface.SetValue({Ctl::Check1}, options.advanced);
        m.ShowWasteSummary = ToFlag(options.wasteSummary);
        m.ShowReference = ToFlag(options.reference);
        cmdFind_Click(m, platform);
    }

    std::string Read(const std::string& name) {
        std::string contents;
        files.ReadFile(name, contents);
        return contents;
    }

    std::string Status() const { return surface.Text({Ctl::txtLong}); }

    // A report read back as the diagram reads it; a line out of its layout fails the test.
    SolutionReport ReadBack(const std::string& name = "last.sol") {
        SolutionReport report = ReadReport(Read(name));
        EXPECT_TRUE(report.faults.empty()) << ::testing::PrintToString(report.faults);
        return report;
    }
};

// Lengths in hundredths, the grain of every entry once the intake has rounded it.
inline int64_t Hundredths(double length) {
    return std::llround(length * 100);
}

// Pieces counted by their length in hundredths: those the cutting rows ask for, or a report cuts.
using PieceCounts = std::map<int64_t, int64_t>;

inline PieceCounts PiecesAsked(const Rows& cuts) {
    PieceCounts asked;
    for (const auto& [length, quantity] : cuts) {
        asked[Hundredths(std::stod(length))] += std::stoll(quantity);
    }
    return asked;
}

inline PieceCounts PiecesCut(const SolutionReport& report) {
    PieceCounts cut;
    for (const ReportGroup& group : report.groups) {
        for (const ReportLine& line : group.lines) {
            for (const ReportItem& item : line.items) {
                cut[Hundredths(item.length)] += line.bars * item.pieces;
            }
        }
    }
    return cut;
}

// A text with runs of blanks as one and none at either end, however its columns are aligned.
inline std::string Collapsed(const std::string& text) {
    std::istringstream words(text);
    std::string collapsed;
    for (std::string word; words >> word;) {
        collapsed += (collapsed.empty() ? "" : " ") + word;
    }
    return collapsed;
}

using Cut = std::pair<double, int32_t>;  // (length, quantity)

struct Problem {
    std::vector<double> stdLengths;
    std::vector<double> prices;  // may be shorter than stdLengths; missing prices are 0
    std::vector<Cut> cuts;
    bool methodA = false;
};

// A block with the rows filled in entry order with two-decimal values, ordered and classified,
// the totals reset and the pieces counted, ready for the first cutting step.
inline Module1 LoadProblem(const Problem& problem) {
    Module1 m;
    MemorySurface surface;
    for (int r = 1; r <= std::ssize(problem.stdLengths); ++r) {
        m.StdLength(r) = static_cast<float>(RoundEven2(problem.stdLengths[r - 1]));
    }
    for (int r = 1; r <= std::ssize(problem.prices); ++r) {
        m.StdPrice(r) = static_cast<float>(RoundEven2(problem.prices[r - 1]));
    }
    for (int i = 1; i <= std::ssize(problem.cuts); ++i) {
        m.CutLength(i) = static_cast<float>(RoundEven2(problem.cuts[i - 1].first));
        m.CutQty(i) = problem.cuts[i - 1].second;
    }
    surface.SetValue({problem.methodA ? Ctl::Option1 : Ctl::Option2}, true);
    SortStdLengths(m);
    SortCutLengths(m);
    ClassifyProblem(m, surface);
    ResetPassTotals(m);
    CountTotalPieces(m);
    m.PiecesLeft = m.TotalPieces;
    return m;
}

using Pieces = std::vector<std::pair<float, int32_t>>;  // (cutting length, pieces per bar)
// One cutting step: the standard length, the bars cut, their pattern and the waste of each.
using Step = std::tuple<float, int32_t, Pieces, float>;

// Runs cutting steps until nothing is left or no row has a pattern.
inline std::vector<Step> RunWholePass(Module1& m) {
    std::vector<Step> steps;
    while (m.PiecesLeft > 0 && CutNextStep(m)) {
        const int row = static_cast<int>(m.ChosenStd);
        Pieces pieces;
        for (int i = 1; i <= m.CutCount; ++i) {
            if (m.PatternPieces(row, i) > 0) {
                pieces.emplace_back(m.CutLength(i), m.PatternPieces(row, i));
            }
        }
        steps.emplace_back(m.StdLength(row), m.ChosenBars, pieces, m.ChosenWaste);
    }
    return steps;
}

}  // namespace brennik::testing
