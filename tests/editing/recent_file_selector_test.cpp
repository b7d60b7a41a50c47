#include "frame_support.h"

namespace {

class Recent_file_selector_test : public Parameter_file_form {
protected:
    static constexpr const char* noname = "C:\\noname.tvp";

    // Starts without a file; the user works on the selector that asks for one.
    bool start(const std::function<void(TForm& shown)>& work) {
        desktop.expect_modal("recent_file_selector_form", work);
        return bind(noname, false);
    }
    void enter(const std::string& text) { retype(selector.selected_fileeditbar.filename_edit, text); }
    // A file that was edited once, and is there no more.
    void forget(const std::string& file) {
        drives.write("work/" + file, "");
        platform::shell().add_to_recent_documents("C:\\work\\" + file);
        std::filesystem::remove(drives.host("work/" + file));
    }
};

TEST_F(Recent_file_selector_test, without_a_file_the_selector_asks_and_its_cancel_ends_the_start) {
    platform::shell().add_to_recent_documents("C:\\work\\study.tvp");
    forget("gone.tvp");
    drives.write("work/marked/.TVS_project", "");
    platform::shell().add_to_recent_documents("C:\\work\\marked\\.TVS_project");
    platform::shell().add_to_recent_documents("C:\\Suite\\Tilverra\\project_editor.exe");

    EXPECT_FALSE(start([](TForm& shown) { shown.close(); }));
    EXPECT_FALSE(start([](TForm& shown) { shown.offer_key({Key_code::escape, ""}); }));
    EXPECT_FALSE(selector.cancel_button.visible());
    EXPECT_TRUE(selector.required_label.visible());
    EXPECT_FALSE(selector.cancel_label.visible()) << "the two notes would contradict one another";

    ASSERT_TRUE(start([&](TForm& shown) {
        const TShellListView& list = selector.recent_shelllistview;
        ASSERT_EQ(list.count(), 3);
        EXPECT_TRUE(list.line(0).text.starts_with(
            "marked.TVS_project \xE2\x80\x93 C:\\work\\marked \xE2\x80\x93 20"));
        EXPECT_EQ(list.line(1).text, "gone.tvp \xE2\x80\x93 not there any more");
        EXPECT_TRUE(list.line(2).text.ends_with(" \xE2\x80\x93 Irrigation study, Ca\xC3\xB1"
                                                "ada del R\xC3\xADo (18 \xC2\xB0"
                                                "C mean)"));
        EXPECT_TRUE(selector.recent_shelllistview.double_click(1)); // its file is gone
        EXPECT_TRUE(shown.visible());
        EXPECT_EQ(name, noname);
        EXPECT_TRUE(selector.recent_shelllistview.double_click(2));
    }));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\study.tvp");
}

TEST_F(Recent_file_selector_test, a_start_without_a_choice_asks_for_a_name_until_there_is_one) {
    const std::string text = "Tilverra project file type has an associated directory.\nIn order for this "
                             "editor to work correctly you must give a file name now.";
    const auto press_ok = [this](TForm&) { selector.ok_button.click(); };
    desktop.expect_modal("recent_file_selector_form", press_ok);
    expect({"File name required now", text, Modal_result::cancel});
    EXPECT_FALSE(bind(noname, false));
    desktop.expect_modal("recent_file_selector_form", press_ok);
    for (const std::vector<std::string>& chosen : {{}, std::vector<std::string>{"C:\\work\\named.tvp"}}) {
        expect({"File name required now", text, Modal_result::ok});
        desktop.expect_file_dialog(save_title, chosen);
    }
    ASSERT_TRUE(bind(noname, false));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\named.tvp");
    EXPECT_TRUE(form.file.is_new_file());
}

TEST_F(Recent_file_selector_test, ok_takes_the_line_that_is_chosen_unless_a_name_is_entered_after_that) {
    forget("gone.tvp");
    platform::shell().add_to_recent_documents(study);
    ASSERT_TRUE(start([&](TForm& shown) {
        EXPECT_TRUE(selector.recent_shelllistview.select(1));
        desktop.expect_message("", "This file is not there any more:\n" +
                                       selector.recent_shelllistview.item_text());
        EXPECT_TRUE(selector.ok_button.click());
        EXPECT_TRUE(shown.visible());
        enter("C:\\work\\entered");
        EXPECT_TRUE(selector.recent_shelllistview.select(0));
        EXPECT_TRUE(selector.ok_button.click());
    }));
    EXPECT_EQ(form.get_parameter_file_name(), study);
    form.close();
    ASSERT_TRUE(start([&](TForm&) {
        EXPECT_TRUE(selector.recent_shelllistview.select(0));
        enter("C:\\work\\entered");
        EXPECT_TRUE(selector.ok_button.click());
    }));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\entered.tvp") << "it is of the type";
    form.close();
    ASSERT_TRUE(start([&](TForm&) {
        enter("C:\\work\\fresh");
        selector.selected_fileeditbar.filename_edit.key({Key_code::enter, ""});
    }));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\fresh.tvp");
}

TEST_F(Recent_file_selector_test, new_makes_a_project_to_work_in_at_once_and_never_out_of_one_that_is_there) {
    const auto press_new = [this](TForm&) { EXPECT_TRUE(selector.new_button.click()); };
    ASSERT_TRUE(start([&](TForm& shown) {
        EXPECT_TRUE(selector.empty_label.visible());
        EXPECT_FALSE(selector.example_button.visible());
        desktop.expect_file_dialog("New", {"C:\\work\\study.tvp"});
        desktop.expect_message("File already exists",
                               "There is a file of this name already. Edit it?\nC:\\work\\study.tvp",
                               Modal_result::no);
        press_new(shown);
        EXPECT_TRUE(shown.visible());
        desktop.expect_file_dialog("New", {"C:\\projects\\my trial.tvp"});
        press_new(shown);
    }));
    EXPECT_TRUE(has_line("projects/my trial.tvp", "[project]"));
    EXPECT_TRUE(std::filesystem::is_directory(drives.host("projects/my trial")));
    EXPECT_TRUE(form.notes.tabsheet_notes.visible());
    EXPECT_FALSE(form.file.is_new_file());
    EXPECT_FALSE(form.has_changes());
}

TEST_F(Recent_file_selector_test, open_asks_for_any_file_and_example_puts_one_in_place) {
    ASSERT_TRUE(start([&](TForm&) {
        desktop.expect_file_dialog("Open", {study});
        EXPECT_TRUE(selector.open_button.click());
    }));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\study.tvp");
    std::string made;
    selector.make_example = [&made] { return made; };
    ASSERT_TRUE(start([&](TForm& shown) {
        EXPECT_TRUE(selector.example_button.click()); // cannot be made
        EXPECT_TRUE(shown.visible());
        made = "C:\\work\\study.tvp";
        EXPECT_TRUE(selector.example_button.click());
    }));
}

} // namespace
