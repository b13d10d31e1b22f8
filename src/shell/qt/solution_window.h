// The solution window that View & Print opens: the report exactly as on disk, the cutting
// diagram, printing with a preview, Save as PDF and Save As; for the plan of the last press also
// how good it is, a search for a cheaper plan, and the two plans side by side.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QRadioButton>
#include <QTabWidget>
#include <QWidget>
#include <array>
#include <memory>
#include <optional>
#include <string>

#include "paint/solution_pages.h"
#include "shell/qt/diagram_view.h"
#include "shell/qt/plan_quality.h"

namespace brennik {

class SolutionWindow final : public QWidget {
public:
    // `folder`: the program's folder, where cheaper.sol is written and the dialogs open.
    explicit SolutionWindow(std::string folder);

    // Shows the file at `path` as it is now, sliced for print at `pageWidth`; `press` is what the
    // last press left, whose plan the file may hold. Brings the window up, maximised.
    void ShowSolution(const std::string& path, int pageWidth,
                      std::shared_ptr<const PressOutcome> press);

    void Print();
    void SaveAsPdf();
    void SaveAs();
    // Paints the pages of the plan shown on `printer`; the number of pages.
    int PrintOn(QPrinter& printer) const;

    // The answer of the next file dialog instead of asking: a full path, or "" for Cancel.
    void SetNextFileName(const QString& path) { nextFileName_ = path; }

    const QPlainTextEdit& ReportView() const { return *report_; }
    const DiagramView& Diagram() const { return *diagram_; }
    PlanQuality& Quality() { return *quality_; }
    QString Message() const { return message_->text(); }
    // Which plan is shown: 0 the file View & Print opened, 1 the cheaper plan.
    void ShowPlan(int plan);
    int ShownPlan() const { return shown_; }

private:
    struct ShownFile {
        std::string fileName;
        std::string report;
    };

    QWidget* MakeButtons();
    void AddCheaperPlan(const std::string& report, double figure);
    SolutionDocument Document() const;
    QString AskFileName(const QString& title, const QString& filter, const QString& suffix,
                        const QString& proposed);

    std::string folder_;
    int pageWidth_ = 66;
    std::array<std::optional<ShownFile>, 2> plans_;
    int shown_ = 0;
    std::optional<QString> nextFileName_;
    PlanQuality* quality_;
    QWidget* chooser_;
    std::array<QRadioButton*, 2> choices_{};
    QTabWidget* tabs_;
    QPlainTextEdit* report_;
    DiagramView* diagram_;
    QLabel* message_;
};

}  // namespace brennik
