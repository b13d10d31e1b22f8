#include "run/find_press.h"

#include <gtest/gtest.h>

#include <set>

#include "press_fixture.h"
#include "problem_families.h"

namespace brennik {
namespace {

using testing::Bench;
using testing::Rows;
using Texts = std::vector<std::string>;

// What the search showed: the attempt of each improvement and the status of the last, and each
// arrangement tried in the standard boxes, longest first as "6 5 4".
struct Search {
    std::vector<std::size_t> attempts;
    std::string lastStatus;
    Texts tried;
};

// Presses Find Solution with Advanced; records the events from the search's status to its blank.
Search PressAdvanced(Bench& bench, const Rows& stock, const Rows& cuts, bool methodB) {
    bench.Press(stock, cuts, {methodB, true});
    Search search;
    Texts shown(MaxStdLengths);
    bool inSearch = false;
    for (const SurfaceEvent& event : bench.surface.Events()) {
        const bool text = event.op == SurfaceOp::SetText;
        if (text && event.control.name == Ctl::txtLong) {
            if (inSearch && event.text == " ") {
                break;
            }
            if (inSearch) {
                search.attempts.push_back(search.tried.size());
                search.lastStatus = event.text;
            }
            inSearch = inSearch || event.text == " Looking for a Better Solution.";
        } else if (inSearch && text && event.control.name == Ctl::txtSL) {
            shown[event.control.row - 1] = event.text;
            if (event.control.row == MaxStdLengths) {
                std::string& arrangement = search.tried.emplace_back();
                for (const std::string& length : shown) {
                    arrangement += (arrangement.empty() || length.empty() ? "" : " ") + length;
                }
            }
        }
    }
    return search;
}

// The manual's worked examples in Method B with Advanced; the manual holds their final reports.
TEST(AdvancedPress, WorkedExamplesImproveAtTheStatedAttempts) {
    const struct {
        int example;
        float basic;  // the figure of the basic solution that the search must beat
        std::vector<std::size_t> attempts;
        std::string last;  // the status of the last improvement
    } cases[] = {
        {2, 3391, {31, 34}, " Success   ! !   ==>>   169  Saved."},
        {0, 6412.9f, {25, 34, 44, 67}, " Success   ! ! ! !   ==>>   284.1  Saved."},
        {4, 325, {}, ""},  // improves; its attempts are not checked
    };
    for (const auto& c : cases) {
        SCOPED_TRACE("example " + std::to_string(c.example));
        const bench::ProblemText problem = bench::WorkedExamples()[c.example];
        Bench bench;
        const Search found = PressAdvanced(bench, problem.stock, problem.cuts, true);
        EXPECT_EQ(bench.m.BasicFigure, c.basic);
        ASSERT_FALSE(found.attempts.empty());
        if (!c.attempts.empty()) {
            EXPECT_EQ(found.attempts, c.attempts);
            EXPECT_EQ(found.lastStatus, c.last);
        }
        EXPECT_EQ(bench.Status(), " Found a Better Solution !.");
        EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Blue);
        EXPECT_EQ(bench.surface.Text({Ctl::txtSL, 1}), problem.stock[0].first)
            << "the boxes show the lengths in their order again";
        EXPECT_FALSE(bench.m.Advanced || bench.m.BetterFound);
        EXPECT_EQ(bench.surface.Beeps(), std::ssize(found.attempts)) << "one for each success";
    }
}

TEST(AdvancedPress, StatusWhenTheSearchFindsNothingOrIsNotStarted) {
    const bench::ProblemText feet = bench::WorkedExamples()[2];
    const struct {
        Rows stock, cuts;
        std::string status;
    } cases[] = {
        // Method A finds no improvement on the example in feet.
        {feet.stock, feet.cuts, " Sorry,  No Better Solution."},
        // One standard length, or a basic solution without waste: nothing to search.
        {{{"12", "12"}}, {{"7.5", "20"}, {"4.5", "21"}}, " No Better Solution."},
        {{{"6", "1"}, {"4", "1"}}, {{"2", "6"}}, " No Better Solution."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.stock[0].first);
        Bench bench;
        EXPECT_TRUE(PressAdvanced(bench, c.stock, c.cuts, false).attempts.empty());
        EXPECT_EQ(bench.Status(), c.status);
    }
}

// Each attempt rearranges what the last one left: past three lengths some come twice, some never.
TEST(AdvancedPress, AttemptsBuildOnTheArrangementTheLastOneLeft) {
    const Rows six = {{"6", ""}, {"5", ""}, {"4", ""}, {"3", ""}, {"2", ""}, {"1.5", ""}};
    Bench three;
    EXPECT_EQ(PressAdvanced(three, Rows(six.begin(), six.begin() + 3), {{"1.4", "1"}}, true).tried,
              (Texts{"6 5 4", "6 4 5", "4 6 5", "6 5 4", "4 6 5", "5 6 4"}));
    EXPECT_EQ(three.Status(), " Sorry,  No Better Solution.");
    Bench all;
    const Texts tried = PressAdvanced(all, six, {{"1.4", "1"}}, true).tried;
    EXPECT_EQ(all.Status(), " Sorry,  No Better Solution.");
    ASSERT_EQ(tried.size(), 720u);
    EXPECT_EQ(std::set(tried.begin(), tried.end()).size(), 425u);
}

}  // namespace
}  // namespace brennik
