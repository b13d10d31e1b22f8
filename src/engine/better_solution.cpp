#include "engine/better_solution.h"

#include "state/number_texts.h"
#include "state/ordering.h"

namespace brennik {

void ShowEntriesAndBars(const Module1& m, Surface& surface) {
    const Ctl barsColumn = m.MethodA ? Ctl::txtMon : Ctl::txtMat;
    for (int r = 1; r <= MaxStdLengths; ++r) {
        surface.SetText({Ctl::txtSL, r}, m.StdLength(r) > 0 ? FloatText(m.StdLength(r)) : "");
        surface.SetText({Ctl::txtSP, r}, m.StdPrice(r) > 0 ? FloatText(m.StdPrice(r)) : "");
        const Control bars{barsColumn, r};
        surface.SetText(bars, "       ");
        surface.Refresh(bars);
        if (m.BarsBought(r) > 0) {
            surface.SetText(bars, "       ");
            surface.Refresh(bars);
            surface.SetText(bars, RightField(NumberText(m.BarsBought(r)), 8));
        }
    }
}

void ResortStdLengths(Module1& m, Surface& surface) {
    SortStdLengths(m);
    ShowEntriesAndBars(m, surface);
}

}  // namespace brennik
