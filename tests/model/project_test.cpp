#include "model/project_editor_parameters.h"

#include "model/simulation_paths.h"
#include "scenario_support.h"
#include "support/temporary_drives.h"

using TESK::VV_file;

namespace {

constexpr const char* model_exe = "C:\\Suite\\Tilverra\\tilverra_5.exe";

class Project_test : public testing::Test {
protected:
    std::string save(Tilverra_project_editor_parameters& project, const std::string& name = "p.tvp") {
        VV_file file(("C:\\" + name).c_str());
        EXPECT_TRUE(file.set(project) && file.get_last_write().ok());
        return drives.read(name);
    }
    std::unique_ptr<Tilverra_project_editor_parameters> read(const std::string& text) {
        drives.write("p.tvp", text);
        auto project = std::make_unique<Tilverra_project_editor_parameters>(model_exe);
        EXPECT_TRUE(VV_file("C:\\p.tvp").get(*project));
        return project;
    }

    Temporary_drives drives;
};

TEST_F(Project_test, a_new_project_is_this_file_byte_for_byte) {
    Tilverra_project_editor_parameters project(model_exe);
    EXPECT_EQ(save(project), contents("new_project.tvp"));
}

TEST_F(Project_test, the_lists_of_statistics_share_words_and_the_last_value_of_a_file_stands) {
    const auto shared = read("[growing_season_statistics]\n90=1\n[annual_statistics]\n0=2\n42=7\n");
    EXPECT_EQ(shared->annual_statistics()[0], 2U);
    EXPECT_EQ(shared->growing_season_statistics()[90], 2U);
    const auto other = read("[annual_statistics]\n0=2\n[growing_season_statistics]\n90=1\n5=a\n"
                            "[GIS_growing_season_statistics]\n5=b\n");
    EXPECT_EQ(other->annual_statistics()[0], 1U);
    EXPECT_EQ(other->growing_season_statistics()[5], 0xBU);
    const std::string text = save(*shared);
    EXPECT_TRUE(has(section(text, "annual_statistics"), "42=7"));
    EXPECT_TRUE(has(section(text, "GIS_annual_statistics"), "0=2"));
}

TEST_F(Project_test, tallies_are_packed_into_the_words_and_unpacked_from_them) {
    const auto project = read("[growing_season_statistics]\n3=ffc00c01\n[annual_statistics]\n41=003ff3ff\n");
    EXPECT_EQ(project->growing_season_tally.statistics[3], 1U);
    EXPECT_EQ(project->growing_season_tally.prob10[3], 0U);
    EXPECT_EQ(project->growing_season_tally.prob5[3], 0x3FFU);
    EXPECT_EQ(project->annual_tally.statistics[41], 0x3FFU);
    EXPECT_EQ(project->annual_tally.prob10[41], 0x3FFU);
    EXPECT_EQ(project->annual_tally.prob5[41], 0U);
    project->growing_season_tally.prob10[3] = 2;
    project->growing_season_tally.prob5[3] = 1;
    // The two bits between the sets mean nothing here, and stay.
    EXPECT_TRUE(has(section(save(*project), "growing_season_statistics"), "3=402c01"));
}

TEST_F(Project_test, a_project_file_keeps_its_values_and_what_other_programs_wrote) {
    std::filesystem::copy_file(TEST_DATA "/irrigation_study.tvp", drives.host("p.tvp"));
    std::string once;
    for (int i = 0; i < 2; ++i) {
        Tilverra_project_editor_parameters project(model_exe);
        project.set_preserve_unexpected(true);
        ASSERT_TRUE(VV_file("C:\\p.tvp").get(project));
        EXPECT_EQ(project.description, "Irrigation study, Ca\361ada del R\355o (18 \260C mean)");
        EXPECT_EQ(project.GIS_parameters.coverage_PAT_filename, "GIS\\fields.dbf");
        EXPECT_EQ(project.growing_season_tally.statistics[1], 0x3FFU);
        const std::string text = save(project);
        EXPECT_TRUE(once.empty() || once == text);
        once = text;
    }
    EXPECT_EQ(section(once, "written by another program"),
              "[written by another program]\r\nwindow=120,80,900,700\r\n=a bare line of text\r\n"
              "key = value with blanks around the sign\r\n");
    EXPECT_EQ(section(once, "GUI"), "[GUI]\r\ncolour=teal\r\n");
    EXPECT_TRUE(has(section(once, "growing_season_statistics"), "0=c00"));
}

class Simulation_paths_test : public Project_test {
protected:
    std::unique_ptr<Simulation_paths> setup() {
        return Simulation_paths::setup(4, 14, 4, "TVS_suite", TESK::Directory_name("C:\\Suite"),
                                       TESK::Directory_name("C:\\user"));
    }
};

TEST_F(Simulation_paths_test, without_a_file_the_defaults_stand_and_a_file_is_written_at_the_end) {
    drives.write("Suite/TVS_suite.exe");
    const auto paths = setup();
    EXPECT_EQ(paths->projects_directory, "C:\\Simulation\\Projects");
    paths->save();
    EXPECT_EQ(drives.read("Suite/TVS_suite.ini"),
              "[TVS_suite]\r\ndetails_URL=\r\ndescription=\r\nmaster_simulation_directory=C:\\Simulation\r\n"
              "[version]\r\nmajor=4\r\nrelease=14\r\nminor=4\r\n");
}

TEST_F(Simulation_paths_test, where_the_suite_cannot_be_written_the_user_has_a_file_which_is_read_first) {
    drives.write("Suite/TVS_suite.ini", "[TVS_suite]\nmaster_simulation_directory=D:\\Shared\n");
    std::filesystem::permissions(drives.host("Suite"), std::filesystem::perms(0555));
    const auto first = setup();
    EXPECT_EQ(*first, "D:\\Shared");
    first->parameters.master_simulation_directory = "D:\\Mine";
    first->save();
    EXPECT_EQ(*setup(), "D:\\Mine");
    EXPECT_NE(drives.read("Suite/TVS_suite.ini").find("Shared"), std::string::npos);

    // What can no longer be read is not replaced by what the suite's file says.
    const std::uintmax_t too_large = VV_file::largest_file + 1;
    std::filesystem::resize_file(drives.host("user/TVS_suite.ini"), too_large);
    setup()->save();
    EXPECT_EQ(std::filesystem::file_size(drives.host("user/TVS_suite.ini")), too_large);
    std::filesystem::permissions(drives.host("Suite"), std::filesystem::perms(0755));
}

} // namespace
