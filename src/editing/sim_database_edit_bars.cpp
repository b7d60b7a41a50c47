#include "editing/sim_database_edit_bars.h"

#include <algorithm>

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
    // A name without a folder is one for the chosen level, until Edit/Create puts it there.
    file_editbar.on_after_change = [this] {
        TESK::Directory_name folder("");
        if (file != nullptr)
            file->get_path(folder, false);
        if (!folder.empty())
            Update();
    };
    database_radiogroup.on_click = [this] { database_radiogroup_onclick(); };
    edit_create_button.on_click = [this] { edit_create_button_onclick(); };
}

void TAutoSimDatabaseBar::bind_to(TESK::Filtered_file_name* name, const char* caption,
                                  TESK::Smart_file_name* report, TESK::Validation_status* status,
                                  const char* help_URL, const TESK::Smart_directory_name* scenario_level,
                                  const TESK::Smart_directory_name* project_level,
                                  const TESK::Smart_directory_name* master_level,
                                  const TESK::Directory_name& scenario_folder) {
    file = name;
    scenario_directory = scenario_level;
    project_directory = project_level;
    master_directory = master_level;
    scenario_path.set(scenario_folder);
    file_editbar.bind_to(name, caption, report, status, help_URL);
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

int TAutoSimDatabaseBar::level_of(const TESK::Filtered_file_name& name) const {
    int level = arbitrary;
    if ((name.contains("Projects") || name.contains("..\\Database")) && name.exists())
        level = project;
    if (name.contains("Simulation\\Database"))
        level = master;
    if (scenario_path.exists() && name.contains(scenario_path.c_str()) && name.exists())
        level = scenario;
    return level;
}

void TAutoSimDatabaseBar::Update() {
    file_editbar.Update();
    if (file == nullptr)
        return;
    database_radiogroup.set_item_index(level_of(*file));
    database_radiogroup_onclick();
}

void TAutoSimDatabaseBar::database_radiogroup_onclick() {
    current_directory = nullptr;
    no_database_note.set_visible(false);
    any_dir_note.set_visible(false);
    switch (database_radiogroup.item_index()) {
    case master: current_directory = master_directory; break;
    case project: current_directory = project_directory; break;
    case scenario: current_directory = scenario_directory; break;
    default: any_dir_note.set_visible(true); break;
    }
    if (current_directory != nullptr)
        file_editbar.set_directory(*current_directory);
}

void TAutoSimDatabaseBar::edit_create_button_onclick() {
    if (file == nullptr)
        return;
    file->set(record_text(file_editbar.filename_edit.text()));
    if (file->starts_with('<'))
        return;
    TESK::Ustring extension;
    // A file of no kind keeps its extension.
    if (file->get_default_extension(extension) != "*")
        file->set_ext(extension.c_str());
    if (!file->exists()) {
        TESK::Directory_name path("");
        file->get_path(path, false);
        if (path.empty() && current_directory == nullptr) {
            message_box(no_folder_message_, "Folder must be selected", Button_set::ok);
        } else if (path.empty()) {
            current_directory->create();
            show_folder();
            file->set_path(*current_directory);
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
    if (file != nullptr) {
        TESK::Ustring filter;
        std::string mask = screen_text(file->get_default_filter(filter));
        std::replace(mask.begin(), mask.end(), '|', ';');
        database_filelistbox.set_mask(mask);
    }
    TAutoSimDatabaseBar::Update();
}

void TAutoSimDatabaseFileEditBar::database_radiogroup_onclick() {
    TAutoSimDatabaseBar::database_radiogroup_onclick();
    database_filelistbox.set_visible(false);
    if (current_directory == nullptr)
        return;
    if (current_directory->exists()) {
        show_folder();
        return;
    }
    no_database_note.set_visible(true);
    any_dir_note.set_visible(file_editbar.filename_button.enabled());
}

void TAutoSimDatabaseFileEditBar::show_folder() {
    database_filelistbox.set_folder(screen_text(*current_directory));
    database_filelistbox.set_visible(true);
}

void TAutoSimDatabaseFileEditBar::add_new_name() {
    database_filelistbox.add_line(screen_text(file->get_name(true)));
}

void TAutoSimDatabaseFileEditBar::choose_line() {
    if (file == nullptr || current_directory == nullptr || database_filelistbox.item_index() < 0)
        return;
    file->set(record_text(database_filelistbox.item_text()));
    file->set_path(*current_directory);
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
    if (current_directory == nullptr)
        return;
    const bool exists = current_directory->exists();
    select_note_.set_visible(exists);
    no_database_note.set_text(file_editbar.filename_button.enabled() ? no_database_text : create_text);
    no_database_note.set_visible(!exists);
}
