// Entries at and beyond every limit of the intake, pressed whole: each is refused or accepted as
// the intake rules say, and no press of them crashes or fails to end, however large the problem.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "diagram/report_reader.h"
#include "press_fixture.h"
#include "run/find_press.h"

namespace brennik {
namespace {

using testing::Bench;
using Rows = std::vector<std::pair<std::string, std::string>>;
using Texts = std::vector<std::string>;

// Texts that hold no number at all, up to the seven characters that a box takes; control bytes
// and bytes above 127 among them.
const Texts kNoNumbers = {
    "abcdefg", "#$%&*()", "-------", ".......", "+-+-+-+",        "e1e1e1e",        "nan", "inf",
    "-inf",    "NaN(1)",  "       ", "x0x0x0x", "\t\t\t\t\t\t\t", "\1\2\3\4\5\6\7", "ééé!"};
// Numbers too large for a length, or for any field.
const Texts kBeyondLength = {"99999.91", "100000",  "9999999", "1e308",
                             "1e999",    "1e+9999", "3.4e38",  "3.5e38"};

// Texts of a standard length that the intake takes, with the length it writes back; 0.005 lies a
// little above the half as a double, so it rounds up to 0.01.
const Rows kKeptLengths = {
    {"99999.9", "99999.9"}, {"99999.899", "99999.9"}, {"0.005", "0.01"}, {"1.2.3.4", "1.2"},
    {"12abcde", "12"},      {"1,5,0,0", "1"},         {"+5", "5"},       {"5e", "5"},
    {"  7  ", "7"}};
// Texts of a quantity that the intake takes, rounded down.
const Rows kTakenQuantities = {{"99999", "99999"}, {"99999.9", "99999"}, {"99999.999", "99999"},
                               {"1.9", "1"},       {"3e2", "300"},       {"12abcde", "12"}};

Texts Joined(Texts texts, const Texts& more) {
    texts.insert(texts.end(), more.begin(), more.end());
    return texts;
}

Texts Boxes(const Bench& bench, Ctl box, int rows) {
    Texts texts;
    for (int row = 1; row <= rows; ++row) {
        texts.push_back(bench.surface.Text({box, row}));
    }
    return texts;
}

// Types the rows, presses Find Solution and tells whether the press ended with a whole report.
bool Solved(Bench& bench, const Rows& stock, const Rows& cuts) {
    bench.Type(stock, cuts);
    cmdFind_Click(bench.m, bench.platform);
    return bench.Status() == " Done !." && bench.folder.FileNames() == Texts{"last.sol"} &&
           ReadReport(bench.Read("last.sol")).faults.empty();
}

// Refused at cutting row `row`: the message, both boxes of the row red and the focus on its
// length; the rows above it black; no report.
void ExpectRefusedAt(Bench& bench, int row) {
    EXPECT_EQ(bench.Status(), " Unacceptable Entry !.");
    EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Red);
    EXPECT_EQ(bench.surface.State({Ctl::txtL, row}).fore, Red);
    EXPECT_EQ(bench.surface.State({Ctl::txtN, row}).fore, Red);
    EXPECT_EQ(bench.surface.State({Ctl::txtL, row - 1}).fore, Black);
    EXPECT_EQ(bench.surface.Focus(), (Control{Ctl::txtL, row}));
    EXPECT_TRUE(bench.folder.FileNames().empty());
}

TEST(StandardLengthLimits, BeyondTheLimitOrWithoutANumberTheRowIsDroppedInSilence) {
    for (const std::string& text :
         Joined(Joined(kBeyondLength, kNoNumbers),
                {"0.001", "0.004", "-0.01", "-1e999", "0x10", "1e-999", "0"})) {
        SCOPED_TRACE(text);
        Bench bench;
        EXPECT_TRUE(Solved(bench, {{text, "10"}, {"6", "5"}}, {{"1", "2"}}));
        EXPECT_EQ(Boxes(bench, Ctl::txtSL, 2), (Texts{"6", ""}));
        EXPECT_EQ(Boxes(bench, Ctl::txtSP, 2), (Texts{"5", ""}));
    }
    for (const auto& [text, shown] : kKeptLengths) {
        SCOPED_TRACE(text);
        Bench bench;
        EXPECT_TRUE(Solved(bench, {{text, "10"}, {"0.01", "5"}}, {{"0.01", "2"}}));
        EXPECT_EQ(Boxes(bench, Ctl::txtSL, 2), (Texts{shown, "0.01"}));
    }
}

TEST(PriceLimits, APriceBeyondTheLimitIsEmptiedAndMethodAFallsToB) {
    for (const std::string& text :
         Joined(kNoNumbers, {"99999.91", "100000", "1e999", "-1e999", "-0.01", "0.004"})) {
        SCOPED_TRACE(text);
        Bench bench;
        EXPECT_TRUE(Solved(bench, {{"12", text}}, {{"5", "3"}}));
        EXPECT_EQ(bench.surface.Text({Ctl::txtSP, 1}), "");
        EXPECT_TRUE(bench.surface.Value({Ctl::Option2}));
    }
    Bench bench;
    EXPECT_TRUE(Solved(bench, {{"12", "99999.9"}}, {{"5", "3"}}));
    EXPECT_TRUE(bench.surface.Value({Ctl::Option1}));
    EXPECT_NE(bench.Read("last.sol").find("(99999.90)("), std::string::npos);
}

TEST(CuttingLengthLimits, BeyondTheLimitNegativeOrWithoutANumberTheRowIsRefused) {
    for (const std::string& text :
         Joined(Joined(kBeyondLength, kNoNumbers),
                {"-1e999", "-0.01", "0.001", "0.004", "0x10", "1e-999"})) {
        SCOPED_TRACE(text);
        Bench bench;
        EXPECT_FALSE(Solved(bench, {{"99999.9", "1"}}, {{"1", "1"}, {text, "3"}, {"2", "1"}}));
        ExpectRefusedAt(bench, 2);
        // The row below the bad one is not read: its boxes keep their text.
        EXPECT_EQ(bench.surface.Text({Ctl::txtL, 3}), "2");
    }
    // Without a number in either box the row is emptied in silence.
    for (const std::string& text : Joined(kNoNumbers, {"0.001"})) {
        SCOPED_TRACE("both boxes " + text);
        Bench bench;
        EXPECT_TRUE(
            Solved(bench, {{"12", "1"}}, {{text, text == "0.001" ? "" : text}, {"5", "2"}}));
        EXPECT_EQ(Boxes(bench, Ctl::txtL, 2), (Texts{"", "5"}));
        EXPECT_EQ(Boxes(bench, Ctl::txtN, 2), (Texts{"", "2"}));
    }
}

TEST(CuttingLengthLimits, AtTheLimitTheRowIsCutAndPrintedInItsSevenColumns) {
    Bench bench;
    bench.m.ShowWasteSummary = kTrue;
    EXPECT_TRUE(Solved(bench, {{"99999.9", "99999.9"}}, {{"99999.9", "3"}, {"0.005", "2"}}));
    EXPECT_EQ(Boxes(bench, Ctl::txtL, 2), (Texts{"99999.9", "0.01"}));
    const std::string report = bench.Read("last.sol");
    EXPECT_NE(report.find("99999.9        3       1 x99999.9"), std::string::npos) << report;
    EXPECT_NE(report.find("99999.9        1       2 x    .01"), std::string::npos) << report;

    Bench tooLong;
    EXPECT_FALSE(Solved(tooLong, {{"99999.8", ""}}, {{"99999.9", "1"}}));
    EXPECT_EQ(tooLong.Status(), " This length exceeds the longest standard length !.");
    EXPECT_EQ(tooLong.surface.State({Ctl::txtL, 1}).fore, Red);
    EXPECT_EQ(tooLong.surface.State({Ctl::txtN, 1}).fore, Black);
}

TEST(QuantityLimits, UpTo99999IsTakenRoundedDownAndBeyondOrBelowOneRefused) {
    for (const auto& [text, shown] : kTakenQuantities) {
        SCOPED_TRACE(text);
        Bench bench;
        EXPECT_TRUE(Solved(bench, {{"99999.9", "1"}}, {{"0.01", text}}));
        EXPECT_EQ(bench.surface.Text({Ctl::txtN, 1}), shown);
    }
    for (const std::string& text :
         Joined(kNoNumbers, {"100000", "99999999", "1e308", "1e999", "-1e999", "2147483648",
                             "-2147483649", "0.999", "0", "-0.5", "0x10"})) {
        SCOPED_TRACE(text);
        Bench bench;
        EXPECT_FALSE(Solved(bench, {{"12", "1"}}, {{"5", "1"}, {"4", text}}));
        ExpectRefusedAt(bench, 2);
    }
}

// Types the problem and presses in a child process, so that a press that crashes, or that has
// not ended after 120 s, far beyond any press, fails its own case instead of the test program;
// speed is the benchmark's to measure. The child's last.sol stays for the parent to read.
void ExpectPressEnds(const std::string& what, const Rows& stock, const Rows& cuts,
                     const std::string& reportHolds = "", bool advanced = false) {
    SCOPED_TRACE(what);
    Bench bench;
    bench.m.ShowWasteSummary = kTrue;
    bench.Type(stock, cuts);
    bench.surface.SetValue({Ctl::Check1}, advanced);
    const Texts endings = advanced
                              ? Texts{" Found a Better Solution !.", " Sorry,  No Better Solution."}
                              : Texts{" Done !."};
    const auto started = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        cmdFind_Click(bench.m, bench.platform);
        _exit(std::find(endings.begin(), endings.end(), bench.Status()) != endings.end() ? 0 : 1);
    }
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() - started > std::chrono::seconds(120)) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            FAIL() << "the press did not end within 120 s";
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_FALSE(WIFSIGNALED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "ended with another status";
    std::cout << what << ": "
              << std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count()
              << " s\n";
    const std::string report = bench.Read("last.sol");
    EXPECT_TRUE(ReadReport(report).faults.empty());
    EXPECT_NE(report.find(reportHolds), std::string::npos) << report;
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

// Problems at the edge of what the form holds. In the last two no bar is ever filled exactly
// late in the pass, so the least waste of every step must be proved.
TEST(LargeProblems, EveryPressEnds) {
    ExpectPressEnds("0.01 x 99999 on 99999.9", {{"99999.9", "99999.9"}}, {{"0.01", "99999"}},
                    "99999.9        1   99999 x    .01");
    ExpectPressEnds("99999 bars of one piece", {{"99999.9", "99999.9"}}, {{"60000", "99999"}},
                    "99999.9    99999       1 x  60000");
    ExpectPressEnds("40 lengths 0.01 to 0.40 x 99999 on 99999.9", {{"99999.9", ""}},
                    Lengths(MaxCutLengths, 1, 1, "99999"));
    Rows sixBars;
    for (int row = 0; row < MaxStdLengths; ++row) {
        sixBars.emplace_back(std::to_string(99999 - 7 * row) + ".9", std::to_string(row + 1));
    }
    ExpectPressEnds("6 bars near 99999.9, 40 lengths x 99999, Advanced", sixBars,
                    Lengths(MaxCutLengths, 199737, 99700, "99999"), "", true);
    ExpectPressEnds("6000 with 300, 311, ... 729 mm x 50", {{"6000", ""}},
                    Lengths(MaxCutLengths, 30000, 1100, "50"));
    ExpectPressEnds("99999.89 with 20 lengths 2000.10 to 2950.48 x 99999", {{"99999.89", ""}},
                    Lengths(20, 200010, 5002, "99999"));
}

}  // namespace
}  // namespace brennik
