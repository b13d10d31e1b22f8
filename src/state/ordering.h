// Ordering and classification of the rows left by the intake: both lists longest first with the
// gaps at the end, the counts, the Method of the pass, and the reset of a pass's totals.
#pragma once

#include "surface/surface.h"
#include "state/module1.h"

namespace brennik {

// Stable bubble sort of the cutting rows, longest first, quantities moving along; then the
// ordered rows become the master list from which every pass of the search starts.
void SortCutLengths(Module1& m);

// Stable bubble sort of the standard rows, longest first; price and bars bought move along.
void SortStdLengths(Module1& m);

// Counts the rows and settles the Method: Method A only when Option1 is selected and every
// standard length has a price; otherwise Method B, and Option2 is selected on the form.
void ClassifyProblem(Module1& m, Surface& surface);

// Loads the engine's sequence from the standard rows and zeroes every total of a pass.
void ResetPassTotals(Module1& m);

}  // namespace brennik
