#include "app/database_editor_form.h"

#include "editing/program_starter.h"
#include "operations/database_utilities.h"
#include "operations/parameter_folder.h"
#include "operations/statsgo_installation.h"
#include "toolkit/desktop.h"
#include "trees/program_directory.h"
#include "trees/suite_directory.h"

namespace {

// The client with the busy pointer while the server is at work.
class Busy_file_transfer : public File_transfer_client {
public:
    explicit Busy_file_transfer(File_transfer_client& client) : client_(client) {}

    File_transfer_result connect(const File_transfer_server& server) override {
        const Busy_pointer busy;
        return client_.connect(server);
    }
    File_transfer_result download(const std::string& remote, const std::string& local) override {
        const Busy_pointer busy;
        return client_.download(remote, local);
    }
    void disconnect() override { client_.disconnect(); }

private:
    File_transfer_client& client_;
};

constexpr const char* level_words[] = {"", "Master ", "Project ", "Scenario "};

// Why a utility was not started; "" when there was nothing against it.
void tell(const std::string& refusal) {
    if (!refusal.empty())
        show_message(refusal);
}

Place filling() {
    Place place;
    place.stretch = 1;
    return place;
}

TPanel& add_row(TContainer& page) {
    return page.add<TPanel>("utilities_panel", Layout::row);
}

void add_button(TContainer& row, const char* name, const char* caption, std::function<void()> handler) {
    row.add<TButton>(name, caption).on_click = std::move(handler);
}

} // namespace

Tdatabase_editor_form::Tdatabase_editor_form(File_transfer_client* file_transfer)
    : TForm("database_editor_form"), database_pagecontrol(add<TPageControl>("database_pagecontrol")),
      NRCS_STATSGO_FTP(file_transfer) {
    Database_file_names& names = database_file_names();
    database_pagecontrol.set_place(filling());
    add_instructions_page();
    add_weather_page();
    add_page("rotation_tabsheet", "Rotation", names.ROT_filename,
             &Database_directory::get_rotation_directory);
    add_management_page();
    add_page("biomatter_tabsheet", "biomatter", names.Biomass_decomposition_parameters_filename,
             &Database_directory::get_biomatter_directory, false)
        .set_hint("Composition and decomposition (I.e. manure)");
    add_crop_page();
    add_soil_page();
    add_page("format_tabsheet", "Format", names.FMT_filename, &Database_directory::get_format_directory,
             false);
    add_statsgo_page();
    add_button(add_row(*this), "explore_button", "Explore", [this] { explore(); });
    on_activate = [this] { enter_database(); };
    bind(nullptr, Database_location_mode::anywhere);
}

TTabSheet& Tdatabase_editor_form::add_page(const char* name, const char* caption,
                                           const TESK::Filtered_file_name& kind, Get_folder get_folder,
                                           bool folder_may_be_made) {
    auto& page = database_pagecontrol.add<TTabSheet>(name, caption);
    auto manager = std::make_unique<TFile_manager_form>(kind);
    page.host(manager->content);
    page.on_show = [shown = manager.get()] { shown->Update(); };
    categories_.push_back({&page, std::move(manager), get_folder, folder_may_be_made});
    return page;
}

void Tdatabase_editor_form::add_instructions_page() {
    auto& page = database_pagecontrol.add<TTabSheet>("instructions_tabsheet", "");
    auto& browser = page.add<TWebView>("database_instructions_webbrowser");
    browser.set_place(filling());
    const TESK::Adjunct_directory folder(suite_directory->get_tilverra_directory().get_database_editor_exe());
    TESK::Smart_file_name manual;
    if (folder.find_file("manual.htm", manual))
        browser.navigate(screen_text(manual));
}

void Tdatabase_editor_form::add_weather_page() {
    auto& row = add_row(add_page("TabSheet2", "Weather", database_file_names().XEB_File_name,
                                 &Database_directory::get_weather_directory));
    add_button(row, "import_XEB_button", "Import", [this] {
        run_utility(suite_directory->get_XEB_directory().get_import_wizard_exe(), "", selected_file());
    });
    add_button(row, "export_XEB_button", "Export", [this] { export_XEB(); });
    add_button(row, "XEB_spatial_button", "XEB spatial interpolator", [this] {
        run_utility(suite_directory->get_XEB_directory().get_spatial_interpolator_exe(), "", "");
    });
    add_button(row, "skymill_button", "Skymill",
               [this] { run_utility(suite_directory->get_skymill_exe(), "", selected_file()); });
}

void Tdatabase_editor_form::add_management_page() {
    auto& page = add_page("management_tabsheet", "Management", database_file_names().MGT_filename,
                          &Database_directory::get_management_directory);
    add_button(add_row(page), "management_button_combinatorial_generation",
               "Combinatorial management generation",
               [this] { management_button_combinatorial_generationClick(); });
}

void Tdatabase_editor_form::add_crop_page() {
    auto& page = add_page("crop_tabsheet", "Crop", database_file_names().CRP_filename,
                          &Database_directory::get_crop_directory);
    auto& group = page.add<TGroupBox>("create_crop_groupbox", "Create", Layout::row);
    add_button(group, "create_generic_crop_button", "Generic crop", [this] { create_crop("crop"); });
    add_button(group, "create_cropgro_crop_button", "CROPGRO crop", [this] { create_crop("cropgro"); });
    add_button(group, "create_fruit_crop_button", "Fruit crop", [this] { create_crop("fruit"); });
}

void Tdatabase_editor_form::add_soil_page() {
    auto& row = add_row(add_page("soil_tabsheet", "Soil", database_file_names().SIL_filename,
                                 &Database_directory::get_soil_directory));
    add_button(row, "import_soil_button", "Import", [this] { import_soil(); });
    row.add<TButton>("soilpar_button", "SOILPAR 2");
}

void Tdatabase_editor_form::add_statsgo_page() {
    auto& page = database_pagecontrol.add<TTabSheet>("statsgo_tabsheet", "STATSGO");
    auto& lists = page.add<TPanel>("statsgo_lists_panel", Layout::row);
    lists.set_place(filling());
    installed_STATSGO_states_listbox = &lists.add<TCheckListBox>("installed_STATSGO_states_listbox", true);
    installed_STATSGO_states_listbox->set_lines({statsgo_states.begin(), statsgo_states.end()});
    statsgo_directory_treelist = &lists.add<TShellTreeView>("statsgo_directory_treelist");
    stats_go_filelist = &lists.add<TFileListBox>("stats_go_filelist");
    for (TControl* list : lists.children())
        list->set_place(filling());
    statsgo_directory_treelist->on_change = [this] {
        stats_go_filelist->set_folder(statsgo_directory_treelist->selected_folder());
    };
    auto& row = add_row(page);
    add_button(row, "install_button", "Install", [this] { install_button_onclick(); });
    row.add<TButton>("remove_button", "Remove");
    page.add<TLabel>("requirements_label", "Requires Internet access and WINZIP installed.", true);
    page.add<TLabel>("not_working_label",
                     "The NRSC as recently changed the STATSGO web site and file formats so this is not "
                     "currently working",
                     true);
    page.on_show = [this] { refresh_statsgo_page(); };
}

void Tdatabase_editor_form::bind(Database_directory* new_database, Database_location_mode level) {
    database = new_database;
    set_text(std::string(level_words[static_cast<std::size_t>(level)]) + "database manager:");
    bind_categories();
    refresh_statsgo_page();
}

void Tdatabase_editor_form::bind_categories() {
    for (Category& category : categories_) {
        TESK::Directory_name folder("");
        if (database != nullptr)
            folder.set((database->*category.get_folder)(false));
        category.manager->bind(folder, category.folder_may_be_made);
    }
}

void Tdatabase_editor_form::enter_database() {
    if (database == nullptr)
        return;
    database->set_as_current();
    bind_categories();
    refresh_statsgo_page();
}

TFile_manager_form* Tdatabase_editor_form::file_manager() {
    for (Category& category : categories_)
        if (category.page == database_pagecontrol.active_page())
            return category.manager.get();
    return nullptr;
}

std::string Tdatabase_editor_form::selected_file() {
    TFile_manager_form* manager = file_manager();
    return manager == nullptr ? std::string() : manager->get_selected_file();
}

void Tdatabase_editor_form::run_utility(const TESK::File_name& program, const std::string& option,
                                        const std::string& file, bool wait) {
    tell(::run_utility(program, option, file, wait));
}

void Tdatabase_editor_form::create_crop(const char* option) {
    if (database == nullptr || file_manager() == nullptr)
        return;
    const std::string name = record_text(file_manager()->create_filename_edit.text());
    if (new_parameter_file_name(name, database_file_names().CRP_filename).empty())
        show_message("To create a new file, enter first the new file name above");
    else
        tell(::create_crop(*database, name, option));
}

void Tdatabase_editor_form::export_XEB() {
    if (file_manager() != nullptr && file_manager()->has_selection())
        run_utility(suite_directory->get_XEB_directory().get_export_wizard_exe(), "", selected_file());
    else
        message_box("Click on the XEB file to be exported, then click the [Export] button", "Select XEB file",
                    Button_set::ok);
}

void Tdatabase_editor_form::import_soil() {
    if (database == nullptr)
        return;
    const Busy_pointer busy;
    tell(import_soils(*database));
    file_manager()->Update();
}

void Tdatabase_editor_form::management_button_combinatorial_generationClick() {
    if (database != nullptr)
        tell(generate_managements(*database));
}

void Tdatabase_editor_form::explore() {
    if (database != nullptr)
        explore_or_tell(*database);
}

void Tdatabase_editor_form::refresh_statsgo_page() {
    const bool is_there = database != nullptr && database->get_STATSGO_data_directory(false).exists();
    const std::string folder = is_there ? screen_text(database->get_STATSGO_data_directory(false)) : "";
    statsgo_directory_treelist->set_folder(folder);
    stats_go_filelist->set_folder(folder);
    statsgo_directory_treelist->set_visible(is_there);
    stats_go_filelist->set_visible(is_there);
}

void Tdatabase_editor_form::install_button_onclick() {
    if (database == nullptr || NRCS_STATSGO_FTP == nullptr)
        return;
    const TESK::Smart_directory_name& folder = database->get_STATSGO_data_directory(true);
    refresh_statsgo_page();
    std::vector<int> states;
    for (int line = 0; line < installed_STATSGO_states_listbox->count(); ++line)
        if (installed_STATSGO_states_listbox->selected(line))
            states.push_back(line);
    Statsgo_progress progress;
    progress.before_first_is_opened = [] {
        show_message(
            "We will now try to activate WinZip (if installed) for each downloaded state data.  When "
            "WinZip starts, extract to the same directory where the .ZIP file is located.  You can "
            "then delete the .ZIP file.");
    };
    progress.installed = [this](int state) {
        installed_STATSGO_states_listbox->set_checked(state, true);
        stats_go_filelist->Update();
        return current_desktop == nullptr || current_desktop->process_messages();
    };
    Busy_file_transfer client(*NRCS_STATSGO_FTP);
    const File_transfer_result result = install_statsgo_states(client, folder, states, progress);
    if (!result.ok())
        show_message(result.failure);
}
