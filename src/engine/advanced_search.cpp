#include "engine/advanced_search.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "engine/cutting_pass.h"
#include "engine/passes_ahead.h"
#include "state/intake.h"
#include "state/number_texts.h"
#include "state/ordering.h"

namespace brennik {

namespace {

// The result boxes of the active Method, which show the search at work.
std::vector<Control> SearchBoxes(const Module1& m) {
    if (m.MethodA) {
        return {{Ctl::Text1, 1}, {Ctl::Text1, 2}, {Ctl::Text2, 1}, {Ctl::Text2, 2}, {Ctl::Text3}};
    }
    std::vector<Control> boxes{{Ctl::Text5, 1}, {Ctl::Text5, 2}};
    if (m.AllPriced) {
        boxes.insert(boxes.end(), {{Ctl::Text4, 1}, {Ctl::Text4, 2}, {Ctl::Text6}});
    }
    return boxes;
}

void PaintBoxes(const std::vector<Control>& boxes, Surface& surface, Rgb colour) {
    for (Control box : boxes) {
        surface.SetBackColor(box, colour);
        surface.Refresh(box);
    }
}

void ShowSearchProgress(const Module1& m, Surface& surface, int total) {
    const double percent = static_cast<double>(m.SeqStep) / total * 100;
    surface.SetProgress({Ctl::ProgressBar1}, static_cast<float>(percent));
    const auto whole = static_cast<long long>(std::floor(percent));
    surface.SetCaption({Ctl::cmdHelpTip}, " " + std::to_string(whole) + " %");
}

// Row k of the new arrangement is taken from row SeqPos(k) of the present one.
void Rearrange(Module1& m) {
    for (int k = 1; k <= MaxStdLengths; ++k) {
        m.SeqLength(k) = m.StdLength(m.SeqPos(k));
        m.SeqPrice(k) = m.StdPrice(m.SeqPos(k));
    }
    m.StdLength = m.SeqLength;
    m.StdPrice = m.SeqPrice;
}

// The strict test of the search's objective; on success the best figure and the saving follow.
bool ImprovesOnBest(Module1& m) {
    const double figure = SearchFigure(m);
    double& best = BestFigure(m);
    if (!(best > figure)) {
        return false;
    }
    best = figure;
    m.SavedAmount = static_cast<float>(m.BasicFigure - figure);
    return true;
}

int Factorial(int n) {
    return n <= 1 ? 1 : n * Factorial(n - 1);
}

// The counters of every attempt, from the identity on. Six nested counting loops, the first
// outermost, that pass over every combination in which two counters are equal, with the
// counters of rows past stdCount fixed at their own numbers, go through the orders of rows 1 to
// stdCount in ascending order.
std::vector<StdRows<uint8_t>> AttemptCounters(int stdCount) {
    StdRows<uint8_t> seqPos;
    for (int k = 1; k <= MaxStdLengths; ++k) {
        seqPos(k) = static_cast<uint8_t>(k);
    }
    std::vector<StdRows<uint8_t>> attempts;
    do {
        attempts.push_back(seqPos);
    } while (std::next_permutation(&seqPos(1), &seqPos(1) + stdCount));
    return attempts;
}

// The arrangement that each attempt works on, each built on the one before it, as the rows of
// the starting order.
std::vector<Arrangement> AttemptArrangements(const std::vector<StdRows<uint8_t>>& counters) {
    Arrangement present = StartingOrder();
    std::vector<Arrangement> arrangements;
    for (const StdRows<uint8_t>& seqPos : counters) {
        Arrangement next;
        for (int k = 1; k <= MaxStdLengths; ++k) {
            next[k - 1] = present[seqPos(k) - 1];
        }
        present = next;
        arrangements.push_back(present);
    }
    return arrangements;
}

}  // namespace

void RunCuttingPass(Module1& m, Surface& surface, const PassOutcome& loop) {
    m.CutLength = m.MasterCutLength;
    m.CutQty = m.MasterCutQty;
    ClassifyProblem(m, surface);
    ShowStdEntries(m, surface);
    ResetPassTotals(m);
    m.PiecesLeft = m.TotalPieces;
    loop.RestoreInto(m);
}

void SaveBestSequence(Module1& m) {
    m.BestStdLength = m.StdLength;
    m.BestStdPrice = m.StdPrice;
}

void AdvancedSearch(Module1& m, Surface& surface,
                    void (*refreshResults)(const Module1& m, Surface& surface)) {
    std::string successText = " Success  ";
    int savedCount = 0;
    m.SeqStep = 0;
    m.BetterFound = kFalse;
    surface.SetCaption({Ctl::cmdHelpTip}, "");

    // Every attempt's arrangement is known before the first one runs, and each pass depends on
    // its arrangement alone: the passes are worked out apart from the block, sharing the steps
    // they have in common, with helper threads, and the attempts take them in their order,
    // comparing one after the other as before. A pass that can no longer beat the figure to
    // beat when its attempt comes is not run to its end.
    const std::vector<StdRows<uint8_t>> counters = AttemptCounters(m.StdCount);
    const std::vector<Arrangement> arrangements = AttemptArrangements(counters);
    PassesAhead passes(m, arrangements, BestFigure(m));
    const int total = Factorial(m.StdCount);
    const std::vector<Control> boxes = SearchBoxes(m);
    PaintBoxes(boxes, surface, Yellow);

    for (std::size_t attempt = 0; attempt < counters.size(); ++attempt) {
        m.SeqPos = counters[attempt];
        ++m.SeqStep;
        ShowSearchProgress(m, surface, total);
        Rearrange(m);
        const PassOutcome& loop = passes.Of(arrangements[attempt]);
        RunCuttingPass(m, surface, loop);
        if (!loop.beaten && ImprovesOnBest(m)) {
            m.BetterFound = kTrue;
            SaveBestSequence(m);
            refreshResults(m, surface);
        }
        if (m.BetterFound) {
            surface.Beep();
            ++savedCount;
            successText += " !";
            SetStatus(surface, Green, Black,
                      successText + "   ==>>  " +
                          NumberText(PictureText(m.SavedAmount, "#####0.00")) + "  Saved.");
            surface.Refresh({Ctl::txtLong});
            m.BetterFound = kFalse;
        }
        if (savedCount > 0) {
            PaintBoxes(boxes, surface, Green);
        }
    }

    PaintBoxes(boxes, surface, White);
    m.SeqStep = 0;
    if (savedCount > 0) {
        m.BetterFound = kTrue;
    }
    surface.SetCaption({Ctl::cmdHelpTip}, "Help Tip");
    surface.SetBackColor({Ctl::txtLong}, White);
    surface.SetForeColor({Ctl::txtLong}, Black);
}

}  // namespace brennik
