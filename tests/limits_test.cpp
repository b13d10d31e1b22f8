// Entries at and beyond every limit of the intake, pressed whole: each is refused or accepted as
// the intake rules say (status text, red row, focus, the boxes written back, last.sol or none),
// and no press of them crashes or takes long, however large the numbers or the problem.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "press_fixture.h"
#include "report_reader.h"
#include "run/find_press.h"

namespace brennik {
namespace {

using testing::Bench;
using Rows = std::vector<std::pair<std::string, std::string>>;

const char* const kUnacceptable = " Unacceptable Entry !.";
const char* const kTooLong = " This length exceeds the longest standard length !.";

// The time a press of a full form is given before it counts as one that does not end: far
// beyond any press, so that only a hang fails here; speed is the benchmark's to measure.
constexpr double kLargeProblemSeconds = 120.0;

// Texts that hold no number at all, up to the seven characters that a box takes.
const std::vector<std::string> kNoNumbers = {"abcdefg",
                                             "#$%&*()",
                                             "-------",
                                             ".......",
                                             "+-+-+-+",
                                             "e1e1e1e",
                                             "nan",
                                             "inf",
                                             "-inf",
                                             "NaN(1)",
                                             "       ",
                                             "\t\t\t\t\t\t\t",
                                             "\x01\x02\x03\x04\x05\x06\x07",
                                             "\xff\xfe\xfd\xfc\xfb\xfa\xf9",
                                             "\xc3\xa9\xc3\xa9\xc3\xa9!",
                                             "x0x0x0x"};

// Texts whose number is beyond the limit of a length: too large for it or for any field.
const std::vector<std::string> kBeyondLengthLimit = {"99999.91", "100000",  "9999999", "1e308",
                                                     "1e999",    "1e+9999", "3.4e38",  "3.5e38"};

// Pressed with the clock taken; a slow press is told with its figure, for the reader.
void TimedPress(Bench& bench, const std::string& what) {
    const auto started = std::chrono::steady_clock::now();
    cmdFind_Click(bench.m, bench.platform);
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    if (seconds > 0.2) {
        std::cout << "slow press (" << seconds << " s): " << what << "\n";
    }
}

void ExpectSolved(Bench& bench, const std::string& what) {
    EXPECT_EQ(bench.Status(), " Done !.") << what;
    EXPECT_EQ(bench.folder.FileNames(), std::vector<std::string>{"last.sol"}) << what;
    EXPECT_TRUE(testing::ParseReport(bench.Read("last.sol")).faults.empty()) << what;
}

// Refused at cutting row `row`: the message, both boxes of the row red and the focus on its
// length; the rows above it black; no report.
void ExpectRefusedAt(Bench& bench, int row, const std::string& what) {
    EXPECT_EQ(bench.Status(), kUnacceptable) << what;
    EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Red) << what;
    EXPECT_EQ(bench.surface.State({Ctl::txtL, row}).fore, Red) << what;
    EXPECT_EQ(bench.surface.State({Ctl::txtN, row}).fore, Red) << what;
    EXPECT_EQ(bench.surface.Focus(), (Control{Ctl::txtL, row})) << what;
    for (int above = 1; above < row; ++above) {
        EXPECT_EQ(bench.surface.State({Ctl::txtL, above}).fore, Black) << what;
    }
    EXPECT_TRUE(bench.folder.FileNames().empty()) << what;
}

std::vector<std::string> Boxes(const Bench& bench, Ctl box, int rows) {
    std::vector<std::string> texts;
    for (int row = 1; row <= rows; ++row) {
        texts.push_back(bench.surface.Text({box, row}));
    }
    return texts;
}

TEST(StandardLengthLimits, BeyondTheLimitOrNoNumberTheRowIsDroppedInSilence) {
    std::vector<std::string> dropped = kBeyondLengthLimit;
    dropped.insert(dropped.end(), kNoNumbers.begin(), kNoNumbers.end());
    for (const char* small : {"0.001", "0.004", "-0.01", "-1e999", "0x10", "1e-999", "0"}) {
        dropped.emplace_back(small);
    }
    for (const std::string& text : dropped) {
        Bench bench;
        bench.Type({{text, "10"}, {"6", "5"}}, {{"1", "2"}});
        TimedPress(bench, "standard length " + text);
        ExpectSolved(bench, text);
        EXPECT_EQ(Boxes(bench, Ctl::txtSL, 2), (std::vector<std::string>{"6", ""})) << text;
        EXPECT_EQ(Boxes(bench, Ctl::txtSP, 2), (std::vector<std::string>{"5", ""})) << text;
    }
}

TEST(StandardLengthLimits, AtTheLimitAndJustAboveZeroTheRowStays) {
    // 0.005 lies a little above the half as a double, so it rounds up to 0.01.
    const std::vector<std::pair<std::string, std::string>> kept = {{"99999.9", "99999.9"},
                                                                   {"99999.899", "99999.9"},
                                                                   {"0.005", "0.01"},
                                                                   {"0.01", "0.01"},
                                                                   {"1.2.3.4", "1.2"},
                                                                   {"12abcde", "12"},
                                                                   {"1,5,0,0", "1"},
                                                                   {"+5", "5"},
                                                                   {"5e", "5"},
                                                                   {"  7  ", "7"}};
    for (const auto& [text, shown] : kept) {
        Bench bench;
        bench.Type({{text, "10"}, {"0.01", "5"}}, {{"0.01", "2"}});
        TimedPress(bench, "standard length " + text);
        ExpectSolved(bench, text);
        EXPECT_EQ(Boxes(bench, Ctl::txtSL, 2), (std::vector<std::string>{shown, "0.01"})) << text;
    }
}

TEST(PriceLimits, APriceBeyondTheLimitIsEmptiedAndMethodAFallsToB) {
    std::vector<std::string> emptied = kNoNumbers;
    for (const char* text : {"99999.91", "100000", "1e999", "-1e999", "-0.01", "0.004"}) {
        emptied.emplace_back(text);
    }
    for (const std::string& text : emptied) {
        Bench bench;
        bench.Type({{"12", text}}, {{"5", "3"}});
        TimedPress(bench, "price " + text);
        ExpectSolved(bench, text);
        EXPECT_EQ(bench.surface.Text({Ctl::txtSP, 1}), "") << text;
        EXPECT_TRUE(bench.surface.Value({Ctl::Option2})) << text;
    }
    Bench atLimit;
    atLimit.Type({{"12", "99999.9"}}, {{"5", "3"}});
    TimedPress(atLimit, "price 99999.9");
    ExpectSolved(atLimit, "price 99999.9");
    EXPECT_EQ(atLimit.surface.Text({Ctl::txtSP, 1}), "99999.9");
    EXPECT_TRUE(atLimit.surface.Value({Ctl::Option1}));
    EXPECT_NE(atLimit.Read("last.sol").find("(99999.90)("), std::string::npos);
}

TEST(CuttingLengthLimits, BeyondTheLimitNegativeOrWithoutANumberTheRowIsRefused) {
    std::vector<std::string> refused = kBeyondLengthLimit;
    refused.insert(refused.end(), kNoNumbers.begin(), kNoNumbers.end());
    for (const char* text : {"-1e999", "-0.01", "0.001", "0.004", "0x10", "1e-999"}) {
        refused.emplace_back(text);
    }
    for (const std::string& text : refused) {
        Bench bench;
        bench.Type({{"99999.9", "1"}}, {{"1", "1"}, {text, "3"}, {"2", "1"}});
        TimedPress(bench, "cutting length " + text);
        ExpectRefusedAt(bench, 2, "cutting length " + text);
        // The row below the bad one is not read: its boxes keep their text.
        EXPECT_EQ(bench.surface.Text({Ctl::txtL, 3}), "2") << text;
    }
}

TEST(CuttingLengthLimits, AtTheLimitTheRowIsCutAndPrintedInItsSevenColumns) {
    Bench bench;
    bench.m.ShowWasteSummary = kTrue;
    bench.Type({{"99999.9", "99999.9"}}, {{"99999.9", "3"}, {"0.005", "2"}});
    TimedPress(bench, "cutting length 99999.9");
    ExpectSolved(bench, "cutting length 99999.9");
    EXPECT_EQ(Boxes(bench, Ctl::txtL, 2), (std::vector<std::string>{"99999.9", "0.01"}));
    const std::string report = bench.Read("last.sol");
    EXPECT_NE(report.find("99999.9        3       1 x99999.9"), std::string::npos) << report;
    EXPECT_NE(report.find("99999.9        1       2 x    .01"), std::string::npos) << report;
}

TEST(CuttingLengthLimits, ALengthAboveEveryBarIsTooLong) {
    Bench bench;
    bench.Type({{"99999.8", ""}}, {{"99999.9", "1"}});
    TimedPress(bench, "cutting length above the bar");
    EXPECT_EQ(bench.Status(), kTooLong);
    EXPECT_EQ(bench.surface.State({Ctl::txtL, 1}).fore, Red);
    EXPECT_EQ(bench.surface.State({Ctl::txtN, 1}).fore, Black);
    EXPECT_TRUE(bench.folder.FileNames().empty());
}

TEST(CuttingRowLimits, BothBoxesWithoutANumberEmptyTheRowInSilence) {
    for (const std::string& text : kNoNumbers) {
        Bench bench;
        bench.Type({{"12", "1"}}, {{text, text}, {"5", "2"}});
        TimedPress(bench, "both boxes " + text);
        ExpectSolved(bench, text);
        EXPECT_EQ(Boxes(bench, Ctl::txtL, 2), (std::vector<std::string>{"", "5"})) << text;
        EXPECT_EQ(Boxes(bench, Ctl::txtN, 2), (std::vector<std::string>{"", "2"})) << text;
    }
    // A length that rounds to 0 without a quantity is no row either.
    Bench tiny;
    tiny.Type({{"12", "1"}}, {{"0.001", ""}, {"5", "2"}});
    TimedPress(tiny, "0.001 without quantity");
    ExpectSolved(tiny, "0.001 without quantity");
}

TEST(QuantityLimits, UpTo99999IsTakenRoundedDown) {
    for (const auto& [text, shown] :
         std::vector<std::pair<std::string, std::string>>{{"99999", "99999"},
                                                          {"99999.9", "99999"},
                                                          {"99999.999", "99999"},
                                                          {"1.9", "1"},
                                                          {"3e2", "300"},
                                                          {"12abcde", "12"}}) {
        Bench bench;
        bench.Type({{"99999.9", "1"}}, {{"0.01", text}});
        TimedPress(bench, "quantity " + text);
        ExpectSolved(bench, text);
        EXPECT_EQ(bench.surface.Text({Ctl::txtN, 1}), shown) << text;
    }
}

TEST(QuantityLimits, BeyondTheLimitBelowOneOrWithoutANumberTheRowIsRefused) {
    std::vector<std::string> refused = kNoNumbers;
    for (const char* text : {"100000", "99999999", "1e308", "1e999", "-1e999", "2147483648",
                             "-2147483649", "0.999", "0", "-0.5", "0x10"}) {
        refused.emplace_back(text);
    }
    for (const std::string& text : refused) {
        Bench bench;
        bench.Type({{"12", "1"}}, {{"5", "1"}, {"4", text}});
        TimedPress(bench, "quantity " + text);
        ExpectRefusedAt(bench, 2, "quantity " + text);
    }
}

// A press in a child process, so that a press that does not end, or that crashes, fails its own
// case with a figure instead of ending the test program. The child's files stay in the bench's
// folder for the parent to read.
struct GuardedPress {
    bool stopped = false;  // still running at kLargeProblemSeconds
    int signal = 0;        // the signal that ended it, if one did
    bool expectedEnding = false;
    double seconds = 0;
};

GuardedPress PressInChild(Bench& bench, const std::vector<std::string>& endings) {
    const auto started = std::chrono::steady_clock::now();
    const auto elapsed = [&started] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    };
    const pid_t child = fork();
    if (child == 0) {
        cmdFind_Click(bench.m, bench.platform);
        const bool expected =
            std::find(endings.begin(), endings.end(), bench.Status()) != endings.end();
        _exit(expected ? 0 : 1);
    }
    GuardedPress press;
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (elapsed() > kLargeProblemSeconds) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            press.stopped = true;
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    press.seconds = elapsed();
    if (!press.stopped) {
        press.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
        press.expectedEnding = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    return press;
}

void ExpectQuickPress(Bench& bench, const std::string& what,
                      const std::vector<std::string>& endings = {" Done !."}) {
    const GuardedPress press = PressInChild(bench, endings);
    std::cout << what << ": " << press.seconds << " s\n";
    if (press.stopped) {
        ADD_FAILURE() << what << ": did not end within " << kLargeProblemSeconds << " s";
    } else if (press.signal != 0) {
        ADD_FAILURE() << what << ": ended by signal " << press.signal;
    } else {
        EXPECT_TRUE(press.expectedEnding) << what << ": the press ended with another status";
    }
}

Rows ManyLengths(int count, const std::function<std::string(int)>& length,
                 const std::string& quantity) {
    Rows cuts;
    for (int row = 1; row <= count; ++row) {
        cuts.emplace_back(length(row), quantity);
    }
    return cuts;
}

// Problems at the edge of what the form holds, each given kLargeProblemSeconds.
TEST(LargeProblems, PiecesOfTheSmallestLengthOnTheLongestBar) {
    Bench bench;
    bench.m.ShowWasteSummary = kTrue;
    bench.Type({{"99999.9", "99999.9"}}, {{"0.01", "99999"}});
    ExpectQuickPress(bench, "99999.9 with 0.01 x 99999");
    const std::string report = bench.Read("last.sol");
    EXPECT_TRUE(testing::ParseReport(report).faults.empty());
    EXPECT_NE(report.find("99999.9        1   99999 x    .01"), std::string::npos) << report;
}

TEST(LargeProblems, FortyTinyLengthsOf99999PiecesOnTheLongestBar) {
    Bench bench;
    bench.Type(
        {{"99999.9", ""}},
        ManyLengths(
            MaxCutLengths,
            [](int row) { return "0." + std::string(row < 10 ? "0" : "") + std::to_string(row); },
            "99999"));
    ExpectQuickPress(bench, "40 lengths 0.01 to 0.40 x 99999 on 99999.9");
}

TEST(LargeProblems, SixBarsNearTheLimitWithTheAdvancedSearch) {
    Rows stock;
    for (int row = 0; row < MaxStdLengths; ++row) {
        stock.emplace_back(std::to_string(99999 - 7 * row) + ".9", std::to_string(row + 1));
    }
    Bench bench;
    bench.m.ShowWasteSummary = kTrue;
    bench.Type(stock,
               ManyLengths(
                   MaxCutLengths, [](int row) { return std::to_string(1000 + 997 * row) + ".37"; },
                   "99999"));
    bench.surface.SetValue({Ctl::Check1}, true);
    ExpectQuickPress(bench, "6 bars near 99999.9, 40 lengths x 99999, Advanced",
                     {" Found a Better Solution !.", " Sorry,  No Better Solution."});
}

TEST(LargeProblems, OnePiecePerBarOn99999BarsWhoseTotalsOverflowTheirColumns) {
    Bench bench;
    bench.m.ShowWasteSummary = kTrue;
    bench.Type({{"99999.9", "99999.9"}}, {{"60000", "99999"}});
    ExpectQuickPress(bench, "99999 bars of one piece");
    EXPECT_NE(bench.Read("last.sol").find("99999.9    99999       1 x  60000"), std::string::npos);
}

// A shop list in millimetres: forty lengths 11 apart on bars of 6000, fifty of each. Late in the
// pass what is left fills no bar exactly, and the least waste must be proved.
TEST(LargeProblems, FortyLengthsWithoutAnExactFillOnAShopBar) {
    Bench bench;
    bench.Type({{"6000", ""}},
               ManyLengths(
                   MaxCutLengths, [](int row) { return std::to_string(289 + 11 * row); }, "50"));
    ExpectQuickPress(bench, "6000 with 300, 311, ... 729 mm x 50");
}

// Lengths of even hundredths on a bar of odd hundredths: no bar is ever filled exactly, and the
// least waste of every step must be proved.
TEST(LargeProblems, EvenLengthsOnAnOddLongBar) {
    Bench bench;
    bench.Type({{"99999.89", ""}}, ManyLengths(
                                       20,
                                       [](int row) {
                                           return std::to_string(1950 + 50 * row) + "." +
                                                  std::to_string(8 + 2 * row);
                                       },
                                       "99999"));
    ExpectQuickPress(bench, "99999.89 with 20 lengths 2000.10 to 2950.48 x 99999");
}

}  // namespace
}  // namespace brennik
