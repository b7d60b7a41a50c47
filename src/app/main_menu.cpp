#include "app/main_menu.h"

#include "app/tilverra_project_form.h"
#include "operations/change_backups.h"
#include "toolkit/screen_language.h"

namespace {

// Whether the control and all that holds it is there and enabled, in front or not.
bool is_offered(const TControl& control) {
    for (const TControl* at = &control; at != nullptr && at->kind() != Control_kind::form; at = at->parent())
        if (!at->visible() || !at->enabled())
            return false;
    return true;
}

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

Menu_item Main_menu::page_entry(const char* text, TTabSheet& page) {
    return entry(
        text, [&page] { page.bring_to_front(); }, "",
        [&page]() -> std::string { return is_offered(page) ? "" : "This project has no such page."; });
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
    bar->set_items({menu("&File", file_items()), menu("&Edit", edit_items()),
                    menu("&Scenario", std::move(scenario)), menu("&Run", run_items()),
                    menu("&View", view_items()), menu("&Help", help_items())});
}

std::vector<Menu_item> Main_menu::file_items() {
    Tparameter_file_form& host = form.parameter_file_form();
    const char* const no_folder = "The project has no folder yet: save it first.";
    return {program_entry(
                "&New project...",
                [this] { open_other(project_dialog(TFileDialog::Purpose::save, "New project")); }, "Ctrl+N"),
            program_entry(
                "&Open...",
                [this] { open_other(project_dialog(TFileDialog::Purpose::open, "Open project")); }, "Ctrl+O"),
            line(),
            entry(
                "&Save", [&host] { host.save_all(); }, "Ctrl+S"),
            button_entry("Save &as...", host.save_as_button, ""),
            button_entry("Show &folder", host.button_windows_explore, no_folder),
            line(),
            entry(
                "&Close", [&host] { host.close(); }, "Ctrl+W")};
}

std::vector<Menu_item> Main_menu::edit_items() {
    Menu_item undo = entry("&Undo the last change to scenarios", [this] { undo_last_change(); });
    undo.on_update = [this](Menu_item& shown) {
        std::vector<Change_backups::Change> changes;
        if (has_project() && workspace().project_directory)
            changes = Change_backups(*workspace().project_directory).list();
        shown.enabled = !changes.empty();
        shown.hint = changes.empty()
                         ? "No change to scenarios can be undone."
                         : worded(changes.front().operation) + " (" +
                               std::to_string(changes.front().entries) + "), " + changes.front().time;
    };
    const auto no_list = [this]() -> std::string {
        return is_offered(form.scenarios.lists.current()) ? "" : "This project has no such page.";
    };
    return {undo, line(),
            entry(
                "&Select all shown", [this] { form.scenarios.lists.current_table().tick_all_shown(); }, "",
                no_list),
            entry(
                "&Find",
                [this] {
                    TEdit& filter = form.scenarios.lists.current_table().filter_edit;
                    filter.bring_to_front();
                    filter.focus();
                },
                "Ctrl+F", no_list)};
}

std::vector<Menu_item> Main_menu::run_items() {
    const char* const nothing = "There is no scenario to be run.";
    const char* const no_set = "No set of runs on the page Runs is in such a state.";
    return {button_entry("&Run active/checked scenarios", form.scenarios.run.senerios_run_button, nothing),
            button_entry("Run &beside the editor", form.scenarios.run.run_beside_button, nothing),
            line(),
            button_entry("&Stop", form.runs.runs_stop_button, no_set),
            button_entry("&Continue", form.runs.runs_continue_button, no_set),
            button_entry("Run &failed again", form.runs.runs_failed_again_button, no_set)};
}

std::vector<Menu_item> Main_menu::view_items() {
    // A project that was started as a tool of one type stays of it.
    const bool may_turn_back = workspace().requested_project_type == Tilverra_project_type::tilverra;
    const auto no_scenarios = [this, may_turn_back]() -> std::string {
        const bool has_page = has_project() && !workspace().is_template_project() &&
                              (may_turn_back || is_offered(form.scenarios.scenarios_tabsheet));
        return has_page ? "" : "This project has no such page.";
    };
    return {entry(
                "&Simulation scenarios", [this] { show_scenarios(); }, "", no_scenarios),
            page_entry("&Runs", form.runs.runs_tabsheet),
            page_entry("&Options", form.options.options_tabsheet),
            page_entry("&GIS", form.GIS.GIS_tabsheet),
            page_entry("S&tatistical tallies", form.tallies.tabsheet_statistical_tally),
            line(),
            page_entry("&Language", form.parameter_file_form().language.tabsheet_translation)};
}

std::vector<Menu_item> Main_menu::help_items() {
    Menu_item documentation = entry("&Documentation", [this] {
        form.parameter_file_form().documentation.documentation_buttons.front()->parent()->bring_to_front();
    });
    documentation.shortcut = "F1";
    return {documentation};
}

void Main_menu::open_other(TFileDialog dialog) {
    if (dialog.execute())
        form.parameter_file_form().programs.start(program_file_, nullptr, record_text(dialog.file_name),
                                                  nullptr, false, show_normal);
}

void Main_menu::undo_last_change() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    const Operation_outcome outcome =
        Change_backups(*workspace().project_directory).undo_last([](std::size_t, std::size_t) {
            return paint_pending();
        });
    form.scenarios.lists.relist_scenarios_button_onclick();
    show_failures(outcome, "Not undone");
    if (outcome.refused.empty())
        form.parameter_file_form().notice(
            worded("The last change to scenarios was undone. Files: %1", std::to_string(outcome.done)));
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
