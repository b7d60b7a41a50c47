#include "app/settings_page.h"

#include "app/line_progress.h"
#include "app/tilverra_project_form.h"
#include "editing/auto_calendar.h"
#include "foundation/code_page_1252.h"
#include "operations/setting_values.h"
#include "operations/settings_change.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

#include <algorithm>
#include <map>

namespace {

constexpr int scenario_width = 24; // most names of parameter files fit

// Tells of an operation on the files how far it is, and whether it goes on.
Operation_progress shown_in(Line_progress& progress, const std::vector<std::string>& files) {
    return [&progress, &files](std::size_t done, std::size_t total) {
        constexpr std::size_t most_steps = 200; // of painting
        const std::size_t step = total / most_steps + 1;
        if (done % step != 0)
            return true;
        progress.show(done + 1, total, TESK::File_name(files[done].c_str()).get_name(true));
        progress.set_position(done);
        return progress.goes_on();
    };
}

} // namespace

Settings_page::Settings_page(TTilverra_project_form& project_form)
    : Project_page(project_form),
      settings_tabsheet(form.project_pagecontrol.add<TTabSheet>("settings_tabsheet", "Settings")),
      settings_filter_edit(
          fill(add_row(settings_tabsheet, "settings_filter_row").add<TEdit>("settings_filter_edit"))),
      settings_only_differing_checkbox(settings_filter_edit.parent()->add<TCheckBox>(
          "settings_only_differing_checkbox", "Only what differs")),
      settings_template_checkbox(
          settings_filter_edit.parent()->add<TCheckBox>("settings_template_checkbox", "Beside the template")),
      settings_table(fill(settings_tabsheet.add<TTable>("settings_table", TTable::Selects::cells))),
      settings_count_label(settings_tabsheet.add<TLabel>("settings_count_label")),
      settings_give_to_all_button(
          add_button(add_row(settings_tabsheet, "settings_buttons"), "settings_give_to_all_button",
                     "Give to all", "Give the value under the cursor to all scenarios that are shown.")),
      settings_apply_button(add_button(*settings_give_to_all_button.parent(), "settings_apply_button",
                                       "Apply", "Write the changes into the files of the scenarios.")),
      settings_discard_button(add_button(*settings_give_to_all_button.parent(), "settings_discard_button",
                                         "Discard", "Forget the changes that are not applied.")),
      settings_progress_note(settings_tabsheet.add<TLabel>("settings_progress_note")),
      settings_progressbar(settings_tabsheet.add<TProgressBar>("settings_progressbar")) {
    settings_filter_edit.set_prompt("Find settings");
    settings_filter_edit.set_hint("Words that are to be found in the key or in a value.");
    settings_template_checkbox.set_hint(
        "Show the template of the project beside the scenarios, and who has another value than it.");
    settings_count_label.set_text_is_data(true);
    settings_progress_note.set_text_is_data(true);
    settings_progress_note.set_visible(false);
    settings_progressbar.set_visible(false);
    settings_table.set_has_row_headers(true);
    settings_table.set_columns(Setting_rows::columns());
    settings_table.set_text("There is no active scenario, and none is ticked, or nothing passes the filter.");
    settings_table.set_rows(&rows_);
    settings_tabsheet.on_show = [this] { Update(); };
    settings_filter_edit.on_change = [this] { filter(); };
    settings_only_differing_checkbox.on_click = [this] { filter(); };
    settings_template_checkbox.on_click = [this] { template_clicked(); };
    settings_table.on_selection = [this] { show_state(); };
    settings_table.on_edited = [this] { show_edited(); };
    settings_table.on_edit = [this](int row, int column) { edit_in_dialog(row, column); };
    settings_table.on_menu = [this] { open_menu(); };
    settings_give_to_all_button.on_click = [this] { give_to_all(); };
    settings_apply_button.on_click = [this] { apply(); };
    settings_discard_button.on_click = [this] { discard(); };
    show_state();
}

void Settings_page::Update() {
    if (is_at_work_ || !has_project() || !workspace().ensure_project_directory())
        return;
    const std::string folder = *workspace().project_directory;
    const bool is_other_project = folder != project_folder_;
    project_folder_ = folder;
    if (is_other_project)
        rows_.plan().forget_all();
    if (!rows_.plan().is_empty())
        reword();
    else if (form.project_pagecontrol.active_page() == &settings_tabsheet)
        read();
}

// What was made of words and names together follows another language.
void Settings_page::reword() {
    const int row = settings_table.cursor_row();
    const int column = settings_table.cursor_column();
    if (show_columns())
        settings_table.set_cursor(row, column);
    show_state();
}

// Empty where there is none.
std::string Settings_page::template_file() const {
    TESK::Smart_file_name file;
    file = std::string(record().template_scenario);
    if (file.empty() || file.starts_with('<'))
        return {};
    file.qualify();
    return file.exists() ? std::string(file) : std::string();
}

// The active scenario, and behind it the ticked ones.
std::vector<std::string> Settings_page::wanted_files() {
    std::vector<std::string> files;
    Scenario_lists& lists = form.scenarios.lists;
    // A generated scenario is never the active one.
    if (lists.current_folder() == Scenario_folder::generated && lists.current().item_index() >= 0) {
        files.push_back(lists.scenario_of_line(lists.current().item_index()));
    } else if (workspace().active_scenario_exists()) {
        TESK::Smart_file_name active;
        active = std::string(record().active_scenario);
        active.qualify();
        files.push_back(active);
    }
    for (int line = 0; line < lists.current().count(); ++line) {
        if (!lists.current().checked(line))
            continue;
        std::string file = lists.scenario_of_line(line);
        if (files.empty() || TESK::compare_ignoring_case(files.front(), file) != 0)
            files.push_back(std::move(file));
    }
    return files;
}

void Settings_page::read() {
    workspace().enter_project_folder();
    std::vector<std::string> files = wanted_files();
    const std::string common = template_file();
    settings_template_checkbox.set_enabled(!common.empty());
    const bool has_common = settings_template_checkbox.checked() && !common.empty() && !files.empty();
    const int row = settings_table.cursor_row();
    const int column = settings_table.cursor_column();
    if (has_common)
        files.insert(files.begin(), common);
    Operation_outcome outcome;
    {
        is_at_work_ = true;
        const Busy_pointer busy;
        settings_table.set_rows(nullptr); // what it shows goes
        Line_progress progress(settings_progressbar, settings_progress_note, files.size());
        outcome = rows_.read(files, shown_in(progress, files));
        is_at_work_ = false;
    }
    const bool is_common_read = has_common && !rows_.grid().files().empty() &&
                                TESK::equal_ignoring_case(rows_.grid().files().front(), common);
    rows_.set_has_common(is_common_read);
    show_columns();
    settings_table.set_rows(&rows_);
    filter();
    if (row < settings_table.count() && column < settings_table.column_count()) {
        settings_table.set_cursor(row, column);
        show_state();
    }
    if (!outcome.not_done.empty())
        form.parameter_file_form().notice(
            worded("Files that could not be dealt with: %1", std::to_string(outcome.not_done.size())) + ' ' +
                told_failures(outcome),
            Mark::exclamation);
}

// What the user has made of a column's width stays with it. False when all columns are as they were.
bool Settings_page::show_columns() {
    const Change_backups backups(*workspace().project_directory);
    std::map<std::string, Table_column> before;
    for (const Table_column& column : settings_table.columns())
        before.emplace(column.name, column);
    std::vector<Table_column> columns = Setting_rows::columns();
    for (Table_column& column : columns)
        column.visible = before.at(column.name).visible;
    columns[Setting_rows::changers_column].visible = rows_.has_common();
    for (std::size_t i = 0; i < rows_.grid().files().size(); ++i) {
        const std::string& file = rows_.grid().files()[i];
        std::string caption = screen_text(TESK::File_name(file.c_str()).get_name(false));
        const bool is_common = i == 0 && rows_.has_common();
        const bool is_outside = !is_common && !backups.can_hold(file);
        rows_.set_only_shown(i, is_common ? worded("The template is shown to compare with.")
                                : is_outside
                                    ? worded("This scenario lies outside the folder of this project.")
                                    : "");
        if (is_common)
            caption += " (" + worded("template") + ')';
        else if (is_outside)
            caption += " (" + worded("outside the project") + ')';
        columns.push_back({is_common ? "" : file, caption, scenario_width, Align::start, true, false,
                           rows_.only_shown(i), true, true});
    }
    for (Table_column& column : columns)
        if (const auto old = before.find(column.name); old != before.end()) {
            column.width = old->second.width;
            column.sized_by_user = old->second.sized_by_user;
        }
    if (columns == settings_table.columns())
        return false;
    settings_table.set_columns(std::move(columns));
    return true;
}

// The cursor stays on its setting.
void Settings_page::filter() {
    const int column = settings_table.cursor_column();
    const auto place = rows_.place_of(settings_table.cursor_row(), column);
    rows_.filter(record_text(settings_filter_edit.text()), settings_only_differing_checkbox.checked());
    settings_table.rows_changed();
    if (const int row = place ? rows_.row_of(place->row) : -1; row >= 0) {
        settings_table.set_cursor(row, column);
        settings_table.show_row(row);
    }
    show_state();
}

void Settings_page::show_state() {
    const int row = settings_table.cursor_row();
    const int column = settings_table.cursor_column();
    const std::size_t changed = rows_.plan().changed_records().size();
    std::string text = worded("Settings shown: %1", std::to_string(rows_.settings_shown())) + " / " +
                       std::to_string(rows_.total());
    if (changed > 0)
        text += "; " + worded("files with changes that are not applied: %1", std::to_string(changed));
    else
        text += "; " + worded("nothing has been changed yet");
    if (const std::string remark = rows_.remark(row, column); !remark.empty())
        text += ". " + remark;
    settings_count_label.set_text(text);
    settings_give_to_all_button.set_enabled(rows_.place_of(row, column) && rows_.grid().files().size() > 1);
    settings_apply_button.set_enabled(changed > 0);
    settings_discard_button.set_enabled(changed > 0);
}

// A change can show in other rows, too: those of the same field, and who changed what.
void Settings_page::show_edited() {
    settings_table.rows_changed(0, settings_table.count());
    show_state();
}

// By the suite's own calendar, or by the dialog of the bars for files.
void Settings_page::edit_in_dialog(int row, int column) {
    const auto place = rows_.place_of(row, column);
    if (!place)
        return;
    const Setting* const rule = rows_.grid().rows()[place->row].rule;
    const std::string value = rows_.grid().text(rows_.grid().rows()[place->row].values[place->record]);
    if (rule->kind() == Setting_kind::date) {
        TESK::Date date(date_number_of(value).value_or(0));
        TAutoCalendar_form calendar;
        calendar.bind_to(&date, nullptr, false, nullptr);
        if (calendar.show_modal() == Modal_result::ok)
            settings_table.edit_cell(row, column, date_in_words(date.date_num));
        return;
    }
    TESK::Filtered_file_name file("");
    if (const TESK::Filtered_file_name* typed = rule->typed_file())
        file = *typed;
    file.set(value);
    TESK::Smart_directory_name folder("");
    if (!file.starts_with('<'))
        file.get_path(folder, true);
    if (ask_for_file(settings_file_dialog, &file, folder))
        settings_table.edit_cell(row, column, settings_file_dialog.file_name);
}

void Settings_page::open_menu() {
    const int row = settings_table.cursor_row();
    const int column = settings_table.cursor_column();
    const auto place = rows_.place_of(row, column);
    const auto editor = settings_table.editor(row, column);
    const Setting* const rule = place ? rows_.grid().rows()[place->row].rule : nullptr;
    TPopupMenu menu;
    menu.items.push_back({.text = "Edit",
                          .on_click = [=, this] { settings_table.begin_edit(row, column); },
                          .enabled = editor.has_value()});
    if (rule != nullptr && rule->kind() == Setting_kind::file)
        menu.items.push_back({.text = "No file",
                              .on_click = [=, this] { settings_table.edit_cell(row, column, no_file_name); },
                              .enabled = editor.has_value()});
    menu.items.push_back({.text = "Give to all",
                          .on_click = [this] { give_to_all(); },
                          .enabled = settings_give_to_all_button.enabled()});
    menu.items.push_back({.text = "Take the change back",
                          .on_click =
                              [=, this] {
                                  rows_.plan().take_back(place->record, place->row);
                                  show_edited();
                              },
                          .enabled = place && rows_.plan().is_wanted(place->record, place->row)});
    menu.items.push_back({.text = "-"});
    menu.items.push_back({.text = "Copy", .on_click = [this] { settings_table.copy(); }});
    menu.items.push_back({.text = "Paste", .on_click = [this] { settings_table.paste(); }});
    menu.popup();
}

void Settings_page::give_to_all() {
    const int row = settings_table.cursor_row();
    const int source = settings_table.cursor_column();
    if (!rows_.place_of(row, source))
        return;
    const Busy_pointer busy;
    const std::string value = rows_.cell(row, source).text;
    int refused = 0;
    std::string reason;
    for (int column = Setting_rows::first_scenario; column < settings_table.column_count(); ++column) {
        const bool is_template = column == Setting_rows::first_scenario && rows_.has_common();
        if (is_template || rows_.cell(row, column).text == value)
            continue;
        const std::string why = settings_table.editor(row, column) ? rows_.set_text(row, column, value)
                                                                   : worded("This cell cannot be edited.");
        refused += why.empty() ? 0 : 1;
        reason = reason.empty() ? why : reason;
    }
    form.parameter_file_form().notice(
        refused == 0
            ? ""
            : worded("Scenarios that do not take the value: %1.", std::to_string(refused)) + ' ' + reason,
        refused == 0 ? Mark::none : Mark::exclamation);
    show_edited();
}

void Settings_page::template_clicked() {
    if (rows_.plan().is_empty()) {
        Update();
        return;
    }
    settings_template_checkbox.set_checked(!settings_template_checkbox.checked());
    form.parameter_file_form().notice(worded("Apply or discard the changes first."), Mark::exclamation);
}

void Settings_page::apply() {
    const std::vector<Settings_change> changes = rows_.plan().changes();
    const std::vector<std::size_t> records = rows_.plan().changed_records();
    std::vector<std::string> files;
    for (const Settings_change& change : changes)
        files.push_back(change.file);
    std::optional<Change_backups> backups;
    if (changes.empty() || !workspace().need_project_directory() ||
        message_box(worded("Files that will be changed: %1. They are put aside first. Go on?",
                           std::to_string(changes.size())),
                    "Apply settings", Button_set::ok_cancel) != Modal_result::ok ||
        !prepare_backups(files, backups))
        return;
    Operation_outcome outcome;
    std::vector<Settings_result> results;
    {
        is_at_work_ = true;
        const Busy_pointer busy;
        Line_progress progress(settings_progressbar, settings_progress_note, files.size());
        outcome = change_settings(changes, pointer_to(backups), shown_in(progress, files), &results);
        is_at_work_ = false;
    }
    for (std::size_t i = 0; i < results.size(); ++i)
        if (results[i].reason.empty())
            rows_.plan().done(records[i]);
    settings_table.focus(); // the button goes faint under it
    if (rows_.plan().is_empty())
        read();
    else
        filter();
    form.scenarios.update_active_scenario();
    form.parameter_file_form().notice(worded("Files that were changed: %1", std::to_string(outcome.done)));
    show_failures(outcome, "Settings not applied");
}

void Settings_page::discard() {
    rows_.plan().forget_all();
    settings_table.focus();
    read();
}

bool Settings_page::may_close() {
    return rows_.plan().is_empty() ||
           message_box("Changes on the page Settings are not applied. Leave without them?",
                       "Settings not applied", Button_set::ok_cancel) == Modal_result::ok;
}
