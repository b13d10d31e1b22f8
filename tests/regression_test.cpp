// Problem files that the problem-file fuzzer found troublesome, loaded and pressed as the fuzzer
// presses them. Each once kept a press busy for seconds while the pattern search walked every
// combination of lengths that never fill a bar exactly; each must still cut every piece asked for.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "diagram/report_reader.h"
#include "files/problem_files.h"
#include "files/text_lines.h"
#include "press_fixture.h"
#include "run/find_press.h"

namespace brennik {
namespace {

using testing::Bench;
using Pieces = std::map<long, int64_t>;  // by length in hundredths

long Hundredths(double length) {
    return std::lround(length * 100);
}

// Loads the problem file as the headless runner does, presses Find Solution once and holds the
// report's pieces against those asked for.
void ExpectEveryPieceCut(Bench& bench, const std::vector<std::string>& lines, const Pieces& asked) {
    bench.files.WriteFile("problem.pro", JoinLines(lines));
    bench.surface.SetNextFileName(bench.folder.PathOf("problem.pro"));
    LoadProblem(bench.m, bench.surface, bench.files);
    cmdFind_Click(bench.m, bench.platform);
    EXPECT_FALSE(bench.m.EntryError || bench.m.LengthError || bench.m.FileError);
    EXPECT_EQ(bench.folder.FileNames(), (std::vector<std::string>{"last.sol", "problem.pro"}));
    const SolutionReport report = ReadReport(bench.Read("last.sol"));
    EXPECT_TRUE(report.faults.empty());
    Pieces cut;
    for (const ReportGroup& group : report.groups) {
        for (const ReportLine& line : group.lines) {
            for (const ReportItem& item : line.items) {
                cut[Hundredths(item.length)] += line.bars * item.pieces;
            }
        }
    }
    EXPECT_EQ(cut, asked);
}

// The fuzzer's input as it found it: a bar of 99 without price among five short priced ones,
// forty lengths from 1 to 6.07 (one of them 5, asked 541 times), and lines past the fortieth
// cutting row that the reader leaves alone. Advanced took 6.4 s in a release build.
TEST(FuzzFindings, AdvancedOnALongBarAmongShortOnesAndFortyLengthsCutsEveryPiece) {
    std::vector<std::string> lines = {"12,12", "11,11", "10,10", "99,", "8,8", "7,7"};
    Pieces asked;
    for (int row = 0; row < MaxCutLengths; ++row) {
        const bool five = row == 25;
        const double length = five ? 5 : 1 + 0.13 * row;
        const int quantity = five ? 541 : (row == 24 ? 2 : 1 + row % 5);
        lines.push_back(five ? "5.,541" : FloatText(length) + "," + std::to_string(quantity));
        asked[Hundredths(length)] += quantity;
    }
    lines.insert(lines.end(), {"3,3", "3,3", "3,3", "3(3"});
    Bench bench;
    bench.m.ShowWasteSummary = kTrue;
    bench.m.ShowReference = kTrue;
    bench.surface.SetNextInput("fuzz");
    bench.surface.SetValue({Ctl::Check1}, true);
    ExpectEveryPieceCut(bench, lines, asked);
}

// Twenty lengths 0.07 apart, 99 of each, on a bar of 59.99: the basic press of Method B took
// 30 s in a release build.
TEST(FuzzFindings, TwentyCloseLengthsOnOneBarAreAllCut) {
    std::vector<std::string> lines = {"59.99,", " , "};
    Pieces asked;
    for (int row = 0; row < 20; ++row) {
        lines.push_back(FloatText(3 + 0.07 * row) + ",99");
        asked[Hundredths(3 + 0.07 * row)] = 99;
    }
    Bench bench;
    bench.surface.SetValue({Ctl::Option2}, true);
    ExpectEveryPieceCut(bench, lines, asked);
    EXPECT_EQ(bench.Status(), " Done !.");
}

}  // namespace
}  // namespace brennik
