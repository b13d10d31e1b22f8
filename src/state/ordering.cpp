#include "state/ordering.h"

#include <utility>

namespace brennik {

void SortCutLengths(Module1& m) {
    for (int p = MaxCutLengths - 1; p >= 1; --p) {
        for (int j = 1; j <= p; ++j) {
            if (m.CutLength(j) < m.CutLength(j + 1)) {
                std::swap(m.CutLength(j), m.CutLength(j + 1));
                std::swap(m.CutQty(j), m.CutQty(j + 1));
            }
        }
    }
    m.MasterCutLength = m.CutLength;
    m.MasterCutQty = m.CutQty;
}

void SortStdLengths(Module1& m) {
    for (int p = MaxStdLengths - 1; p >= 1; --p) {
        for (int j = 1; j <= p; ++j) {
            if (m.StdLength(j) < m.StdLength(j + 1)) {
                std::swap(m.StdLength(j), m.StdLength(j + 1));
                std::swap(m.StdPrice(j), m.StdPrice(j + 1));
                std::swap(m.BarsBought(j), m.BarsBought(j + 1));
            }
        }
    }
}

void ClassifyProblem(Module1& m, Surface& surface) {
    m.StdCount = 0;
    for (int row = 1; row <= MaxStdLengths && m.StdLength(row) > 0; ++row) {
        ++m.StdCount;
    }
    m.PriceCount = 0;
    for (int row = 1; row <= MaxStdLengths; ++row) {
        if (m.StdPrice(row) > 0) {
            ++m.PriceCount;
        }
    }
    m.AllPriced = ToFlag(m.PriceCount == m.StdCount && m.PriceCount > 0);
    m.CutCount = 0;
    for (int row = 1; row <= MaxCutLengths && m.CutLength(row) > 0; ++row) {
        ++m.CutCount;
    }

    if (surface.Value({Ctl::Option1}) && m.AllPriced) {
        m.MethodA = kTrue;
        m.MethodB = kFalse;
    } else {
        m.MethodB = kTrue;
        m.MethodA = kFalse;
        surface.SetValue({Ctl::Option2}, true);
    }
}

void ResetPassTotals(Module1& m) {
    m.SeqLength = m.StdLength;
    m.SeqPrice = m.StdPrice;

    m.MaxItemsInLine = 0;
    m.WasteBarsTotal = 0;
    m.StepMatWasteB = m.TotalMatWasteB = m.TotalLengthB = m.TotalCostB = 0;
    m.StepMonWasteB = m.TotalMonWasteB = m.MonWastePctB = m.MatWastePctB = m.BarMonWasteB = 0;
    m.StepMonWasteA = m.TotalMonWasteA = m.StepMatWasteA = m.TotalMatWasteA = 0;
    m.TotalLengthA = m.TotalCostA = m.MonWastePctA = m.MatWastePctA = m.BarMonWasteA = 0;

    m.BarsUsedA.Fill(0);
    m.BarsUsedB.Fill(0);
    m.BarsBought.Fill(0);
}

}  // namespace brennik
