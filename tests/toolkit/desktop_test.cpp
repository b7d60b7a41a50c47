#include "toolkit/button.h"
#include "toolkit/edit.h"
#include "toolkit/headless_desktop.h"
#include "toolkit/timer.h"
#include "toolkit/web_view.h"

#include <gtest/gtest.h>

namespace {

class Headless : public testing::Test {
protected:
    std::vector<std::string> faults_;
    std::unique_ptr<Headless_desktop> desktop_ =
        std::make_unique<Headless_desktop>([this](const std::string& fault) { faults_.push_back(fault); });
};

TEST_F(Headless, answers_from_its_script_and_writes_down_what_was_asked) {
    desktop_->expect_message("Delete files", "Really?", Modal_result::no);
    desktop_->expect_file_dialog("Scenario", {"C:\\a.tvn", "C:\\b.tvn"});
    desktop_->expect_file_dialog("Scenario", {});
    desktop_->expect_menu("Project");
    EXPECT_EQ(message_box("Really?", "Delete files", Button_set::yes_no_cancel), Modal_result::no);
    EXPECT_EQ(desktop_->messages().back().buttons, Button_set::yes_no_cancel);
    TFileDialog dialog;
    dialog.title = "Scenario";
    EXPECT_TRUE(dialog.execute());
    EXPECT_EQ(dialog.file_name, "C:\\a.tvn");
    EXPECT_EQ(dialog.files.size(), 2u);
    EXPECT_FALSE(dialog.execute());
    EXPECT_EQ(dialog.file_name, "C:\\a.tvn");
    bool chosen = false;
    TPopupMenu menu;
    menu.items = {{"Master", {}}, {"Project", [&] { chosen = true; }}};
    menu.popup();
    EXPECT_TRUE(chosen);
    EXPECT_TRUE(desktop_->script_done());
    EXPECT_TRUE(faults_.empty());
}

TEST_F(Headless, reports_what_it_was_not_told_to_expect_and_goes_on) {
    EXPECT_EQ(message_box("Retry?", "Unable to save", Button_set::abort_retry_ignore), Modal_result::abort);
    EXPECT_EQ(message_box("Sure?", "", Button_set::yes_no), Modal_result::no);
    EXPECT_FALSE(TFileDialog().execute());
    TForm form("dialog");
    EXPECT_EQ(form.show_modal(), Modal_result::cancel);
    EXPECT_FALSE(form.visible());
    TPopupMenu().popup();
    EXPECT_EQ(faults_.size(), 5u);

    faults_.clear();
    desktop_->expect_message("Title", "Text");
    show_message("Other");
    desktop_.reset();
    ASSERT_EQ(faults_.size(), 2u);
    EXPECT_NE(faults_[0].find("\"Other\""), std::string::npos);
    EXPECT_NE(faults_[1].find("\"Title\""), std::string::npos);
    EXPECT_EQ(current_desktop, nullptr);
}

TEST_F(Headless, runs_a_dialog_until_it_has_a_result) {
    TForm form("dialog");
    auto& ok = form.add<TButton>("ok", "OK");
    ok.set_modal_result(Modal_result::ok);
    ok.set_default(true);
    auto& edit = form.add<TEdit>("edit");
    int closed = 0;
    form.on_close = [&] { ++closed; };

    desktop_->expect_modal("dialog", [&](TForm&) { ok.click(); });
    EXPECT_EQ(form.show_modal(), Modal_result::ok);
    desktop_->expect_modal("dialog", [&](TForm&) { edit.key({Key_code::enter, {}}); });
    EXPECT_EQ(form.show_modal(), Modal_result::ok) << "enter clicks the default button";
    desktop_->expect_modal("dialog", [&](TForm&) { edit.key({Key_code::escape, {}}); });
    EXPECT_EQ(form.show_modal(), Modal_result::cancel);
    EXPECT_EQ(closed, 3);
    EXPECT_TRUE(faults_.empty());

    // A handler may take the button's result back.
    ok.on_click = [&] { form.set_modal_result(Modal_result::none); };
    desktop_->expect_modal("dialog", [&](TForm&) { ok.click(); });
    EXPECT_EQ(form.show_modal(), Modal_result::cancel);
    EXPECT_EQ(faults_.size(), 1u) << "the dialog was still open";
}

TEST_F(Headless, escape_clicks_the_cancel_button_and_leaves_other_windows_open) {
    TForm form("form");
    auto& edit = form.add<TEdit>("edit");
    form.show();
    EXPECT_FALSE(edit.key({Key_code::escape, {}}));
    EXPECT_TRUE(form.visible());
    int clicks = 0;
    auto& cancel = form.add<TButton>("cancel", "Cancel");
    cancel.set_cancel(true);
    cancel.on_click = [&] { ++clicks; };
    EXPECT_TRUE(edit.key({Key_code::escape, {}}));
    cancel.set_visible(false);
    EXPECT_FALSE(edit.key({Key_code::escape, {}}));
    EXPECT_EQ(clicks, 1);
}

TEST_F(Headless, closing_leaves_the_focus_first_and_can_be_refused) {
    TForm form("form");
    auto& edit = form.add<TEdit>("edit");
    std::string value;
    edit.on_exit = [&] { value = edit.text(); };
    bool may_close = false;
    form.on_close_query = [&] { return may_close; };
    desktop_->on_run = [&](TForm&) {
        edit.type_text("typed last");
        EXPECT_FALSE(form.close());
        EXPECT_TRUE(edit.focused());
        may_close = true;
    };
    desktop_->run(form);
    EXPECT_EQ(value, "typed last");
    EXPECT_FALSE(form.visible());
    EXPECT_TRUE(faults_.empty());
}

TEST_F(Headless, lets_no_action_through_while_an_operation_runs) {
    TForm form("form");
    auto& button = form.add<TButton>("button", "Run");
    auto& edit = form.add<TEdit>("edit");
    TTimer timer(10);
    form.show();
    int runs = 0;
    int times = 0;
    timer.on_timer = [&] { ++times; };
    timer.set_enabled(true);
    desktop_->on_process_messages = [&] {
        EXPECT_FALSE(button.click());
        EXPECT_FALSE(edit.key({Key_code::character, "x"}));
        desktop_->advance(10);
    };
    button.on_click = [&] {
        ++runs;
        EXPECT_TRUE(current_desktop->process_messages());
        desktop_->closing = true;
        EXPECT_FALSE(current_desktop->process_messages());
    };
    EXPECT_TRUE(button.click());
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(times, 0);
    desktop_->advance(10);
    EXPECT_EQ(times, 1);
}

TEST_F(Headless, fires_timers_as_time_goes_by) {
    std::string log;
    auto fast = std::make_unique<TTimer>(100);
    TTimer slow(250);
    fast->on_timer = [&] { log += "f"; };
    slow.on_timer = [&] {
        log += "s";
        slow.set_enabled(false);
    };
    fast->set_enabled(true);
    slow.set_enabled(true);
    desktop_->advance(99);
    EXPECT_EQ(log, "");
    desktop_->advance(451);
    EXPECT_EQ(log, "ffsfff");
    fast.reset();
    desktop_->advance(1000);
    EXPECT_EQ(log, "ffsfff");
}

TEST_F(Headless, gets_what_a_page_links_to_on_the_web) {
    TWebView view("view");
    view.navigate("C:\\Help\\manual.htm");
    EXPECT_TRUE(view.follow("C:\\Help\\soil.htm#top"));
    EXPECT_EQ(view.address(), "C:\\Help\\soil.htm#top");
    for (const char* address : {"http://a.org", "HTTPS://a.org", "mailto:a@b.org"}) {
        EXPECT_TRUE(view.follow(address));
        EXPECT_EQ(desktop_->web_addresses().back(), address);
    }
    EXPECT_EQ(view.address(), "C:\\Help\\soil.htm#top");
}

} // namespace
