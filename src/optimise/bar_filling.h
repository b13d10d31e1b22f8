// The pricing problem of the column generation: the most valuable way to fill one bar, with at
// most a given number of pieces of each length (a bounded knapsack in whole hundredths). The
// search is exact: it gives way only to the deadline or to its budget of nodes, and then says
// so, with a value that no filling can exceed.
#pragma once

#include <cstdint>
#include <vector>

#include "optimise/deadline.h"

namespace brennik {

struct BarItem {
    int64_t length = 0;  // hundredths
    int64_t most = 0;    // pieces allowed in one bar
    double value = 0;    // of one piece, above 0
};

struct BarFilling {
    std::vector<int64_t> counts;  // pieces of each item in the best filling found
    double value = 0;             // the value of that filling
    // No filling is worth more than this. It is max(value, threshold) when the search ended.
    double upperBound = 0;
    bool complete = false;  // the search ended, neither budget nor deadline cut it short
    // Fillings above the threshold that the best one replaced, the last found first.
    std::vector<std::vector<int64_t>> runnersUp;
};

// The best filling of a bar of `capacity` hundredths worth more than `threshold`, if any. Parts
// of the search that cannot beat the threshold are not searched, so a filling worth less may
// be returned.
BarFilling FillBar(const std::vector<BarItem>& items, int64_t capacity, double threshold,
                   const Deadline& deadline, int64_t nodeBudget = 20'000'000);

// The two routes FillBar takes: a depth-first branch and bound over the items in order of value
// per length, and a table over every length the bar can be filled to, in steps of the common
// divisor of the lengths, whose work is known beforehand. FillBar takes the table when it is
// small, else the search, and the table after all when the search has not ended soon and the
// table is not too large.
BarFilling FillBarBySearch(const std::vector<BarItem>& items, int64_t capacity, double threshold,
                           const Deadline& deadline, int64_t nodeBudget);
BarFilling FillBarByTable(const std::vector<BarItem>& items, int64_t capacity, double threshold);

}  // namespace brennik
