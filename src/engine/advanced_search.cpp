#include "engine/advanced_search.h"

#include <cmath>
#include <string>
#include <vector>

#include "engine/cutting_pass.h"
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
    double figure = 0;
    double* best = nullptr;
    if (m.MethodA) {
        figure = m.TotalCostA;
        best = &m.BestCost;
    } else if (m.AllPriced) {
        figure = m.TotalCostB;
        best = &m.BestCost;
    } else {
        figure = m.TotalMatWasteB;
        best = &m.BestMatWaste;
    }
    if (!(*best > figure)) {
        return false;
    }
    *best = figure;
    m.SavedAmount = static_cast<float>(m.BasicFigure - figure);
    return true;
}

int Factorial(int n) {
    return n <= 1 ? 1 : n * Factorial(n - 1);
}

// Steps the six counters to the next combination in which no two are equal; rows past
// StdCount stay fixed at their own numbers. False when the outermost counter has run out.
bool NextSequence(Module1& m) {
    auto distinct = [&] {
        for (int a = 1; a <= MaxStdLengths; ++a) {
            for (int b = a + 1; b <= MaxStdLengths; ++b) {
                if (m.SeqPos(a) == m.SeqPos(b)) {
                    return false;
                }
            }
        }
        return true;
    };
    do {
        int k = m.StdCount;
        while (k >= 1 && m.SeqPos(k) == MaxStdLengths) {
            m.SeqPos(k) = 1;
            --k;
        }
        if (k < 1) {
            return false;
        }
        ++m.SeqPos(k);
    } while (!distinct());
    return true;
}

}  // namespace

void RunCuttingPass(Module1& m, Surface& surface) {
    m.CutLength = m.MasterCutLength;
    m.CutQty = m.MasterCutQty;
    ClassifyProblem(m, surface);
    ShowStdEntries(m, surface);
    ResetPassTotals(m);
    m.PiecesLeft = m.TotalPieces;
    while (m.PiecesLeft > 0 && CutNextStep(m)) {
    }
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

    for (int k = 1; k <= MaxStdLengths; ++k) {
        m.SeqPos(k) = static_cast<uint8_t>(k);  // the identity comes first
    }
    const int total = Factorial(m.StdCount);
    const std::vector<Control> boxes = SearchBoxes(m);
    PaintBoxes(boxes, surface, Yellow);

    do {
        ++m.SeqStep;
        ShowSearchProgress(m, surface, total);
        Rearrange(m);
        RunCuttingPass(m, surface);
        if (ImprovesOnBest(m)) {
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
    } while (NextSequence(m));

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
