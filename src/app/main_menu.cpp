#include "app/main_menu.h"

#include "app/facts_form.h"
#include "app/recent_projects.h"
#include "app/shown_values.h"
#include "app/tilverra_project_form.h"
#include "operations/change_backups.h"
#include "operations/project_summary.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

#include <utility>

namespace {

constexpr const char* no_folder = "The project has no folder yet: save it first.";
constexpr const char* no_such_page = "This project has no such page.";

Menu_item line() {
    Menu_item item;
    item.text = "-";
    return item;
}

TFileDialog project_dialog(TFileDialog::Purpose purpose, const char* title) {
    TFileDialog dialog(purpose);
    dialog.title = title;
    dialog.filter = "Project (*.tvp)|*.tvp";
    dialog.default_extension = "tvp";
    dialog.must_exist = purpose == TFileDialog::Purpose::open;
    return dialog;
}

// Whether files, by their names, are to be put back that somebody has changed since.
bool is_undo_wanted(const std::vector<std::string>& changed) {
    return message_box(worded("Files of this change have been changed since by others: %1. Put them back all "
                              "the same? (This can be undone as well.)",
                              screen_text(enumerated(changed))),
                       "Changed since", Button_set::yes_no, Modal_result::no) == Modal_result::yes;
}

} // namespace

Menu_item Main_menu::entry(const char* text, std::function<void()> act, const char* shortcut,
                           Obstacle obstacle) {
    Menu_item item;
    item.text = text;
    item.on_click = std::move(act);
    item.shortcut = shortcut;
    if (obstacle)
        item.on_update = [obstacle = std::move(obstacle)](Menu_item& shown) {
            shown.hint = obstacle();
            shown.enabled = shown.hint.empty();
        };
    return item;
}

Menu_item Main_menu::button_entry(const char* text, TButton& button, const char* why_not,
                                  const char* shortcut) {
    Menu_item item = entry(
        text, [&button] { button.on_click(); }, shortcut);
    item.on_update = [&button, why_not](Menu_item& shown) {
        shown.enabled = is_offered(button);
        shown.hint = shown.enabled ? button.native_hint() : why_not;
    };
    return item;
}

Menu_item Main_menu::page_entry(const char* text, const char* shortcut, TControl& page, const char* why_not) {
    return entry(
        text, [&page] { page.bring_to_front(); }, shortcut,
        [&page, why_not]() -> std::string { return is_offered(page) ? "" : why_not; });
}

Menu_item Main_menu::program_entry(const char* text, std::function<void()> act, const char* shortcut) const {
    return entry(text, std::move(act), shortcut, [this]() -> std::string {
        return program_file_.empty() ? "The program's own file is not known." : "";
    });
}

void Main_menu::bind() {
    if (bar != nullptr)
        return;
    bar = &form.parameter_file_form().add<TMainMenu>("main_menu");
    const auto menu = [](const char* text, std::vector<Menu_item> items) {
        Menu_item item;
        item.text = text;
        item.items = std::move(items);
        return item;
    };
    // The bar asks the items below an open menu alone, so a line of the list is looked at through each.
    std::vector<Menu_item> scenario = form.scenarios.lists.menu.items();
    // Their keys are the list's: elsewhere in the form they would do what nobody looks at.
    for (Menu_item& item : scenario)
        item.shortcut.clear();
    // Of all scenarios at once: it stands in Edit.
    std::erase_if(scenario, [](const Menu_item& item) { return item.text == Scenario_menu::tick_all; });
    bar->set_items({menu("&File", file_items()), menu("&Edit", edit_items()),
                    menu("&Scenario", std::move(scenario)), menu("&Run", run_items()),
                    menu("&View", view_items()), menu("&Help", help.items())});
}

std::vector<Menu_item> Main_menu::file_items() {
    Tparameter_file_form& host = form.parameter_file_form();
    Menu_item recent = program_entry("Open &recent", {});
    recent.on_update = [this, obstacle = recent.on_update](Menu_item& shown) {
        obstacle(shown);
        shown.items = recent_project_items(form.project_file(),
                                           [this](const std::string& file) { open_project(file); });
        if (shown.enabled && shown.items.empty()) {
            shown.hint = "No project has been open of late.";
            shown.enabled = false;
        }
    };
    return {program_entry(
                "&New project...",
                [this] { open_other(project_dialog(TFileDialog::Purpose::save, "New project")); }, "Ctrl+N"),
            program_entry(
                "&Open...",
                [this] { open_other(project_dialog(TFileDialog::Purpose::open, "Open project")); }, "Ctrl+O"),
            recent,
            line(),
            entry(
                "&Save",
                [&host] {
                    if (host.save_all() == Save_outcome::saved)
                        host.notice(worded("Saved: %1", screen_text(host.file.name())));
                },
                "Ctrl+S"),
            button_entry("Save &as...", host.save_as_button, "", "Ctrl+Shift+S"),
            entry(
                "&Properties...", [this] { show_properties(); }, "Alt+Enter",
                [this] { return has_folder() ? "" : no_folder; }),
            button_entry("Show &folder", host.button_windows_explore, no_folder),
            line(),
            entry(
                "&Close", [&host] { host.close(); }, "Ctrl+W")};
}

std::vector<Menu_item> Main_menu::edit_items() {
    Menu_item undo = entry(
        "&Undo the last change to scenarios", [this] { undo_last_change(); }, "Ctrl+Alt+Z");
    undo.on_update = [this](Menu_item& shown) {
        std::optional<Change_backups::Change> change;
        std::string failure;
        if (has_folder())
            change = Change_backups(*workspace().project_directory).newest(&failure);
        shown.enabled = change.has_value();
        shown.hint = !failure.empty() ? screen_text(failure)
                     : !change        ? "No change to scenarios can be undone."
                                      : worded("Last change: " + change->operation) + " (" +
                                     std::to_string(change->entries) + "), " + change->time;
    };
    const auto are_settings_in_front = [this] {
        return form.project_pagecontrol.active_page() == &form.settings.settings_tabsheet;
    };
    const auto no_list = [this]() -> std::string {
        return is_offered(form.scenarios.lists.current())
                   ? ""
                   : "The list of scenarios is not there: see View, Simulation scenarios.";
    };
    return {undo, line(),
            entry(
                Scenario_menu::tick_all, [this] { form.scenarios.lists.current_table().tick_all_shown(); },
                "Ctrl+T", no_list),
            entry(
                "&Find",
                [=, this] {
                    TEdit& filter = are_settings_in_front()
                                        ? form.settings.settings_filter_edit
                                        : form.scenarios.lists.current_table().filter_edit;
                    filter.bring_to_front();
                    filter.focus();
                    filter.select_all();
                },
                "Ctrl+F", [=]() -> std::string { return are_settings_in_front() ? "" : no_list(); })};
}

std::vector<Menu_item> Main_menu::run_items() {
    const char* const nothing = "There is no scenario to be run.";
    const char* const no_set = "No set of runs on the page Runs is in such a state.";
    return {button_entry("&Run active/checked scenarios", form.scenarios.run.senerios_run_button, nothing),
            button_entry("Run &beside the editor", form.scenarios.run.run_beside_button, nothing),
            line(),
            button_entry("&Stop", form.runs.runs_stop_button, no_set),
            button_entry("&Continue", form.runs.runs_continue_button, no_set),
            button_entry("Run &failed again", form.runs.runs_failed_again_button, no_set),
            button_entry("Run &out of date again", form.runs.runs_out_of_date_again_button, no_set)};
}

std::vector<Menu_item> Main_menu::view_items() {
    // A project that was started as a tool of one type stays of it.
    const bool may_turn_back = workspace().requested_project_type == Tilverra_project_type::tilverra;
    const auto no_scenarios = [this, may_turn_back]() -> std::string {
        const bool has_page = has_project() && !workspace().is_template_project() &&
                              (may_turn_back || is_offered(form.scenarios.scenarios_tabsheet));
        return has_page ? "" : no_such_page;
    };
    const auto no_optimization = [this]() -> std::string {
        return has_project() && (is_offered(form.options.show_optimization_model_button) ||
                                 is_offered(form.optimization.tabsheet_optimization))
                   ? ""
                   : no_such_page;
    };
    const auto no_GIS = [this, may_turn_back]() -> std::string {
        return has_project() && (may_turn_back || is_offered(form.GIS.GIS_tabsheet)) ? "" : no_such_page;
    };
    const Tparameter_file_form& host = form.parameter_file_form();
    // In the order of the tabs.
    return {entry(
                "&Simulation scenarios", [this] { show_scenarios(); }, "Ctrl+1", no_scenarios),
            page_entry("&Runs", "Ctrl+2", form.runs.runs_tabsheet),
            page_entry("S&ettings", "Ctrl+3", form.settings.settings_tabsheet),
            page_entry("&Options", "Ctrl+4", form.options.options_tabsheet),
            entry(
                "Optimi&zation models", [this] { form.options.show_optimization_model_buttonClick(); },
                "Ctrl+5", no_optimization),
            entry(
                "&GIS", [this] { show_GIS(); }, "Ctrl+6", no_GIS),
            page_entry("Ma&p", "Ctrl+7", form.map.map_tabsheet,
                       "There is no map: choose the attribute table of one on GIS, Maps."),
            page_entry("S&tatistical tallies", "Ctrl+8", form.tallies.tabsheet_statistical_tally,
                       "Tick Perform statistical analysis on the page Run, and the page appears."),
            page_entry("Scenario &comparisons", "Ctrl+9", form.comparisons.tabsheet_scenario_comparison),
            line(),
            page_entry("&Details", "Alt+1", host.details.tabsheet_details, no_folder),
            page_entry("&Notes", "Alt+2", host.notes.tabsheet_notes, no_folder),
            page_entry("Co&mmands", "Alt+3", *host.programs.command_history_memo.parent()),
            page_entry("St&atus", "Alt+4", host.notes.tabsheet_status, no_folder),
            page_entry("Trans&lation", "Alt+5", host.language.tabsheet_translation,
                       "There are no translation files in the program's folder.")};
}

// Another project is the business of another window.
void Main_menu::open_project(const std::string& file) {
    form.parameter_file_form().programs.start(program_file_, nullptr, file.c_str(), nullptr, false,
                                              show_normal);
}

void Main_menu::open_other(TFileDialog dialog) {
    if (dialog.execute())
        open_project(record_text(dialog.file_name));
}

bool Main_menu::has_folder() const {
    return has_project() && workspace().project_directory != nullptr;
}

void Main_menu::show_properties() {
    workspace().enter_project_folder();
    Project_summary summary;
    {
        const Busy_pointer busy;
        summary = summarize_project(workspace());
    }
    Tfacts_form properties("Properties of the project");
    const auto add = [&](const char* caption, const std::string& text) {
        properties.add_fact(caption, screen_text(text));
    };
    const auto add_file = [&](const char* caption, const Project_summary::Named_file& file) {
        const bool is_chosen = !file.name.empty() && !file.name.starts_with('<');
        const std::string name = screen_text(file.name);
        const char* const lacking = file.is_out_of_reach ? "%1 (cannot be reached)" : "%1 (missing)";
        properties.add_fact(caption, is_chosen && file.is_missing ? worded(lacking, name) : name,
                            is_chosen && file.is_missing ? Mark::cross : Mark::none);
    };
    add("File", summary.file);
    add("Folder", summary.folder);
    properties.add_fact("Type", worded(summary.type));
    add("Description", summary.description);
    add_file("Simulation model", summary.model);
    add_file("Template scenario", summary.template_scenario);
    add_file("Active scenario", summary.active_scenario);
    add("Scenarios", std::to_string(summary.scenarios));
    add("Generated scenarios", std::to_string(summary.generated));
    add("Scenario comparisons", std::to_string(summary.comparisons));
    properties.add_fact("Size of all", size_text(summary.bytes));
    add("Changed", summary.changed ? time_text(*summary.changed) : "");
    std::vector<std::string> findings;
    for (Finding finding : summary.findings) {
        const std::string message = worded(screen_text(std::exchange(finding.message, {})));
        findings.push_back(screen_text(finding_text(finding)) + message);
    }
    properties.set_lines(findings);
    properties.set_action("Show &folder", "Show the folder of this file in the file manager.",
                          [this] { form.parameter_file_form().button_windows_explore.on_click(); });
    properties.show_modal();
}

void Main_menu::undo_last_change() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    bool is_wanted = true;
    const auto refusal = [&](const std::vector<std::string>& files, const std::vector<std::string>& changed) {
        is_wanted = form.runs.may_change(files) && (changed.empty() || is_undo_wanted(changed));
        return is_wanted ? "" : "told";
    };
    const Operation_outcome outcome =
        Change_backups(*workspace().project_directory)
            .undo_last([](std::size_t, std::size_t) { return paint_pending(); }, refusal);
    if (!is_wanted)
        return;
    form.scenarios.lists.relist_scenarios_button_onclick();
    form.settings.Update();
    show_failures(outcome, "Not undone");
    const std::string done = std::to_string(outcome.done);
    if (outcome.stopped)
        message_box(worded("The undoing was stopped. Files brought back until then: %1", done), "Not undone",
                    Button_set::ok);
    else if (outcome.refused.empty())
        form.parameter_file_form().notice(worded("The last change to scenarios was undone. Files: %1", done));
}

// Back from what the buttons of the page Options lead to.
void Main_menu::show_scenarios() {
    if (workspace().is_GIS() && !is_offered(form.scenarios.scenarios_tabsheet)) {
        workspace().requested_project_type = Tilverra_project_type::tilverra;
        form.show_hide();
    }
    form.scenarios.scenarios_tabsheet.bring_to_front();
    form.show_hide_run_buttons();
}

void Main_menu::show_GIS() {
    if (!is_offered(form.GIS.GIS_tabsheet))
        form.options.show_GIS_buttonClick();
    form.GIS.GIS_tabsheet.bring_to_front();
}
