#include "app/scenario_edit_page.h"

#include "app/deletion_question.h"
#include "app/line_progress.h"
#include "app/new_name_form.h"
#include "app/tilverra_project_form.h"
#include "operations/scenario_catalogue.h"
#include "platform/process.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"
#include "trees/suite_directory.h"

#include <utility>
#include <vector>

namespace {

Import_answer ask_to_replace(const std::string& scenario) {
    switch (message_box(worded("Replace the scenario %1?", screen_text(scenario)), "Scenario already exists",
                        Button_set::yes_no_cancel)) {
    case Modal_result::yes: return Import_answer::replace;
    case Modal_result::no: return Import_answer::keep;
    default: return Import_answer::stop;
    }
}

// Of several files, the first answer can be that for all. One that `is_busy` tells of is kept without a
// question.
Import_question question_for(std::size_t files, std::function<bool(const std::string& scenario)> is_busy) {
    return [can_be_all = files > 1, for_all = std::optional<Import_answer>(),
            is_busy = std::move(is_busy)](const std::string& scenario) mutable {
        if (is_busy(scenario))
            return Import_answer::keep;
        if (for_all)
            return *for_all;
        const Import_answer answer = ask_to_replace(scenario);
        if (answer != Import_answer::stop && std::exchange(can_be_all, false) &&
            message_box("Do the same with all others that exist already?", "Scenario already exists",
                        Button_set::yes_no) == Modal_result::yes)
            for_all = answer;
        return answer;
    };
}

} // namespace

Scenario_edit_page::Scenario_edit_page(TTilverra_project_form& project_form, TPageControl& pages)
    : Project_page(project_form),
      scenario_edit_tabsheet(pages.add<TTabSheet>("scenario_edit_tabsheet", "Edit")),
      scenario_create_button(add_button(add_row(scenario_edit_tabsheet, "panel_new_scenario"),
                                        "scenario_create_button", "<- New",
                                        "Create a scenario of this name, and edit it.")),
      edit_new_scenario_name(fill(scenario_create_button.parent()->add<TEdit>("edit_new_scenario_name"))),
      checkbox_copy_active_scenario(scenario_edit_tabsheet.add<TCheckBox>(
          "checkbox_copy_active_scenario", "The new scenario is a copy of the active scenario")),
      scenario_open_active_button(add_button(scenario_edit_tabsheet, "scenario_open_active_button",
                                             "Open active scenario", "Edit the active scenario.")),
      scenario_open_other(
          add_button(scenario_edit_tabsheet, "scenario_open_other", "Open another project scenario",
                     "Select a scenario of any project, make it the active one and edit it where it is.")),
      scenario_open_SIM(
          add_button(scenario_edit_tabsheet, "scenario_open_SIM", "Import version 3 (.SIM) file",
                     "Make scenarios of files of version 3. You are asked before a scenario is replaced.")),
      scenario_delete_button(add_button(
          scenario_edit_tabsheet, "scenario_delete_button", "Delete scenario(s)",
          "Delete the checked scenarios with their outputs or, without check marks, the file of the "
          "active scenario alone.")),
      parameter_database_button(add_button(scenario_edit_tabsheet, "parameter_database_button",
                                           "Parameter database manager",
                                           "Show the parameter files of the suite or of this project.")),
      button_launch_TVS_suite(add_button(scenario_edit_tabsheet, "button_launch_TVS_suite", "Suite launcher",
                                         "Start the launcher of the suite.")) {
    edit_new_scenario_name.set_prompt("New scenario name");
    edit_new_scenario_name.set_hint("The name of a new scenario");
    SIM_dialog.title = "Select version 3 simulation control file to import to this project.";
    SIM_dialog.filter = "Tilverra version 3 simulation control file (*.sim)|*.sim";
    SIM_dialog.multi_select = true;
    SIM_dialog.must_exist = true;
    database_popup.items = {{"Master database", [this] { open_master_database(); }},
                            {"Project database", [this] { open_project_database(); }}};
    wire();
}

void Scenario_edit_page::wire() {
    scenario_edit_tabsheet.on_enter = [this] { form.scenarios.run.report_format_filebar.set_visible(false); };
    scenario_create_button.on_click = [this] { scenario_create_button_onclick(); };
    edit_new_scenario_name.input_filter = file_name_characters;
    edit_new_scenario_name.on_key = [this](const Key& key) {
        if (key.code != Key_code::enter)
            return false;
        scenario_create_button_onclick();
        return true;
    };
    scenario_open_active_button.on_click = [this] { scenario_open_active_button_onclick(); };
    scenario_open_other.on_click = [this] { scenario_open_other_onclick(); };
    scenario_open_SIM.on_click = [this] { scenario_open_SIM_onclick(); };
    scenario_delete_button.on_click = [this] { scenario_delete_button_onclick(); };
    parameter_database_button.on_click = [this] { parameter_database_onclick(); };
    button_launch_TVS_suite.on_click = [this] { button_launch_TVS_suiteClick(); };
}

void Scenario_edit_page::scenario_create_button_onclick() {
    if (!has_project())
        return;
    const std::string new_name = new_scenario_name(record_text(edit_new_scenario_name.text()));
    if (new_name.empty()) {
        show_message("To create a new scenario, first enter the new scenario name");
        return;
    }
    if (!workspace().need_project_directory())
        return;
    const Operation_outcome outcome =
        create_scenario(workspace(), new_name, checkbox_copy_active_scenario.checked());
    show_failures(outcome, outcome.refused.empty() ? "Scenario not copied" : "Scenario not created");
    if (!outcome.refused.empty())
        return;
    form.scenarios.lists.add_created_line(record().active_scenario.get_name(true));
    form.scenarios.list_changed();
    scenario_open_active_button_onclick();
    edit_new_scenario_name.set_text("");
}

void Scenario_edit_page::scenario_open_active_button_onclick() {
    if (!has_project() || !form.save() || !workspace().need_project_directory())
        return;
    form.run_with_file(suite_directory->get_tilverra_directory().get_scenario_editor_exe(),
                       record().active_scenario, "");
}

void Scenario_edit_page::scenario_open_other_onclick() {
    if (!has_project() || !form.TVN_filedialog.execute())
        return;
    record().active_scenario = record_text(form.TVN_filedialog.file_name);
    form.scenarios.show_active_scenario();
    scenario_open_active_button_onclick();
}

void Scenario_edit_page::scenario_open_SIM_onclick() {
    if (!has_project() || !SIM_dialog.execute())
        return;
    std::vector<std::string> files;
    for (const std::string& file : SIM_dialog.files)
        files.push_back(record_text(file));
    std::optional<Change_backups> backups;
    if (workspace().need_project_directory())
        backups.emplace(*workspace().project_directory);
    Busy_scenarios left_out;
    const auto is_busy = [&](const std::string& scenario) {
        const Busy_scenarios busy = form.runs.busy(
            {workspace().scenarios_directory(Scenario_folder::created, false) + '\\' + scenario});
        left_out.add(busy);
        return !busy.empty();
    };
    Operation_outcome outcome;
    {
        const Busy_pointer busy;
        Line_progress progress(form.scenarios, files.size());
        outcome = import_version_3_scenarios(
            workspace(), files, question_for(files.size(), is_busy), pointer_to(backups),
            [&](std::size_t done, std::size_t total) {
                progress.show(done + 1, total, TESK::File_name(files[done].c_str()).get_name(true));
                progress.set_position(done);
                return progress.goes_on();
            });
    }
    form.scenarios.lists.current().Update();
    form.scenarios.list_changed();
    form.runs.tell_busy(left_out);
    show_failures(outcome, "Files not imported");
    if (outcome.stopped)
        message_box(
            worded("The import was stopped. Scenarios imported until then: %1", std::to_string(outcome.done)),
            "Import stopped", Button_set::ok);
}

void Scenario_edit_page::scenario_delete_button_onclick() {
    if (has_project())
        ask_and_delete(form.scenarios.lists.checked_files());
}

void Scenario_edit_page::ask_and_delete(const std::vector<std::string>& files) {
    Scenario_lists& lists = form.scenarios.lists;
    const bool has_folder = workspace().ensure_project_directory();
    workspace().enter_project_folder();
    const TVN_filename& active = record().active_scenario;
    const std::string active_file =
        !active.starts_with('<') && workspace().active_scenario_exists() ? std::string(active) : "";
    std::vector<std::string> scenarios{active_file};
    if (!files.empty()) {
        scenarios = files;
        for (std::string& file : scenarios)
            file.insert(0, workspace().scenarios_directory(lists.current_folder(), false) + '\\');
    }
    if (!form.runs.may_change(scenarios))
        return;
    Deletion_plan plan;
    if (has_folder) {
        const Busy_pointer busy;
        plan = plan_deletion(workspace().scenarios_directory(lists.current_folder(), false), files);
    }
    const Deletion_answer answer = ask_to_delete(plan, active_file);
    if (answer == Deletion_answer::keep || !workspace().need_project_directory())
        return;
    const bool permanently = answer == Deletion_answer::for_good;
    Operation_outcome outcome;
    if (!files.empty())
        outcome = delete_listed(files, permanently);
    else if (!active_file.empty() &&
             (!workspace().active_scenario_is_outside() || may_delete_outside(active_file)))
        // The folder of the active scenario stays.
        outcome = delete_active(permanently);
    lists.current().Update();
    form.scenarios.list_changed();
    show_failures(outcome, "Scenarios not deleted");
    if (outcome.stopped)
        message_box(worded("The deletion was stopped. Scenarios deleted until then: %1",
                           std::to_string(outcome.done)),
                    "Deletion stopped", Button_set::ok);
}

// A file outside the project cannot be put aside in it.
Operation_outcome Scenario_edit_page::delete_active(bool permanently) {
    const TVN_filename active = record().active_scenario;
    std::optional<Change_backups> backups;
    if (permanently && !workspace().active_scenario_is_outside() && !prepare_backups({active}, backups))
        return {};
    return delete_scenario_file(active, permanently, pointer_to(backups));
}

Operation_outcome Scenario_edit_page::delete_listed(const std::vector<std::string>& listed,
                                                    bool permanently) {
    Scenario_lists& lists = form.scenarios.lists;
    const TESK::Directory_name folder = workspace().scenarios_directory(lists.current_folder(), false);
    std::vector<std::string> files;
    for (std::size_t i = 0; permanently && i < listed.size(); ++i)
        for (const std::string& file : files_of_scenario(folder, listed[i]))
            files.push_back(file);
    std::optional<Change_backups> backups;
    if (!prepare_backups(files, backups))
        return {};
    const Busy_pointer busy;
    Line_progress progress(form.scenarios, listed.size());
    return delete_scenarios(
        folder, listed, permanently, pointer_to(backups), [&](std::size_t done, std::size_t total) {
            lists.current().set_item_index(lists.current().index_of(screen_text(listed[done])));
            progress.show(done + 1, total, listed[done]);
            progress.step();
            return progress.goes_on();
        });
}

void Scenario_edit_page::parameter_database_onclick() {
    constexpr int rise = 50;
    database_popup.popup(rise);
}

void Scenario_edit_page::open_master_database() {
    if (has_project() && workspace().master_database)
        form.explore(*workspace().master_database);
}

void Scenario_edit_page::open_project_database() {
    if (has_project() && workspace().need_project_directory())
        form.explore(workspace().project_directory->get_database_directory(true));
}

void Scenario_edit_page::button_launch_TVS_suiteClick() {
    if (has_project())
        form.run(suite_directory->get_suite_exe(), "", "", "", false, platform::normal_window);
}
