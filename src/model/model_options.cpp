#include "model/model_options.h"

#include "records/data_record.h"

void Tilverra_model_options::expect_structure(TESK::Data_record& record) {
    make_validation();

    record.set_current_section("simulation");
    record.expect_date("starting_date", starting_date);
    record.expect_date("ending_date", ending_date);

    record.set_current_section("output");
    record.sections.add_alias("output", "simulation");
    record.expect_bool("run_time_graph", run_time_graph);
    record.expect_bool("display_profile", display_profile);
    record.expect_file_name("report_format", report_format, 128);
    record.expect_file_name("options", options, 128);

    expect_submodels(record);

    record.set_current_section("CO2");
    record.expect_bool("enable", simulate_CO2);
    record.expect_float32("annual_CO2_change", annual_CO2_change);
    record.expect_float32("initial_CO2_conc", initial_CO2_conc);

    record.set_current_section("crop_production_function");
    record.expect_bool("water", production_function_water);
    record.expect_uint32("water_percents", production_function_water_percents, 16);
    record.expect_file_name("irrigation_adjustment", irrigation_adjustment, 128);

    record.set_current_section("leaching_observation");
    record.expect_enum("mode", leaching_observation_mode);
    record.expect_valid_float32(*valid_leaching_observation_depth);

    record.set_current_section("optimization_output");
    record.expect_bool("total_grazed_biomass", optimize_total_grazed_biomass);
    record.expect_bool("carbon_sequestered", optimize_carbon_sequestered);
}

void Tilverra_model_options::make_validation() {
    if (valid_PT_constant == nullptr)
        valid_PT_constant = std::make_unique<TESK::Valid_float32>(PT_constant, 0, "PT_constant", 3, 1.26,
                                                                  TESK::Valid_range{1, 1.7, 1, 2}, "1-2",
                                                                  "Priestley-Taylor constant");
    if (valid_leaching_observation_depth == nullptr)
        valid_leaching_observation_depth = std::make_unique<TESK::Valid_float32>(
            leaching_observation_depth, 0, "depth", 2, 0, TESK::Valid_range{0, 10, 0, 100}, "m",
            "Observation depth", "(0.0 indicates bottom of soil profile)");
}

void Tilverra_model_options::expect_submodels(TESK::Data_record& record) {
    record.set_current_section("submodels");
    record.sections.add_alias("submodels", "simulation");
    record.expect_uint32("hourly", hourly, 2);
    record.expect_bool("run_chemical", run_chemical);
    record.expect_bool("run_nitrogen", run_nitrogen);
    record.expect_bool("run_erosion", run_erosion);
    record.expect_bool("run_freezing", run_freezing);
    record.expect_bool("erode_soil", erode_soil);
    record.expect_bool("subdivide_horizons", subdivide_horizons);
    record.expect_bool("constant_organic_matter", constant_organic_matter);
    record.expect_bool("salinity", salinity);
    record.expect_enum("infiltration_model", infiltration_model);
    record.expect_enum("snow_pack_model", snow_pack_model);
    record.expect_enum("organic_matter_and_residue_model", organic_matter_and_residue_model);
    record.expect_enum("runoff_model", runoff_model);
    record.expect_enum("rain_event_distribution", rain_event_distribution);
    record.expect_bool("rainfall_intensity", rainfall_intensity);
    record.expect_bool("CPF_irrigation_disable", CPF_irrigation_disable);
    record.expect_valid_int16(valid_precipitaton_duration);
    record.expect_enum("transpiration_model", transpiration_model);
    record.expect_enum("evapotranspiration_model", evapotranspiration_model);
    record.expect_enum("orchard_interception_model", orchard_interception_model);
    record.expect_valid_float32(*valid_PT_constant);
}
