#include "app/database_editor_form.h"
#include "editing/record_folders.h"
#include "platform/shell.h"
#include "support/launcher_record.h"
#include "support/temporary_drives.h"
#include "support/test_desktop.h"
#include "trees/program_directory.h"
#include "trees/suite_directory.h"

namespace {

constexpr const char* name_wanted = "To create a new file, enter first the new file name above";
constexpr const char* unzip_hint =
    "We will now try to activate WinZip (if installed) for each downloaded state data.  When WinZip starts, "
    "extract to the same directory where the .ZIP file is located.  You can then delete the .ZIP file.";

// Writes down where each command would have started, too.
class Directory_record : public Launcher_record {
public:
    Directory_record() { result = platform::result_file_not_found; }
    int execute(const std::string& command_line, int show_state) override {
        return Launcher_record::execute(platform::current_directory() + "> " + command_line, show_state);
    }
    std::optional<int> create_and_wait(const std::string& command_line, int show_state) override {
        return Launcher_record::create_and_wait("wait for " + command_line, show_state);
    }
};

class Transfer_record : public File_transfer_client {
public:
    std::string asked;
    std::string failing; // the request that fails

    File_transfer_result connect(const File_transfer_server& server) override {
        return answer("connect " + server.user + ":" + server.password + "@" + server.host + ":" +
                      std::to_string(server.port) + (server.active ? " active" : " passive"));
    }
    File_transfer_result download(const std::string& remote, const std::string& local) override {
        return answer("get " + remote + " " + local);
    }
    void disconnect() override { asked += "disconnect\n"; }

private:
    File_transfer_result answer(const std::string& request) {
        asked += request + "\n";
        const bool fails = !failing.empty() && request.starts_with(failing);
        return {fails ? "The server does not answer." : ""};
    }
};

// A desktop with one tool, and a trash that writes down what it takes.
class Shell_record : public platform::Shell {
public:
    std::optional<std::string> registered_command(const std::string&, const std::string&) override {
        return "unzip";
    }
    std::vector<bool> recycle_all(const std::vector<std::string>& names,
                                  const std::function<bool(std::size_t)>& progress) override {
        std::vector<bool> gone;
        for (const std::string& name : names) {
            recycled += name + "\n";
            if (name == held) {
                gone.push_back(false);
                continue;
            }
            gone.push_back(delete_permanently(name));
            if (!progress(gone.size()))
                break;
        }
        return gone;
    }
    std::string recycled;
    std::string held; // what no one can move

private:
    platform::Shell_guard guard_{*this};
};

class Database_editor : public testing::Test {
protected:
    Database_editor() {
        drives.write("S/Tilverra/project_editor.exe");
        drives.write("S/Tilverra/database_editor/manual.htm");
        for (const char* file : {"Weather/dry.XEB", "Weather/wet.xeb", "Weather/notes.txt", "Crop/maize.crp",
                                 "Rotation/fallow.rot"})
            drives.write(std::string("P/Database/") + file, "data");
        current_folder_source = &folders;
        platform::change_directory("C:\\P");
        suite_directory = new TVS::Suite_Directory(program);
        program_directory = new TESK::Program_directory(program);
        platform::change_directory("C:\\");
    }
    ~Database_editor() override {
        delete program_directory;
        delete suite_directory;
        program_directory = nullptr;
        suite_directory = nullptr;
        current_folder_source = nullptr;
    }

    // A form as it is before anybody shows or binds it.
    Tdatabase_editor_form& make_form() { return form.emplace(&transfer); }
    Tdatabase_editor_form& make_bound_form() {
        make_form().bind(&database, Database_location_mode::project);
        form->show();
        return *form;
    }
    void click(const std::string& button) {
        TControl* found = form->find(button);
        ASSERT_NE(found, nullptr) << button;
        found->bring_to_front();
        EXPECT_TRUE(found->click()) << button;
    }
    void show_page(const std::string& page) {
        form->database_pagecontrol.set_active_page(dynamic_cast<TTabSheet&>(*form->find(page)));
    }
    template <class Control>
    Control& get(const std::string& name) {
        return dynamic_cast<Control&>(*form->find(name));
    }
    // What was started since this was last asked.
    std::string started() { return std::exchange(launcher.started, ""); }

    Temporary_drives drives;
    Record_folders folders;
    Directory_record launcher;
    Shell_record shell;
    Transfer_record transfer;
    Test_desktop desktop;
    TESK::File_name program{"C:\\S\\Tilverra\\project_editor.exe"};
    Database_directory database{TESK::Directory_name("C:\\P")};
    std::optional<Tdatabase_editor_form> form;
};

TEST_F(Database_editor, it_shows_the_manual_of_the_separate_program_where_there_is_one) {
    make_form();
    EXPECT_FALSE(form->visible());
    EXPECT_EQ(get<TWebView>("database_instructions_webbrowser").address(),
              "C:\\S\\Tilverra\\database_editor\\manual.htm");
    std::filesystem::remove(drives.host("S/Tilverra/database_editor/manual.htm"));
    drives.write("S/Tilverra/crop_editor/manual.htm");
    make_form();
    EXPECT_EQ(get<TWebView>("database_instructions_webbrowser").address(), "");
}

TEST_F(Database_editor, without_a_database_only_the_utilities_that_need_none_do_anything) {
    make_form().show();
    for (const char* button :
         {"create_generic_crop_button", "create_cropgro_crop_button", "create_fruit_crop_button",
          "import_soil_button", "management_button_combinatorial_generation", "explore_button",
          "install_button", "remove_button", "soilpar_button"})
        click(button);
    for (const char* page : {"TabSheet2", "rotation_tabsheet"}) {
        show_page(page);
        TFile_manager_form& manager = *form->file_manager();
        manager.create_filename_edit.set_text("new");
        for (TButton* button :
             {&manager.copy_button, &manager.delete_button, &manager.edit_button, &manager.notepad_button,
              &manager.new_button, &manager.explore_category_button, &manager.refresh_button})
            EXPECT_TRUE(button->click());
    }
    EXPECT_EQ(started() + transfer.asked, "");
    EXPECT_EQ(platform::current_directory(), "C:\\");

    desktop.expect_message("Select XEB file",
                           "Click on the XEB file to be exported, then click the [Export] button");
    for (const char* button :
         {"import_XEB_button", "export_XEB_button", "skymill_button", "XEB_spatial_button"})
        click(button);
    EXPECT_EQ(started(),
              "C:\\> C:\\S\\XEB\\import_wizard.exe \"\"  [1]\n"
              "C:\\> C:\\S\\Skymill.exe \"\"  [1]\n"
              "C:\\> C:\\S\\XEB\\spatial\\interpolation\\XEB_spatial_interpolator.exe \"\"  [1]\n");
}

TEST_F(Database_editor, the_caption_tells_the_level_and_showing_the_window_enters_the_database) {
    const std::pair<Database_location_mode, const char*> cases[] = {
        {Database_location_mode::anywhere, "database manager:"},
        {Database_location_mode::master, "Master database manager:"},
        {Database_location_mode::project, "Project database manager:"},
        {Database_location_mode::scenario, "Scenario database manager:"},
    };
    make_form();
    for (const auto& [level, caption] : cases) {
        form->bind(&database, level);
        EXPECT_EQ(form->text(), caption);
    }
    EXPECT_EQ(platform::current_directory(), "C:\\");
    form->show();
    EXPECT_EQ(platform::current_directory(), "C:\\P\\Database");
    platform::change_directory("C:\\S");
    EXPECT_TRUE(form->activate()); // turned to from another window
    EXPECT_EQ(platform::current_directory(), "C:\\P\\Database");
    click("explore_button");
    EXPECT_EQ(started(), "C:\\P\\Database> explorer /n,/e,\"C:\\P\\Database\" [1]\n");
    EXPECT_FALSE(std::filesystem::exists(drives.host("P/Database/Soil"))) << "looking at a database made it";
}

TEST_F(Database_editor, the_weather_utilities_work_on_the_file_selected_last_in_the_list) {
    make_bound_form();
    show_page("TabSheet2");
    TShellListView& list = form->file_manager()->parameter_StShellListView;
    ASSERT_EQ(list.count(), 2) << "the page lists weather alone";
    EXPECT_TRUE(list.select_lines({1, 0}));
    for (const char* button :
         {"import_XEB_button", "export_XEB_button", "skymill_button", "XEB_spatial_button"})
        click(button);
    const std::string here = "C:\\P\\Database> C:\\S\\";
    EXPECT_EQ(started(), here + "XEB\\import_wizard.exe \"C:\\P\\Database\\Weather\\wet.XEB\"  [1]\n" + here +
                             "XEB\\export_wizard.exe \"C:\\P\\Database\\Weather\\wet.XEB\"  [1]\n" + here +
                             "Skymill.exe \"C:\\P\\Database\\Weather\\wet.XEB\"  [1]\n" + here +
                             "XEB\\spatial\\interpolation\\XEB_spatial_interpolator.exe \"\"  [1]\n");
    list.select_lines({});
    EXPECT_EQ(form->file_manager()->get_selected_file(), "");
}

TEST_F(Database_editor, a_crop_is_created_in_its_folder_under_the_name_that_was_typed) {
    std::filesystem::remove_all(drives.host("P/Database/Crop"));
    make_bound_form();
    const std::pair<const char*, const char*> cases[] = {
        {"create_generic_crop_button", "crop"},
        {"create_cropgro_crop_button", "cropgro"},
        {"create_fruit_crop_button", "fruit"},
    };
    show_page("crop_tabsheet");
    TAutoStringEdit& name = form->file_manager()->create_filename_edit;
    for (const auto& [button, option] : cases) {
        name.set_text("");
        desktop.expect_message("", name_wanted);
        click(button);
        EXPECT_EQ(started(), "");
        name.set_text("spring wheat");
        click(button);
        EXPECT_EQ(started(), std::string("C:\\P\\Database\\Crop> C:\\S\\Tilverra\\crop_editor.exe "
                                         "\"spring wheat.crp\" ") +
                                 option + " [1]\n");
        EXPECT_EQ(platform::current_directory(), "C:\\P\\Database");
    }
    name.set_text("C:\\elsewhere\\wheat 1.5");
    click("create_generic_crop_button");
    EXPECT_NE(started().find("\"wheat 1.5.crp\" crop"), std::string::npos);
    name.set_text("..\\");
    desktop.expect_message("", name_wanted);
    click("create_generic_crop_button");
    EXPECT_EQ(started(), "");
    name.set_text("rye");
    // Where the folder cannot be, the program is not let loose elsewhere.
    std::filesystem::remove_all(drives.host("P/Database/Crop"));
    drives.write("P/Database/Crop");
    click("create_fruit_crop_button");
    EXPECT_EQ(started(), "");
}

TEST_F(Database_editor, soils_and_managements_are_made_in_folders_of_their_own) {
    make_bound_form();
    click("import_soil_button");
    EXPECT_EQ(started(), "C:\\P\\Database\\Soil> wait for C:\\S\\Tilverra\\soil_convertor.exe "
                         "\"C:\\P\\Database\\Soil\"  [1]\n");
    EXPECT_EQ(platform::current_directory(), "C:\\P\\Database");
    click("management_button_combinatorial_generation");
    EXPECT_EQ(started(), "C:\\P\\Database> C:\\S\\Tilverra\\management_generator.exe "
                         "\"C:\\P\\Database\\Management\"  [1]\n");
    EXPECT_TRUE(std::filesystem::exists(drives.host("P/Database/Management")));
}

class Statsgo : public Database_editor {
protected:
    Statsgo() {
        make_bound_form();
        show_page("statsgo_tabsheet");
    }
    const std::string folder = "C:\\P\\Database\\STATSGO\\DOS\\arc\\data\\";
    const std::string connection = "connect ftp:ftpvisits@data.example:21 active\n";
    Environment_guard host{"TVS_STATSGO_SERVER", "data.example"};
    TCheckListBox& states() { return get<TCheckListBox>("installed_STATSGO_states_listbox"); }
    int state(const char* text) { return states().index_of(text); }
    std::string get_line(const std::string& code) {
        return "get /pub/statsgo/dos/arc/data/" + code + ".zip " + folder + code + ".zip\n";
    }
};

TEST_F(Statsgo, the_selected_states_are_downloaded_in_the_order_of_the_list_and_opened_and_ticked) {
    EXPECT_FALSE(get<TFileListBox>("stats_go_filelist").visible());
    EXPECT_FALSE(get<TShellTreeView>("statsgo_directory_treelist").visible());
    ASSERT_EQ(states().count(), 53);
    states().select_lines({state("WY Wyoming"), state("DC District of Columbia"), state("AL Alabama")});
    desktop.expect_message("", unzip_hint);
    click("install_button");
    EXPECT_EQ(transfer.asked, connection + get_line("AL") + get_line("DC") + get_line("WY") + "disconnect\n");
    const std::string opened = "C:\\P\\Database> unzip \"" + folder;
    EXPECT_EQ(started().find(opened + "AL.zip\""), 0u);
    EXPECT_EQ(states().checked_count(), 3);
    EXPECT_TRUE(states().checked(state("DC District of Columbia")));
    EXPECT_TRUE(get<TFileListBox>("stats_go_filelist").visible());
    EXPECT_EQ(get<TShellTreeView>("statsgo_directory_treelist").folder() + "\\", folder);
}

TEST_F(Statsgo, a_failure_is_told_and_ends_the_work_with_the_connection_open) {
    click("install_button"); // nothing is selected yet
    EXPECT_EQ(transfer.asked, connection + "disconnect\n");
    const std::tuple<const char*, std::string, int> cases[] = {
        {"connect", connection, 0},
        {"get /pub/statsgo/dos/arc/data/AL", connection + get_line("AL"), 0},
        {"get /pub/statsgo/dos/arc/data/DC", connection + get_line("AL") + get_line("DC"), 1},
    };
    states().select_lines({state("AL Alabama"), state("DC District of Columbia"), state("WY Wyoming")});
    for (const auto& [failing, asked, ticks] : cases) {
        transfer.failing = failing;
        transfer.asked.clear();
        states().set_all_checked(false);
        if (ticks > 0)
            desktop.expect_message("", unzip_hint);
        desktop.expect_message("", "The server does not answer.");
        click("install_button");
        EXPECT_EQ(transfer.asked, asked);
        EXPECT_EQ(states().checked_count(), ticks) << failing;
    }
}

TEST_F(Statsgo, closing_the_window_ends_the_work_behind_the_state_that_is_under_way) {
    states().select_lines({state("AL Alabama"), state("WY Wyoming")});
    desktop.expect_message("", unzip_hint);
    desktop.closing = true;
    click("install_button");
    EXPECT_EQ(transfer.asked, connection + get_line("AL") + "disconnect\n");
}

class File_manager : public Database_editor {
protected:
    File_manager() {
        make_bound_form();
        show_page("crop_tabsheet");
    }
    TFile_manager_form& manager() { return *form->file_manager(); }
    TShellListView& list() { return manager().parameter_StShellListView; }
    void copy(const std::string& file, const char* refusal = nullptr) {
        desktop.expect_file_dialog("Copy a file to this database.", {file});
        if (refusal != nullptr)
            desktop.expect_message("", refusal);
        EXPECT_TRUE(manager().copy_button.click());
    }
    void create(const std::string& name) {
        manager().create_filename_edit.set_text(name);
        EXPECT_TRUE(manager().new_button.click());
    }
    std::string lines() {
        std::string all;
        for (int line = 0; line < list().count(); ++line)
            all += list().line(line).text + (list().selected(line) ? "* " : " ");
        return all;
    }
};

TEST_F(File_manager, a_copied_file_is_listed_and_selected_and_never_takes_the_place_of_another) {
    drives.write("other/wheat.crp", "wheat");
    drives.write("other/MAIZE.CRP", "not our maize");
    copy("C:\\other\\wheat.crp");
    EXPECT_EQ(lines(), "maize.crp wheat.crp* ");
    EXPECT_EQ(drives.read("P/Database/Crop/wheat.crp"), "wheat");
    const char* const there = "There is a file of this name already.";
    copy("C:\\other\\MAIZE.CRP", there);
    copy("C:\\other\\gone.crp", "The file or its folder does not exist.");
    copy("C:\\P\\Database\\Crop\\maize.crp", there);
    EXPECT_EQ(lines(), "maize.crp wheat.crp* ");
    EXPECT_EQ(drives.read("P/Database/Crop/maize.crp"), "data");
    desktop.expect_file_dialog("Copy a file to this database.", {});
    EXPECT_TRUE(manager().copy_button.click());
}

TEST_F(File_manager, the_selected_files_go_to_the_trash_or_to_their_editors) {
    drives.write("P/Database/Crop/oats.crp");
    drives.write("P/Database/Crop/rye.crp");
    EXPECT_TRUE(manager().refresh_button.click());
    list().select_lines({0, 2});
    EXPECT_TRUE(manager().notepad_button.click());
    EXPECT_EQ(started(), "C:\\P\\Database> notepad.exe \"C:\\P\\Database\\Crop\\maize.crp\" [1]\n"
                         "C:\\P\\Database> notepad.exe \"C:\\P\\Database\\Crop\\rye.crp\" [1]\n");
    EXPECT_TRUE(manager().edit_button.click());
    EXPECT_NE(started().find("unzip \"C:\\P\\Database\\Crop\\rye.crp\""), std::string::npos);
    EXPECT_TRUE(manager().explore_category_button.click());
    EXPECT_EQ(started(), "C:\\P\\Database> explorer /n,/e,\"C:\\P\\Database\\Crop\" [1]\n");
    shell.held = "C:\\P\\Database\\Crop\\rye.crp";
    desktop.expect_message("Files not deleted", "Files that could not be dealt with: 1\n" + shell.held +
                                                    ": It could not be moved to the trash.\n");
    EXPECT_TRUE(manager().delete_button.click());
    EXPECT_EQ(shell.recycled, "C:\\P\\Database\\Crop\\maize.crp\nC:\\P\\Database\\Crop\\rye.crp\n");
    EXPECT_EQ(lines(), "oats.crp rye.crp* ");
}

TEST_F(File_manager, a_new_file_lies_in_the_folder_whatever_was_typed_and_an_old_one_is_opened) {
    for (const char* nothing : {"", "..\\"}) {
        create(nothing);
        EXPECT_EQ(started(), "") << nothing;
    }
    for (const auto& [typed, file] : {std::pair("barley", std::string("barley.crp")),
                                      {"..\\..\\rye.txt", "rye.txt.crp"},
                                      {"maize", "maize.crp"},
                                      {"wheat 1.5", "wheat 1.5.crp"},
                                      {"oats.CRP", "oats.CRP"}}) {
        create(typed);
        EXPECT_NE(started().find("C:\\P\\Database\\Crop\\" + file), std::string::npos) << typed;
        EXPECT_NE(lines().find(file + "* "), std::string::npos) << lines();
    }
    EXPECT_EQ(drives.read("P/Database/Crop/maize.crp"), "data");
}

TEST_F(File_manager, a_missing_folder_is_made_for_a_file_unless_it_is_for_others_to_make) {
    for (const auto& [page, folder] : {std::pair("soil_tabsheet", "Soil"),
                                       {"biomatter_tabsheet", "Biomatter"},
                                       {"format_tabsheet", "Format"}}) {
        show_page(page);
        const bool is_made = std::string(folder) == "Soil";
        if (!is_made)
            desktop.expect_message("", "The folder for these files is not there.");
        create("new");
        EXPECT_EQ(std::filesystem::exists(drives.host(std::string("P/Database/") + folder)), is_made)
            << folder;
        EXPECT_EQ(list().count(), is_made ? 1 : 0) << folder;
    }
}

} // namespace
