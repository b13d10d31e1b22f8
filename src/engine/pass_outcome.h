// What the cutting loop of a pass leaves in the shared block, kept apart from it. A pass of the
// Advanced search depends on nothing but the arrangement of the standard rows, so the outcome
// of each arrangement can be worked out ahead, on every core, and put back when its attempt
// comes, with the same effect as running the loop there and then.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "state/module1.h"

namespace brennik {

struct PassOutcome {
    StdRows<int32_t> PatternBars;
    Table<int32_t, MaxStdLengths, MaxCutLengths> PatternPieces;
    Table<float, MaxStdLengths, 2> RankMat;
    Table<float, MaxStdLengths, 2> RankMon;
    uint8_t EngineStd = 0;
    float ChosenStd = 0;
    float ChosenWaste = 0;
    int32_t ChosenBars = 0;
    CutRows<int32_t> CutQty;
    int32_t PiecesLeft = 0;
    float PercentCut = 0;
    std::array<double, 18> totals{};  // the accumulators of both Methods
    StdRows<float> BarsUsedA;
    StdRows<float> BarsUsedB;

    static PassOutcome Of(const Module1& m);
    void RestoreInto(Module1& m) const;
};

// An arrangement as the rows of the original order that stand in rows 1 to 6.
using Arrangement = std::array<uint8_t, MaxStdLengths>;

// The cutting loops of a search's passes, worked out ahead in as many threads as the machine
// has cores: each distinct arrangement once, in the order in which the attempts first need
// them. An attempt takes its outcome as soon as it is there, so the search goes on showing its
// progress while later passes are still being worked out.
class PassesAhead {
public:
    // `m` is classified, with its master list and TotalPieces set; the passes start from a
    // copy of it, so that the search may go on changing it.
    PassesAhead(const Module1& m, const std::vector<Arrangement>& arrangements);
    ~PassesAhead();
    PassesAhead(const PassesAhead&) = delete;
    PassesAhead& operator=(const PassesAhead&) = delete;

    // The outcome of one of the arrangements given, once it is worked out.
    const PassOutcome& Of(const Arrangement& arrangement);

private:
    void Work();

    std::unique_ptr<const Module1> start_;
    std::vector<Arrangement> distinct_;
    std::map<Arrangement, std::size_t> indexOf_;
    std::vector<PassOutcome> outcomes_;
    std::vector<bool> ready_;
    std::exception_ptr failure_;
    std::atomic<std::size_t> next_{0};
    std::atomic<bool> stop_{false};
    std::mutex mutex_;
    std::condition_variable readyChanged_;
    std::vector<std::thread> workers_;
};

}  // namespace brennik
