// The main screen, and the solution window that View & Print opens beside it, driven as a user
// drives them: typing into the boxes, clicking the buttons, pressing Return and Tab; checked on
// what the widgets then show. The values the logic writes are checked on the in-memory surface;
// here each kind of state is checked on its widget.
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QTemporaryDir>
#include <QtTest>
#include <algorithm>

#include "shell/qt/app_folder.h"
#include "shell/qt/form2.h"
#include "shell/qt/form3.h"
#include "shell/qt/qt_surface.h"
#include "shell/qt/screen_place.h"
#include "shell/qt/solution_window.h"

namespace brennik {

const QStringList kTwelveStock = {"12", "12"};
const QStringList kTwelveCuts = {"7.5", "20", "4.5", "21", "5.1", "24", "6.5", "25"};
const QString kTwelveFile = "12,12\r\n , \r\n7.5,20\r\n4.5,21\r\n5.1,24\r\n6.5,25\r\n";
const QStringList kFeetStock = {"20", "21", "18", "17.5", "15", "14.5", "14", "13.5", "12", "13"};
const QStringList kFeetCuts = {"7.5", "98", "7.3", "65", "4.4", "67", "6.3", "87", "5.5", "32",
                               "9.3", "51", "7.1", "43", "2.4", "47", "1.9", "56", "3.4", "18"};

// The manual's first worked example: Method A leaves a plan of eleven lines a search makes cheaper.
const QStringList kMetresStock = {"6.1",  "30.4", "5.5",  "27.5", "4.6",
                                  "22.3", "4.3",  "20.1", "3.7",  "18.6"};
const QStringList kMetresCuts = {"1.7", "84", "2.3", "121", "1.5", "67",  ".8", "90",
                                 "1.1", "65", "1.3", "119", "3.1", "114", ".6", "191"};

QColor Back(const QLineEdit* box) {
    return box->palette().color(QPalette::Base);
}
QColor Fore(const QLineEdit* box) {
    return box->palette().color(QPalette::Text);
}

// How often each text box was painted, and what it showed when it was last painted.
class PaintRecorder final : public QObject {
public:
    struct Paints {
        int count = 0;
        QString text;
        QColor back, fore;
    };

    explicit PaintRecorder(const QList<QLineEdit*>& boxes) {
        for (QLineEdit* box : boxes) {
            box->installEventFilter(this);
        }
    }
    const Paints& Of(QLineEdit* box) { return paints_[box]; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            auto* box = static_cast<QLineEdit*>(watched);
            paints_[box] = {paints_[box].count + 1, box->text(), Back(box), Fore(box)};
        }
        return false;
    }

private:
    QHash<QLineEdit*, Paints> paints_;
};

class Form2Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<Form2> form_;

    const Form2Controls& C() const { return form_->Controls(); }

    void Type(QLineEdit* box, const QString& text) {
        box->clear();
        QTest::keyClicks(box, text);
    }

    // Types (length, price) or (length, quantity) pairs into the rows from the first.
    void TypeRows(const QStringList& stock, const QStringList& cuts) {
        for (int k = 0; k < stock.size(); ++k) {
            Type((k % 2 == 0 ? C().txtSL : C().txtSP)[k / 2 + 1], stock[k]);
        }
        for (int k = 0; k < cuts.size(); ++k) {
            Type((k % 2 == 0 ? C().txtL : C().txtN)[k / 2 + 1], cuts[k]);
        }
    }

    void Click(QAbstractButton* button) { QTest::mouseClick(button, Qt::LeftButton); }

    QString InFolder(const QString& name) const { return folder_->filePath(name); }
    QByteArray FileBytes(const QString& name) const {
        QFile file(InFolder(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // A file of the folder as text, and as the report view shows it.
    QString FileText(const QString& name) const { return QString::fromLatin1(FileBytes(name)); }
    QString Shown(const QString& name) const { return FileText(name).remove('\r'); }

    SolutionWindow& FindAndView() {
        TypeRows(kMetresStock, kMetresCuts);
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
        QApplication::setActiveWindow(form_.get());
    }

    void cleanup() {
        delete form_->Solution();  // a window of its own, which the form leaves open
        form_.reset();             // before init replaces its folder
    }

    // A press shows its outcome in texts, colours, the focus, the options, the help button's
    // caption and the progress, both set beforehand so that the press must bring them back.
    void findShowsItsOutcomeOnTheWidgets() {
        QVERIFY(C().Option1->isChecked());
        form_->Surface().SetCaption({Ctl::cmdHelpTip}, " 37 %");
        form_->Surface().SetProgress({Ctl::ProgressBar1}, 37.5f);
        QCOMPARE(C().cmdHelpTip->text(), QString(" 37 %"));
        QCOMPARE(C().ProgressBar1->value(), 3750);
        TypeRows(kTwelveStock, kTwelveCuts);
        Click(C().cmdFind);
        QCOMPARE(C().txtLong->text(), QString(" Done !."));
        QCOMPARE(Back(C().txtLong), QColor(255, 0, 0));
        QCOMPARE(Fore(C().txtLong), QColor(255, 255, 0));
        QCOMPARE(C().cmdHelpTip->text(), QString("Help Tip"));
        QCOMPARE(C().ProgressBar1->value(), 0);

        // A refused row turns red and takes the focus.
        Type(C().txtN[3], "-2");
        Click(C().cmdFind);
        QCOMPARE(Fore(C().txtL[3]), QColor(255, 0, 0));
        QCOMPARE(QApplication::focusWidget(), C().txtL[3]);

        // A standard length without a price switches to Method B.
        Type(C().txtN[3], "24");
        Type(C().txtSL[2], "6");
        Click(C().cmdFind);
        QVERIFY(C().Option2->isChecked());
        QCOMPARE(Back(C().txtLong), QColor(0, 0, 255));
    }

    // With a clock that stands still, a press paints once when it begins and once when it
    // ends, whatever it writes in between; the last paint of every box shows its final state.
    void pressPaintsAtMostOncePerFrameAndEndsOnItsFinalState() {
        TypeRows(kFeetStock, kFeetCuts);
        C().Option2->setChecked(true);
        C().Check1->setChecked(true);
        QVERIFY(QTest::qWaitForWindowExposed(form_.get()));
        const auto now = std::chrono::steady_clock::now();
        form_->Surface().SetFrameClock([now] { return now; });
        PaintRecorder recorder(form_->findChildren<QLineEdit*>());
        C().cmdFind->click();
        QCOMPARE(C().txtLong->text(), QString(" Found a Better Solution !."));
        for (QLineEdit* box : form_->findChildren<QLineEdit*>()) {
            const PaintRecorder::Paints& paints = recorder.Of(box);
            QVERIFY2(paints.count <= 2, qPrintable(box->text()));
            if (paints.count > 0) {
                QCOMPARE(paints.text, box->text());
                QCOMPARE(paints.back, Back(box));
                QCOMPARE(paints.fore, Fore(box));
            }
        }
        QCOMPARE(recorder.Of(C().txtLong).count, 2);
        QVERIFY(recorder.Of(C().Text5[1]).count >= 1);
        // Method B and Advanced came from their buttons; the boxes end on the search's last pass.
        QCOMPARE(C().txtSL[1]->text(), QString("20"));
        QCOMPARE(C().txtMat[2]->text().trimmed(), QString("105"));
        QVERIFY(FileText("last.sol").contains("Method Used    => BA "));
    }

    // Save and Load go through the dialogs; Exit writes last.pro, closing by the frame does not.
    void problemFilesGoThroughTheDialogsAndOnlyExitWritesLastPro() {
        TypeRows(kTwelveStock, kTwelveCuts);
        const QString path = InFolder("bar.pro");
        form_->Surface().SetNextFileName(path);
        Click(C().cmdSave);
        QCOMPARE(FileText("bar.pro"), kTwelveFile);
        form_->close();
        QVERIFY(!QFile::exists(InFolder("last.pro")));
        form_->show();
        Click(C().cmdExit);
        QVERIFY(!form_->isVisible());
        QCOMPARE(FileText("last.pro"), kTwelveFile);

        form_->show();
        Click(C().cmdNew);
        QCOMPARE(C().txtN[4]->text(), QString());
        form_->Surface().SetNextFileName(path);
        Click(C().cmdLoad);
        QCOMPARE(C().txtN[4]->text(), QString("25"));
        form_->Surface().SetNextFileName("");  // a cancelled Load leaves an empty form
        Click(C().cmdLoad);
        QCOMPARE(C().txtSL[1]->text(), QString());
    }

    // Return and Enter press the focused button: Enter opens the settings, Return on Ok applies.
    void returnAndEnterPressTheFocusedButton() {
        QTest::keyClick(C().cmdConfig, Qt::Key_Enter, Qt::KeypadModifier);
        QVERIFY(C().Frame1->isVisible());
        C().Check2->setChecked(true);
        Type(C().Text7, "99.5");
        QTest::keyClick(C().Command1, Qt::Key_Return);
        QVERIFY(!C().Frame1->isVisible());
        QCOMPARE(FileText("brennik.cnf"), QString("#TRUE#,#FALSE#,100\r\n"));
    }

    // The form and the help tip open wholly on the screen; the tip shows its hints beside the
    // form without blocking it, and Return on its focused Ok closes it.
    void formsOpenWhollyOnTheScreen() {
        const QRect room = form_->screen()->availableGeometry();
        CentreOnMouseScreen(form_.get());
        QVERIFY(room.contains(form_->frameGeometry()));
        form_->move(room.right() - 40, room.bottom() - 40);
        Click(C().cmdHelpTip);
        QPointer<QWidget> tip;  // the help tip on the screen
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->windowTitle() == "Form3" && window->isVisible()) {
                tip = window;
            }
        }
        QVERIFY(tip != nullptr);
        QVERIFY(room.contains(tip->frameGeometry()));
        QVERIFY(!tip->isModal());
        QCOMPARE(tip->findChild<QPlainTextEdit*>()->toPlainText(),
                 QString::fromLatin1(Form3::HintText()).remove('\r'));
        QTest::keyClick(tip->findChild<QPushButton*>(), Qt::Key_Return);
        QTRY_VERIFY(tip.isNull() || !tip->isVisible());
    }

    void dialogFiltersAndProgramFolder() {
        QCOMPARE(QtSurface::QtFilter(" Brennik  problem  files  (*.pro)|*.pro| Microsoft  Excel "
                                     "comma delimited files  (*.csv)|*.csv| All  files  (*.*)|*.*"),
                 QString("Brennik  problem  files  (*.pro);;Microsoft  Excel comma delimited "
                         "files  (*.csv);;All  files  (*)"));
        // The program's own folder serves only where it is writable and not installed.
        QTemporaryDir portable;
        const QString canonical = QFileInfo(portable.path()).canonicalFilePath();
        QCOMPARE(ChooseAppFolder(portable.path(), "/usr/local/bin"), canonical);
        QVERIFY(ChooseAppFolder(portable.path(), portable.path()) != canonical);
    }

    void entryBoxesTakeSevenTypedCharacters() {
        QTest::keyClicks(C().txtL[1], "123456789");
        QCOMPARE(C().txtL[1]->text(), QString("1234567"));
        // A longer text from a file stays whole and can still be shortened.
        form_->Surface().SetText({Ctl::txtL, 2}, "1234.5678");
        C().txtL[2]->end(false);
        QTest::keyClick(C().txtL[2], Qt::Key_Backspace);
        QCOMPARE(C().txtL[2]->text(), QString("1234.567"));
    }

    void tabGoesRowByRowAndNeverReachesAResultBox() {
        C().txtSL[1]->setFocus();
        QList<QWidget*> visited;
        for (int k = 0; k < 2 * (MaxStdLengths + MaxCutLengths) + 11; ++k) {
            visited.push_back(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        // (place in the tab order, widget); Tab stops at the selected option button only.
        const QList<QPair<int, QWidget*>> stops = {
            {1, C().txtSP[1]},    {2, C().txtSL[2]},  {12, C().txtL[1]}, {13, C().txtN[1]},
            {91, C().txtN[40]},   {92, C().cmdFind},  {99, C().Option1}, {100, C().Check1},
            {101, C().cmdConfig}, {102, C().txtSL[1]}};
        for (const auto& [place, widget] : stops) {
            QCOMPARE(visited[place], widget);
        }
        for (QWidget* result : {C().txtMon[1], C().txtMat[MaxStdLengths], C().txtLong, C().Text3}) {
            QVERIFY(!visited.contains(result));
        }
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

        // View again shows the edited file in the same window, without the figures of the press.
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

QTEST_MAIN(brennik::Form2Test)
#include "form2_test.moc"
