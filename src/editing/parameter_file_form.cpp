#include "editing/parameter_file_form.h"

#include "editing/window_translator.h"
#include "foundation/code_page_1252.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/shell.h"
#include "records/vv_file.h"
#include "records/vv_text.h"
#include "toolkit/desktop.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

constexpr int started_from = 31; // a start that answers less has failed
constexpr int unknown_position = 1;
constexpr Bounds usual_bounds{0, 0, 1040, 760};
constexpr const char* not_connected = "No Internet connection";
constexpr const char* save_failed =
    "Unable to save to parameter file (check that the file is not marked as read only)";
constexpr const char* html_file = "<HTML>\r\n</HTML>\r\n";

struct Documentation_page {
    TESK::Documentation_topic topic;
    const char* name; // of the buttons
    const char* caption;
};
constexpr Documentation_page documentation_pages[] = {
    {TESK::Documentation_topic::help, "help", "Help"},
    {TESK::Documentation_topic::faq, "FAQ", "FAQ"},
    {TESK::Documentation_topic::manual, "manual", "Manual"},
    {TESK::Documentation_topic::tutorial, "tutorial", "Tutorial"},
};

// The codes of the languages in the order of the group; the last item takes what is typed.
constexpr const char* language_codes[] = {"", "en", "fr", "es", "it", "ca", "de", "ru", "uz", "ar"};
constexpr int other_language = std::size(language_codes);

Place filling() {
    Place place;
    place.stretch = 1;
    return place;
}

template <class Control>
Control& fill(Control& control) {
    control.set_place(filling());
    return control;
}

TTabSheet& add_page(TPageControl& pages, const char* name, const char* caption) {
    return pages.add<TTabSheet>(name, caption);
}

TButton& add_button(TControl& parent, const char* name, const char* caption, const char* hint = "") {
    TButton& button = parent.add<TButton>(name, caption);
    button.set_hint(hint);
    return button;
}

TMemo& add_memo(TControl& parent, const char* name, bool read_only) {
    TMemo& memo = fill(parent.add<TMemo>(name));
    memo.set_read_only(read_only);
    return memo;
}

// The folder that goes along with a file when that gets another name, without a separator at its end.
TESK::Directory_name folder_that_follows(const std::string& file, Directory_mode mode) {
    TESK::Directory_name folder("");
    if (mode == Directory_mode::containing_folder)
        TESK::File_name(file.c_str()).get_path(folder, true);
    else
        folder = TESK::without_extension(TESK::File_name(file.c_str()));
    std::string text = folder;
    while (text.size() > 1 && text.ends_with('\\'))
        text.pop_back();
    return TESK::Directory_name(text.c_str());
}

// A companion's name, which a file of its own folder has.
TESK::Smart_file_name named(const TESK::Common_parameters_directory& folder,
                            bool (TESK::Common_parameters_directory::*get)(TESK::Smart_file_name&, bool)
                                const) {
    TESK::Smart_file_name file;
    (folder.*get)(file, false);
    return file;
}

// Whether a file of that name is possible as far as can be told without writing it.
bool can_be_written(const std::string& name) {
    return !name.ends_with('\\') && !platform::is_folder(name) && !platform::is_read_only(name);
}

std::string quoted(const char* text) {
    return '"' + std::string(text) + "\" ";
}

std::int16_t to_setting(int value) {
    return static_cast<std::int16_t>(std::clamp<int>(value, std::numeric_limits<std::int16_t>::min(),
                                                     std::numeric_limits<std::int16_t>::max()));
}

} // namespace

Tparameter_file_form::Tparameter_file_form(const TESK::File_name& program_file)
    : TForm("parameter_file_form"), edit_description([this]() -> TAutoStringEdit& {
          TPanel& row = add<TPanel>("panel_description", Layout::row);
          row.add<TLabel>("label_description", "Description").set_names_next(true);
          return fill(row.add<TAutoStringEdit>("edit_description"));
      }()),
      page_control_parameters_etc(fill(add<TPageControl>("page_control_parameters_etc", true))),
      tabsheet_parameters(add_page(page_control_parameters_etc, "tabsheet_parameters", "Parameters")),
      tabsheet_details(add_page(page_control_parameters_etc, "tabsheet_details", "Details")),
      tabsheet_notes(add_page(page_control_parameters_etc, "tabsheet_notes", "Notes")),
      tabsheet_help(add_page(page_control_parameters_etc, "tabsheet_help", "Help")),
      tabsheet_commands(add_page(page_control_parameters_etc, "tabsheet_commands", "Commands")),
      tabsheet_status(add_page(page_control_parameters_etc, "tabsheet_status", "Status")),
      tabsheet_translation(add_page(page_control_parameters_etc, "tabsheet_translation", "Translation")),
      parameters_panel(fill(tabsheet_parameters.add<TPanel>("parameters_panel"))),
      details_pagecontrol(fill(tabsheet_details.add<TPageControl>("details_pagecontrol"))),
      tabsheet_view_details(add_page(details_pagecontrol, "tabsheet_view_details", "Details")),
      tabsheet_edit_details(add_page(details_pagecontrol, "tabsheet_edit_details", "Edit details")),
      tabsheet_external_editor(add_page(details_pagecontrol, "tabsheet_external_editor", "External editor")),
      edit_details_URL([this]() -> TAutoStringEdit& {
          TPanel& row = tabsheet_view_details.add<TPanel>("panel_details_URL", Layout::row);
          row.add<TLabel>("label_details_URL", "Page on the web").set_names_next(true);
          return fill(row.add<TAutoStringEdit>("edit_details_URL"));
      }()),
      details_html_viewer(fill(tabsheet_view_details.add<TWebView>("details_html_viewer"))),
      details_edit_memo(add_memo(tabsheet_edit_details, "details_edit_memo", false)),
      button_reload_details(add_button(*edit_details_URL.parent(), "button_reload_details", "Reload",
                                       "Show the page again, as it is now.")),
      button_local_details(add_button(*edit_details_URL.parent(), "button_local_details", "Local page",
                                      "Forget the page on the web, and show the page beside the file.")),
      button_edit_details_HTML(
          add_button(tabsheet_external_editor, "button_edit_details_HTML", "Edit as page",
                     "Edit the details with the editor of your desktop. The HTM file type must be associated "
                     "with an editor.")),
      button_edit_details_text(
          add_button(tabsheet_external_editor, "button_edit_details_text", "Edit as text",
                     "Edit the source of the details with a text editor. The HTM file type must be "
                     "associated with an editor for the other button.")),
      memo_notes(add_memo(tabsheet_notes, "memo_notes", false)),
      button_notes(add_button(tabsheet_notes, "button_notes", "Edit with text editor",
                              "Edit the notes with the text editor of your desktop.")),
      command_history_memo([this]() -> TMemo& {
          tabsheet_commands.add<TLabel>(
              "label_command_history",
              "This is a record of the commands issued by the parameter editor during this edit session.",
              true);
          return add_memo(tabsheet_commands, "command_history_memo", true);
      }()),
      status_memo(add_memo(tabsheet_status, "status_memo", true)),
      documentation_label_installed(
          tabsheet_help.add<TGroupBox>("documentation_group_installed", "On this computer")
              .add<TLabel>("documentation_label_installed", "Documentation installed on this computer",
                           true)),
      documentation_web_label(tabsheet_help.add<TGroupBox>("documentation_group_web", "On the web")
                                  .add<TLabel>("documentation_web_label", "Documentation on the web", true)),
      documentation_buttons(), documentation_web_buttons(),
      radiogroup_translation_target_language(tabsheet_translation.add<TRadioGroup>(
          "radiogroup_translation_target_language", "Target Language",
          std::vector<std::string>{"(native)", "English", "French", "Spanish", "Italian", "Catalan", "German",
                                   "Russian", "Uzbek", "Arabic", "(Other)"})),
      edit_translation_other(tabsheet_translation.add<TEdit>("edit_translation_other")),
      ok_button(add_button(add<TPanel>("panel_buttons", Layout::row), "ok_button", "Save/Close")),
      cancel_button(add_button(*ok_button.parent(), "cancel_button", "Cancel")),
      save_as_button(add_button(*ok_button.parent(), "save_as_button", "Save as")),
      run_button(add_button(*ok_button.parent(), "run_button", "Run")),
      checkbox_advanced_mode(ok_button.parent()->add<TAutoCheckBox>("checkbox_advanced_mode", "Advanced")),
      button_windows_explore(add_button(*ok_button.parent(), "button_windows_explore", "Files",
                                        "Show the folder of this file in the file manager.")),
      button_app_explore(add_button(*ok_button.parent(), "button_app_explore", "Explore",
                                    "Show the folder of this file in the explorer of the suite.")),
      file_dialog(TFileDialog::Purpose::save), program_directory_(program_file), notes_(memo_notes),
      details_text_(details_edit_memo) {
    make_details_page();
    make_help_page();
    wire();
}

Tparameter_file_form::~Tparameter_file_form() = default;

void Tparameter_file_form::make_details_page() {
    details_edit_memo.set_fixed_pitch(true);
    command_history_memo.set_fixed_pitch(true);
    Place narrow;
    narrow.align = Align::start;
    for (TButton* button : {&button_edit_details_HTML, &button_edit_details_text, &button_notes})
        button->set_place(narrow);
    edit_translation_other.set_hint("Normally enter the two character ISO 639-1 language code (or the code "
                                    "used in the translation files)");
    tabsheet_translation.add<TLabel>(
        "label_translation_note",
        "You may need to restart the program if the text is not currently the default native language.",
        true);
    checkbox_advanced_mode.set_hint(
        "Show advanced parameters and are normally not displayed and are intended "
        "for experienced users.");
    radiogroup_translation_target_language.set_item_index(0);
    run_button.set_visible(false);
    set_bounds(usual_bounds);
}

void Tparameter_file_form::make_help_page() {
    TPanel& installed =
        documentation_label_installed.parent()->add<TPanel>("panel_documentation_installed", Layout::row);
    TPanel& web = documentation_web_label.parent()->add<TPanel>("panel_documentation_web", Layout::row);
    for (std::size_t i = 0; i < std::size(documentation_pages); ++i) {
        const Documentation_page& page = documentation_pages[i];
        documentation_buttons[i] =
            &installed.add<TButton>(std::string("documentation_button_") + page.name, page.caption);
        documentation_buttons[i]->on_click = [this, topic = page.topic] {
            program_directory_.documentation.get_page(topic).open();
        };
        documentation_web_buttons[i] =
            &web.add<TButton>(std::string("documentation_web_button_") + page.name, page.caption);
        documentation_web_buttons[i]->on_click = [this, topic = page.topic] {
            if (web_documentation)
                web_documentation->get_page(topic).open();
        };
    }
}

void Tparameter_file_form::wire() {
    on_key = [this](const Key& key) { return key.code == Key_code::enter && focus_next(); };
    on_close_query = [this] { return may_close(); };
    ok_button.on_click = [this] { ok_button_onclick(); };
    cancel_button.on_click = [this] { cancel_button_onclick(); };
    save_as_button.on_click = [this] { save_as(); };
    run_button.on_click = [this] { run_on_file(run_program.c_str(), nullptr, nullptr, false, show_normal); };
    button_windows_explore.on_click = [this] { button_windows_exploreClick(); };
    button_app_explore.on_click = [this] { button_app_exploreClick(); };
    button_notes.on_click = [this] { button_notesClick(); };
    button_reload_details.on_click = [this] { reload_details(); };
    button_local_details.on_click = [this] { button_local_detailsClick(); };
    button_edit_details_HTML.on_click = [this] { button_edit_details_HTMLClick(); };
    button_edit_details_text.on_click = [this] { button_edit_details_textClick(); };
    details_edit_memo.on_exit = [this] { leave_details_text(); };
    tabsheet_details.on_show = [this] { load_details_text(); };
    tabsheet_edit_details.on_show = [this] { load_details_text(); };
    tabsheet_notes.on_show = [this] { load_companions(); };
    tabsheet_status.on_show = [this] { load_companions(); };
    tabsheet_help.on_show = [this] { update_documentation_buttons(); };
    radiogroup_translation_target_language.on_click = [this] {
        radiogroup_translation_target_languageClick();
    };
    edit_translation_other.on_change = [this] { radiogroup_translation_target_languageClick(); };
    timer_translation.on_timer = [this] { translate(); };
    timer_title_.on_timer = [this] { update_title(); };
}

// ---- binding

bool Tparameter_file_form::bind_to(const Editor& editor) {
    parameter_form = editor.form;
    parameters = editor.parameters;
    parameter_form_panel = editor.panel;
    parameter_file = editor.file_name;
    file_given = editor.file_given;
    user_settings_file = editor.user_settings_file;
    phrases = editor.phrases;
    native_language_ = editor.native_language;
    if (parameter_form_panel != nullptr) {
        parameter_form_panel->set_place(filling());
        parameters_panel.host(*parameter_form_panel);
    }
    parameters->set_preserve_unexpected(true);
    if (parameter_file == nullptr) {
        own_parameter_file_ =
            std::make_unique<TESK::Filtered_file_name>("", "DAT", parameters->get_type_description(), "*.*");
        parameter_file = own_parameter_file_.get();
    }
    std::string extension;
    std::string filter;
    file_dialog.title = "Save " + screen_text(parameters->get_type_description()) + " as";
    file_dialog.default_extension = screen_text(parameter_file->get_default_extension(extension));
    file_dialog.filter = screen_text(parameter_file->get_dialog_filter(filter)) + "|All files (*.*)|*.*";

    if (!file_given && editor.file_selector != nullptr) {
        Trecent_file_selector_form& selector = *editor.file_selector;
        const Directory_mode mode = parameters->get_directory_mode();
        selector.bind(*parameter_file,
                      mode == Directory_mode::project_folder || mode == Directory_mode::containing_folder,
                      editor.help_folder, editor.other_masks);
        if (selector.show_modal() != Modal_result::ok)
            return false;
        file_given = choose_file();
    }
    if (!file_given && parameters->get_directory_mode() != Directory_mode::file_folder &&
        !require_file_name())
        return false;
    file_dialog.file_name = file_given ? screen_text(*parameter_file) : "";
    is_new_file = !file_given || !parameter_file->exists();
    load();
    edit_description.bind_to(&parameters->description, nullptr);
    edit_details_URL.bind_to(&parameters->details_URL, nullptr);
    checkbox_advanced_mode.bind_to(&settings.advanced, nullptr);
    back_up();
    update_folder_controls();
    update_documentation_buttons();
    tabsheet_translation.set_visible(phrases != nullptr);
    saved_text_ = text_of_record();
    update_title();
    timer_title_.set_enabled(true);
    return true;
}

bool Tparameter_file_form::name_is_chosen() const {
    return !parameter_file->empty() && !parameter_file->starts_with('<');
}

// Takes what the user entered as the file. False when that was nothing: the name that stands for none is no
// choice while there is no such file.
bool Tparameter_file_form::choose_file() {
    if (!name_is_chosen())
        return false;
    if (!parameter_file->exists()) {
        if (parameter_file->get_name(false) == "noname")
            return false;
        std::string extension;
        if (parameter_file->get_ext().empty())
            parameter_file->set_ext(parameter_file->get_default_extension(extension).c_str());
    }
    parameter_file->qualify();
    return true;
}

bool Tparameter_file_form::require_file_name() {
    while (!file_given) {
        const std::string text = screen_text(parameters->get_type_description()) +
                                 " file type has an associated directory.\nIn order for this editor to work "
                                 "correctly you must give a file name now.";
        if (message_box(text, "File name required now", Button_set::ok_cancel) != Modal_result::ok)
            return false;
        file_given = run_save_dialog();
        if (file_given)
            *parameter_file = record_text(file_dialog.file_name);
    }
    return true;
}

// Asks for a name, from the one that there is. False, and the dialog as it was, when none was chosen.
bool Tparameter_file_form::run_save_dialog() {
    const std::string before = file_dialog.file_name;
    TESK::Directory_name folder("");
    if (name_is_chosen())
        parameter_file->get_path(folder, true);
    file_dialog.initial_folder = screen_text(folder);
    while (file_dialog.execute() && !file_dialog.file_name.empty()) {
        // A character that names lack would be left out, and another file written.
        if (typable_text(file_dialog.file_name) == file_dialog.file_name)
            return true;
        if (ask_after_failure() != Save_outcome::saved)
            break;
    }
    file_dialog.file_name = before;
    return false;
}

void Tparameter_file_form::set_file(const std::string& file_name) {
    *parameter_file = file_name;
    file_dialog.file_name = screen_text(file_name);
    file_given = !file_name.empty();
    update_title();
}

std::string Tparameter_file_form::get_parameter_file_name() const {
    return parameter_file != nullptr && file_given ? std::string(*parameter_file) : std::string();
}

void Tparameter_file_form::arrange_controls() {
    page_control_parameters_etc.set_active_page(tabsheet_parameters);
}

// ---- the file and its folder

TESK::Common_parameters_directory Tparameter_file_form::folder_of_record(bool create) const {
    return TESK::Common_parameters_directory(*parameter_file, parameters->get_directory_mode(), create);
}

std::string Tparameter_file_form::shown_file_name() const {
    if (parameters->get_directory_mode() == Directory_mode::containing_folder)
        return folder_of_record(false);
    return get_parameter_file_name();
}

void Tparameter_file_form::update_title() {
    set_text(screen_text(parameters->get_type_description()) + ": " + screen_text(shown_file_name()) +
             (has_changes() ? " *" : ""));
}

// Whether the record has a folder that is there; while there is no file the class of folders answers the
// current one, which is nobody's.
bool Tparameter_file_form::has_folder() const {
    return file_given &&
           (parameters->get_directory_mode() == Directory_mode::containing_folder ||
            parameter_file->exists()) &&
           folder_of_record(false).exists();
}

// Keeps the record as it stood when it was opened, in its folder.
void Tparameter_file_form::back_up() {
    if (is_new_file || !has_folder())
        return;
    const TESK::Smart_file_name backup =
        named(folder_of_record(false), &TESK::Common_parameters_directory::get_backup_filename);
    if (platform::entry_identity(backup) != platform::entry_identity(*parameter_file))
        platform::copy_file(*parameter_file, backup);
}

void Tparameter_file_form::update_folder_controls() {
    const bool there = has_folder();
    for (TTabSheet* page : {&tabsheet_details, &tabsheet_notes, &tabsheet_status})
        page->set_visible(there);
    button_windows_explore.set_visible(there && !is_new_file);
    button_app_explore.set_visible(there && !is_new_file);
    checkbox_advanced_mode.set_enabled(parameters->get_directory_mode() != Directory_mode::file_folder);
    if (!there)
        return;
    load_companions();
    reload_details();
}

void Tparameter_file_form::load() {
    // A loaded record knows its file; what could not be read must not be taken for a new one.
    could_not_read_ =
        file_given && !TESK::VV_file(parameter_file->c_str()).get(*parameters) && parameter_file->exists();
    if (could_not_read_)
        parameters->set_loaded_from(*parameter_file);
    apply_settings();
    if (parameter_form != nullptr)
        parameter_form->Update();
    edit_description.Update();
    edit_details_URL.Update();
    saved_text_ = text_of_record();
}

void Tparameter_file_form::apply_settings() {
    if (user_settings_file == nullptr || !file_given)
        return;
    user_settings_file->load(settings, *parameter_file);
    if (settings.top != 0 && settings.left != 0 && settings.width != 0 && settings.height != 0)
        set_bounds({settings.left, settings.top, settings.width, settings.height});
    checkbox_advanced_mode.Update();
    if (settings.language.empty() || phrases == nullptr)
        return;
    translation_target_language = settings.language;
    const auto* code = std::find(std::begin(language_codes), std::end(language_codes), settings.language);
    radiogroup_translation_target_language.set_item_index(
        static_cast<int>(code - std::begin(language_codes)));
    if (code == std::end(language_codes))
        edit_translation_other.set_text(screen_text(settings.language));
    timer_translation.set_enabled(true);
}

std::string Tparameter_file_form::text_of_record() {
    TESK::VV_text text;
    text.set(*parameters);
    return text.text();
}

bool Tparameter_file_form::has_changes() {
    return notes_.modified() || details_text_.modified() || text_of_record() != saved_text_;
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
        settings.top = to_setting(is_known ? place.top : unknown_position);
        settings.left = to_setting(is_known ? place.left : unknown_position);
        settings.width = to_setting(place.width);
        settings.height = to_setting(place.height);
    }
    if (parameter_form_panel != nullptr && parameter_form_panel->kind() == Control_kind::page_control)
        settings.activepageindex =
            to_setting(static_cast<TPageControl*>(parameter_form_panel)->active_index());
}

// The name to save under. False when there is none, and the user chose none.
bool Tparameter_file_form::prepare_filename(std::string& name) {
    const bool asks = file_dialog.file_name.empty();
    if (asks && !run_save_dialog())
        return false;
    name = record_text(file_dialog.file_name);
    if (!asks || may_replace(name))
        return true;
    file_dialog.file_name.clear();
    return false;
}

// Whether nothing is lost when the name is written, or the user agrees to that. They are asked once.
bool Tparameter_file_form::may_replace(const std::string& name) {
    if (!platform::exists(name) || TESK::equal_ignoring_case(name, agreed_to_replace_))
        return true;
    if (message_box("Replace the existing file with this name:\n" + screen_text(name), "File already exists",
                    Button_set::yes_no) != Modal_result::yes)
        return false;
    agreed_to_replace_ = name;
    return true;
}

// Takes the record's folder along to another name. False when it could not be copied whole.
bool Tparameter_file_form::let_folder_follow(const std::string& old_name, const std::string& new_name) {
    const Directory_mode mode = parameters->get_directory_mode();
    const TESK::Directory_name old_folder = folder_that_follows(old_name, mode);
    const TESK::Directory_name new_folder = folder_that_follows(new_name, mode);
    if (!platform::is_folder(old_folder) || TESK::equal_ignoring_case(old_folder, new_folder))
        return true;
    const platform::Write_result copied = platform::copy_tree(old_folder, new_folder);
    if (copied.error == platform::Write_error::into_itself)
        return true;
    TESK::Common_parameters_directory(new_folder, Directory_mode::own_folder, false).write_folder_icon();
    return copied.ok();
}

Save_outcome Tparameter_file_form::ask_after_failure() {
    switch (message_box(save_failed, "Unable to save", Button_set::abort_retry_ignore)) {
    case Modal_result::retry: return Save_outcome::saved;
    case Modal_result::ignore: return Save_outcome::ignored;
    default: return Save_outcome::aborted;
    }
}

// Whether the file holds what never came to the screen: it could not be read when it was opened, or has only
// come into being since.
bool Tparameter_file_form::holds_unseen(const std::string& name) const {
    return (could_not_read_ || is_new_file) && TESK::equal_ignoring_case(name, *parameter_file);
}

Save_outcome Tparameter_file_form::write_to(const std::string& name) {
    const bool moves = file_given && !is_new_file && !TESK::equal_ignoring_case(name, *parameter_file);
    bool has_followed = !moves;
    for (;;) {
        TESK::Directory_name path("");
        TESK::File_name(name.c_str()).get_path(path, true);
        platform::make_folders(path);
        TESK::VV_file file(name.c_str());
        const bool is_readable =
            !could_not_read_ || platform::read_file(*parameter_file, TESK::VV_file::largest_file).outcome !=
                                    platform::Read_outcome::unreadable;
        if (is_readable && holds_unseen(name) && !may_replace(name))
            return Save_outcome::aborted;
        has_followed = has_followed || (can_be_written(name) && let_folder_follow(*parameter_file, name));
        if (has_followed && file.set(*parameters) && file.get_last_write().ok())
            return Save_outcome::saved;
        const Save_outcome answer = ask_after_failure();
        if (answer != Save_outcome::saved)
            return answer;
    }
}

Save_outcome Tparameter_file_form::save() {
    return last_save_ = save_under_chosen_name();
}

Save_outcome Tparameter_file_form::save_under_chosen_name() {
    commit_focus();
    keep_geometry();
    std::string name;
    if (!prepare_filename(name))
        return Save_outcome::aborted;
    const Save_outcome outcome = write_to(name);
    if (outcome != Save_outcome::saved)
        return outcome;
    const bool was_new = is_new_file;
    const bool moved = !TESK::equal_ignoring_case(name, *parameter_file);
    is_new_file = false;
    could_not_read_ = false;
    agreed_to_replace_.clear();
    file_given = true;
    *parameter_file = name;
    saved_text_ = text_of_record();
    if (was_new || moved) {
        update_folder_controls();
        if (parameter_form != nullptr)
            parameter_form->Update();
        saved_text_ = text_of_record();
    }
    update_title();
    platform::shell().add_to_recent_documents(name);
    if (user_settings_file != nullptr)
        user_settings_file->save(settings, name);
    return Save_outcome::saved;
}

Save_outcome Tparameter_file_form::save_as() {
    const std::string before = file_dialog.file_name;
    if (before.empty())
        file_dialog.file_name = file_given ? screen_text(*parameter_file) : "";
    if (!run_save_dialog()) {
        file_dialog.file_name = before;
        return Save_outcome::aborted;
    }
    agreed_to_replace_.clear();
    if (!may_replace(record_text(file_dialog.file_name))) {
        file_dialog.file_name = before;
        return Save_outcome::aborted;
    }
    const Save_outcome outcome = save();
    if (outcome != Save_outcome::saved)
        file_dialog.file_name = before;
    return outcome;
}

Save_outcome Tparameter_file_form::save_companion(
    Companion_text& text, bool wanted,
    bool (TESK::Common_parameters_directory::*get)(TESK::Smart_file_name&, bool) const) {
    while (wanted && text.modified()) {
        const TESK::Common_parameters_directory folder = folder_of_record(true);
        if (text.save(named(folder, get)).ok())
            break;
        const Save_outcome answer = ask_after_failure();
        if (answer != Save_outcome::saved)
            return answer;
    }
    return Save_outcome::saved;
}

// Notes that were emptied are left as they are on the disk.
Save_outcome Tparameter_file_form::save_companions() {
    const Save_outcome notes = save_companion(notes_, memo_notes.line_count() > 0,
                                              &TESK::Common_parameters_directory::get_notes_filename);
    if (notes == Save_outcome::aborted)
        return notes;
    return save_companion(details_text_, true, &TESK::Common_parameters_directory::get_details_filename);
}

// ---- closing

void Tparameter_file_form::ok_button_onclick() {
    const Save_outcome saved = file_dialog.file_name.empty() ? save_as() : save();
    if (saved == Save_outcome::aborted || save_companions() == Save_outcome::aborted)
        return;
    close_with(Modal_result::ok);
}

void Tparameter_file_form::cancel_button_onclick() {
    close_with(Modal_result::cancel);
}

void Tparameter_file_form::close_with(Modal_result result) {
    asks_before_closing_ = false;
    set_modal_result(result);
    close();
    asks_before_closing_ = true;
}

// The window is closed by its frame: as Cancel does, but nothing is thrown away unasked.
bool Tparameter_file_form::may_close() {
    if (!asks_before_closing_ || parameters == nullptr || !has_changes())
        return true;
    switch (message_box("Save the changes to " + screen_text(shown_file_name()) + "?", "Unsaved changes",
                        Button_set::yes_no_cancel)) {
    case Modal_result::yes: {
        const Save_outcome saved = file_dialog.file_name.empty() ? save_as() : save();
        return saved != Save_outcome::aborted && save_companions() != Save_outcome::aborted;
    }
    case Modal_result::no: return true;
    default: return false;
    }
}

// ---- companions

void Tparameter_file_form::load_companions() {
    const TESK::Common_parameters_directory folder = folder_of_record(false);
    if (!notes_.modified())
        notes_.load(named(folder, &TESK::Common_parameters_directory::get_notes_filename));
    Companion_text status(status_memo);
    status.load(named(folder, &TESK::Common_parameters_directory::get_status_filename));
    status_memo.set_read_only(true);
}

// The page beside the record, and over it the one on the web.
void Tparameter_file_form::reload_details() {
    TESK::Smart_file_name details;
    if (folder_of_record(false).get_details_filename(details, true))
        details_html_viewer.navigate(screen_text(details));
    else
        details_html_viewer.navigate("");
    if (!parameters->details_URL.empty())
        details_html_viewer.navigate(screen_text(parameters->details_URL));
}

void Tparameter_file_form::load_details_text() {
    if (!details_text_.modified())
        details_text_.load(
            named(folder_of_record(false), &TESK::Common_parameters_directory::get_details_filename));
}

void Tparameter_file_form::leave_details_text() {
    if (!details_text_.modified())
        return;
    save_companion(details_text_, true, &TESK::Common_parameters_directory::get_details_filename);
    reload_details();
}

// Names the page of details, and makes an empty one where there is none. False when that cannot be.
bool Tparameter_file_form::make_details_file(TESK::Smart_file_name& file) {
    file = named(folder_of_record(true), &TESK::Common_parameters_directory::get_details_filename);
    return file.exists() || platform::write_file(file, html_file, platform::Durability::durable).ok();
}

void Tparameter_file_form::button_edit_details_HTMLClick() {
    TESK::Smart_file_name file;
    if (make_details_file(file))
        file.edit();
}

void Tparameter_file_form::button_edit_details_textClick() {
    TESK::Smart_file_name file;
    if (make_details_file(file))
        run("notepad.exe", nullptr, file.c_str(), nullptr, false, show_normal);
}

void Tparameter_file_form::button_local_detailsClick() {
    parameters->details_URL = "";
    edit_details_URL.Update();
    reload_details();
    details_pagecontrol.set_active_page(tabsheet_view_details);
}

void Tparameter_file_form::button_notesClick() {
    if (save_companions() == Save_outcome::aborted)
        return;
    const TESK::Smart_file_name notes =
        named(folder_of_record(true), &TESK::Common_parameters_directory::get_notes_filename);
    run("notepad.exe", nullptr, notes.c_str(), nullptr, false, show_normal);
}

// ---- documentation

void Tparameter_file_form::set_web_documentation(const char* url_root, const char* local_root) {
    web_documentation.reset();
    web_root_.clear();
    if (url_root != nullptr) {
        web_documentation = std::make_unique<TESK::Documentation_directory>(program_directory_.program_file);
        web_documentation->rebase_to_URL(url_root, local_root);
    }
    update_documentation_buttons();
}

void Tparameter_file_form::update_documentation_buttons() {
    const bool is_available = program_directory_.exists();
    bool any_installed = false;
    const bool is_connected = platform::shell().is_network_connected();
    for (std::size_t i = 0; i < std::size(documentation_pages); ++i) {
        const TESK::Documentation_topic topic = documentation_pages[i].topic;
        const TESK::Smart_file_name& page = program_directory_.documentation.get_page(topic);
        const bool is_installed = is_available && page.exists();
        any_installed = any_installed || is_installed;
        documentation_buttons[i]->set_visible(is_installed);
        documentation_buttons[i]->set_hint(screen_text(page));
        documentation_web_buttons[i]->set_visible(web_documentation != nullptr);
        if (web_documentation)
            documentation_web_buttons[i]->set_hint(
                is_connected ? screen_text(web_documentation->get_page(topic)) : not_connected);
    }
    documentation_label_installed.set_text(any_installed ? "Documentation installed on this computer"
                                                         : "No documentation found");
    documentation_web_label.parent()->set_visible(web_documentation != nullptr);
    translate_new_texts();
}

std::string Tparameter_file_form::help_lookup(const std::string& page) const {
    const TESK::Documentation_directory& local = program_directory_.documentation;
    const std::string separator = local.ends_with('\\') ? "" : "\\";
    const TESK::Smart_file_name file((local + separator + page).c_str());
    if (file.exists())
        return file;
    if (!web_documentation)
        return {};
    std::string address = *web_documentation + '/' + page;
    std::replace(address.begin(), address.end(), '\\', '/');
    return address;
}

void Tparameter_file_form::view_document(const std::string& page) const {
    const std::string found = help_lookup(page);
    if (!found.empty())
        TESK::Smart_file_name(found.c_str()).open();
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
    translate_new_texts();
}

bool Tparameter_file_form::run(const char* program, const char* options, const char* file, const char* extra,
                               bool wait, int show_state) {
    return save() != Save_outcome::aborted && start(program, options, file, extra, wait, show_state);
}

bool Tparameter_file_form::start(const char* program, const char* options, const char* file,
                                 const char* extra, bool wait, int show_state) {
    command = quoted(program);
    if (options != nullptr)
        command += options;
    command += ' ' + quoted(file);
    if (extra != nullptr && *extra != '\0')
        command += quoted(extra);
    command_history_memo.append_line(screen_text(command));
    const bool started = wait ? platform::launcher().create_and_wait(command, show_state).has_value()
                              : platform::launcher().execute(command, show_state) >= started_from;
    if (!started)
        command_history_memo.append_line("The program could not be started. Looked for: " +
                                         screen_text(program));
    return started;
}

bool Tparameter_file_form::run_on_file(const char* program, const char* options, const char* extra, bool wait,
                                       int show_state) {
    // The save may give the file its name.
    return save() != Save_outcome::aborted &&
           start(program, options, get_parameter_file_name().c_str(), extra, wait, show_state);
}

void Tparameter_file_form::button_windows_exploreClick() {
    folder_of_record(false).explore(false);
}

void Tparameter_file_form::button_app_exploreClick() {
    if (!explorer_program.empty() && save() == Save_outcome::aborted)
        return;
    const TESK::Common_parameters_directory folder = folder_of_record(false);
    if (explorer_program.empty() ||
        !start(explorer_program.c_str(), nullptr, folder.c_str(), nullptr, false, show_normal))
        folder.explore(false);
}

// ---- translation

void Tparameter_file_form::radiogroup_translation_target_languageClick() {
    if (phrases == nullptr)
        return;
    const int index = radiogroup_translation_target_language.item_index();
    if (index <= 0) {
        translation_target_language = native_language_;
        settings.language = "";
        timer_translation.set_enabled(false);
        return;
    }
    translation_target_language =
        index == other_language ? record_text(edit_translation_other.text()) : language_codes[index];
    settings.language = translation_target_language;
    timer_translation.set_enabled(!translation_target_language.empty());
}

// One control a time; once none changes there is no more to do until the program sets other texts.
void Tparameter_file_form::translate() {
    bool changed = false;
    translate_windows(*this, translation_target_language, phrases, changed);
    if (!changed && parameter_form != nullptr)
        translate_windows(*parameter_form, translation_target_language, phrases, changed);
    timer_translation.set_enabled(changed);
}

void Tparameter_file_form::translate_new_texts() {
    if (phrases != nullptr && !settings.language.empty())
        timer_translation.set_enabled(true);
}
