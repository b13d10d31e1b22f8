// The plain complete enumeration in the place of the engine's pattern search, for whole presses
// that set the two side by side: every call is answered by the walk over every combination,
// cut only where a prefix overfills the bar or a pattern without waste has been found.
#pragma once

#include <chrono>
#include <vector>

#include "engine/find_best_pattern.h"
#include "pattern_oracle.h"

namespace brennik::testing {

// When a plain walk must give up (EnumerationTimeout); far in the future unless set.
inline std::chrono::steady_clock::time_point& PlainDeadline() {
    static std::chrono::steady_clock::time_point deadline =
        std::chrono::steady_clock::time_point::max();
    return deadline;
}

inline void PlainFindBestPattern(Module1& m, float stdLength, float price,
                                 const CutRows<float>& cutLengths, const CutRows<int32_t>& cutQtys,
                                 uint8_t row) {
    m.EngineStd = row;
    std::vector<float> lengths;
    std::vector<int32_t> quantities;
    for (int i = 1; i <= m.CutCount; ++i) {
        lengths.push_back(cutLengths(i));
        quantities.push_back(cutQtys(i));
    }
    const OraclePattern pattern = OracleFindBestPattern(stdLength, price, lengths, quantities,
                                                        m.MethodA != 0, true, PlainDeadline());
    for (int i = 1; i <= m.CutCount; ++i) {
        m.PatternPieces(row, i) = pattern.pieces[static_cast<std::size_t>(i - 1)];
    }
    m.PatternBars(row) = pattern.bars;
    m.RankMat(row, 1) = pattern.rankMat;
    m.RankMat(row, 2) = row;
    if (m.MethodA) {
        m.RankMon(row, 1) = pattern.rankMon;
        m.RankMon(row, 2) = row;
    }
}

// Runs the plain enumeration in the engine's place for as long as it lives.
class PlainSearchInUse {
public:
    PlainSearchInUse() { UsePatternSearch(&PlainFindBestPattern); }
    ~PlainSearchInUse() { UsePatternSearch(nullptr); }
    PlainSearchInUse(const PlainSearchInUse&) = delete;
    PlainSearchInUse& operator=(const PlainSearchInUse&) = delete;
};

}  // namespace brennik::testing
