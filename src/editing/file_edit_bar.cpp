#include "editing/file_edit_bar.h"

#include "editing/page_parts.h"
#include "editing/program_starter.h"

#include "platform/command_line.h"

#include <iterator>
#include <utility>

namespace {

constexpr const char* unnamed_caption = "caption";
constexpr Colour unknown_status_colour = 0xffaa1b;

constexpr const char* status_hints[TESK::validation_status_count] = {
    "File status unavailable.",
    "File missing or does not currently exist.",
    "File error, or contains invalid data.",
    "File error, or contains invalid data.",
    "File error, or contains invalid data.",
    "File error, or probably contains invalid data.",
    "File error, or probably contains invalid data.",
    "File error, or probably contains invalid data.",
    "File exists but probably contains invalid or questionable data.",
    "File exists but probably contains invalid or questionable data.",
    "File exists but probably contains invalid or questionable data.",
    "File exists and is presumed to be valid.",
    "File is good.",
    "File selection disabled, file probably not required at this time.",
};

} // namespace

bool ask_for_file(TFileDialog& dialog, const TESK::Filtered_file_name* file,
                  const TESK::Directory_name& folder) {
    TESK::Ustring extension = "*";
    TESK::Ustring filter;
    if (file != nullptr) {
        file->get_default_extension(extension);
        file->get_dialog_filter(filter);
    }
    dialog.default_extension = screen_text(extension);
    dialog.file_name = file == nullptr || file->contains("<") ? "" : screen_text(*file);
    dialog.filter = screen_text(filter) + (filter.empty() ? "" : "|") + "All files (*.*)|*.*|";
    dialog.initial_folder = screen_text(folder);
    return dialog.execute();
}

TAutoFileEditBar::TAutoFileEditBar(std::string name)
    : TPanel(std::move(name), Layout::row), panel_caption(add<TLabel>("panel_caption")),
      filename_edit(add<TAutoStringEdit>("filename_edit")),
      filename_button(
          add_button(*this, "filename_button", "Select",
                     "This button will display the file requestor to change the selected filename.")),
      edit_button(add_button(*this, "edit_button", "", "This button will edit (or view) the file.")),
      qualify_button(
          add_button(*this, "qualify_button", "...",
                     "This button toggles the filename directory from relative to absolute path.")),
      validate_button(add_button(*this, "validate_button", mark_text(Mark::tick),
                                 "This button display detail status information on this file.")),
      cancel_button(
          add_button(*this, "cancel_button", "X", "This button will clear the filename selection.")),
      help_button(add_button(*this, "help_button", "?", "This button displays context sensitive help.")) {
    panel_caption.set_names_next(true);
    panel_caption.set_hint(
        "File description and status: Red=Errors in file, Orange=Invalid values in the file,  "
        "Yellow=Questionable values in the file, Green=The file appears OK, Blue=File not "
        "selected (not required), Purple=File not select but required.");
    Place place;
    place.stretch = 1;
    filename_edit.set_place(place);
    filename_edit.set_cuts_middle(true);
    Place narrow;
    narrow.width = 3;
    for (TButton* button : {&qualify_button, &validate_button, &cancel_button, &help_button})
        button->set_place(narrow);
    edit_button.set_visible(false);
    validate_button.set_visible(false);
    filename_edit.on_change = [this] { name_typed(); };
    filename_edit.on_exit = [this] { name_left(); };
    filename_button.on_click = [this] { filename_button_clicked(); };
    edit_button.on_click = [this] { edit_button_clicked(); };
    qualify_button.on_click = [this] { relative_button_clicked(); };
    validate_button.on_click = [this] { validate_button_clicked(); };
    cancel_button.on_click = [this] { cancel_button_clicked(); };
    help_button.on_click = [this] { filename_edit.Help_link::open(); };
    on_drop_files = [this](const std::vector<std::string>& names) { take_dropped(names); };
}

void TAutoFileEditBar::bind_to(TESK::Filtered_file_name* name, const char* caption,
                               TESK::Smart_file_name* report, TESK::Validation_status* record_status,
                               const char* help_URL) {
    file = name;
    status_file = report;
    directory.set("");
    if (file != nullptr)
        file->get_path(directory, true);
    if (panel_caption.native_text().empty() || panel_caption.native_text() == unnamed_caption) {
        TESK::Ustring description = "*";
        if (file != nullptr)
            file->get_default_description(description);
        if (caption != nullptr)
            panel_caption.set_text(screen_text(caption));
        else if (!description.starts_with('*'))
            panel_caption.set_text(screen_text(description));
    }
    status = record_status == nullptr ? &own_status : record_status;
    help_button.set_visible(help_URL != nullptr);
    filename_edit.bind_to(file, help_URL);
    Update();
}

bool TAutoFileEditBar::has_file() const {
    return file != nullptr && !file->starts_with('<');
}

void TAutoFileEditBar::Update() {
    if (file == nullptr)
        return;
    if (has_file()) {
        // What exists is judged even where the status shown is the record's own.
        own_status = file->exists() ? TESK::Validation_status::good : TESK::Validation_status::unknown;
        file->decompose();
        validate_button.set_visible(status_file != nullptr && status_file->exists());
        show_status();
    }
    filename_edit.Update();
}

void TAutoFileEditBar::show_status() {
    const auto index = static_cast<std::size_t>(*status);
    const Status_look* look = status_look(*status);
    panel_caption.set_colour(look == nullptr ? unknown_status_colour : look->panel_colour);
    panel_caption.set_hint(index < std::size(status_hints) ? status_hints[index] : "File status unknown.");
    panel_caption.set_mark(status_light(static_cast<int>(index)).mark);
}

void TAutoFileEditBar::set_directory(const TESK::Directory_name& folder) {
    directory.set(folder);
    directory_is_fixed = true;
}

void TAutoFileEditBar::set_edit_program(const TESK::File_name* program, const char* caption) {
    edit_program.reset();
    if (program != nullptr)
        edit_program = *program;
    edit_button.set_text(caption == nullptr ? "" : screen_text(caption));
    edit_button.set_visible(program != nullptr);
}

void TAutoFileEditBar::after_change() {
    if (on_after_change)
        on_after_change();
}

void TAutoFileEditBar::edit_button_clicked() {
    if (!has_file())
        return;
    file->set(record_text(filename_edit.text()));
    if (!edit_program) {
        open_or_tell(*file);
        return;
    }
    start_or_tell(platform::in_quotes(*edit_program) + ' ' + platform::in_quotes(*file) + ' ', false,
                  show_normal);
    after_change();
}

void TAutoFileEditBar::relative_button_clicked() {
    if (!has_file())
        return;
    if (file->is_qualified(true))
        file->make_relative_to(TESK::Directory_name());
    else
        file->qualify();
    Update();
}

void TAutoFileEditBar::filename_button_clicked() {
    if (!ask_for_file(file_requestor_dialog, file, directory))
        return;
    take_name(file_requestor_dialog.file_name);
    name_changed();
}

// No file has no status of its own.
void TAutoFileEditBar::cancel_button_clicked() {
    if (file == nullptr)
        return;
    file->set(no_file_name);
    own_status = TESK::Validation_status::unknown;
    show_status();
    name_changed();
}

void TAutoFileEditBar::validate_button_clicked() {
    if (status_file != nullptr && status_file->exists())
        open_or_tell(*status_file);
}

// The edit itself has put its text into the file already.
void TAutoFileEditBar::name_left() {
    if (has_file())
        take_name(filename_edit.text());
    if (std::exchange(is_typed, false))
        name_changed();
}

void TAutoFileEditBar::name_typed() {
    if (OnChange)
        OnChange();
    is_typed = true;
    if (file == nullptr || filename_edit.text().starts_with('<'))
        return;
    take_name(filename_edit.text());
    show_status();
}

void TAutoFileEditBar::take_dropped(const std::vector<std::string>& names) {
    for (const std::string& name : names)
        take_name(name);
    name_changed();
}

// A name without any folder belongs into the one of the file before it. One that is given from the current
// folder, as the qualify button makes it, stays.
void TAutoFileEditBar::take_name(const std::string& name) {
    if (file == nullptr) {
        filename_edit.set_text(name);
        return;
    }
    const bool is_bare = name.find_first_of("\\/:") == std::string::npos;
    file->set(record_text(name));
    if (is_bare && !name.empty() && !directory_is_fixed && !directory.empty())
        file->set_path(directory);
}

void TAutoFileEditBar::name_changed() {
    Update();
    after_change();
}
