#include "editing/parameter_file_form.h"

#include "model/project_editor_parameters.h"
#include "platform/file_writer.h"
#include "platform/shell.h"
#include "support/launcher_record.h"
#include "support/temporary_drives.h"
#include "support/temporary_user.h"
#include "toolkit/headless_desktop.h"
#include "translation/translation_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

namespace {

constexpr const char* unable =
    "Unable to save to parameter file (check that the file is not marked as read only)";
constexpr const char* save_title = "Save Tilverra project as";

// What an editor of a project hands over, driven as a user would.
class Parameter_file_form : public testing::Test {
protected:
    Parameter_file_form() {
        drives.write("Suite/Tilverra/project_editor.exe");
        std::filesystem::create_directories(drives.host("work/study"));
        std::filesystem::copy_file(TEST_DATA "/irrigation_study.tvp", drives.host("work/study.tvp"));
    }

    bool bind(const std::string& file, bool given = true) {
        name = file;
        Tparameter_file_form::Editor editor;
        editor.form = &panel;
        editor.parameters = &record;
        editor.panel = &panel;
        editor.file_name = &name;
        editor.file_given = given;
        editor.other_masks = "*.TVS_project";
        editor.file_selector = &selector;
        editor.user_settings_file = &settings_folder;
        if (!form.bind_to(editor))
            return false;
        form.show();
        return true;
    }
    void describe(const std::string& text) {
        ASSERT_TRUE(form.edit_description.focus());
        form.edit_description.select_all();
        ASSERT_TRUE(form.edit_description.type_text(text));
    }
    std::string saved(const std::string& path) const { return drives.read(path); }
    bool has_line(const std::string& path, const std::string& line) const {
        return drives.read(path).find(line + "\r\n") != std::string::npos;
    }

    Temporary_user user;
    Temporary_drives drives;
    Launcher_record launcher;
    Headless_desktop desktop{[](const std::string& fault) { ADD_FAILURE() << fault; }};
    TESK::File_name program{"C:\\Suite\\Tilverra\\project_editor.exe"};
    TESK::Application_data_directory settings_folder{program};
    Tilverra_project_editor_parameters record{"C:\\Suite\\Tilverra\\tilverra_5.exe"};
    TVP_filename name{"noname"};
    Trecent_file_selector_form selector;
    TPanel panel{"panel"};
    Tparameter_file_form form{program};
};

TEST_F(Parameter_file_form, a_record_is_opened_edited_saved_and_keeps_what_other_programs_wrote) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    EXPECT_EQ(form.text(), "Tilverra project: C:\\work\\study.tvp");
    EXPECT_EQ(saved("work/study/backup"), saved("work/study.tvp"));
    describe("Drip trial \xE2\x82\xAC");
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(form.modal_result(), Modal_result::ok);
    EXPECT_TRUE(has_line("work/study.tvp", "description=Drip trial \x80"));
    EXPECT_NE(saved("work/study.tvp").find("[written by another program]"), std::string::npos);
    EXPECT_EQ(platform::shell().recent_documents().size(), 1u);
}

TEST_F(Parameter_file_form, a_file_that_is_not_there_is_new_and_gets_its_folders) {
    ASSERT_TRUE(bind("C:\\new\\deep\\trial.tvp"));
    EXPECT_TRUE(form.file.is_new_file());
    EXPECT_FALSE(form.companions.tabsheet_notes.visible() || form.companions.tabsheet_details.visible());
    EXPECT_FALSE(form.button_windows_explore.visible());
    EXPECT_EQ(form.save(), Save_outcome::saved);
    EXPECT_FALSE(form.file.is_new_file());
    EXPECT_TRUE(has_line("new/deep/trial.tvp", "[project]"));
}

TEST_F(Parameter_file_form, cancel_saves_nothing_and_asks_nothing_but_the_frame_asks) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    const std::string before = saved("work/study.tvp");
    EXPECT_FALSE(form.has_changes());
    describe("changed");
    desktop.advance(600);
    EXPECT_EQ(form.text(), "Tilverra project: C:\\work\\study.tvp"); // not left yet
    form.parameters_panel.add<TButton>("elsewhere").focus();
    desktop.advance(600);
    EXPECT_EQ(form.text(), "Tilverra project: C:\\work\\study.tvp *");
    const std::string question = "Save the changes to C:\\work\\study.tvp?";
    desktop.expect_message("Unsaved changes", question, Modal_result::cancel);
    EXPECT_FALSE(form.close());
    desktop.expect_message("Unsaved changes", question, Modal_result::no);
    EXPECT_TRUE(form.close());
    EXPECT_EQ(saved("work/study.tvp"), before);
    form.show();
    EXPECT_TRUE(form.cancel_button.click());
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(form.modal_result(), Modal_result::cancel);
    EXPECT_EQ(saved("work/study.tvp"), before);
    form.show();
    desktop.expect_message("Unsaved changes", question, Modal_result::yes);
    EXPECT_TRUE(form.close());
    EXPECT_TRUE(has_line("work/study.tvp", "description=changed"));
}

TEST_F(Parameter_file_form, a_save_that_fails_asks_until_the_cause_is_gone_or_the_user_gives_up) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    const std::string before = saved("work/study.tvp");
    describe("full");
    {
        platform::File_faults faults;
        faults.fail(platform::Write_step::write, ENOSPC);
        desktop.expect_message("Unable to save", unable, Modal_result::retry);
        desktop.expect_message("Unable to save", unable, Modal_result::abort);
        EXPECT_TRUE(form.ok_button.click());
        EXPECT_TRUE(form.visible());
        desktop.expect_message("Unable to save", unable, Modal_result::abort);
        EXPECT_FALSE(form.run("C:\\p.exe", nullptr, "x", nullptr, false, show_normal));
        EXPECT_EQ(launcher.started, "");
        desktop.expect_message("Unable to save", unable, Modal_result::ignore);
        EXPECT_TRUE(form.run("C:\\p.exe", nullptr, "x", nullptr, false, show_normal));
    }
    EXPECT_EQ(saved("work/study.tvp"), before);
    EXPECT_TRUE(form.has_changes());
    const auto file = drives.host("work/study.tvp");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    desktop.expect_message("Unable to save", unable, Modal_result::ignore);
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(saved("work/study.tvp"), before);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    EXPECT_EQ(form.save(), Save_outcome::saved);
    EXPECT_TRUE(has_line("work/study.tvp", "description=full"));
}

TEST_F(Parameter_file_form, under_a_new_name_the_folder_follows_once_and_nothing_goes_away) {
    drives.write("work/study/Scenarios/a.tvn", "[x]\r\n");
    drives.write("work/study/notes.txt", "old");
    struct Case {
        std::string chosen;
        std::string folder;
    };
    const Case cases[] = {
        {"C:\\work\\second.tvp", "work/second"},
        {"C:\\other\\place\\.TVS_project", "other/place"},
    };
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    for (const Case& c : cases) {
        desktop.expect_file_dialog(save_title, {c.chosen});
        EXPECT_TRUE(form.save_as_button.click());
        EXPECT_EQ(form.get_parameter_file_name(), c.chosen);
        EXPECT_EQ(saved(c.folder + "/Scenarios/a.tvn"), "[x]\r\n");
        EXPECT_EQ(saved(c.folder + "/notes.txt"), "old");
    }
    EXPECT_NE(saved("other/place/.TVS_project").find("[written by another program]"), std::string::npos);
    EXPECT_EQ(saved("work/study/notes.txt"), "old");
    // Into its own folder the record goes alone.
    desktop.expect_file_dialog(save_title, {"C:\\other\\place\\inner\\x.tvp"});
    EXPECT_TRUE(form.save_as_button.click());
    EXPECT_TRUE(has_line("other/place/inner/x.tvp", "[project]"));
    EXPECT_FALSE(std::filesystem::exists(drives.host("other/place/inner/x")));
}

TEST_F(Parameter_file_form, a_refused_save_as_leaves_all_as_it_was) {
    drives.write("work/there.tvp", "mine");
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    desktop.expect_file_dialog(save_title, {});
    EXPECT_TRUE(form.save_as_button.click());
    EXPECT_EQ(desktop.last_file_dialog()->initial_folder, "C:\\work");
    desktop.expect_file_dialog(save_title, {"C:\\work\\there.tvp"});
    desktop.expect_message("File already exists",
                           "Replace the existing file with this name:\nC:\\work\\there.tvp",
                           Modal_result::no);
    EXPECT_TRUE(form.save_as_button.click());
    EXPECT_EQ(saved("work/there.tvp"), "mine");
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\study.tvp");
    EXPECT_EQ(form.file.dialog.file_name, "C:\\work\\study.tvp");
    EXPECT_TRUE(form.visible());
}

TEST_F(Parameter_file_form, what_could_not_be_read_is_not_written_over_unasked) {
    const auto file = drives.host("work/study.tvp");
    const std::string before = saved("work/study.tvp");
    std::filesystem::remove(file);
    std::filesystem::create_directory(file); // readable by nobody as a file, whoever runs the test
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    desktop.expect_message("Unable to save", unable, Modal_result::abort);
    EXPECT_EQ(form.save(), Save_outcome::aborted);
    std::filesystem::remove(file);
    drives.write("work/study.tvp", before);
    desktop.expect_message("File already exists",
                           "Replace the existing file with this name:\nC:\\work\\study.tvp",
                           Modal_result::no);
    EXPECT_EQ(form.save(), Save_outcome::aborted);
    EXPECT_EQ(saved("work/study.tvp"), before);
    desktop.expect_message("File already exists",
                           "Replace the existing file with this name:\nC:\\work\\study.tvp",
                           Modal_result::yes);
    EXPECT_EQ(form.save(), Save_outcome::saved);
    EXPECT_NE(saved("work/study.tvp").find("[written by another program]"), std::string::npos);
}

TEST_F(Parameter_file_form, without_a_file_the_selector_asks_and_its_cancel_ends_the_start) {
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

    desktop.expect_modal("recent_file_selector_form", [&](TForm& shown) {
        std::string lines;
        for (int i = 0; i < selector.recent_shelllistview.count(); ++i)
            lines += selector.recent_shelllistview.line(i).text + ";";
        EXPECT_EQ(lines, "marked.TVS_project;gone.tvp;study.tvp;");
        EXPECT_TRUE(selector.recent_shelllistview.double_click(1)); // its file is gone
        EXPECT_TRUE(shown.visible());
        EXPECT_EQ(name, "C:\\noname.tvp");
        EXPECT_TRUE(selector.recent_shelllistview.double_click(2));
    });
    ASSERT_TRUE(bind("C:\\noname.tvp", false));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\study.tvp");
}

TEST_F(Parameter_file_form, a_start_without_a_choice_asks_for_a_name_until_there_is_one) {
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

TEST_F(Parameter_file_form, a_name_typed_in_the_selector_is_a_new_file_of_the_type) {
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

TEST_F(Parameter_file_form, run_saves_first_and_the_command_is_told_word_by_word) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    describe("before the run");
    EXPECT_TRUE(form.run("C:\\My tools\\p.exe", "", "C:\\f.tvn", nullptr, false, show_normal));
    EXPECT_TRUE(has_line("work/study.tvp", "description=before the run"));
    EXPECT_TRUE(form.run("p.exe", "-x \"y\" ", "f", "", false, show_minimised));
    EXPECT_TRUE(form.run_on_file("p.exe", nullptr, "C:\\s.tvn", true, show_maximised));
    EXPECT_EQ(launcher.started, "\"C:\\My tools\\p.exe\"  \"C:\\f.tvn\"  [1]\n"
                                "\"p.exe\" -x \"y\"  \"f\"  [6]\n"
                                "\"p.exe\"  \"C:\\work\\study.tvp\" \"C:\\s.tvn\"  [3]\n");
    launcher.result = platform::result_file_not_found;
    EXPECT_FALSE(form.run("C:\\gone.exe", nullptr, "f", nullptr, true, show_normal));
    EXPECT_EQ(form.programs.command_history_memo.text(),
              "\"C:\\My tools\\p.exe\"  \"C:\\f.tvn\" \n"
              "\"p.exe\" -x \"y\"  \"f\" \n"
              "\"p.exe\"  \"C:\\work\\study.tvp\" \"C:\\s.tvn\" \n"
              "\"C:\\gone.exe\"  \"f\" \n"
              "The program could not be started. Looked for: C:\\gone.exe\n");
    form.show_run_button("Run GIS", "C:\\GIS_runner.exe");
    EXPECT_TRUE(form.run_button.click());
    EXPECT_EQ(form.get_command_line(), "\"C:\\GIS_runner.exe\"  \"C:\\work\\study.tvp\" ");
    form.show_run_button("", "");
    EXPECT_FALSE(form.run_button.visible());
}

TEST_F(Parameter_file_form, enter_moves_on_and_presses_no_button_and_a_memo_keeps_it) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    const Key enter{Key_code::enter, "\n", false, false};
    form.edit_description.focus();
    EXPECT_TRUE(form.edit_description.key(enter));
    EXPECT_FALSE(form.edit_description.focused());
    EXPECT_TRUE(form.visible());
    form.companions.memo_notes.bring_to_front();
    EXPECT_TRUE(form.companions.memo_notes.type_text("a"));
    EXPECT_TRUE(form.companions.memo_notes.key(enter));
    EXPECT_EQ(form.companions.memo_notes.text(), "a\n");
}

TEST_F(Parameter_file_form, notes_details_and_status_lie_in_the_folder_of_the_record) {
    drives.write("work/study/notes.txt", "caf\xE9\r\n");
    drives.write("work/study/details.htm", "<HTML>\xC3\xA9</HTML>\r\n"); // another program's UTF-8
    drives.write("work/study/status.txt", "checked");
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    EXPECT_EQ(form.companions.details_html_viewer.address(), "C:\\work\\study\\details.htm");
    EXPECT_EQ(form.companions.status_memo.text(), "checked");
    form.companions.memo_notes.bring_to_front();
    EXPECT_EQ(form.companions.memo_notes.text(), "caf\xC3\xA9\n");
    form.companions.memo_notes.set_caret(100);
    EXPECT_TRUE(
        form.companions.memo_notes.type_text("more\xD0\x96")); // a letter that the suite's notes cannot hold
    EXPECT_TRUE(form.has_changes());
    form.companions.details_edit_memo.bring_to_front();
    form.companions.details_edit_memo.focus();
    form.companions.details_edit_memo.set_caret(7);
    EXPECT_TRUE(form.companions.details_edit_memo.type_text("\xD0\x96"));
    form.companions.memo_notes.bring_to_front(); // leaving saves
    form.companions.memo_notes.focus();
    EXPECT_EQ(saved("work/study/details.htm"), "<HTML>\xC3\xA9\xD0\x96</HTML>\r\n");
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_EQ(saved("work/study/notes.txt"), "caf\xE9\r\nmore");
}

TEST_F(Parameter_file_form, a_page_on_the_web_is_shown_before_the_local_one_until_it_is_forgotten) {
    drives.write("work/study/details.htm", "<HTML>\r\n</HTML>\r\n");
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    form.companions.edit_details_URL.bring_to_front();
    form.companions.edit_details_URL.focus();
    form.companions.edit_details_URL.select_all();
    EXPECT_TRUE(form.companions.edit_details_URL.type_text("http://example.org/trial"));
    EXPECT_TRUE(form.companions.button_reload_details.click());
    EXPECT_EQ(form.companions.details_html_viewer.address(), "http://example.org/trial");
    EXPECT_TRUE(form.companions.button_local_details.click());
    EXPECT_EQ(form.companions.details_html_viewer.address(), "C:\\work\\study\\details.htm");
    EXPECT_EQ(record.details_URL, "");
    std::filesystem::remove(drives.host("work/study/details.htm"));
    form.companions.button_edit_details_text.bring_to_front();
    EXPECT_TRUE(form.companions.button_edit_details_text.click());
    EXPECT_EQ(saved("work/study/details.htm"), "<HTML>\r\n</HTML>\r\n");
    EXPECT_EQ(launcher.started, "\"notepad.exe\"  \"C:\\work\\study\\details.htm\"  [1]\n");
}

TEST_F(Parameter_file_form, documentation_is_local_where_there_is_a_page_and_else_on_the_web) {
    drives.write("Suite/Tilverra/project_editor/manual.pdf", "");
    drives.write("Suite/Tilverra/project_editor/project/a.htm", "");
    Tparameter_file_form documented{program};
    const auto visible = [&](int i) { return documented.documentation.documentation_buttons[i]->visible(); };
    documented.set_web_documentation("http://example.org/TVS_suite", "C:\\Suite");
    EXPECT_TRUE(!visible(0) && !visible(1) && visible(2) && !visible(3));
    EXPECT_EQ(documented.documentation.documentation_buttons[2]->hint(),
              "C:\\Suite\\Tilverra\\project_editor\\manual.pdf");
    EXPECT_TRUE(documented.documentation.documentation_web_buttons[0]->visible());
    EXPECT_EQ(documented.help_lookup("project\\a.htm"),
              "C:\\Suite\\Tilverra\\project_editor\\project\\a.htm");
    EXPECT_EQ(documented.help_lookup("project\\b.htm"),
              "http://example.org/TVS_suite/Tilverra/project_editor/project/b.htm");
    documented.set_web_documentation(nullptr, nullptr);
    EXPECT_FALSE(documented.documentation.documentation_web_buttons[0]->visible());
    EXPECT_EQ(documented.help_lookup("project\\b.htm"), "");
    Tparameter_file_form bare{TESK::File_name("C:\\work\\other.exe")};
    bare.set_web_documentation(nullptr, nullptr);
    EXPECT_EQ(bare.documentation.documentation_label_installed.text(), "No documentation found");
}

TEST_F(Parameter_file_form, each_file_has_its_window_and_a_position_of_0_is_stored_as_1) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    form.set_bounds({0, 0, 640, 480});
    EXPECT_EQ(form.save(), Save_outcome::saved);
    Tparameter_file_form again{program};
    Tparameter_file_form::Editor editor;
    editor.parameters = &record;
    editor.file_name = &name;
    editor.file_given = true;
    editor.user_settings_file = &settings_folder;
    ASSERT_TRUE(again.bind_to(editor));
    EXPECT_EQ(again.bounds(), (Bounds{1, 1, 640, 480}));
    again.set_bounds({0, 50, 640, 480}); // on the left edge: lost by rule
    EXPECT_EQ(again.save(), Save_outcome::saved);
    Tparameter_file_form third{program};
    ASSERT_TRUE(third.bind_to(editor));
    EXPECT_EQ(third.bounds().left, 0);
    EXPECT_NE(third.bounds().width, 640);
}

// The frame with a language to choose: each text in brackets is a translation.
class Translated_form : public Parameter_file_form {
protected:
    Translated_form() {
        for (const char* text : {"Save/Close", "Cancel", "Save as", "Advanced", "Run it"}) {
            auto* phrase = new TESK::Translation(text);
            const std::string in_brackets = std::string("[") + text + "]";
            phrase->translations.append(new TESK::Translation::Translated("es", in_brackets));
            phrase->translations.append(new TESK::Translation::Translated("en", text));
            phrases.append(phrase);
        }
    }
    void bind_with_phrases(Tparameter_file_form& frame) {
        Tparameter_file_form::Editor editor;
        editor.parameters = &record;
        editor.file_name = &name;
        editor.file_given = true;
        editor.user_settings_file = &settings_folder;
        editor.phrases = &phrases;
        ASSERT_TRUE(frame.bind_to(editor));
        frame.show();
    }
    static void choose(Tparameter_file_form& frame, const std::string& language) {
        TRadioGroup& choice = frame.language.radiogroup_translation_target_language;
        const auto& items = choice.native_items();
        choice.bring_to_front();
        EXPECT_TRUE(
            choice.select(static_cast<int>(std::find(items.begin(), items.end(), language) - items.begin())));
    }
    static int translated(const Tparameter_file_form& frame) {
        int count = 0;
        for (const TControl* control :
             {static_cast<const TControl*>(&frame.ok_button), static_cast<const TControl*>(&frame.run_button),
              static_cast<const TControl*>(&frame.cancel_button),
              static_cast<const TControl*>(&frame.save_as_button),
              static_cast<const TControl*>(&frame.checkbox_advanced_mode)})
            count += control->text().starts_with('[') ? 1 : 0;
        return count;
    }

    TESK::Translations_phrases phrases;
};

TEST_F(Translated_form, is_translated_one_control_each_300_ms) {
    name = "C:\\work\\study.tvp";
    bind_with_phrases(form);
    EXPECT_TRUE(form.language.tabsheet_translation.visible());
    desktop.advance(3000);
    EXPECT_EQ(translated(form), 0);

    choose(form, "Spanish");
    EXPECT_EQ(translated(form), 0);
    for (int passes = 1; passes <= 4; ++passes) {
        desktop.advance(300);
        EXPECT_EQ(translated(form), passes);
    }
    desktop.advance(3000);
    form.show_run_button("Run it", "model.exe");
    desktop.advance(300);
    EXPECT_EQ(form.run_button.text(), "[Run it]") << "a text that comes later starts the passes anew";
}

TEST_F(Translated_form, in_the_native_language_is_translated_no_further) {
    name = "C:\\work\\study.tvp";
    bind_with_phrases(form);
    choose(form, "Spanish");
    desktop.advance(600);
    choose(form, "(native)");
    form.show_run_button("Run it", "model.exe");
    desktop.advance(3000);
    EXPECT_EQ(translated(form), 2);
    EXPECT_EQ(form.run_button.text(), "Run it");
    EXPECT_EQ(form.get_settings().language, "");
    choose(form, "English");
    desktop.advance(3000);
    EXPECT_EQ(translated(form), 0);
}

// A record that needs no folder.
class Loose_record : public Common_parameters_data_record {
public:
    Loose_record() : Common_parameters_data_record(0, {1, 0, 0}, "loose") {}
    const char* get_type_description() const override { return "Loose record"; }
};

TEST_F(Parameter_file_form, a_record_without_a_folder_needs_no_name_before_it_is_saved) {
    Loose_record loose;
    Tparameter_file_form::Editor editor;
    editor.parameters = &loose;
    ASSERT_TRUE(form.bind_to(editor));
    form.show();
    EXPECT_EQ(form.get_parameter_file_name(), "");
    EXPECT_FALSE(form.checkbox_advanced_mode.enabled());
    desktop.expect_file_dialog("Save Loose record as", {});
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_TRUE(form.visible());
    desktop.expect_file_dialog("Save Loose record as", {"C:\\work\\x.DAT"});
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_FALSE(form.visible());
    EXPECT_TRUE(std::filesystem::exists(drives.host("work/x.DAT")));
}

TEST_F(Parameter_file_form, a_run_on_a_file_without_a_name_asks_for_one_and_passes_it) {
    Loose_record loose;
    Tparameter_file_form::Editor editor;
    editor.parameters = &loose;
    ASSERT_TRUE(form.bind_to(editor));
    form.show();
    desktop.expect_file_dialog("Save Loose record as", {});
    EXPECT_FALSE(form.run_on_file("p.exe", nullptr, nullptr, false, show_normal));
    EXPECT_EQ(launcher.started + form.get_command_line(), "");
    desktop.expect_file_dialog("Save Loose record as", {"C:\\work\\x.DAT"});
    EXPECT_TRUE(form.run_on_file("p.exe", nullptr, nullptr, false, show_normal));
    EXPECT_EQ(launcher.started, "\"p.exe\"  \"C:\\work\\x.DAT\"  [1]\n");
}

TEST_F(Parameter_file_form, the_explorer_of_the_suite_is_started_on_the_folder_or_else_the_host_shows_it) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    form.set_explorer_program(TESK::File_name("C:\\Suite\\TVS_explorer.exe"));
    EXPECT_TRUE(form.button_app_explore.click());
    EXPECT_EQ(launcher.started, "\"C:\\Suite\\TVS_explorer.exe\"  \"C:\\work\\study\"  [1]\n");
    launcher.started.clear();
    {
        platform::File_faults faults;
        faults.fail(platform::Write_step::write, ENOSPC);
        desktop.expect_message("Unable to save", unable, Modal_result::abort);
        EXPECT_TRUE(form.button_app_explore.click());
        EXPECT_EQ(launcher.started, "");
    }
    launcher.result = platform::result_file_not_found;
    EXPECT_TRUE(form.button_app_explore.click());
    const std::string host = "explorer /n,/e,\"C:\\work\\study\" [1]\n";
    EXPECT_EQ(launcher.started, "\"C:\\Suite\\TVS_explorer.exe\"  \"C:\\work\\study\"  [1]\n" + host);
    launcher.started.clear();
    EXPECT_TRUE(form.button_windows_explore.click());
    EXPECT_EQ(launcher.started, host);
}

TEST_F(Parameter_file_form, a_name_that_cannot_be_written_gets_no_copy_of_the_folder) {
    drives.write("work/study/notes.txt", "of the study");
    drives.write("work/taken/notes.txt", "of another");
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    desktop.expect_file_dialog(save_title, {"C:\\work\\taken"});
    desktop.expect_message("File already exists",
                           "Replace the existing file with this name:\nC:\\work\\taken", Modal_result::yes);
    desktop.expect_message("Unable to save", unable, Modal_result::abort);
    EXPECT_TRUE(form.save_as_button.click());
    EXPECT_EQ(saved("work/taken/notes.txt"), "of another");
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\study.tvp");
    EXPECT_EQ(form.save(), Save_outcome::saved); // under the old name
}

TEST_F(Parameter_file_form, a_folder_that_follows_replaces_what_has_its_names_and_keeps_the_rest) {
    drives.write("work/study/notes.txt", "of the study");
    drives.write("work/taken/NOTES.TXT", "of another");
    drives.write("work/taken/Scenarios/kept.tvn", "kept");
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    desktop.expect_file_dialog(save_title, {"C:\\work\\taken.tvp"});
    EXPECT_TRUE(form.save_as_button.click());
    EXPECT_EQ(saved("work/taken/NOTES.TXT"), "of the study");
    EXPECT_EQ(saved("work/taken/Scenarios/kept.tvn"), "kept");
    EXPECT_EQ(form.companions.memo_notes.text(), "of the study");
}

TEST_F(Parameter_file_form, a_file_that_has_come_into_being_since_is_not_written_over_unasked) {
    const std::string question = "Replace the existing file with this name:\nC:\\work\\late.tvp";
    ASSERT_TRUE(bind("C:\\work\\late.tvp"));
    drives.write("work/late.tvp", "[other]\r\nkey=1\r\n");
    desktop.expect_message("File already exists", question, Modal_result::no);
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(saved("work/late.tvp"), "[other]\r\nkey=1\r\n");
    {
        platform::File_faults faults;
        faults.fail(platform::Write_step::write, ENOSPC);
        desktop.expect_file_dialog(save_title, {"C:\\work\\late.tvp"});
        desktop.expect_message("File already exists", question, Modal_result::yes);
        desktop.expect_message("Unable to save", unable, Modal_result::retry); // asks no second time
        desktop.expect_message("Unable to save", unable, Modal_result::abort);
        EXPECT_TRUE(form.save_as_button.click());
    }
    desktop.expect_file_dialog(save_title, {"C:\\work\\late.tvp"});
    desktop.expect_message("File already exists", question, Modal_result::yes);
    EXPECT_TRUE(form.save_as_button.click());
    EXPECT_TRUE(has_line("work/late.tvp", "[project]"));
    EXPECT_EQ(form.save(), Save_outcome::saved); // it is this form's own by now
}

TEST_F(Parameter_file_form, a_file_chosen_during_a_save_is_replaced_only_with_consent) {
    drives.write("work/mine.DAT", "mine");
    Loose_record loose;
    Tparameter_file_form::Editor editor;
    editor.parameters = &loose;
    ASSERT_TRUE(form.bind_to(editor));
    form.show();
    const std::string question = "Replace the existing file with this name:\nC:\\work\\mine.DAT";
    desktop.expect_file_dialog("Save Loose record as", {"C:\\work\\mine.DAT"});
    desktop.expect_message("File already exists", question, Modal_result::no);
    EXPECT_EQ(form.save(), Save_outcome::aborted);
    EXPECT_EQ(saved("work/mine.DAT"), "mine");
    desktop.expect_file_dialog("Save Loose record as", {"C:\\work\\mine.DAT"});
    desktop.expect_message("File already exists", question, Modal_result::yes);
    EXPECT_EQ(form.save(), Save_outcome::saved);
    EXPECT_NE(saved("work/mine.DAT"), "mine");
}

TEST_F(Parameter_file_form, a_name_that_the_suite_cannot_write_down_is_not_turned_into_another) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    desktop.expect_file_dialog(save_title, {"C:\\work\\\xD0\x96x.tvp"});
    desktop.expect_message("Unable to save", unable, Modal_result::retry);
    desktop.expect_file_dialog(save_title, {"C:\\work\\\xE2\x82\xACx.tvp"});
    EXPECT_TRUE(form.save_as_button.click());
    EXPECT_FALSE(std::filesystem::exists(drives.host("work/x.tvp")));
    EXPECT_EQ(form.get_parameter_file_name(), "C:\\work\\\x80x.tvp");
    EXPECT_TRUE(has_line("work/\xE2\x82\xACx.tvp", "[project]"));
}

TEST_F(Parameter_file_form, a_companion_that_cannot_be_read_is_neither_edited_nor_written_over) {
    std::filesystem::create_directory(drives.host("work/study/notes.txt"));
    const std::string huge(std::size_t{17} << 20, 'x');
    drives.write("work/study/details.htm", huge);
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    for (TMemo* memo :
         {&form.companions.memo_notes, &form.companions.details_edit_memo, &form.companions.status_memo}) {
        memo->bring_to_front();
        EXPECT_TRUE(memo->read_only());
        EXPECT_FALSE(memo->type_text("x"));
    }
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_EQ(saved("work/study/details.htm").size(), huge.size());
}

TEST_F(Parameter_file_form,
       companions_that_other_programs_change_are_shown_anew_unless_they_are_being_edited) {
    drives.write("work/study/notes.txt", "one\rtwo\r\nthree\n");
    drives.write("work/study/details.htm", "old");
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    EXPECT_EQ(form.companions.memo_notes.text(), "one\ntwo\nthree\n");
    form.companions.details_edit_memo.bring_to_front();
    EXPECT_EQ(form.companions.details_edit_memo.text(), "old");
    form.companions.memo_notes.bring_to_front();
    EXPECT_TRUE(form.companions.memo_notes.type_text("zero\n"));
    drives.write("work/study/details.htm", "new");
    form.companions.tabsheet_details.bring_to_front();
    EXPECT_EQ(form.companions.details_edit_memo.text(), "new");
    drives.write("work/study/notes.txt", "elsewhere");
    form.companions.memo_notes.bring_to_front();
    EXPECT_EQ(form.companions.memo_notes.text(), "zero\none\ntwo\nthree\n");
}

TEST_F(Parameter_file_form, without_a_folder_of_the_program_no_documentation_counts_as_installed) {
    drives.write("work/help.htm", "");
    Tparameter_file_form bare{TESK::File_name("C:\\work\\other.exe")};
    bare.set_web_documentation(nullptr, nullptr);
    EXPECT_FALSE(bare.documentation.documentation_buttons[0]->visible());
    EXPECT_EQ(bare.documentation.documentation_label_installed.text(), "No documentation found");
}

TEST_F(Parameter_file_form, a_language_is_shown_bit_by_bit_and_comes_back_with_the_file) {
    TESK::Translations_phrases phrases;
    for (const char* text : {"Save as", "Of the editor", "Beside the panel"}) {
        auto* phrase = new TESK::Translation(text);
        phrase->translations.append(new TESK::Translation::Translated("en", text));
        phrase->translations.append(
            new TESK::Translation::Translated("fr", (text + std::string("!")).c_str()));
        phrase->translations.append(
            new TESK::Translation::Translated("pt", (text + std::string("?")).c_str()));
        phrases.append(phrase);
    }
    TForm concrete("concrete");
    auto& inside = concrete.add<TPanel>("inside");
    TLabel& hosted = inside.add<TLabel>("hosted", "Of the editor");
    TLabel& beside = concrete.add<TLabel>("beside", "Beside the panel");
    name = "C:\\work\\study.tvp";
    Tparameter_file_form::Editor editor;
    editor.form = &concrete;
    editor.parameters = &record;
    editor.panel = &inside;
    editor.file_name = &name;
    editor.file_given = true;
    editor.user_settings_file = &settings_folder;
    editor.phrases = &phrases;
    ASSERT_TRUE(form.bind_to(editor));
    form.show();
    TRadioGroup& languages = form.language.radiogroup_translation_target_language;
    languages.bring_to_front();
    EXPECT_TRUE(languages.select(2));
    desktop.advance(299);
    EXPECT_EQ(form.save_as_button.text() + hosted.text() + beside.text(),
              "Save asOf the editorBeside the panel");
    desktop.advance(1200);
    EXPECT_EQ(form.save_as_button.text() + hosted.text() + beside.text(),
              "Save as!Of the editor!Beside the panel!");
    EXPECT_EQ(form.get_settings().language, "fr");
    EXPECT_TRUE(languages.select(10));
    form.language.edit_translation_other.focus();
    EXPECT_TRUE(form.language.edit_translation_other.type_text("pt"));
    desktop.advance(1500);
    EXPECT_EQ(form.save_as_button.text(), "Save as?");
    EXPECT_FALSE(form.has_changes());
    EXPECT_EQ(form.save(), Save_outcome::saved);

    Tparameter_file_form again{program};
    ASSERT_TRUE(again.bind_to(editor));
    EXPECT_EQ(again.language.radiogroup_translation_target_language.item_index(), 10);
    EXPECT_EQ(again.language.edit_translation_other.text(), "pt");
    desktop.advance(1500);
    EXPECT_EQ(again.save_as_button.text(), "Save as?");
    again.show();
    again.language.radiogroup_translation_target_language.bring_to_front();
    EXPECT_TRUE(again.language.radiogroup_translation_target_language.select(0));
    EXPECT_EQ(again.get_settings().language, "");
}

TEST_F(Parameter_file_form, the_advanced_mode_belongs_to_the_user_and_the_file) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    EXPECT_TRUE(form.checkbox_advanced_mode.click());
    EXPECT_TRUE(form.get_settings().advanced);
    EXPECT_FALSE(form.has_changes());
    EXPECT_EQ(form.save(), Save_outcome::saved);
    for (const char* file : {"C:\\work\\study.tvp", "C:\\work\\other.tvp"}) {
        Tparameter_file_form again{program};
        name = file;
        Tparameter_file_form::Editor editor;
        editor.parameters = &record;
        editor.file_name = &name;
        editor.file_given = true;
        editor.user_settings_file = &settings_folder;
        ASSERT_TRUE(again.bind_to(editor));
        EXPECT_EQ(again.checkbox_advanced_mode.checked(), std::string(file) == "C:\\work\\study.tvp");
    }
}

// An editor that puts the record in order when it shows it, as the project's does.
class Tidying_panel : public TPanel {
public:
    explicit Tidying_panel(Tilverra_project_editor_parameters& record) : TPanel("tidying"), record_(record) {}
    void Update() override { record_.cropping_system_model = "tidied"; }

private:
    Tilverra_project_editor_parameters& record_;
};

TEST_F(Parameter_file_form, what_the_editor_puts_in_order_itself_is_no_unsaved_change) {
    Tidying_panel tidying(record);
    name = "C:\\work\\study.tvp";
    Tparameter_file_form::Editor editor;
    editor.form = &tidying;
    editor.parameters = &record;
    editor.panel = &tidying;
    editor.file_name = &name;
    editor.file_given = true;
    ASSERT_TRUE(form.bind_to(editor));
    form.show();
    EXPECT_EQ(record.cropping_system_model, "tidied");
    EXPECT_FALSE(form.has_changes());
    EXPECT_TRUE(form.close()); // asks nothing
}

TEST_F(Parameter_file_form, a_frame_that_closes_stays_open_while_the_wanted_save_fails) {
    ASSERT_TRUE(bind("C:\\work\\study.tvp"));
    form.companions.memo_notes.bring_to_front();
    EXPECT_TRUE(form.companions.memo_notes.type_text("noted"));
    describe("typed last, and not left"); // the question comes after it has reached the record
    const std::string question = "Save the changes to C:\\work\\study.tvp?";
    const std::string before = saved("work/study.tvp");
    {
        platform::File_faults faults;
        faults.fail(platform::Write_step::write, ENOSPC);
        desktop.expect_message("Unsaved changes", question, Modal_result::yes);
        desktop.expect_message("Unable to save", unable, Modal_result::abort);
        EXPECT_FALSE(form.close());
        EXPECT_TRUE(form.visible());
        EXPECT_EQ(saved("work/study.tvp"), before);
    }
    std::filesystem::create_directory(drives.host("work/study/notes.txt")); // now only the notes fail
    desktop.expect_message("Unsaved changes", question, Modal_result::yes);
    desktop.expect_message("Unable to save", unable, Modal_result::abort);
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(has_line("work/study.tvp", "description=typed last, and not left"));
    std::filesystem::remove(drives.host("work/study/notes.txt"));
    desktop.expect_message("Unsaved changes", question, Modal_result::yes);
    EXPECT_TRUE(form.close());
    EXPECT_EQ(saved("work/study/notes.txt"), "noted");
}

} // namespace
