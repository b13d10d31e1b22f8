#include "engine/bit_rows.h"

#include <algorithm>

namespace brennik {

// The rows' words go through these loops many millions of times a search. On processors with
// 256-bit vectors, which the program finds out as it loads, the loops take four words at a time.
#if defined(__x86_64__) && defined(__GNUC__)
#define WIDE_VECTORS __attribute__((target_clones("avx2", "default")))
#else
#define WIDE_VECTORS
#endif

WIDE_VECTORS void OrShifted(uint64_t* __restrict out, const uint64_t* __restrict base,
                            const uint64_t* __restrict src, std::size_t n, unsigned part,
                            uint64_t carry) {
    if (part == 0) {
        for (std::size_t i = 0; i < n; ++i) {
            out[i] = base[i] | src[i];
        }
        return;
    }
    out[0] = base[0] | src[0] << part | carry >> (64 - part);
    for (std::size_t i = 1; i < n; ++i) {
        out[i] = base[i] | src[i] << part | src[i - 1] >> (64 - part);
    }
}

WIDE_VECTORS void OrShiftedInPlace(uint64_t* __restrict out, const uint64_t* __restrict src,
                                   std::size_t n, unsigned part, uint64_t carry) {
    if (part == 0) {
        for (std::size_t i = 0; i < n; ++i) {
            out[i] |= src[i];
        }
        return;
    }
    out[0] |= src[0] << part | carry >> (64 - part);
    for (std::size_t i = 1; i < n; ++i) {
        out[i] |= src[i] << part | src[i - 1] >> (64 - part);
    }
}

namespace {

// out = base | src shifted down by `part` bits, word by word, `carry` being the word above
// src[n - 1]. Nothing that is read overlaps `out`.
WIDE_VECTORS void OrShiftedDown(uint64_t* __restrict out, const uint64_t* __restrict base,
                                const uint64_t* __restrict src, std::size_t n, unsigned part,
                                uint64_t carry) {
    if (part == 0) {
        OrShifted(out, base, src, n, 0, 0);  // whole words alone: the same either way
        return;
    }
    for (std::size_t i = 0; i + 1 < n; ++i) {
        out[i] = base[i] | src[i] >> part | src[i + 1] << (64 - part);
    }
    out[n - 1] = base[n - 1] | src[n - 1] >> part | carry << (64 - part);
}

// The bits of a word below `bit` (0 to 64).
uint64_t BitsBelow(int64_t bit) {
    return bit >= 64 ? ~uint64_t{0} : (uint64_t{1} << bit) - 1;
}

// Word `high` shifted up by `part` bits, the bits shifted in taken from `low`, the word below.
uint64_t ShiftedUp(uint64_t high, uint64_t low, unsigned part) {
    return part == 0 ? high : high << part | low >> (64 - part);
}

// Word `low` shifted down by `part` bits, the bits shifted in taken from `high`, the word above.
uint64_t ShiftedDown(uint64_t low, uint64_t high, unsigned part) {
    return part == 0 ? low : low >> part | high << (64 - part);
}

// Puts `value` into the bits of `word` that `mask` selects.
void Merge(uint64_t& word, uint64_t value, uint64_t mask) {
    word = (word & ~mask) | (value & mask);
}

// A row of bits from word `first` of a row on, so that a block of a row can be worked on in a
// short buffer with every sum at the same bit of its word.
struct RowPart {
    uint64_t* words;
    std::size_t first;
    uint64_t& operator[](std::size_t w) const { return words[w - first]; }
};

// dst's bits `begin` to `end` - 1 become those of src.
template <typename Row>
void CopyBits(const Row& dst, const uint64_t* src, int64_t begin, int64_t end) {
    if (begin >= end) {
        return;
    }
    const auto low = static_cast<std::size_t>(begin / 64);
    const auto high = static_cast<std::size_t>((end - 1) / 64);
    const uint64_t lowMask = ~BitsBelow(begin % 64);
    const uint64_t highMask = BitsBelow((end - 1) % 64 + 1);
    if (low == high) {
        Merge(dst[low], src[low], lowMask & highMask);
        return;
    }
    Merge(dst[low], src[low], lowMask);
    for (std::size_t w = low + 1; w < high; ++w) {
        dst[w] = src[w];
    }
    Merge(dst[high], src[high], highMask);
}

// A shift up or down by a number of bits: whole words and the bits left over, so that a word
// of the shifted row joins two words of the row, `whole` and `whole` + 1 words away.
struct Shift {
    explicit Shift(int64_t bits)
        : whole(static_cast<std::size_t>(bits / 64)), part(static_cast<unsigned>(bits % 64)) {}
    std::size_t whole;
    unsigned part;
};

// Joins to's bits, for sums from `begin`, the start of a block, up to `most` pieces above it,
// with the suffix of the sum `most` pieces below, which lies in the block before; word by word
// from the bottom up, as the prefixes are final. The words below the block that this touches
// take the suffix of their own sums most pieces down, which lies in their own block and is
// already part of them.
class SuffixJoin {
public:
    SuffixJoin() = default;  // the first block: nothing to join
    SuffixJoin(uint64_t* to, const RowPart& suffix, int64_t begin, int64_t end, int64_t mostPieces)
        : to_(to), suffix_(suffix), shift_(mostPieces) {
        const int64_t limit = std::min(begin + mostPieces, end);
        next_ = static_cast<std::size_t>(begin / 64);
        high_ = static_cast<std::size_t>((limit - 1) / 64);
        highMask_ = BitsBelow((limit - 1) % 64 + 1);
        end_ = high_ + 1;
    }

    // Joins the words below `w` not joined yet.
    void Below(std::size_t w) {
        const std::size_t stop = std::min(w, end_);
        const std::size_t wholeWords = std::min(stop, high_);  // all of whose bits are joined
        if (wholeWords > next_) {
            OrShiftedInPlace(to_ + next_, &suffix_[next_ - shift_.whole], wholeWords - next_,
                             shift_.part, suffix_[next_ - shift_.whole - 1]);
            next_ = wholeWords;
        }
        if (stop == end_ && next_ < end_) {  // the top word: its bits below the limit alone
            to_[high_] |= ShiftedUp(suffix_[high_ - shift_.whole],
                                    suffix_[high_ - shift_.whole - 1], shift_.part) &
                          highMask_;
            next_ = end_;
        }
    }

private:
    uint64_t* to_ = nullptr;
    RowPart suffix_{nullptr, 0};
    Shift shift_{0};
    std::size_t next_ = 0;
    std::size_t high_ = 0;
    std::size_t end_ = 0;
    uint64_t highMask_ = 0;
};

// A sum's prefix in its block: to's bit s, for s from `begin` to `end` - 1, is set when from has
// s, s - length, ... down to the block's first. Words are worked out from the bottom up, at most
// a length's whole words at a time, so that every word read is final; a word is joined with its
// suffixes once no later word reads its prefix, while it is still in the cache.
void Prefixes(const uint64_t* from, uint64_t* to, int64_t begin, int64_t end, int64_t length,
              SuffixJoin& join) {
    const int64_t firstTaking = std::min(begin + length, end);
    CopyBits(to, from, begin, firstTaking);
    const auto last = static_cast<std::size_t>((end - 1) / 64);
    if (firstTaking < end) {
        const Shift shift(length);
        const auto first = static_cast<std::size_t>(firstTaking / 64);
        // The first word keeps its bits below firstTaking, which no prefix one length below
        // reaches.
        const uint64_t below = first > shift.whole ? to[first - shift.whole - 1] : 0;
        Merge(to[first], from[first] | ShiftedUp(to[first - shift.whole], below, shift.part),
              ~BitsBelow(firstTaking % 64));
        for (std::size_t w = first + 1; w <= last;) {
            join.Below(w - shift.whole - 1);
            const std::size_t n = std::min(shift.whole, last + 1 - w);
            OrShifted(to + w, from + w, to + w - shift.whole, n, shift.part,
                      to[w - shift.whole - 1]);
            w += n;
        }
    }
    join.Below(last + 1);
}

// A sum's suffix in its block, the block being whole: bit x of `suffix`, for x from `begin` to
// `end` - 1, is set when from has x, x + length, ... up to the block's last. Worked out from the
// top down, as the prefixes from the bottom up. `suffix` holds one word more than the block, so
// that the top words read above it.
void Suffixes(const uint64_t* from, const RowPart& suffix, int64_t begin, int64_t end,
              int64_t length) {
    const auto above = static_cast<std::size_t>((end - 1) / 64 + 1);
    suffix[above] = 0;
    const int64_t lastTaking = end - length;
    CopyBits(suffix, from, lastTaking, end);
    const Shift shift(length);
    const auto top = static_cast<std::size_t>((lastTaking - 1) / 64);
    const auto low = static_cast<std::size_t>(begin / 64);
    // The top word keeps its bits from lastTaking on, which no suffix one length above reaches.
    Merge(suffix[top],
          from[top] |
              ShiftedDown(suffix[top + shift.whole], suffix[top + shift.whole + 1], shift.part),
          BitsBelow((lastTaking - 1) % 64 + 1));
    for (std::size_t next = top; next > low;) {
        const std::size_t w = next - std::min(shift.whole, next - low);
        OrShiftedDown(&suffix[w], from + w, &suffix[w + shift.whole], next - w, shift.part,
                      suffix[next + shift.whole]);
        next = w;
    }
}

}  // namespace

// Each chain of sums `length` apart is cut into blocks of most + 1 of its sums, which for every
// chain are the blocks of (most + 1) x length bits. A sum and the `most` below it in its chain
// then span at most two blocks: the suffix of the lowest, in the block before, and the prefix of
// the sum itself.
void AddUpToCount(const uint64_t* from, uint64_t* to, std::size_t words, int64_t length,
                  int64_t most, std::vector<uint64_t>& scratch) {
    const auto bits = static_cast<int64_t>(words) * 64;
    const int64_t block = (most + 1) * length;
    for (int64_t begin = 0; begin < bits; begin += block) {
        const int64_t end = std::min(begin + block, bits);
        SuffixJoin join;
        if (begin > 0) {
            const int64_t before = begin - block;
            const auto first = static_cast<std::size_t>(before / 64);
            const auto size = static_cast<std::size_t>((begin - 1) / 64 + 2) - first;
            if (scratch.size() < size) {
                scratch.resize(size);
            }
            const RowPart suffix{scratch.data(), first};
            Suffixes(from, suffix, before, begin, length);
            join = SuffixJoin(to, suffix, begin, end, most * length);
        }
        Prefixes(from, to, begin, end, length, join);
    }
}

}  // namespace brennik
