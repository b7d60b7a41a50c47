#include "model/carbon_sequestration_parameters.h"

void Carbon_sequestration_optimization_parameters::expect_structure(TESK::Data_record& record) {
    record.set_current_section("carbon_sequestration_and_grazing_regimens");
    record.expect_valid_float32(valid_pasture_size);
    record.expect_valid_int16(valid_max_plots);
    record.expect_valid_int16(valid_step_plots);
    record.expect_valid_int16(valid_min_stocking_rate);
    record.expect_valid_int16(valid_max_stocking_rate);
    record.expect_valid_int16(valid_step_stocking_rate);
    record.expect_valid_int16(valid_begin_grazing);
    record.expect_valid_int16(valid_max_duration);
    record.expect_valid_int16(valid_step_duration);
    record.expect_valid_int16(valid_grazing_season_duration);
    record.expect_valid_int16(valid_max_recovery_days);
    record.expect_valid_float32(valid_dry_matter_requirements);
    record.expect_valid_float32(valid_reserve_biomass);
    record.expect_valid_int16(valid_biomass_return_to_field);
    record.expect_valid_int16(valid_percent_N_as_OM);
    record.expect_valid_int16(valid_percent_N_as_NH3);
    record.expect_enum("contingency", contingency);
}
