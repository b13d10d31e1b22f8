#include "engine/cutting_pass.h"

#include <cmath>
#include <string>

#include "engine/choose_next_pattern.h"
#include "state/number_texts.h"

namespace brennik {

void CountTotalPieces(Module1& m) {
    m.TotalPieces = 0;
    for (int i = 1; i <= m.CutCount; ++i) {
        m.TotalPieces += m.CutQty(i);
    }
}

void ApplyChosenPattern(Module1& m) {
    const int row = static_cast<int>(m.ChosenStd);
    const double w = m.ChosenWaste;
    const double b = m.ChosenBars;
    const double len = m.StdLength(row);
    const double pr = m.StdPrice(row);

    if (m.MethodB) {
        m.StepMatWasteB = Round2(w * b);
        m.TotalMatWasteB = Round2(m.TotalMatWasteB + m.StepMatWasteB);
        m.TotalLengthB = Round2(len * b + m.TotalLengthB);
        m.TotalCostB = Round2(pr * b + m.TotalCostB);
        m.BarMonWasteB = Round2(w * pr / len);
        m.StepMonWasteB = Round2(b * m.BarMonWasteB);
        m.TotalMonWasteB = Round2(m.TotalMonWasteB + m.StepMonWasteB);
        m.MatWastePctB = Round2(m.TotalMatWasteB * 100 / m.TotalLengthB);
        m.BarsUsedB(row) = static_cast<float>(m.BarsUsedB(row) + b);
        if (m.AllPriced) {
            m.MonWastePctB = Round2(m.TotalMonWasteB * 100 / m.TotalCostB);
        }
    }
    if (m.MethodA) {
        m.BarMonWasteA = Round2(w * pr / len);
        m.StepMonWasteA = Round2(b * m.BarMonWasteA);
        m.TotalMonWasteA = Round2(m.TotalMonWasteA + m.StepMonWasteA);
        m.StepMatWasteA = Round2(w * b);
        m.TotalMatWasteA = Round2(m.TotalMatWasteA + m.StepMatWasteA);
        m.TotalLengthA = Round2(len * b + m.TotalLengthA);
        m.TotalCostA = Round2(pr * b + m.TotalCostA);
        m.MonWastePctA = Round2(m.TotalMonWasteA * 100 / m.TotalCostA);
        m.MatWastePctA = Round2(m.TotalMatWasteA * 100 / m.TotalLengthA);
        m.BarsUsedA(row) = static_cast<float>(m.BarsUsedA(row) + b);
    }

    m.PiecesLeft = 0;
    for (int i = 1; i <= m.CutCount; ++i) {
        m.CutQty(i) -= m.PatternPieces(row, i) * m.ChosenBars;
        m.PiecesLeft += m.CutQty(i);
    }
    m.PercentCut =
        static_cast<float>(static_cast<double>(m.TotalPieces - m.PiecesLeft) / m.TotalPieces * 100);
}

void KeepBarsBought(Module1& m) {
    for (int row = 1; row <= m.StdCount; ++row) {
        const float bars = m.MethodA ? m.BarsUsedA(row) : m.BarsUsedB(row);
        m.BarsBought(row) = static_cast<int32_t>(std::lround(bars));
    }
}

bool CutNextStep(Module1& m) {
    ChooseNextPattern(m);
    return CutChosenPattern(m);
}

bool CutChosenPattern(Module1& m) {
    if (m.ChosenBars <= 0) {
        return false;
    }
    ApplyChosenPattern(m);
    return true;
}

void ShowPercentCut(const Module1& m, Surface& surface) {
    const auto whole = static_cast<long long>(std::floor(m.PercentCut));
    surface.SetCaption({Ctl::cmdHelpTip}, " " + std::to_string(whole) + " %");
    surface.SetProgress({Ctl::ProgressBar1}, m.PercentCut);
}

}  // namespace brennik
