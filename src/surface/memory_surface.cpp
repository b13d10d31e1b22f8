#include "surface/memory_surface.h"

#include <stdexcept>

namespace brennik {

MemorySurface::MemorySurface() {
    controls_[static_cast<int>(Ctl::cmdHelpTip)][0].caption = "Help Tip";
    ControlState& line1 = controls_[static_cast<int>(Ctl::Line1)][0];
    line1.x1 = 7230;
    line1.x2 = 9390;
    ControlState& line4 = controls_[static_cast<int>(Ctl::Line4)][0];
    line4.x1 = 7200;
    line4.x2 = 9390;
}

ControlState& MemorySurface::Slot(Control control) {
    if (control.row < 0 || control.row > MaxRows) {
        throw std::out_of_range("no such row: " + ControlName(control));
    }
    return controls_[static_cast<int>(control.name)][control.row];
}

const ControlState& MemorySurface::State(Control control) const {
    return const_cast<MemorySurface*>(this)->Slot(control);
}

void MemorySurface::Record(SurfaceEvent event) {
    if (recording_) {
        events_.push_back(std::move(event));
    }
}

std::string MemorySurface::Text(Control box) const {
    return State(box).text;
}

void MemorySurface::SetText(Control box, std::string_view text) {
    Slot(box).text = text;
    Record({SurfaceOp::SetText, box, std::string(text), {}, 0});
}

void MemorySurface::SetBackColor(Control box, Rgb colour) {
    Slot(box).back = colour;
    Record({SurfaceOp::SetBackColor, box, {}, colour, 0});
}

void MemorySurface::SetForeColor(Control box, Rgb colour) {
    Slot(box).fore = colour;
    Record({SurfaceOp::SetForeColor, box, {}, colour, 0});
}

void MemorySurface::SetFocus(Control box) {
    Slot(box);
    focus_ = box;
    Record({SurfaceOp::SetFocus, box, {}, {}, 0});
}

void MemorySurface::Refresh(Control control) {
    Slot(control);
    Record({SurfaceOp::Refresh, control, {}, {}, 0});
}

bool MemorySurface::Value(Control choice) const {
    return State(choice).value;
}

void MemorySurface::SetValue(Control choice, bool on) {
    Slot(choice).value = on;
    if (on && (choice.name == Ctl::Option1 || choice.name == Ctl::Option2)) {
        Ctl other = choice.name == Ctl::Option1 ? Ctl::Option2 : Ctl::Option1;
        Slot({other}).value = false;
    }
    Record({SurfaceOp::SetValue, choice, {}, {}, on ? 1.0 : 0.0});
}

void MemorySurface::SetVisible(Control frame, bool visible) {
    Slot(frame).visible = visible;
    Record({SurfaceOp::SetVisible, frame, {}, {}, visible ? 1.0 : 0.0});
}

void MemorySurface::SetCaption(Control button, std::string_view caption) {
    Slot(button).caption = caption;
    Record({SurfaceOp::SetCaption, button, std::string(caption), {}, 0});
}

void MemorySurface::SetX1(Control line, int twips) {
    Slot(line).x1 = twips;
    Record({SurfaceOp::SetX1, line, {}, {}, static_cast<double>(twips)});
}

void MemorySurface::SetX2(Control line, int twips) {
    Slot(line).x2 = twips;
    Record({SurfaceOp::SetX2, line, {}, {}, static_cast<double>(twips)});
}

void MemorySurface::SetProgress(Control bar, float percent) {
    Slot(bar).progress = percent;
    Record({SurfaceOp::SetProgress, bar, {}, {}, static_cast<double>(percent)});
}

}  // namespace brennik

namespace brennik {

std::optional<std::string> MemorySurface::InputBox(std::string_view prompt, std::string_view title,
                                                   int xTwips, int yTwips) {
    lastInputBoxAt_ = {xTwips, yTwips};
    Record({SurfaceOp::InputBox,
            {Ctl::txtLong},
            std::string(prompt) + "|" + std::string(title),
            {},
            0});
    return nextInput_;
}

std::string MemorySurface::OpenFileDialog(std::string_view title, std::string_view filter,
                                          const std::string& folder) {
    lastDialogFolder_ = folder;
    lastDialogFilter_ = filter;
    Record({SurfaceOp::OpenFileDialog, {Ctl::txtLong}, std::string(title), {}, 0});
    return nextFileName_;
}

std::string MemorySurface::SaveFileDialog(std::string_view title, std::string_view filter,
                                          const std::string& folder) {
    lastDialogFolder_ = folder;
    lastDialogFilter_ = filter;
    Record({SurfaceOp::SaveFileDialog, {Ctl::txtLong}, std::string(title), {}, 0});
    return nextFileName_;
}

void MemorySurface::StartViewer(const std::string& path) {
    Record({SurfaceOp::StartViewer, {Ctl::txtLong}, path, {}, 0});
}

void MemorySurface::Beep() {
    ++beeps_;
    Record({SurfaceOp::Beep, {Ctl::txtLong}, {}, {}, 0});
}

}  // namespace brennik
