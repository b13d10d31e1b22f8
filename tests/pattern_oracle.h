// The plain complete enumeration of one bar's patterns, walked exactly as described for the
// pattern search: one counting loop per cutting length from its most pieces down to its
// least, every combination tested, a candidate kept only when it wastes strictly less. The
// fast search must agree with it on every call.
#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <vector>

#include "state/module1.h"

namespace brennik::testing {

struct OraclePattern {
    std::vector<int32_t> pieces;  // per cutting row 1..CutCount
    int32_t bars = 0;
    float rankMat = 0;
    float rankMon = 0;
};

inline float OracleScale(float x) {
    return static_cast<float>(std::round(x * 100.0));
}

// Thrown when a walk has run past its deadline: some problems take the plain walk hours.
struct EnumerationTimeout {};

// namedCuts: also skip, as the plain walk may, every combination below a prefix that already
// overfills the bar, and stop at the first pattern without waste; the result stays the same.
inline OraclePattern OracleFindBestPattern(
    float stdLength, float price, const std::vector<float>& cutLengths,
    const std::vector<int32_t>& cutQtys, bool methodA, bool namedCuts = false,
    std::chrono::steady_clock::time_point deadline = std::chrono::steady_clock::time_point::max()) {
    const std::size_t n = cutLengths.size();
    const float bar = OracleScale(stdLength);
    const float scaledPrice = OracleScale(price);
    std::vector<float> lengths(n);
    std::vector<int64_t> maxPieces(n), minPieces(n, 0);
    bool minimumSet = false;
    for (std::size_t i = 0; i < n; ++i) {
        lengths[i] = OracleScale(cutLengths[i]);
        maxPieces[i] = lengths[i] == 0 ? 0 : static_cast<int64_t>(std::floor(bar / lengths[i]));
        maxPieces[i] = std::min<int64_t>(maxPieces[i], cutQtys[i]);
        if (!minimumSet && cutQtys[i] > 0) {
            minPieces[i] = 1;
            minimumSet = true;
        }
    }

    OraclePattern result;
    result.pieces.assign(n, 0);
    float bestWaste = bar;
    std::vector<int64_t> counts(n);
    // An odometer over all combinations, first length most significant, counting down.
    bool empty = false;
    for (std::size_t i = 0; i < n; ++i) {
        counts[i] = maxPieces[i];
        empty = empty || maxPieces[i] < minPieces[i];
    }
    uint64_t candidates = 0;
    while (!empty) {
        if ((++candidates & 0xFFFFF) == 0 && std::chrono::steady_clock::now() > deadline) {
            throw EnumerationTimeout{};
        }
        double waste = bar;
        std::size_t overfilled = n;
        for (std::size_t i = 0; i < n; ++i) {
            waste -= static_cast<double>(static_cast<float>(counts[i])) * lengths[i];
            if (namedCuts && waste < 0 && overfilled == n) {
                overfilled = i;
            }
        }
        const auto rounded = static_cast<float>(waste);
        if (!(rounded < 0) && rounded < bestWaste) {
            bestWaste = rounded;
            for (std::size_t i = 0; i < n; ++i) {
                result.pieces[i] = static_cast<int32_t>(counts[i]);
            }
            if (namedCuts && bestWaste == 0) {
                break;
            }
        }
        for (std::size_t e = overfilled + 1; e < n; ++e) {
            counts[e] = minPieces[e];  // the rest of this prefix overfills the bar too
        }
        std::size_t d = n;
        while (d > 0 && counts[d - 1] == minPieces[d - 1]) {
            --d;
        }
        if (d == 0) {
            break;
        }
        --counts[d - 1];
        for (std::size_t e = d; e < n; ++e) {
            counts[e] = maxPieces[e];
        }
    }

    int64_t bars = NoBarLimit;
    bool inPattern = false;
    for (std::size_t i = 0; i < n; ++i) {
        if (result.pieces[i] > 0) {
            const int64_t limit = static_cast<int64_t>(
                std::floor(static_cast<double>(cutQtys[i]) / result.pieces[i]));
            bars = inPattern ? std::min(bars, limit) : limit;
            inPattern = true;
        }
    }
    result.bars = static_cast<int32_t>(bars);
    result.rankMat = bestWaste / 100.0f;
    if (bar == 0 || !inPattern) {
        result.bars = 0;
        result.rankMat = NoPatternWaste;
    }
    if (methodA) {
        const float used = bar - bestWaste;
        if (used > 0 && scaledPrice > 0) {
            result.rankMon = scaledPrice / used;
        } else {
            result.bars = 0;
            result.rankMon = NoPatternRate;
        }
    }
    return result;
}

}  // namespace brennik::testing
