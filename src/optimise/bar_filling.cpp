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
        // Bounds within a few units in the last place of the threshold count as not above it.
        floor_ = threshold + 1e-12 * std::max(1.0, std::abs(threshold));
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
        answer.complete = !stopped_;
        answer.upperBound = std::max(best_, floor_);
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

    double Floor() const { return std::max(best_, floor_); }

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
    double floor_ = 0;
    double best_ = 0;
    int64_t nodes_ = 0;
    bool stopped_ = false;
    std::size_t stoppedAt_ = 0;
};

}  // namespace

BarFilling FillBar(const std::vector<BarItem>& items, int64_t capacity, double threshold,
                   const Deadline& deadline, int64_t nodeBudget) {
    Search search(items, threshold, deadline, nodeBudget);
    return search.Run(items, capacity);
}

}  // namespace brennik
