#include "model/tilverra_scenario.h"

#include <cmath>

namespace {

constexpr Record_version scenario_version{4, 14, 4};

// Unit codes of the quantities that stand by layers.
constexpr std::uint32_t percent_code = 3;
constexpr std::uint32_t kilogram_per_square_meter_code = 0x28800603;
constexpr std::uint32_t kilogram_per_hectare_code = 0x2a820603;

constexpr std::uint16_t file_name_length = 128;

// After how many whole days half of the residue is left, when a day takes 1/decomposition_time of it. When a
// day takes all of it the logarithm of 0 makes that 0.
std::int16_t half_life(std::int16_t decomposition_time) {
    return static_cast<std::int16_t>(-std::log(0.5) / -std::log(1 - 1.0 / decomposition_time));
}

} // namespace

TESK::Valid_float32& Valid_soil_layers::operator[](int layer) {
    for (int made = static_cast<int>(layers_.size()) + 1; made <= soil_layers; ++made)
        layers_.emplace_back(values_[made], 0, std::to_string(made).c_str(), 3, 0, range_, unit_, caption_);
    return layers_[layer - 1];
}

Tilverra_scenario::Tilverra_scenario() : Common_scenario(scenario_version) {}

void Tilverra_scenario::expect_structure(bool for_write) {
    Common_scenario::expect_structure(for_write);

    expect_files_and_crop();
    model_options->expect_structure(*this);
    expect_water();
    expect_residue_and_manure();
    expect_salt_and_nitrogen();
    expect_organic_matter();
    expect_site();
}

void Tilverra_scenario::expect_files_and_crop() {
    set_current_section("parameter_filenames");
    expect_int32("SOIL_ID", SOIL_ID);
    expect_int32("LOC_ID", LOC_ID);
    expect_int32("ROT_ID", ROT_ID);
    expect_int32("LBF_ID", LBF_ID);
    expect_int32("LBF_INIT_ID", LBF_INIT_ID);
    expect_file_name("soil", soil, file_name_length);
    expect_file_name("location", location, file_name_length);
    expect_file_name("weather_database", weather_database, file_name_length);
    expect_file_name("rotation", rotation, file_name_length);
    expect_file_name("management", management, file_name_length);
    expect_file_name("fixed_management", management, file_name_length);
    expect_file_name("recalibration", recalibration, file_name_length);
    expect_file_name("water_table", water_table, file_name_length);

    set_current_section("cropping_system");
    expect_enum("cropping_mode", cropping_mode);
    expect_file_name("rotation", rotation, file_name_length);
    expect_date("sowing_date", sowing_date);
    expect_file_name("crop", crop, file_name_length);
    expect_file_name("management", crop_management, file_name_length);
}

void Tilverra_scenario::expect_water() {
    set_current_section("H2O");
    expect_date("recalibrate_date", H2O_recalibrate_date);
    expect_float32_array_with_units_label("H2O", "m H2O/m soil", H2O.data(), 1, soil_layers, false);
}

void Tilverra_scenario::expect_residue_and_manure() {
    set_current_section("initial_residue");
    expect_bool("reset_residue", residue.reset_residue);
    expect_valid_float32(residue.valid_stubble_biomass);
    expect_valid_float32(residue.valid_surface_biomass);
    expect_valid_float32(residue.valid_incorporated_biomass);
    set_entry_alias("surface_residue", "surface_biomass");
    set_entry_alias("incorporated_residue", "incorporated_biomass");

    set_current_section("incorporated_residue");
    sections.add_alias("initialize", "initial_residue");
    expect_float32_array_with_units_code("incorporated_residue", kilogram_per_square_meter_code,
                                         residue.incorporated_layers.data(), 1, soil_layers, false);
    expect_float32("water_hold", residue.water_hold);
    expect_valid_float32(residue.valid_N_conc);
    expect_valid_int16(residue.valid_decomposition_time);
    expect_valid_int16(residue.valid_decomposition_time_50);
    expect_file_name("previous_crop", residue.previous_crop, file_name_length);

    set_current_section("initial_manure");
    expect_valid_float32(manure.valid_surface_biomass);
    expect_valid_float32(manure.valid_incorporated_biomass);
    expect_float32("water_hold", residue.water_hold);
    expect_valid_float32(manure.valid_N_conc);
    expect_valid_int16(manure.valid_decomposition_time);
    expect_valid_int16(manure.valid_decomposition_time_50);
}

void Tilverra_scenario::expect_salt_and_nitrogen() {
    set_current_section("salt");
    expect_valid_float32(valid_water_table_salinity);
    expect_valid_float32(valid_ECe_to_TDS);
    expect_valid_float32(valid_ECw_to_TDS);
    expect_float32_array_with_units_label("salt", "dS/m", salt.data(), 1, soil_layers, false);

    set_current_section("adjustment");
    expect_valid_float32(valid_max_transform_depth);
    expect_valid_float32(valid_adjust_mineralize);

    set_current_section("NO3");
    expect_float32("adjust_denitrify", adjust_denitrify);
    expect_date("recalibrate_date", NO3_recalibrate_date);
    expect_float32_array_with_units_code("NO3", kilogram_per_hectare_code, NO3.data(), 1, soil_layers, false);
    expect_valid_float32(valid_water_table_NO3_N);

    set_current_section("NH4");
    expect_float32("adjust_nitrify", adjust_nitrify);
    expect_date("recalibrate_date", NH4_recalibrate_date);
    expect_float32_array_with_units_code("NH4", kilogram_per_hectare_code, NH4.data(), 1, soil_layers, false);
    expect_valid_float32(valid_water_table_NH4_N);
}

void Tilverra_scenario::expect_organic_matter() {
    set_current_section("%OM");
    expect_date("recalibrate_date", OM_recalibrate_date);
    expect_float32_array_with_units_code("%OM", percent_code, OM.data(), 1, soil_layers, false);
    expect_bool("get_OM_from_soil_DS", get_OM_from_soil_DS);

    organic_matter.expect_structure(*this);
    decomposition.expect_structure(*this);
}

void Tilverra_scenario::expect_site() {
    set_current_section("topography");
    expect_float64("aspect", aspect);

    set_current_section("STATSGO");
    expect_string("muid", muid, 7);
    expect_valid_int16(valid_seqnum);

    set_current_section("field");
    expect_int16("number", field_number);
    expect_float32("size", field_size, " ha");

    set_current_section("weather");
    expect_valid_float32(valid_temperature_avg);
    expect_valid_float32(valid_temperature_amplitude_avg);
    expect_valid_int16(valid_temperature_phase);

    expect_float32_array_with_units_label("mean_peak_rainfall", "mm", mean_peak_rainfall.data(), 1, 12,
                                          false);

    set_current_section("GUI");
    expect_bool("show_location_simulation_period_comment", show_location_simulation_period_comment);
}

void Tilverra_scenario::attach_guards() {
    const auto guard = [this](const char* section, const std::string& key, const TESK::Valid_number& valid) {
        if (auto* found = static_cast<TESK::VV_section*>(sections.find_exact(section)))
            if (TESK::VV_base_entry* entry = found->find_entry(key))
                entry->guard = &valid;
    };
    struct Layers {
        const char* section;
        Valid_soil_layers& valid;
    };
    for (const Layers& quantity :
         {Layers{"H2O", valid_H2O}, Layers{"NO3", valid_NO3}, Layers{"NH4", valid_NH4},
          Layers{"%OM", valid_OM}, Layers{"salt", valid_salt}})
        for (int layer = 1; layer <= soil_layers; ++layer)
            guard(quantity.section, quantity.valid[layer].key, quantity.valid[layer]);
    guard("NO3", "adjust_denitrify", valid_adjust_denitrify);
    guard("NH4", "adjust_nitrify", valid_adjust_nitrify);
    guard("CO2", "annual_CO2_change", model_options->valid_annual_CO2_change);
    guard("CO2", "initial_CO2_conc", model_options->valid_initial_CO2_conc);
}

void Tilverra_scenario::postread() {
    Tilverra_model_options& options = *model_options;
    if (options.runoff_model != Runoff_model::numerical)
        options.rainfall_intensity = false;
    if (options.leaching_observation_mode == Leaching_observation_depth_mode::specified &&
        options.runoff_model == Runoff_model::numerical)
        options.leaching_observation_mode = Leaching_observation_depth_mode::bottom;
    if (residue.decomposition_time_50 == 0 && residue.decomposition_time > 0)
        residue.decomposition_time_50 = half_life(residue.decomposition_time);
    if (cropping_mode == Cropping_system_mode::none && rotation.exists())
        cropping_mode = Cropping_system_mode::rotation;
    Common_scenario::postread();
}

std::string Tilverra_scenario::describe_operation(const Common_event& event) const {
    Tilverra_Op_labeled kind;
    kind.set_label(event.operation_type.c_str());
    return kind.get_description();
}
