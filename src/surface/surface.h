// The screen surface: the named controls of the main form and the operations through which the
// logic reads and writes them. The logic knows the screen only through this interface; the tests
// and the headless runner use MemorySurface, the desktop program the real widgets.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brennik {

enum class Ctl : uint8_t {
    // Text boxes; the first six are arrays addressed by row.
    txtSL,
    txtSP,
    txtL,
    txtN,
    txtMon,
    txtMat,
    Text1,  // rows 1 and 2
    Text2,  // rows 1 and 2
    Text4,  // rows 1 and 2
    Text5,  // rows 1 and 2
    Text3,
    Text6,
    Text7,
    txtLong,
    // Option buttons, check boxes, the frame, the button, the lines, the progress bar.
    Option1,
    Option2,
    Check1,
    Check2,
    Check3,
    Frame1,
    cmdHelpTip,
    Line1,
    Line4,
    ProgressBar1,
};
inline constexpr int CtlCount = static_cast<int>(Ctl::ProgressBar1) + 1;

// A control by name and, for a control array, by row from 1; single controls have row 0.
struct Control {
    Ctl name;
    int row = 0;
    bool operator==(const Control&) const = default;
};

std::string_view CtlName(Ctl name);
std::string ControlName(Control control);  // "txtSL(3)", "Text3"

struct Rgb {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;
    bool operator==(const Rgb&) const = default;
};
inline constexpr Rgb White{255, 255, 255};
inline constexpr Rgb Black{0, 0, 0};
inline constexpr Rgb Red{255, 0, 0};
inline constexpr Rgb Blue{0, 0, 255};
inline constexpr Rgb Yellow{255, 255, 0};
inline constexpr Rgb Green{0, 255, 0};

class Surface {
public:
    virtual ~Surface() = default;

    // Text boxes.
    virtual std::string Text(Control box) const = 0;
    virtual void SetText(Control box, std::string_view text) = 0;
    virtual void SetBackColor(Control box, Rgb colour) = 0;
    virtual void SetForeColor(Control box, Rgb colour) = 0;
    virtual void SetFocus(Control box) = 0;

    // Puts one control on the screen as the surface holds it, also while a press keeps the event
    // loop from running; a screen may gather a press's repaints into one a frame.
    virtual void Refresh(Control control) = 0;

    // Option buttons (selecting one clears the other of the pair) and check boxes.
    virtual bool Value(Control choice) const = 0;
    virtual void SetValue(Control choice, bool on) = 0;

    virtual void SetVisible(Control frame, bool visible) = 0;
    virtual void SetCaption(Control button, std::string_view caption) = 0;

    // Line ends, in twips.
    virtual void SetX1(Control line, int twips) = 0;
    virtual void SetX2(Control line, int twips) = 0;

    // The progress bar, 0 to 100 with its fraction.
    virtual void SetProgress(Control bar, float percent) = 0;

    // The modal text input box, placed at (x, y) twips; nothing when the user cancels.
    virtual std::optional<std::string> InputBox(std::string_view prompt, std::string_view title,
                                                int xTwips, int yTwips) = 0;
    // The open and the save file dialog, opening in `folder`. The filter is a list of text and
    // pattern pairs with a bar between all items ("Text (*.pro)|*.pro|..."), the first pair in
    // force. The answer is a full path, or "" when the user cancelled.
    virtual std::string OpenFileDialog(std::string_view title, std::string_view filter,
                                       const std::string& folder) = 0;
    virtual std::string SaveFileDialog(std::string_view title, std::string_view filter,
                                       const std::string& folder) = 0;
    virtual void Beep() = 0;
    // Opens the text file in the system's text viewer, without waiting for it.
    virtual void StartViewer(const std::string& path) = 0;
};

// The status line txtLong: its back colour, text colour and text, in this order, without a
// repaint.
void SetStatus(Surface& surface, Rgb back, Rgb fore, std::string_view text);

// Takes a failure's message off the status line once the thing that failed has worked: the
// line is emptied, in black on white, if it still shows `message`.
void ClearStatusOf(Surface& surface, std::string_view message);

}  // namespace brennik
