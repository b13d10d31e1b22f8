#include "engine/reach_table.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace brennik {

namespace {

// Up to this many words every row is kept, and the memory is kept for the next search; a
// larger table keeps every few rows only, and gives its memory back after the search.
constexpr std::size_t KeptWords = std::size_t{1} << 21;

}  // namespace

void ReachTable::Build(int count, const int64_t* lengths, const int64_t* most, int64_t bar,
                       int spacing) {
    count_ = count;
    lengths_ = lengths;
    most_ = most;
    bar_ = bar;
    words_ = static_cast<std::size_t>(bar / 64 + 1);
    if (spacing > 0) {
        spacing_ = spacing;
    } else if (static_cast<std::size_t>(count) * words_ <= KeptWords) {
        spacing_ = 1;
    } else {
        spacing_ = static_cast<int>(std::ceil(std::sqrt(count)));
    }
    // Kept rows count, count - spacing, ... down to 1; then the rows between two kept ones.
    keptSlots_ = static_cast<std::size_t>((count - 1) / spacing_ + 1);
    // Every row but the top one is written whole before it is read.
    const std::size_t size = (keptSlots_ + static_cast<std::size_t>(spacing_ - 1)) * words_;
    if (bits_.capacity() < size) {
        std::vector<uint64_t>(size).swap(bits_);  // no more than this table needs
    }
    bits_.resize(size);
    std::fill(Slot(0), Slot(0) + words_, 0);
    Slot(0)[0] = 1;
    segmentTop_ = count;
    for (int d = count - 1; d >= 1; --d) {
        segmentTop_ = KeptAbove(d + 1);  // the spare slots now fill with this segment's rows
        AddLength(d, Row(d + 1), Row(d));
    }
}

uint64_t* ReachTable::Row(int d) {
    if (IsKept(d)) {
        return Slot(static_cast<std::size_t>((count_ - d) / spacing_));
    }
    const int top = KeptAbove(d);
    if (top != segmentTop_) {
        segmentTop_ = top;
        for (int r = top - 1; r >= std::max(1, top - spacing_ + 1); --r) {
            AddLength(r, Row(r + 1), Row(r));
        }
    }
    return Slot(keptSlots_ + static_cast<std::size_t>(top - d - 1));
}

bool ReachTable::Has(int d, int64_t sum) {
    return sum >= 0 && ((Row(d)[sum / 64] >> (sum % 64)) & 1) != 0;
}

int64_t ReachTable::HighestUpTo(int d, int64_t limit) {
    const uint64_t* row = Row(d);
    int64_t word = limit / 64;
    uint64_t bits = row[word] & (~uint64_t{0} >> (63 - limit % 64));
    while (bits == 0) {
        bits = row[--word];
    }
    return word * 64 + 63 - std::countl_zero(bits);
}

void ReachTable::Release() {
    if (bits_.capacity() > KeptWords) {
        std::vector<uint64_t>().swap(bits_);
    }
}

// Where the bar holds no more pieces than `most`, one pass from the bottom up adds any count;
// otherwise the counts go in doubling chunks, which together make every count up to `most`.
// The first chunk reads row d + 1 itself, which spares a copy of it.
void ReachTable::AddLength(int d, const uint64_t* from, uint64_t* to) {
    const int64_t length = lengths_[d];
    int64_t most = most_[d];
    if (most >= bar_ / length && length >= 64) {
        AddAnyCount(from, to, length);
        return;
    }
    if (most == 0) {
        std::copy(from, from + words_, to);
        return;
    }
    for (int64_t chunk = 1; most > 0; chunk *= 2) {
        const int64_t take = std::min(chunk, most);
        AddShifted(from, to, take * length);
        from = to;
        most -= take;
    }
}

namespace {

// Word w of `row` shifted up by `shift` bits: what a shift of the whole row puts there.
uint64_t ShiftedWord(const uint64_t* row, std::size_t w, int64_t shift) {
    const auto whole = static_cast<std::size_t>(shift / 64);
    const auto part = static_cast<unsigned>(shift % 64);
    if (w < whole) {
        return 0;
    }
    uint64_t moved = row[w - whole] << part;
    if (part != 0 && w > whole) {
        moved |= row[w - whole - 1] >> (64 - part);
    }
    return moved;
}

}  // namespace

// to = from | from << shift; from the top down, so that with `to` and `from` one row every
// word reads words not yet changed.
void ReachTable::AddShifted(const uint64_t* from, uint64_t* to, int64_t shift) {
    for (std::size_t w = words_; w-- > 0;) {
        to[w] = from[w] | ShiftedWord(from, w, shift);
    }
}

// to = from | to << shift | to << 2 shift | ...: from the bottom up, so that every word reads
// words of `to` already final; a shift of at least a word keeps those reads below the word
// written.
void ReachTable::AddAnyCount(const uint64_t* from, uint64_t* to, int64_t shift) {
    for (std::size_t w = 0; w < words_; ++w) {
        to[w] = from[w] | ShiftedWord(to, w, shift);
    }
}

}  // namespace brennik
