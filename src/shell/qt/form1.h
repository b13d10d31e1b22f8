// Form1, the start screen: the logo on black, Start to go on to the main screen (writing the
// two documents on the way) and Exit to leave before anything is read or written.
#pragma once

#include <QWidget>
#include <string>

namespace brennik {

class Form1 final : public QWidget {
public:
    explicit Form1(std::string appFolder);

private:
    void Command1_Click();

    std::string appFolder_;
};

}  // namespace brennik
