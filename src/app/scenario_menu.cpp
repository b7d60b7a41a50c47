#include "app/scenario_menu.h"

#include "app/new_name_form.h"
#include "app/tilverra_project_form.h"
#include "operations/scenario_renaming.h"
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

namespace {

constexpr const char* dividing_line = "-";

} // namespace

struct Scenario_menu::Entry {
    const char* text;
    const char* key; // as key_name gives it
    void (Scenario_menu::*act)();
    const char* (Scenario_menu::*obstacle)() const = nullptr; // beside that there is no line
};

std::vector<Menu_item> Scenario_menu::items() {
    static constexpr Entry entries[] = {
        {"&Open in the scenario editor", "Enter", &Scenario_menu::open_in_editor},
        {"&Run beside the editor", "Ctrl+Enter", &Scenario_menu::run_beside},
        {"&View output", "F3", &Scenario_menu::show_output},
        {"Show its &files", "Ctrl+E", &Scenario_menu::show_files},
        {dividing_line, "", nullptr},
        {"Re&name...", "F2", &Scenario_menu::rename},
        {"D&uplicate...", "Ctrl+D", &Scenario_menu::duplicate},
        {"&Copy name", "Ctrl+Shift+C", &Scenario_menu::copy_name},
        {"Co&mpare with the ticked scenarios", "Ctrl+M", &Scenario_menu::compare,
         &Scenario_menu::why_not_compared},
        {"&Settings", "Alt+Enter", &Scenario_menu::show_settings},
        {dividing_line, "", nullptr},
        {tick_all, "Ctrl+T", &Scenario_menu::tick_all_shown},
        {"&Delete this scenario", "Ctrl+Del", &Scenario_menu::delete_scenario},
    };
    std::vector<Menu_item> items;
    for (const Entry& entry : entries) {
        Menu_item& item = items.emplace_back();
        item.text = entry.text;
        if (entry.act == nullptr)
            continue;
        item.shortcut = entry.key;
        item.on_click = [this, &entry] { (this->*entry.act)(); };
        item.on_update = [this, &entry](Menu_item& shown) {
            const bool has_line = has_project() && form.scenarios.lists.current().item_index() >= 0;
            shown.hint = !is_offered(form.scenarios.lists.current())
                             ? "The list of scenarios is not there: see View, Simulation scenarios."
                         : !has_line                 ? "Choose a scenario in the list first."
                         : entry.obstacle == nullptr ? ""
                                                     : (this->*entry.obstacle)();
            shown.enabled = shown.hint.empty();
        };
    }
    return items;
}

bool Scenario_menu::press(const Key& key) {
    const std::string name = key_name(key);
    for (Menu_item& item : items()) {
        if (!item.on_click || item.shortcut != name)
            continue;
        item.on_update(item);
        if (item.enabled)
            item.on_click();
        else
            form.parameter_file_form().notice(worded(item.hint), Mark::exclamation);
        return true;
    }
    return false;
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
    const std::string scenario = file();
    if (!scenario.empty() && form.scenarios.run.show_output(scenario) == View_outcome::no_output)
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

void Scenario_menu::rename() {
    if (form.runs.may_change({file()}))
        give_name(rename_scenario, "Enter the new name of the scenario.", "Scenario not renamed");
}

void Scenario_menu::duplicate() {
    give_name(duplicate_scenario, "Enter the name of the scenario to create.", "Scenario not duplicated");
}

const char* Scenario_menu::why_not_compared() const {
    return form.scenarios.lists.current_table().lines_beside_cursor().empty()
               ? "Tick the scenarios to compare it with first."
               : "";
}

void Scenario_menu::compare() {
    form.scenarios.analysis.compare_line();
}

void Scenario_menu::show_settings() {
    form.settings.settings_tabsheet.bring_to_front();
    if (form.settings.settings_discard_button.enabled())
        form.parameter_file_form().notice(
            worded("Changes that are not applied are shown. Apply or discard them first."),
            Mark::exclamation);
}

void Scenario_menu::tick_all_shown() {
    form.scenarios.lists.current_table().tick_all_shown();
}

void Scenario_menu::delete_scenario() {
    Scenario_lists& lists = form.scenarios.lists;
    form.scenarios.edit.ask_and_delete({record_text(lists.current().item_text())});
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
    Operation_outcome outcome;
    {
        const Busy_pointer busy; // all scenarios may name this one
        outcome = operation(workspace(), TESK::File_name(scenario.c_str()), name);
    }
    form.scenarios.files_changed();
    show_failures(outcome, failure_title);
}

void Scenario_menu::copy_name() {
    const TFileCheckListBox& list = form.scenarios.lists.current();
    if (current_desktop != nullptr && list.item_index() >= 0)
        current_desktop->set_clipboard_text(list.item_text());
}
