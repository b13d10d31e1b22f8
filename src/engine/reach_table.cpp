#include "engine/reach_table.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numeric>

#include "engine/bit_rows.h"

namespace brennik {

namespace {

// Up to this many words (64 MB) every row is kept, which holds 40 rows of bars up to 134,000;
// a larger table keeps every few rows only. Either way the memory stays with the thread for the
// next search, as the rows it holds mostly stand for the next table.
constexpr std::size_t KeptWords = std::size_t{1} << 23;
// How far apart the kept rows of a larger table stand: about the square root of the most rows
// a search has, 40, for the least memory; the same for every such table, so that the rows of
// one stand for the next.
constexpr int SparseSpacing = 7;
// Rows by residue are made for a length of at most this share of the bar. Going round the
// residues by the steps of a length reads them out of order, so that a number costs many words
// of a row of bits: only a far shorter row makes up for it.
constexpr int64_t ResidueShare = 256;
// What a number of a row by residue costs beside a word of a row of bits, which the loops go
// through several at a time.
constexpr int64_t NumberWork = 4;
// What a count tried in CountsOf costs beside a word of a row of bits: a division, and now and
// then the reading of a row at one place, mostly out of the cache.
constexpr int64_t StepWork = 128;
// The most combinations of the pieces of the lengths put on top of the table that a read of
// the sums from a later length tries. The more lengths go on top, the fewer rows a length used
// up changes; a read of the pattern's counts, once a search, tries their combinations.
constexpr int64_t MostFewWays = 1024;
// The most of those combinations that a read for a walk tries: a walk reads the table at many
// counts, and beyond this reads a row that holds more sums instead.
constexpr int64_t MostWalkReadWays = 32;
// From this many pieces of a length on, a row of bits adds the window of counts up to the most,
// about three passes over the row, rather than doubling chunks, a pass each: the window is the
// cheaper from three chunks on.
constexpr int64_t MinWindowPieces = 4;

// Whether a row of bits adds pieces of `length` by the window of counts: each pass shifts
// whole words and then the bits within one, so the length must be at least a word.
bool ByWindow(int64_t length, int64_t most) {
    return length >= 64 && most >= MinWindowPieces;
}

}  // namespace

int ReachTable::ModulusRow(int count, const int64_t* lengths, const int64_t* most, int64_t bar) {
    for (int d = count - 1; d >= 1; --d) {
        if (lengths[d] <= bar / ResidueShare && most[d] >= bar / lengths[d]) {
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

int64_t ReachTable::RowWork(const Layout& layout, int d) {
    const bool byResidue = d <= layout.modulusRow;
    const int64_t row = byResidue ? NumberWork * layout.modulus : layout.bitsBar / 64 + 1;
    const int64_t length = layout.rowLength[d];
    const int64_t most = layout.rowMost[d];
    const bool anyCount = most >= layout.bar / length && (byResidue || length >= 64);
    // A row of bits that adds a window of counts costs less than its chunks would. The estimate
    // keeps the chunks' figure, with which the walk's budget was weighed: measured, walks that
    // give way sooner cost the presses on the longest bars far more than the rows they spare.
    return row * (anyCount ? 2 : 1 + Chunks(most));
}

int64_t ReachTable::WorkToBuild(int count, const int64_t* lengths, const int64_t* most,
                                int64_t bar) {
    int spacing = 0;
    const int standing = Lay(count, lengths, most, bar, spacing, planned_);
    const int modulusRow = planned_.modulusRow;
    int64_t work = 0;
    if (standing < count - modulusRow - 1) {
        for (int d = modulusRow + 1; d < count - std::max(standing, 0); ++d) {
            work += RowWork(planned_, d);
        }
    }
    // The rows by residue stand only on the very rows of bits they were made from.
    const auto residuesStanding =
        planned_.sources == bitsSources_ ? ResidueRowsStanding(planned_) : 0;
    for (int d = 1; d <= modulusRow - static_cast<int>(residuesStanding); ++d) {
        work += RowWork(planned_, d);
    }
    return work;
}

bool ReachTable::Covers(int count, const int64_t* lengths, const int64_t* most, int64_t bar,
                        int* rows) const {
    if (bar > built_.bar || built_.modulusRow > 0) {
        // The rows hold no sums above their own bar; and a row by residue is read sum by sum,
        // far too slowly for the walk's many reads.
        return false;
    }
    int at = 1;
    for (int d = 1; d < count; ++d) {
        while (at < built_.count &&
               (built_.length[at] != lengths[d] || built_.most[at] < most[d])) {
            ++at;
        }
        if (at == built_.count) {
            return false;
        }
        rows[d] = at++;
    }
    return true;
}

int ReachTable::Lay(int count, const int64_t* lengths, const int64_t* most, int64_t bar,
                    int& spacing, Layout& into) const {
    into.count = count;
    into.bar = bar;
    into.length.assign(lengths, lengths + count);
    into.most.assign(most, most + count);
    OrderRows(into);
    const int64_t* rowLength = into.rowLength.data();
    const int64_t* rowMost = into.rowMost.data();
    into.modulusRow = ModulusRow(count, rowLength, rowMost, bar);
    into.modulus = into.modulusRow > 0 ? rowLength[into.modulusRow] : 0;
    into.bitsBar = SumsUpTo(into.modulusRow + 1, count, rowLength, rowMost, bar);
    // The rows of bits from the bottom up, each by its length and the most pieces of it that
    // count up to the highest sum: rows made from the same ones hold the same sums.
    into.sources.assign({into.bitsBar});
    for (int d = count - 1; d > into.modulusRow; --d) {
        into.sources.insert(into.sources.end(),
                            {rowLength[d], std::min(rowMost[d], into.bitsBar / rowLength[d])});
    }
    const int rows = count - into.modulusRow;
    if (spacing <= 0) {
        const auto words = static_cast<std::size_t>(into.bitsBar / 64 + 1);
        spacing = static_cast<std::size_t>(rows) * words <= KeptWords ? 1 : SparseSpacing;
    }
    // The rows of the last build stand up to the first made otherwise, when they were kept as
    // far apart; -1 when not even the empty row at the bottom does.
    int standing = -1;
    if (spacing == spacing_ && !bitsSources_.empty() && bitsSources_[0] == into.bitsBar) {
        const auto same = std::mismatch(into.sources.begin() + 1, into.sources.end(),
                                        bitsSources_.begin() + 1, bitsSources_.end())
                              .first -
                          (into.sources.begin() + 1);
        standing = static_cast<int>(same / 2);
    }
    return standing;
}

void ReachTable::Build(int count, const int64_t* lengths, const int64_t* most, int64_t bar,
                       int spacing) {
    const int lastCount = built_.count;
    const int standing = Lay(count, lengths, most, bar, spacing, planned_);
    std::swap(built_, planned_);
    const int rows = count - built_.modulusRow;
    if (standing < rows - 1) {
        const int keptStanding = std::max(standing, 0) - std::max(standing, 0) % spacing;
        BuildBits(spacing, keptStanding);
    } else {
        // All stand; the rows between kept ones that were worked out last keep their place
        // counted from the bottom.
        segmentTop_ += count - lastCount;
    }
    // The rows by residue stand only on the very rows of bits they were made from.
    if (built_.sources != bitsSources_) {
        bitsSources_ = built_.sources;
        residueSources_.clear();
    }
    if (built_.modulusRow > 0) {
        BuildResidues();
    }
}

// The rows of bits, count down to the one below the modulus row (to row 1 without one), the
// lowest `standing` of them, a kept one last, standing from the last build.
void ReachTable::BuildBits(int spacing, int standing) {
    const int rows = built_.count - built_.modulusRow;
    words_ = static_cast<std::size_t>(built_.bitsBar / 64 + 1);
    spacing_ = spacing;
    // Kept rows count, count - spacing, ... down to the lowest; then the rows between two kept
    // ones.
    keptSlots_ = static_cast<std::size_t>((rows - 1) / spacing_ + 1);
    const std::size_t size = (keptSlots_ + static_cast<std::size_t>(spacing_ - 1)) * words_;
    if (bitsCapacity_ < size) {
        // No more than this table needs, with the standing rows carried over. Every row is
        // written whole before it is read, so the new memory is not cleared first.
        RowMemory grown = AllocateRowMemory(size);
        const auto kept = static_cast<std::size_t>(standing / spacing_ + 1) * words_;
        std::copy(bits_.get(), bits_.get() + std::min(kept, bitsCapacity_), grown.get());
        bits_ = std::move(grown);
        bitsCapacity_ = size;
    }
    if (standing == 0) {
        std::fill(Slot(0), Slot(0) + words_, 0);
        Slot(0)[0] = 1;
    }
    segmentTop_ = built_.count - standing;
    for (int d = built_.count - standing - 1; d > built_.modulusRow; --d) {
        segmentTop_ = KeptAbove(d + 1);  // the spare slots now fill with this segment's rows
        AddLength(d, Row(d + 1), Row(d));
    }
}

uint64_t* ReachTable::Row(int d) {
    if (IsKept(d)) {
        return Slot(static_cast<std::size_t>((built_.count - d) / spacing_));
    }
    const int top = KeptAbove(d);
    if (top != segmentTop_) {
        segmentTop_ = top;
        for (int r = top - 1; r >= std::max(built_.modulusRow + 1, top - spacing_ + 1); --r) {
            AddLength(r, Row(r + 1), Row(r));
        }
    }
    return Slot(keptSlots_ + static_cast<std::size_t>(top - d - 1));
}

std::size_t ReachTable::ResidueRowsStanding(Layout& layout) const {
    // What each row adds: its length and the most pieces of it, or -1 for any number.
    layout.sources.clear();
    for (int d = layout.modulusRow; d >= 1; --d) {
        const bool anyCount = layout.rowMost[d] >= layout.bar / layout.rowLength[d];
        layout.sources.insert(layout.sources.end(),
                              {layout.rowLength[d], anyCount ? -1 : layout.rowMost[d]});
    }
    // Rows stand up to the first whose length or limit differs.
    const auto differs = std::mismatch(layout.sources.begin(), layout.sources.end(),
                                       residueSources_.begin(), residueSources_.end())
                             .first;
    return static_cast<std::size_t>(differs - layout.sources.begin()) / 2;
}

// Row k of least_ is the k-th row of the table from the modulus row up: the modulus row first,
// then each row above it, so that the rows shared with the last build stand where it left them.
void ReachTable::BuildResidues() {
    const auto width = static_cast<std::size_t>(built_.modulus);
    least_.resize(static_cast<std::size_t>(built_.modulusRow) * width);
    auto standing = ResidueRowsStanding(built_);
    residueSources_ = built_.sources;
    if (standing == 0) {
        // The modulus row holds the sums of the rows of bits below it, and their sums with
        // any count of the modulus length.
        int32_t* row = least_.data();
        std::fill(row, row + width, None);
        const uint64_t* below = Row(built_.modulusRow + 1);
        // The last word may hold bits past the highest sum of the rows of bits: a row adds a length
        // any number of times where that makes the same sums up to that sum, and the pieces beyond
        // its limit land there.
        const uint64_t lastWord = ~uint64_t{0} >> (63 - built_.bitsBar % 64);
        for (std::size_t word = 0; word < words_; ++word) {
            for (uint64_t bits = below[word] & (word + 1 < words_ ? ~uint64_t{0} : lastWord);
                 bits != 0; bits &= bits - 1) {
                const auto sum = static_cast<int64_t>(word * 64) + std::countr_zero(bits);
                int32_t& least = row[static_cast<std::size_t>(sum % built_.modulus)];
                least = std::min(least, static_cast<int32_t>(sum));
            }
        }
        standing = 1;
    }
    // Each row above adds its length to the row below.
    for (auto k = standing; k < static_cast<std::size_t>(built_.modulusRow); ++k) {
        const int d = built_.modulusRow - static_cast<int>(k);
        int32_t* row = least_.data() + k * width;
        std::copy(row - width, row, row);
        if (residueSources_[2 * k + 1] < 0) {
            AddAnyCountToResidues(row, built_.rowLength[d]);
        } else {
            int64_t most = built_.rowMost[d];
            for (int64_t chunk = 1; most > 0; chunk *= 2) {
                const int64_t take = std::min(chunk, most);
                AddOnceToResidues(row, take * built_.rowLength[d]);
                most -= take;
            }
        }
    }
}

// Adds any count of `length` to a row by residue. The residues that adding it steps through
// form cycles, one for each residue modulo gcd(step, modulus); going once round each, from its
// least sum on, carries every sum as far as the length can take it, as no sum can improve on the
// least one of its cycle. A residue without a sum stays at None. The sum carried round stays in
// a register, so that each step waits on an addition and a comparison, not on the store before.
void ReachTable::AddAnyCountToResidues(int32_t* row, int64_t length) {
    const int64_t step = length % built_.modulus;
    if (step == 0) {
        return;  // the last length, taken often enough, makes the same sums
    }
    const int64_t cycles = std::gcd(step, built_.modulus);
    const int64_t cycleLength = built_.modulus / cycles;
    for (int64_t start = 0; start < cycles; ++start) {
        int64_t from = start;
        for (int64_t r = start + cycles; r < built_.modulus; r += cycles) {
            from = row[r] < row[from] ? r : from;
        }
        int64_t carried = row[from];
        for (int64_t k = 1, r = from + step; k < cycleLength; ++k, r += step) {
            r -= r >= built_.modulus ? built_.modulus : 0;
            carried = std::min<int64_t>(carried + length, row[r]);
            row[r] = static_cast<int32_t>(carried);
        }
    }
}

// Adds one piece of `length` (a chunk of several pieces of one length) to a row by residue:
// every residue may also be reached from the one `length` below it, as the row stood before.
void ReachTable::AddOnceToResidues(int32_t* row, int64_t length) {
    const int64_t step = length % built_.modulus;
    if (step == 0) {
        return;  // the last length, taken often enough, makes the same sums
    }
    const auto width = static_cast<std::size_t>(built_.modulus);
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

int64_t ReachTable::RowHighest(int d, int64_t limit, int64_t lowest) {
    if (ByResidue(d)) {
        // The next sum above the highest one is that sum plus the modulus length, so the
        // highest lies less than one such length below the limit. The residue steps down with
        // the sum.
        const int32_t* least =
            least_.data() + static_cast<std::size_t>(built_.modulusRow - d) * built_.modulus;
        for (int64_t sum = limit, residue = limit % built_.modulus; sum >= lowest; --sum) {
            if (least[residue] <= sum) {
                return sum;
            }
            residue = residue > 0 ? residue - 1 : built_.modulus - 1;
        }
        return -1;
    }
    limit = std::min(limit, built_.bitsBar);
    if (limit < lowest) {
        return -1;
    }
    const uint64_t* row = Row(d);
    int64_t word = limit / 64;
    uint64_t bits = row[word] & (~uint64_t{0} >> (63 - limit % 64));
    while (bits == 0 && word > lowest / 64) {
        bits = row[--word];
    }
    const int64_t highest = bits == 0 ? -1 : word * 64 + 63 - std::countl_zero(bits);
    return highest >= lowest ? highest : -1;
}

// A few pieces of lengths near the bottom are used up within the next few searches of a press,
// each changing the rows above theirs. Such lengths, allowed fewer pieces than the bar holds
// and together in no more than MostFewWays combinations, go to the top rows instead, and every
// other row keeps its order below them. Row 1 holds the sums of all lengths in any order; the
// sums of the lengths from one of them on are those of the row of the other lengths from it on,
// with each combination of its few pieces added.
void ReachTable::OrderRows(Layout& layout) {
    const int count = layout.count;
    const std::vector<int64_t>& length = layout.length;
    const std::vector<int64_t>& most = layout.most;
    std::vector<int>& few = layout.few;
    few.clear();
    layout.rowLength = length;
    layout.rowMost = most;
    int64_t ways = 1;
    for (int d = count - 1; d >= 1; --d) {
        if (most[d] < layout.bar / length[d] && ways * (most[d] + 1) <= MostFewWays) {
            ways *= most[d] + 1;
            few.push_back(d);
        }
    }
    std::reverse(few.begin(), few.end());
    layout.fewWays.assign(few.size() + 1, 1);
    for (std::size_t k = few.size(); k-- > 0;) {
        layout.fewWays[k] = layout.fewWays[k + 1] * (most[few[k]] + 1);
    }
    layout.othersFrom.resize(static_cast<std::size_t>(count) + 1);
    layout.fewFrom.resize(static_cast<std::size_t>(count) + 1);
    layout.othersFrom[count] = count;
    layout.fewFrom[count] = static_cast<int>(few.size());
    int row = count;
    auto next = few.rbegin();
    for (int d = count - 1; d >= 1; --d) {
        if (next != few.rend() && *next == d) {
            ++next;
        } else {
            --row;
            layout.rowLength[row] = length[d];
            layout.rowMost[row] = most[d];
        }
        layout.othersFrom[d] = row;
        layout.fewFrom[d] = static_cast<int>(few.rend() - next);
    }
    for (std::size_t k = 0; k < few.size(); ++k) {
        layout.rowLength[k + 1] = length[few[k]];
        layout.rowMost[k + 1] = most[few[k]];
    }
}

bool ReachTable::Has(int d, int64_t sum) {
    return sum >= 0 && HighestUpTo(d, sum, sum) == sum;
}

int64_t ReachTable::HighestForWalkUpTo(int d, int64_t limit, int64_t lowest) {
    const int k = built_.fewFrom[d];
    if (built_.fewWays[static_cast<std::size_t>(k)] <= MostWalkReadWays) {
        return HighestUpTo(d, limit, lowest);
    }
    // Table row k + 1 holds the lengths on top from the k-th on and every other length.
    return RowHighest(k + 1, limit, std::max<int64_t>(lowest, 0));
}

int64_t ReachTable::HighestUpTo(int d, int64_t limit, int64_t lowest) {
    return d == 1 ? RowHighest(1, limit, lowest)
                  : HighestWithFew(built_.fewFrom[d], built_.othersFrom[d], limit,
                                   std::max<int64_t>(lowest, 0));
}

int64_t ReachTable::HighestWithFew(int k, int row, int64_t limit, int64_t lowest) {
    if (k == static_cast<int>(built_.few.size())) {
        return RowHighest(row, limit, lowest);
    }
    const int d = built_.few[k];
    int64_t highest = -1;
    for (int64_t c = 0; c <= built_.most[d] && c * built_.length[d] <= limit; ++c) {
        const int64_t pieces = c * built_.length[d];
        const int64_t from = std::max<int64_t>(std::max(lowest, highest + 1) - pieces, 0);
        const int64_t below = HighestWithFew(k + 1, row, limit - pieces, from);
        highest = below >= 0 ? below + pieces : highest;
    }
    return highest;
}

// Row by row, the most pieces of each length that leave a sum of the next row. Where rows
// would be worked out again for that, the counts of the lengths up to the next row read without
// work are tried together instead, the most pieces first, against that row alone: a pattern
// mostly holds few pieces of those lengths, and then far fewer counts are tried than words
// would be worked out. After as many tries as working them out costs, the rows are read after
// all.
void ReachTable::CountsOf(int64_t sum, int64_t* counts) {
    for (int d = 1; d < built_.count;) {
        // With lengths on top the rows stand in another order than the lengths: the sums
        // from a length on are then always read through the rows of the others.
        const int ready = built_.few.empty() ? ReadyRow(d + 1) : d + 1;
        if (ready > d + 1) {
            // Each row worked out again reads one row and writes another.
            const int64_t rowsWork = 2 * (ready - d - 1) * static_cast<int64_t>(words_);
            const int64_t budget = rowsWork / StepWork;
            int64_t steps = budget;
            const bool filled = FillUpTo(d, ready, sum, counts, steps);
            if (filled) {
                for (; d < ready; ++d) {
                    sum -= counts[d] * built_.length[d];
                }
                continue;
            }
        }
        counts[d] = MostPiecesLeaving(d, sum);
        sum -= counts[d] * built_.length[d];
        ++d;
    }
}

// Where the limit does not bind below `sum`, row d holds the sum less k pieces for every k up to
// the count sought, as the next row's sum plus the other pieces, and not for one piece more, or
// more pieces would leave a sum of the next row. Counted from no pieces up, that mostly takes
// far fewer reads than trying the counts from the most down, as a pattern holds far fewer pieces
// of most lengths than fit.
int64_t ReachTable::MostPiecesLeaving(int d, int64_t sum) {
    const int64_t length = built_.length[d];
    if (built_.most[d] >= sum / length) {
        int64_t c = 0;
        while (Has(d, sum - (c + 1) * length)) {
            ++c;
        }
        return c;
    }
    int64_t c = std::min(built_.most[d], sum / length);
    while (!Has(d + 1, sum - c * length)) {
        --c;
    }
    return c;
}

int ReachTable::ReadyRow(int d) const {
    while (!ByResidue(d) && !IsKept(d) && KeptAbove(d) != segmentTop_) {
        ++d;
    }
    return d;
}

bool ReachTable::FillUpTo(int d, int end, int64_t sum, int64_t* counts, int64_t& steps) {
    if (d == end) {
        return Has(end, sum);
    }
    for (int64_t c = std::min(built_.most[d], sum / built_.length[d]); c >= 0; --c) {
        if (--steps < 0) {
            return false;
        }
        counts[d] = c;
        if (FillUpTo(d + 1, end, sum - c * built_.length[d], counts, steps)) {
            return true;
        }
    }
    return false;
}

// Where the bar holds no more pieces than `most`, one pass from the bottom up adds any count;
// otherwise, for many pieces, the window of counts up to `most` takes three; for a few, the
// counts go in doubling chunks, which together make every count up to `most`.
void ReachTable::AddLength(int d, const uint64_t* from, uint64_t* to) {
    const int64_t length = built_.rowLength[d];
    int64_t most = built_.rowMost[d];
    if (most >= built_.bitsBar / length && length >= 64) {
        AddAnyCount(from, to, length);
        return;
    }
    if (most == 0) {
        std::copy(from, from + words_, to);
        return;
    }
    if (ByWindow(length, most)) {
        AddUpToCount(from, to, words_, length, most, suffixes_);
        return;
    }
    for (int64_t chunk = 1; most > 0; chunk *= 2) {
        const int64_t take = std::min(chunk, most);
        AddShifted(from, to, take * length);
        from = to;
        most -= take;
    }
}

// to = from | from << shift. Into another row, one pass reads `from` alone. In place, word w
// of the result reads words w - whole and the one below, so blocks of `whole` words, taken
// from the top down, read only words not yet changed.
void ReachTable::AddShifted(const uint64_t* from, uint64_t* to, int64_t shift) {
    const auto whole = static_cast<std::size_t>(shift / 64);
    const auto part = static_cast<unsigned>(shift % 64);
    if (to != from) {
        std::copy(from, from + std::min(whole, words_), to);
        if (whole < words_) {
            OrShifted(to + whole, from + whole, from, words_ - whole, part, 0);
        }
        return;
    }
    if (whole == 0) {
        for (std::size_t w = words_; w-- > 0;) {
            to[w] |= to[w] << part | (w > 0 ? to[w - 1] >> (64 - part) : 0);
        }
        return;
    }
    for (std::size_t end = words_; end > whole;) {
        const std::size_t begin = std::max(whole, end - std::min(end, whole));
        const uint64_t carry = begin > whole ? to[begin - whole - 1] : 0;
        OrShiftedInPlace(to + begin, to + begin - whole, end - begin, part, carry);
        end = begin;
    }
}

// to = from | to << shift | to << 2 shift | ...: the words below the shift are those of `from`;
// above them blocks of `whole` words (at least one, as the shift is at least a word), from the
// bottom up, each reading words already final below it.
void ReachTable::AddAnyCount(const uint64_t* from, uint64_t* to, int64_t shift) {
    const auto whole = static_cast<std::size_t>(shift / 64);
    const auto part = static_cast<unsigned>(shift % 64);
    std::copy(from, from + std::min(whole, words_), to);
    for (std::size_t begin = whole; begin < words_; begin += whole) {
        const uint64_t carry = begin > whole ? to[begin - whole - 1] : 0;
        OrShifted(to + begin, from + begin, to + begin - whole, std::min(whole, words_ - begin),
                  part, carry);
    }
}

}  // namespace brennik
