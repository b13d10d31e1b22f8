#include "engine/pattern_memo.h"

#include <algorithm>

namespace brennik {

bool PatternMemo::Key::operator==(const Key& other) const {
    return bar == other.bar && size == other.size &&
           std::equal(items.begin(), items.begin() + 2 * size, other.items.begin());
}

std::size_t PatternMemo::KeyHash::operator()(const Key& key) const {
    uint64_t hash = 1469598103934665603ull ^ static_cast<uint32_t>(key.bar);
    for (int32_t k = 0; k < 2 * key.size; ++k) {
        hash = (hash ^ static_cast<uint32_t>(key.items[k])) * 1099511628211ull;
    }
    return static_cast<std::size_t>(hash ^ (hash >> 29));
}

const PatternMemo::Answer* PatternMemo::Find(const Key& key) const {
    const auto found = answers_.find(key);
    return found == answers_.end() ? nullptr : &found->second;
}

void PatternMemo::Remember(const Key& key, const Answer& answer) {
    if (answers_.size() >= Capacity) {
        answers_.clear();
    }
    answers_.emplace(key, answer);
}

}  // namespace brennik
