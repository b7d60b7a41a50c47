// A desktop without a display whose faults are failures of the test, and what users do with an edit.
#pragma once

#include "toolkit/edit.h"
#include "toolkit/headless_desktop.h"

#include <gtest/gtest.h>

class Test_desktop : public Headless_desktop {
public:
    Test_desktop() : Headless_desktop([](const std::string& fault) { ADD_FAILURE() << fault; }) {}
};

// Types into an edit in place of what it holds.
template <class Edit>
void retype(Edit& edit, const std::string& text) {
    edit.bring_to_front();
    edit.focus();
    edit.select_all();
    EXPECT_TRUE(edit.type_text(text));
}
