#include "app/new_name_form.h"

#include "support/test_desktop.h"

namespace {

TEST(New_name_form, enter_takes_the_name_and_escape_cancels) {
    Test_desktop desktop;
    Tnew_name_form_check_used form;
    TESK::Ustring name("base");
    form.new_scenario_name_edit.bind_to(&name, nullptr);
    desktop.expect_modal("new_name_form_check_used", [&](TForm&) {
        retype(form.new_scenario_name_edit, "rainfed");
        form.new_scenario_name_edit.key({Key_code::enter, ""});
    });
    EXPECT_EQ(form.show_modal(), Modal_result::ok);
    EXPECT_EQ(name, "rainfed");
    desktop.expect_modal("new_name_form_check_used", [&](TForm&) {
        form.new_scenario_name_edit.key({Key_code::escape, ""});
    });
    EXPECT_EQ(form.show_modal(), Modal_result::cancel);
}

} // namespace
