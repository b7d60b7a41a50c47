#include "app/project_page.h"

#include "app/tilverra_project_form.h"
#include "toolkit/desktop.h"
#include "toolkit/menu.h"
#include "toolkit/screen_language.h"
#include "trees/suite_directory.h"

#include <algorithm>

namespace {

constexpr Colour note_green = 0x00ff00;
constexpr Colour note_red = 0x0000ff;

} // namespace

bool Project_page::has_project() const {
    return form.workspace() != nullptr;
}

Project_workspace& Project_page::workspace() const {
    return *form.workspace();
}

Tilverra_project_editor_parameters& Project_page::record() const {
    return form.workspace()->project_parameters;
}

void Project_page::bind_file(TAutoFileEditBar& bar, TESK::Filtered_file_name& file, const char* caption,
                             const TESK::File_name* program) {
    bar.bind_to(&file, caption);
    if (program != nullptr)
        bar.set_edit_program(program, "Edit");
    bound_controls_.push_back(&bar);
}

void Project_page::update_bound_controls() {
    for (TControl* control : bound_controls_)
        control->Update();
}

bool Project_page::prepare_backups(const std::vector<std::string>& files,
                                   std::optional<Change_backups>& backups) const {
    if (!form.runs.may_change(files))
        return false;
    if (files.empty())
        return true;
    if (Change_backups::need(files).fits()) {
        backups.emplace(*workspace().project_directory);
        return true;
    }
    return message_box(
               "What would be put aside, so that this can be undone, is more than 1 GiB. Go on without?",
               "Cannot be undone", Button_set::ok_cancel) == Modal_result::ok;
}

void Project_page::show_tables(const std::vector<std::string>& files, const std::string& failure,
                               const char* none) {
    if (!failure.empty())
        form.parameter_file_form().notice(worded(screen_text(failure)), Mark::exclamation);
    else if (files.empty())
        form.parameter_file_form().notice(worded(none));
    if (files.empty())
        return;
    if (files.size() == 1)
        return form.tables.show(files.front());
    const auto folder_of = [](const std::string& file) { return file.substr(0, file.rfind('\\')); };
    const std::string folder = folder_of(files.front());
    const bool is_one_folder =
        std::all_of(files.begin(), files.end(), [&](const auto& file) { return folder_of(file) == folder; });
    TPopupMenu menu;
    for (const std::string& file : files) {
        std::size_t start = folder_of(file).size();
        // Of several outputs, the name of what they are the output of goes before.
        for (int levels = is_one_folder ? 0 : 2; levels > 0; --levels)
            start = folder_of(file.substr(0, start)).size();
        menu.items.push_back({.text = screen_text(file.substr(start + 1)),
                              .on_click = [this, file] { form.tables.show(file); },
                              .text_is_data = true});
    }
    menu.popup();
}

bool paint_pending() {
    return current_desktop == nullptr || current_desktop->process_messages();
}

std::string told_failures(const Operation_outcome& outcome) {
    return first_failures(outcome, [](const std::string& text) { return worded(screen_text(text)); });
}

void show_failures(const Operation_outcome& outcome, const std::string& title) {
    if (!outcome.refused.empty())
        message_box(worded(screen_text(outcome.refused)), title, Button_set::ok);
    else if (!outcome.not_done.empty())
        message_box(
            worded("Files that could not be dealt with: %1", std::to_string(outcome.not_done.size())) + '\n' +
                told_failures(outcome),
            title, Button_set::ok);
}

void show_folder(TFileListBox& list, const std::string& folder) {
    const std::string name = screen_text(folder);
    if (list.folder() != name)
        list.set_folder(name);
}

bool is_offered(const TControl& control) {
    for (const TControl* at = &control; at != nullptr && at->kind() != Control_kind::form; at = at->parent())
        if (!at->visible() || !at->enabled())
            return false;
    return true;
}

void show_verdict(TLabel& note, bool is_good) {
    note.set_colour(is_good ? note_green : note_red);
    note.set_mark(is_good ? Mark::tick : Mark::cross);
}

TVS::Tilverra_Directory* suite_programs() {
    return suite_directory == nullptr ? nullptr : &suite_directory->get_tilverra_directory();
}
