#include "run/find_press.h"

#include <gtest/gtest.h>

#include <set>

#include "press_fixture.h"

namespace brennik {
namespace {

using testing::Bench;
using Rows = std::vector<std::pair<std::string, std::string>>;

const Rows FeetStock = {{"20", "21"}, {"18", "17.5"}, {"15", "14.5"}, {"14", "13.5"}, {"12", "13"}};
const Rows FeetCuts = {{"7.5", "98"}, {"7.3", "65"}, {"4.4", "67"}, {"6.3", "87"}, {"5.5", "32"},
                       {"9.3", "51"}, {"7.1", "43"}, {"2.4", "47"}, {"1.9", "56"}, {"3.4", "18"}};
const Rows MetreStock = {
    {"6.1", "30.4"}, {"5.5", "27.5"}, {"4.6", "22.3"}, {"4.3", "20.1"}, {"3.7", "18.6"}};
const Rows MetreCuts = {{"1.7", "84"}, {"2.3", "121"}, {"1.5", "67"},  {"0.8", "90"},
                        {"1.1", "65"}, {"1.3", "119"}, {"3.1", "114"}, {"0.6", "191"}};
const Rows MillimetreStock = {{"6000", ""}, {"5400", ""}, {"4800", ""},
                              {"4000", ""}, {"3600", ""}, {"3000", ""}};
const Rows MillimetreCuts = {{"725", "44"}, {"730", "63"}, {"440", "51"}, {"630", "23"},
                             {"555", "71"}, {"935", "26"}, {"710", "19"}, {"345", "31"},
                             {"495", "51"}, {"545", "78"}};

// The events of the search itself: from the status that announces it to the blank that ends it.
std::vector<SurfaceEvent> SearchEvents(const MemorySurface& surface) {
    std::vector<SurfaceEvent> events;
    bool inSearch = false;
    for (const SurfaceEvent& event : surface.Events()) {
        const bool status = event.op == SurfaceOp::SetText && event.control.name == Ctl::txtLong;
        if (status && event.text == " Looking for a Better Solution.") {
            inSearch = true;
        } else if (status && event.text == " " && inSearch) {
            break;
        } else if (inSearch) {
            events.push_back(event);
        }
    }
    return events;
}

// Each improvement of the search: the attempt (one move of the progress bar each) and the
// status text it showed.
std::vector<std::pair<int, std::string>> Improvements(const MemorySurface& surface) {
    std::vector<std::pair<int, std::string>> found;
    int attempt = 0;
    for (const SurfaceEvent& event : SearchEvents(surface)) {
        attempt += event.op == SurfaceOp::SetProgress;
        if (event.op == SurfaceOp::SetText && event.control.name == Ctl::txtLong) {
            found.emplace_back(attempt, event.text);
        }
    }
    return found;
}

std::vector<std::string> Column(const MemorySurface& surface, Ctl box, int rows) {
    std::vector<std::string> texts;
    for (int r = 1; r <= rows; ++r) {
        texts.push_back(surface.Text({box, r}));
    }
    return texts;
}

void PressAdvanced(Bench& bench, const Rows& stock, const Rows& cuts, bool methodB) {
    bench.Type(stock, cuts);
    if (methodB) {
        bench.surface.SetValue({Ctl::Option2}, true);
    }
    bench.surface.SetValue({Ctl::Check1}, true);
    cmdFind_Click(bench.m, bench.platform);
}

TEST(AdvancedPress, FeetProblemImprovesAtAttempts31And34) {
    Bench bench;
    PressAdvanced(bench, FeetStock, FeetCuts, true);
    EXPECT_EQ(bench.m.BasicFigure, 3391.0f);
    EXPECT_EQ(Improvements(bench.surface), (std::vector<std::pair<int, std::string>>{
                                               {31, " Success   !   ==>>   161  Saved."},
                                               {34, " Success   ! !   ==>>   169  Saved."}}));
    EXPECT_EQ(bench.Status(), " Found a Better Solution !.");
    EXPECT_EQ(bench.surface.State({Ctl::txtLong}).fore, Blue);
    EXPECT_EQ(Column(bench.surface, Ctl::txtSL, 5),
              (std::vector<std::string>{"20", "18", "15", "14", "12"}));
    EXPECT_EQ(
        Column(bench.surface, Ctl::txtMat, 5),
        (std::vector<std::string>{"       9", "     105", "      77", "       2", "       4"}));
    EXPECT_EQ(bench.m.TotalCostB, 3222.0);
    EXPECT_EQ(bench.m.TotalMatWasteB, 12.6);
    EXPECT_EQ(bench.m.MatWastePctB, 0.38);
    EXPECT_EQ(bench.m.TotalMonWasteB, 12.86);
    EXPECT_EQ(bench.m.MonWastePctB, 0.4);
    EXPECT_EQ(bench.m.Advanced, kFalse);
    EXPECT_EQ(bench.m.BetterFound, kFalse);
    EXPECT_EQ(bench.surface.Beeps(), 2);
    EXPECT_NE(bench.Read("last.sol").find("Method Used    => BA "), std::string::npos);
}

TEST(AdvancedPress, MetreProblemImprovesFourTimes) {
    Bench bench;
    PressAdvanced(bench, MetreStock, MetreCuts, true);
    EXPECT_EQ(bench.m.BasicFigure, 6412.9f);
    const auto found = Improvements(bench.surface);
    ASSERT_EQ(found.size(), 4u);
    EXPECT_EQ(found[0].first, 25);
    EXPECT_EQ(found[1].first, 34);
    EXPECT_EQ(found[2].first, 44);
    EXPECT_EQ(found[3].first, 67);
    EXPECT_EQ(found[3].second, " Success   ! ! ! !   ==>>   284.1  Saved.");
    EXPECT_EQ(bench.m.BestStdLength(1), 4.3f);
    EXPECT_EQ(bench.m.BestStdLength(2), 4.6f);
    EXPECT_EQ(bench.m.BestStdLength(3), 3.7f);
    EXPECT_EQ(bench.m.BestStdLength(4), 5.5f);
    EXPECT_EQ(bench.m.BestStdLength(5), 6.1f);
    EXPECT_EQ(
        Column(bench.surface, Ctl::txtMat, 5),
        (std::vector<std::string>{"       1", "       2", "      80", "     186", "      28"}));
    EXPECT_EQ(bench.m.TotalCostB, 6128.8);
    EXPECT_EQ(bench.m.TotalMatWasteB, 0.7);
    EXPECT_EQ(bench.m.MatWastePctB, 0.05);
    EXPECT_EQ(bench.m.TotalMonWasteB, 3.5);
    EXPECT_EQ(bench.m.MonWastePctB, 0.06);
}

TEST(AdvancedPress, MillimetreProblemWithoutPricesBuildsAttemptsOnEachOther) {
    Bench bench;
    PressAdvanced(bench, MillimetreStock, MillimetreCuts, true);
    EXPECT_EQ(bench.m.BasicFigure, 325.0f);
    EXPECT_EQ(bench.m.TotalMatWasteB, 125.0);
    EXPECT_EQ(bench.m.MatWastePctB, 0.05);
    const std::vector<float> best = {3000, 3600, 6000, 4800, 5400, 4000};
    for (int r = 1; r <= 6; ++r) {
        EXPECT_EQ(bench.m.BestStdLength(r), best[r - 1]);
    }
    EXPECT_EQ(Column(bench.surface, Ctl::txtMat, 6),
              (std::vector<std::string>{"       3", "       1", "       ", "       ", "       2",
                                        "      80"}));
    EXPECT_EQ(bench.surface.Text({Ctl::Text6}), "");
}

TEST(AdvancedPress, MethodAFindsNoImprovementOnThePricedProblems) {
    for (const auto& [stock, cuts] :
         {std::pair{FeetStock, FeetCuts}, std::pair{MetreStock, MetreCuts}}) {
        Bench bench;
        PressAdvanced(bench, stock, cuts, false);
        EXPECT_TRUE(Improvements(bench.surface).empty());
        EXPECT_EQ(bench.Status(), " Sorry,  No Better Solution.");
        EXPECT_EQ(bench.m.BetterFound, kFalse);
        EXPECT_EQ(bench.m.Advanced, kFalse);
    }
}

TEST(AdvancedPress, SearchIsNotStartedForOneLengthOrNoWaste) {
    Bench one;
    PressAdvanced(one, {{"12", "12"}}, {{"7.5", "20"}, {"4.5", "21"}, {"5.1", "24"}, {"6.5", "25"}},
                  false);
    EXPECT_EQ(one.Status(), " No Better Solution.");
    EXPECT_EQ(one.surface.State({Ctl::txtLong}).back, Red);
    EXPECT_NE(one.Read("last.sol").find("Method Used    => AA "), std::string::npos);

    Bench exact;
    PressAdvanced(exact, {{"6", "1"}, {"4", "1"}}, {{"2", "6"}}, false);
    EXPECT_EQ(exact.Status(), " No Better Solution.");
}

// The arrangement each attempt showed in the standard boxes, and the percentage captions.
struct Attempts {
    std::vector<std::vector<std::string>> arrangements;
    std::vector<std::string> captions;
};

Attempts AttemptsOf(const MemorySurface& surface) {
    Attempts attempts;
    std::vector<std::string> shown(MaxStdLengths);
    for (const SurfaceEvent& event : SearchEvents(surface)) {
        if (event.op == SurfaceOp::SetText && event.control.name == Ctl::txtSL) {
            shown[event.control.row - 1] = event.text;
            if (event.control.row == MaxStdLengths) {
                attempts.arrangements.push_back(shown);
            }
        }
        if (event.op == SurfaceOp::SetCaption && event.text != "Help Tip") {
            attempts.captions.push_back(event.text);
        }
    }
    return attempts;
}

TEST(AdvancedPress, AttemptsBuildOnTheArrangementTheLastOneLeft) {
    Bench three;
    PressAdvanced(three, {{"3", ""}, {"2", ""}, {"1.5", ""}}, {{"1.4", "1"}}, true);
    const Attempts tried = AttemptsOf(three.surface);
    using Row = std::vector<std::string>;
    EXPECT_EQ(tried.arrangements, (std::vector<Row>{{"3", "2", "1.5", "", "", ""},
                                                    {"3", "1.5", "2", "", "", ""},
                                                    {"1.5", "3", "2", "", "", ""},
                                                    {"3", "2", "1.5", "", "", ""},
                                                    {"1.5", "3", "2", "", "", ""},
                                                    {"2", "3", "1.5", "", "", ""}}));

    Bench five;
    PressAdvanced(five, {{"6", ""}, {"5", ""}, {"4", ""}, {"3", ""}, {"1.5", ""}}, {{"1.4", "1"}},
                  true);
    const Attempts fiveTried = AttemptsOf(five.surface);
    ASSERT_EQ(fiveTried.arrangements.size(), 120u);
    EXPECT_EQ(std::set(fiveTried.arrangements.begin(), fiveTried.arrangements.end()).size(), 72u);
    EXPECT_EQ(fiveTried.captions[60], " 50 %");  // after the 60th attempt; [0] is the clearing

    Bench six;
    PressAdvanced(six, {{"6", ""}, {"5", ""}, {"4", ""}, {"3", ""}, {"2", ""}, {"1.5", ""}},
                  {{"1.4", "1"}}, true);
    const Attempts sixTried = AttemptsOf(six.surface);
    ASSERT_EQ(sixTried.arrangements.size(), 720u);
    EXPECT_EQ(std::set(sixTried.arrangements.begin(), sixTried.arrangements.end()).size(), 425u);
    EXPECT_EQ(sixTried.captions[1], " 0 %");
    EXPECT_EQ(six.Status(), " Sorry,  No Better Solution.");
}

}  // namespace
}  // namespace brennik
