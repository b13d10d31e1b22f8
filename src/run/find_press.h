// A press of Find Solution: the basic pass, and with the Advanced option the search for a
// better arrangement of the standard lengths and the pass that writes the best solution found,
// or that repeats the basic one.
#pragma once

#include "run/platform.h"
#include "state/module1.h"

namespace brennik {

void cmdFind_Click(Module1& m, Platform& platform);

}  // namespace brennik
