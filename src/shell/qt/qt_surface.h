// The screen surface on the real widgets of Form2. Refresh repaints a control at once, so a
// press shows its progress though it never returns to the event loop; the modal questions
// use Qt's dialogs, and the viewer is the desktop's application for text files.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <utility>

#include "shell/qt/form2.h"
#include "shell/surface.h"

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

    // For tests: the answer that the next file dialog or input box gives without showing up.
    void SetNextFileName(QString path) { nextFileName_ = std::move(path); }
    void SetNextInput(std::optional<QString> answer) { nextInput_.emplace(std::move(answer)); }

    // A filter of text and pattern pairs joined by bars, in the form Qt's dialogs take.
    static QString QtFilter(std::string_view filter);

private:
    QLineEdit* Box(Control box) const;
    ProgressLine* Line(Control line) const;
    std::string FileDialog(bool save, std::string_view title, std::string_view filter,
                           const std::string& folder);

    const Form2Controls& c_;
    QWidget* window_;
    QString lastFileName_;  // a dialog offers the name chosen the time before
    std::optional<QString> nextFileName_;
    std::optional<std::optional<QString>> nextInput_;
    std::function<void(const std::string&)> viewer_;
};

}  // namespace brennik
