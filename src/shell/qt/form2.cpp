#include "shell/qt/form2.h"

#include <QFont>
#include <QPalette>
#include <QValidator>

#include "engine/better_solution.h"
#include "files/problem_files.h"
#include "files/settings.h"
#include "optimise/press_plan.h"
#include "report/page_files.h"
#include "run/find_press.h"
#include "shell/qt/button_keys.h"
#include "shell/qt/form3.h"
#include "shell/qt/qt_surface.h"
#include "shell/qt/screen_place.h"
#include "shell/qt/solution_window.h"
#include "shell/qt/twips.h"

namespace brennik {

namespace {

const QColor MethodARed(255, 0, 0);
const QColor MethodBBlue(0, 0, 255);

// The entry boxes take at most seven characters from the keyboard; a longer text that the
// program itself puts there (a loaded file's number) stays whole and can still be shortened.
// Qt does not validate what setText writes, so the limit holds for typing alone.
class TypedLengthLimit final : public QValidator {
public:
    TypedLengthLimit(QLineEdit* box, int limit) : QValidator(box), limit_(limit) {
        connect(box, &QLineEdit::textChanged, this,
                [this](const QString& text) { shownLength_ = text.size(); });
    }
    State validate(QString& input, int&) const override {
        return input.size() > limit_ && input.size() > shownLength_ ? Invalid : Acceptable;
    }

private:
    int limit_;
    qsizetype shownLength_ = 0;
};

// The faces the screen was drawn for, by the names fontconfig maps to their metric twins.
QFont SansFont(double points, bool bold = false) {
    QFont font;
    font.setFamilies({"Arial", "Liberation Sans", "DejaVu Sans"});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    font.setBold(bold);
    return font;
}

QFont TitleFont(double points) {
    QFont font;
    font.setFamilies({"Times New Roman", "Liberation Serif", "DejaVu Serif"});
    font.setStyleHint(QFont::Serif);
    font.setPointSizeF(points);
    font.setBold(true);
    return font;
}

QLabel* MakeLabel(QWidget* parent, const QString& caption, int left, int top, int width, int height,
                  QColor colour = Qt::black) {
    auto* label = new QLabel(caption, parent);
    label->setFont(SansFont(8.25));
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
    Place(label, left, top, width, height);
    return label;
}

QLineEdit* MakeEntryBox(QWidget* parent, int left, int top) {
    auto* box = new QLineEdit(parent);
    box->setFont(SansFont(8.25));
    box->setValidator(new TypedLengthLimit(box, 7));
    Place(box, left, top, 735, 285);
    return box;
}

// A read-out box: right-aligned, reachable by a click but never by the Tab key.
QLineEdit* MakeResultBox(QWidget* parent, int left, int top, int width) {
    auto* box = new QLineEdit(parent);
    box->setFont(SansFont(8.25));
    box->setAlignment(Qt::AlignRight);
    box->setFocusPolicy(Qt::ClickFocus);
    Place(box, left, top, width, 285);
    return box;
}

QPushButton* MakeButton(QWidget* parent, const QString& caption, int left, int top, int width,
                        int height) {
    auto* button = new QPushButton(caption, parent);
    button->setFont(SansFont(9.75));
    Place(button, left, top, width, height);
    return button;
}

void SetRoleColour(QWidget* widget, QPalette::ColorRole role, QColor colour) {
    QPalette palette = widget->palette();
    palette.setColor(role, colour);
    widget->setPalette(palette);
}

}  // namespace

Form2::Form2(const std::string& appFolder)
    : m_(std::make_unique<Module1>()), files_(appFolder, appFolder) {
    setWindowTitle(" ");
    setFixedSize(Px(9570), Px(7200));
    setFont(SansFont(8.25));
    BuildEntryRows();
    BuildRunMode();
    BuildResults();
    BuildButtons();
    BuildSettingsPanel();
    SetTabOrder();
    surface_ = std::make_unique<QtSurface>(c_, this);
    platform_ = std::make_unique<Platform>(Platform{*surface_, files_, clock_});
    surface_->SetViewer([this](const std::string& path) { ShowSolution(path); });
    Connect();
    PressFocusedButtonOnReturn(this);
}

Form2::~Form2() = default;

void Form2::BuildEntryRows() {
    auto* standardTitle = new QLabel("Standard Lengths", this);
    standardTitle->setFont(TitleFont(15.75));
    standardTitle->setWordWrap(true);
    Place(standardTitle, 180, 120, 1455, 735);
    auto* cuttingTitle = new QLabel("Cutting Lengths", this);
    cuttingTitle->setFont(TitleFont(15.75));
    cuttingTitle->setWordWrap(true);
    Place(cuttingTitle, 120, 2400, 1215, 735);

    auto* picture = new QLabel(this);
    picture->setPixmap(QPixmap(":/brennik/icon32.png"));
    picture->setScaledContents(true);
    Place(picture, 480, 1320, 480, 480);

    MakeLabel(this, "Length", 1920, 120, 735, 255);
    MakeLabel(this, "Price", 2760, 120, 735, 255);
    MakeLabel(this, "Quantity", 5400, 120, 735, 255, MethodARed);
    MakeLabel(this, "Quantity", 6240, 120, 735, 255, MethodBBlue);
    for (int r = 1; r <= MaxStdLengths; ++r) {
        c_.txtSL[r] = MakeEntryBox(this, 1920, 360 * r);
        c_.txtSP[r] = MakeEntryBox(this, 2760, 360 * r);
    }

    const int lengthLeft[] = {165, 1920, 3660, 5400};
    const int quantityLeft[] = {1020, 2760, 4500, 6240};
    for (int block = 0; block < 4; ++block) {
        MakeLabel(this, "Length", lengthLeft[block], 3240, 735, 255);
        MakeLabel(this, "Quantity", quantityLeft[block], 3240, 735, 255);
        for (int k = 1; k <= 10; ++k) {
            const int row = block * 10 + k;
            const int top = 3480 + 360 * (k - 1);
            c_.txtL[row] = MakeEntryBox(this, lengthLeft[block], top);
            c_.txtN[row] = MakeEntryBox(this, quantityLeft[block], top);
        }
    }

    c_.txtLong = new QLineEdit(this);
    c_.txtLong->setFont(SansFont(8.25, true));
    c_.txtLong->setFocusPolicy(Qt::ClickFocus);
    Place(c_.txtLong, 1920, 2580, 5055, 285);
    c_.ProgressBar1 = new QProgressBar(this);
    c_.ProgressBar1->setRange(0, 10000);  // hundredths of a percent, for fractional values
    c_.ProgressBar1->setValue(0);
    c_.ProgressBar1->setTextVisible(false);
    Place(c_.ProgressBar1, 1920, 2925, 5055, 225);
}

void Form2::BuildRunMode() {
    auto* title = new QLabel("  Run  Mode", this);
    title->setFont(TitleFont(12));
    Place(title, 3780, 300, 1395, 375);
    c_.Option1 = new QRadioButton("Method - A", this);
    SetRoleColour(c_.Option1, QPalette::WindowText, MethodARed);
    Place(c_.Option1, 3780, 780, 1395, 315);
    c_.Option2 = new QRadioButton("Method - B", this);
    SetRoleColour(c_.Option2, QPalette::WindowText, MethodBBlue);
    Place(c_.Option2, 3780, 1200, 1395, 315);
    c_.Check1 = new QCheckBox("Advanced", this);
    Place(c_.Check1, 3780, 1620, 1395, 375);
    c_.cmdHelpTip = MakeButton(this, "Help Tip", 3780, 2160, 1335, 315);
    c_.cmdHelpTip->setFont(SansFont(8.25));
    c_.cmdHelpTip->setToolTip("GuideLines for selecting a method");
}

void Form2::BuildResults() {
    for (int r = 1; r <= MaxStdLengths; ++r) {
        c_.txtMon[r] = MakeResultBox(this, 5400, 360 * r, 735);
        c_.txtMat[r] = MakeResultBox(this, 6240, 360 * r, 735);
    }
    // Method A's block above, Method B's below; each row: total, percent, and the cost.
    struct Block {
        std::array<QLineEdit*, 3>& money;
        std::array<QLineEdit*, 3>& material;
        QLineEdit*& cost;
        int top;
    };
    for (const Block& block :
         {Block{c_.Text1, c_.Text2, c_.Text3, 720}, Block{c_.Text4, c_.Text5, c_.Text6, 2460}}) {
        MakeLabel(this, "Waste", 8100, block.top - 300, 700, 255);
        MakeLabel(this, "%", 9060, block.top - 360, 300, 255);
        MakeLabel(this, "Money", 7200, block.top + 30, 600, 255);
        MakeLabel(this, "Material", 7200, block.top + 390, 600, 255);
        MakeLabel(this, "Cost", 7200, block.top + 750, 600, 255);
        block.money[1] = MakeResultBox(this, 7800, block.top, 1035);
        block.money[2] = MakeResultBox(this, 8880, block.top, 555);
        block.material[1] = MakeResultBox(this, 7800, block.top + 360, 1035);
        block.material[2] = MakeResultBox(this, 8880, block.top + 360, 555);
        block.cost = MakeResultBox(this, 7800, block.top + 720, 1635);
    }
    c_.Line1 = new ProgressLine(this, MethodARed, 7230, 9390, 240);
    c_.Line4 = new ProgressLine(this, MethodBBlue, 7200, 9390, 1980);
}

void Form2::BuildButtons() {
    c_.cmdFind = MakeButton(this, "&Find Solution", 7200, 3660, 2235, 1050);
    c_.cmdFind->setFont(TitleFont(15.75));
    c_.cmdView = MakeButton(this, "&View &&  Print", 7200, 4860, 2235, 435);
    c_.cmdSave = MakeButton(this, "&Save ", 7200, 5400, 1035, 435);
    c_.cmdLoad = MakeButton(this, "&Load", 8400, 5400, 1035, 435);
    c_.cmdNew = MakeButton(this, "&New", 7200, 5940, 1035, 450);
    c_.cmdExit = MakeButton(this, "E&xit", 8400, 5940, 1035, 465);
    c_.cmdConfig = MakeButton(this, "&Configure", 7200, 6540, 2235, 495);
}

void Form2::BuildSettingsPanel() {
    c_.Frame1 = new QFrame(this);
    c_.Frame1->setFrameShape(QFrame::Box);
    c_.Frame1->setAutoFillBackground(true);
    Place(c_.Frame1, 7200, 3480, 2235, 3555);

    auto* title = new QLabel("Configuration", c_.Frame1);
    QFont titleFont("Arial Black");
    titleFont.setStyleHint(QFont::SansSerif);
    titleFont.setWeight(QFont::Black);
    titleFont.setPointSizeF(12);
    title->setFont(titleFont);
    Place(title, 180, 240, 1875, 375);
    auto* rule = new QFrame(c_.Frame1);
    rule->setAutoFillBackground(true);
    SetRoleColour(rule, QPalette::Window, QColor(128, 0, 128));
    rule->setGeometry(Px(180), Px(660), Px(1800), 2);

    c_.Check2 = new QCheckBox("Waste Summary", c_.Frame1);
    Place(c_.Check2, 180, 840, 1935, 495);
    c_.Check3 = new QCheckBox("Reference", c_.Frame1);
    Place(c_.Check3, 180, 1560, 1815, 240);
    MakeLabel(c_.Frame1, "Page width", 240, 2100, 1155, 255);
    c_.Text7 = new QLineEdit(c_.Frame1);
    c_.Text7->setFont(SansFont(8.25, true));
    c_.Text7->setAlignment(Qt::AlignCenter);
    c_.Text7->setValidator(new TypedLengthLimit(c_.Text7, 4));
    Place(c_.Text7, 1440, 2040, 555, 360);
    c_.Command1 = MakeButton(c_.Frame1, "&Ok", 240, 2880, 1755, 495);
    c_.Frame1->hide();
    c_.Frame1->raise();
}

void Form2::SetTabOrder() {
    std::vector<QWidget*> order;
    for (int r = 1; r <= MaxStdLengths; ++r) {
        order.push_back(c_.txtSL[r]);
        order.push_back(c_.txtSP[r]);
    }
    for (int r = 1; r <= MaxCutLengths; ++r) {
        order.push_back(c_.txtL[r]);
        order.push_back(c_.txtN[r]);
    }
    order.insert(order.end(), {c_.cmdFind, c_.cmdView, c_.cmdSave, c_.cmdLoad, c_.cmdNew,
                               c_.cmdExit, c_.cmdHelpTip, c_.Option1, c_.Option2, c_.Check1,
                               c_.cmdConfig, c_.Check2, c_.Text7, c_.Command1, c_.Check3});
    for (std::size_t k = 1; k < order.size(); ++k) {
        setTabOrder(order[k - 1], order[k]);
    }
}

void Form2::Connect() {
    Module1& m = *m_;
    QtSurface& surface = *surface_;
    connect(c_.cmdFind, &QPushButton::clicked, this, [this] { cmdFind_Click(); });
    connect(c_.cmdView, &QPushButton::clicked, this,
            [this, &m, &surface] { ViewSolution(m, surface, files_); });
    connect(c_.cmdSave, &QPushButton::clicked, this,
            [this, &m, &surface] { SaveProblem(m, surface, files_); });
    connect(c_.cmdLoad, &QPushButton::clicked, this,
            [this, &m, &surface] { LoadProblem(m, surface, files_); });
    connect(c_.cmdNew, &QPushButton::clicked, this, [&m, &surface] { ClearProblem(m, surface); });
    connect(c_.cmdExit, &QPushButton::clicked, this, [this] { cmdExit_Click(); });
    connect(c_.cmdConfig, &QPushButton::clicked, this,
            [&m, &surface] { OpenSettingsPanel(m, surface); });
    connect(c_.Command1, &QPushButton::clicked, this,
            [this, &m, &surface] { ApplySettings(m, surface, files_); });
    connect(c_.cmdHelpTip, &QPushButton::clicked, this, [this] { cmdHelpTip_Click(); });
}

void Form2::Load() {
    c_.Option1->setChecked(true);
    LoadSettings(*m_, *surface_, files_);
}

// The press, and what it left for the solution window: a press the intake refused leaves
// last.sol, and what is known of it, as they were.
void Form2::cmdFind_Click() {
    const bool advanced = c_.Check1->isChecked();
    surface_->BeginPress();
    brennik::cmdFind_Click(*m_, *platform_);
    surface_->EndPress();
    const Module1& m = *m_;
    if (m.EntryError || m.LengthError) {
        return;
    }
    auto press = std::make_shared<PressOutcome>();
    if (m.FileError || !files_.ReadFile("last.sol", press->report)) {
        lastPress_.reset();
        return;
    }
    press->block = m;
    press->advanced = advanced;
    press->problem = ProblemOfPress(m);
    press->plan = PlanOfPress(m, press->problem);
    lastPress_ = std::move(press);
}

SolutionWindow* Form2::Solution() const {
    return solution_;
}

void Form2::ShowSolution(const std::string& path) {
    if (solution_ == nullptr) {
        solution_ = new SolutionWindow(files_.CurrentFolder());
        solution_->setWindowIcon(windowIcon());
    }
    solution_->ShowSolution(path, m_->PageWidth, lastPress_);
}

void Form2::cmdExit_Click() {
    SaveLastProblem(*m_, *surface_, files_);
    close();
}

void Form2::cmdHelpTip_Click() {
    if (helpTip_ == nullptr) {
        helpTip_ = new Form3(this);
        connect(helpTip_, &QObject::destroyed, this, [this] { helpTip_ = nullptr; });
    }
    helpTip_->show();
    // Placed beside the form, the tip may stand out over the screen's edge; its frame is known
    // once it is shown.
    KeepOnScreen(helpTip_);
    helpTip_->raise();
}

}  // namespace brennik
