#include "surface/surface.h"

#include <array>

namespace brennik {

std::string_view CtlName(Ctl name) {
    static constexpr std::array<std::string_view, CtlCount> names = {
        "txtSL",  "txtSP",  "txtL",   "txtN",   "txtMon",     "txtMat",  "Text1",   "Text2",
        "Text4",  "Text5",  "Text3",  "Text6",  "Text7",      "txtLong", "Option1", "Option2",
        "Check1", "Check2", "Check3", "Frame1", "cmdHelpTip", "Line1",   "Line4",   "ProgressBar1"};
    return names[static_cast<int>(name)];
}

std::string ControlName(Control control) {
    std::string name(CtlName(control.name));
    if (control.row > 0) {
        name += "(" + std::to_string(control.row) + ")";
    }
    return name;
}

void SetStatus(Surface& surface, Rgb back, Rgb fore, std::string_view text) {
    const Control status{Ctl::txtLong};
    surface.SetBackColor(status, back);
    surface.SetForeColor(status, fore);
    surface.SetText(status, text);
}

void ClearStatusOf(Surface& surface, std::string_view message) {
    if (surface.Text({Ctl::txtLong}) == message) {
        SetStatus(surface, White, Black, "");
        surface.Refresh({Ctl::txtLong});
    }
}

}  // namespace brennik
