// The pattern search: for one standard length and what is left of the cutting list, the way of
// cutting one bar that holds the longest remaining length and leaves the least material over,
// how many bars can be cut that way, and the figures by which the rows are ranked.
#pragma once

#include <cstdint>

#include "state/module1.h"

namespace brennik {

// The whole number of hundredths nearest x x 100: lengths and prices with two decimals become
// exact integers, on which every waste is computed without rounding.
float Scale100(float x);

// Searches row `row` (1..MaxStdLengths) of the standard lengths, whose length and price are
// given, against cutLengths and cutQtys(1..CutCount). Writes PatternPieces(row, ..),
// PatternBars(row), RankMat(row, ..) and, in Method A, RankMon(row, ..); the caller has set the
// row's PatternPieces to 0. Of all patterns with the least waste it keeps the one with the most
// pieces of the first length, then of the second, and so on: the first that a walk from high
// counts to low, first length outermost, would meet.
void FindBestPattern(Module1& m, float stdLength, float price, const CutRows<float>& cutLengths,
                     const CutRows<int32_t>& cutQtys, uint8_t row);

// Empties this thread's memory of searched patterns, as a new problem makes it useless.
void ForgetPatterns();

// How many counts the walk of a search may try, on a bar short enough for the table of
// reachable sums, before it gives way to that table; a negative number restores the default.
// The tests set 0 to have every such search answered by the table.
void SetWalkBudget(int64_t tries);

// The pattern search that ChooseNextPattern runs: FindBestPattern. The benchmark and the tests
// put the plain complete enumeration in its place to set the two side by side; nullptr puts
// FindBestPattern back. The program itself never changes it.
using PatternSearch = void (*)(Module1& m, float stdLength, float price,
                               const CutRows<float>& cutLengths, const CutRows<int32_t>& cutQtys,
                               uint8_t row);
void UsePatternSearch(PatternSearch search);
PatternSearch CurrentPatternSearch();

}  // namespace brennik
