// The table of reachable sums behind the pattern search: for the lengths of a search after the
// first, which sums of pieces each suffix of them can make, up to the bar. It answers the
// searches whose walk would grow too large. A row is one bit per hundredth of the bar; or, for
// the suffixes holding a length that may go in as often as it fits and is short beside the bar,
// the least sum of each residue modulo that length. The rows below the deepest such length then
// hold bits up to what their own lengths can make.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/row_memory.h"

namespace brennik {

class ReachTable {
public:
    // Has and HighestUpTo read, for d from 1 to count, the sums that lengths d to count - 1 make
    // with at most most[i] pieces of lengths[i]; for count, 0 alone. The table's rows hold them
    // in the order of the lengths but for a few lengths that go to the top (see OrderRows). A large
    // table keeps only every few rows and works the others out again when they are read, so that
    // its memory grows with the square root of the number of lengths rather than with the number
    // itself. `spacing` sets how many rows apart the kept rows stand; 0 leaves it to the table's
    // size. Rows made from the same lengths and counts as those at the bottom of the last build, up
    // to the same highest sum, stand from it: the searches of a press mostly differ from the
    // last one in their first lengths.
    void Build(int count, const int64_t* lengths, const int64_t* most, int64_t bar,
               int spacing = 0);

    // About how many words or numbers Build would write for these lengths, the rows that stand
    // from the last build left out: the work beside which a walk over the counts is the dearer
    // way. The rows already made stay as they are.
    int64_t WorkToBuild(int count, const int64_t* lengths, const int64_t* most, int64_t bar);

    // Whether the rows of the last build hold every sum that lengths d to count - 1 of a search
    // on a bar up to `bar` make, with at most most[d] pieces of lengths[d], if perhaps more:
    // when each of those lengths is among the built ones in the same order, with no fewer
    // pieces allowed. Then rows[d], for d from 1, is the row to read for lengths d on. A search
    // whose lengths are only used up further than the last build's can so read it to rule out
    // counts that cannot lead to less waste, whatever the table would now hold.
    bool Covers(int count, const int64_t* lengths, const int64_t* most, int64_t bar,
                int* rows) const;

    bool Has(int d, int64_t sum);
    // For a walk's many reads: the largest sum from `lowest` to `limit` of a row that holds every
    // sum of row d, and perhaps more, read without trying many combinations of the lengths on
    // top; -1 when it has none there, and then row d has none either.
    int64_t HighestForWalkUpTo(int d, int64_t limit, int64_t lowest);
    // The largest sum of row d from `lowest` to `limit`, or -1 when the row has none there; from
    // 0 there is always one.
    int64_t HighestUpTo(int d, int64_t limit, int64_t lowest = 0);
    // The counts of lengths 1 to count - 1 that make `sum`, a sum of row 1, into counts[1] to
    // counts[count - 1]: of all that make it, the one with the most pieces of length 1, then of
    // length 2, and so on.
    void CountsOf(int64_t sum, int64_t* counts);

private:
    // What a build is made from: the lengths in the search's order and in the order of the
    // rows, the rows by residue and the highest sum of the rows of bits.
    struct Layout {
        int count = 0;
        int64_t bar = 0;
        std::vector<int64_t> length;  // in the search's order
        std::vector<int64_t> most;
        std::vector<int64_t> rowLength;  // in the order of the rows
        std::vector<int64_t> rowMost;
        // The places of the lengths on top, in the search's order; for each place d, the first
        // row of the other lengths from d on, and the first of the lengths on top from d on.
        std::vector<int> few;
        std::vector<int> othersFrom;
        std::vector<int> fewFrom;
        std::vector<int64_t> fewWays;  // the combinations of the lengths on top from the k-th on
        int modulusRow = 0;            // rows 1 to this one go by residue
        int64_t modulus = 0;  // the length of the modulus row; 0 when no row goes by residue
        int64_t bitsBar = 0;  // the highest sum that a row of bits holds
        // The rows of bits from the bottom up: the highest sum, then each row's length and most
        // pieces up to it. Once the rows are built, the rows by residue in the same way.
        std::vector<int64_t> sources;
    };

    // Lays out the rows for these lengths into `into`, making none. Returns how many rows of
    // bits of the last build stand for them, -1 when not even the empty row at the bottom does;
    // `spacing` 0 is set to the table's size.
    int Lay(int count, const int64_t* lengths, const int64_t* most, int64_t bar, int& spacing,
            Layout& into) const;
    // Puts the lengths of which only a few pieces are allowed at the top of the table's rows.
    static void OrderRows(Layout& layout);
    // What making row d writes, in words or numbers.
    static int64_t RowWork(const Layout& layout, int d);
    // The highest sum from `lowest` to `limit` (-1 for none) of table row `row` with pieces of
    // the lengths on top from the k-th on added.
    int64_t HighestWithFew(int k, int row, int64_t limit, int64_t lowest);
    // The same for the sums of table row d alone.
    int64_t RowHighest(int d, int64_t limit, int64_t lowest);
    // The deepest row d >= 1 whose length can go in as often as the bar holds it and is short
    // enough for rows by residue to be the smaller table; 0 when there is none.
    static int ModulusRow(int count, const int64_t* lengths, const int64_t* most, int64_t bar);
    // The most that lengths `from` to count - 1 make together, up to the bar.
    static int64_t SumsUpTo(int from, int count, const int64_t* lengths, const int64_t* most,
                            int64_t bar);
    // Rows by residue, 1 to the modulus row: a sum up to the bar belongs to row d when it is at
    // least the least sum of its residue, since the modulus length, in every such row, can be
    // added again and again to reach the others. The row of the modulus length takes the least
    // sums from the bits of the row below it. Rows the last build made the same way stand.
    void BuildResidues();
    // How many rows by residue of the last build, from the modulus row up, stand for `layout`,
    // whose sources become those of its rows by residue.
    std::size_t ResidueRowsStanding(Layout& layout) const;
    void BuildBits(int spacing, int standing);
    void AddAnyCountToResidues(int32_t* row, int64_t length);
    void AddOnceToResidues(int32_t* row, int64_t length);

    bool ByResidue(int d) const { return d <= built_.modulusRow; }
    bool IsKept(int d) const { return (built_.count - d) % spacing_ == 0; }
    // The kept row at or above row d, which the rows between it and d are worked out from.
    int KeptAbove(int d) const { return d + (built_.count - d) % spacing_; }
    uint64_t* Slot(std::size_t slot) { return bits_.get() + slot * words_; }
    uint64_t* Row(int d);
    // The most pieces of length d, at most most[d], that leave a sum of row d + 1 from `sum`, a
    // sum of row d.
    int64_t MostPiecesLeaving(int d, int64_t sum);
    // The first row from d on that is read without working rows out again.
    int ReadyRow(int d) const;
    // Whether lengths d to end - 1 make all of `sum` but a sum of row `end` within `steps`
    // counts tried, the steps left counted down; their counts, as CountsOf orders them, into
    // `counts`.
    bool FillUpTo(int d, int end, int64_t sum, int64_t* counts, int64_t& steps);
    // Row d from row d + 1 at `from`, into `to`.
    void AddLength(int d, const uint64_t* from, uint64_t* to);
    void AddShifted(const uint64_t* from, uint64_t* to, int64_t shift);
    void AddAnyCount(const uint64_t* from, uint64_t* to, int64_t shift);

    Layout built_;    // that of the rows the table holds
    Layout planned_;  // that of a build weighed or at work
    int spacing_ = 1;
    std::size_t keptSlots_ = 0;
    int segmentTop_ = 0;  // the kept row whose rows below are in the spare slots
    std::size_t words_ = 0;
    RowMemory bits_;
    std::size_t bitsCapacity_ = 0;  // in words
    std::vector<int32_t> least_;
    std::vector<int32_t> before_;     // a row by residue before a chunk is added
    std::vector<uint64_t> suffixes_;  // a block's suffixes while a row adds a window of counts
    // A least sum that stands for none. Sums past the bar are kept below it like any other, so
    // that a row serves every bar whose rows are made the same way.
    static constexpr int32_t None = INT32_MAX;
    // What the rows of the last build were made from, so that the next build keeps the rows it
    // shares with it: for the rows of bits the highest sum and each row's length and most
    // pieces; for the rows by residue, from the modulus row up, each row's length and most
    // pieces, -1 for any number. Empty when nothing stands.
    std::vector<int64_t> bitsSources_;
    std::vector<int64_t> residueSources_;
};

}  // namespace brennik
