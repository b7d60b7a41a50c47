#include "app/project_page.h"

#include "app/tilverra_project_form.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"
#include "trees/suite_directory.h"

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

bool paint_pending() {
    return current_desktop == nullptr || current_desktop->process_messages();
}

void show_failures(const Operation_outcome& outcome, const std::string& title) {
    if (!outcome.refused.empty())
        message_box(screen_text(outcome.refused), title, Button_set::ok);
    else if (!outcome.not_done.empty())
        message_box(
            worded("Files that could not be dealt with: %1", std::to_string(outcome.not_done.size())) + '\n' +
                screen_text(first_failures(outcome)),
            title, Button_set::ok);
}

void show_folder(TFileListBox& list, const std::string& folder) {
    const std::string name = screen_text(folder);
    if (list.folder() != name)
        list.set_folder(name);
}

void show_verdict(TLabel& note, bool is_good) {
    note.set_colour(is_good ? note_green : note_red);
    note.set_mark(is_good ? Mark::tick : Mark::cross);
}

TVS::Tilverra_Directory* suite_programs() {
    return suite_directory == nullptr ? nullptr : &suite_directory->get_tilverra_directory();
}
