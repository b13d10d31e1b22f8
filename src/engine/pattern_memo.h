// A memory of pattern searches. The best pattern of a bar depends only on the bar and on the
// lengths still wanted with the most pieces of each that one bar can take; a press meets the
// same of these again and again (every step, every attempt of the search), so each is walked
// once and then recalled.
#pragma once

#include <array>
#include <cstdint>
#include <unordered_map>

#include "state/module1.h"

namespace brennik {

class PatternMemo {
public:
    // The question: the bar and, in the order of the walk, each length with its most pieces.
    struct Key {
        int32_t bar = 0;
        int32_t size = 0;
        std::array<int32_t, 2 * MaxCutLengths> items;  // the first 2 x size are the key
        bool operator==(const Key& other) const;
    };
    // The answer: the least waste and the count of each length of the key, in its order.
    struct Answer {
        int64_t waste = 0;
        std::array<int32_t, MaxCutLengths> counts;
    };

    const Answer* Find(const Key& key) const;
    void Remember(const Key& key, const Answer& answer);
    void Clear() { answers_.clear(); }

private:
    struct KeyHash {
        std::size_t operator()(const Key& key) const;
    };
    // Past this many answers the memory starts afresh, which bounds it to about 10 MB a thread.
    // A press of shop problems remembers a few thousand at most.
    static constexpr std::size_t Capacity = 20000;

    std::unordered_map<Key, Answer, KeyHash> answers_;
};

}  // namespace brennik
