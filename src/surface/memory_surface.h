// An in-memory screen surface for the tests and the headless runner. It keeps the state of every
// control as a form would show it and records every operation in order, Refresh calls included.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "surface/surface.h"

namespace brennik {

struct ControlState {
    std::string text;
    Rgb back = White;
    Rgb fore = Black;
    bool value = false;
    bool visible = true;
    std::string caption;
    int x1 = 0;
    int x2 = 0;
    float progress = 0;
};

enum class SurfaceOp : uint8_t {
    SetText,
    SetBackColor,
    SetForeColor,
    SetFocus,
    Refresh,
    SetValue,
    SetVisible,
    SetCaption,
    SetX1,
    SetX2,
    SetProgress,
    InputBox,
    OpenFileDialog,
    SaveFileDialog,
    Beep,
    StartViewer,
};

// One recorded operation: text for texts, captions, and the prompt or title of a question;
// colour for colours; number for values, line ends and progress.
struct SurfaceEvent {
    SurfaceOp op;
    Control control;
    std::string text;
    Rgb colour;
    double number = 0;
};

class MemorySurface : public Surface {
public:
    // A form as it opens: empty boxes in black on white, nothing selected or ticked, the button
    // captioned "Help Tip", both lines at the ends they are placed at.
    MemorySurface();

    std::string Text(Control box) const override;
    void SetText(Control box, std::string_view text) override;
    void SetBackColor(Control box, Rgb colour) override;
    void SetForeColor(Control box, Rgb colour) override;
    void SetFocus(Control box) override;
    void Refresh(Control control) override;
    bool Value(Control choice) const override;
    void SetValue(Control choice, bool on) override;
    void SetVisible(Control frame, bool visible) override;
    void SetCaption(Control button, std::string_view caption) override;
    void SetX1(Control line, int twips) override;
    void SetX2(Control line, int twips) override;
    void SetProgress(Control bar, float percent) override;
    std::optional<std::string> InputBox(std::string_view prompt, std::string_view title, int xTwips,
                                        int yTwips) override;
    std::string OpenFileDialog(std::string_view title, std::string_view filter,
                               const std::string& folder) override;
    std::string SaveFileDialog(std::string_view title, std::string_view filter,
                               const std::string& folder) override;
    void Beep() override;
    void StartViewer(const std::string& path) override;

    // The answers that the next questions get: the input box's text (nothing: Cancel), the
    // file dialogs' path ("" : Cancel). Each answer holds until it is set again.
    void SetNextInput(std::optional<std::string> answer) { nextInput_ = std::move(answer); }
    void SetNextFileName(std::string path) { nextFileName_ = std::move(path); }
    // The folder and filter that the last file dialog was opened with.
    const std::string& LastDialogFolder() const { return lastDialogFolder_; }
    const std::string& LastDialogFilter() const { return lastDialogFilter_; }
    // Where the last input box stood, in twips.
    std::pair<int, int> LastInputBoxAt() const { return lastInputBoxAt_; }
    int Beeps() const { return beeps_; }

    const ControlState& State(Control control) const;
    std::optional<Control> Focus() const { return focus_; }

    const std::vector<SurfaceEvent>& Events() const { return events_; }
    void ClearEvents() { events_.clear(); }
    // Keeps the state but stops recording, for long silent runs.
    void SetRecording(bool on) { recording_ = on; }

private:
    static constexpr int MaxRows = 40;
    ControlState& Slot(Control control);
    void Record(SurfaceEvent event);

    std::array<std::array<ControlState, MaxRows + 1>, CtlCount> controls_;
    std::optional<Control> focus_;
    std::vector<SurfaceEvent> events_;
    bool recording_ = true;
    std::optional<std::string> nextInput_;
    std::string nextFileName_;
    std::string lastDialogFolder_;
    std::string lastDialogFilter_;
    std::pair<int, int> lastInputBoxAt_;
    int beeps_ = 0;
};

}  // namespace brennik
