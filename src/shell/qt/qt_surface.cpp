#include "shell/qt/qt_surface.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QStringList>
#include <stdexcept>

#include "shell/qt/twips.h"

namespace brennik {

namespace {

QString FromText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QColor ToColour(Rgb colour) {
    return QColor(colour.red, colour.green, colour.blue);
}

template <std::size_t N>
QLineEdit* Row(const std::array<QLineEdit*, N>& boxes, int row) {
    if (row < 1 || static_cast<std::size_t>(row) >= N) {
        throw std::out_of_range("no such row");
    }
    return boxes[static_cast<std::size_t>(row)];
}

}  // namespace

// A held text goes to a text box or a button's caption; held colours to the box's palette.
void QtSurface::ShowLook(QWidget* widget, const HeldLook& look) {
    if (look.text) {
        if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
            edit->setText(*look.text);
            edit->setCursorPosition(0);
        } else {
            static_cast<QPushButton*>(widget)->setText(*look.text);
        }
    }
    if (look.back || look.fore) {
        QPalette palette = widget->palette();
        if (look.back) {
            palette.setColor(QPalette::Base, *look.back);
        }
        if (look.fore) {
            palette.setColor(QPalette::Text, *look.fore);
        }
        widget->setPalette(palette);
    }
}

QtSurface::QtSurface(const Form2Controls& controls, QWidget* window)
    : c_(controls), window_(window) {}

QLineEdit* QtSurface::Box(Control box) const {
    switch (box.name) {
        case Ctl::txtSL:
            return Row(c_.txtSL, box.row);
        case Ctl::txtSP:
            return Row(c_.txtSP, box.row);
        case Ctl::txtL:
            return Row(c_.txtL, box.row);
        case Ctl::txtN:
            return Row(c_.txtN, box.row);
        case Ctl::txtMon:
            return Row(c_.txtMon, box.row);
        case Ctl::txtMat:
            return Row(c_.txtMat, box.row);
        case Ctl::Text1:
            return Row(c_.Text1, box.row);
        case Ctl::Text2:
            return Row(c_.Text2, box.row);
        case Ctl::Text4:
            return Row(c_.Text4, box.row);
        case Ctl::Text5:
            return Row(c_.Text5, box.row);
        case Ctl::Text3:
            return c_.Text3;
        case Ctl::Text6:
            return c_.Text6;
        case Ctl::Text7:
            return c_.Text7;
        case Ctl::txtLong:
            return c_.txtLong;
        default:
            throw std::invalid_argument("not a text box: " + ControlName(box));
    }
}

ProgressLine* QtSurface::Line(Control line) const {
    if (line.name == Ctl::Line1) {
        return c_.Line1;
    }
    if (line.name == Ctl::Line4) {
        return c_.Line4;
    }
    throw std::invalid_argument("not a line: " + ControlName(line));
}

QWidget* QtSurface::Widget(Control control) const {
    switch (control.name) {
        case Ctl::Option1:
            return c_.Option1;
        case Ctl::Option2:
            return c_.Option2;
        case Ctl::Check1:
            return c_.Check1;
        case Ctl::Check2:
            return c_.Check2;
        case Ctl::Check3:
            return c_.Check3;
        case Ctl::Frame1:
            return c_.Frame1;
        case Ctl::cmdHelpTip:
            return c_.cmdHelpTip;
        case Ctl::Line1:
        case Ctl::Line4:
            return Line(control);
        case Ctl::ProgressBar1:
            return c_.ProgressBar1;
        default:
            return Box(control);
    }
}

void QtSurface::Write(QWidget* widget, const std::function<void(HeldLook&)>& change) {
    if (pressing_) {
        change(held_[widget]);
        return;
    }
    HeldLook look;
    change(look);
    ShowLook(widget, look);
}

std::string QtSurface::Text(Control box) const {
    QLineEdit* edit = Box(box);
    const auto held = held_.constFind(edit);
    if (held != held_.cend() && held->text) {
        return held->text->toStdString();
    }
    return edit->text().toStdString();
}

void QtSurface::SetText(Control box, std::string_view text) {
    Write(Box(box), [&](HeldLook& look) { look.text = FromText(text); });
}

void QtSurface::SetBackColor(Control box, Rgb colour) {
    Write(Box(box), [&](HeldLook& look) { look.back = ToColour(colour); });
}

void QtSurface::SetForeColor(Control box, Rgb colour) {
    Write(Box(box), [&](HeldLook& look) { look.fore = ToColour(colour); });
}

void QtSurface::SetFocus(Control box) {
    Box(box)->setFocus(Qt::OtherFocusReason);
}

void QtSurface::Refresh(Control control) {
    if (!pressing_) {
        Widget(control)->repaint();
    } else if (frameClock_() - lastFrame_ >= FrameInterval) {
        PaintFrame();
    }
}

void QtSurface::BeginPress() {
    pressing_ = true;
    lastFrame_ = {};  // the first Refresh shows at once that the press has begun
}

void QtSurface::EndPress() {
    PaintFrame();
    pressing_ = false;
}

// The widgets take what was held and ask for their repaints; the window's repaint request then
// paints all that is pending, as the event loop's next round would, without delivering any
// other event.
void QtSurface::PaintFrame() {
    for (auto look = held_.cbegin(); look != held_.cend(); ++look) {
        ShowLook(look.key(), look.value());
    }
    held_.clear();
    if (heldProgress_) {
        c_.ProgressBar1->setValue(*std::exchange(heldProgress_, std::nullopt));
    }
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(window_, &request);
    lastFrame_ = frameClock_();
}

bool QtSurface::Value(Control choice) const {
    const QWidget* widget = Widget(choice);
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        return button->isChecked();
    }
    throw std::invalid_argument("not an option or check box: " + ControlName(choice));
}

void QtSurface::SetValue(Control choice, bool on) {
    auto* button = qobject_cast<QAbstractButton*>(Widget(choice));
    if (button == nullptr) {
        throw std::invalid_argument("not an option or check box: " + ControlName(choice));
    }
    button->setChecked(on);
}

void QtSurface::SetVisible(Control frame, bool visible) {
    QWidget* widget = Widget(frame);
    widget->setVisible(visible);
    if (visible) {
        widget->raise();
    }
}

void QtSurface::SetCaption(Control button, std::string_view caption) {
    auto* push = qobject_cast<QPushButton*>(Widget(button));
    if (push == nullptr) {
        throw std::invalid_argument("not a button: " + ControlName(button));
    }
    Write(push, [&](HeldLook& look) { look.text = FromText(caption); });
}

void QtSurface::SetX1(Control line, int twips) {
    Line(line)->SetX1(twips);
}

void QtSurface::SetX2(Control line, int twips) {
    Line(line)->SetX2(twips);
}

void QtSurface::SetProgress(Control bar, float percent) {
    if (bar.name != Ctl::ProgressBar1) {
        throw std::invalid_argument("not a progress bar: " + ControlName(bar));
    }
    const int value = static_cast<int>(percent * 100.0f + 0.5f);
    if (pressing_) {
        heldProgress_ = value;
    } else {
        c_.ProgressBar1->setValue(value);
    }
}

std::optional<std::string> QtSurface::InputBox(std::string_view prompt, std::string_view title,
                                               int xTwips, int yTwips) {
    if (nextInput_) {
        const std::optional<QString> answer = *std::exchange(nextInput_, std::nullopt);
        return answer ? std::optional(answer->toStdString()) : std::nullopt;
    }
    QInputDialog dialog(window_);
    dialog.setWindowTitle(FromText(title));
    dialog.setLabelText(FromText(prompt));
    dialog.setInputMode(QInputDialog::TextInput);
    dialog.move(window_->mapToGlobal(QPoint(Px(xTwips), Px(yTwips))));
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return dialog.textValue().toStdString();
}

QString QtSurface::QtFilter(std::string_view filter) {
    const QStringList items = FromText(filter).split('|');
    QStringList entries;
    for (qsizetype k = 0; k + 1 < items.size(); k += 2) {
        QString text = items[k].trimmed();
        // "*.*" means every file; on this system a name need not hold a point.
        const QString pattern = items[k + 1].trimmed() == "*.*" ? "*" : items[k + 1].trimmed();
        text.replace("(*.*)", "(*)");
        if (!text.contains("(" + pattern + ")")) {
            text += " (" + pattern + ")";
        }
        entries.push_back(text);
    }
    return entries.join(";;");
}

std::string QtSurface::FileDialog(bool save, std::string_view title, std::string_view filter,
                                  const std::string& folder) {
    if (nextFileName_) {
        return std::exchange(nextFileName_, std::nullopt)->toStdString();
    }
    QFileDialog dialog(window_, FromText(title));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(QtFilter(filter).split(";;"));
    dialog.setDirectory(QString::fromStdString(folder));
    if (!lastFileName_.isEmpty()) {
        dialog.selectFile(lastFileName_);
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return "";
    }
    const QString chosen = dialog.selectedFiles().front();
    lastFileName_ = QFileInfo(chosen).fileName();
    return chosen.toStdString();
}

std::string QtSurface::OpenFileDialog(std::string_view title, std::string_view filter,
                                      const std::string& folder) {
    return FileDialog(false, title, filter, folder);
}

std::string QtSurface::SaveFileDialog(std::string_view title, std::string_view filter,
                                      const std::string& folder) {
    return FileDialog(true, title, filter, folder);
}

void QtSurface::Beep() {
    QApplication::beep();
}

void QtSurface::StartViewer(const std::string& path) {
    if (viewer_) {
        viewer_(path);
    }
}

}  // namespace brennik
