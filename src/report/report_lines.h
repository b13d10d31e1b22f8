// The lines of the work file tiny1.sol: the six head lines, one cutting line per cutting step
// and the foot. Every line reserves a slot for each cutting length of the problem; the assembly
// later keeps only the slots that the solution uses.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/clock.h"
#include "state/module1.h"

namespace brennik {

// Prices, money columns and the total cost are printed only for Method A, or for Method B when
// every standard length has a price.
bool ShowMoney(const Module1& m);

// Appends the six head lines (stamped with date and time when the waste summary is shown), then
// sets TotalPieces and clears PassLines for the cutting lines to come.
void WriteReportHead(Module1& m, const Clock& clock, std::vector<std::string>& tiny1);

// Appends the line of the cutting step just applied, built in LineText, and records the step
// in PassLines. Keeps MaxItemsInLine and WasteBarsTotal up.
void WriteCuttingLine(Module1& m, std::vector<std::string>& tiny1);

// Appends the foot: separator, method and waste totals, total cost, its underline with the
// waste percentages, and the reference note when it is shown. `mark` follows the letters of the
// method ("BA+" for a plan made after the press), within the label's width.
void WriteReportFoot(const Module1& m, std::vector<std::string>& tiny1, std::string_view mark = "");

}  // namespace brennik
