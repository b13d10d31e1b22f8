// The hand-over between the Advanced search and the pass that writes its best solution: the
// arrangement goes to the form (the only road into a pass), and afterwards the rows go back
// longest first with the bars of the solution beside them.
#pragma once

#include "state/module1.h"
#include "surface/surface.h"

namespace brennik {

// The standard rows and their bars as the arrays hold them, written to the form.
void ShowEntriesAndBars(const Module1& m, Surface& surface);

// The standard rows longest first, with their prices and bars, in the arrays and on the form.
void ResortStdLengths(Module1& m, Surface& surface);

}  // namespace brennik
