// The solution window as View & Print opens it: the report as on disk, the diagram of its lines,
// printing to a PDF file, Save As, and the search for a cheaper plan running beside the window.
#include <QApplication>
#include <QFile>
#include <QPrinter>
#include <QTemporaryDir>
#include <QtTest>
#include <algorithm>

#include "shell/qt/form2.h"
#include "shell/qt/solution_window.h"

namespace brennik {

// The manual's first worked example: Method A leaves a plan of eleven lines a search makes cheaper.
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
    QString InFolder(const QString& name) const { return folder_->filePath(name); }
    QByteArray FileBytes(const QString& name) const {
        QFile file(InFolder(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // A file of the folder as the report view shows it.
    QString Shown(const QString& name) const {
        return QString::fromLatin1(FileBytes(name)).remove('\r');
    }

    SolutionWindow& FindAndView() {
        for (int k = 0; k < kStock.size(); ++k) {
            (k % 2 == 0 ? C().txtSL : C().txtSP)[k / 2 + 1]->setText(kStock[k]);
        }
        for (int k = 0; k < kCuts.size(); ++k) {
            (k % 2 == 0 ? C().txtL : C().txtN)[k / 2 + 1]->setText(kCuts[k]);
        }
        C().cmdFind->click();
        C().cmdView->click();
        return *form_->Solution();
    }

private slots:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        form_ = std::make_unique<Form2>(folder_->path().toStdString());
        form_->Load();
        form_->show();
    }

    void cleanup() {
        delete form_->Solution();  // a window of its own, which the form leaves open
        form_.reset();
    }

    void viewShowsTheFileAndOneBarPerCuttingLine() {
        C().cmdView->click();
        QVERIFY(form_->Solution() == nullptr);  // nothing to view before the first press
        SolutionWindow& window = FindAndView();
        QVERIFY(window.isVisible());
        QVERIFY(window.isMaximized() || QTest::qWaitForWindowExposed(&window));
        QCOMPARE(window.ReportView().toPlainText(), Shown("last.sol"));
        int bars = 0;  // the bands of the diagram that hold pieces
        for (const DiagramBand& band : window.Diagram().Shown().bands) {
            bars += std::any_of(band.boxes.begin(), band.boxes.end(), [](const DiagramBox& box) {
                return box.shade == Shade::Piece || box.shade == Shade::PieceRun;
            });
        }
        QCOMPARE(bars, 11);

        // A second press shows the same window with the file as it is now; a file the press did
        // not write has no figures of the press.
        QFile file(InFolder("last.sol"));
        QVERIFY(file.open(QIODevice::Append));
        file.write("Edited\r\n");
        file.close();
        C().cmdView->click();
        QCOMPARE(form_->Solution(), &window);
        QCOMPARE(window.ReportView().toPlainText(), Shown("last.sol"));
        QVERIFY(!window.Quality().isVisible());
    }

    void printAndSaveAsPdfWriteThePlanShown() {
        SolutionWindow& window = FindAndView();
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(InFolder("printed.pdf"));
        QCOMPARE(window.PrintOn(printer), 2);
        window.SetNextFileName(InFolder("april.pdf"));
        window.SaveAsPdf();
        QVERIFY(FileBytes("april.pdf").startsWith("%PDF"));
        window.SetNextFileName("");  // Cancel writes nothing
        window.SaveAs();
        QCOMPARE(window.Message(), "Saved as " + InFolder("april.pdf") + ".");
    }

    void aCheaperPlanIsFoundBesideTheWindowAndShownAndSavedWithItsOwnReport() {
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
        QCOMPARE(window.ReportView().toPlainText(), Shown("cheaper.sol"));
        QVERIFY(window.ReportView().toPlainText().contains("Method Used    => A+ "));
        QVERIFY(quality.Figures().contains("A cheaper plan: cost "));
        QVERIFY(!quality.FindButton()->isEnabled());
        window.SetNextFileName(InFolder("april.sol"));
        window.SaveAs();
        QCOMPARE(FileBytes("april.sol"), FileBytes("cheaper.sol"));

        // A new press of View on the same report keeps both plans and the one shown.
        C().cmdView->click();
        QCOMPARE(window.ShownPlan(), 1);
        window.ShowPlan(0);
        QCOMPARE(window.ReportView().toPlainText(), Shown("last.sol"));
    }
};

}  // namespace brennik

QTEST_MAIN(brennik::SolutionWindowTest)
#include "solution_window_test.moc"
