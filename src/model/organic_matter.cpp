#include "model/organic_matter.h"

#include "records/data_record.h"

void Organic_matter_partitioning::expect_structure(TESK::Data_record& record) {
    constexpr std::uint32_t percent = 3;
    record.set_current_section("organic_matter_initialization");
    record.expect_float32_array_with_units_code("microbial_biomass", percent, microbial_biomass.data(), 1,
                                                soil_layers, false);
    record.expect_float32_array_with_units_code("labile_SOM", percent, labile_SOM.data(), 1, soil_layers,
                                                false);
    record.expect_float32_array_with_units_code("metastable_SOM", percent, metastable_SOM.data(), 1,
                                                soil_layers, false);
    record.expect_float32_array_with_units_code("passive_SOM", percent, passive_SOM.data(), 1, soil_layers,
                                                false);

    record.set_current_section("organic_matter_history");
    record.expect_enum("partitioning_mode", partitioning_mode);
    record.expect_valid_float32(valid_active_SOM_protected);
}

void Organic_matter_decomposition_parameters::expect_structure(TESK::Data_record& record) {
    record.set_current_section("organic_matter_decomposition");
    record.expect_valid_float32(valid_microbial_biomass_decomposition_constant);
    record.expect_valid_float32(valid_labile_SOM_decomposition_constant);
    record.expect_valid_float32(valid_metastable_SOM_decomposition_constant);
    record.expect_valid_float32(valid_passive_SOM_decomposition_constant);
    record.expect_valid_float32(valid_microbial_CN_ratio);
    record.expect_valid_float32(valid_labile_active_SOM_CN_ratio);
    record.expect_valid_float32(valid_metastable_active_SOM_CN_ratio);
    record.expect_valid_float32(valid_passive_SOM_CN_ratio);
    record.expect_valid_float32(valid_max_apparent_soil_C_decomposition_const);
    record.expect_valid_float32(valid_max_residue_decomposition_const);
    record.expect_valid_float32(valid_C_fraction_from_labile_to_passive_SOM);
    record.expect_valid_float32(valid_C_fraction_from_metastable_to_passive_SOM);
}
