#include "engine/find_best_pattern.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

#include "engine/pattern_memo.h"
#include "engine/reach_table.h"

namespace brennik {

float Scale100(float x) {
    // An f32 times 100 is exact in double; the nearest whole number removes the binary remainder
    // of the entry's two decimals. Adding a half is exact too, as the product stays far below
    // 2 to the power 52, so the whole part of the sum is the nearest whole number.
    const double hundredths = static_cast<double>(x) * 100.0;
    if (!(std::fabs(hundredths) < 0x1p52)) {
        return static_cast<float>(hundredths);  // already whole, or not a number at all
    }
    const auto nearest = hundredths < 0 ? -static_cast<int64_t>(0.5 - hundredths)
                                        : static_cast<int64_t>(hundredths + 0.5);
    return static_cast<float>(nearest);
}

namespace {

// The x in 0..modulus-1 with value times x equal to 1 modulo `modulus`, for value and modulus
// without a common divisor; 0 for a modulus of 1.
int64_t InverseModulo(int64_t value, int64_t modulus) {
    // Extended Euclid: each remainder r stays equal to its coefficient times value.
    int64_t r0 = modulus, r1 = value % modulus, x0 = 0, x1 = 1;
    while (r1 != 0) {
        const int64_t q = r0 / r1;
        r0 = std::exchange(r1, r0 - q * r1);
        x0 = std::exchange(x1, x0 - q * x1);
    }
    return modulus == 1 ? 0 : (x0 % modulus + modulus) % modulus;
}

// Bars up to this many hundredths (every admissible bar) may be solved by the table of
// reachable sums, whose memory grows with the bar: a bit per hundredth for each length.
constexpr int64_t ReachLimit = int64_t{1} << 24;
// The most counts a walk on such a bar may try before it gives way to the table: lengths that
// never fill a bar exactly can make the walk's tree grow beyond any wait. A walk gives way
// sooner, after about as many tries as the table would cost, its rows that stand from the last
// search left out; but never before MinWalkBudget, which most walks stay well within (a sixteenth
// of it after walks on the bar gave way).
constexpr int64_t DefaultWalkBudget = 200000;
constexpr int64_t MinWalkBudget = 2000;
// How many walks on a bar may give way in a row before the budget of the next falls further.
// Lengths that mostly fill a bar exactly have runs of a few walks that give way, after which a
// walk with the full budget again finds the pattern; lengths that rarely do have walks that give
// way nearly every time, whose tries would otherwise cost a fifth of the press and more.
constexpr int GiveWayRun = 8;
// The table's work that takes as long as one try of a walk.
constexpr int64_t WorkPerTry = 80;
// A walk reads the table of an earlier search to rule out the counts of a length only while
// more than this many lengths remain from the next one on: the branches below fewer are small,
// and a read, mostly out of the cache, costs more than they do. (Measured on twenty presses of
// the slowest problems found: 5, 8 and 12 lengths took 16.0, 12.3 and 16.3 s of processor time.)
constexpr int ShortBranch = 8;
std::atomic<int64_t> walkBudget{DefaultWalkBudget};

// One table per thread, so that searches running side by side never share one; its rows stand
// from one search to the next.
ReachTable& ThreadTable() {
    thread_local ReachTable table;
    return table;
}

// One branch-and-bound walk over the lengths still wanted. Counts are visited from high to low
// with the first length outermost, and a candidate replaces the best only when it wastes
// strictly less, so the result is that of the complete enumeration. Branches are cut where
// they cannot reach a strictly smaller waste: a remainder below 0, a remainder that the
// deeper lengths cannot fill below the best, one whose residue modulo the deeper lengths'
// common divisor is already no better, or one that the table of an earlier search, holding at
// least every sum of the deeper lengths, cannot fill below the best. The walk stops at the
// least waste the lengths allow.
// Where the walk grows too large, the same pattern is read off a table of reachable sums.
class PatternWalk {
public:
    void Add(int cutRow, int64_t length, int64_t maxCount) {
        rows_[count_] = cutRow;
        length_[count_] = length;
        max_[count_] = maxCount;
        ++count_;
    }

    // Returns the least waste found, or `bar` when no pattern exists; counts in best().
    // `gaveWayInARow` tells how many of the last walks on this bar, in a row, gave way to the
    // table. A table holds the sums up to `tableTop`, at least the bar, so that the searches on
    // the several bars of a problem build the same table.
    int64_t Run(int64_t bar, int gaveWayInARow, int64_t tableTop) {
        capacity_[count_] = 0;
        divisor_[count_] = 0;
        shortest_[count_] = bar + 1;
        longest_[count_] = 0;
        pieces_[count_] = 0;
        difference_[count_] = 0;
        longestFirst_ = true;
        for (int d = count_ - 1; d >= 0; --d) {
            capacity_[d] = capacity_[d + 1] + max_[d] * length_[d];
            divisor_[d] = std::gcd(divisor_[d + 1], length_[d]);
            shortest_[d] = std::min(shortest_[d + 1], length_[d]);
            longest_[d] = std::max(longest_[d + 1], length_[d]);
            pieces_[d] = pieces_[d + 1] + max_[d];
            const int64_t next = d + 1 < count_ ? length_[d + 1] : length_[d];
            difference_[d] = std::gcd(difference_[d + 1], length_[d] - next);
            longestFirst_ = longestFirst_ && length_[d] >= next;
            // The residue of a sum of m pieces steps by this much with each piece, and comes
            // round again after `period_` pieces.
            step_[d] = difference_[d] > 0 ? length_[d] % difference_[d] : 0;
            period_[d] =
                difference_[d] > 0 ? difference_[d] / std::gcd(step_[d], difference_[d]) : 1;
            // The count of pieces that brings the residue 1 on, in the steps of the divisor.
            stepInverse_[d] = InverseModulo(step_[d] / divisor_[d], period_[d]);
        }
        bestWaste_ = bar;
        floor_ = divisor_[0] > 0 ? bar % divisor_[0] : bar;
        done_ = false;
        tries_ = 0;
        budget_ = -1;
        covered_ = false;
        if (bar <= ReachLimit) {
            SetTableCounts(bar, std::min(tableTop, ReachLimit));
            budget_ = WalkBudget(gaveWayInARow);
            covered_ =
                ThreadTable().Covers(count_, length_.data(), max_.data(), bar, coverRow_.data());
        }
        Visit(0, bar);
        gaveWay_ = budget_ >= 0 && tries_ > budget_;
        if (gaveWay_) {
            SolveByReach(bar);
        }
        return bestWaste_;
    }

    // Whether the walk gave way to the table.
    bool GaveWay() const { return gaveWay_; }
    int Size() const { return count_; }
    int CutRow(int d) const { return rows_[d]; }
    int64_t BestCount(int d) const { return best_[d]; }

    PatternMemo::Key MemoKey(int64_t bar) const {
        PatternMemo::Key key;
        key.bar = static_cast<int32_t>(bar);
        key.size = count_;
        for (int d = 0; d < count_; ++d) {
            key.items[2 * d] = static_cast<int32_t>(length_[d]);
            key.items[2 * d + 1] = static_cast<int32_t>(max_[d]);
        }
        return key;
    }
    PatternMemo::Answer MemoAnswer() const {
        PatternMemo::Answer answer;
        answer.waste = bestWaste_;
        for (int d = 0; d < count_; ++d) {
            answer.counts[d] = static_cast<int32_t>(best_[d]);
        }
        return answer;
    }
    void Recall(const PatternMemo::Answer& answer) {
        bestWaste_ = answer.waste;
        for (int d = 0; d < count_; ++d) {
            best_[d] = answer.counts[d];
        }
    }

private:
    // About as many tries as the table would cost, so that a walk that must give way wastes
    // no more than the table's own work. After the last walk on the bar gave way, as the next
    // one mostly does too, a quarter of that; and never less than a sixteenth of the least
    // budget: where the table stands, reading it costs less than a long walk. After a longer run
    // of walks that gave way, the quarter is halved for each further one.
    int64_t WalkBudget(int gaveWayInARow) const {
        const int64_t tableTries =
            ThreadTable().WorkToBuild(count_, length_.data(), tableMost_.data(), tableTop_) /
            WorkPerTry;
        const int64_t cap = walkBudget.load(std::memory_order_relaxed);
        if (gaveWayInARow == 0) {
            return std::min(cap, std::max(MinWalkBudget, tableTries));
        }
        const int halvings = std::max(gaveWayInARow - GiveWayRun, 0);
        return std::min(cap, std::max(MinWalkBudget / 16, tableTries / 4 >> halvings));
    }

    // Whether lengths depth, depth+1, ... may fill `rest` leaving less than `target` over.
    // Only counts of pieces that fit, and whose longest sum leaves less than `target`, may. As
    // every length is the same modulo the lengths' common difference, the sum of a count of
    // pieces is fixed modulo it by the count alone; over a whole period of counts the residues
    // take every value the lengths' common divisor allows, of which the least is tried above.
    bool CanLeaveLess(int depth, int64_t rest, int64_t target) const {
        if (rest < target) {
            return true;  // no piece at all
        }
        // Lengths without a common divisor, the most usual ones, leave a residue of 0 without
        // the dear division.
        const int64_t divisor = divisor_[depth];
        const int64_t leastResidue = divisor > 1 ? rest % divisor : 0;
        if (rest < shortest_[depth] || leastResidue >= target) {
            return false;
        }
        const int64_t most = MostPieces(depth, rest);
        if (!LongestPiecesExceed(depth, most, rest - target)) {
            return false;
        }
        // Only where the residue comes round after more than one piece does the count matter.
        const int64_t difference = difference_[depth];
        const int64_t period = period_[depth];
        if (difference == 0 || period == 1) {
            return true;
        }
        const int64_t fewest = FewestPieces(depth, rest - target);
        if (most - fewest + 1 >= period) {
            return true;
        }
        if (target / divisor < most - fewest) {
            // Fewer residues below the target than counts to try. The counts that leave a
            // residue are one class modulo the period, which has a count in range when its
            // highest one up to `most` lies no more than most - fewest below it. Each next
            // residue moves the class on by the inverse of the step.
            const int64_t inverse = stepInverse_[depth];
            int64_t below = (most - rest / divisor % period * inverse) % period;
            below += below < 0 ? period : 0;
            for (int64_t residue = leastResidue; residue < target; residue += divisor) {
                if (below <= most - fewest) {
                    return true;
                }
                below += inverse;
                below -= below >= period ? period : 0;
            }
            return false;
        }
        // The residue left by `most` pieces, and by one piece fewer at each step.
        int64_t residue = (rest - most * step_[depth]) % difference;
        residue += residue < 0 ? difference : 0;
        for (int64_t pieces = most; pieces >= fewest; --pieces) {
            if (residue < target) {
                return true;
            }
            residue += step_[depth];
            residue -= residue >= difference ? difference : 0;
        }
        return false;
    }

    // The most pieces of lengths depth, depth+1, ... that fit in `rest`, shortest first. With
    // the lengths in any other order, as many as the shortest length allows.
    int64_t MostPieces(int depth, int64_t rest) const {
        if (!longestFirst_) {
            return std::min(rest / shortest_[depth], pieces_[depth]);
        }
        // Lengths from `whole` on fit with all their pieces; of the one before, as many as fit.
        // Mostly not even the shortest length fits with all its pieces, which one look tells.
        const int whole =
            capacity_[count_ - 1] > rest
                ? count_
                : static_cast<int>(std::partition_point(capacity_.begin() + depth,
                                                        capacity_.begin() + count_,
                                                        [&](int64_t sum) { return sum > rest; }) -
                                   capacity_.begin());
        const int64_t more =
            whole > depth
                ? std::min(max_[whole - 1], (rest - capacity_[whole]) / length_[whole - 1])
                : 0;
        return pieces_[whole] + more;
    }

    // The fewest pieces of lengths depth, depth+1, ... whose sum may exceed `sum`, longest
    // first; more than they hold when all of them together do not. With the lengths in any
    // other order, as few as the longest length allows.
    int64_t FewestPieces(int depth, int64_t sum) const {
        if (capacity_[depth] <= sum) {
            return pieces_[depth] + 1;
        }
        if (!longestFirst_) {
            return sum / longest_[depth] + 1;
        }
        // Lengths before `part` give all their pieces and no more than `sum`; of `part`, as many
        // as it takes to pass it. Mostly the pieces of the longest length alone pass it, which
        // one look tells.
        const auto givesNoMore = [&](int64_t below) { return capacity_[depth] - below <= sum; };
        const int part =
            !givesNoMore(capacity_[depth + 1])
                ? depth
                : static_cast<int>(std::partition_point(capacity_.begin() + depth,
                                                        capacity_.begin() + count_, givesNoMore) -
                                   capacity_.begin()) -
                      1;
        const int64_t given = capacity_[depth] - capacity_[part];
        return pieces_[depth] - pieces_[part] + (sum - given) / length_[part] + 1;
    }

    // Whether the longest `pieces` pieces of lengths depth, depth+1, ... may exceed `sum`: no
    // fewer pieces than the fewest that may. Mostly they are all of the longest length, which
    // one product tells.
    bool LongestPiecesExceed(int depth, int64_t pieces, int64_t sum) const {
        if (longestFirst_ && pieces <= max_[depth]) {
            return pieces * length_[depth] > sum;
        }
        return FewestPieces(depth, sum) <= pieces;
    }

    // Whether the table of an earlier search, which holds at least every sum of lengths depth,
    // depth+1, ..., has one that fills `rest` leaving less than the best waste.
    bool TableCanLeaveLess(int depth, int64_t rest) const {
        const int64_t lowest = std::max<int64_t>(0, rest - bestWaste_ + 1);
        return ThreadTable().HighestForWalkUpTo(coverRow_[depth], rest, lowest) >= 0;
    }

    // The table's top and its most pieces of each length: a length of which the bar holds no
    // more pieces than allowed goes in as often as the top holds it, which makes the same sums
    // up to the bar, and the same rows on every bar.
    void SetTableCounts(int64_t bar, int64_t top) {
        tableTop_ = std::max(bar, top);
        for (int d = 0; d < count_; ++d) {
            tableMost_[d] = max_[d] >= bar / length_[d] ? tableTop_ / length_[d] : max_[d];
        }
    }

    // The least waste is that of the largest sum of pieces not above the bar, with at least one
    // piece of the first length; of the count vectors that make it, the walk's order meets
    // the one with the most pieces of the first length first, then of the second, and so on.
    void SolveByReach(int64_t bar) {
        ReachTable& reach = ThreadTable();
        reach.Build(count_, length_.data(), tableMost_.data(), tableTop_);
        int64_t bestSum = -1;
        for (int64_t c = std::min(max_[0], bar / length_[0]); c >= 1 && bar - bestSum > floor_;
             --c) {
            const int64_t rest = bar - c * length_[0];
            if (!CanLeaveLess(1, rest, bar - bestSum)) {
                continue;  // the table need not be read where the bound rules it out
            }
            // Only a sum above the best one found so far is looked for.
            const int64_t below =
                reach.HighestUpTo(1, rest, std::max<int64_t>(0, bestSum - c * length_[0] + 1));
            if (below >= 0) {
                bestSum = c * length_[0] + below;
                best_[0] = c;
            }
        }
        reach.CountsOf(bestSum - best_[0] * length_[0], best_.data());
        bestWaste_ = bar - bestSum;
    }

    void Visit(int depth, int64_t rest) {
        if (depth == count_) {
            if (rest < bestWaste_) {
                bestWaste_ = rest;
                std::copy(current_.begin(), current_.begin() + count_, best_.begin());
                done_ = bestWaste_ == floor_;
            }
            return;
        }
        int64_t high = std::min(max_[depth], rest / length_[depth]);
        int64_t low = depth == 0 ? 1 : 0;
        for (int64_t c = high; c >= low && !done_; --c) {
            if (budget_ >= 0 && tries_++ >= budget_) {
                done_ = true;  // the walk gives way to the table
                return;
            }
            int64_t left = rest - c * length_[depth];
            if (left - capacity_[depth + 1] >= bestWaste_) {
                break;  // fewer pieces here only leave more to fill below
            }
            if (!CanLeaveLess(depth + 1, left, bestWaste_) ||
                (covered_ && count_ - depth - 1 > ShortBranch &&
                 !TableCanLeaveLess(depth + 1, left))) {
                continue;
            }
            current_[depth] = c;
            Visit(depth + 1, left);
        }
    }

    int count_ = 0;
    // Only the first count_ places are ever read, each after it is written; leaving the
    // rest unset spares every call the clearing of a few kilobytes.
    std::array<int, MaxCutLengths> rows_;
    std::array<int64_t, MaxCutLengths> length_;
    std::array<int64_t, MaxCutLengths> max_;
    std::array<int64_t, MaxCutLengths> tableMost_;
    int64_t tableTop_ = 0;
    std::array<int64_t, MaxCutLengths + 1> capacity_;
    std::array<int64_t, MaxCutLengths + 1> divisor_;
    std::array<int64_t, MaxCutLengths + 1> shortest_;
    std::array<int64_t, MaxCutLengths + 1> longest_;
    std::array<int64_t, MaxCutLengths + 1> pieces_;      // the most pieces of all lengths together
    std::array<int64_t, MaxCutLengths + 1> difference_;  // the gcd of the lengths' differences
    std::array<int64_t, MaxCutLengths + 1> step_;
    std::array<int64_t, MaxCutLengths + 1> period_;
    std::array<int64_t, MaxCutLengths + 1> stepInverse_;
    bool longestFirst_ = true;  // lengths never grow with depth, as the program orders them
    std::array<int64_t, MaxCutLengths> current_;
    std::array<int64_t, MaxCutLengths> best_;
    int64_t bestWaste_ = 0;
    int64_t floor_ = 0;
    bool done_ = false;
    int64_t tries_ = 0;
    int64_t budget_ = -1;  // no budget: the bar is too long for the table
    bool gaveWay_ = false;
    // Whether the thread's table holds every sum of the lengths from each place on, and for
    // each place the row that does.
    bool covered_ = false;
    std::array<int, MaxCutLengths> coverRow_;
};

// What a thread knows of one bar for the cutting lengths of the present problem: how many
// pieces of each length it holds, and the last pattern found for it.
struct BarFacts {
    int64_t bar = 0;
    std::array<int64_t, MaxCutLengths> fits{};  // by cutting row, from 0
    // The last pattern, by cutting row, and the question it answered: the first length still
    // wanted (0 for none yet) and the most pieces of each length allowed. It answers every later
    // question of the same first length whose limits are no higher and still allow it: those
    // patterns are among the ones it beat, so it stays the least waste, and the first of equals.
    int first = 0;
    std::array<int64_t, MaxCutLengths> most{};
    std::array<int64_t, MaxCutLengths> counts{};
    int64_t waste = 0;
    // How many walks here in a row, up to the last one, gave way to a table.
    int walksGivenWay = 0;

    bool Answers(int firstWanted, const std::array<int64_t, MaxCutLengths>& limits,
                 int count) const {
        if (first != firstWanted) {
            return false;
        }
        for (int i = 0; i < count; ++i) {
            if (limits[i] > most[i] || counts[i] > limits[i]) {
                return false;
            }
        }
        return true;
    }
};

// The cutting lengths in hundredths and the facts of each bar. The lengths stay the same for
// every search of a press, so each thread works them out once, not in every search; a search
// of other lengths starts them afresh.
class LengthScales {
public:
    // The facts of `bar` for these lengths (1..count).
    BarFacts& Of(const CutRows<float>& cutLengths, int count, int64_t bar) {
        if (count != count_ ||
            !std::equal(&cutLengths(1), &cutLengths(1) + count, source_.begin())) {
            count_ = count;
            std::copy(&cutLengths(1), &cutLengths(1) + count, source_.begin());
            for (int i = 0; i < count; ++i) {
                lengths_[i] = static_cast<int64_t>(Scale100(source_[i]));
            }
            barsKnown_ = 0;
        }
        for (int k = 0; k < barsKnown_; ++k) {
            if (bars_[k].bar == bar) {
                return bars_[k];
            }
        }
        const int k = barsKnown_ < KnownBars ? barsKnown_++ : static_cast<int>(bar % KnownBars);
        BarFacts& facts = bars_[k];
        facts = BarFacts{};
        facts.bar = bar;
        for (int i = 0; i < count; ++i) {
            facts.fits[i] = lengths_[i] > 0 ? bar / lengths_[i] : 0;
        }
        return facts;
    }
    // Length i (1..count) in hundredths.
    int64_t Length(int i) const { return lengths_[i - 1]; }

private:
    // Every standard length of a problem, and the bars of the tests' random searches beside.
    static constexpr int KnownBars = 8;
    int count_ = -1;
    std::array<float, MaxCutLengths> source_{};
    std::array<int64_t, MaxCutLengths> lengths_{};
    int barsKnown_ = 0;
    std::array<BarFacts, KnownBars> bars_{};
};

// One memory per thread, so that searches running side by side never share one.
PatternMemo& ThreadMemo() {
    thread_local PatternMemo memo;
    return memo;
}

// The longest standard length up to twice the bar, or the bar: the searches on the bars of a
// problem, mostly no further apart, then read the same table, which stands from one to the next.
int64_t TableTop(const Module1& m, int64_t bar) {
    int64_t top = bar;
    for (int row = 1; row <= MaxStdLengths; ++row) {
        const auto length = static_cast<int64_t>(Scale100(m.StdLength(row)));
        if (length > top && length <= 2 * bar) {
            top = length;
        }
    }
    return top;
}

}  // namespace

void ForgetPatterns() {
    ThreadMemo().Clear();
}

namespace {
std::atomic<PatternSearch> activeSearch{&FindBestPattern};
}

void UsePatternSearch(PatternSearch search) {
    activeSearch = search != nullptr ? search : &FindBestPattern;
}

void SetWalkBudget(int64_t tries) {
    walkBudget = tries >= 0 ? tries : DefaultWalkBudget;
}

PatternSearch CurrentPatternSearch() {
    return activeSearch.load(std::memory_order_relaxed);
}

void FindBestPattern(Module1& m, float stdLength, float price, const CutRows<float>& cutLengths,
                     const CutRows<int32_t>& cutQtys, uint8_t row) {
    m.EngineStd = row;
    const auto bar = static_cast<int64_t>(Scale100(stdLength));
    const float scaledPrice = Scale100(price);

    // The walk covers the first length still wanted (at least one piece of it) and every later
    // length of which a piece fits; all other counts are 0.
    thread_local LengthScales scales;
    BarFacts& facts = scales.Of(cutLengths, m.CutCount, bar);
    std::array<int64_t, MaxCutLengths> limits;
    int first = 0;
    for (int i = 1; i <= m.CutCount; ++i) {
        limits[i - 1] = std::min<int64_t>(facts.fits[i - 1], std::max(cutQtys(i), 0));
        if (first == 0 && cutQtys(i) > 0) {
            first = i;
        }
    }
    const bool firstFits = first > 0 && limits[first - 1] >= 1;

    int64_t bestWaste = bar;
    if (firstFits && facts.Answers(first, limits, m.CutCount)) {
        bestWaste = facts.waste;
    } else if (firstFits) {
        PatternWalk walk;
        for (int i = first; i <= m.CutCount; ++i) {
            if (limits[i - 1] > 0) {
                walk.Add(i, scales.Length(i), limits[i - 1]);
            }
        }
        PatternMemo& memo = ThreadMemo();
        const PatternMemo::Key key = walk.MemoKey(bar);
        if (const PatternMemo::Answer* known = memo.Find(key)) {
            walk.Recall(*known);
            bestWaste = known->waste;
        } else {
            bestWaste = walk.Run(bar, facts.walksGivenWay, TableTop(m, bar));
            memo.Remember(key, walk.MemoAnswer());
            // Past 62 halvings the budget is at its least; the count stops there.
            facts.walksGivenWay =
                walk.GaveWay() ? std::min(facts.walksGivenWay + 1, GiveWayRun + 62) : 0;
        }
        facts.first = first;
        facts.most = limits;
        facts.counts.fill(0);
        for (int d = 0; d < walk.Size(); ++d) {
            facts.counts[walk.CutRow(d) - 1] = walk.BestCount(d);
        }
        facts.waste = bestWaste;
    }
    const bool found = firstFits && bestWaste < bar;

    m.RankMat(row, 2) = row;
    if (found) {
        int64_t bars = NoBarLimit;
        bool anyPiece = false;
        for (int i = first; i <= m.CutCount; ++i) {
            const int64_t pieces = facts.counts[i - 1];
            if (pieces > 0) {
                m.PatternPieces(row, i) = static_cast<int32_t>(pieces);
                const int64_t limit = cutQtys(i) / pieces;
                bars = anyPiece ? std::min(bars, limit) : limit;
                anyPiece = true;
            }
        }
        m.PatternBars(row) = static_cast<int32_t>(bars);
        m.RankMat(row, 1) = static_cast<float>(bestWaste) / 100.0f;
    } else {
        m.PatternBars(row) = 0;
        m.RankMat(row, 1) = NoPatternWaste;
    }

    if (m.MethodA) {
        const auto used = static_cast<float>(bar - bestWaste);
        m.RankMon(row, 2) = row;
        if (used > 0 && scaledPrice > 0) {
            m.RankMon(row, 1) = scaledPrice / used;
        } else {
            m.PatternBars(row) = 0;
            m.RankMon(row, 1) = NoPatternRate;
        }
    }
}

}  // namespace brennik
