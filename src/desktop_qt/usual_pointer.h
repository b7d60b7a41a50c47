// Lifts the busy pointer while the program asks the user something.
#pragma once

#include <QtWidgets/QApplication>

class Usual_pointer {
public:
    Usual_pointer() {
        for (; QApplication::overrideCursor(); ++lifted_)
            QApplication::restoreOverrideCursor();
    }
    ~Usual_pointer() {
        for (; lifted_ > 0; --lifted_)
            QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    Usual_pointer(const Usual_pointer&) = delete;
    Usual_pointer& operator=(const Usual_pointer&) = delete;

private:
    int lifted_ = 0;
};
