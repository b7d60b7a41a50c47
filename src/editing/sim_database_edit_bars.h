// Rows that choose a parameter file by the level of the database that it lies in: the suite's, the project's
// or the scenario's, or anywhere.
#pragma once

#include "editing/auto_choices.h"
#include "editing/file_edit_bar.h"
#include "toolkit/file_list_box.h"

// What both bars share.
class TAutoSimDatabaseBar : public TPanel {
public:
    // The directories of the levels are not owned, and null where a level does not exist. The first arguments
    // are as for the bar of a single file.
    void bind_to(TESK::Filtered_file_name* name, const char* caption, TESK::Smart_file_name* report,
                 TESK::Validation_status* status, const char* help_URL,
                 const TESK::Smart_directory_name* scenario_level,
                 const TESK::Smart_directory_name* project_level,
                 const TESK::Smart_directory_name* master_level, const TESK::Directory_name& scenario_folder);
    void Update() override;

    // The level that a file is on by its path: 0 arbitrary, 1 master, 2 project, 3 scenario.
    int level_of(const TESK::Filtered_file_name& name) const;

    // Opens the editing program on the file, which it makes when it saves; a name without a path is first put
    // into the chosen level.
    void edit_create_button_onclick();

    TAutoFileEditBar& file_editbar;
    TAutoRadioGroup& database_radiogroup;
    TButton& edit_create_button;
    TLabel& no_database_note;
    TLabel& any_dir_note;

protected:
    TAutoSimDatabaseBar(std::string name, const char* no_folder_message);

    virtual void database_radiogroup_onclick();
    // What stands on the screen for the files of the chosen level is shown anew; with a name, that one is
    // new.
    virtual void show_folder() {}
    virtual void add_new_name() {}

    TESK::Filtered_file_name* file = nullptr;
    const TESK::Smart_directory_name* master_directory = nullptr;
    const TESK::Smart_directory_name* project_directory = nullptr;
    const TESK::Smart_directory_name* scenario_directory = nullptr;
    const TESK::Smart_directory_name* current_directory = nullptr; // one of those, or null
    TESK::Smart_directory_name scenario_path{""};

private:
    const char* no_folder_message_;
};

// With a list of the files of the chosen level.
class TAutoSimDatabaseFileEditBar : public TAutoSimDatabaseBar {
public:
    explicit TAutoSimDatabaseFileEditBar(std::string name);

    void Update() override;

    // The folder that the process moves to when a file is chosen from the list.
    void set_work_directory(const TESK::Directory_name& directory) { work_directory_.set(directory); }

    TFileListBox& database_filelistbox;

protected:
    void database_radiogroup_onclick() override;
    void show_folder() override;
    void add_new_name() override;

private:
    void choose_line();

    TESK::Smart_directory_name work_directory_;
};

// With the file requestor in the folder of the chosen level instead of a list.
class TAutoSimDatabaseDropdownFileEditBar : public TAutoSimDatabaseBar {
public:
    explicit TAutoSimDatabaseDropdownFileEditBar(std::string name);

protected:
    void database_radiogroup_onclick() override;

private:
    TLabel& select_note_;
};
