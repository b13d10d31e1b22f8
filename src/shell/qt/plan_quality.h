// How good the press's plan is, shown above its report: the least cost (or material) that any
// plan could reach, worked out in the background, and a search for a cheaper plan that runs off
// the GUI thread with a progress bar and Cancel, and writes the plan it finds to cheaper.sol.
#pragma once

#include <QElapsedTimer>
#include <QFrame>
#include <QFutureWatcher>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <atomic>
#include <functional>
#include <memory>
#include <string>

#include "optimise/cheaper_plan.h"
#include "state/module1.h"

namespace brennik {

// What a press left: its block, its problem and plan, and the report it wrote.
struct PressOutcome {
    Module1 block;
    bool advanced = false;  // Advanced as it stood at the press
    CuttingProblem problem;
    Plan plan;
    std::string report;  // last.sol as the press wrote it
};

// A plan's figure as the window writes it: "cost 6080.10" or "material 1287.80".
QString FigureText(const CuttingProblem& problem, double figure);

class PlanQuality final : public QFrame {
public:
    // `folder` is where cheaper.sol is written; `onCheaperPlan` gets the text of the cheaper
    // plan's report, once it has been written, and its figure.
    using CheaperPlanFound = std::function<void(const std::string& report, double figure)>;
    PlanQuality(std::string folder, CheaperPlanFound onCheaperPlan, QWidget* parent);
    ~PlanQuality() override;

    // The press whose plan is shown, or none; a new press starts the work on its least figure.
    void SetPress(std::shared_ptr<const PressOutcome> press);
    const PressOutcome* Press() const { return press_.get(); }

    void FindCheaperPlan();
    void Cancel();
    // A task runs, or its result has not been shown yet.
    bool Busy() const { return busy_; }
    QString Figures() const { return figures_->text(); }
    QPushButton* FindButton() const { return find_; }

private:
    void Start(bool findPlan);
    void Finished();
    void ShowLeast(const PlanSearchOutcome& outcome);
    void ShowBusy(bool busy);
    void Say(const QString& news);

    std::string folder_;
    CheaperPlanFound onCheaperPlan_;
    QString least_;  // what is known of the least figure
    std::shared_ptr<const PressOutcome> press_;
    bool busy_ = false;
    bool searching_ = false;  // the running task searches for a plan, not the least figure only
    std::atomic<bool> cancel_{false};
    QFutureWatcher<PlanSearchOutcome> watcher_;
    QElapsedTimer elapsed_;
    QTimer ticker_;
    QLabel* figures_;
    QPushButton* find_;
    QProgressBar* progress_;
    QPushButton* cancelButton_;
};

}  // namespace brennik
