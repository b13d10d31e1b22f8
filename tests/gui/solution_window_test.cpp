// The solution window as View & Print opens it from the main screen: the report as on disk, the
// diagram of its lines, printing to a PDF file, Save As, and the search for a cheaper plan
// running beside the window.
#include <QApplication>
#include <QFile>
#include <QPrinter>
#include <QTemporaryDir>
#include <QtTest>

#include "diagram/report_reader.h"
#include "shell/qt/form2.h"
#include "shell/qt/solution_window.h"

namespace brennik {

// The worked example of the manual's first pages: a press of Method A leaves a plan that a
// search can make cheaper.
const QStringList kStock = {"6.1",  "30.4", "5.5",  "27.5", "4.6",
                            "22.3", "4.3",  "20.1", "3.7",  "18.6"};
const QStringList kCuts = {"1.7", "84", "2.3", "121", "1.5", "67",  ".8", "90",
                           "1.1", "65", "1.3", "119", "3.1", "114", ".6", "191"};

class SolutionWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Form2> form_;

    const Form2Controls& C() const { return form_->Controls(); }
    QByteArray FileBytes(const QString& path) const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString InFolder(const QString& name) const { return folder_->filePath(name); }

    SolutionWindow& FindAndView() {
        for (int k = 0; k < kStock.size(); k += 2) {
            C().txtSL[k / 2 + 1]->setText(kStock[k]);
            C().txtSP[k / 2 + 1]->setText(kStock[k + 1]);
        }
        for (int k = 0; k < kCuts.size(); k += 2) {
            C().txtL[k / 2 + 1]->setText(kCuts[k]);
            C().txtN[k / 2 + 1]->setText(kCuts[k + 1]);
        }
        C().cmdFind->click();
        C().cmdView->click();
        return *form_->Solution();
    }

    // The bars of the diagram shown, each as its pieces from the left: runs count as one.
    static std::vector<std::size_t> PiecesOfBars(const Diagram& diagram) {
        std::vector<std::size_t> bars;
        for (const DiagramBand& band : diagram.bands) {
            const auto pieces = std::count_if(band.boxes.begin(), band.boxes.end(), [](auto& box) {
                return box.shade == Shade::Piece || box.shade == Shade::PieceRun;
            });
            if (pieces > 0) {
                bars.push_back(static_cast<std::size_t>(pieces));
            }
        }
        return bars;
    }

private slots:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        form_ = std::make_unique<Form2>(folder_->path().toStdString());
        form_->Load();
        form_->show();
    }

    void cleanup() {
        delete form_->Solution();
        form_.reset();
        folder_.reset();
    }

    void viewShowsTheFileAndOneBarPerCuttingLine() {
        QVERIFY(form_->Solution() == nullptr);
        C().cmdView->click();
        QVERIFY(form_->Solution() == nullptr);  // nothing to view before the first press
        SolutionWindow& window = FindAndView();
        QVERIFY(window.isVisible());
        QVERIFY(window.isMaximized() || QTest::qWaitForWindowExposed(&window));
        const QByteArray report = FileBytes(InFolder("last.sol"));
        QCOMPARE(window.ReportView().toPlainText(), QString::fromLatin1(report).remove('\r'));
        std::vector<std::size_t> expected;
        for (const ReportGroup& group : ReadReport(report.toStdString()).groups) {
            for (const ReportLine& line : group.lines) {
                std::size_t pieces = 0;
                for (const ReportItem& item : line.items) {
                    pieces += static_cast<std::size_t>(item.pieces);
                }
                expected.push_back(pieces);
            }
        }
        QCOMPARE(expected.size(), 11u);
        QCOMPARE(PiecesOfBars(window.Diagram().Shown()), expected);

        // A second press shows the same window with the file as it is now; a file the press did
        // not write has no figures of the press.
        QFile file(InFolder("last.sol"));
        QVERIFY(file.open(QIODevice::Append));
        file.write("Edited\r\n");
        file.close();
        C().cmdView->click();
        QCOMPARE(form_->Solution(), &window);
        QVERIFY(window.ReportView().toPlainText().endsWith("Edited\n"));
        QVERIFY(!window.Quality().isVisible());
    }

    void printAndSaveAsWriteThePlanShown() {
        SolutionWindow& window = FindAndView();
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(InFolder("printed.pdf"));
        QCOMPARE(window.PrintOn(printer), 2);
        QVERIFY(FileBytes(InFolder("printed.pdf")).startsWith("%PDF"));

        window.SetNextFileName(InFolder("april.sol"));
        window.SaveAs();
        QCOMPARE(FileBytes(InFolder("april.sol")), FileBytes(InFolder("last.sol")));
        window.SetNextFileName(InFolder("april.pdf"));
        window.SaveAsPdf();
        QVERIFY(FileBytes(InFolder("april.pdf")).startsWith("%PDF"));
        window.SetNextFileName("");  // Cancel writes nothing
        window.SaveAs();
        QCOMPARE(window.Message(), "Saved as " + InFolder("april.pdf") + ".");
    }

    void aCheaperPlanIsFoundBesideTheWindowAndShownWithItsOwnReport() {
        SolutionWindow& window = FindAndView();
        PlanQuality& quality = window.Quality();
        QVERIFY(quality.isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!quality.Busy(), 30000);
        QVERIFY(quality.Figures().startsWith("Least possible cost: "));
        QVERIFY(quality.Figures().contains("% above it."));

        quality.FindCheaperPlan();
        QVERIFY(quality.Busy());
        QVERIFY(!quality.FindButton()->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!quality.Busy(), 30000);
        QCOMPARE(window.ShownPlan(), 1);
        QVERIFY(QFile::exists(InFolder("cheaper.sol")));
        QCOMPARE(window.ReportView().toPlainText(),
                 QString::fromLatin1(FileBytes(InFolder("cheaper.sol"))).remove('\r'));
        QVERIFY(window.ReportView().toPlainText().contains("Method Used    => A+ "));
        QVERIFY(quality.Figures().contains("A cheaper plan: cost "));
        QVERIFY(!quality.FindButton()->isEnabled());

        window.ShowPlan(0);
        QCOMPARE(window.ReportView().toPlainText(),
                 QString::fromLatin1(FileBytes(InFolder("last.sol"))).remove('\r'));
        // A new press of View on the same report keeps both plans.
        C().cmdView->click();
        QCOMPARE(window.ShownPlan(), 0);
        window.ShowPlan(1);
        QCOMPARE(window.ShownPlan(), 1);
    }
};

}  // namespace brennik

QTEST_MAIN(brennik::SolutionWindowTest)
#include "solution_window_test.moc"
