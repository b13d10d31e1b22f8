#include "engine/choose_next_pattern.h"

#include <utility>

#include "engine/find_best_pattern.h"
#include "state/number_texts.h"

namespace brennik {

namespace {

// Whether row `row`'s figure in `ranking` goes behind row `other`'s: a row without a pattern
// (no bars) goes behind every row that has one, even where a real figure reaches the markers,
// as it can with lengths and prices near the entry limit; otherwise the higher figure does.
bool RanksBehind(const Module1& m, float figure, int row, float otherFigure, int other) {
    const bool empty = m.PatternBars(row) == 0;
    const bool otherEmpty = m.PatternBars(other) == 0;
    if (empty != otherEmpty) {
        return empty;
    }
    return figure > otherFigure;
}

// Stable ascending bubble sort of a ranking table on its figure.
void SortRanking(Module1& m, Table<float, MaxStdLengths, 2>& ranking) {
    for (int p = MaxStdLengths - 1; p >= 1; --p) {
        for (int k = 1; k <= p; ++k) {
            if (RanksBehind(m, ranking(k, 1), static_cast<int>(ranking(k, 2)), ranking(k + 1, 1),
                            static_cast<int>(ranking(k + 1, 2)))) {
                std::swap(ranking(k, 1), ranking(k + 1, 1));
                std::swap(ranking(k, 2), ranking(k + 1, 2));
            }
        }
    }
}

const Table<float, MaxStdLengths, 2>& DecidingRanking(const Module1& m) {
    return m.MethodA ? m.RankMon : m.RankMat;
}

}  // namespace

void SearchEveryRow(Module1& m) {
    ClearRows(m);
    for (int r = 1; r <= MaxStdLengths; ++r) {
        SearchRow(m, r);
    }
}

void ClearRows(Module1& m) {
    for (int r = 1; r <= MaxStdLengths; ++r) {
        m.PatternBars(r) = 0;
        m.RankMat(r, 1) = 0;
        m.RankMat(r, 2) = static_cast<float>(r);
        for (int i = 1; i <= m.CutCount; ++i) {
            m.PatternPieces(r, i) = 0;
        }
    }
}

void SearchRow(Module1& m, int row) {
    CurrentPatternSearch()(m, m.SeqLength(row), m.SeqPrice(row), m.CutLength, m.CutQty,
                           static_cast<uint8_t>(row));
}

float RankingFigure(const Module1& m, int row) {
    return DecidingRanking(m)(row, 1);
}

RowSet RowsRankedFirst(const Module1& m, RowSet among) {
    RowSet first = 0;
    for (int r = 1; r <= MaxStdLengths; ++r) {
        if (!Holds(among, r)) {
            continue;
        }
        bool beaten = false;
        for (int other = 1; other <= MaxStdLengths && !beaten; ++other) {
            beaten = Holds(among, other) &&
                     RanksBehind(m, RankingFigure(m, r), r, RankingFigure(m, other), other);
        }
        if (!beaten && m.PatternBars(r) > 0) {
            first = With(first, r);
        }
    }
    return first;
}

bool RanksBehindOneOf(const Module1& m, RowSet among, float bound) {
    for (int r = 1; r <= MaxStdLengths; ++r) {
        if (Holds(among, r) && m.PatternBars(r) > 0 && RankingFigure(m, r) < bound) {
            return true;
        }
    }
    return false;
}

void ChooseRow(Module1& m, int row) {
    m.ChosenStd = static_cast<float>(row);
    for (int k = 1; k <= MaxStdLengths; ++k) {
        if (m.RankMat(k, 2) == m.ChosenStd) {
            m.ChosenWaste = Round2(m.RankMat(k, 1));
            break;
        }
    }
    m.ChosenBars = m.PatternBars(row);
}

void ChooseNextPattern(Module1& m) {
    SearchEveryRow(m);
    RankEveryRow(m);
}

void RankEveryRow(Module1& m) {
    SortRanking(m, m.RankMat);
    if (m.MethodA) {
        SortRanking(m, m.RankMon);
    }
    ChooseRow(m, static_cast<int>(DecidingRanking(m)(1, 2)));
}

}  // namespace brennik
