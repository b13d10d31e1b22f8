#include "run/find_press.h"

#include "engine/advanced_search.h"
#include "engine/better_solution.h"
#include "engine/find_best_pattern.h"
#include "run/results_panel.h"
#include "run/run_pass.h"

namespace brennik {

namespace {

// The basic solution's figures, from which the search measures its savings.
void TakeBasicFigures(Module1& m) {
    if (m.MethodA) {
        m.BestCost = m.TotalCostA;
        m.BestMatWaste = m.TotalMatWasteA;
        m.BasicFigure = static_cast<float>(m.TotalCostA);
    } else if (!m.AllPriced) {
        m.BestMatWaste = m.TotalMatWasteB;
        m.BasicFigure = static_cast<float>(m.TotalMatWasteB);
    } else {
        m.BestCost = m.TotalCostB;
        m.BestMatWaste = m.TotalMatWasteB;
        m.BasicFigure = static_cast<float>(m.TotalCostB);
    }
}

bool PassFailed(const Module1& m) {
    return m.EntryError || m.LengthError || m.FileError;
}

}  // namespace

void cmdFind_Click(Module1& m, Platform& platform) {
    Surface& surface = platform.surface;
    const Control progress{Ctl::ProgressBar1};
    const Control status{Ctl::txtLong};

    ForgetPatterns();  // the patterns of an earlier problem are of no use to this press
    m.ReferenceAsked = kFalse;
    m.BetterFound = kFalse;
    m.Advanced = ToFlag(surface.Value({Ctl::Check1}));

    RunPass(m, platform);
    surface.SetProgress(progress, 0);
    if (!m.Advanced || PassFailed(m)) {
        return;
    }

    TakeBasicFigures(m);
    if (m.BestMatWaste == 0 || m.StdCount == 1) {
        SetStatus(surface, Red, Yellow, " No Better Solution.");
        surface.Refresh(status);
        return;
    }
    SetStatus(surface, Yellow, Blue, " Looking for a Better Solution.");
    surface.Refresh(status);

    AdvancedSearch(m, surface, RefreshResults);
    surface.SetProgress(progress, 0);
    surface.Refresh(status);
    surface.SetText(status, " ");

    if (m.BetterFound) {
        m.StdLength = m.BestStdLength;
        m.StdPrice = m.BestStdPrice;
        ShowEntriesAndBars(m, surface);
        RunPass(m, platform);
        surface.SetProgress(progress, 0);
        const bool written = !PassFailed(m);
        if (written) {
            ResortStdLengths(m, surface);
            SetStatus(surface, White, m.MethodA ? Red : Blue, " Found a Better Solution !.");
        }
        m.BetterFound = kFalse;
        m.Advanced = kFalse;
        return;
    }
    RunPass(m, platform);
    surface.SetProgress(progress, 0);
    m.Advanced = kFalse;
    if (!PassFailed(m)) {
        SetStatus(surface, White, Black, " Sorry,  No Better Solution.");
    }
}

}  // namespace brennik
