#include "engine/reach_table.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

namespace brennik {

namespace {

// Up to this many words every row is kept, and the memory is kept for the next search; a
// larger table keeps every few rows only, and gives its memory back after the search.
constexpr std::size_t KeptWords = std::size_t{1} << 21;
// What a number of a row by residue costs beside a word of a row of bits, which the loops go
// through several at a time, in the work the table counts.
constexpr int64_t NumberWork = 4;

}  // namespace

int ReachTable::ModulusRow(int count, const int64_t* lengths, const int64_t* most, int64_t bar) {
    for (int d = count - 1; d >= 1; --d) {
        if (lengths[d] <= bar / 64 && most[d] >= bar / lengths[d]) {
            return d;
        }
    }
    return 0;
}

int64_t ReachTable::SumsUpTo(int from, int count, const int64_t* lengths, const int64_t* most,
                             int64_t bar) {
    int64_t sum = 0;
    for (int d = from; d < count && sum < bar; ++d) {
        sum += std::min(most[d], bar / lengths[d]) * lengths[d];
    }
    return std::min(sum, bar);
}

namespace {

// How many doubling chunks make every count up to `most`.
int64_t Chunks(int64_t most) {
    return std::bit_width(static_cast<uint64_t>(most));
}

}  // namespace

int64_t ReachTable::Cost(int count, const int64_t* lengths, const int64_t* most, int64_t bar) {
    const int modulusRow = ModulusRow(count, lengths, most, bar);
    const int64_t bitsBar = SumsUpTo(modulusRow + 1, count, lengths, most, bar);
    int64_t work = 0;
    for (int d = 1; d < count; ++d) {
        const bool byResidue = d <= modulusRow;
        const int64_t row = byResidue ? lengths[modulusRow] : bitsBar / 64 + 1;
        const bool anyCount = most[d] >= bar / lengths[d] && (byResidue || lengths[d] >= 64);
        work += row * (anyCount ? 2 : 1 + Chunks(most[d]));
    }
    return work;
}

void ReachTable::Build(int count, const int64_t* lengths, const int64_t* most, int64_t bar,
                       int spacing) {
    count_ = count;
    work_ = 0;
    lengths_ = lengths;
    most_ = most;
    bar_ = bar;
    modulusRow_ = ModulusRow(count, lengths, most, bar);
    modulus_ = modulusRow_ > 0 ? lengths[modulusRow_] : 0;
    bitsBar_ = SumsUpTo(modulusRow_ + 1, count, lengths, most, bar);
    // The rows of bits stand from the last build when they were made the same way, all of
    // them kept; so do the rows by residue above them up to the first made otherwise.
    sources_.assign({modulus_, bitsBar_});
    for (int d = count - 1; d > modulusRow_; --d) {
        sources_.insert(sources_.end(), {lengths[d], most[d]});
    }
    const bool bitsStand = sources_ == bitsSources_ && spacing <= 1;
    if (!bitsStand) {
        BuildBits(spacing);
        bitsSources_ = spacing_ == 1 ? sources_ : std::vector<int64_t>{};
        residueSources_.clear();
    }
    if (modulusRow_ > 0) {
        BuildResidues();
    }
}

// The rows of bits, count down to the one below the modulus row (to row 1 without one).
void ReachTable::BuildBits(int spacing) {
    const int rows = count_ - modulusRow_;
    words_ = static_cast<std::size_t>(bitsBar_ / 64 + 1);
    if (spacing > 0) {
        spacing_ = spacing;
    } else if (static_cast<std::size_t>(rows) * words_ <= KeptWords) {
        spacing_ = 1;
    } else {
        spacing_ = static_cast<int>(std::ceil(std::sqrt(rows)));
    }
    // Kept rows count, count - spacing, ... down to the lowest; then the rows between two kept
    // ones.
    keptSlots_ = static_cast<std::size_t>((rows - 1) / spacing_ + 1);
    // Every row but the top one is written whole before it is read.
    const std::size_t size = (keptSlots_ + static_cast<std::size_t>(spacing_ - 1)) * words_;
    if (bits_.capacity() < size) {
        std::vector<uint64_t>(size).swap(bits_);  // no more than this table needs
    }
    bits_.resize(size);
    std::fill(Slot(0), Slot(0) + words_, 0);
    Slot(0)[0] = 1;
    segmentTop_ = count_;
    for (int d = count_ - 1; d > modulusRow_; --d) {
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
        for (int r = top - 1; r >= std::max(modulusRow_ + 1, top - spacing_ + 1); --r) {
            AddLength(r, Row(r + 1), Row(r));
        }
    }
    return Slot(keptSlots_ + static_cast<std::size_t>(top - d - 1));
}

// Row k of least_ is row modulusRow_ - k of the table: the modulus row first, then each row
// above it, so that the rows shared with the last build stand where it left them.
void ReachTable::BuildResidues() {
    const auto width = static_cast<std::size_t>(modulus_);
    least_.resize(static_cast<std::size_t>(modulusRow_) * width);
    // What each row adds: its length and the most pieces of it, or -1 for any number.
    sources_.clear();
    for (int d = modulusRow_; d >= 1; --d) {
        const bool anyCount = most_[d] >= bar_ / lengths_[d];
        sources_.insert(sources_.end(), {lengths_[d], anyCount ? -1 : most_[d]});
    }
    // Rows stand up to the first whose length or limit differs.
    const auto differs = std::mismatch(sources_.begin(), sources_.end(), residueSources_.begin(),
                                       residueSources_.end())
                             .first;
    auto standing = static_cast<std::size_t>(differs - sources_.begin()) / 2;
    residueSources_ = sources_;
    if (standing == 0) {
        // The modulus row holds the sums of the rows of bits below it, and their sums with
        // any count of the modulus length.
        int32_t* row = least_.data();
        std::fill(row, row + width, None);
        const uint64_t* below = Row(modulusRow_ + 1);
        work_ += static_cast<int64_t>(words_) + NumberWork * modulus_;
        // The last word may hold bits past bitsBar_: a row adds a length any number of times
        // where that makes the same sums up to bitsBar_, and the pieces beyond its limit land
        // there.
        const uint64_t lastWord = ~uint64_t{0} >> (63 - bitsBar_ % 64);
        for (std::size_t word = 0; word < words_; ++word) {
            for (uint64_t bits = below[word] & (word + 1 < words_ ? ~uint64_t{0} : lastWord);
                 bits != 0; bits &= bits - 1) {
                const auto sum = static_cast<int64_t>(word * 64) + std::countr_zero(bits);
                int32_t& least = row[static_cast<std::size_t>(sum % modulus_)];
                least = std::min(least, static_cast<int32_t>(sum));
            }
        }
        standing = 1;
    }
    // Each row above adds its length to the row below.
    for (auto k = standing; k < static_cast<std::size_t>(modulusRow_); ++k) {
        const int d = modulusRow_ - static_cast<int>(k);
        int32_t* row = least_.data() + k * width;
        std::copy(row - width, row, row);
        work_ += NumberWork * modulus_;
        if (residueSources_[2 * k + 1] < 0) {
            AddAnyCountToResidues(row, lengths_[d]);
        } else {
            int64_t most = most_[d];
            for (int64_t chunk = 1; most > 0; chunk *= 2) {
                const int64_t take = std::min(chunk, most);
                AddOnceToResidues(row, take * lengths_[d]);
                most -= take;
            }
        }
    }
}

// Adds any count of `length` to a row by residue. The residues that adding it steps through
// form cycles; going once round each, from its least sum on, carries every sum as far as the
// length can take it, as no sum can improve on the least one of its cycle. A residue without a
// sum stays at None.
void ReachTable::AddAnyCountToResidues(int32_t* row, int64_t length) {
    const int64_t step = length % modulus_;
    if (step == 0) {
        return;  // the last length, taken often enough, makes the same sums
    }
    work_ += 2 * NumberWork * modulus_;
    const auto next = [&](int64_t r) {
        return r + step < modulus_ ? r + step : r + step - modulus_;
    };
    const int64_t cycles = std::gcd(step, modulus_);
    const int64_t cycleLength = modulus_ / cycles;
    for (int64_t start = 0; start < cycles; ++start) {
        int64_t from = start;
        for (int64_t k = 0, r = start; k < cycleLength; ++k, r = next(r)) {
            from = row[r] < row[from] ? r : from;
        }
        for (int64_t k = 0, r = from; k < cycleLength; ++k, r = next(r)) {
            const int64_t carried = std::min<int64_t>(row[r] + length, None);
            row[next(r)] = static_cast<int32_t>(std::min<int64_t>(row[next(r)], carried));
        }
    }
}

// Adds one piece of `length` (a chunk of several pieces of one length) to a row by residue:
// every residue may also be reached from the one `length` below it, as the row stood before.
void ReachTable::AddOnceToResidues(int32_t* row, int64_t length) {
    const int64_t step = length % modulus_;
    if (step == 0) {
        return;  // the last length, taken often enough, makes the same sums
    }
    const auto width = static_cast<std::size_t>(modulus_);
    work_ += 2 * NumberWork * modulus_;
    before_.assign(row, row + width);
    const auto shift = static_cast<std::size_t>(step);
    // Residues from `shift` on come from residues `shift` below; the lower ones from the top.
    for (std::size_t r = shift; r < width; ++r) {
        row[r] = static_cast<int32_t>(
            std::min<int64_t>(row[r], std::min<int64_t>(before_[r - shift] + length, None)));
    }
    for (std::size_t r = 0; r < shift; ++r) {
        row[r] = static_cast<int32_t>(std::min<int64_t>(
            row[r], std::min<int64_t>(before_[r + width - shift] + length, None)));
    }
}

bool ReachTable::Has(int d, int64_t sum) {
    if (sum < 0) {
        return false;
    }
    if (ByResidue(d)) {
        const auto width = static_cast<std::size_t>(modulus_);
        return least_[static_cast<std::size_t>(modulusRow_ - d) * width +
                      static_cast<std::size_t>(sum % modulus_)] <= sum;
    }
    return sum <= bitsBar_ && ((Row(d)[sum / 64] >> (sum % 64)) & 1) != 0;
}

int64_t ReachTable::HighestUpTo(int d, int64_t limit, int64_t lowest) {
    if (ByResidue(d)) {
        // The next sum above the highest one is that sum plus the modulus length, so the
        // highest lies less than one such length below the limit. The residue steps down with
        // the sum.
        const int32_t* least = least_.data() + static_cast<std::size_t>(modulusRow_ - d) * modulus_;
        for (int64_t sum = limit, residue = limit % modulus_; sum >= lowest; --sum) {
            if (least[residue] <= sum) {
                work_ += NumberWork * (limit - sum + 1);
                return sum;
            }
            residue = residue > 0 ? residue - 1 : modulus_ - 1;
        }
        work_ += NumberWork * (limit - lowest + 1);
        return -1;
    }
    limit = std::min(limit, bitsBar_);
    if (limit < lowest) {
        return -1;
    }
    const uint64_t* row = Row(d);
    int64_t word = limit / 64;
    uint64_t bits = row[word] & (~uint64_t{0} >> (63 - limit % 64));
    while (bits == 0 && word > lowest / 64) {
        bits = row[--word];
    }
    work_ += limit / 64 - word + 1;
    const int64_t highest = bits == 0 ? -1 : word * 64 + 63 - std::countl_zero(bits);
    return highest >= lowest ? highest : -1;
}

void ReachTable::Release() {
    if (bits_.capacity() > KeptWords) {
        std::vector<uint64_t>().swap(bits_);
        bitsSources_.clear();
    }
    if (least_.capacity() > 2 * KeptWords) {
        std::vector<int32_t>().swap(least_);
        residueSources_.clear();
    }
}

// Where the bar holds no more pieces than `most`, one pass from the bottom up adds any count;
// otherwise the counts go in doubling chunks, which together make every count up to `most`.
void ReachTable::AddLength(int d, const uint64_t* from, uint64_t* to) {
    const int64_t length = lengths_[d];
    int64_t most = most_[d];
    const auto words = static_cast<int64_t>(words_);
    work_ += words;  // the copy of the row below
    if (most >= bitsBar_ / length && length >= 64) {
        work_ += words;
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
        work_ += words;
        from = to;
        most -= take;
    }
}

namespace {

// out |= src shifted up by `part` bits, word by word, `carry` being the word below src[0]. The
// two never overlap, so the loop runs several words at a time.
void OrShifted(uint64_t* __restrict out, const uint64_t* __restrict src, std::size_t n,
               unsigned part, uint64_t carry) {
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

}  // namespace

// to = from | from << shift. Word w of the result reads words w - whole and the one below, so
// blocks of `whole` words, taken from the top down, read only words not yet changed.
void ReachTable::AddShifted(const uint64_t* from, uint64_t* to, int64_t shift) {
    if (to != from) {
        std::copy(from, from + words_, to);
    }
    const auto whole = static_cast<std::size_t>(shift / 64);
    const auto part = static_cast<unsigned>(shift % 64);
    if (whole == 0) {
        for (std::size_t w = words_; w-- > 0;) {
            to[w] |= to[w] << part | (w > 0 ? to[w - 1] >> (64 - part) : 0);
        }
        return;
    }
    for (std::size_t end = words_; end > whole;) {
        const std::size_t begin = std::max(whole, end - std::min(end, whole));
        const uint64_t carry = begin > whole ? to[begin - whole - 1] : 0;
        OrShifted(to + begin, to + begin - whole, end - begin, part, carry);
        end = begin;
    }
}

// to = from | to << shift | to << 2 shift | ...: blocks of `whole` words (at least one, as the
// shift is at least a word), from the bottom up, each reading words already final below it.
void ReachTable::AddAnyCount(const uint64_t* from, uint64_t* to, int64_t shift) {
    std::copy(from, from + words_, to);
    const auto whole = static_cast<std::size_t>(shift / 64);
    const auto part = static_cast<unsigned>(shift % 64);
    for (std::size_t begin = whole; begin < words_; begin += whole) {
        const uint64_t carry = begin > whole ? to[begin - whole - 1] : 0;
        OrShifted(to + begin, to + begin - whole, std::min(whole, words_ - begin), part, carry);
    }
}

}  // namespace brennik
