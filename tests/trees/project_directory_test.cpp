#include "trees/project_directory.h"

#include "support/temporary_drives.h"
#include "trees/scenario_directory.h"
#include "trees/suite_directory.h"

#include <gtest/gtest.h>

using TESK::Common_parameters_directory;
using TESK::Directory_name;
using TESK::File_name;
using TESK::Smart_file_name;

namespace {

class Project_directory_test : public testing::Test {
protected:
    Project_directory_test() {
        drives.write("a/x.ext", "record");
        drives.write("a/p.tvp", "record");
        drives.write("a/plain", "record");
        drives.write("v1.2/plain", "record");
        drives.write("a/q/.TVS_project", "record");
        drives.write("here/readme.txt");
        platform::change_directory("C:\\here");
    }
    bool exists(const std::string& path) const { return std::filesystem::exists(drives.host(path)); }

    Temporary_drives drives;
};

TEST_F(Project_directory_test, the_folder_of_a_record_follows_from_its_mode) {
    // the record, its mode, whether the folder is made, the folder
    const std::tuple<const char*, Directory_mode, bool, const char*> cases[] = {
        {"C:\\a\\x.ext", Directory_mode::file_folder, false, "C:\\a\\"},
        {"C:\\a\\gone.ext", Directory_mode::file_folder, false, "C:\\here"},
        {"C:\\a\\x.ext", Directory_mode::own_folder, false, "C:\\a\\x"},
        {"C:\\a\\gone.ext", Directory_mode::own_folder, false, "C:\\here"},
        {"C:\\a\\gone.ext", Directory_mode::own_folder, true, "C:\\a\\gone"},
        {"C:\\a\\p.tvp", Directory_mode::project_folder, false, "C:\\a\\p"},
        {"C:\\a\\q\\.TVS_project", Directory_mode::project_folder, false, "C:\\a\\q\\"},
        {"C:\\a\\gone.ext", Directory_mode::containing_folder, false, "C:\\a"},
        {"readme.txt", Directory_mode::containing_folder, false, "C:\\here"},
        {"C:\\a\\x.ext", Directory_mode(9), false, "C:\\here"},
        {"C:\\a\\plain", Directory_mode::own_folder, true, "C:\\a\\plain"}, // the file is in its way
        {"C:\\v1.2\\plain", Directory_mode::own_folder, false, "C:\\v1.2\\plain"}};
    for (const auto& [file, mode, create, folder] : cases)
        EXPECT_EQ(Common_parameters_directory(File_name(file), mode, create), folder) << file;
    EXPECT_TRUE(exists("a/gone"));
    EXPECT_EQ(drives.read("a/plain"), "record");
    EXPECT_FALSE(exists("a/x"));
}

TEST_F(Project_directory_test, companions_lie_in_the_folder_or_bear_the_name_of_a_record_without_one) {
    const Common_parameters_directory own(File_name("C:\\a\\p.tvp"), Directory_mode::project_folder, false);
    const Common_parameters_directory shared(File_name("C:\\a\\x.ext"), Directory_mode::file_folder, false);
    drives.write("a/p/details.htm", "page");
    Smart_file_name name;
    EXPECT_FALSE(own.get_notes_filename(name, true));
    EXPECT_EQ(name, "C:\\a\\p\\notes.txt");
    EXPECT_TRUE(own.get_details_filename(name, true));
    EXPECT_FALSE(own.get_details_filename(name, false));
    EXPECT_EQ(name, "C:\\a\\p\\details.htm");
    Smart_file_name status;
    EXPECT_FALSE(shared.get_status_filename(status, false));
    EXPECT_EQ(status, "x_status.txt");

    for (const auto& [path, backup] : {std::pair("C:\\a\\p", "C:\\a\\p\\backup"),
                                       {"C:\\a\\p.v2", "C:\\a\\p.v2\\backup.v2"},
                                       {"C:\\a.b\\p", "C:\\a.b\\p\\backup"},
                                       {"C:\\a\\p.v2\\", "C:\\a\\p.v2\\backup.v2"}}) {
        const Common_parameters_directory folder(Directory_name(path), Directory_mode::project_folder, false);
        folder.get_backup_filename(name, false);
        EXPECT_EQ(name, backup);
    }
}

TEST_F(Project_directory_test, a_folder_knows_the_record_that_it_belongs_to) {
    const Common_parameters_directory folder(File_name("C:\\a\\p.tvp"), Directory_mode::project_folder,
                                             false);
    for (const auto& [file, is_its] :
         {std::pair("p.tvp", true), {"p.other", true}, {"P.tvp", false}, {"p2.tvp", false}})
        EXPECT_EQ(folder.is_directory_of(File_name((std::string("C:\\a\\") + file).c_str())), is_its) << file;
    Smart_file_name record;
    EXPECT_TRUE(folder.get_parameter_filename(record));
    EXPECT_EQ(record, "C:\\a\\p.tvp");
}

TEST_F(Project_directory_test, the_climb_to_the_project_looks_at_every_other_level) {
    drives.write("1/2/3/4/deep.txt");
    for (const auto& [folder, found] : {std::pair("1/2/3", true), {"1/2", false}, {"1", true}}) {
        const std::string marker = std::string(folder) + "/project";
        drives.write(marker);
        const Common_parameters_directory start(Directory_name("C:\\1\\2\\3\\4"), Directory_mode::own_folder,
                                                false);
        TESK::Common_project_directory project(File_name("C:\\a\\p.tvp"));
        EXPECT_EQ(start.find_project_directory(project), found) << folder;
        std::filesystem::remove(drives.host(marker));
    }
}

TEST_F(Project_directory_test, a_project_makes_only_the_folders_that_it_is_asked_to_make) {
    Tilverra_project_directory project(File_name("C:\\a\\p.tvp"), 0);
    EXPECT_EQ(platform::current_directory(), "C:\\a");
    EXPECT_EQ(project.parent_directory, "C:\\a");
    EXPECT_EQ(project.get_scenarios_directory(false), "C:\\a\\p\\Scenarios");
    EXPECT_EQ(project.get_aggregation_directory(false), "C:\\a\\p\\GIS\\aggregation");
    EXPECT_EQ(project.selected_scenarios, "C:\\a\\p\\selected_scenarios.dat");
    EXPECT_FALSE(exists("a/p"));
    for (int i = 0; i < 2; ++i) {
        project.get_generated_scenarios_directory(true);
        project.get_database_directory(true);
        EXPECT_TRUE(exists("a/p/Generated_scenarios") && exists("a/p/Database"));
        std::filesystem::remove_all(drives.host("a/p"));
    }
    TESK::Smart_directory_name operations("");
    EXPECT_STREQ(project.get_operation_directory("tillage", operations), "C:\\a\\p\\Operations\\tillage");
    EXPECT_TRUE(exists("a/p/Operations/tillage"));
}

TEST_F(Project_directory_test, a_database_folder_is_made_only_by_the_call_that_asks_for_it_first) {
    Database_directory database(Directory_name("C:\\Simulation"));
    EXPECT_EQ(database.get_crop_directory(false), "C:\\Simulation\\Database\\Crop");
    database.get_crop_directory(true);
    EXPECT_FALSE(exists("Simulation/Database/Crop"));
    database.get_soil_directory(true);
    EXPECT_TRUE(exists("Simulation/Database/Soil"));
    database.get_STATSGO_data_directory(false);
    database.get_STATSGO_data_directory(true);
    EXPECT_TRUE(exists("Simulation/Database/STATSGO/DOS/arc/data"));
}

TEST_F(Project_directory_test, the_record_of_a_project_is_its_marker_or_the_file_beside_it) {
    drives.write("a.b/x.tvp", "record");
    drives.write("a/x.2.tvp", "record");
    // A point in the folder's own name, or in one further up, is none of the record's extension.
    for (const char* name : {"C:\\a\\p.tvp", "C:\\a\\q\\.TVS_project", "C:\\a.b\\x.tvp", "C:\\a\\x.2.tvp"}) {
        Smart_file_name record;
        EXPECT_TRUE(Tilverra_project_directory(File_name(name), 0).get_parameter_filename(record));
        EXPECT_EQ(record, name);
    }
}

TEST_F(Project_directory_test, the_icon_of_a_project_follows_from_its_kind) {
    drives.write("S/Tilverra/project_editor.exe");
    drives.write("a/p/readme.txt");
    TVS::Suite_Directory suite(File_name("C:\\S\\Tilverra\\project_editor.exe"));
    suite_directory = &suite;
    Tilverra_project_directory(File_name("C:\\a\\p.tvp"), 0).write_folder_icon();
    EXPECT_FALSE(exists("a/p/desktop.ini")) << "without an icon";
    for (const char* icon : {"TVSGIS_project_folder.ico", "wmp.ico", "folder_project.ico"})
        drives.write(std::string("S/Icons/") + icon);
    for (const auto& [kind, icon] : {std::pair(0, "folder_project.ico"),
                                     {1, "TVSGIS_project_folder.ico"},
                                     {2, "wmp.ico"},
                                     {3, "folder_project.ico"},
                                     {5, "folder_project.ico"}}) {
        const File_name file("C:\\a\\p.tvp");
        Tilverra_project_directory(file, static_cast<std::uint8_t>(kind)).write_folder_icon();
        const std::string text = drives.read("a/p/desktop.ini");
        EXPECT_EQ(text.find("[.ShellClassInfo]\r\nIconFile=C:\\S\\Icons\\" + std::string(icon)), 0u) << text;
        EXPECT_NE(text.find("IconIndex=0"), std::string::npos) << text;
    }
    suite_directory = nullptr;
}

TEST_F(Project_directory_test, a_scenario_makes_its_folder_and_output_and_moves_to_where_it_stands) {
    const std::string folder = "C:\\a\\p\\Scenarios\\wheat";
    Tilverra_scenario_directory scenario(File_name("C:\\a\\p\\Scenarios\\wheat.tvn"));
    EXPECT_EQ(scenario, folder);
    EXPECT_EQ(platform::current_directory(), "C:\\a\\p\\Scenarios");
    EXPECT_TRUE(exists("a/p/Scenarios/wheat/Output"));
    EXPECT_FALSE(exists("a/p/Scenarios/wheat/CPF"));
    EXPECT_FALSE(scenario.has_output());
    EXPECT_EQ(scenario.root_fraction, folder + "\\Output\\Soil\\Root_fraction.xls");
    EXPECT_EQ(scenario.channel_output, folder + "\\Output\\watershed\\channel");
    EXPECT_EQ(scenario.database, folder + "\\Database");
    Smart_file_name notes;
    scenario.get_notes_filename(notes, false);
    EXPECT_EQ(notes, folder + "\\notes.txt");

    for (const char* file : {"Output/Soil/salinity.xls", "Output/recorded.xeb", "notes.txt"})
        drives.write(std::string("a/p/Scenarios/wheat/") + file);
    EXPECT_TRUE(scenario.has_output());
    EXPECT_TRUE(scenario.clean_outputs());
    EXPECT_FALSE(scenario.has_output());
    EXPECT_TRUE(exists("a/p/Scenarios/wheat/Output/Soil"));
    EXPECT_TRUE(exists("a/p/Scenarios/wheat/notes.txt"));
}

} // namespace
