// Problems at the limits of the form, pressed whole: the longest length and price fill their
// columns, the largest problems and the fuzzer's slow files end, every piece asked for cut.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "files/problem_files.h"
#include "files/text_lines.h"
#include "press_fixture.h"
#include "run/find_press.h"

namespace brennik {
namespace {

using testing::Bench;
using testing::PieceCounts;
using testing::PiecesAsked;
using testing::PiecesCut;
using testing::Rows;
using Texts = std::vector<std::string>;

// Presses the problem with the waste summary and finds each of the texts in its report; a press
// that never ends is the test runner's timeout to catch, and speed the benchmark's to measure.
void ExpectPressEnds(const std::string& what, const Rows& stock, const Rows& cuts,
                     const Texts& reportHolds = {}, bool advanced = false) {
    SCOPED_TRACE(what);
    Bench bench;
    bench.Press(stock, cuts, {.advanced = advanced, .wasteSummary = true});
    const Texts endings = advanced
                              ? Texts{" Found a Better Solution !.", " Sorry,  No Better Solution."}
                              : Texts{" Done !."};
    EXPECT_NE(std::find(endings.begin(), endings.end(), bench.Status()), endings.end());
    // A length of five digits and two decimals loses its first in seven columns: count all pieces.
    const auto total = [](const PieceCounts& pieces) {
        return std::accumulate(pieces.begin(), pieces.end(), int64_t{0},
                               [](int64_t sum, const auto& piece) { return sum + piece.second; });
    };
    EXPECT_EQ(total(PiecesCut(bench.ReadBack())), total(PiecesAsked(cuts)));
    const std::string report = bench.Read("last.sol");
    for (const std::string& text : reportHolds) {
        EXPECT_NE(report.find(text), std::string::npos) << text << " in\n" << report;
    }
}

// `count` cutting lengths from `first` on, `step` apart (both in hundredths), of `pieces` each.
Rows Lengths(int count, int first, int step, const std::string& pieces) {
    Rows cuts;
    for (int hundredths = first; cuts.size() < static_cast<std::size_t>(count);
         hundredths += step) {
        const std::string cents = std::to_string(100 + hundredths % 100);
        cuts.emplace_back(std::to_string(hundredths / 100) + "." + cents.substr(1), pieces);
    }
    return cuts;
}

// Problems at the edge of what the form holds: the longest length and price fill their seven
// columns, and the price is taken. In the last two no bar is ever filled exactly late in the
// pass, so the least waste of every step must be proved.
TEST(LargeProblems, EveryPressEnds) {
    ExpectPressEnds("99999.9 x 3 and 0.005 x 2 on 99999.9", {{"99999.9", "99999.9"}},
                    {{"99999.9", "3"}, {"0.005", "2"}},
                    {"99999.9        3       1 x99999.9", "99999.9        1       2 x    .01",
                     "(99999.90)(", "Method Used    => A"});
    ExpectPressEnds("0.01 x 99999 on 99999.9", {{"99999.9", "99999.9"}}, {{"0.01", "99999"}},
                    {"99999.9        1   99999 x    .01"});
    ExpectPressEnds("99999 bars of one piece", {{"99999.9", "99999.9"}}, {{"60000", "99999"}},
                    {"99999.9    99999       1 x  60000"});
    ExpectPressEnds("40 lengths 0.01 to 0.40 x 99999 on 99999.9", {{"99999.9", ""}},
                    Lengths(MaxCutLengths, 1, 1, "99999"));
    Rows sixBars;
    for (int row = 0; row < MaxStdLengths; ++row) {
        sixBars.emplace_back(std::to_string(99999 - 7 * row) + ".9", std::to_string(row + 1));
    }
    ExpectPressEnds("6 bars near 99999.9, 40 lengths x 99999, Advanced", sixBars,
                    Lengths(MaxCutLengths, 199737, 99700, "99999"), {}, true);
    ExpectPressEnds("6000 with 300, 311, ... 729 mm x 50", {{"6000", ""}},
                    Lengths(MaxCutLengths, 30000, 1100, "50"));
    ExpectPressEnds("99999.89 with 20 lengths 2000.10 to 2950.48 x 99999", {{"99999.89", ""}},
                    Lengths(20, 200010, 5002, "99999"));
}

// Loads the problem file of these lines, the cutting rows among them, as the headless runner
// does, presses Find Solution and holds the report's pieces against the rows. Each problem once
// kept a press busy for seconds while the search walked lengths that never fill a bar exactly.
void ExpectEveryPieceCut(Bench& bench, Texts lines, const Rows& cuts, const Texts& after = {}) {
    for (const auto& [length, quantity] : cuts) {
        lines.push_back(length + "," + quantity);
    }
    lines.insert(lines.end(), after.begin(), after.end());
    bench.files.WriteFile("problem.pro", JoinLines(lines));
    bench.surface.SetNextFileName(bench.folder.PathOf("problem.pro"));
    LoadProblem(bench.m, bench.surface, bench.files);
    cmdFind_Click(bench.m, bench.platform);
    EXPECT_FALSE(bench.m.EntryError || bench.m.LengthError || bench.m.FileError);
    EXPECT_EQ(bench.folder.FileNames(), (Texts{"last.sol", "problem.pro"}));
    EXPECT_EQ(PiecesCut(bench.ReadBack()), PiecesAsked(cuts));
}

// The fuzzer's input as it found it: a bar of 99 without price among five short priced ones,
// forty lengths from 1 to 6.07 (one of them 5, asked 541 times), and lines past the fortieth
// cutting row that the reader leaves alone. Advanced took 6.4 s in a release build.
TEST(FuzzFindings, AdvancedOnALongBarAmongShortOnesAndFortyLengthsCutsEveryPiece) {
    Rows cuts;
    for (int row = 0; row < MaxCutLengths; ++row) {
        const int quantity = row == 25 ? 541 : (row == 24 ? 2 : 1 + row % 5);
        cuts.emplace_back(row == 25 ? "5." : FloatText(1 + 0.13 * row), std::to_string(quantity));
    }
    Bench bench;
    bench.m.ShowWasteSummary = kTrue;
    bench.m.ShowReference = kTrue;
    bench.surface.SetNextInput("fuzz");
    bench.surface.SetValue({Ctl::Check1}, true);
    ExpectEveryPieceCut(bench, {"12,12", "11,11", "10,10", "99,", "8,8", "7,7"}, cuts,
                        {"3,3", "3,3", "3,3", "3(3"});
}

// Twenty lengths 0.07 apart, 99 of each, on a bar of 59.99: Method B took 30 s in a release build.
TEST(FuzzFindings, TwentyCloseLengthsOnOneBarAreAllCut) {
    Bench bench;
    bench.surface.SetValue({Ctl::Option2}, true);
    ExpectEveryPieceCut(bench, {"59.99,", " , "}, Lengths(20, 300, 7, "99"));
    EXPECT_EQ(bench.Status(), " Done !.");
}

}  // namespace
}  // namespace brennik
