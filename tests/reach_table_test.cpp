// The table of reachable sums against sums worked out one by one, for every row and sum up to
// the bar, with every row kept, with only every few kept, and by residue above rows of bits.
#include "engine/reach_table.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace brennik {
namespace {

// The sums each suffix of the lengths makes, one bool per sum, count by count.
std::vector<std::vector<bool>> SumsBySuffix(const std::vector<int64_t>& lengths,
                                            const std::vector<int64_t>& most, int64_t bar) {
    const int count = static_cast<int>(lengths.size());
    std::vector<std::vector<bool>> rows(count + 1, std::vector<bool>(bar + 1, false));
    rows[count][0] = true;
    for (int d = count - 1; d >= 1; --d) {
        for (int64_t sum = 0; sum <= bar; ++sum) {
            for (int64_t c = 0; c <= most[d] && c * lengths[d] <= sum && !rows[d][sum]; ++c) {
                rows[d][sum] = rows[d + 1][sum - c * lengths[d]];
            }
        }
    }
    return rows;
}

// Builds the table with rows kept `spacing` apart and checks every row against the sums worked
// out one by one, reading rows top down, then bottom up, as the searches read them.
void ExpectEveryRowExact(ReachTable& table, const std::vector<int64_t>& lengths,
                         const std::vector<int64_t>& most, int64_t bar, int spacing) {
    const int count = static_cast<int>(lengths.size());
    const auto expected = SumsBySuffix(lengths, most, bar);
    table.Build(count, lengths.data(), most.data(), bar, spacing);
    for (int pass = 0; pass < 2; ++pass) {
        for (int k = 1; k <= count; ++k) {
            const int d = pass == 0 ? count + 1 - k : k;
            int64_t highest = -1;
            for (int64_t sum = 0; sum <= bar; ++sum) {
                ASSERT_EQ(table.Has(d, sum), expected[d][sum]) << "row " << d << " sum " << sum;
                highest = expected[d][sum] ? sum : highest;
                ASSERT_EQ(table.HighestUpTo(d, sum), highest) << "row " << d;
                const int64_t lowest = sum - sum % 97;
                ASSERT_EQ(table.HighestUpTo(d, sum, lowest), highest >= lowest ? highest : -1)
                    << "row " << d << " from " << lowest;
            }
        }
    }
}

TEST(ReachTable, EveryRowHoldsExactlyTheSumsOfItsLengths) {
    ReachTable table;
    // Below the modulus row, 70 goes in 3 times at most, which is as often as the 278 that its
    // row can make holds it: its row adds it any number of times, and the fourth piece, 280, lies
    // in the row's last word beyond 278. The row by residue above must not take it for a sum.
    ExpectEveryRowExact(table, {500, 97, 70, 68}, {12, 65, 3, 1}, 6400, 1);
    std::mt19937 random(17);
    for (int trial = 0; trial < 90; ++trial) {
        const int count = 2 + static_cast<int>(random() % 12);
        const int64_t bar = 200 + static_cast<int64_t>(random() % 1500);
        std::vector<int64_t> lengths(count), most(count);
        // Every third table has a short length that goes in as often as it fits, the last one
        // or one with lengths below it: the rows down to it go by residue.
        const int modulusRow = trial % 3 == 2 ? 1 + static_cast<int>(random() % (count - 1)) : 0;
        for (int d = 0; d < count; ++d) {
            // Short and long lengths, so that both ways of adding counts are taken.
            const bool byResidue = d == modulusRow;
            lengths[d] = trial % 2 == 0 ? 7 + random() % 60 : 64 + random() % 300;
            if (byResidue) {
                lengths[d] = 2 + static_cast<int64_t>(random() % (bar / 64 - 1));
            }
            // A limit below the bar's: a few pieces, or up to one fewer than fit, so that long
            // lengths take the window of counts over many blocks of a row.
            const int64_t fit = bar / lengths[d];
            most[d] = byResidue || random() % 3 == 0 ? fit
                      : random() % 2 == 0            ? random() % 5
                                                     : random() % std::max<int64_t>(fit, 1);
        }
        for (int spacing : {1, 2, 3, 5}) {
            SCOPED_TRACE("trial " + std::to_string(trial) + ", rows kept " +
                         std::to_string(spacing) + " apart");
            ExpectEveryRowExact(table, lengths, most, bar, spacing);
        }
    }
}

// A table built again for lengths that share their last rows with the last build, as the
// searches of a press do: the first lengths used up, a limit lowered, another bar. Every other
// trial keeps every third row only, so that rows between kept ones are worked out again.
TEST(ReachTable, RowsKeptFromTheLastBuildAreThoseOfTheNewLengths) {
    std::mt19937 random(29);
    ReachTable table;
    for (int trial = 0; trial < 40; ++trial) {
        SCOPED_TRACE("trial " + std::to_string(trial));
        int64_t bar = 1300 + static_cast<int64_t>(random() % 400);
        const int count = 4 + static_cast<int>(random() % 8);
        std::vector<int64_t> lengths(count), wanted(count);
        for (int d = 0; d < count; ++d) {
            lengths[d] = d + 1 == count ? 2 + random() % 18 : 7 + random() % 300;
            wanted[d] = d + 1 == count || random() % 2 == 0 ? 9999 : 1 + random() % 6;
        }
        for (int change = 0; change < 4 && lengths.size() > 2; ++change) {
            std::vector<int64_t> most(lengths.size());
            for (std::size_t d = 0; d < lengths.size(); ++d) {
                most[d] = std::min(wanted[d], bar / lengths[d]);
            }
            // A walk weighs the table before it gives way, or finds the pattern without it.
            std::vector<int64_t> other = most;
            other.back() /= 2;
            table.WorkToBuild(static_cast<int>(lengths.size()), lengths.data(), other.data(), bar);
            ExpectEveryRowExact(table, lengths, most, bar, trial % 2 == 0 ? 1 : 3);
            if (change == 0) {
                lengths.erase(lengths.begin());
                wanted.erase(wanted.begin());
            } else if (change == 1) {
                const std::size_t d = random() % (lengths.size() - 1);
                wanted[d] = std::max<int64_t>(1, std::min(wanted[d], bar / lengths[d]) / 2);
            } else {
                bar += change == 2 ? 37 : -61;
            }
        }
    }
}

// A search on the last build's lengths, some used up and others allowed fewer pieces, on a bar
// no longer, may read the built rows as holding every sum it can make, as may its walk; one that
// allows more pieces of a length, holds a length the build did not, or has a longer bar may not.
TEST(ReachTable, CoveringRowsHoldEverySumOfTheLengthsLeft) {
    std::mt19937 random(41);
    ReachTable table;
    for (int trial = 0; trial < 60; ++trial) {
        SCOPED_TRACE("trial " + std::to_string(trial));
        const int64_t bar = 600 + static_cast<int64_t>(random() % 900);
        const int count = 3 + static_cast<int>(random() % 9);
        std::vector<int64_t> lengths(count), most(count);
        for (int d = 0; d < count; ++d) {
            lengths[d] = 20 + 45 * d + static_cast<int64_t>(random() % 40);  // all different
            most[d] = random() % 3 == 0 ? bar / lengths[d] : random() % 5;
        }
        table.Build(count, lengths.data(), most.data(), bar);
        std::vector<int64_t> left{lengths[0]}, leftMost{most[0]};
        int64_t lastBuiltMost = most[0];
        for (int d = 1; d < count; ++d) {
            if (random() % 3 != 0) {
                left.push_back(lengths[d]);
                leftMost.push_back(static_cast<int64_t>(random() % (most[d] + 1)));
                lastBuiltMost = most[d];
            }
        }
        const int leftCount = static_cast<int>(left.size());
        const int64_t shorter = bar - static_cast<int64_t>(random() % 100);
        std::vector<int> rows(leftCount);
        ASSERT_TRUE(table.Covers(leftCount, left.data(), leftMost.data(), shorter, rows.data()));
        const auto sums = SumsBySuffix(left, leftMost, shorter);
        for (int d = 1; d < leftCount; ++d) {
            for (int64_t sum = 0; sum <= shorter; ++sum) {
                ASSERT_TRUE(!sums[d][sum] || table.Has(rows[d], sum)) << "row " << d << ", " << sum;
                // A walk's read past a few top-length combinations holds every sum, maybe more.
                ASSERT_TRUE(!sums[d][sum] || table.HighestForWalkUpTo(rows[d], sum, sum) == sum)
                    << "walk's read of row " << d << ", " << sum;
            }
        }
        EXPECT_FALSE(table.Covers(leftCount, left.data(), leftMost.data(), bar + 1, rows.data()));
        if (leftCount > 1) {
            std::vector<int64_t> more = leftMost, other = left;
            more.back() = lastBuiltMost + 1;
            other.back() = 5;
            EXPECT_FALSE(table.Covers(leftCount, left.data(), more.data(), bar, rows.data()));
            EXPECT_FALSE(table.Covers(leftCount, other.data(), leftMost.data(), bar, rows.data()));
        }
    }
}

}  // namespace
}  // namespace brennik
