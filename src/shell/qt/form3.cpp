#include "shell/qt/form3.h"

#include <QPlainTextEdit>
#include <QPushButton>

#include "shell/qt/button_keys.h"
#include "shell/qt/twips.h"

namespace brennik {

const char* Form3::HintText() {
    return "\r\n"
           "      \"Method - A\"  can only  be selected when \r\n"
           "      the  prices  of  all   the  Standard  Lengths \r\n"
           "      are  known.\r\n"
           "                                           \r\n"
           "      You can always select  the  \"Method - B\".\r\n"
           "                          \r\n"
           "      Each  method  provides  a quick  solution. \r\n"
           "   \r\n"
           "      When  the  advanced  option  is selected\r\n"
           "      the  processing  will  take  a  longer  time.\r\n"
           "   \r\n"
           "      But ,  in most  instances it  will find a more \r\n"
           "      economical  solution  for  you.\r\n"
           "\r\n"
           "      Hint  -  Find  the solution in each method\r\n"
           "                  with  advanced option  and select\r\n"
           "                  the  most  economical  answer.\r\n";
}

Form3::Form3(QWidget* beside) : QDialog(nullptr) {
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    setWindowTitle("Form3");
    setFixedSize(Px(5055), Px(4620));
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, QColor(64, 0, 64));
    setPalette(palette);
    setAutoFillBackground(true);

    auto* ok = new QPushButton("Ok", this);
    Place(ok, 4420, 120, 555, 4395);
    auto* hints = new QPlainTextEdit(this);
    // The text keeps its own line ends; the box shows it line for line.
    hints->setPlainText(QString::fromLatin1(HintText()).remove('\r'));
    hints->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font;
    font.setFamilies({"Arial", "Liberation Sans", "DejaVu Sans"});
    font.setPointSizeF(8.25);
    hints->setFont(font);
    QPalette textPalette = hints->palette();
    textPalette.setColor(QPalette::Base, Qt::white);
    textPalette.setColor(QPalette::Text, Qt::black);
    hints->setPalette(textPalette);
    Place(hints, 60, 60, 4275, 4455);
    setTabOrder(ok, hints);
    ok->setFocus();
    connect(ok, &QPushButton::clicked, this, &QDialog::close);

    PressFocusedButtonOnReturn(this);
    if (beside != nullptr) {
        move(beside->mapToGlobal(QPoint(Px(1920), Px(2565))));
    }
}

}  // namespace brennik
