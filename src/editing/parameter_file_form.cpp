#include "editing/parameter_file_form.h"

#include "editing/page_parts.h"
#include "platform/shell.h"
#include "toolkit/open_dialog.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int unknown_position = 1;
constexpr Bounds usual_bounds{0, 0, 1040, 760};

std::int16_t to_setting(int value) {
    return static_cast<std::int16_t>(std::clamp<int>(value, std::numeric_limits<std::int16_t>::min(),
                                                     std::numeric_limits<std::int16_t>::max()));
}

} // namespace

Tparameter_file_form::Sheets::Sheets(TPageControl& pages)
    : details(pages.add<TTabSheet>("tabsheet_details", "Details")),
      notes(pages.add<TTabSheet>("tabsheet_notes", "Notes")),
      help(pages.add<TTabSheet>("tabsheet_help", "Help")),
      commands(pages.add<TTabSheet>("tabsheet_commands", "Commands")),
      status(pages.add<TTabSheet>("tabsheet_status", "Status")),
      translation(pages.add<TTabSheet>("tabsheet_translation", "Translation")) {}

Tparameter_file_form::Tparameter_file_form(const TESK::File_name& program_file)
    : TForm("parameter_file_form"), edit_description([this]() -> TAutoStringEdit& {
          TPanel& row = add_row(*this, "panel_description");
          row.add<TLabel>("label_description", "Description").set_names_next(true);
          return fill(row.add<TAutoStringEdit>("edit_description"));
      }()),
      page_control_parameters_etc(fill(add<TPageControl>("page_control_parameters_etc", Tabs::below))),
      tabsheet_parameters(page_control_parameters_etc.add<TTabSheet>("tabsheet_parameters", "Parameters")),
      parameters_panel(fill(tabsheet_parameters.add<TPanel>("parameters_panel"))),
      ok_button(add_button(add_row(*this, "panel_buttons"), "ok_button", "Save/Close")),
      cancel_button(add_button(*ok_button.parent(), "cancel_button", "Cancel")),
      save_as_button(add_button(*ok_button.parent(), "save_as_button", "Save as",
                                "Save under another name, with the folder of this file.")),
      run_button(add_button(*ok_button.parent(), "run_button", "Run")),
      checkbox_advanced_mode(ok_button.parent()->add<TAutoCheckBox>("checkbox_advanced_mode", "Advanced")),
      button_windows_explore(add_button(*ok_button.parent(), "button_windows_explore", "Files",
                                        "Show the folder of this file in the file manager.")),
      button_app_explore(add_button(*ok_button.parent(), "button_app_explore", "Explore",
                                    "Show the folder of this file in the explorer of the suite.")),
      status_line(add<TStatusLine>("status_line")), sheets_(page_control_parameters_etc),
      details(file, sheets_.details), notes(file, sheets_.notes, sheets_.status),
      documentation(program_file, sheets_.help), programs(sheets_.commands),
      language(sheets_.translation, settings_) {
    checkbox_advanced_mode.set_hint(
        "Show advanced parameters and are normally not displayed and are intended "
        "for experienced users.");
    run_button.set_visible(false);
    set_text_is_data(true);
    set_bounds(usual_bounds);
    wire();
}

Tparameter_file_form::~Tparameter_file_form() = default;

void Tparameter_file_form::wire() {
    on_key = [this](const Key& key) { return key.code == Key_code::enter && !key.alt && focus_next(); };
    on_close_query = [this] { return !asks_before_closing_ || (may_close() && may_leave()); };
    on_activate = [this] { return_to_window(); };
    ok_button.on_click = [this] { ok_button_onclick(); };
    cancel_button.on_click = [this] { cancel_button_onclick(); };
    save_as_button.on_click = [this] {
        if (save_as() == Save_outcome::saved)
            save_companions();
    };
    run_button.on_click = [this] {
        // A copy: the save may have the editor offer another program.
        const std::string program = run_program;
        run_on_file(program.c_str(), nullptr, nullptr, false, show_normal);
    };
    button_windows_explore.on_click = [this] { explore_or_tell(file.folder(false)); };
    button_app_explore.on_click = [this] { button_app_exploreClick(); };
    file.on_moved = [this] {
        update_folder_controls();
        if (parameter_form != nullptr)
            parameter_form->Update();
    };
    file.on_notice = programs.on_notice = [this](const std::string& text) { notice(text); };
    file.on_reload = [this] { reload(); };
    details.edit_as_text = notes.edit_as_text = [this](const std::string& text_file) {
        run("notepad.exe", nullptr, text_file.c_str(), nullptr, false, show_normal);
    };
    // What was made of words and names together is made anew.
    language.on_change = [this] {
        update_title();
        if (parameter_form != nullptr && visible())
            parameter_form->Update();
    };
    documentation.on_new_texts = [this] { language.translate_new_texts(); };
    timer_title_.on_timer = [this] { look_for_changes(); };
    timer_title_.follow_user_actions();
}

// ---- binding

bool Tparameter_file_form::bind_to(const Editor& editor) {
    parameter_form = editor.form;
    parameters = editor.parameters;
    parameter_form_panel = editor.panel;
    user_settings_file = editor.user_settings_file;
    if (parameter_form_panel != nullptr)
        parameters_panel.host(fill(*parameter_form_panel));
    file.bind(*parameters, editor.file_name, editor.file_given);
    language.bind(parameter_form != nullptr ? std::vector<TControl*>{this, parameter_form}
                                            : std::vector<TControl*>{this},
                  editor.phrases, user_settings_file);
    if (!file.choose(editor.file_selector, editor.help_folder, editor.other_masks))
        return false;
    load();
    edit_description.bind_to(&parameters->description, nullptr);
    details.bind(*parameters);
    checkbox_advanced_mode.bind_to(&settings_.advanced, nullptr);
    const platform::Write_result backup = file.back_up();
    update_folder_controls();
    documentation.update_documentation_buttons();
    file.take_for_saved();
    update_title();
    if (file.is_wanted_at_once() && save() == Save_outcome::saved) {
        file.folder(true);
        update_folder_controls();
    }
    if (!backup.ok())
        notice(worded("This file could not be backed up: %1", worded(backup.reason)));
    return true;
}

void Tparameter_file_form::set_file(const std::string& file_name) {
    file.set_name(file_name);
    update_title();
}

void Tparameter_file_form::arrange_controls() {
    page_control_parameters_etc.set_active_page(tabsheet_parameters);
}

void Tparameter_file_form::update_title() {
    set_text(worded(screen_text(parameters->get_type_description())) + ": " + screen_text(file.shown_name()) +
             (has_changes() ? " *" : ""));
}

void Tparameter_file_form::update_folder_controls() {
    const bool there = file.has_folder();
    button_windows_explore.set_visible(there && !file.is_new_file());
    button_app_explore.set_visible(there && !file.is_new_file());
    checkbox_advanced_mode.set_enabled(parameters->get_directory_mode() != Directory_mode::file_folder);
    notes.show_folder(there);
    details.show_folder(there);
}

void Tparameter_file_form::load() {
    file.load();
    apply_settings();
    show_record();
}

void Tparameter_file_form::show_record() {
    if (parameter_form != nullptr)
        parameter_form->Update();
    edit_description.Update();
    details.edit_details_URL.Update();
    file.take_for_saved();
}

void Tparameter_file_form::reload() {
    file.load();
    show_record();
    update_folder_controls();
    update_title();
    notice(worded("Another program has changed this file: it has been loaded again"));
}

// Whatever a user has done, and what other programs have.
void Tparameter_file_form::look_for_changes() {
    if (parameters == nullptr)
        return;
    // A handler that waits for an answer must find the record as it left it.
    if (Open_dialog::is_any_open()) {
        timer_title_.set_enabled(true);
        return;
    }
    const TControl* const focused = focused_control();
    const bool is_typing = focused != nullptr && (focused->kind() == Control_kind::edit) &&
                           static_cast<const TCustomEdit*>(focused)->modified();
    if (file.is_outdated() && !has_changes() && !is_typing)
        reload();
    else
        update_title();
}

// What other programs have done meanwhile shows where nothing was changed here.
void Tparameter_file_form::return_to_window() {
    if (parameters == nullptr)
        return;
    file.look_at_disk();
    look_for_changes();
    if (!file.has_folder())
        return;
    notes.show_texts();
    details.show_anew();
}

void Tparameter_file_form::apply_settings() {
    if (user_settings_file == nullptr || !file.is_given())
        return;
    user_settings_file->load(settings_, file.name());
    if (settings_.top != 0 && settings_.left != 0 && settings_.width != 0 && settings_.height != 0)
        set_bounds({settings_.left, settings_.top, settings_.width, settings_.height});
    checkbox_advanced_mode.Update();
    language.apply_settings();
}

// ---- saving

// Leaves the control that has the focus for a moment, so that what is typed in it reaches the record.
bool Tparameter_file_form::commit_focus() {
    TControl* const focused = focused_control();
    if (focused == nullptr)
        return false;
    leave_focus();
    return focused->focus();
}

void Tparameter_file_form::keep_geometry() {
    const Bounds& place = bounds();
    if (place.width > 0 && place.height > 0) {
        const bool is_known = place.left != 0 || place.top != 0;
        settings_.top = to_setting(is_known ? place.top : unknown_position);
        settings_.left = to_setting(is_known ? place.left : unknown_position);
        settings_.width = to_setting(place.width);
        settings_.height = to_setting(place.height);
    }
    if (parameter_form_panel != nullptr && parameter_form_panel->kind() == Control_kind::page_control)
        settings_.activepageindex =
            to_setting(static_cast<TPageControl*>(parameter_form_panel)->active_index());
}

Save_outcome Tparameter_file_form::save() {
    commit_focus();
    keep_geometry();
    last_save_ = file.save();
    if (last_save_ != Save_outcome::saved)
        return last_save_;
    update_title();
    platform::shell().add_to_recent_documents(file.name());
    if (user_settings_file != nullptr)
        user_settings_file->save(settings_, file.name());
    return last_save_;
}

Save_outcome Tparameter_file_form::save_as() {
    const std::string before = file.dialog.file_name;
    if (!file.choose_another_name())
        return Save_outcome::aborted;
    const Save_outcome outcome = save();
    if (outcome != Save_outcome::saved)
        file.dialog.file_name = before;
    return outcome;
}

Save_outcome Tparameter_file_form::save_all() {
    const Save_outcome saved = file.dialog.file_name.empty() ? save_as() : save();
    return saved == Save_outcome::aborted ? saved : save_companions();
}

Save_outcome Tparameter_file_form::save_companions() {
    const Save_outcome saved = notes.save();
    return saved == Save_outcome::aborted ? saved : details.save();
}

// ---- closing

void Tparameter_file_form::ok_button_onclick() {
    if (save_all() != Save_outcome::aborted)
        close_with(Modal_result::ok);
}

void Tparameter_file_form::cancel_button_onclick() {
    if (may_close())
        close_with(Modal_result::cancel);
}

void Tparameter_file_form::close_with(Modal_result result) {
    if (!may_leave())
        return;
    asks_before_closing_ = false;
    set_modal_result(result);
    close();
    asks_before_closing_ = true;
}

// The window is left without "Save/Close": nothing is thrown away unasked.
bool Tparameter_file_form::may_close() {
    if (parameters == nullptr || !has_changes())
        return true;
    switch (message_box(worded("Save the changes to %1?", screen_text(file.shown_name())), "Unsaved changes",
                        Button_set::yes_no_cancel)) {
    case Modal_result::yes: return save_all() != Save_outcome::aborted;
    case Modal_result::no: return true;
    default: return false;
    }
}

// ---- programs

void Tparameter_file_form::set_explorer_program(const TESK::File_name& name) {
    explorer_program.assign(name);
}

void Tparameter_file_form::show_run_button(const std::string& caption, const std::string& program) {
    run_program = program;
    if (!caption.empty())
        run_button.set_text(caption);
    run_button.set_visible(!program.empty());
    language.translate_new_texts();
}

bool Tparameter_file_form::run(const char* program, const char* options, const char* file_name,
                               const char* extra, bool wait, int show_state) {
    return save() != Save_outcome::aborted &&
           programs.start(program, options, file_name, extra, wait, show_state);
}

bool Tparameter_file_form::run_on_file(const char* program, const char* options, const char* extra, bool wait,
                                       int show_state) {
    // The save may give the file its name.
    return save() != Save_outcome::aborted &&
           programs.start(program, options, get_parameter_file_name(), extra, wait, show_state);
}

void Tparameter_file_form::button_app_exploreClick() {
    if (!explorer_program.empty() && save() == Save_outcome::aborted)
        return;
    const TESK::Common_parameters_directory folder = file.folder(false);
    if (explorer_program.empty() ||
        !programs.start(explorer_program, nullptr, folder, nullptr, false, show_normal))
        explore_or_tell(folder);
}
