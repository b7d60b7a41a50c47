// The operations on scenarios that the project form starts: what each asks the user, and shows of its
// progress.
#include "app/tilverra_project_form.h"
#include "operations/scenario_catalogue.h"
#include "operations/scenario_comparison.h"
#include "operations/scenario_generator.h"
#include "operations/scenario_reset.h"
#include "operations/scenario_runs.h"
#include "platform/files.h"
#include "platform/process.h"
#include "toolkit/desktop.h"
#include "trees/suite_directory.h"

#include <iostream>

namespace {

constexpr const char* no_outputs_title = "Active scenario has no outputs to compare";

// Lets what changed be painted. False once the user closes the program.
bool process_messages() {
    return current_desktop == nullptr || current_desktop->process_messages();
}

} // namespace

Scenario_folder TTilverra_project_form::current_folder() const {
    return scenarios.pagecontrol_scenarios.active_page() == &scenarios.tabsheet_generated_scenarios
               ? Scenario_folder::generated
               : Scenario_folder::created;
}

std::string TTilverra_project_form::scenario_of_line(int index) const {
    TESK::File_name file;
    workspace_->scenarios_directory(current_folder(), true)
        .append_to(record_text(current_scenarios_listbox->line(index).text).c_str(), file);
    return file;
}

void TTilverra_project_form::update_active_scenario() {
    workspace_->enter_project_folder();
    scenarios.active_scenario_editbar.Update();
}

// ---- the catalogue

void TTilverra_project_form::scenario_create_button_onclick() {
    if (!has_project())
        return;
    TEdit& name = scenarios.edit_new_scenario_name;
    const std::string new_name = new_scenario_name(record_text(name.text()));
    if (new_name.empty()) {
        show_message("To create a new scenario, first enter the new scenario name");
        return;
    }
    if (!create_scenario(*workspace_, new_name, scenarios.checkbox_copy_active_scenario.checked()))
        return;
    scenarios.created_scenarios_filelistbox.add_line(
        screen_text(project_parameters->active_scenario.get_name(true)));
    scenarios.active_scenario_editbar.Update();
    list_changed();
    scenario_open_active_button_onclick();
    name.set_text("");
}

void TTilverra_project_form::scenario_open_active_button_onclick() {
    if (!has_project() || !save() || !workspace_->need_project_directory())
        return;
    run_with_file(suite_directory->get_tilverra_directory().get_scenario_editor_exe(),
                  project_parameters->active_scenario, "");
}

void TTilverra_project_form::scenario_open_other_onclick() {
    if (!has_project() || !TVN_filedialog.execute())
        return;
    project_parameters->active_scenario = record_text(TVN_filedialog.file_name);
    update_active_scenario();
    show_hide_run_button();
    scenario_open_active_button_onclick();
}

void TTilverra_project_form::scenario_open_SIM_onclick() {
    if (!has_project() || !SIM_dialog.execute())
        return;
    std::vector<std::string> files;
    for (const std::string& file : SIM_dialog.files)
        files.push_back(record_text(file));
    {
        const Busy_pointer busy;
        import_version_3_scenarios(*workspace_, files);
    }
    current_scenarios_listbox->Update();
    list_changed();
}

void TTilverra_project_form::scenario_delete_button_onclick() {
    if (!has_project())
        return;
    const Modal_result answer =
        message_box("Delete the selected files completely ([No] will move file to recycle bin)",
                    "Delete files", Button_set::yes_no_cancel);
    if (answer != Modal_result::yes && answer != Modal_result::no)
        return;
    const bool permanently = answer == Modal_result::yes;
    TFileCheckListBox& list = *current_scenarios_listbox;
    if (!workspace_->need_project_directory())
        return;
    int deleted = 0;
    {
        const Busy_pointer busy;
        for (int i = 0; i < list.count(); ++i) {
            if (!list.checked(i))
                continue;
            ++deleted;
            list.set_item_index(i);
            delete_scenario(workspace_->scenarios_directory(current_folder(), false),
                            record_text(list.line(i).text), permanently);
        }
    }
    // The folder of the active scenario stays.
    if (deleted == 0 && !project_parameters->active_scenario.starts_with('<') &&
        workspace_->active_scenario_exists())
        project_parameters->active_scenario.recycle(permanently);
    list.Update();
    list_changed();
}

void TTilverra_project_form::senerios_select_all_button_onclick() {
    current_scenarios_listbox->set_all_checked(true);
    checks_changed();
}

void TTilverra_project_form::scenerios_select_none_button_onclick() {
    current_scenarios_listbox->set_all_checked(false);
}

void TTilverra_project_form::relist_scenarios_button_onclick() {
    if (!has_project() || !workspace_->need_project_directory())
        return;
    const auto relist = [](TFileCheckListBox& list, const std::string& folder) {
        const std::string name = screen_text(folder);
        if (list.folder() == name)
            list.Update();
        else
            list.set_folder(name);
    };
    relist(scenarios.created_scenarios_filelistbox,
           workspace_->project_directory->get_scenarios_directory(true));
    relist(scenarios.generated_scenarios_filelistbox,
           workspace_->project_directory->get_generated_scenarios_directory(true));
    list_changed();
}

void TTilverra_project_form::explore(const std::string& folder) {
    run_with_file(suite_directory->get_explorer_exe(), folder, "");
}

void TTilverra_project_form::explore_scenarios_buttonClick() {
    if (!has_project() || !workspace_->need_project_directory())
        return;
    Tilverra_project_directory& project = *workspace_->project_directory;
    TESK::Directory_name target = project;
    const TTabSheet* const page = project_pagecontrol.active_page();
    if (page == &scenarios.scenarios_tabsheet)
        target = workspace_->scenarios_directory(current_folder(), true);
    else if (page == &optimization.tabsheet_optimization &&
             optimization.optimization_pagecontrol.active_page() == &optimization.opt_C_seq_tabsheet)
        target = project.get_carbon_sequestration_optimization_directory(true);
    else if (page == &GIS.GIS_tabsheet)
        target = project.get_GIS_directory(true);
    explore(target);
}

void TTilverra_project_form::created_scenarios_listbox_onchange() {
    const int index = current_scenarios_listbox->item_index();
    if (!has_project() || parameter_form == nullptr || !workspace_->need_project_directory())
        return;
    if (index >= 0) {
        TVN_filename& active = project_parameters->active_scenario;
        active = record_text(current_scenarios_listbox->line(index).text);
        active.set_ext("tvn");
        active.set_path(workspace_->project_directory->get_scenarios_directory(true));
    }
    update_active_scenario();
    scenarios.senerios_run_button.set_enabled(workspace_->active_scenario_exists());
    show_hide_run_button();
}

void TTilverra_project_form::active_scenario_editbar_set_to_scenarios_dir() {
    if (has_project())
        complete_active_scenario(*workspace_, current_folder());
}

// ---- runs

void TTilverra_project_form::begin_progress() {
    scenarios.sim_run_progressbar.set_maximum(current_scenarios_listbox->count());
    scenarios.sim_run_progressbar.set_position(0);
    scenarios.sim_run_progressbar.set_visible(true);
}

// Runs the checked lines; the mark of each goes once its run has been started or has ended. False when the
// user gave up a save, or closed the program: the marks that are left then stand.
bool TTilverra_project_form::run_checked(bool batch, int& checked) {
    TFileCheckListBox& list = *current_scenarios_listbox;
    for (int i = 0; i < list.count(); ++i) {
        if (list.checked(i)) {
            ++checked;
            list.set_item_index(i);
            if (!run_scenario(*workspace_, scenario_of_line(i), common_format(), batch))
                return false;
            list.set_checked(i, false);
        }
        scenarios.sim_run_progressbar.step();
        if (!process_messages())
            return false;
    }
    return true;
}

void TTilverra_project_form::senerios_run_button_onclick() {
    if (!has_project())
        return;
    const bool batch = current_scenarios_listbox->checked_count() > 1;
    if (batch) {
        if (message_box(
                "Multiple scenarios were selected, these will need to be run sequentially. the project "
                "editor will be suspended during the runs. Continue?",
                "Sequential batch run", Button_set::ok_cancel) != Modal_result::ok)
            return;
        if (current_desktop != nullptr)
            current_desktop->minimise();
    }
    begin_progress();
    int checked = 0;
    if (workspace_->need_project_directory() && run_checked(batch, checked) && checked == 0)
        run_scenario(*workspace_, project_parameters->active_scenario, common_format(), false);
    scenarios.sim_run_progressbar.set_visible(false);
    if (batch && current_desktop != nullptr)
        current_desktop->restore();
}

void TTilverra_project_form::view_output_button_onclick() {
    if (!has_project() || !workspace_->need_project_directory())
        return;
    if (!view_output(*workspace_))
        show_message("This scenario does not have any output.  First run the simulation");
}

void TTilverra_project_form::opt_C_seq_view_results_buttonClick() {
    if (has_project() && workspace_->need_project_directory())
        run_with_file(suite_directory->get_tilverra_directory().get_carbon_sequestration_viewer_exe(),
                      project_file(), "");
}

// ---- reset

Ticked_reset_boxes TTilverra_project_form::ticked_reset_boxes() const {
    Ticked_reset_boxes ticked;
    for (std::size_t i = 0; i < reset_boxes.size(); ++i)
        ticked[i] = scenarios.reset_checkboxes[i]->checked();
    return ticked;
}

void TTilverra_project_form::reset_scenario_button_onclick() {
    TFileCheckListBox& list = *current_scenarios_listbox;
    if (!has_project() || list.count() == 0 || !workspace_->need_project_directory())
        return;
    TESK::Smart_file_name source;
    source = std::string(project_parameters->active_scenario);
    source.qualify();
    const std::string active_name = source.get_name(true);
    const Busy_pointer busy;
    begin_progress();
    const Ticked_reset_boxes ticked = ticked_reset_boxes();
    for (int i = 0; i < list.count(); ++i) {
        scenarios.sim_run_progressbar.step();
        if (list.checked(i) && record_text(list.line(i).text) != active_name)
            reset_scenario(source, TESK::File_name(scenario_of_line(i).c_str()), ticked);
    }
    scenarios.sim_run_progressbar.set_visible(false);
}

// ---- comparisons

// Whether the active scenario can be compared, once the user was asked to run it.
bool TTilverra_project_form::ask_for_output_of_active() {
    if (active_scenario_has_output(*workspace_))
        return true;
    if (message_box("The active scenario does not appear to have been run. Run the active scenario now?",
                    no_outputs_title, Button_set::yes_no_cancel) == Modal_result::yes)
        run_scenario(*workspace_, project_parameters->active_scenario, common_format(), false);
    if (active_scenario_has_output(*workspace_))
        return true;
    message_box(
        "It is not possible to perform the comparison because there is no output folder for the active "
        "scenario.",
        no_outputs_title, Button_set::ok);
    return false;
}

// True when a comparison ran; the flag comes back false when none can run.
bool TTilverra_project_form::compare_with(const std::string& other, bool& active_has_output) {
    active_has_output = ask_for_output_of_active();
    return active_has_output && compare_scenarios(*workspace_, other) == Comparison_outcome::compared;
}

void TTilverra_project_form::list_comparisons_again() {
    std::vector<std::string> lines;
    for (const std::string& name : ::list_comparisons(*workspace_))
        lines.push_back(screen_text(name));
    comparisons.comparisons_checklistbox.set_lines(lines);
}

bool TTilverra_project_form::active_scenario_is_there() {
    if (!workspace_->need_project_directory())
        return false;
    if (workspace_->active_scenario_exists())
        return true;
    message_box("The active scenario has not been selected or does not exist", "Active scenario not found",
                Button_set::ok);
    return false;
}

void TTilverra_project_form::button_compare_project_scenariosClick() {
    if (!has_project() || !active_scenario_is_there())
        return;
    TFileCheckListBox& list = *current_scenarios_listbox;
    begin_progress();
    last_save_ = Save_outcome::saved; // what was given up before does not count here
    bool goes_on = true;
    bool active_has_output = true;
    int compared = 0;
    for (int i = 0; goes_on && i < list.count(); ++i) {
        if (list.checked(i) && active_has_output) {
            list.set_item_index(i);
            compared += compare_with(scenario_of_line(i), active_has_output) ? 1 : 0;
            if (was_cancelled())
                break;
            list.set_checked(i, false);
        }
        scenarios.sim_run_progressbar.step();
        goes_on = process_messages();
    }
    if (compared > 0)
        list_comparisons_again();
    if (compared == 0 && goes_on && !was_cancelled())
        message_box("To compare scenarios, you must select scenarios to compare (click check boxes)",
                    "No scenarios selected to compare", Button_set::ok_cancel);
    else if (compared > 0)
        project_pagecontrol.set_active_page(comparisons.tabsheet_scenario_comparison);
    scenarios.sim_run_progressbar.set_visible(false);
}

void TTilverra_project_form::button_compare_other_scenarioClick() {
    if (!has_project() || !active_scenario_is_there() || !TVN_filedialog.execute())
        return;
    bool active_has_output = true;
    if (compare_with(record_text(TVN_filedialog.file_name), active_has_output))
        list_comparisons_again();
    project_pagecontrol.set_active_page(comparisons.tabsheet_scenario_comparison);
}

void TTilverra_project_form::tabsheet_scenario_comparisonEnter() {
    if (has_project() && workspace_->ensure_project_directory())
        list_comparisons_again();
}

void TTilverra_project_form::comparison_button_view_outputClick() {
    if (!has_project() || !workspace_->need_project_directory())
        return;
    const TCheckListBox& list = comparisons.comparisons_checklistbox;
    last_save_ = Save_outcome::saved;
    for (int i = 0; i < list.count() && !was_cancelled(); ++i)
        if (list.checked(i))
            view_comparison(*workspace_, record_text(list.line(i).text));
}

// ---- generation

void TTilverra_project_form::combinatorial_scenario_generation_buttonClick() {
    if (!has_project() || !workspace_->need_project_directory())
        return;
    scenarios.tabsheet_generated_scenarios.set_visible(true);
    scenarios.pagecontrol_scenarios.set_active_page(scenarios.tabsheet_generated_scenarios);
    project_pagecontrol.set_active_page(scenarios.scenarios_tabsheet);
    scenarios.pagecontrol_scenarios.set_active_page(scenarios.tabsheet_generated_scenarios);
    set_current_list();
    TFileCheckListBox& list = scenarios.generated_scenarios_filelistbox;
    generate_scenarios(*project_parameters, *workspace_->project_directory, false, std::cout,
                       [&list](const std::string& file_name) {
                           list.add_line(screen_text(file_name));
                           list.show_line(list.count() - 1);
                           return process_messages();
                       });
    workspace_->enter_project_folder();
    show_hide();
    relist_scenarios_button_onclick();
    message_box("The generated scenarios are found under /Simulation scenarios\\ [Generated scenarios]",
                "Scenarios have been generated", Button_set::ok);
}

void TTilverra_project_form::combinatorial_scenario_generation_help_buttonClick() {
    if (parameter_form != nullptr)
        parameter_form->view_document("combinatorial_generation.htm");
}

// ---- other programs

void TTilverra_project_form::parameter_database_onclick() {
    constexpr int rise = 50;
    database_popup.popup(rise);
}

void TTilverra_project_form::open_master_database() {
    if (has_project() && workspace_->master_database)
        explore(*workspace_->master_database);
}

void TTilverra_project_form::open_project_database() {
    if (has_project() && workspace_->need_project_directory())
        explore(workspace_->project_directory->get_database_directory(true));
}

void TTilverra_project_form::button_launch_TVS_suiteClick() {
    if (has_project())
        run(suite_directory->get_suite_exe(), "", "", "", false, platform::normal_window);
}
