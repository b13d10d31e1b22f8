// Form2, the main screen: the entry boxes of the problem, the run mode, the status line, the
// two blocks of results, the buttons and the settings panel. Its click handlers are the only
// way into the logic; they call the core procedures on the block this form owns.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QWidget>
#include <array>
#include <memory>
#include <string>

#include "files/file_system.h"
#include "report/clock.h"
#include "run/platform.h"
#include "shell/qt/progress_line.h"
#include "state/module1.h"

namespace brennik {

class QtSurface;
class Form3;
class SolutionWindow;
struct PressOutcome;

// The named controls of the form; arrays are addressed by row from 1.
struct Form2Controls {
    std::array<QLineEdit*, MaxStdLengths + 1> txtSL{}, txtSP{}, txtMon{}, txtMat{};
    std::array<QLineEdit*, MaxCutLengths + 1> txtL{}, txtN{};
    std::array<QLineEdit*, 3> Text1{}, Text2{}, Text4{}, Text5{};
    QLineEdit* Text3 = nullptr;
    QLineEdit* Text6 = nullptr;
    QLineEdit* Text7 = nullptr;
    QLineEdit* txtLong = nullptr;
    QRadioButton* Option1 = nullptr;
    QRadioButton* Option2 = nullptr;
    QCheckBox* Check1 = nullptr;
    QCheckBox* Check2 = nullptr;
    QCheckBox* Check3 = nullptr;
    QFrame* Frame1 = nullptr;
    QPushButton* cmdHelpTip = nullptr;
    QPushButton* cmdFind = nullptr;
    QPushButton* cmdView = nullptr;
    QPushButton* cmdSave = nullptr;
    QPushButton* cmdLoad = nullptr;
    QPushButton* cmdNew = nullptr;
    QPushButton* cmdExit = nullptr;
    QPushButton* cmdConfig = nullptr;
    QPushButton* Command1 = nullptr;  // Ok on Frame1
    ProgressLine* Line1 = nullptr;
    ProgressLine* Line4 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
};

class Form2 final : public QWidget {
public:
    // appFolder: where the program keeps its files; it is the current folder of the logic.
    explicit Form2(const std::string& appFolder);
    ~Form2() override;

    // The load of the form: Method A selected, the settings read (or created on a first start).
    void Load();

    const Form2Controls& Controls() const { return c_; }
    Module1& Block() { return *m_; }
    FileSystem& Files() { return files_; }
    QtSurface& Surface() { return *surface_; }
    // The solution window View & Print opened, while it is open.
    SolutionWindow* Solution() const;

private:
    void BuildEntryRows();
    void BuildRunMode();
    void BuildResults();
    void BuildButtons();
    void BuildSettingsPanel();
    void SetTabOrder();
    void Connect();

    void cmdFind_Click();
    void cmdExit_Click();
    void cmdHelpTip_Click();
    void ShowSolution(const std::string& path);

    Form2Controls c_;
    std::unique_ptr<Module1> m_;
    DiskFileSystem files_;
    SystemClock clock_;
    std::unique_ptr<QtSurface> surface_;
    std::unique_ptr<Platform> platform_;
    Form3* helpTip_ = nullptr;
    // What the last press that wrote a report left, for the quality of its plan.
    std::shared_ptr<const PressOutcome> lastPress_;
    // A window of its own: it stays open when this form closes.
    QPointer<SolutionWindow> solution_;
};

}  // namespace brennik
