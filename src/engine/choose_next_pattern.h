// The decision of a cutting step: the best pattern of every standard row is ranked, by material
// left over per bar in Method B and by price per length put to use in Method A, and the first
// row of the ranking gives the pattern, its bars and its waste. Equal figures keep row order.
#pragma once

#include "state/module1.h"

namespace brennik {

// Writes ChosenStd, ChosenWaste and ChosenBars; ChosenBars is 0 when no row has a pattern.
void ChooseNextPattern(Module1& m);

}  // namespace brennik
