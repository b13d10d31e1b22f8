// The Advanced search: one silent pass for each rearrangement of the standard rows, each built
// on the arrangement the attempt before it left, keeping the arrangement whose total beats the
// best so far: the total cost where every length has a price, else the material left over.
#pragma once

#include "state/module1.h"
#include "surface/surface.h"

namespace brennik {

struct PassOutcome;

// A whole pass over the master cutting list in the present arrangement, without report: the
// screen shows the arrangement, the totals start again, and the cutting loop's outcome for
// this arrangement, worked out apart from the block (PassesAhead), takes its place in it.
void RunCuttingPass(Module1& m, Surface& surface, const PassOutcome& loop);

// Keeps the present arrangement as the best one.
void SaveBestSequence(Module1& m);

// Tries every attempt and leaves BetterFound, BestStdLength and BestStdPrice, with the rows on
// the form and in the arrays in the last arrangement tried. refreshResults shows the figures
// of each improvement on the panel.
void AdvancedSearch(Module1& m, Surface& surface,
                    void (*refreshResults)(const Module1& m, Surface& surface));

}  // namespace brennik
