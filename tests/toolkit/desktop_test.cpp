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

TEST_F(Headless, reports_what_it_was_not_told_to_expect_and_goes_on) {
    EXPECT_EQ(message_box("Retry?", "Unable to save", Button_set::abort_retry_ignore), Modal_result::abort);
    EXPECT_FALSE(TFileDialog().execute());
    EXPECT_EQ(TForm("dialog").show_modal(), Modal_result::cancel);
    TPopupMenu().popup();
    EXPECT_EQ(faults_.size(), 4u);
    desktop_->expect_message("Title", "Text");
    show_message("Other");
    desktop_.reset();
    ASSERT_EQ(faults_.size(), 6u);
    EXPECT_NE(faults_[4].find("\"Other\""), std::string::npos);
    EXPECT_NE(faults_[5].find("\"Title\""), std::string::npos);
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
    const auto run = [&](const std::function<void()>& user) {
        desktop_->expect_modal("dialog", [&](TForm&) { user(); });
        return form.show_modal();
    };
    EXPECT_EQ(run([&] { ok.click(); }), Modal_result::ok);
    EXPECT_EQ(run([&] { edit.key({Key_code::enter, {}}); }), Modal_result::ok) << "by the default button";
    EXPECT_EQ(run([&] { edit.key({Key_code::escape, {}}); }), Modal_result::cancel);
    EXPECT_EQ(closed, 3);
    EXPECT_TRUE(faults_.empty());
    ok.on_click = [&] { form.set_modal_result(Modal_result::none); };
    EXPECT_EQ(run([&] { ok.click(); }), Modal_result::cancel) << "a handler may take the result back";
    EXPECT_EQ(faults_.size(), 1u) << "the dialog was still open";
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

TEST_F(Headless, fires_timers_as_time_goes_by_and_not_while_an_operation_runs) {
    std::string log;
    TTimer fast(100), slow(250);
    fast.on_timer = [&] { log += "f"; };
    slow.on_timer = [&] {
        log += "s";
        slow.set_enabled(false);
    };
    fast.set_enabled(true);
    slow.set_enabled(true);
    desktop_->advance(99);
    EXPECT_EQ(log, "");
    desktop_->advance(451);
    desktop_->on_process_messages = [&] { desktop_->advance(100); };
    current_desktop->process_messages();
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
