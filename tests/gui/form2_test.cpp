// The main screen driven as a user drives it: typing into the boxes, clicking the buttons,
// pressing Tab; checked on what the widgets then show.
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QtTest>

#include "shell/qt/app_folder.h"
#include "shell/qt/form2.h"
#include "shell/qt/form3.h"
#include "shell/qt/qt_surface.h"

namespace brennik {

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

    void TypeBarOfTwelve() {
        Type(C().txtSL[1], "12");
        Type(C().txtSP[1], "12");
        const QStringList cuts = {"7.5", "20", "4.5", "21", "5.1", "24", "6.5", "25"};
        for (int row = 1; row <= 4; ++row) {
            Type(C().txtL[row], cuts[2 * row - 2]);
            Type(C().txtN[row], cuts[2 * row - 1]);
        }
    }

    void TypeFeetProblem() {
        const QStringList stock = {"20",   "21", "18",   "17.5", "15",
                                   "14.5", "14", "13.5", "12",   "13"};
        for (int row = 1; row <= 5; ++row) {
            Type(C().txtSL[row], stock[2 * row - 2]);
            Type(C().txtSP[row], stock[2 * row - 1]);
        }
        const QStringList cuts = {"7.5", "98", "7.3", "65", "4.4", "67", "6.3", "87", "5.5", "32",
                                  "9.3", "51", "7.1", "43", "2.4", "47", "1.9", "56", "3.4", "18"};
        for (int row = 1; row <= 10; ++row) {
            Type(C().txtL[row], cuts[2 * row - 2]);
            Type(C().txtN[row], cuts[2 * row - 1]);
        }
    }

    QColor Back(QLineEdit* box) const { return box->palette().color(QPalette::Base); }
    QColor Fore(QLineEdit* box) const { return box->palette().color(QPalette::Text); }
    QString FileText(const QString& name) const {
        QFile file(folder_->filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
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
        form_.reset();
        folder_.reset();
    }

    void loadSelectsMethodAAndWritesTheSettings() {
        QVERIFY(C().Option1->isChecked());
        QVERIFY(!C().Check1->isChecked());
        QVERIFY(!C().Frame1->isVisible());
        QCOMPARE(FileText("brennik.cnf"), QString("#FALSE#,#FALSE#,66\r\n"));
    }

    void methodASolvesTheBarOfTwelve() {
        TypeBarOfTwelve();
        QTest::mouseClick(C().cmdFind, Qt::LeftButton);
        QCOMPARE(C().txtLong->text(), QString(" Done !."));
        QCOMPARE(Back(C().txtLong), QColor(255, 0, 0));
        QCOMPARE(Fore(C().txtLong), QColor(255, 255, 0));
        QCOMPARE(C().Text3->text(), QString("             540"));
        QCOMPARE(C().Text2[1]->text().trimmed(), QString("10.6"));
        QCOMPARE(C().Text1[2]->text().trimmed(), QString("1.96"));
        QCOMPARE(C().txtMon[1]->text(), QString("      45"));
        QCOMPARE(Back(C().Text3), QColor(255, 255, 255));
        QCOMPARE(C().cmdHelpTip->text(), QString("Help Tip"));
        QCOMPARE(C().ProgressBar1->value(), 0);
        QVERIFY(FileText("last.sol").contains("Method Used    => A  "));
    }

    void methodBAdvancedFindsTheBetterSolution() {
        TypeFeetProblem();
        C().Option2->setChecked(true);
        C().Check1->setChecked(true);
        QTest::mouseClick(C().cmdFind, Qt::LeftButton);
        QCOMPARE(C().txtLong->text(), QString(" Found a Better Solution !."));
        QCOMPARE(Fore(C().txtLong), QColor(0, 0, 255));
        const QStringList bars = {"9", "105", "77", "2", "4"};
        for (int row = 1; row <= 5; ++row) {
            QCOMPARE(C().txtMat[row]->text().trimmed(), bars[row - 1]);
        }
        QCOMPARE(C().txtSL[1]->text(), QString("20"));
        QCOMPARE(C().Text6->text().trimmed(), QString("3222"));
        QVERIFY(C().Check1->isChecked());
        QVERIFY(FileText("last.sol").contains("Method Used    => BA "));
    }

    void methodAAdvancedFindsNothingBetter() {
        TypeFeetProblem();
        C().Check1->setChecked(true);
        QTest::mouseClick(C().cmdFind, Qt::LeftButton);
        QCOMPARE(C().txtLong->text(), QString(" Sorry,  No Better Solution."));
        QCOMPARE(Back(C().txtLong), QColor(255, 255, 255));
        QCOMPARE(C().txtMon[2]->text().trimmed(), QString("110"));
        QCOMPARE(C().txtMon[1]->text().trimmed(), QString());
    }

    void badEntryTurnsItsRowRedAndTakesTheFocus() {
        TypeBarOfTwelve();
        Type(C().txtN[3], "-2");
        Type(C().txtN[4], "abc");
        QTest::mouseClick(C().cmdFind, Qt::LeftButton);
        QCOMPARE(C().txtLong->text(), QString(" Unacceptable Entry !."));
        QCOMPARE(Fore(C().txtLong), QColor(255, 0, 0));
        QCOMPARE(Fore(C().txtL[3]), QColor(255, 0, 0));
        QCOMPARE(Fore(C().txtN[3]), QColor(255, 0, 0));
        QCOMPARE(Fore(C().txtL[4]), QColor(0, 0, 0));
        QCOMPARE(QApplication::focusWidget(), C().txtL[3]);
        QVERIFY(!QFile::exists(folder_->filePath("last.sol")));
    }

    void missingPriceSwitchesToMethodB() {
        TypeBarOfTwelve();
        Type(C().txtSL[2], "6");
        QTest::mouseClick(C().cmdFind, Qt::LeftButton);
        QVERIFY(C().Option2->isChecked());
        QCOMPARE(C().txtLong->text(), QString(" Done !."));
        QCOMPARE(Back(C().txtLong), QColor(0, 0, 255));
        QCOMPARE(C().Text6->text(), QString());
    }

    void saveNewAndLoadGoThroughTheDialogs() {
        TypeBarOfTwelve();
        const QString path = folder_->filePath("bar.pro");
        form_->Surface().SetNextFileName(path);
        QTest::mouseClick(C().cmdSave, Qt::LeftButton);
        QCOMPARE(FileText("bar.pro"),
                 QString("12,12\r\n , \r\n7.5,20\r\n4.5,21\r\n5.1,24\r\n6.5,25\r\n"));

        QTest::mouseClick(C().cmdNew, Qt::LeftButton);
        QCOMPARE(C().txtSL[1]->text(), QString());
        QCOMPARE(C().txtL[4]->text(), QString());

        form_->Surface().SetNextFileName(path);
        QTest::mouseClick(C().cmdLoad, Qt::LeftButton);
        QCOMPARE(C().txtSL[1]->text(), QString("12"));
        QCOMPARE(C().txtN[4]->text(), QString("25"));

        form_->Surface().SetNextFileName("");  // a cancelled Load leaves an empty form
        QTest::mouseClick(C().cmdLoad, Qt::LeftButton);
        QCOMPARE(C().txtSL[1]->text(), QString());
    }

    void settingsPanelAppliesOnOk() {
        QTest::mouseClick(C().cmdConfig, Qt::LeftButton);
        QVERIFY(C().Frame1->isVisible());
        QCOMPARE(C().Text7->text(), QString(" 66"));
        C().Check2->setChecked(true);
        Type(C().Text7, "99.5");
        QTest::mouseClick(C().Command1, Qt::LeftButton);
        QVERIFY(!C().Frame1->isVisible());
        QCOMPARE(FileText("brennik.cnf"), QString("#TRUE#,#FALSE#,100\r\n"));
        QTest::mouseClick(C().cmdConfig, Qt::LeftButton);
        QCOMPARE(C().Text7->text(), QString(" 100"));
    }

    void exitWritesLastPro() {
        TypeBarOfTwelve();
        QTest::mouseClick(C().cmdExit, Qt::LeftButton);
        QVERIFY(!form_->isVisible());
        QCOMPARE(FileText("last.pro"),
                 QString("12,12\r\n , \r\n7.5,20\r\n4.5,21\r\n5.1,24\r\n6.5,25\r\n"));
    }

    void closingByTheFrameWritesNoLastPro() {
        TypeBarOfTwelve();
        form_->close();
        QVERIFY(!QFile::exists(folder_->filePath("last.pro")));
    }

    void helpTipOpensBesideTheFormWithoutBlockingIt() {
        QTest::mouseClick(C().cmdHelpTip, Qt::LeftButton);
        QWidget* tip = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->windowTitle() == "Form3" && window->isVisible()) {
                tip = window;
            }
        }
        QVERIFY(tip != nullptr);
        QVERIFY(!tip->isModal());
        const auto* hints = tip->findChild<QPlainTextEdit*>();
        QVERIFY(hints != nullptr);
        QCOMPARE(hints->toPlainText(), QString::fromLatin1(Form3::HintText()).remove('\r'));
        TypeBarOfTwelve();  // the main form goes on working beside it
        QTest::mouseClick(C().cmdFind, Qt::LeftButton);
        QCOMPARE(C().txtLong->text(), QString(" Done !."));
        tip->close();
    }

    void dialogFiltersTakeQtsForm() {
        QCOMPARE(QtSurface::QtFilter(" Brennik  problem  files  (*.pro)|*.pro| Microsoft  Excel "
                                     "comma delimited files  (*.csv)|*.csv| All  files  (*.*)|*.*"),
                 QString("Brennik  problem  files  (*.pro);;Microsoft  Excel comma delimited "
                         "files  (*.csv);;All  files  (*)"));
    }

    void programFolderIsUsedOnlyWhereItIsWritableAndNotInstalled() {
        QTemporaryDir portable;
        QCOMPARE(ChooseAppFolder(portable.path(), "/usr/local/bin"),
                 QFileInfo(portable.path()).canonicalFilePath());
        QVERIFY(ChooseAppFolder(portable.path(), portable.path()) !=
                QFileInfo(portable.path()).canonicalFilePath());
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
        QCOMPARE(visited[1], static_cast<QWidget*>(C().txtSP[1]));
        QCOMPARE(visited[2], static_cast<QWidget*>(C().txtSL[2]));
        QCOMPARE(visited[12], static_cast<QWidget*>(C().txtL[1]));
        QCOMPARE(visited[13], static_cast<QWidget*>(C().txtN[1]));
        QCOMPARE(visited[91], static_cast<QWidget*>(C().txtN[40]));
        QCOMPARE(visited[92], static_cast<QWidget*>(C().cmdFind));
        // Tab stops at the selected one of the two option buttons only.
        QCOMPARE(visited[99], static_cast<QWidget*>(C().Option1));
        QCOMPARE(visited[100], static_cast<QWidget*>(C().Check1));
        QCOMPARE(visited[101], static_cast<QWidget*>(C().cmdConfig));
        QCOMPARE(visited[102], static_cast<QWidget*>(C().txtSL[1]));
        for (int row = 1; row <= MaxStdLengths; ++row) {
            QVERIFY(!visited.contains(C().txtMon[row]));
            QVERIFY(!visited.contains(C().txtMat[row]));
        }
        QVERIFY(!visited.contains(C().txtLong));
        QVERIFY(!visited.contains(C().Text3));
    }
};

}  // namespace brennik

QTEST_MAIN(brennik::Form2Test)
#include "form2_test.moc"
