// What a simulation is to do: its period, the submodels that run, which variant each one uses, and what is
// put out.
#pragma once

#include "model/labels.h"
#include "names/typed_filenames.h"
#include "records/validation.h"
#include "temporal/date.h"

#include <cstdint>
#include <memory>

namespace TESK {
class Data_record;
}

inline constexpr const char* infiltration_model_labels[] = {"no_infiltration", "cascade",       "finite_diff",
                                                            "cascade_hourly",  "no_limitation", nullptr};
using Infiltration_model_labeled = Labeled<infiltration_model_labels>;

inline constexpr const char* snow_pack_model_labels[] = {"none", "simple", "energy", nullptr};
using Snow_pack_model_labeled = Labeled<snow_pack_model_labels>;

inline constexpr const char* organic_matter_and_residue_model_labels[] = {"none", "V4.9", "V4.4", "V4.1",
                                                                          "V4.2", "V4.3", nullptr};
using Organic_matter_and_residue_model_labeled = Labeled<organic_matter_and_residue_model_labels>;

enum class Runoff_model : std::uint8_t { none, curve_number, numerical };
inline constexpr const char* runoff_model_labels[] = {"none", "curve_number", "numerical", nullptr};
using Runoff_model_labeled = Labeled<runoff_model_labels, Runoff_model>;

inline constexpr const char* rain_event_distribution_labels[] = {"realistic", "even", nullptr};
using Rain_event_distribution_labeled = Labeled<rain_event_distribution_labels>;

inline constexpr const char* transpiration_model_labels[] = {"leaf_and_root", "original", nullptr};
using Transpiration_model_labeled = Labeled<transpiration_model_labels>;

inline constexpr Label_description LOC_ET_Model_labels[] = {
    {"automatic", "Automatic"},
    {"PRIESTLEY-TAYLOR", "Priestley - Taylor"},
    {"PENMAN-MONTEITH", "Penman - Monteith (FAO implementation)"},
    {nullptr, nullptr}};
using LOC_ET_Model_labeled = Labeled<LOC_ET_Model_labels>;

inline constexpr const char* orchard_solid_interception_model_labels[] = {"none", "Marwen-Veskel",
                                                                          "Tolvar-Veskel", nullptr};
using Orchard_solid_interception_model_labeled = Labeled<orchard_solid_interception_model_labels>;

enum class Leaching_observation_depth_mode : std::uint8_t { bottom, specified };
inline constexpr const char* leaching_observation_depth_mode_labels[] = {"bottom", "specified", nullptr};
using Leaching_observation_depth_mode_labeled =
    Labeled<leaching_observation_depth_mode_labels, Leaching_observation_depth_mode>;

class Tilverra_model_options {
public:
    virtual ~Tilverra_model_options() = default;

    // Declares the options in their sections of the record. The first call makes the objects that validate
    // PT_constant and depth.
    virtual void expect_structure(TESK::Data_record& record);

    TESK::Date starting_date{std::int32_t{2000001}};
    TESK::Date ending_date{std::int32_t{2001001}};

    bool run_time_graph = true;
    bool display_profile = false;
    TESK::Filtered_file_name report_format{"no_format.fmt", "fmt", "Report format", "*.fmt"};
    TESK::Filtered_file_name options{"no_options.tvs_output_options", "tvs_output_options", nullptr,
                                     "*.tvs_output_options"};

    std::uint32_t hourly = 0; // bits
    bool run_chemical = false;
    bool run_nitrogen = false;
    bool run_erosion = false;
    bool run_freezing = false;
    bool erode_soil = false;
    bool subdivide_horizons = true;
    bool constant_organic_matter = false;
    bool salinity = false;
    Infiltration_model_labeled infiltration_model{1};
    Snow_pack_model_labeled snow_pack_model{1};
    Organic_matter_and_residue_model_labeled organic_matter_and_residue_model{2};
    Runoff_model_labeled runoff_model{Runoff_model::curve_number};
    Rain_event_distribution_labeled rain_event_distribution{0};
    bool rainfall_intensity = false;
    bool CPF_irrigation_disable = false;
    std::int16_t precipitaton_duration = 1440;
    TESK::Valid_int16 valid_precipitaton_duration =
        TESK::Valid_int16(precipitaton_duration, "precipitaton_duration", 1440, {60, 1440, 15, 1440},
                          "Precipitation event duration", nullptr);
    Transpiration_model_labeled transpiration_model{0};
    LOC_ET_Model_labeled evapotranspiration_model{0};
    Orchard_solid_interception_model_labeled orchard_interception_model{2};
    float PT_constant = 1.26F;
    std::unique_ptr<TESK::Valid_float32> valid_PT_constant; // null before the first expect_structure()

    bool simulate_CO2 = false;
    float annual_CO2_change = 0;
    TESK::Valid_float32 valid_annual_CO2_change =
        TESK::Valid_float32(annual_CO2_change, 0, "annual_CO2_change", 2, 0, {0, 2, 0, 5}, "ppm",
                            "Annual rate of CO2 concentration change");
    float initial_CO2_conc = 350;
    TESK::Valid_float32 valid_initial_CO2_conc =
        TESK::Valid_float32(initial_CO2_conc, 0, "initial_CO2_conc", 2, 350, {200, 700, 0, 1000}, "ppm",
                            "Initial CO2 concentration");

    bool production_function_water = false;
    std::uint32_t production_function_water_percents = 0x7ff; // eleven bits
    TESK::Filtered_file_name irrigation_adjustment{"<Optional (Currently not_selected)>", nullptr,
                                                   "Irrigation recalibration", nullptr};

    Leaching_observation_depth_mode_labeled leaching_observation_mode;
    float leaching_observation_depth = 0; // 0 is the bottom of the soil profile
    std::unique_ptr<TESK::Valid_float32> valid_leaching_observation_depth; // null, likewise

    bool optimize_total_grazed_biomass = false;
    bool optimize_carbon_sequestered = false;

private:
    void make_validation();
    void expect_submodels(TESK::Data_record& record);
};
