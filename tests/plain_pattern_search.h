// The plain complete enumeration of one bar's patterns, in the engine's form: one counting loop
// per cutting length, most pieces first, a candidate kept only when it wastes strictly less. The
// engine's search must agree with it call by call, and whole presses can run with it instead.
#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <vector>

#include "engine/find_best_pattern.h"
#include "engine/passes_ahead.h"
#include "state/module1.h"

namespace brennik::testing {

// Thrown when a walk has run past its deadline: some problems take the plain walk hours.
struct EnumerationTimeout {};

// When a plain walk must give up; far in the future unless set.
inline std::chrono::steady_clock::time_point& PlainDeadline() {
    static std::chrono::steady_clock::time_point deadline =
        std::chrono::steady_clock::time_point::max();
    return deadline;
}

// FindBestPattern by the walk over every combination, first length most significant, counting
// down. It skips what cannot change the answer: all below a prefix that overfills the bar, and
// all after a pattern without waste.
inline void PlainFindBestPattern(Module1& m, float stdLength, float price,
                                 const CutRows<float>& cutLengths, const CutRows<int32_t>& cutQtys,
                                 uint8_t row) {
    const auto scale = [](float x) { return static_cast<float>(std::round(x * 100.0)); };
    const float bar = scale(stdLength);
    const int n = m.CutCount;
    std::vector<float> lengths(n + 1);
    std::vector<int64_t> most(n + 1), least(n + 1, 0), counts(n + 1), best;
    for (int i = 1; i <= n; ++i) {
        lengths[i] = scale(cutLengths(i));
        most[i] = lengths[i] == 0 ? 0 : static_cast<int64_t>(std::floor(bar / lengths[i]));
        most[i] = std::min<int64_t>(most[i], cutQtys(i));
    }
    // The longest length with pieces left is always in the pattern.
    for (int i = 1; i <= n; ++i) {
        if (cutQtys(i) > 0) {
            least[i] = 1;
            break;
        }
    }
    float bestWaste = bar;
    uint64_t visited = 0;
    // Walks the lengths from i on with `waste` left of the bar; true once nothing is wasted.
    std::function<bool(int, double)> walk = [&](int i, double waste) {
        if ((++visited & 0xFFFFF) == 0 && std::chrono::steady_clock::now() > PlainDeadline()) {
            throw EnumerationTimeout{};
        }
        if (i > n) {
            if (static_cast<float>(waste) < bestWaste) {
                bestWaste = static_cast<float>(waste);
                best = counts;
            }
            return bestWaste == 0;
        }
        for (counts[i] = most[i]; counts[i] >= least[i]; --counts[i]) {
            const double left =
                waste - static_cast<double>(static_cast<float>(counts[i])) * lengths[i];
            if (left >= 0 && walk(i + 1, left)) {
                return true;
            }
        }
        return false;
    };
    walk(1, bar);

    m.EngineStd = row;
    int64_t bars = best.empty() ? 0 : std::numeric_limits<int64_t>::max();
    for (int i = 1; i <= n; ++i) {
        m.PatternPieces(row, i) = best.empty() ? 0 : static_cast<int32_t>(best[i]);
        if (m.PatternPieces(row, i) > 0) {
            bars = std::min<int64_t>(bars, cutQtys(i) / best[i]);
        }
    }
    m.PatternBars(row) = static_cast<int32_t>(bars);
    m.RankMat(row, 1) = best.empty() ? NoPatternWaste : bestWaste / 100.0f;
    m.RankMat(row, 2) = row;
    if (m.MethodA) {
        const float used = bar - bestWaste;
        const bool priced = used > 0 && scale(price) > 0;
        m.RankMon(row, 1) = priced ? scale(price) / used : NoPatternRate;
        m.RankMon(row, 2) = row;
        if (!priced) {
            m.PatternBars(row) = 0;
        }
    }
}

// Runs the plain enumeration in the engine's place while it lives, every pass alone and in turn.
class PlainSearchInUse {
public:
    PlainSearchInUse() {
        UsePatternSearch(&PlainFindBestPattern);
        UsePlainPasses(true);
    }
    ~PlainSearchInUse() {
        UsePatternSearch(nullptr);
        UsePlainPasses(false);
    }
    PlainSearchInUse(const PlainSearchInUse&) = delete;
    PlainSearchInUse& operator=(const PlainSearchInUse&) = delete;
};

}  // namespace brennik::testing
