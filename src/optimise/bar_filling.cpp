#include "optimise/bar_filling.h"

#include <algorithm>
#include <numeric>

namespace brennik {

namespace {

// Depth-first branch and bound over the items in order of value per length, each count tried
// from the most that fits down to 0. A node's bound is the value of the bar filled greedily in
// that order with the last item cut to fit (the bound of the linear relaxation); it falls as the
// count of the node's item falls, so the first count whose bound cannot beat the best ends the
// node.
class Search {
public:
    Search(const std::vector<BarItem>& items, double threshold, const Deadline& deadline,
           int64_t budget)
        : deadline_(deadline), budget_(budget) {
        for (std::size_t k = 0; k < items.size(); ++k) {
            if (items[k].value > 0 && items[k].most > 0 && items[k].length > 0) {
                order_.push_back(k);
            }
        }
        std::stable_sort(order_.begin(), order_.end(), [&items](std::size_t a, std::size_t b) {
            return items[a].value * static_cast<double>(items[b].length) >
                   items[b].value * static_cast<double>(items[a].length);
        });
        for (std::size_t k : order_) {
            sorted_.push_back(items[k]);
        }
        const std::size_t n = sorted_.size();
        prefixLength_.assign(n + 1, 0);
        prefixValue_.assign(n + 1, 0);
        shortestFrom_.assign(n + 1, INT64_MAX);
        for (std::size_t d = 0; d < n; ++d) {
            prefixLength_[d + 1] = prefixLength_[d] + sorted_[d].most * sorted_[d].length;
            prefixValue_[d + 1] =
                prefixValue_[d] + static_cast<double>(sorted_[d].most) * sorted_[d].value;
        }
        for (std::size_t d = n; d-- > 0;) {
            shortestFrom_[d] = std::min(shortestFrom_[d + 1], sorted_[d].length);
        }
        counts_.assign(n, 0);
        bestCounts_.assign(n, 0);
        nodeBounds_.assign(n + 1, 0);
        // Bounds within a few units in the last place of the threshold count as not above it,
        // and a filling must beat the best by the pricing's own tolerance to be searched for.
        floor_ = threshold + 1e-12 * std::max(1.0, std::abs(threshold));
        slack_ = 1e-9 * std::max(1.0, std::abs(threshold));
    }

    BarFilling Run(const std::vector<BarItem>& items, int64_t capacity) {
        nodeBounds_[0] = Bound(0, capacity);
        if (nodeBounds_[0] > floor_) {
            Visit(0, capacity, 0);
        }
        BarFilling answer;
        answer.counts.assign(items.size(), 0);
        for (std::size_t d = 0; d < order_.size(); ++d) {
            answer.counts[order_[d]] = bestCounts_[d];
        }
        answer.value = best_;
        for (const std::vector<int64_t>& sortedCounts : runnersUp_) {
            std::vector<int64_t> counts(items.size(), 0);
            for (std::size_t d = 0; d < order_.size(); ++d) {
                counts[order_[d]] = sortedCounts[d];
            }
            answer.runnersUp.push_back(std::move(counts));
        }
        answer.complete = !stopped_;
        answer.upperBound = Floor();
        if (stopped_) {
            // Every part of the search not yet done lies under the count now open at some depth,
            // or under a lower count there, whose bound is no higher.
            for (std::size_t d = std::min<std::size_t>(1, stoppedAt_); d <= stoppedAt_; ++d) {
                answer.upperBound = std::max(answer.upperBound, nodeBounds_[d]);
            }
        }
        return answer;
    }

private:
    // The value of filling `room` with items from `depth` on, each up to its most, the first
    // that does not fit whole cut to fit.
    double Bound(std::size_t depth, int64_t room) const {
        const int64_t reach = prefixLength_[depth] + room;
        const auto last = std::upper_bound(prefixLength_.begin() + static_cast<long>(depth) + 1,
                                           prefixLength_.end(), reach);
        const auto whole = static_cast<std::size_t>(last - prefixLength_.begin()) - 1;
        double value = prefixValue_[whole] - prefixValue_[depth];
        if (whole < sorted_.size()) {
            const int64_t left = reach - prefixLength_[whole];
            value += static_cast<double>(left) * sorted_[whole].value /
                     static_cast<double>(sorted_[whole].length);
        }
        return value;
    }

    double Floor() const { return std::max(best_ + slack_, floor_); }

    // The best filling so far, about to be beaten, is worth offering too.
    void KeepRunnerUp() {
        runnersUp_.insert(runnersUp_.begin(), bestCounts_);
        if (runnersUp_.size() > MostRunnersUp) {
            runnersUp_.pop_back();
        }
    }

    static constexpr std::size_t MostRunnersUp = 3;

    void Visit(std::size_t depth, int64_t room, double value) {
        if ((++nodes_ & 1023) == 0 && (nodes_ > budget_ || deadline_.Passed())) {
            stopped_ = true;
            stoppedAt_ = depth;
        }
        if (stopped_) {
            return;
        }
        if (depth == sorted_.size() || room < shortestFrom_[depth]) {
            if (value > best_) {
                if (best_ > floor_) {
                    KeepRunnerUp();
                }
                best_ = value;
                std::fill(bestCounts_.begin(), bestCounts_.end(), 0);
                std::copy(counts_.begin(), counts_.begin() + static_cast<long>(depth),
                          bestCounts_.begin());
            }
            return;
        }
        const BarItem& item = sorted_[depth];
        for (int64_t count = std::min(item.most, room / item.length); count >= 0; --count) {
            const int64_t rest = room - count * item.length;
            const double gained = value + static_cast<double>(count) * item.value;
            const double bound = gained + Bound(depth + 1, rest);
            if (bound <= Floor()) {
                break;
            }
            counts_[depth] = count;
            nodeBounds_[depth + 1] = bound;
            Visit(depth + 1, rest, gained);
            if (stopped_) {
                return;
            }
        }
        counts_[depth] = 0;
    }

    const Deadline& deadline_;
    int64_t budget_;
    std::vector<std::size_t> order_;
    std::vector<BarItem> sorted_;
    std::vector<int64_t> prefixLength_;
    std::vector<double> prefixValue_;
    std::vector<int64_t> shortestFrom_;
    std::vector<int64_t> counts_;
    std::vector<int64_t> bestCounts_;
    std::vector<double> nodeBounds_;
    std::vector<std::vector<int64_t>> runnersUp_;
    double floor_ = 0;
    double slack_ = 0;
    double best_ = 0;
    int64_t nodes_ = 0;
    bool stopped_ = false;
    std::size_t stoppedAt_ = 0;
};

// The best filling by a table over every length the bar can be filled to, in steps of the
// common divisor of the items' lengths: each item's pieces split into parts of 1, 2, 4, ...
// pieces, each part taken whole or not. Exact, and its work is known beforehand.
class Table {
public:
    Table(const std::vector<BarItem>& items, int64_t capacity) {
        for (const BarItem& item : items) {
            if (Usable(item, capacity)) {
                step_ = std::gcd(step_, item.length);
            }
        }
        cells_ = step_ > 0 ? capacity / step_ + 1 : 1;
        for (std::size_t k = 0; k < items.size(); ++k) {
            if (!Usable(items[k], capacity)) {
                continue;
            }
            const int64_t weight = items[k].length / step_;
            int64_t left = std::min(items[k].most, (cells_ - 1) / weight);
            for (int64_t chunk = 1; left > 0; chunk *= 2) {
                const int64_t pieces = std::min(chunk, left);
                parts_.push_back(
                    {k, pieces, pieces * weight, static_cast<double>(pieces) * items[k].value});
                left -= pieces;
            }
        }
    }

    // Cells times parts: the number of steps of Run.
    double Work() const {
        return static_cast<double>(cells_) * static_cast<double>(parts_.size() + 1);
    }

    BarFilling Run(const std::vector<BarItem>& items, double threshold) const {
        const auto cells = static_cast<std::size_t>(cells_);
        const std::size_t words = (cells + 63) / 64;
        std::vector<double> best(cells, 0);
        std::vector<uint64_t> taken(parts_.size() * words, 0);
        for (std::size_t p = 0; p < parts_.size(); ++p) {
            const auto weight = static_cast<std::size_t>(parts_[p].weight);
            uint64_t* row = taken.data() + p * words;
            for (std::size_t c = cells; c-- > weight;) {
                const double with = best[c - weight] + parts_[p].value;
                if (with > best[c]) {
                    best[c] = with;
                    row[c / 64] |= uint64_t{1} << (c % 64);
                }
            }
        }
        BarFilling answer;
        answer.counts.assign(items.size(), 0);
        std::size_t c = cells - 1;
        for (std::size_t p = parts_.size(); p-- > 0;) {
            if ((taken[p * words + c / 64] >> (c % 64) & 1) != 0) {
                answer.counts[parts_[p].item] += parts_[p].pieces;
                c -= static_cast<std::size_t>(parts_[p].weight);
            }
        }
        answer.value = best[cells - 1];
        answer.upperBound = std::max(answer.value, threshold);
        answer.complete = true;
        return answer;
    }

private:
    struct Part {
        std::size_t item;
        int64_t pieces;
        int64_t weight;
        double value;
    };

    static bool Usable(const BarItem& item, int64_t capacity) {
        return item.value > 0 && item.most > 0 && item.length > 0 && item.length <= capacity;
    }

    int64_t step_ = 0;
    int64_t cells_ = 1;
    std::vector<Part> parts_;
};

// A table this small costs less than starting a search; one this large is worth its time
// only when the search has not ended within its budget.
constexpr double SmallTable = 1e6;
constexpr double LargestTable = 5e7;
constexpr int64_t SearchBudgetBeforeTable = 200'000;

}  // namespace

BarFilling FillBarBySearch(const std::vector<BarItem>& items, int64_t capacity, double threshold,
                           const Deadline& deadline, int64_t nodeBudget) {
    Search search(items, threshold, deadline, nodeBudget);
    return search.Run(items, capacity);
}

BarFilling FillBarByTable(const std::vector<BarItem>& items, int64_t capacity, double threshold) {
    return Table(items, capacity).Run(items, threshold);
}

BarFilling FillBar(const std::vector<BarItem>& items, int64_t capacity, double threshold,
                   const Deadline& deadline, int64_t nodeBudget) {
    const Table table(items, capacity);
    if (table.Work() <= SmallTable) {
        return table.Run(items, threshold);
    }
    const bool tableAfter = table.Work() <= LargestTable;
    BarFilling filling =
        FillBarBySearch(items, capacity, threshold, deadline,
                        tableAfter ? std::min(nodeBudget, SearchBudgetBeforeTable) : nodeBudget);
    if (!filling.complete && tableAfter && !deadline.Passed()) {
        return table.Run(items, threshold);
    }
    return filling;
}

}  // namespace brennik
