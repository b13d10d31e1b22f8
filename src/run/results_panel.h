// The results panel: the figures of the pass so far in the read-out boxes of the active Method,
// the bars of the row just cut, and the progress line of the Method. Every write is repainted
// at once, since a press does not return to the event loop while it runs.
#pragma once

#include "surface/surface.h"
#include "state/module1.h"

namespace brennik {

void RefreshResults(const Module1& m, Surface& surface);

}  // namespace brennik
