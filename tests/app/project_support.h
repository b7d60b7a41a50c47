// A project with a few scenarios in an installed suite, opened in the form as the program opens it: for tests
// that drive the form as a user would.
#pragma once

#include "app/tilverra_project_form.h"
#include "editing/record_folders.h"
#include "model/simulation_paths.h"
#include "support/launcher_record.h"
#include "support/temporary_drives.h"
#include "support/temporary_user.h"
#include "support/test_desktop.h"
#include "trees/suite_directory.h"

#include <memory>

class Project_test : public testing::Test {
protected:
    Project_test() {
        drives.write("Suite/Tilverra/project_editor.exe");
        drives.write("Suite/Tilverra/tilverra_5.exe");
        platform::change_directory("C:\\Suite\\Tilverra");
        suite_directory = new TVS::Suite_Directory(program);
        copy_data("irrigation_study.tvp", "projects/study.tvp");
        for (const char* scenario : {"base", "dry", "wet"})
            copy_data("base.tvn", std::string("projects/study/Scenarios/") + scenario + ".tvn");
        current_folder_source = &folders;
        record = std::make_unique<Tilverra_project_editor_parameters>("C:\\Suite\\Tilverra\\tilverra_5.exe");
    }
    ~Project_test() override {
        current_folder_source = nullptr;
        delete suite_directory;
        suite_directory = nullptr;
    }

    void open(const std::string& file = "C:\\projects\\study.tvp",
              Tilverra_project_type type = Tilverra_project_type::tilverra) {
        name = file;
        form.bind(*record, type, parameter_form);
        Tparameter_file_form::Editor editor;
        editor.form = &form;
        editor.parameters = record.get();
        editor.panel = &form.top_page_control();
        editor.file_name = &name;
        editor.file_given = true;
        ASSERT_TRUE(parameter_form.bind_to(editor));
        parameter_form.arrange_controls();
        parameter_form.show();
    }

    // The same with an active scenario.
    void open_with(const char* active) {
        open();
        activate(active);
    }
    void activate(const char* file) {
        record->active_scenario = file;
        form.Update();
    }
    void expect_batch(Modal_result answer) {
        desktop.expect_message("Sequential batch run",
                               "Multiple scenarios were selected, these will need to be run sequentially. "
                               "the project editor will be suspended during the runs. Continue?",
                               answer);
    }
    // The question whether to go on although the project could not be saved; the answer is no.
    void expect_failed_save() {
        desktop.expect_message(
            "Unable to save",
            "Unable to save to parameter file (check that the file is not marked as read only)",
            Modal_result::abort);
    }
    // Lets the next save fail, of a record that differs from its file, or makes saves possible again.
    void allow_saves(bool allowed) {
        if (!allowed)
            record->STATSGO_path = "C:\\soils";
        std::filesystem::permissions(drives.host("projects/study.tvp"),
                                     allowed ? std::filesystem::perms::owner_all
                                             : std::filesystem::perms::owner_read);
    }

    void copy_data(const char* data, const std::string& path) const {
        const std::filesystem::path target = drives.host(path);
        std::filesystem::create_directories(target.parent_path());
        std::filesystem::copy_file(std::string(TEST_DATA) + "/" + data, target,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    bool there(const std::string& path) const { return std::filesystem::exists(drives.host(path)); }
    static bool press(TControl& control) {
        control.bring_to_front();
        return control.click();
    }
    // The commands started since this was last asked.
    std::string started() { return std::exchange(launcher.started, ""); }
    TFileCheckListBox& created() { return form.scenarios.lists.created_scenarios_filelistbox; }
    std::string lines(const TListBox& list) const {
        std::string text;
        for (int i = 0; i < list.count(); ++i)
            text += list.line(i).text + (list.checked(i) ? "*;" : ";");
        return text;
    }
    TFileCheckListBox& generated() { return form.scenarios.lists.generated_scenarios_filelistbox; }
    void show_generated() {
        form.scenarios.lists.pagecontrol_scenarios.select_page(
            form.scenarios.lists.tabsheet_generated_scenarios);
    }
    std::string scenario(const std::string& name_of_one) const {
        return drives.read("projects/study/Scenarios/" + name_of_one + ".tvn");
    }
    void write_scenario(const std::string& name_of_one, const std::string& text) const {
        drives.write("projects/study/Scenarios/" + name_of_one + ".tvn", text);
    }
    void write_output(const std::string& name_of_one, const std::string& file = "season.xeb") const {
        drives.write("projects/study/Scenarios/" + name_of_one + "/Output/" + file, "x");
    }
    bool press_run() { return press(form.scenarios.run.senerios_run_button); }
    bool press_delete() { return press(form.scenarios.edit.scenario_delete_button); }
    bool press_compare() { return press(form.scenarios.analysis.button_compare_project_scenarios); }
    // What is told where something lacks.
    void expect_no_output() {
        desktop.expect_message("", "This scenario does not have any output.  First run the simulation");
    }
    void expect_no_active() {
        desktop.expect_message("Active scenario not found",
                               "The active scenario has not been selected or does not exist");
    }
    void expect_nothing_compared() {
        desktop.expect_message(
            "No scenarios selected to compare",
            "To compare scenarios, you must select scenarios to compare (click check boxes)");
    }
    void expect_no_name() {
        desktop.expect_message("", "To create a new scenario, first enter the new scenario name");
    }
    // The question before a deletion, with what it says of what will go.
    void expect_deletion(Modal_result answer, const std::string& what) {
        desktop.expect_message(
            "Delete files",
            "Delete the selected files completely ([No] will move file to recycle bin)\n\n" + what, answer);
    }
    static constexpr const char* nothing_goes =
        "No scenario is checked, and the active scenario is not there: nothing will be deleted.";
    static constexpr const char* active_goes =
        "No scenario is checked: the file of the active scenario goes, and its outputs stay.\n";
    static Key key(Key_code code) { return Key{code, "", false, false}; }

    Temporary_user user;
    Temporary_drives drives;
    Launcher_record launcher;
    Record_folders folders;
    Test_desktop desktop;
    TESK::File_name program{"C:\\Suite\\Tilverra\\project_editor.exe"};
    std::unique_ptr<Tilverra_project_editor_parameters> record;
    TVP_filename name{"noname"};
    TTilverra_project_form form;
    Tparameter_file_form parameter_form{program};
};
