#include "engine/choose_next_pattern.h"

#include <utility>

#include "engine/find_best_pattern.h"
#include "state/number_texts.h"

namespace brennik {

namespace {

// Stable ascending bubble sort of a ranking table on its figure. A row without a pattern (no
// bars) goes behind every row that has one, even where a real figure reaches the markers, as
// it can with lengths and prices near the entry limit.
void SortRanking(Module1& m, Table<float, MaxStdLengths, 2>& ranking) {
    auto ranksAfter = [&](int k) {
        const bool kEmpty = m.PatternBars(static_cast<int>(ranking(k, 2))) == 0;
        const bool nextEmpty = m.PatternBars(static_cast<int>(ranking(k + 1, 2))) == 0;
        if (kEmpty != nextEmpty) {
            return kEmpty;
        }
        return ranking(k, 1) > ranking(k + 1, 1);
    };
    for (int p = MaxStdLengths - 1; p >= 1; --p) {
        for (int k = 1; k <= p; ++k) {
            if (ranksAfter(k)) {
                std::swap(ranking(k, 1), ranking(k + 1, 1));
                std::swap(ranking(k, 2), ranking(k + 1, 2));
            }
        }
    }
}

}  // namespace

void ChooseNextPattern(Module1& m) {
    for (int r = 1; r <= MaxStdLengths; ++r) {
        m.PatternBars(r) = 0;
        m.RankMat(r, 1) = 0;
        m.RankMat(r, 2) = static_cast<float>(r);
        for (int i = 1; i <= m.CutCount; ++i) {
            m.PatternPieces(r, i) = 0;
        }
    }
    const PatternSearch search = CurrentPatternSearch();
    for (int r = 1; r <= MaxStdLengths; ++r) {
        search(m, m.SeqLength(r), m.SeqPrice(r), m.CutLength, m.CutQty, static_cast<uint8_t>(r));
    }

    SortRanking(m, m.RankMat);
    if (m.MethodA) {
        SortRanking(m, m.RankMon);
    }

    m.ChosenWaste = m.RankMat(1, 1);
    m.ChosenStd = m.RankMat(1, 2);
    if (m.MethodA) {
        m.ChosenStd = m.RankMon(1, 2);
        for (int k = 1; k <= MaxStdLengths; ++k) {
            if (m.RankMat(k, 2) == m.ChosenStd) {
                m.ChosenWaste = m.RankMat(k, 1);
                break;
            }
        }
    }
    m.ChosenBars = m.PatternBars(static_cast<int>(m.ChosenStd));
    m.ChosenWaste = Round2(m.ChosenWaste);
}

}  // namespace brennik
