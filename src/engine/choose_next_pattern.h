// The decision of a cutting step: the best pattern of every standard row is ranked, by material
// left over per bar in Method B and by price per length put to use in Method A, and the first
// row of the ranking gives the pattern, its bars and its waste. Equal figures keep row order.
#pragma once

#include <cstdint>

#include "state/module1.h"

namespace brennik {

// Writes ChosenStd, ChosenWaste and ChosenBars; ChosenBars is 0 when no row has a pattern.
void ChooseNextPattern(Module1& m);

// A set of standard rows: bit r - 1 stands for row r.
using RowSet = uint8_t;
inline bool Holds(RowSet rows, int row) {
    return (rows & 1u << (row - 1)) != 0;
}
inline RowSet With(RowSet rows, int row) {
    return static_cast<RowSet>(rows | 1u << (row - 1));
}

// The parts of ChooseNextPattern, for the passes of a search that share their steps.
// SearchEveryRow leaves each standard row's best pattern and figures in its own row of
// PatternPieces, PatternBars, RankMat and RankMon, unranked: ClearRows, then SearchRow for each
// row. RankEveryRow then sorts the ranking tables and chooses.
void SearchEveryRow(Module1& m);
void ClearRows(Module1& m);
void SearchRow(Module1& m, int row);
void RankEveryRow(Module1& m);

// Instead of ranking, for rows `among` that have been searched:
// RowsRankedFirst gives those whose figures rank first, equally (0 when none has a pattern):
// the step chooses the one of them that stands first in the sequence, and ChooseRow sets the
// chosen pattern to that row's. RankingFigure is a searched row's figure in the ranking of the
// Method; RanksBehindOneOf tells whether a row whose figure is known to be no lower than `bound`
// ranks behind one of the rows `among`, whatever its pattern turns out to be.
RowSet RowsRankedFirst(const Module1& m, RowSet among);
void ChooseRow(Module1& m, int row);
float RankingFigure(const Module1& m, int row);
bool RanksBehindOneOf(const Module1& m, RowSet among, float bound);

}  // namespace brennik
