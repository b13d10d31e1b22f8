// One pass of Find Solution: the problem read again from the entry boxes, checked, ordered and
// solved step by step with the panel, the status line and the progress display kept up to
// date, and the report written to last.sol.
#pragma once

#include "run/platform.h"
#include "state/module1.h"

namespace brennik {

// Afterwards EntryError or LengthError tell an intake that refused the problem, FileError a
// report that could not be written; with all three false, last.sol is new.
void RunPass(Module1& m, Platform& platform);

}  // namespace brennik
