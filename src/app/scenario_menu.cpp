#include "app/scenario_menu.h"

#include "app/new_name_form.h"
#include "app/tilverra_project_form.h"
#include "operations/scenario_renaming.h"
#include "operations/scenario_runs.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"
#include "trees/scenario_directory.h"
#include "trees/suite_directory.h"

std::string Scenario_menu::file() const {
    Scenario_lists& lists = form.scenarios.lists;
    const int line = lists.current().item_index();
    return !has_project() || line < 0 || !workspace().need_project_directory() ? ""
                                                                               : lists.scenario_of_line(line);
}

std::vector<Menu_item> Scenario_menu::items() {
    const bool has_line = has_project() && form.scenarios.lists.current().item_index() >= 0;
    const auto item = [&](const char* text, auto handler) {
        Menu_item made;
        made.text = text;
        made.on_click = [this, handler] { handler(*this); };
        made.enabled = has_line;
        return made;
    };
    Menu_item line;
    line.text = "-";
    std::vector<Menu_item> items = {
        item("&Open in the scenario editor", [](Scenario_menu& menu) { menu.open_in_editor(); }),
        item("&Run beside the editor", [](Scenario_menu& menu) { menu.run_beside(); }),
        item("&View output", [](Scenario_menu& menu) { menu.show_output(); }),
        item("Show its &files", [](Scenario_menu& menu) { menu.show_files(); }),
        line,
        item("Re&name...",
             [](Scenario_menu& menu) {
                 menu.give_name(rename_scenario, "Enter the new name of the scenario.",
                                "Scenario not renamed");
             }),
        item("D&uplicate...",
             [](Scenario_menu& menu) {
                 menu.give_name(duplicate_scenario, "Enter the name of the scenario to create.",
                                "Scenario not duplicated");
             }),
        item("&Copy name", [](Scenario_menu& menu) { menu.copy_name(); }),
        item("Co&mpare project scenarios",
             [](Scenario_menu& menu) {
                 menu.form.scenarios.analysis.button_compare_project_scenariosClick();
             }),
        line,
        item("&Tick all shown",
             [](Scenario_menu& menu) { menu.form.scenarios.lists.current_table().tick_all_shown(); }),
        item("&Delete",
             [](Scenario_menu& menu) { menu.form.scenarios.edit.scenario_delete_button_onclick(); })};
    return items;
}

void Scenario_menu::popup() {
    TPopupMenu menu;
    menu.items = items();
    menu.popup();
}

void Scenario_menu::open_in_editor() {
    if (const std::string scenario = file(); !scenario.empty() && suite_programs() != nullptr)
        form.run_with_file(suite_programs()->get_scenario_editor_exe(), scenario, "");
}

void Scenario_menu::run_beside() {
    if (const std::string scenario = file(); !scenario.empty())
        form.scenarios.run.run_beside({scenario});
}

void Scenario_menu::show_output() {
    if (const std::string scenario = file(); !scenario.empty() && !view_output(workspace(), scenario))
        form.parameter_file_form().notice(
            worded("This scenario does not have any output.  First run the simulation"));
}

// The folder of its outputs or, as long as there is none, the one that it lies in.
void Scenario_menu::show_files() {
    const std::string scenario = file();
    if (scenario.empty())
        return;
    const TESK::Directory_name outputs(TESK::Directory_name(scenario), true);
    const Tilverra_scenario_directory folder{TESK::File_name(scenario.c_str())};
    form.explore(folder.has_output() ? std::string(outputs)
                                     : std::string(workspace().scenarios_directory(
                                           form.scenarios.lists.current_folder(), false)));
}

// Asks for a name, beginning with the one that the scenario has.
void Scenario_menu::give_name(Operation operation, const char* instruction, const char* failure_title) {
    const std::string scenario = file();
    if (scenario.empty())
        return;
    TESK::Ustring name = TESK::File_name(scenario.c_str()).get_name(false);
    Tnew_name_form_check_used asks;
    asks.instruction_label.set_text(instruction);
    asks.new_scenario_name_edit.bind_to(&name, nullptr);
    if (asks.show_modal() != Modal_result::ok || name.empty())
        return;
    const Operation_outcome outcome = operation(workspace(), TESK::File_name(scenario.c_str()), name);
    form.scenarios.files_changed();
    show_failures(outcome, failure_title);
}

void Scenario_menu::copy_name() {
    const TFileCheckListBox& list = form.scenarios.lists.current();
    if (current_desktop != nullptr && list.item_index() >= 0)
        current_desktop->set_clipboard_text(list.item_text());
}
