// The page of a database editor that manages the parameter files of one kind in one folder.
#pragma once

#include "editing/auto_edits.h"
#include "operations/parameter_folder.h"
#include "toolkit/button.h"
#include "toolkit/dialogs.h"
#include "toolkit/file_list_box.h"
#include "toolkit/label.h"

class TFile_manager_form : public TForm {
public:
    // The kind says which files of the folder are listed.
    explicit TFile_manager_form(const TESK::Filtered_file_name& kind);

    // The folder whose files are managed; "" for none, and then nothing is done. The current directory of
    // this moment is the one that selecting returns to.
    void bind(const TESK::Directory_name& folder, bool folder_may_be_made);

    // The last of the selected files, with the extension of the kind; the empty text while none is selected.
    // The current directory becomes the one that bind() met.
    TESK::Filtered_file_name& get_selected_file();
    bool has_selection() const { return !parameter_StShellListView.selected_paths().empty(); }

    // Reads the list of files again.
    void Update() override { parameter_StShellListView.Update(); }

    TPanel& content; // all that the form shows; another form may host it, in place of this one
    TShellListView& parameter_StShellListView;
    TButton& refresh_button;
    TButton& explore_category_button;
    TButton& copy_button;
    TButton& delete_button;
    TButton& edit_button;
    TButton& notepad_button;
    TButton& new_button;
    TAutoStringEdit& create_filename_edit;
    TLabel& delete_progress_note; // shown while files are deleted
    TProgressBar& delete_progressbar;
    TFileDialog file_select_dialog;

private:
    std::vector<TESK::Smart_file_name> selected_files() const;
    void show_new(const Added_file& file);

    void copy_file();
    void delete_files();
    void edit_files();
    void edit_files_with_notepad();
    void create_file();

    TESK::Filtered_file_name file_name_;
    Parameter_folder folder_;
    TESK::Smart_directory_name opened_in_{""};
};
