#include "app/file_manager_form.h"

#include "app/line_progress.h"
#include "app/new_name_form.h"
#include "app/project_page.h"
#include "editing/program_starter.h"
#include "platform/command_line.h"
#include "platform/current_directory.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

namespace {

Place filling() {
    Place place;
    place.stretch = 1;
    return place;
}

} // namespace

TFile_manager_form::TFile_manager_form(const TESK::Filtered_file_name& kind)
    : TForm("file_manager_form", "Parameter file manager"),
      content(add<TPanel>("file_manager_panel", Layout::row)),
      parameter_StShellListView(
          content.add<TPanel>("files_panel").add<TShellListView>("parameter_StShellListView")),
      refresh_button(parameter_StShellListView.parent()
                         ->add<TPanel>("files_buttons", Layout::row)
                         .add<TButton>("refresh_button", "Refresh file list")),
      explore_category_button(
          refresh_button.parent()->add<TButton>("explore_category_button", "Explore this database category")),
      copy_button(content.add<TPanel>("operations_panel")
                      .add<TGroupBox>("file_management_groupbox", "File management")
                      .add<TButton>("copy_button", "Copy a file to this database.")),
      delete_button(copy_button.parent()->add<TButton>("delete_button", "Delete selected file(s)")),
      edit_button(copy_button.parent()
                      ->parent()
                      ->add<TGroupBox>("editing_groupbox", "Editing")
                      .add<TButton>("edit_button", "Edit selected file(s)")),
      notepad_button(
          edit_button.parent()->add<TButton>("notepad_button", "Edit selected file(s) with notepad")),
      new_button(edit_button.parent()
                     ->add<TPanel>("new_file_panel", Layout::row)
                     .add<TButton>("new_button", "<- New")),
      create_filename_edit(new_button.parent()->add<TAutoStringEdit>("create_filename_edit")),
      delete_progress_note(delete_button.parent()->add<TLabel>("delete_progress_note")),
      delete_progressbar(delete_button.parent()->add<TProgressBar>("delete_progressbar")), file_name_(kind) {
    file_name_.set("");
    std::string filter;
    parameter_StShellListView.set_mask(screen_text(kind.get_default_filter(filter)));
    parameter_StShellListView.set_place(filling());
    parameter_StShellListView.parent()->set_place(filling());
    content.set_place(filling());
    create_filename_edit.set_place(filling());
    Place at_the_top;
    at_the_top.align = Align::start;
    copy_button.parent()->parent()->set_place(at_the_top);
    file_select_dialog.title = copy_button.text();
    file_select_dialog.must_exist = true;
    file_select_dialog.filter = screen_text(kind.get_dialog_filter(filter));
    create_filename_edit.input_filter = file_name_characters;
    delete_progress_note.set_text_is_data(true);
    delete_progress_note.set_visible(false);
    delete_progressbar.set_visible(false);
    parameter_StShellListView.on_double_click = [this] { edit_files(); };
    refresh_button.on_click = [this] { Update(); };
    explore_category_button.on_click = [this] {
        if (folder_.is_set())
            explore_or_tell(folder_.name());
    };
    copy_button.on_click = [this] { copy_file(); };
    delete_button.on_click = [this] { delete_files(); };
    edit_button.on_click = [this] { edit_files(); };
    notepad_button.on_click = [this] { edit_files_with_notepad(); };
    new_button.on_click = [this] { create_file(); };
}

void TFile_manager_form::bind(const TESK::Directory_name& folder, bool folder_may_be_made) {
    folder_ = Parameter_folder(folder, folder_may_be_made);
    opened_in_.set(platform::current_directory());
    parameter_StShellListView.set_folder(screen_text(folder));
}

TESK::Filtered_file_name& TFile_manager_form::get_selected_file() {
    file_name_.set("");
    if (folder_.is_set())
        folder_.name().set_as_current();
    for (const TESK::Smart_file_name& file : selected_files()) {
        file_name_.set(file);
        file_name_.qualify();
        file_name_.set_ext(nullptr);
    }
    if (folder_.is_set())
        opened_in_.set_as_current();
    return file_name_;
}

std::vector<TESK::Smart_file_name> TFile_manager_form::selected_files() const {
    std::vector<TESK::Smart_file_name> files;
    for (const std::string& path : parameter_StShellListView.selected_paths())
        files.emplace_back(record_text(path).c_str());
    return files;
}

// Lists a file that has come into the folder, and selects it; or says why it could not.
void TFile_manager_form::show_new(const Added_file& file) {
    Update();
    if (file.name)
        parameter_StShellListView.select(
            parameter_StShellListView.index_of(screen_text(file.name->get_name(true))));
    else if (!file.refusal.empty())
        show_message(screen_text(file.refusal));
}

void TFile_manager_form::copy_file() {
    if (!folder_.is_set())
        return;
    file_select_dialog.file_name.clear();
    if (file_select_dialog.execute())
        show_new(folder_.add_copy(TESK::File_name(record_text(file_select_dialog.file_name).c_str())));
}

// Through the trash, from which a user can have back what was deleted by mistake.
void TFile_manager_form::delete_files() {
    std::vector<std::string> names;
    for (const TESK::Smart_file_name& file : selected_files())
        names.push_back(file);
    if (names.empty())
        return;
    Operation_outcome outcome;
    {
        const Busy_pointer busy;
        Line_progress progress(delete_progressbar, delete_progress_note, names.size());
        outcome = delete_parameter_files(names, [&](std::size_t done, std::size_t total) {
            progress.show(done, total, TESK::File_name(names[done - 1].c_str()).get_name(true));
            progress.step();
            return progress.goes_on();
        });
    }
    Update();
    show_failures(outcome, "Files not deleted");
    if (outcome.stopped)
        message_box(
            worded("The deletion was stopped. Files deleted until then: %1", std::to_string(outcome.done)),
            "Deletion stopped", Button_set::ok);
}

void TFile_manager_form::edit_files() {
    for (const TESK::Smart_file_name& file : selected_files())
        open_or_tell(file);
}

void TFile_manager_form::edit_files_with_notepad() {
    for (const TESK::Smart_file_name& file : selected_files())
        start_or_tell("notepad.exe " + platform::in_quotes(file), false, show_normal);
}

void TFile_manager_form::create_file() {
    const Added_file made = folder_.make_file(record_text(create_filename_edit.text()), file_name_);
    show_new(made);
    if (made.name)
        open_or_tell(*made.name);
}
