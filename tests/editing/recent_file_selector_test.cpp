#include "frame_support.h"

namespace {

using Recent_file_selector_test = Parameter_file_form;

TEST_F(Recent_file_selector_test, without_a_file_the_selector_asks_and_its_cancel_ends_the_start) {
    platform::shell().add_to_recent_documents("C:\\work\\study.tvp");
    drives.write("work/gone.tvp", "");
    platform::shell().add_to_recent_documents("C:\\work\\gone.tvp");
    drives.write("work/marked/.TVS_project", "");
    platform::shell().add_to_recent_documents("C:\\work\\marked\\.TVS_project");
    platform::shell().add_to_recent_documents("C:\\Suite\\Tilverra\\project_editor.exe");
    std::filesystem::remove(drives.host("work/gone.tvp"));

    const auto frame = [](TForm& shown) { shown.close(); };
    desktop.expect_modal("recent_file_selector_form", frame);
    EXPECT_FALSE(bind("C:\\noname.tvp", false));
    const auto escape = [](TForm& shown) { shown.offer_key(Key{Key_code::escape, "", false, false}); };
    desktop.expect_modal("recent_file_selector_form", escape);
    EXPECT_FALSE(bind("C:\\noname.tvp", false));
    EXPECT_FALSE(selector.cancel_button.visible());
    EXPECT_TRUE(selector.required_label.visible());
    EXPECT_FALSE(selector.cancel_label.visible()) << "the two notes would contradict one another";

    desktop.expect_modal("recent_file_selector_form", [&](TForm& shown) {
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
        EXPECT_EQ(name, "C:\\noname.tvp");
        EXPECT_TRUE(selector.recent_shelllistview.double_click(2));
    });
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\study.tvp");
}

TEST_F(Recent_file_selector_test, a_start_without_a_choice_asks_for_a_name_until_there_is_one) {
    const std::string text =
        "Tilverra project file type has an associated directory.\nIn order for this editor "
        "to work correctly you must give a file name now.";
    const auto press_ok = [this](TForm&) { selector.ok_button.click(); };
    desktop.expect_modal("recent_file_selector_form", press_ok);
    desktop.expect_message("File name required now", text, Modal_result::cancel);
    EXPECT_FALSE(bind("C:\\noname.tvp", false));
    desktop.expect_modal("recent_file_selector_form", press_ok);
    desktop.expect_message("File name required now", text, Modal_result::ok);
    desktop.expect_file_dialog(save_title, {});
    desktop.expect_message("File name required now", text, Modal_result::ok);
    desktop.expect_file_dialog(save_title, {"C:\\work\\named.tvp"});
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\named.tvp");
    EXPECT_TRUE(form.file.is_new_file());
}

TEST_F(Recent_file_selector_test, a_name_typed_in_the_selector_is_a_new_file_of_the_type) {
    desktop.expect_modal("recent_file_selector_form", [this](TForm&) {
        TEdit& edit = selector.selected_fileeditbar.filename_edit;
        edit.focus();
        edit.select_all();
        edit.type_text("C:\\work\\fresh");
        edit.key(Key{Key_code::enter, "", false, false});
    });
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\fresh.tvp");
}

TEST_F(Recent_file_selector_test, ok_takes_the_line_that_is_chosen_unless_a_name_is_entered_after_that) {
    drives.write("work/gone.tvp", "");
    platform::shell().add_to_recent_documents("C:\\work\\gone.tvp");
    platform::shell().add_to_recent_documents("C:\\work\\study.tvp");
    std::filesystem::remove(drives.host("work/gone.tvp"));
    const auto enter = [this](const std::string& text) {
        TEdit& edit = selector.selected_fileeditbar.filename_edit;
        edit.focus();
        edit.select_all();
        edit.type_text(text);
    };
    desktop.expect_modal("recent_file_selector_form", [&](TForm& shown) {
        EXPECT_TRUE(selector.recent_shelllistview.select(1));
        desktop.expect_message("", "This file is not there any more:\n" +
                                       selector.recent_shelllistview.item_text());
        EXPECT_TRUE(selector.ok_button.click());
        EXPECT_TRUE(shown.visible());
        enter("C:\\work\\entered");
        EXPECT_TRUE(selector.recent_shelllistview.select(0));
        EXPECT_TRUE(selector.ok_button.click());
    });
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\study.tvp");
    form.close();
    desktop.expect_modal("recent_file_selector_form", [&](TForm&) {
        EXPECT_TRUE(selector.recent_shelllistview.select(0));
        enter("C:\\work\\entered");
        EXPECT_TRUE(selector.ok_button.click());
    });
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\entered.tvp");
}

TEST_F(Recent_file_selector_test, new_makes_a_project_to_work_in_at_once_and_never_out_of_one_that_is_there) {
    const auto press_new = [this](TForm&) { EXPECT_TRUE(selector.new_button.click()); };
    desktop.expect_modal("recent_file_selector_form", [&](TForm& shown) {
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
    });
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
    EXPECT_TRUE(has_line("projects/my trial.tvp", "[project]"));
    EXPECT_TRUE(std::filesystem::is_directory(drives.host("projects/my trial")));
    EXPECT_TRUE(form.notes.tabsheet_notes.visible());
    EXPECT_FALSE(form.file.is_new_file());
    EXPECT_FALSE(form.has_changes());
}

TEST_F(Recent_file_selector_test, open_asks_for_any_file_and_example_puts_one_in_place) {
    desktop.expect_modal("recent_file_selector_form", [&](TForm&) {
        desktop.expect_file_dialog("Open", {"C:\\work\\study.tvp"});
        EXPECT_TRUE(selector.open_button.click());
    });
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\study.tvp");
    std::string made;
    selector.make_example = [&made] { return made; };
    desktop.expect_modal("recent_file_selector_form", [&](TForm& shown) {
        EXPECT_TRUE(selector.example_button.click()); // cannot be made
        EXPECT_TRUE(shown.visible());
        made = "C:\\work\\study.tvp";
        EXPECT_TRUE(selector.example_button.click());
    });
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
}

} // namespace
