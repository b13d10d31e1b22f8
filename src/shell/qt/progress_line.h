// A horizontal line whose two ends the logic moves in twips: the bar that grows out from its
// centre as a pass cuts its pieces.
#pragma once

#include <QColor>
#include <QWidget>

namespace brennik {

class ProgressLine final : public QWidget {
public:
    ProgressLine(QWidget* parent, QColor colour, int x1, int x2, int y);

    void SetX1(int twips);
    void SetX2(int twips);
    int X1() const { return x1_; }
    int X2() const { return x2_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Reposition();

    QColor colour_;
    int x1_;
    int x2_;
    int y_;
};

}  // namespace brennik
