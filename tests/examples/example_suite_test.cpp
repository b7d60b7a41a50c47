// The example suite as a user gets it: installed by the script, with the stand-ins as real processes.

#include "model/project_editor_parameters.h"
#include "model/tilverra_scenario.h"
#include "platform/files.h"
#include "platform/listing.h"
#include "platform/process.h"
#include "records/vv_file.h"
#include "support/temporary_drives.h"
#include "support/temporary_folder.h"
#include "tables/dbase_data_source.h"
#include "trees/project_directory.h"
#include "trees/scenario_directory.h"
#include "trees/suite_directory.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

const char* const project_file = "C:\\Simulation\\Projects\\Irrigation_study.tvp";
const char* const project_folder = "C:\\Simulation\\Projects\\Irrigation_study";
const char* const suite_folder = "C:\\Program Files\\TVS_suite";

// Runs the script; gives the lines that it prints, none when it fails.
Texts install(const std::string& place, const std::string& build = BUILD_FOLDER) {
    const std::string command = "bash '" INSTALL_EXAMPLE "' '" + place + "' '" + build + "'";
    FILE* const output = popen(command.c_str(), "r");
    Texts lines;
    std::array<char, 1000> line{};
    while (std::fgets(line.data(), line.size(), output) != nullptr) {
        lines.emplace_back(line.data());
        lines.back().pop_back();
    }
    return pclose(output) == 0 ? lines : Texts{};
}

TESK::File_name scenario_file(const std::string& name) {
    return TESK::File_name((std::string(project_folder) + "\\Scenarios\\" + name + ".tvn").c_str());
}

class Example_suite_test : public testing::Test {
protected:
    Example_suite_test() {
        if (installed.size() == 3)
            guard.emplace(installed[0]);
        platform::change_directory(project_folder);
    }
    void SetUp() override { ASSERT_EQ(installed.size(), 3U); }

    static std::string tilverra(const std::string& program) {
        return std::string("\"") + suite_folder + "\\Tilverra\\" + program + ".exe\"";
    }
    // Runs a command line to its end. Gives its exit code, -1 when it could not be started.
    static int run(const std::string& command_line) {
        return platform::launcher().create_and_wait(command_line, 1).value_or(-1);
    }
    static int run_model(const std::string& scenario) {
        return run(tilverra("tilverra_5") + "   \"" + project_file + "\" \"" + scenario + "\" ");
    }
    static std::string read(const std::string& name) { return platform::read_file(name).contents; }
    std::string log() const { return read("C:\\Simulation\\stand_in_log.txt"); }
    std::string in_example(const std::string& path) const { return "my data/drive_c/" + path; }

    Temporary_folder folder;
    Texts installed = install(folder.path("my data"));
    std::optional<platform::Drives_guard> guard;
};

TEST_F(Example_suite_test, the_editor_finds_its_siblings_and_each_says_that_it_is_a_stand_in) {
    const std::string editor = platform::name_from_host_path(installed[1]);
    EXPECT_EQ(editor, std::string(suite_folder) + "\\Tilverra\\project_editor.exe");
    EXPECT_TRUE(platform::is_file(editor));
    TVS::Suite_Directory suite{TESK::File_name(editor.c_str())};
    EXPECT_TRUE(suite.get_explorer_exe().exists() && suite.get_XEB_directory().get_compare_exe().exists());
    EXPECT_TRUE(suite.get_tilverra_directory().get_model_exe().exists());
    std::size_t siblings = 0;
    for (const std::string folder_name : {"", "\\Tilverra", "\\XEB", "\\XEB\\spatial\\interpolation"})
        for (const auto& entry : platform::list_folder(suite_folder + folder_name, "*.exe")) {
            const std::string sibling = suite_folder + folder_name + "\\" + entry.name;
            if (sibling == editor)
                continue;
            ++siblings;
            const int code = run("\"" + sibling + "\"");
            EXPECT_TRUE(code == 0 || code == 2) << sibling << ": " << code;
            EXPECT_NE(log().find("\"" + sibling + "\"\n"), std::string::npos) << sibling;
        }
    EXPECT_GE(siblings, 17U);
    // Started by its own name it stands in for nothing, and leaves no trace.
    const std::string before = log();
    EXPECT_EQ(run("\"Z:" BUILD_FOLDER "/bin/suite_stand_in\""), 2);
    EXPECT_EQ(log(), before);
}

TEST_F(Example_suite_test, a_save_writes_every_record_back_byte_for_byte) {
    const auto expect_unchanged = [](const std::string& file, TESK::Data_record& record) {
        const std::string before = read(file);
        record.set_preserve_unexpected(true);
        EXPECT_TRUE(TESK::VV_file(file.c_str()).get(record)) << file;
        TESK::VV_file(file.c_str()).set(record);
        EXPECT_EQ(read(file), before) << file;
    };
    Tilverra_project_editor_parameters project("");
    expect_unchanged(project_file, project);
    const auto scenarios = platform::list_folder("Scenarios", "*.tvn");
    EXPECT_EQ(scenarios.size(), 5U);
    for (const platform::Folder_entry& entry : scenarios) {
        Tilverra_scenario scenario;
        expect_unchanged("Scenarios\\" + entry.name, scenario);
    }
}

TEST_F(Example_suite_test,
       a_run_leaves_output_of_its_scenario_and_notes_its_command_line_and_runs_are_compared) {
    EXPECT_FALSE(Tilverra_scenario_directory(scenario_file("base")).has_output());
    platform::change_directory(project_folder);
    EXPECT_EQ(run_model("Scenarios\\base.tvn"), 0);
    EXPECT_EQ(log(), std::string("\"") + suite_folder + "\\Tilverra\\tilverra_5.exe\" \"" + project_file +
                         "\" \"Scenarios\\base.tvn\"\n");
    const Tilverra_scenario_directory base(scenario_file("base"));
    EXPECT_TRUE(base.has_output());
    EXPECT_NE(read(base.daily_xeb).find("days=2192\r\ninitial_soil_water=0.2825\r\n"), std::string::npos);
    EXPECT_NE(read(base.season_xeb).find("irrigations=1\r\n"), std::string::npos);
    EXPECT_NE(read(base.annual_xeb).find("1996=366\r\n1997=365\r\n"), std::string::npos);
    EXPECT_NE(read(base.harvest_xeb).find("field_size=12.5000\r\n1=harvest\r\n"), std::string::npos);

    // The format of all runs stands in front of the project; the scenario's options choose the tables.
    platform::change_directory(project_folder);
    EXPECT_EQ(run(tilverra("tilverra_5") + "  \"C:\\a format.fmt\"  \"" + project_file +
                  "\" \"Scenarios\\plateau.tvn\" "),
              0);
    const Tilverra_scenario_directory plateau(scenario_file("plateau"));
    EXPECT_TRUE(plateau.season_xeb.exists());
    EXPECT_FALSE(plateau.daily_xeb.exists());
    EXPECT_EQ(run(tilverra("output_manager_advanced") + " \"plateau\" \"" + plateau.output_directory +
                  "\" \"" + plateau.CPF + "\" \"x.fmt\" "),
              0);

    // A comparison holds the differences.
    platform::change_directory(project_folder);
    ASSERT_EQ(run_model("Scenarios\\rainfed.tvn"), 0);
    const Tilverra_scenario_directory rainfed(scenario_file("rainfed"));
    const Tilverra_scenario_directory result(TESK::File_name(
        "C:\\Simulation\\Projects\\Irrigation_study\\scenario_comparison\\base vs rainfed.tvn"));
    const std::string compare = std::string("\"") + suite_folder + "\\XEB\\compare.exe\" ";
    EXPECT_EQ(run(compare + "\"" + result.season_xeb + "\" \"" + base.season_xeb + "\" \"" +
                  rainfed.season_xeb + "\" "),
              0);
    const std::string season = read(result.season_xeb);
    EXPECT_NE(season.find("irrigations=1.0000\r\nharvests=0.0000\r\n"), std::string::npos);
    EXPECT_NE(season.find("soil=Database\\Soil\\silt loam.sil\r\n"), std::string::npos);
    EXPECT_NE(season.find("deficit irrigation <> Winter wheat, rainfed\r\n"), std::string::npos);
    EXPECT_TRUE(result.has_output());
}

TEST_F(Example_suite_test, polygons_and_optimization_leave_tables_where_the_project_looks_for_them) {
    EXPECT_EQ(run(tilverra("GIS_runner") + "   \"" + project_file + "\" "), 0);
    EXPECT_EQ(run(tilverra("carbon_sequestration_viewer") + "   \"" + project_file + "\" "), 1);
    EXPECT_EQ(run(tilverra("carbon_sequestration_optimizer") + "   \"" + project_file + "\" "), 0);
    EXPECT_EQ(run(tilverra("carbon_sequestration_viewer") + "   \"" + project_file + "\" "), 0);

    Tilverra_project_directory directory(TESK::File_name(project_file), 1);
    TESK::Binary_file_fstream file((directory.get_GIS_directory(false) + "\\GIS_scenarios.dbf").c_str(),
                                   false);
    TESK::dBase_data_source polygons(file);
    ASSERT_TRUE(polygons.goto_first());
    // Twelve in the map, two of them deleted there.
    EXPECT_EQ(polygons.get_header().record_count, 10U);
    EXPECT_EQ(polygons.get_field_text(*polygons.find_field("POLYGON")).substr(0, 4), "100 ");
    EXPECT_EQ(polygons.get_field_text(*polygons.find_field("SOIL")).substr(0, 10), "silt loam ");
    EXPECT_EQ(platform::list_folder(directory.get_aggregation_directory(false), "*.dbf").size(), 1U);
    EXPECT_EQ(platform::list_folder(directory.get_carbon_sequestration_optimization_directory(false)).size(),
              1U);
}

TEST_F(Example_suite_test, what_a_stand_in_cannot_do_ends_with_an_honest_code_and_harms_nothing) {
    const std::string map = in_example("Simulation/Projects/Irrigation_study/Coverage/fields.dbf");
    folder.write(in_example("damaged.tvn"), "[scenario]\nevent:count=32767\n[simulation]\nstarting_date=-9\n"
                                            "ending_date=2147483647\n[event:9]\nID=\0\xFF\n"s);
    folder.write(in_example("no map.tvp"), "[GIS]\ncoverage_PAT_filename=Z:\\dev\\zero\n[recent]\nactive=" +
                                               std::string(project_folder) + "\\Scenarios\\base.tvn\n");
    folder.write(in_example("no map/notes.txt"), "");
    folder.write(
        in_example("over.tvp"),
        "[GIS]\ncoverage_PAT_filename=GIS\\gis_scenarios.dbf\npolygon_ID_attribute=CELL_ID\n[recent]\n"
        "active=" +
            std::string(project_folder) + "\\Scenarios\\base.tvn\n");
    folder.write(in_example("over/GIS/GIS_scenarios.dbf"), folder.read(map));
    const std::pair<std::string, int> cases[] = {
        {tilverra("tilverra_5"), 2},
        {tilverra("tilverra_5") + " x Q:\\a.tvn", 1},
        {tilverra("tilverra_5") + " x Z:\\dev\\zero", 1},
        {tilverra("tilverra_5") + " x C:\\damaged.tvn", 0},
        {tilverra("scenario_editor") + " C:\\no\\such\\folder\\a.tvn", 1},
        {tilverra("output_manager_advanced") + " base C:\\Simulation x y", 1},
        {std::string("\"") + suite_folder + "\\XEB\\compare.exe\" C:\\r.xeb C:\\no.xeb C:\\no.xeb", 1},
        {tilverra("GIS_runner") + " \"C:\\no map.tvp\"", 1},
        {tilverra("GIS_runner") + " C:\\over.tvp", 1},
        {tilverra("carbon_sequestration_optimizer") + " C:\\damaged.tvn", 1},
        {std::string("\"") + suite_folder + "\\TVS_explorer.exe\" C:\\nowhere", 1},
    };
    for (const auto& [command_line, code] : cases)
        EXPECT_EQ(run(command_line), code) << command_line;
    EXPECT_EQ(folder.read(in_example("over/GIS/GIS_scenarios.dbf")), folder.read(map));
    EXPECT_FALSE(platform::exists("C:\\r.xeb"));
}

TEST_F(Example_suite_test, installing_again_leaves_what_the_user_has_made_of_it) {
    const std::string scenarios = in_example("Simulation/Projects/Irrigation_study/Scenarios/");
    const std::string suite = in_example("Program Files/TVS_suite/");
    folder.write(scenarios + "base.tvn", "changed");
    std::filesystem::remove(folder.path(scenarios + "rainfed.tvn"));
    std::filesystem::remove(folder.path(suite + "XEB/compare.exe"));
    folder.write(suite + "XEB/compare.exe", "a real program");
    const auto relink = [&](const std::string& program, const std::string& target) {
        std::filesystem::remove(folder.path(suite + program));
        std::filesystem::create_symlink(target, folder.path(suite + program));
    };
    relink("Tilverra/tilverra_5.exe", "/opt/the model");
    relink("Tilverra/GIS_runner.exe", "/an earlier build/suite_stand_in");
    std::filesystem::remove(folder.path(suite + "TVS_suite.exe"));

    EXPECT_EQ(install(folder.path("my data")), installed);
    EXPECT_EQ(folder.read(scenarios + "base.tvn"), "changed");
    EXPECT_FALSE(folder.has(scenarios + "rainfed.tvn"));
    EXPECT_EQ(folder.read(suite + "XEB/compare.exe"), "a real program");
    EXPECT_EQ(std::filesystem::read_symlink(folder.path(suite + "Tilverra/tilverra_5.exe")),
              "/opt/the model");
    for (const char* program : {"TVS_suite.exe", "Tilverra/GIS_runner.exe"})
        EXPECT_EQ(std::filesystem::read_symlink(folder.path(suite + program)),
                  BUILD_FOLDER "/bin/suite_stand_in");

    // Without the programs nothing is installed.
    EXPECT_EQ(install(folder.path("elsewhere"), folder.path()), Texts{});
    EXPECT_FALSE(folder.has("elsewhere/drive_c"));
}

} // namespace
