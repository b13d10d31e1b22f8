// The cutting step and its bookkeeping: the chosen pattern is cut on its bars, the quantities
// count down, and every money and material figure of the pass is carried forward, each rounded
// to two decimals as it is formed.
#pragma once

#include "state/module1.h"
#include "surface/surface.h"

namespace brennik {

// TotalPieces: the sum of the quantities of the problem, known before the first step.
void CountTotalPieces(Module1& m);

// Cuts the chosen pattern on ChosenBars bars and updates the totals of the active Method,
// the bars of the chosen row, PiecesLeft and PercentCut.
void ApplyChosenPattern(Module1& m);

// The bars of each standard row of the finished pass, from the bars used of its Method.
void KeepBarsBought(Module1& m);

// One cutting step: ChooseNextPattern, then CutChosenPattern.
bool CutNextStep(Module1& m);

// Cuts the chosen pattern on its bars. Returns false, cutting nothing, when no standard row had a
// pattern for what is left, so a pass can never loop without progress.
bool CutChosenPattern(Module1& m);

// The share of pieces cut, on the caption of cmdHelpTip and on ProgressBar1.
void ShowPercentCut(const Module1& m, Surface& surface);

}  // namespace brennik
