#include "frame_support.h"

TEST_F(Parameter_file_form, a_record_is_opened_edited_saved_and_keeps_what_other_programs_wrote) {
    ASSERT_TRUE(bind("C:\\new\\deep\\trial.tvp"));
    EXPECT_TRUE(form.file.is_new_file());
    EXPECT_FALSE(form.notes.tabsheet_notes.visible() || form.button_windows_explore.visible());
    EXPECT_EQ(form.save(), Save_outcome::saved);
    EXPECT_TRUE(!form.file.is_new_file() && has_line("new/deep/trial.tvp", "[project]"));

    ASSERT_TRUE(bind());
    EXPECT_EQ(form.text(), "Tilverra project: C:\\work\\study.tvp");
    EXPECT_EQ(saved("work/study/backup"), saved("work/study.tvp"));
    describe("Drip trial \xE2\x82\xAC");
    EXPECT_TRUE(form.ok_button.click());
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(form.modal_result(), Modal_result::ok);
    EXPECT_TRUE(has_line("work/study.tvp", "description=Drip trial \x80"));
    EXPECT_NE(saved("work/study.tvp").find("[written by another program]"), std::string::npos);
    EXPECT_EQ(platform::shell().recent_documents().size(), 2u);
}

TEST_F(Parameter_file_form, closing_by_cancel_or_the_frame_saves_nothing_and_throws_nothing_away_unasked) {
    ASSERT_TRUE(bind());
    const std::string before = saved("work/study.tvp");
    EXPECT_FALSE(form.has_changes());
    describe("changed");
    desktop.advance(600);
    EXPECT_EQ(form.text(), "Tilverra project: C:\\work\\study.tvp"); // not left yet
    form.parameters_panel.add<TButton>("elsewhere").focus();
    desktop.advance(600);
    EXPECT_EQ(form.text(), "Tilverra project: C:\\work\\study.tvp *");
    for (const bool by_button : {false, true})
        for (const Modal_result answer : {Modal_result::cancel, Modal_result::no}) {
            form.show();
            expect(leaving(answer));
            by_button ? form.cancel_button.click() : form.close();
            EXPECT_EQ(form.visible(), answer == Modal_result::cancel);
            EXPECT_EQ(saved("work/study.tvp"), before);
        }
    EXPECT_EQ(form.modal_result(), Modal_result::cancel);
    form.show();
    expect(leaving(Modal_result::yes));
    EXPECT_TRUE(form.close());
    EXPECT_TRUE(has_line("work/study.tvp", "description=changed"));
}

TEST_F(Parameter_file_form, run_saves_first_and_the_command_is_told_word_by_word) {
    ASSERT_TRUE(bind());
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
    EXPECT_EQ(form.status_line.text(), "Not started: C:\\gone.exe; see Commands");
    form.show_run_button("Run GIS", "C:\\GIS_runner.exe");
    EXPECT_TRUE(form.run_button.click());
    EXPECT_EQ(form.get_command_line(), "\"C:\\GIS_runner.exe\"  \"C:\\work\\study.tvp\" ");
    form.show_run_button("", "");
    EXPECT_FALSE(form.run_button.visible());
}

TEST_F(Parameter_file_form, a_name_that_no_program_can_be_handed_is_neither_started_on_nor_saved_under) {
    const std::string refusal =
        "A name that holds a quotation mark or a control character cannot be handed to a program.";
    ASSERT_TRUE(bind());
    desktop.expect_message("Unable to start", refusal, Modal_result::ok);
    EXPECT_FALSE(form.run("p.exe", nullptr, "C:\\a\" \"b.tvn", nullptr, true, show_normal));
    // Once is enough in a batch.
    EXPECT_FALSE(form.run("p.exe", nullptr, "C:\\b\".tvn", nullptr, true, show_normal));
    EXPECT_EQ(launcher.started, "");
    EXPECT_TRUE(form.programs.command_history_memo.text().ends_with("was not started. " + refusal + "\n"));

    desktop.expect_file_dialog(save_title, {"C:\\work\\a\"b.tvp"});
    desktop.expect_message("Unable to save", refusal, Modal_result::ok);
    desktop.expect_file_dialog(save_title, {});
    EXPECT_EQ(form.save_as(), Save_outcome::aborted);
}

TEST_F(Parameter_file_form, enter_moves_on_and_presses_no_button_and_a_memo_keeps_it) {
    ASSERT_TRUE(bind());
    const Key enter{Key_code::enter, "\n", false, false};
    form.edit_description.focus();
    EXPECT_TRUE(form.edit_description.key(enter));
    EXPECT_FALSE(form.edit_description.focused());
    EXPECT_TRUE(form.visible());
    form.notes.memo_notes.bring_to_front();
    EXPECT_TRUE(form.notes.memo_notes.type_text("a"));
    EXPECT_TRUE(form.notes.memo_notes.key(enter));
    EXPECT_EQ(form.notes.memo_notes.text(), "a\n");
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
    // A file that lies beside the program, in no folder of its own, is none.
    drives.write("work/help.htm", "");
    Tparameter_file_form bare{TESK::File_name("C:\\work\\other.exe")};
    bare.set_web_documentation(nullptr, nullptr);
    EXPECT_FALSE(bare.documentation.documentation_buttons[0]->visible());
    EXPECT_EQ(bare.documentation.documentation_label_installed.text(), "No documentation found");
    EXPECT_EQ(bare.documentation.label_where_documentation_lies.text(),
              "Documentation is looked for in C:\\work\\other, where the installation of the suite puts it.");
}

TEST_F(Parameter_file_form, each_file_has_its_window_and_a_position_of_0_is_stored_as_1) {
    ASSERT_TRUE(bind());
    form.set_bounds({0, 0, 640, 480});
    EXPECT_EQ(form.save(), Save_outcome::saved);
    Tparameter_file_form again{program};
    ASSERT_TRUE(bind_again(again));
    EXPECT_EQ(again.bounds(), (Bounds{1, 1, 640, 480}));
    again.set_bounds({0, 50, 640, 480}); // on the left edge: lost by rule
    EXPECT_EQ(again.save(), Save_outcome::saved);
    Tparameter_file_form third{program};
    ASSERT_TRUE(bind_again(third));
    EXPECT_EQ(third.bounds().left, 0);
    EXPECT_NE(third.bounds().width, 640);
}

TEST_F(Parameter_file_form, a_record_without_a_folder_needs_no_name_before_it_is_saved_or_run_on) {
    for (const bool saves : {false, true}) {
        SCOPED_TRACE(saves ? "saved" : "run on");
        bind_loose();
        form.set_file("");
        EXPECT_FALSE(form.checkbox_advanced_mode.enabled());
        const auto work = [&] {
            return saves ? form.ok_button.click() && !form.visible()
                         : form.run_on_file("p.exe", nullptr, nullptr, false, show_normal);
        };
        desktop.expect_file_dialog("Save Loose record as", {});
        EXPECT_FALSE(work());
        EXPECT_EQ(form.get_parameter_file_name() + launcher.started, "");
        desktop.expect_file_dialog("Save Loose record as", {"C:\\work\\x.DAT"});
        EXPECT_TRUE(work());
        EXPECT_TRUE(std::filesystem::remove(drives.host("work/x.DAT")));
        EXPECT_EQ(std::exchange(launcher.started, ""), saves ? "" : "\"p.exe\"  \"C:\\work\\x.DAT\"  [1]\n");
    }
}

TEST_F(Parameter_file_form, the_explorer_of_the_suite_is_started_on_the_folder_or_else_the_host_shows_it) {
    ASSERT_TRUE(bind());
    form.set_explorer_program(TESK::File_name("C:\\Suite\\TVS_explorer.exe"));
    EXPECT_TRUE(form.button_app_explore.click());
    EXPECT_EQ(launcher.started, "\"C:\\Suite\\TVS_explorer.exe\"  \"C:\\work\\study\"  [1]\n");
    launcher.started.clear();
    describe("changed");
    {
        const Full_disk full_disk;
        expect(failing(Modal_result::abort));
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

TEST_F(Parameter_file_form, the_advanced_mode_belongs_to_the_user_and_the_file) {
    ASSERT_TRUE(bind());
    EXPECT_TRUE(form.checkbox_advanced_mode.click());
    EXPECT_TRUE(form.get_settings().advanced);
    EXPECT_FALSE(form.has_changes());
    EXPECT_EQ(form.save(), Save_outcome::saved);
    for (const char* file : {study, "C:\\work\\other.tvp"}) {
        Tparameter_file_form again{program};
        ASSERT_TRUE(bind_again(again, file));
        EXPECT_EQ(again.checkbox_advanced_mode.checked(), file == study);
    }
}

TEST_F(Parameter_file_form, what_the_editor_puts_in_order_itself_is_no_unsaved_change) {
    // As the project's editor does when it shows the record.
    struct Tidying_panel : TPanel {
        using TPanel::TPanel;
        void Update() override { tidied->cropping_system_model = "tidied"; }
        Tilverra_project_editor_parameters* tidied = nullptr;
    } tidying("tidying");
    tidying.tidied = &record;
    name = study;
    ASSERT_TRUE(form.bind_to(editor(&tidying)));
    form.show();
    EXPECT_EQ(record.cropping_system_model, "tidied");
    EXPECT_FALSE(form.has_changes());
    EXPECT_TRUE(form.close()); // asks nothing
}

TEST_F(Parameter_file_form, a_frame_that_closes_stays_open_while_the_wanted_save_fails) {
    ASSERT_TRUE(bind());
    form.notes.memo_notes.bring_to_front();
    EXPECT_TRUE(form.notes.memo_notes.type_text("noted"));
    describe("typed last, and not left"); // the question comes after it has reached the record
    const std::string before = saved("work/study.tvp");
    {
        const Full_disk full_disk;
        expect(leaving(Modal_result::yes));
        expect(failing(Modal_result::abort));
        EXPECT_FALSE(form.close());
        EXPECT_TRUE(form.visible());
        EXPECT_EQ(saved("work/study.tvp"), before);
    }
    std::filesystem::create_directory(drives.host("work/study/notes.txt")); // now only the notes fail
    expect(leaving(Modal_result::yes));
    expect(failing(Modal_result::abort));
    EXPECT_FALSE(form.close());
    EXPECT_TRUE(has_line("work/study.tvp", "description=typed last, and not left"));
    std::filesystem::remove(drives.host("work/study/notes.txt"));
    expect(leaving(Modal_result::yes));
    EXPECT_TRUE(form.close());
    EXPECT_EQ(saved("work/study/notes.txt"), "noted");
}

TEST_F(Parameter_file_form, a_backup_that_fails_is_said) {
    const Full_disk full_disk;
    ASSERT_TRUE(bind());
    EXPECT_TRUE(form.status_line.text().starts_with("This file could not be backed up: "))
        << form.status_line.text();
}
