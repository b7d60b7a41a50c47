// The window that manages a database of parameter files: a page for each kind of file, with its utilities,
// and one that installs soil data. Until it is given a database, what needs one does nothing.
#pragma once

#include "app/file_manager_form.h"
#include "model/labels.h"
#include "operations/file_transfer_client.h"
#include "toolkit/label.h"
#include "toolkit/page_control.h"
#include "toolkit/web_view.h"
#include "trees/database_directory.h"

#include <memory>
#include <vector>

class Tdatabase_editor_form : public TForm {
public:
    // The suite must be known by now. The client installs soil data; with null none is installed.
    explicit Tdatabase_editor_form(File_transfer_client* file_transfer);

    // Manages the database, which stays its owner's; null for none. The level is told in the caption.
    void bind(Database_directory* new_database, Database_location_mode level);

    // Starts a program on a file, as the function of that name does.
    void run_utility(const TESK::File_name& program, const std::string& option, const std::string& file,
                     bool wait = false);

    void management_button_combinatorial_generationClick();
    void install_button_onclick();
    // Shows what there is of installed soil data.
    void refresh_statsgo_page();

    // The manager on the page in front; null where that has none.
    TFile_manager_form* file_manager();

    TPageControl& database_pagecontrol;

private:
    using Get_folder = const TESK::Smart_directory_name& (Database_directory::*)(bool create);
    struct Category {
        TTabSheet* page;
        std::unique_ptr<TFile_manager_form> manager;
        Get_folder get_folder;
        bool folder_may_be_made; // some are for other programs to make
    };

    TTabSheet& add_page(const char* name, const char* caption, const TESK::Filtered_file_name& kind,
                        Get_folder get_folder, bool folder_may_be_made = true);
    void add_instructions_page();
    void add_weather_page();
    void add_management_page();
    void add_crop_page();
    void add_soil_page();
    void add_statsgo_page();

    void enter_database();
    void bind_categories();
    std::string selected_file();
    void create_crop(const char* option);
    void import_soil();
    void export_XEB();
    void explore();

    Database_directory* database = nullptr;
    File_transfer_client* NRCS_STATSGO_FTP;
    std::vector<Category> categories_;
    TCheckListBox* installed_STATSGO_states_listbox = nullptr;
    TFileListBox* stats_go_filelist = nullptr;
    TShellTreeView* statsgo_directory_treelist = nullptr;
};
