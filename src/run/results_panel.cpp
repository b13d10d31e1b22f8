#include "run/results_panel.h"

#include <cmath>

#include "state/number_texts.h"

namespace brennik {

namespace {

constexpr int TotalWidth = 12;
constexpr int PercentWidth = 6;
constexpr int CostWidth = 16;
constexpr int BarsWidth = 8;

void ShowFigure(Surface& surface, Control box, double value, int width) {
    surface.SetText(box, RightField(NumberText(RoundEven2(value)), width));
    surface.Refresh(box);
}

// The line grows from its centre to both sides with the share of pieces cut.
void MoveLine(const Module1& m, Surface& surface, Control line, int centre, int halfLength) {
    const auto half =
        static_cast<int>(std::floor(static_cast<double>(m.PercentCut) * halfLength / 100.0));
    surface.SetX1(line, centre - half);
    surface.Refresh(line);
    surface.SetX2(line, centre + half);
    surface.Refresh(line);
}

void ShowBars(Surface& surface, Control box, float bars) {
    surface.SetText(box, RightField(NumberText(bars), BarsWidth));
    surface.Refresh(box);
}

}  // namespace

void RefreshResults(const Module1& m, Surface& surface) {
    // During the search only the totals change; bars and line stand still.
    const bool showStep = !m.Advanced || m.SeqStep == 0;
    const int row = static_cast<int>(m.ChosenStd);
    if (m.MethodB) {
        if (m.AllPriced) {
            ShowFigure(surface, {Ctl::Text4, 1}, m.TotalMonWasteB, TotalWidth);
            ShowFigure(surface, {Ctl::Text4, 2}, m.MonWastePctB, PercentWidth);
            ShowFigure(surface, {Ctl::Text6}, m.TotalCostB, CostWidth);
        }
        ShowFigure(surface, {Ctl::Text5, 1}, m.TotalMatWasteB, TotalWidth);
        ShowFigure(surface, {Ctl::Text5, 2}, m.MatWastePctB, PercentWidth);
        if (showStep) {
            ShowBars(surface, {Ctl::txtMat, row}, m.BarsUsedB(row));
            MoveLine(m, surface, {Ctl::Line4}, 8295, 1065);
        }
    }
    if (m.MethodA) {
        ShowFigure(surface, {Ctl::Text1, 1}, m.TotalMonWasteA, TotalWidth);
        ShowFigure(surface, {Ctl::Text1, 2}, m.MonWastePctA, PercentWidth);
        ShowFigure(surface, {Ctl::Text2, 1}, m.TotalMatWasteA, TotalWidth);
        ShowFigure(surface, {Ctl::Text2, 2}, m.MatWastePctA, PercentWidth);
        ShowFigure(surface, {Ctl::Text3}, m.TotalCostA, CostWidth);
        if (showStep) {
            ShowBars(surface, {Ctl::txtMon, row}, m.BarsUsedA(row));
            MoveLine(m, surface, {Ctl::Line1}, 8310, 1080);
        }
    }
}

}  // namespace brennik
