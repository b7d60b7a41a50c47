// A form with controls that a test makes and looks at in their widgets.
#pragma once

#include "desktop_qt/shown.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"
#include "toolkit/page_control.h"

#include <QtWidgets/QtWidgets>

class Views : public Shown {
protected:
    static void click(QWidget& target) { QTest::mouseClick(&target, Qt::LeftButton); }

    void TearDown() override {
        owned_form_.reset();
        Shown::TearDown();
    }

    std::unique_ptr<TForm> owned_form_ = std::make_unique<TForm>("form", "A form");
    TForm& form_ = *owned_form_;
    int fired_ = 0;
    std::function<void()> count_ = [this] { ++fired_; };
};
