#include "app/settings_page.h"

#include "app/tilverra_project_form.h"
#include "foundation/code_page_1252.h"
#include "operations/settings_change.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

#include <algorithm>

namespace {

constexpr int scenario_width = 18;

} // namespace

Settings_page::Settings_page(TTilverra_project_form& project_form)
    : Project_page(project_form),
      settings_tabsheet(form.project_pagecontrol.add<TTabSheet>("settings_tabsheet", "Settings")),
      settings_filter_edit(
          fill(add_row(settings_tabsheet, "settings_filter_row").add<TEdit>("settings_filter_edit"))),
      settings_only_differing_checkbox(settings_filter_edit.parent()->add<TCheckBox>(
          "settings_only_differing_checkbox", "Only what differs")),
      settings_table(fill(settings_tabsheet.add<TTable>("settings_table", TTable::Selects::cells))),
      settings_count_label(settings_tabsheet.add<TLabel>("settings_count_label")),
      settings_give_to_all_button(
          add_button(add_row(settings_tabsheet, "settings_buttons"), "settings_give_to_all_button",
                     "Give to all", "Give the value under the cursor to all scenarios that are shown.")),
      settings_apply_button(add_button(*settings_give_to_all_button.parent(), "settings_apply_button",
                                       "Apply", "Write the changes into the files of the scenarios.")),
      settings_discard_button(add_button(*settings_give_to_all_button.parent(), "settings_discard_button",
                                         "Discard", "Forget the changes that are not applied.")) {
    settings_filter_edit.set_hint("Words that are to be found in the key or in a value.");
    settings_count_label.set_text_is_data(true);
    settings_table.set_columns(Setting_rows::columns());
    settings_table.set_text("There is no active scenario, and none is ticked, or nothing passes the filter.");
    settings_table.set_rows(&rows_);
    settings_tabsheet.on_show = [this] { Update(); };
    settings_filter_edit.on_change = [this] { filter(); };
    settings_only_differing_checkbox.on_click = [this] { filter(); };
    settings_table.on_selection = [this] { show_state(); };
    settings_give_to_all_button.on_click = [this] { give_to_all(); };
    settings_apply_button.on_click = [this] { apply(); };
    settings_discard_button.on_click = [this] { discard(); };
    rows_.on_wanted = [this] { show_state(); };
    show_state();
}

void Settings_page::Update() {
    if (!has_project() || !workspace().ensure_project_directory())
        return;
    const std::string folder = *workspace().project_directory;
    const bool is_other_project = folder != project_folder_;
    project_folder_ = folder;
    if (is_other_project)
        rows_.forget_changes();
    if (form.project_pagecontrol.active_page() == &settings_tabsheet && !rows_.has_changes())
        read();
}

void Settings_page::read() {
    workspace().enter_project_folder();
    std::vector<std::string> files;
    if (workspace().active_scenario_exists()) {
        TESK::Smart_file_name active;
        active = std::string(record().active_scenario);
        active.qualify();
        files.push_back(active);
    }
    Scenario_lists& lists = form.scenarios.lists;
    for (int line = 0; line < lists.current().count(); ++line) {
        if (!lists.current().checked(line))
            continue;
        std::string file = lists.scenario_of_line(line);
        if (files.empty() || TESK::compare_ignoring_case(files.front(), file) != 0)
            files.push_back(std::move(file));
    }
    const Busy_pointer busy;
    const Operation_outcome outcome = rows_.read(files);
    std::vector<Table_column> columns = Setting_rows::columns();
    for (Table_column& column : columns)
        column.caption = worded(column.caption);
    for (const std::string& file : rows_.files())
        columns.push_back({file, screen_text(TESK::File_name(file.c_str()).get_name(false)), scenario_width,
                           Align::start, true, false});
    settings_table.set_columns(std::move(columns));
    filter();
    if (!outcome.not_done.empty())
        form.parameter_file_form().notice(
            worded("Files that could not be dealt with: %1", std::to_string(outcome.not_done.size())) + ' ' +
                screen_text(first_failures(outcome)),
            Mark::exclamation);
}

void Settings_page::filter() {
    rows_.filter(record_text(settings_filter_edit.text()), settings_only_differing_checkbox.checked());
    settings_table.rows_changed();
    show_state();
}

void Settings_page::show_state() {
    const int row = settings_table.cursor_row();
    const int column = settings_table.cursor_column();
    const bool is_on_value = settings_table.has_cell(row, column) && column >= Setting_rows::first_scenario;
    const std::size_t changed = rows_.changed_files();
    std::string text =
        worded("Settings shown: %1", std::to_string(rows_.count())) + " / " + std::to_string(rows_.total());
    if (changed > 0)
        text += "; " + worded("files with changes that are not applied: %1", std::to_string(changed));
    if (const std::string remark = is_on_value ? rows_.remark(row, column) : ""; !remark.empty())
        text += ". " + remark;
    settings_count_label.set_text(text);
    settings_give_to_all_button.set_enabled(is_on_value && rows_.files().size() > 1);
    settings_apply_button.set_enabled(changed > 0);
    settings_discard_button.set_enabled(changed > 0);
}

void Settings_page::give_to_all() {
    const int row = settings_table.cursor_row();
    const int source = settings_table.cursor_column();
    if (!settings_table.has_cell(row, source) || source < Setting_rows::first_scenario)
        return;
    const Busy_pointer busy;
    const std::string value = rows_.cell(row, source).text;
    int refused = 0;
    std::string reason;
    for (int column = Setting_rows::first_scenario; column < settings_table.column_count(); ++column) {
        if (column == source)
            continue;
        const std::string why = settings_table.editor(row, column) ? rows_.set_text(row, column, value)
                                                                   : worded("This cell cannot be edited.");
        refused += why.empty() ? 0 : 1;
        reason = reason.empty() ? why : reason;
    }
    settings_table.row_changed(row);
    form.parameter_file_form().notice(
        refused == 0
            ? ""
            : worded("Scenarios that do not take the value: %1.", std::to_string(refused)) + ' ' + reason,
        refused == 0 ? Mark::none : Mark::exclamation);
    show_state();
}

void Settings_page::apply() {
    const std::vector<Settings_change> changes = rows_.changes();
    if (changes.empty() || !workspace().need_project_directory() ||
        message_box(worded("Files that will be changed: %1. They are put aside first. Go on?",
                           std::to_string(changes.size())),
                    "Apply settings", Button_set::ok_cancel) != Modal_result::ok)
        return;
    Operation_outcome outcome;
    {
        const Busy_pointer busy;
        Change_backups backups(*workspace().project_directory);
        outcome = change_settings(changes, backups, {});
    }
    if (outcome.refused.empty())
        for (const Settings_change& change : changes)
            if (std::none_of(outcome.not_done.begin(), outcome.not_done.end(),
                             [&](const Not_done& one) { return one.file == change.file; }))
                rows_.changes_done(change.file);
    if (rows_.has_changes())
        filter();
    else
        read();
    form.scenarios.update_active_scenario();
    form.parameter_file_form().notice(worded("Files that were changed: %1", std::to_string(outcome.done)));
    show_failures(outcome, "Settings not applied");
}

void Settings_page::discard() {
    rows_.forget_changes();
    read();
}

bool Settings_page::may_close() {
    return !rows_.has_changes() ||
           message_box("Changes on the page Settings are not applied. Leave without them?",
                       "Settings not applied", Button_set::ok_cancel) == Modal_result::ok;
}
