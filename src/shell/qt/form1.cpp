#include "shell/qt/form1.h"

#include <QLabel>
#include <QPushButton>

#include "shell/documents.h"
#include "shell/qt/button_keys.h"
#include "shell/qt/form2.h"
#include "shell/qt/screen_place.h"
#include "shell/qt/twips.h"

namespace brennik {

Form1::Form1(std::string appFolder) : appFolder_(std::move(appFolder)) {
    setWindowTitle("Form1");
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(Px(9165), Px(6840));
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, Qt::black);
    setPalette(palette);
    setAutoFillBackground(true);

    auto* logo = new QLabel(this);
    logo->setPixmap(QPixmap(":/brennik/logo.png"));
    logo->setScaledContents(true);
    Place(logo, 265, 240, 9000, 6000);

    auto* start = new QPushButton("&Start", this);
    Place(start, 250, 6420, 4445, 405);
    auto* exit = new QPushButton("E&xit", this);
    Place(exit, 4865, 6420, 4440, 405);
    setTabOrder(start, exit);
    start->setFocus();

    PressFocusedButtonOnReturn(this);
    CentreOnMouseScreen(this);
    connect(start, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(exit, &QPushButton::clicked, this, &QWidget::close);
}

void Form1::Command1_Click() {
    auto* form2 = new Form2(appFolder_);
    form2->setAttribute(Qt::WA_DeleteOnClose);
    form2->setWindowIcon(windowIcon());
    form2->Load();
    CentreOnMouseScreen(form2);
    form2->show();
    WriteDocuments(form2->Files());
    close();
}

}  // namespace brennik
