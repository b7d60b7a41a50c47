// What a project tells of its runs over the polygons of a map. It adds its keys to the project's record.
#pragma once

#include "names/typed_filenames.h"
#include "records/data_record.h"
#include "records/validation.h"

#include <cstdint>

// A "mapped" flag says that the attribute beside it, a column of the polygon attribute table, supplies that
// parameter for each polygon.
class GIS_Project_parameters {
public:
    // Declares the keys in the sections GIS, analysis and STATSGO.
    void expect_structure(TESK::Data_record& record);

    TESK::Ustring output_directory = "GIS";
    PAT_filename coverage_PAT_filename{"Coverage polygon attribute table (required).dbf"};
    TESK::Ustring polygon_ID_attribute = "cell_ID";
    bool soils_mapped = false;
    TESK::Ustring soil_attribute;
    bool uniform_soil_proile_mapped = false;
    TESK::Ustring uniform_sand_attribute;
    TESK::Ustring uniform_clay_attribute;
    TESK::Ustring soil_depth_attribute;
    bool weather_mapped = false;
    TESK::Ustring weather_attribute;
    bool rotations_mapped = false;
    TESK::Ustring rotation_attribute;
    bool recalibration_mapped = false;
    TESK::Ustring recalibration_attribute = "recalibration";
    bool water_table_mapped = false;
    TESK::Ustring water_table_attribute = "water_table";
    bool steepness_mapped = false;
    TESK::Ustring steepness_attribute;
    bool init_PAW_mapped = false;
    TESK::Ustring init_PAW_attribute;
    bool init_NO3_mapped = false;
    TESK::Ustring init_NO3_attribute;
    std::int16_t equilibriate_years = 0;
    bool brevanti = false;
    bool separate_crops = true; // in no file
    std::int16_t max_capability_class = 4;
    bool dryland = true;
    bool combine_similar_sequences = true;
    float max_evap_layer_thickness = 0.05F;

    TESK::Valid_int16 valid_equilibriate_years =
        TESK::Valid_int16(equilibriate_years, "equilibriate_years", 0, {0, 5, 0, 10}, nullptr, nullptr);
    TESK::Valid_int16 valid_max_capability_class = TESK::Valid_int16(
        max_capability_class, "max_capability_class", 4, {1, 8, 1, 8}, "class", "Soil capability class");
    TESK::Valid_float32 valid_max_evap_layer_thickness =
        TESK::Valid_float32(max_evap_layer_thickness, 0x2000, "max_evap_layer_thickness", 2, 0.05,
                            {0, 1, 0, 3}, "m", "Maximum evaporative layer thickness");
};
