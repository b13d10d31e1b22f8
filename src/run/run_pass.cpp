#include "run/run_pass.h"

#include <string>
#include <vector>

#include "engine/cutting_pass.h"
#include "report/report_assembly.h"
#include "report/report_lines.h"
#include "run/results_panel.h"
#include "state/intake.h"
#include "state/ordering.h"

namespace brennik {

namespace {

std::string TrimBlanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) {
        return "";
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void AskForReference(Module1& m, Surface& surface) {
    const std::optional<std::string> answer = surface.InputBox(
        "Enter Reference to be included in the solution :", "Reference", 1725, 2575);
    m.ReferenceText = TrimBlanks(answer.value_or(""));
    m.ReferenceAsked = kTrue;
}

// The read-out boxes that a pass of the active Method fills, in the order they are marked.
std::vector<Control> BoxesInUse(const Module1& m) {
    std::vector<Control> boxes;
    const Ctl bars = m.MethodA ? Ctl::txtMon : Ctl::txtMat;
    for (int row = 1; row <= m.StdCount; ++row) {
        boxes.push_back({bars, row});
    }
    if (m.MethodA) {
        boxes.insert(
            boxes.end(),
            {{Ctl::Text1, 1}, {Ctl::Text1, 2}, {Ctl::Text2, 1}, {Ctl::Text2, 2}, {Ctl::Text3}});
    } else {
        boxes.insert(boxes.end(), {{Ctl::Text5, 1}, {Ctl::Text5, 2}});
        if (m.AllPriced) {
            boxes.insert(boxes.end(), {{Ctl::Text4, 1}, {Ctl::Text4, 2}, {Ctl::Text6}});
        }
    }
    return boxes;
}

void EmptyMethodBoxes(const Module1& m, Surface& surface) {
    if (m.MethodA) {
        for (Control box : {Control{Ctl::Text1, 1}, Control{Ctl::Text1, 2}, Control{Ctl::Text2, 1},
                            Control{Ctl::Text2, 2}, Control{Ctl::Text3}}) {
            surface.SetText(box, "");
        }
    } else {
        for (Control box : {Control{Ctl::Text4, 1}, Control{Ctl::Text4, 2}, Control{Ctl::Text5, 1},
                            Control{Ctl::Text5, 2}, Control{Ctl::Text6}}) {
            surface.SetText(box, "");
        }
    }
}

void CollapseProgressLine(const Module1& m, Surface& surface) {
    const Control line{m.MethodA ? Ctl::Line1 : Ctl::Line4};
    surface.SetX1(line, 8310);
    surface.Refresh(line);
    surface.SetX2(line, 8310);
    surface.Refresh(line);
    if (m.MethodB) {
        surface.SetText({Ctl::Text4, 1}, "");
        surface.SetText({Ctl::Text4, 2}, "");
        surface.SetText({Ctl::Text6}, "");
    }
}

void PaintBoxes(const std::vector<Control>& boxes, Surface& surface, Rgb colour) {
    for (Control box : boxes) {
        surface.SetBackColor(box, colour);
        surface.Refresh(box);
    }
}

void ShowStatus(Surface& surface, Rgb back, Rgb fore, const char* text) {
    SetStatus(surface, back, fore, text);
    surface.Refresh({Ctl::txtLong});
}

// The cutting loop of a visible pass; false if no standard row could take what was left.
bool CutAndReport(Module1& m, Surface& surface, std::vector<std::string>& tiny1) {
    while (m.PiecesLeft > 0) {
        if (!CutNextStep(m)) {
            return false;
        }
        RefreshResults(m, surface);
        ShowPercentCut(m, surface);
        WriteCuttingLine(m, tiny1);
    }
    return true;
}

}  // namespace

void RunPass(Module1& m, Platform& platform) {
    Surface& surface = platform.surface;
    const Control helpTip{Ctl::cmdHelpTip};
    m.FileError = kFalse;

    if (m.ShowReference && !m.ReferenceAsked) {
        AskForReference(m, surface);
    }
    surface.SetCaption(helpTip, "");

    ReadEntries(m, surface);
    if (!m.EntryError) {
        CheckCutLengths(m, surface);
    }
    if (m.EntryError || m.LengthError) {
        surface.SetCaption(helpTip, "Help Tip");
        return;
    }

    if (!(m.Advanced && m.BetterFound)) {
        SortStdLengths(m);
    }
    SortCutLengths(m);
    ClassifyProblem(m, surface);
    ShowStdEntries(m, surface);
    if (!m.Advanced) {
        EmptyMethodBoxes(m, surface);
    }
    CollapseProgressLine(m, surface);

    std::vector<std::string> tiny1;
    WriteReportHead(m, platform.clock, tiny1);
    ResetPassTotals(m);
    m.PiecesLeft = m.TotalPieces;
    if (!m.Advanced) {
        surface.SetProgress({Ctl::ProgressBar1}, 0);
    }

    const Control status{Ctl::txtLong};
    surface.SetBackColor(status, Red);
    surface.SetForeColor(status, Yellow);
    surface.Refresh(status);
    surface.SetText(status, m.Advanced && m.BetterFound ? " Writing the Best Solution."
                                                        : " Calculating the Basic Solution.");
    surface.Refresh(status);

    const std::vector<Control> boxes = BoxesInUse(m);
    PaintBoxes(boxes, surface, Yellow);
    const bool cutAll = CutAndReport(m, surface, tiny1);
    PaintBoxes(boxes, surface, White);

    surface.SetBackColor(status, White);
    surface.Refresh(status);
    surface.SetForeColor(status, Black);
    surface.Refresh(status);
    surface.SetText(status, " ");
    surface.Refresh(status);
    surface.SetCaption(helpTip, "Help Tip");

    if (!cutAll) {
        // Only a length longer than every bar leaves a step without pattern, and the intake
        // refuses those; should one slip through, the pass ends as the intake would end it.
        m.LengthError = kTrue;
        ShowStatus(surface, White, Red, " This length exceeds the longest standard length !.");
        return;
    }

    KeepBarsBought(m);
    WriteReportFoot(m, tiny1);

    if (!AssembleReport(m, platform.files, platform.clock, tiny1)) {
        RemoveWorkFiles(platform.files);
        m.FileError = kTrue;
        ShowStatus(surface, White, Red, " Cannot write the solution file !.");
        return;
    }
    ShowStatus(surface, m.MethodA ? Red : Blue, Yellow, " Done !.");
}

}  // namespace brennik
