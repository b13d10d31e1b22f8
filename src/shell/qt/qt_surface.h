// The screen surface on the real widgets of Form2. Refresh repaints at once, so a press shows
// its progress though it never returns to the event loop; while a press runs, the surface holds
// what is written and paints it at most once per frame of the screen, so that the press does
// not spend itself on repaints no eye could see. The modal questions use Qt's dialogs; the
// viewer is the form's to choose.
#pragma once

#include <QColor>
#include <QHash>
#include <QString>
#include <QWidget>
#include <chrono>
#include <functional>
#include <optional>
#include <utility>

#include "shell/qt/form2.h"
#include "surface/surface.h"

namespace brennik {

class QtSurface final : public Surface {
public:
    QtSurface(const Form2Controls& controls, QWidget* window);

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
    // The solution window stands in for the system's text viewer; the form that owns it says
    // how a file is shown.
    void StartViewer(const std::string& path) override;
    void SetViewer(std::function<void(const std::string&)> viewer) { viewer_ = std::move(viewer); }

    QWidget* Widget(Control control) const;

    // From the start to the end of a press, texts, colours, captions and the progress go to the
    // widgets and are painted once a frame has passed since the last paint, at a Refresh; the
    // end gives every widget its final state and paints it.
    void BeginPress();
    void EndPress();

    // The time between two frames, and the clock that measures it (steady time unless a test
    // sets its own).
    static constexpr std::chrono::milliseconds FrameInterval{16};
    using FrameClock = std::function<std::chrono::steady_clock::time_point()>;
    void SetFrameClock(FrameClock clock) { frameClock_ = std::move(clock); }

    // For tests: the answer that the next file dialog or input box gives without showing up.
    void SetNextFileName(QString path) { nextFileName_ = std::move(path); }
    void SetNextInput(std::optional<QString> answer) { nextInput_.emplace(std::move(answer)); }

    // A filter of text and pattern pairs joined by bars, in the form Qt's dialogs take.
    static QString QtFilter(std::string_view filter);

private:
    // What a press wrote to a box or button that its widget does not show yet.
    struct HeldLook {
        std::optional<QString> text;
        std::optional<QColor> back;
        std::optional<QColor> fore;
    };

    QLineEdit* Box(Control box) const;
    static void ShowLook(QWidget* widget, const HeldLook& look);
    // Makes `change` to what `widget` shows: held while a press runs, shown at once otherwise.
    void Write(QWidget* widget, const std::function<void(HeldLook&)>& change);
    void PaintFrame();
    ProgressLine* Line(Control line) const;
    std::string FileDialog(bool save, std::string_view title, std::string_view filter,
                           const std::string& folder);

    const Form2Controls& c_;
    QWidget* window_;
    QString lastFileName_;  // a dialog offers the name chosen the time before
    std::optional<QString> nextFileName_;
    std::optional<std::optional<QString>> nextInput_;
    std::function<void(const std::string&)> viewer_;
    FrameClock frameClock_ = [] { return std::chrono::steady_clock::now(); };
    std::chrono::steady_clock::time_point lastFrame_{};
    bool pressing_ = false;
    QHash<QWidget*, HeldLook> held_;
    std::optional<int> heldProgress_;
};

}  // namespace brennik
