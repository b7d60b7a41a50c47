// A form that is shown on a desktop without a screen, with an edit that has the focus.
#pragma once

#include "toolkit/edit.h"
#include "toolkit/headless_desktop.h"

#include <gtest/gtest.h>

class Form_parts : public testing::Test {
protected:
    void SetUp() override { form_.show(); }

    Headless_desktop desktop_{[](const std::string& fault) { ADD_FAILURE() << fault; }};
    TForm form_{"form", "A form"};
    TEdit& edit_ = form_.add<TEdit>("edit");
    std::string log_; // what fires
};
