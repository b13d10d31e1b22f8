#include "shell/qt/solution_window.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QSaveFile>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "diagram/report_reader.h"
#include "files/file_system.h"
#include "paint/solution_files.h"

namespace brennik {

namespace {

QString FromBytes(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

}  // namespace

SolutionWindow::SolutionWindow(std::string folder)
    : QWidget(nullptr, Qt::Window),
      folder_(std::move(folder)),
      quality_(new PlanQuality(
          folder_,
          [this](const std::string& report, double figure) { AddCheaperPlan(report, figure); },
          this)),
      chooser_(new QWidget(this)),
      tabs_(new QTabWidget(this)),
      report_(new QPlainTextEdit(this)),
      diagram_(new DiagramView(this)),
      message_(new QLabel(this)) {
    report_->setReadOnly(true);
    report_->setLineWrapMode(QPlainTextEdit::NoWrap);
    report_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    report_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    tabs_->addTab(report_, "&Report");
    tabs_->addTab(diagram_, "Cutting &Diagram");

    auto* choices = new QHBoxLayout(chooser_);
    choices->setContentsMargins(0, 0, 0, 0);
    choices->addWidget(new QLabel("Plan shown:", chooser_));
    for (int plan = 0; plan < 2; ++plan) {
        choices_[plan] = new QRadioButton(chooser_);
        choices->addWidget(choices_[plan]);
        connect(choices_[plan], &QRadioButton::toggled, this, [this, plan](bool on) {
            if (on) {
                ShowPlan(plan);
            }
        });
    }
    choices->addStretch();
    chooser_->hide();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeButtons());
    layout->addWidget(quality_);
    layout->addWidget(chooser_);
    layout->addWidget(tabs_, 1);
    layout->addWidget(message_);
    setAttribute(Qt::WA_DeleteOnClose);
}

QWidget* SolutionWindow::MakeButtons() {
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add = [this, bar, row](const QString& caption, const QKeySequence& keys,
                                      auto action) {
        auto* button = new QPushButton(caption, bar);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, action);
        if (!keys.isEmpty()) {
            connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
            button->setToolTip(keys.toString(QKeySequence::NativeText));
        }
    };
    add("&Print...", QKeySequence::Print, [this] { Print(); });
    add("Save as P&DF...", QKeySequence(), [this] { SaveAsPdf(); });
    add("Save &As...", QKeySequence::SaveAs, [this] { SaveAs(); });
    row->addSpacing(24);
    add("Zoom &In", QKeySequence::ZoomIn, [this] {
        tabs_->setCurrentWidget(diagram_);
        diagram_->ZoomIn();
    });
    add("Zoom &Out", QKeySequence::ZoomOut, [this] {
        tabs_->setCurrentWidget(diagram_);
        diagram_->ZoomOut();
    });
    add("Fit &Width", QKeySequence(Qt::CTRL | Qt::Key_0), [this] {
        tabs_->setCurrentWidget(diagram_);
        diagram_->FitWidth();
    });
    row->addStretch();
    add("&Close", QKeySequence::Close, [this] { close(); });
    return bar;
}

void SolutionWindow::ShowSolution(const std::string& path, int pageWidth,
                                  std::shared_ptr<const PressOutcome> press) {
    pageWidth_ = pageWidth;
    std::string contents;
    const QFileInfo file(QString::fromStdString(path));
    DiskFileSystem files(folder_, folder_);
    if (!files.ReadFile(path, contents)) {
        message_->setText("Cannot read " + file.filePath() + ".");
    } else {
        message_->clear();
    }
    const bool pressPlan = press != nullptr && press->report == contents;
    if (!pressPlan || press.get() != quality_->Press()) {
        plans_[1].reset();
    }
    quality_->SetPress(pressPlan ? std::move(press) : nullptr);
    plans_[0] = ShownFile{file.fileName().toStdString(), contents};
    ShowPlan(plans_[1] ? shown_ : 0);
    // Without a window manager to maximise it, the window still takes the whole screen.
    if (const QScreen* shownOn = screen()) {
        setGeometry(shownOn->availableGeometry());
    }
    showMaximized();
    raise();
    activateWindow();
}

void SolutionWindow::ShowPlan(int plan) {
    if (!plans_[plan]) {
        return;
    }
    shown_ = plan;
    const ShownFile& file = *plans_[plan];
    setWindowTitle(QString::fromStdString(file.fileName) + " - Brennik");
    report_->setPlainText(FromBytes(file.report).remove('\r'));
    diagram_->SetReport(ReadReport(file.report));
    chooser_->setVisible(plans_[1].has_value());
    if (plans_[1]) {
        const CuttingProblem& problem = quality_->Press()->problem;
        choices_[0]->setText(
            "Plan of the press (" + QString::fromStdString(plans_[0]->fileName) +
            "): " + FigureText(problem, MethodFigure(problem, quality_->Press()->plan)));
    }
    choices_[plan]->blockSignals(true);
    choices_[plan]->setChecked(true);
    choices_[plan]->blockSignals(false);
}

void SolutionWindow::AddCheaperPlan(const std::string& report, double figure) {
    plans_[1] = ShownFile{"cheaper.sol", report};
    choices_[1]->setText("Cheaper plan (cheaper.sol): " +
                         FigureText(quality_->Press()->problem, figure));
    ShowPlan(1);
}

SolutionDocument SolutionWindow::Document() const {
    const ShownFile& file = *plans_[shown_];
    return {file.fileName, file.report, pageWidth_};
}

int SolutionWindow::PrintOn(QPrinter& printer) const {
    return PrintSolution(printer, Document());
}

void SolutionWindow::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(Document().fileName));
    QPrintPreviewDialog preview(&printer, this);
    preview.setWindowTitle("Print " + printer.docName());
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* target) { PrintOn(*target); });
    preview.exec();
}

QString SolutionWindow::AskFileName(const QString& title, const QString& filter,
                                    const QString& suffix, const QString& proposed) {
    if (nextFileName_) {
        return *std::exchange(nextFileName_, std::nullopt);
    }
    QFileDialog dialog(this, title, QString::fromStdString(folder_));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(filter);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(proposed);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    return dialog.selectedFiles().front();
}

void SolutionWindow::SaveAsPdf() {
    const SolutionDocument document = Document();
    const QString path = AskFileName(
        "Save as PDF", "PDF files (*.pdf)", "pdf",
        QFileInfo(QString::fromStdString(document.fileName)).completeBaseName() + ".pdf");
    if (path.isEmpty()) {
        return;
    }
    message_->setText(WriteSolutionPdf(path.toStdString(), document)
                          ? "Saved as " + path + "."
                          : "Cannot write " + path + ".");
}

void SolutionWindow::SaveAs() {
    const QString path = AskFileName("Save the solution as", "Solutions (*.sol)", "sol", "");
    if (path.isEmpty()) {
        return;
    }
    const std::string& report = plans_[shown_]->report;
    QSaveFile file(path);
    const bool saved = file.open(QIODevice::WriteOnly) &&
                       file.write(report.data(), static_cast<qint64>(report.size())) ==
                           static_cast<qint64>(report.size()) &&
                       file.commit();
    message_->setText(saved ? "Saved as " + path + "." : "Cannot write " + path + ".");
}

}  // namespace brennik
