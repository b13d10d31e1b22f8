#include "shell/qt/plan_quality.h"

#include <QHBoxLayout>
#include <QtConcurrent/QtConcurrentRun>

#include "files/file_system.h"
#include "report/clock.h"
#include "report/plan_report.h"

namespace brennik {

namespace {

// Seconds for the least figure and for a search for a cheaper plan alike.
constexpr double TimeLimit = 10;

QString Amount(double value) {
    return QString::number(value, 'f', 2);
}

QString FigureName(const CuttingProblem& problem) {
    return problem.objective == Objective::Cost ? "cost" : "material";
}

}  // namespace

QString FigureText(const CuttingProblem& problem, double figure) {
    return FigureName(problem) + " " + Amount(figure);
}

PlanQuality::PlanQuality(std::string folder, CheaperPlanFound onCheaperPlan, QWidget* parent)
    : QFrame(parent),
      folder_(std::move(folder)),
      onCheaperPlan_(std::move(onCheaperPlan)),
      figures_(new QLabel(this)),
      find_(new QPushButton("&Find a cheaper plan", this)),
      progress_(new QProgressBar(this)),
      cancelButton_(new QPushButton("Cancel", this)) {
    setFrameShape(QFrame::StyledPanel);
    figures_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    progress_->setRange(0, 100);
    progress_->setFixedWidth(220);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(figures_, 1);
    layout->addWidget(progress_);
    layout->addWidget(cancelButton_);
    layout->addWidget(find_);
    ShowBusy(false);
    hide();

    connect(find_, &QPushButton::clicked, this, [this] { FindCheaperPlan(); });
    connect(cancelButton_, &QPushButton::clicked, this, [this] { Cancel(); });
    connect(&watcher_, &QFutureWatcher<PlanSearchOutcome>::finished, this, [this] { Finished(); });
    connect(&ticker_, &QTimer::timeout, this, [this] {
        const double done = static_cast<double>(elapsed_.elapsed()) / 1000.0 / TimeLimit;
        progress_->setValue(static_cast<int>(std::min(done, 1.0) * 100));
    });
}

// A search still running when the window goes is stopped and waited for: it reads the press.
PlanQuality::~PlanQuality() {
    cancel_ = true;
    watcher_.waitForFinished();
}

void PlanQuality::SetPress(std::shared_ptr<const PressOutcome> press) {
    if (press == press_) {
        return;
    }
    cancel_ = true;
    watcher_.waitForFinished();
    press_ = std::move(press);
    busy_ = false;
    find_->setEnabled(true);
    setVisible(press_ != nullptr);
    if (press_ != nullptr) {
        Start(false);
    }
}

void PlanQuality::FindCheaperPlan() {
    if (press_ == nullptr || (Busy() && searching_)) {
        return;
    }
    cancel_ = true;
    watcher_.waitForFinished();
    Start(true);
}

void PlanQuality::Cancel() {
    cancel_ = true;
}

void PlanQuality::Start(bool findPlan) {
    cancel_ = false;
    busy_ = true;
    searching_ = findPlan;
    const PlanSearchOptions options{TimeLimit, &cancel_, findPlan};
    ShowBusy(true);
    if (findPlan) {
        Say("Searching for a cheaper plan, for up to " + QString::number(TimeLimit) +
            " seconds...");
    } else {
        least_.clear();
        Say("Working out the least possible " + FigureName(press_->problem) + "...");
    }
    elapsed_.start();
    ticker_.start(100);
    watcher_.setFuture(QtConcurrent::run([press = press_, options] {
        return SearchCheaperPlan(press->problem, press->plan, options);
    }));
}

void PlanQuality::Finished() {
    // A task replaced by a newer one may still report; only the one now watched counts.
    if (!busy_ || !watcher_.isFinished() || press_ == nullptr) {
        return;
    }
    ticker_.stop();
    busy_ = false;
    ShowBusy(false);
    const PlanSearchOutcome outcome = watcher_.result();
    ShowLeast(outcome);
    if (!searching_) {
        return;
    }
    // A finished search would only find the same plan again.
    find_->setEnabled(false);
    const CuttingProblem& problem = press_->problem;
    QString found;
    if (outcome.improved) {
        auto block = std::make_unique<Module1>(press_->block);
        block->Advanced = ToFlag(press_->advanced);
        DiskFileSystem files(folder_, folder_);
        const SystemClock clock;
        std::string report;
        if (WritePlanReport(*block, problem, outcome.plan, files, clock, "cheaper.sol") &&
            files.ReadFile("cheaper.sol", report)) {
            const double press = MethodFigure(problem, press_->plan);
            const double cheaper = MethodFigure(problem, outcome.plan);
            found = "A cheaper plan: " + FigureText(problem, cheaper) + ", " +
                    Amount((press - cheaper) / press * 100) + " % less, in cheaper.sol.";
            onCheaperPlan_(report, cheaper);
        } else {
            found = "A cheaper plan was found, but cheaper.sol could not be written.";
        }
    } else if (outcome.cancelled) {
        found = "The search was cancelled before it found a cheaper plan.";
        find_->setEnabled(true);
    } else {
        found = "No cheaper plan was found.";
    }
    Say(found);
}

void PlanQuality::ShowLeast(const PlanSearchOutcome& outcome) {
    const CuttingProblem& problem = press_->problem;
    const std::optional<double> least = LeastMethodFigure(problem, outcome);
    const std::optional<double> above = PercentAboveLeast(problem, press_->plan, outcome);
    if (!least) {
        least_ = "The least possible " + FigureName(problem) + " could not be worked out in time.";
        Say("");
        return;
    }
    least_ = "Least possible " + FigureName(problem) + ": " +
             (outcome.boundProven ? "" : "at least ") + Amount(*least) + ". ";
    if (above && *above >= 0.005) {
        least_ += "The plan of the press is " + QString(outcome.boundProven ? "" : "at most ") +
                  Amount(*above) + " % above it.";
    } else {
        least_ += "The plan of the press reaches it.";
    }
    Say("");
}

// The least figure on the first line, what the last task found or is doing on the second.
void PlanQuality::Say(const QString& news) {
    figures_->setText(least_.isEmpty() || news.isEmpty() ? least_ + news : least_ + "\n" + news);
}

void PlanQuality::ShowBusy(bool busy) {
    const bool searching = busy && searching_;
    progress_->setVisible(searching);
    progress_->setValue(0);
    cancelButton_->setVisible(searching);
    find_->setVisible(!searching);
}

}  // namespace brennik
