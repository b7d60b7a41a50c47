#include "model/project.h"

#include "names/directory_name.h"

namespace {

constexpr std::uint8_t project_parameter_type = 2;
constexpr Record_version project_version{4, 14, 4};
constexpr std::uint8_t hexadecimal = 16;

} // namespace

Common_project_parameters::Common_project_parameters()
    : Common_parameters_data_record(project_parameter_type, project_version, "project"),
      active_scenario("default.tvn") {
    active_scenario.set_path(TESK::Directory_name("Scenarios"));
}

void Common_project_parameters::expect_structure(bool for_write) {
    Common_parameters_data_record::expect_structure(for_write);
    set_current_section("recent");
    expect_file_name("active", active_scenario, 128);
}

Tilverra_project::Tilverra_project() = default;

void Tilverra_project::expect_structure(bool for_write) {
    Common_project_parameters::expect_structure(for_write);
    make_primary_section_current();
    expect_enum("type", project_type);
    set_current_section("STATSGO");
    expect_string("path", STATSGO_path, 255);
    set_current_section("output");
    expect_file_name("report_format", report_format, 128);
    set_current_section("analysis");
    expect_bool("statistical", statistical_analysis);
    expect_uint32_array("growing_season_statistics", growing_season_statistics(), 0, growing_season_variables,
                        hexadecimal, false);
    expect_uint32_array("annual_statistics", annual_statistics(), 0, annual_variables, hexadecimal, false);
    // A second name of the same words, behind the section that the editor's record fills: of two values in a
    // file the one further down stands.
    set_current_section("GIS");
    expect_uint32_array("GIS_growing_season_statistics", growing_season_statistics(), 0,
                        growing_season_variables, hexadecimal, false);
    expect_uint32_array("GIS_annual_statistics", annual_statistics(), 0, annual_variables, hexadecimal,
                        false);
}
