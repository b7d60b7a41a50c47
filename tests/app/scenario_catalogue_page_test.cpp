#include "project_support.h"

using Catalogue = Project_test;

TEST_F(Catalogue, a_new_scenario_is_made_active_copied_listed_and_opened) {
    open();
    record->active_scenario = "Scenarios\\base.tvn";
    TEdit& new_name = form.scenarios.edit.edit_new_scenario_name;
    expect_no_name();
    EXPECT_TRUE(press(form.scenarios.edit.scenario_create_button));
    EXPECT_TRUE(form.scenarios.edit.checkbox_copy_active_scenario.check());
    EXPECT_TRUE(new_name.type_text("wheat 1.5"));
    EXPECT_TRUE(new_name.key(key(Key_code::enter)));
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\wheat 1.5.tvn");
    EXPECT_EQ(scenario("wheat 1.5"), scenario("base"));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;wheat 1.5.tvn;");
    EXPECT_EQ(started(), "\"C:\\Suite\\Tilverra\\scenario_editor.exe\"  "
                         "\"C:\\projects\\study\\Scenarios\\wheat 1.5.tvn\"  [1]\n");
    EXPECT_EQ(new_name.text(), "");
    // An existing file stays, and the line comes a second time until the list is read again.
    write_scenario("dry", "mine");
    EXPECT_TRUE(new_name.type_text("dry"));
    EXPECT_TRUE(press(form.scenarios.edit.scenario_create_button));
    EXPECT_EQ(scenario("dry"), "mine");
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;dry.tvn;wet.tvn;wheat 1.5.tvn;");
    // Without the copy box there is no file before the scenario editor saves one.
    EXPECT_TRUE(form.scenarios.edit.checkbox_copy_active_scenario.check(false));
    EXPECT_TRUE(new_name.type_text("later"));
    EXPECT_TRUE(press(form.scenarios.edit.scenario_create_button));
    EXPECT_FALSE(there("projects/study/Scenarios/later.tvn"));
    EXPECT_TRUE(press(form.scenarios.lists.relist_scenarios_button));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;wheat 1.5.tvn;");
}

TEST_F(Catalogue, deleting_takes_the_checked_scenarios_with_their_outputs_or_the_active_file_alone) {
    for (const char* name_of_one : {"base", "dry", "wet", "wet.2"}) {
        write_scenario(name_of_one, "four");
        write_output(name_of_one, "season.xls");
    }
    drives.write("projects/study/Scenarios/.tvn", "x");
    drives.write("elsewhere/far.tvn", std::string(5000, 'x'));
    open_with("Scenarios\\base.tvn");
    EXPECT_EQ(lines(created()), ".tvn;base.tvn;dry.tvn;wet.2.tvn;wet.tvn;");
    const std::string base_goes = std::string(active_goes) + "Scenarios\\base.tvn, 4 B";
    expect_deletion(Modal_result::cancel, base_goes);
    EXPECT_TRUE(press_delete());
    EXPECT_EQ(created().count(), 5);

    created().check(0);
    created().check(3);
    expect_deletion(Modal_result::yes, "Scenarios: 2\nFiles of their outputs: 1\nSize of all: 6 B\n\n"
                                       ".tvn\nwet.2.tvn (outputs: 1)");
    std::string shown;
    desktop.on_process_messages = [&] { shown += form.scenarios.sim_run_progress_note.text() + ";"; };
    created().focus();
    EXPECT_TRUE(created().key(key(Key_code::del)));
    EXPECT_EQ(shown, "1 of 2, ;2 of 2, wet.2;");
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;wet.tvn;");
    EXPECT_EQ(created().item_text(), "base.tvn");
    EXPECT_FALSE(there("projects/study/Scenarios/wet.2"));
    EXPECT_TRUE(there("projects/study/Scenarios/wet/Output/season.xls"));

    created().check(1);
    expect_deletion(Modal_result::no, "Scenarios: 1\nFiles of their outputs: 1\nSize of all: 5 B\n\n"
                                      "dry.tvn (outputs: 1)");
    EXPECT_TRUE(press_delete());
    EXPECT_FALSE(there("projects/study/Scenarios/dry.tvn") || there("projects/study/Scenarios/dry"));
    EXPECT_TRUE(std::filesystem::exists(user.home(".local/share/Trash/files/dry.tvn")) ||
                std::filesystem::exists(drives.user_data() + "/Trash/files/dry.tvn"));

    const auto light = [this] { return form.scenarios.active_scenario_editbar.panel_caption.colour(); };
    const auto light_before = light();
    expect_deletion(Modal_result::yes, base_goes);
    EXPECT_TRUE(press_delete());
    EXPECT_FALSE(there("projects/study/Scenarios/base.tvn"));
    EXPECT_TRUE(there("projects/study/Scenarios/base/Output/season.xls"));
    EXPECT_EQ(record->active_scenario, "Scenarios\\base.tvn");
    EXPECT_NE(light(), light_before);

    // Who closes the window stops it.
    for (const char* name_of_one : {"base", "dry", "wet"})
        write_scenario(name_of_one, "x");
    EXPECT_TRUE(press(form.scenarios.lists.relist_scenarios_button));
    form.scenarios.lists.senerios_select_all_button_onclick();
    std::filesystem::remove_all(drives.host("projects/study/Scenarios/base"));
    expect_deletion(Modal_result::yes, "Scenarios: 3\nFiles of their outputs: 1\nSize of all: 4 B\n\n"
                                       "base.tvn\ndry.tvn\nwet.tvn (outputs: 1)");
    const int processed = desktop.messages_processed();
    desktop.on_process_messages = [&] { desktop.closing = desktop.messages_processed() >= processed + 2; };
    desktop.expect_message("Deletion stopped", "The deletion was stopped. Scenarios deleted until then: 1");
    EXPECT_TRUE(press_delete());
    EXPECT_EQ(lines(created()), "dry.tvn*;wet.tvn*;");
    form.scenarios.lists.scenerios_select_none_button_onclick();
    desktop.closing = false;
    desktop.on_process_messages = {};

    // A file of another place is asked for once more.
    record->active_scenario = "C:\\elsewhere\\far.tvn";
    for (const Modal_result answer : {Modal_result::no, Modal_result::yes}) {
        EXPECT_TRUE(there("elsewhere/far.tvn"));
        expect_deletion(Modal_result::yes, std::string(active_goes) + "C:\\elsewhere\\far.tvn, 4.9 KB");
        desktop.expect_message("Scenario outside the project",
                               "This file lies outside the folder of this project. Delete it all the same?\n"
                               "C:\\elsewhere\\far.tvn",
                               answer);
        EXPECT_TRUE(press_delete());
    }
    EXPECT_FALSE(there("elsewhere/far.tvn"));
}

TEST_F(Catalogue, files_of_version_3_become_scenarios_in_the_order_of_the_dialog) {
    copy_data("version3.sim", "old/a/maize.sim");
    drives.write("old/b/other.sim", "no scenario at all");
    open();
    desktop.expect_file_dialog("Select version 3 simulation control file to import to this project.",
                               {"C:\\old\\a\\maize.sim", "C:\\old\\b\\other.sim"});
    EXPECT_TRUE(press(form.scenarios.edit.scenario_open_SIM));
    EXPECT_EQ(lines(created()), "base.tvn;dry.tvn;maize.tvn;other.tvn;wet.tvn;");
    for (const char* imported : {"maize", "other"})
        EXPECT_NE(scenario(imported).find("[simulation]"), std::string::npos) << imported;

    // One answer can do for all. It shows how far it is, and a user can stop it.
    std::string shown;
    desktop.on_process_messages = [&] { shown += form.scenarios.sim_run_progress_note.text() + ";"; };
    for (const char* name_of_one : {"dry", "rye"})
        copy_data("version3.sim", std::string("old/a/") + name_of_one + ".sim");
    for (const bool is_stopped : {true, false}) {
        desktop.closing = is_stopped;
        desktop.expect_file_dialog("Select version 3 simulation control file to import to this project.",
                                   {"C:\\old\\a\\maize.sim", "C:\\old\\a\\rye.sim", "C:\\old\\a\\dry.sim"});
        if (is_stopped) {
            desktop.expect_message("Import stopped",
                                   "The import was stopped. Scenarios imported until then: 0");
        } else {
            desktop.expect_message("Scenario already exists", "Replace the scenario maize.tvn?",
                                   Modal_result::yes);
            desktop.expect_message("Scenario already exists",
                                   "Do the same with all others that exist already?", Modal_result::yes);
        }
        EXPECT_TRUE(press(form.scenarios.edit.scenario_open_SIM));
        EXPECT_EQ(there("projects/study/Scenarios/rye.tvn"), !is_stopped);
    }
    EXPECT_NE(scenario("dry").find("[simulation]"), std::string::npos);
    EXPECT_TRUE(shown.ends_with("1 of 3, maize;2 of 3, rye;3 of 3, dry;")) << shown;
}

TEST_F(Catalogue, a_line_of_either_list_points_the_active_scenario_into_the_created_ones) {
    drives.write("projects/study/Generated_scenarios/00001.tvn", "");
    open();
    EXPECT_TRUE(form.scenarios.lists.tabsheet_generated_scenarios.visible());
    created().bring_to_front();
    EXPECT_TRUE(created().select(1));
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\dry.tvn");
    EXPECT_EQ(form.scenarios.active_scenario_editbar.filename_edit.text(), record->active_scenario);
    form.scenarios.run.senerios_run_button.bring_to_front();
    EXPECT_TRUE(form.scenarios.run.senerios_run_button.usable());
    show_generated();
    EXPECT_EQ(form.scenarios.lists.current_scenarios_listbox, &generated());
    EXPECT_TRUE(generated().select(0));
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\00001.tvn");
    EXPECT_FALSE(form.scenarios.run.senerios_run_button.usable());
}

TEST_F(Catalogue, a_typed_name_is_completed_and_a_scenario_of_elsewhere_is_opened_where_it_is) {
    copy_data("base.tvn", "elsewhere/far.tvn");
    open_with("Scenarios\\base.tvn");
    TAutoFileEditBar& bar = form.scenarios.active_scenario_editbar;
    retype(bar.filename_edit, "new one");
    form.scenarios.edit.scenario_open_active_button.focus();
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\new one.tvn");
    desktop.expect_file_dialog("Simulation scenario", {"C:\\elsewhere\\far.tvn"});
    EXPECT_TRUE(press(form.scenarios.edit.scenario_open_other));
    EXPECT_EQ(desktop.last_file_dialog()->initial_folder, "C:\\projects\\study\\Scenarios");
    EXPECT_EQ(record->active_scenario, "C:\\elsewhere\\far.tvn");
    EXPECT_NE(started().find("scenario_editor.exe\"  \"C:\\elsewhere\\far.tvn\""), std::string::npos);
}

TEST_F(Catalogue, exploring_shows_the_folder_of_the_page_in_front) {
    open();
    const auto explored = [this] {
        form.scenarios.lists.explore_scenarios_buttonClick();
        const std::string command = started();
        const std::string start = "\"C:\\Suite\\TVS_explorer.exe\"  \"C:\\projects\\study";
        EXPECT_EQ(command.substr(0, start.size()), start);
        return command.substr(start.size(), command.rfind('"') - start.size());
    };
    EXPECT_EQ(explored(), "\\Scenarios");
    form.project_pagecontrol.set_active_page(form.options.options_tabsheet);
    EXPECT_EQ(explored(), "");
    form.options.show_optimization_model_buttonClick();
    EXPECT_EQ(explored(), "\\Carbon_sequestration_optimization");
    desktop.expect_menu("Project database");
    EXPECT_TRUE(press(form.scenarios.edit.parameter_database_button));
    EXPECT_NE(started().find("\"C:\\projects\\study\\Database\""), std::string::npos);
}

// The line under the cursor is that of the active scenario, whatever has been done; where that is not in the
// list, no line is highlighted.
TEST_F(Catalogue, the_cursor_stands_on_the_active_scenario_always) {
    drives.write("projects/study/Generated_scenarios/00001.tvn", "");
    copy_data("base.tvn", "elsewhere/wet.tvn");
    open();
    const auto under_cursor = [this] { return created().item_text(); };
    TLabel& outside = form.scenarios.active_scenario_outside_note;
    activate("Scenarios\\DRY.tvn"); // at the start; case does not count
    EXPECT_EQ(under_cursor(), "dry.tvn");
    EXPECT_FALSE(outside.visible());
    activate("Scenarios\\dry.tvn");

    form.scenarios.lists.senerios_select_all_button_onclick();
    expect_batch(Modal_result::ok);
    form.scenarios.run.senerios_run_button_onclick();
    EXPECT_EQ(under_cursor(), "dry.tvn");
    write_output("dry");
    form.scenarios.lists.senerios_select_all_button_onclick();
    expect_nothing_compared();
    form.scenarios.analysis.button_compare_project_scenariosClick();
    EXPECT_EQ(under_cursor(), "dry.tvn");

    form.scenarios.edit.edit_new_scenario_name.set_text("cold");
    form.scenarios.edit.scenario_create_button_onclick();
    EXPECT_EQ(lines(created()), "base.tvn;cold.tvn;dry.tvn;wet.tvn;");
    EXPECT_EQ(under_cursor(), "cold.tvn");

    TAutoFileEditBar& bar = form.scenarios.active_scenario_editbar;
    bar.bring_to_front();
    const auto light = [&bar] { return bar.panel_caption.colour(); };
    const auto choose = [&](const std::string& file) {
        desktop.expect_file_dialog("", {file});
        EXPECT_TRUE(press(bar.filename_button));
        return under_cursor();
    };
    EXPECT_EQ(choose("C:\\projects\\study\\Scenarios\\base.tvn"), "base.tvn");
    const auto there_light = light();
    EXPECT_EQ(choose("C:\\elsewhere\\wet.tvn"), "");
    EXPECT_TRUE(outside.visible());
    EXPECT_EQ(light(), there_light);

    // A file that is gone is not green, and no line of the list is it.
    activate("Scenarios\\base.tvn");
    std::filesystem::remove(drives.host("projects/study/Scenarios/base.tvn"));
    EXPECT_TRUE(press(form.scenarios.lists.relist_scenarios_button));
    EXPECT_EQ(under_cursor(), "");
    EXPECT_NE(light(), there_light);

    // A line of the generated list keeps the cursor that was put on it.
    generated().bring_to_front();
    EXPECT_TRUE(generated().select(0));
    form.scenarios.files_changed();
    EXPECT_EQ(generated().item_index(), 0);
    EXPECT_EQ(record->active_scenario, "C:\\projects\\study\\Scenarios\\00001.tvn");
    EXPECT_EQ(under_cursor(), "");

    // The key takes that line's file, and not the one of the same name that is active.
    write_scenario("00001", "");
    form.scenarios.lists.set_current_list();
    expect_deletion(Modal_result::yes,
                    "Scenarios: 1\nFiles of their outputs: 0\nSize of all: 0 B\n\n00001.tvn");
    EXPECT_TRUE(generated().key(key(Key_code::del)));
    EXPECT_TRUE(there("projects/study/Scenarios/00001.tvn"));
    EXPECT_FALSE(there("projects/study/Generated_scenarios/00001.tvn"));
}

// Whoever writes them: the scenario editor, another editor, a colleague.
TEST_F(Catalogue, lists_lights_and_the_run_button_follow_the_files) {
    open();
    record->active_scenario = "C:\\elsewhere\\later.tvn";
    std::filesystem::create_directories(drives.host("elsewhere"));
    form.Update();
    TButton& run = form.scenarios.run.senerios_run_button;
    EXPECT_FALSE(run.enabled());
    const auto light = [this] { return form.scenarios.active_scenario_editbar.panel_caption.colour(); };
    const auto light_before = light();
    drives.write("elsewhere/later.tvn", "x");
    drives.write("projects/study/Scenarios/cold.tvn", "x");
    desktop.descriptors_ready();
    EXPECT_FALSE(run.enabled()) << "not for each change at once";
    desktop.advance(500);
    EXPECT_TRUE(run.enabled());
    EXPECT_NE(light(), light_before);
    EXPECT_EQ(lines(created()), "base.tvn;cold.tvn;dry.tvn;wet.tvn;");
}
