#include "editing/sim_database_edit_bars.h"

namespace {

constexpr const char* no_database_text =
    "There are currently no files of this type in the specified database. [Edit/Create] will create this "
    "directory and create specified file name in it.";
constexpr const char* create_text =
    "[Edit/Create] will create this directory and create specified file name in it.";

enum Level { arbitrary, master, project, scenario };

} // namespace

TAutoSimDatabaseBar::TAutoSimDatabaseBar(std::string name, const char* no_folder_message)
    : TPanel(std::move(name)), file_editbar(add<TAutoFileEditBar>("file_editbar")),
      database_radiogroup(
          add<TAutoRadioGroup>("database_radiogroup", "Database",
                               std::vector<std::string>{"Arbitrary", "Master", "Project", "Scenario"}, 4)),
      edit_create_button(add<TButton>("edit_create_button", "Edit/Create")),
      no_database_note(add<TLabel>("no_database_note", no_database_text, true)),
      any_dir_note(add<TLabel>("any_dir_note",
                               "To select a file from another directory, press the [Select] button above.  ",
                               true)),
      no_folder_message_(no_folder_message) {
    set_hint("To create a new file, enter a name and press the [Edit/Create] button");
    database_radiogroup.set_hint("These database levels help you to organize your parameter files.  If you "
                                 "are not sure where to store your "
                                 "parameter file, use the Project level database.");
    no_database_note.set_visible(false);
    any_dir_note.set_visible(false);
    database_radiogroup.on_click = [this] { database_radiogroup_onclick(); };
    edit_create_button.on_click = [this] { edit_create_button_onclick(); };
}

void TAutoSimDatabaseBar::bind_to(TESK::Filtered_file_name* file, const char* caption,
                                  TESK::Smart_file_name* status_file, TESK::Validation_status* status,
                                  const char* help_URL, const TESK::Smart_directory_name* scenario_directory,
                                  const TESK::Smart_directory_name* project_directory,
                                  const TESK::Smart_directory_name* master_directory,
                                  const TESK::Directory_name& scenario_path) {
    file_ = file;
    scenario_directory_ = scenario_directory;
    project_directory_ = project_directory;
    master_directory_ = master_directory;
    scenario_path_.set(scenario_path);
    file_editbar.bind_to(file, caption, status_file, status, help_URL);
    // A level that is missing shifts the ones behind it, while the choice goes on meaning the full list:
    // forms bind all levels, or none.
    std::vector<std::string> items = {"Arbitrary"};
    if (master_directory != nullptr)
        items.push_back("Master");
    if (project_directory != nullptr)
        items.push_back("Project");
    if (scenario_directory != nullptr)
        items.push_back("Scenario");
    database_radiogroup.set_items(items);
    Update();
}

int TAutoSimDatabaseBar::level_of(const TESK::Filtered_file_name& file) const {
    int level = arbitrary;
    if ((file.contains("Projects") || file.contains("..\\Database")) && file.exists())
        level = project;
    if (file.contains("Simulation\\Database"))
        level = master;
    if (scenario_path_.exists() && file.contains(scenario_path_.c_str()) && file.exists())
        level = scenario;
    return level;
}

void TAutoSimDatabaseBar::Update() {
    file_editbar.Update();
    if (file_ == nullptr)
        return;
    database_radiogroup.set_item_index(level_of(*file_));
    database_radiogroup_onclick();
}

void TAutoSimDatabaseBar::database_radiogroup_onclick() {
    current_directory_ = nullptr;
    no_database_note.set_visible(false);
    any_dir_note.set_visible(false);
    switch (database_radiogroup.item_index()) {
    case master: current_directory_ = master_directory_; break;
    case project: current_directory_ = project_directory_; break;
    case scenario: current_directory_ = scenario_directory_; break;
    default: any_dir_note.set_visible(true); break;
    }
}

void TAutoSimDatabaseBar::edit_create_button_onclick() {
    if (file_ == nullptr)
        return;
    file_->set(record_text(file_editbar.filename_edit.text()));
    TESK::Ustring extension;
    file_->set_ext(file_->get_default_extension(extension).c_str());
    if (!file_->exists()) {
        TESK::Directory_name path("");
        file_->get_path(path, true);
        if (path.empty() && current_directory_ == nullptr) {
            message_box(no_folder_message_, "Folder must be selected", Button_set::ok);
        } else if (path.empty()) {
            current_directory_->create();
            show_folder();
            file_->set_path(*current_directory_);
        }
        add_new_name();
    }
    file_editbar.Update();
    file_editbar.edit_button_clicked();
}

TAutoSimDatabaseFileEditBar::TAutoSimDatabaseFileEditBar(std::string name)
    : TAutoSimDatabaseBar(std::move(name),
                          "Use the [Select] button to select a folder and filename for the file to "
                          "be created, then click [Edit/Create] again."),
      database_filelistbox(add<TFileListBox>("database_filelistbox")) {
    database_filelistbox.set_visible(false);
    database_filelistbox.on_change = [this] { choose_line(); };
    database_filelistbox.on_double_click = [this] {
        choose_line();
        file_editbar.edit_button_clicked();
    };
}

void TAutoSimDatabaseFileEditBar::Update() {
    if (file_ != nullptr) {
        TESK::Ustring filter;
        database_filelistbox.set_mask(screen_text(file_->get_default_filter(filter)));
    }
    TAutoSimDatabaseBar::Update();
}

void TAutoSimDatabaseFileEditBar::database_radiogroup_onclick() {
    TAutoSimDatabaseBar::database_radiogroup_onclick();
    database_filelistbox.set_visible(false);
    if (current_directory_ == nullptr)
        return;
    if (current_directory_->exists()) {
        show_folder();
        return;
    }
    no_database_note.set_visible(true);
    any_dir_note.set_visible(file_editbar.filename_button.enabled());
}

void TAutoSimDatabaseFileEditBar::show_folder() {
    database_filelistbox.set_folder(screen_text(*current_directory_));
    database_filelistbox.set_visible(true);
}

void TAutoSimDatabaseFileEditBar::add_new_name() {
    database_filelistbox.add_line(screen_text(file_->get_name(true)));
}

void TAutoSimDatabaseFileEditBar::choose_line() {
    if (file_ == nullptr || current_directory_ == nullptr || database_filelistbox.item_index() < 0)
        return;
    file_->set(record_text(database_filelistbox.item_text()));
    file_->set_path(*current_directory_);
    work_directory_.set_as_current();
    file_editbar.Update();
}

TAutoSimDatabaseDropdownFileEditBar::TAutoSimDatabaseDropdownFileEditBar(std::string name)
    : TAutoSimDatabaseBar(
          std::move(name),
          "Select a database. If arbitrary, then use the [Browse] button to select a folder and enter "
          "a new filename. Then click [Edit/Create] again."),
      select_note_(
          add<TLabel>("select_note",
                      "Use the [Select] button to select an existing  file from the specified database.  Or "
                      "enter a new name above and press [Edit/Create]",
                      true)) {
    select_note_.set_visible(false);
}

void TAutoSimDatabaseDropdownFileEditBar::database_radiogroup_onclick() {
    TAutoSimDatabaseBar::database_radiogroup_onclick();
    select_note_.set_visible(false);
    if (current_directory_ == nullptr)
        return;
    file_editbar.set_directory(*current_directory_);
    const bool exists = current_directory_->exists();
    select_note_.set_visible(exists);
    no_database_note.set_text(file_editbar.filename_button.enabled() ? no_database_text : create_text);
    no_database_note.set_visible(!exists);
}
