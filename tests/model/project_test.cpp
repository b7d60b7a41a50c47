#include "model/project_editor_parameters.h"

#include "model/simulation_paths.h"
#include "records/vv_file.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

#include <sstream>

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
    // The lines of one section of a file.
    static std::vector<std::string> section(const std::string& text, const std::string& name) {
        std::istringstream in(text);
        std::vector<std::string> lines;
        bool inside = false;
        for (std::string line; std::getline(in, line);) {
            line.pop_back();
            if (line.front() == '[')
                inside = line == "[" + name + "]";
            else if (inside)
                lines.push_back(line);
        }
        return lines;
    }

    Temporary_drives drives;
};

TEST_F(Project_test, a_new_project_is_written_in_the_order_that_the_suite_reads) {
    Tilverra_project_editor_parameters project(model_exe);
    const std::string text = save(project);
    std::istringstream in(text);
    std::string headers;
    for (std::string line; std::getline(in, line);)
        if (line.front() == '[')
            headers += line.substr(0, line.size() - 1);
    EXPECT_EQ(headers, "[project][version][recent][STATSGO][output][analysis][growing_season_statistics]"
                       "[annual_statistics][GIS][GIS_growing_season_statistics][GIS_annual_statistics]"
                       "[crop_production_function][carbon_sequestration_and_grazing_regimens]");
    EXPECT_EQ(section(text, "project"),
              (std::vector<std::string>{"details_URL=", "description=", "type=Tilverra",
                                        std::string("cropping_system_model=") + model_exe,
                                        "template_scenario=Scenarios\\default.tvn"}));
    EXPECT_EQ(section(text, "recent"), (std::vector<std::string>{"active=Scenarios\\default.tvn"}));
    EXPECT_EQ(section(text, "STATSGO"),
              (std::vector<std::string>{
                  "path=\\Simulation\\Database\\STATSGO", "max_capability_class=4 Soil capability class",
                  "dryland=true", "combine_similar_sequences=true",
                  "max_evap_layer_thickness=0.0500000007 Maximum evaporative layer thickness"}));
    EXPECT_EQ(section(text, "analysis"), (std::vector<std::string>{"statistical=false", "brevanti=false"}));
    EXPECT_EQ(section(text, "output"), (std::vector<std::string>{"report_format=default.FMT"}));
    const auto gis = section(text, "GIS");
    ASSERT_EQ(gis.size(), 25U);
    EXPECT_EQ(gis[0], "subsurface_flow=false");
    EXPECT_EQ(gis[2], "coverage_PAT_filename=Coverage polygon attribute table (required).dbf");
    EXPECT_EQ(gis[6], "uniform_soil_proile_mapped=false");
    EXPECT_EQ(gis.back(), "equilibriate_years=0");
    const auto carbon = section(text, "carbon_sequestration_and_grazing_regimens");
    ASSERT_EQ(carbon.size(), 17U);
    EXPECT_EQ(carbon.front(), "pasture_size=500.0000000000 Pasture size");
    EXPECT_EQ(carbon[6], "begin_grazing=30 Begin grazing after emergence (delay)");
    EXPECT_EQ(carbon.back(), "contingency=not_viable");
    for (const char* list : {"growing_season_statistics", "GIS_growing_season_statistics"})
        EXPECT_EQ(section(text, list).size(), 91U);
    for (const char* list : {"annual_statistics", "GIS_annual_statistics"})
        EXPECT_EQ(section(text, list).size(), 43U);
    EXPECT_EQ(section(text, "growing_season_statistics").back(), "90=0");
}

TEST_F(Project_test, the_lists_of_statistics_share_words_and_the_last_value_of_a_file_stands) {
    const auto shared = read("[growing_season_statistics]\n90=1\n[annual_statistics]\n0=2\n42=7\n");
    EXPECT_EQ(shared->annual_statistics()[0], 2U);
    EXPECT_EQ(shared->growing_season_statistics()[90], 2U);
    EXPECT_EQ(read("[annual_statistics]\n0=2\n[growing_season_statistics]\n90=1\n")->annual_statistics()[0],
              1U);
    EXPECT_EQ(read("[growing_season_statistics]\n5=a\n[GIS_growing_season_statistics]\n5=b\n")
                  ->growing_season_statistics()[5],
              0xBU);
    const std::string text = save(*shared);
    EXPECT_EQ(section(text, "annual_statistics").back(), "42=7");
    EXPECT_EQ(section(text, "GIS_annual_statistics").front(), "0=2");
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
    EXPECT_EQ(section(save(*project), "growing_season_statistics")[3], "3=402c01");
}

TEST_F(Project_test, values_are_judged_by_the_ranges_of_their_parameters) {
    Tilverra_project_editor_parameters project(model_exe);
    GIS_Project_parameters& gis = project.GIS_parameters;
    auto& carbon = project.carbon_sequestration;
    struct Case {
        TESK::Valid_int16& valid;
        std::int16_t good;
        std::int16_t warning;
        std::int16_t error;
    };
    const Case cases[] = {{gis.valid_equilibriate_years, 5, 6, 11},
                          {carbon.valid_step_stocking_rate, 1000, 1001, 0},
                          {carbon.valid_begin_grazing, 365, 366, 0}};
    std::string message;
    for (const Case& c : cases) {
        c.valid.value = c.good;
        EXPECT_EQ(c.valid.validate(message, false), TESK::Validation_status::good) << c.valid.key;
        c.valid.value = c.warning;
        EXPECT_EQ(c.valid.validate(message, false), TESK::Validation_status::warning_high) << c.valid.key;
        c.valid.value = c.error;
        EXPECT_TRUE(c.valid.validate(message, false) <= TESK::Validation_status::error_high) << c.valid.key;
    }
    carbon.pasture_size = 0.5F;
    EXPECT_EQ(carbon.valid_pasture_size.validate(message, false), TESK::Validation_status::warning_low);
    carbon.reserve_biomass = 30001;
    EXPECT_EQ(carbon.valid_reserve_biomass.validate(message, false), TESK::Validation_status::error_high);
}

TEST_F(Project_test, a_project_file_keeps_its_values_and_what_other_programs_wrote) {
    std::filesystem::copy_file(TEST_DATA "/irrigation_study.tvp", drives.host("p.tvp"));
    Tilverra_project_editor_parameters project(model_exe);
    project.set_preserve_unexpected(true);
    ASSERT_TRUE(VV_file("C:\\p.tvp").get(project));
    EXPECT_EQ(project.description, "Irrigation study, Ca\xF1"
                                   "ada del R\xED"
                                   "o (18 \xB0"
                                   "C mean)");
    EXPECT_EQ(project.active_scenario, "Scenarios\\base.tvn");
    EXPECT_EQ(project.cropping_system_model, "C:\\TVS\\Tilverra\\tilverra_5.exe");
    EXPECT_TRUE(project.statistical_analysis);
    EXPECT_EQ(project.GIS_parameters.coverage_PAT_filename, "GIS\\fields.dbf");
    EXPECT_TRUE(project.GIS_parameters.soils_mapped);
    EXPECT_EQ(project.growing_season_tally.statistics[1], 0x3FFU);
    const std::string once = save(project);
    EXPECT_EQ(section(once, "written by another program"),
              (std::vector<std::string>{"window=120,80,900,700", "=a bare line of text",
                                        "key = value with blanks around the sign"}));
    EXPECT_EQ(section(once, "GUI"), (std::vector<std::string>{"colour=teal"}));
    EXPECT_EQ(section(once, "growing_season_statistics")[0], "0=c00");
    Tilverra_project_editor_parameters again(model_exe);
    again.set_preserve_unexpected(true);
    ASSERT_TRUE(VV_file("C:\\p.tvp").get(again));
    EXPECT_EQ(save(again), once);
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
    EXPECT_EQ(*paths, "C:\\Simulation");
    EXPECT_EQ(paths->projects_directory, "C:\\Simulation\\Projects");
    paths->save();
    EXPECT_EQ(drives.read("Suite/TVS_suite.ini"),
              "[TVS_suite]\r\ndetails_URL=\r\ndescription=\r\nmaster_simulation_directory=C:\\Simulation\r\n"
              "[version]\r\nmajor=4\r\nrelease=14\r\nminor=4\r\n");
}

TEST_F(Simulation_paths_test, the_file_tells_the_directory_and_keeps_what_others_wrote_into_it) {
    drives.write("Suite/TVS_suite.ini", "[TVS_suite]\nmaster_simulation_directory=D:\\Work\n[other]\nk=v\n");
    const auto paths = setup();
    EXPECT_EQ(*paths, "D:\\Work");
    EXPECT_EQ(paths->projects_directory, "D:\\Work\\Projects");
    paths->save();
    EXPECT_NE(drives.read("Suite/TVS_suite.ini").find("[other]\r\nk=v\r\n"), std::string::npos);
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
