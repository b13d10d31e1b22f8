// Reshapes the work file tiny1.sol into the finished report last.sol: drops the slots no line
// uses, stamps and splits off the head and the foot, groups the cutting lines by standard length
// and joins the pieces. Each step reads and writes work files in the current folder and returns
// false, at once, when a file could not be read or written.
#pragma once

#include <string>
#include <vector>

#include "files/file_system.h"
#include "report/clock.h"
#include "state/module1.h"

namespace brennik {

// tiny1.sol -> tiny2.sol: every line keeps its first MaxItemsInLine slots and its waste columns;
// the reference line is copied whole.
bool SqueezeSlots(const Module1& m, FileSystem& files);

// tiny2.sol -> thead.sol, tiny3.sol (the cutting lines) and tfoot.sol. Without the waste summary
// the date and time are put at the right edge of the cutting details here.
bool SplitReport(const Module1& m, FileSystem& files, const Clock& clock);

// tiny3.sol -> tiny4.sol: orders the standard rows longest first (SortStdLengths) and writes, for
// each row with bars, the lines that row cut and its summary line, groups divided by a line of
// one space.
bool GroupByLength(Module1& m, FileSystem& files);

// thead.sol, tiny4.sol and tfoot.sol -> last.sol (or `target`), which is replaced in one step so
// that it is never half written; then the work files are removed.
bool JoinReport(FileSystem& files, const std::string& target = "last.sol");

// The whole road from the lines of tiny1.sol to the finished report `target`: writes tiny1.sol,
// then SqueezeSlots, SplitReport, GroupByLength and JoinReport.
bool AssembleReport(Module1& m, FileSystem& files, const Clock& clock,
                    const std::vector<std::string>& tiny1, const std::string& target = "last.sol");

// Removes the six work files and the aside copy of last.sol (or `target`), as far as it can.
void RemoveWorkFiles(FileSystem& files, const std::string& target = "last.sol");

}  // namespace brennik
