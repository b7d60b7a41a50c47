#include "model/gis_project_parameters.h"

void GIS_Project_parameters::expect_structure(TESK::Data_record& record) {
    record.set_current_section("GIS");
    record.expect_string("output_directory", output_directory, 255);
    record.expect_file_name("coverage_PAT_filename", coverage_PAT_filename, 128);
    record.expect_string("polygon_ID_attribute", polygon_ID_attribute, 10);
    record.expect_bool("soils_mapped", soils_mapped);
    record.expect_string("soil_attribute", soil_attribute, 12);
    record.expect_bool("uniform_soil_proile_mapped", uniform_soil_proile_mapped);
    record.expect_string("uniform_sand_attribute", uniform_sand_attribute, 12);
    record.expect_string("uniform_clay_attribute", uniform_clay_attribute, 12);
    record.expect_string("soil_depth_attribute", soil_depth_attribute, 12);
    record.expect_bool("weather_mapped", weather_mapped);
    record.expect_string("weather_attribute", weather_attribute, 12);
    record.expect_bool("rotations_mapped", rotations_mapped);
    record.expect_string("rotation_attribute", rotation_attribute, 12);
    record.expect_bool("recalibration_mapped", recalibration_mapped);
    record.expect_string("recalibration_attribute", recalibration_attribute, 12);
    record.expect_bool("water_table_mapped", water_table_mapped);
    record.expect_string("water_table_attribute", water_table_attribute, 12);
    record.expect_bool("steepness_mapped", steepness_mapped);
    record.expect_string("steepness_attribute", steepness_attribute, 12);
    record.expect_bool("init_PAW_mapped", init_PAW_mapped);
    record.expect_string("init_PAW_attribute", init_PAW_attribute, 12);
    record.expect_bool("init_NO3_mapped", init_NO3_mapped);
    record.expect_string("init_NO3_attribute", init_NO3_attribute, 12);
    record.expect_valid_int16(valid_equilibriate_years);
    record.set_current_section("analysis");
    record.expect_bool("brevanti", brevanti);
    record.set_current_section("STATSGO");
    record.expect_valid_int16(valid_max_capability_class);
    record.expect_bool("dryland", dryland);
    record.expect_bool("combine_similar_sequences", combine_similar_sequences);
    record.expect_valid_float32(valid_max_evap_layer_thickness);
}
