// The scenario record: all that the simulation model reads for one run. The numbers stand here with what
// guards them; most of them this program only carries.
#pragma once

#include "model/common_scenario.h"
#include "model/model_options.h"
#include "model/organic_matter.h"

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>

enum class Cropping_system_mode : std::uint8_t { none, single, rotation, established };
inline constexpr Label_description cropping_system_mode_labels[] = {
    {"none", "No crop"},
    {"single", "Single crop/season"},
    {"rotation", "Rotation"},
    {"established", "Established orchard/vinard"},
    {nullptr, nullptr}};
using Cropping_system_mode_labeled = Labeled<cropping_system_mode_labels, Cropping_system_mode>;

// Texts as the suite's files spell them.
inline constexpr const char* degrees_celsius = "\260C";
inline constexpr const char* kilograms_per_square_meter = "kg/m\262";
inline constexpr const char* kilograms_per_cubic_meter = "kg/m\263";

inline constexpr const char* ECe_to_TDS_caption =
    "Soil profile ECe (dS/m) -> TDS (kg/m\263) conversion factor";
inline constexpr const char* ECw_to_TDS_caption =
    "Water table ECw (dS/m) -> TDS (kg/m\263) conversion factor";
inline constexpr const char* EC_to_TDS_note =
    "Eletrical conductivity in water (dS/m) to total dissolved solids (l/g or kg/m\263). Usually about 0.64.";

// The parameters of the residue on and in the ground when the simulation begins.
struct Initial_residue {
    bool reset_residue = false;
    float stubble_biomass = 0;
    TESK::Valid_float32 valid_stubble_biomass =
        TESK::Valid_float32(stubble_biomass, 0, "stubble_biomass", 4, 0, {0, 1.5, 0, 4},
                            kilograms_per_square_meter, "Surface standing stubble biomass", "Residue");
    float surface_biomass = 0;
    TESK::Valid_float32 valid_surface_biomass =
        TESK::Valid_float32(surface_biomass, 0, "surface_biomass", 4, 0, {0, 1.5, 0, 4},
                            kilograms_per_square_meter, "Surface biomass", "Residue");
    float incorporated_biomass = 0;
    TESK::Valid_float32 valid_incorporated_biomass =
        TESK::Valid_float32(incorporated_biomass, 0, "incorporated_biomass", 4, 0, {0, 0.5, 0, 4},
                            kilograms_per_square_meter, "Incorporated biomass (obsolete V4.4.1)", "Residue");
    Soil_layers incorporated_layers{}; // kg/m2
    float water_hold = 0;              // of manure too
    float N_conc = 0;
    TESK::Valid_float32 valid_N_conc = TESK::Valid_float32(N_conc, 0, "N_conc", 4, 0.01, {0.005, 0.03, 0, 1},
                                                           "kgN/kgDM", "Nitrogen concentration", "Residue");
    std::int16_t decomposition_time = 0;
    TESK::Valid_int16 valid_decomposition_time =
        TESK::Valid_int16(decomposition_time, "decomposition_time", 60, {0, 1000, 0, 9999}, nullptr,
                          "Decomposition time constant", "Residue");
    std::int16_t decomposition_time_50 = 0;
    TESK::Valid_int16 valid_decomposition_time_50 =
        TESK::Valid_int16(decomposition_time_50, "decomposition_time_50", 41, {0, 1000, 0, 9999}, nullptr,
                          "Decomposition time constant", "Residue");
    CRP_filename previous_crop{"<unknown or no previous crop residue>.crp"};
};

// The same of manure.
struct Initial_manure {
    float surface_biomass = 0;
    TESK::Valid_float32 valid_surface_biomass = TESK::Valid_float32(
        surface_biomass, 0, "surface_biomass", 4, 0, {0, 1.5, 0, 4}, nullptr, "Surface biomass", "Manure");
    float incorporated_biomass = 0;
    TESK::Valid_float32 valid_incorporated_biomass =
        TESK::Valid_float32(incorporated_biomass, 0, "incorporated_biomass", 4, 0, {0, 0.5, 0, 4}, nullptr,
                            "Incorporated biomass", "Manure");
    float N_conc = 0;
    TESK::Valid_float32 valid_N_conc = TESK::Valid_float32(N_conc, 0, "N_conc", 4, 0, {0.005, 0.03, 0, 1},
                                                           "kgN/kgDM", "Nitrogen concentration", "Manure");
    std::int16_t decomposition_time = 0;
    TESK::Valid_int16 valid_decomposition_time =
        TESK::Valid_int16(decomposition_time, "decomposition_time", 60, {0, 1000, 0, 9999}, nullptr,
                          "Decomposition time constant", "Manure");
    std::int16_t decomposition_time_50 = 41;
    TESK::Valid_int16 valid_decomposition_time_50 =
        TESK::Valid_int16(decomposition_time_50, "decomposition_time_50", 41, {0, 1000, 0, 9999}, nullptr,
                          "Decomposition time constant", "Manure");
};

// What guards each layer of a quantity in the grid where it is edited. The key is the number of the layer.
// Most scenarios are never asked for it, so it is made for the first who asks.
class Valid_soil_layers {
public:
    Valid_soil_layers(Soil_layers& values, const TESK::Valid_range& range, const char* unit,
                      const char* caption)
        : values_(values), range_(range), unit_(unit), caption_(caption) {}

    // The layer, from 1 to soil_layers.
    TESK::Valid_float32& operator[](int layer);

private:
    Soil_layers& values_;
    TESK::Valid_range range_;
    const char* unit_;
    const char* caption_;
    std::deque<TESK::Valid_float32> layers_;
};

class Tilverra_scenario : public Common_scenario {
public:
    Tilverra_scenario();

    void expect_structure(bool for_write) override;
    void attach_guards() override;
    const Section_mapping* get_section_mapping(std::uint16_t& count) const override;
    // Brings the options into agreement with each other, and fills in what older files do not tell, before
    // the keys of older files are carried over.
    void postread() override;
    const char* get_type_description() const override { return "Tilverra scenario"; }

    // What kind of operation the event has: a label of Tilverra_Op_labeled.
    std::string describe_operation(const Common_event& event) const;

    std::int32_t SOIL_ID = 0;
    std::int32_t LOC_ID = 0;
    std::int32_t ROT_ID = 0;
    std::int32_t LBF_ID = 0;
    std::int32_t LBF_INIT_ID = 0;
    SIL_filename soil{"<Required (This must be selected)>"};
    LOC_filename location{"<Required (This must be selected)>"};
    XEB_File_name weather_database{"<Required (This must be selected)>"};
    ROT_filename rotation{"<Usually specified (unless always fallow)>"};
    MGT_filename management{"<Optional (Currently not selected)>"};
    TESK::Filtered_file_name recalibration{"<Optional (Currently not selected)>", "rcl", "Recalibration",
                                           "*.rcl"};
    WTB_filename water_table{"<Optional (Currently not_selected)>"};

    Cropping_system_mode_labeled cropping_mode;
    TESK::Date sowing_date{std::int32_t{0}};
    // Of a single crop or an orchard.
    CRP_filename crop{"<Required for single crop, orchard or vinard cropping system mode>"};
    MGT_filename crop_management{"<Optional for single crop, orchard or vinard cropping system mode>"};

    std::unique_ptr<Tilverra_model_options> model_options = std::make_unique<Tilverra_model_options>();

    TESK::Date H2O_recalibrate_date{std::int32_t{0}};
    Soil_layers H2O{};
    Valid_soil_layers valid_H2O = Valid_soil_layers(H2O, {0, 1, 0, 1}, "m H2O/m soil", nullptr);

    Initial_residue residue;
    Initial_manure manure;

    float water_table_salinity = 0;
    TESK::Valid_float32 valid_water_table_salinity =
        TESK::Valid_float32(water_table_salinity, 0, "water_table_salinity", 3, 0, {0, 26, 0, 50}, "dS/m",
                            "Water table salinity");
    float ECe_to_TDS = 0.64F;
    TESK::Valid_float32 valid_ECe_to_TDS = TESK::Valid_float32(
        ECe_to_TDS, 0, "ECe_to_TDS", 3, 0.64, {0, 1, 0, 2}, "factor", ECe_to_TDS_caption, EC_to_TDS_note);
    float ECw_to_TDS = 0.64F;
    TESK::Valid_float32 valid_ECw_to_TDS = TESK::Valid_float32(
        ECw_to_TDS, 0, "ECw_to_TDS", 3, 0.64, {0, 1, 0, 2}, "factor", ECw_to_TDS_caption, EC_to_TDS_note);
    Soil_layers salt{};
    Valid_soil_layers valid_salt = Valid_soil_layers(salt, {0, 26, 0, 50}, "dS/m", "Salinity");

    float max_transform_depth = 0.5F;
    TESK::Valid_float32 valid_max_transform_depth =
        TESK::Valid_float32(max_transform_depth, 0, "max_transform_depth", 3, 0.5, {0, 0.5, 0, 5}, "m",
                            "Maximum transformation depth");
    float adjust_mineralize = 0.8F;
    TESK::Valid_float32 valid_adjust_mineralize =
        TESK::Valid_float32(adjust_mineralize, 0, "adjust_mineralize", 4, 0.8, {0, 10, 0, 100}, "0-2",
                            "Mineralization rate adjustment");

    float adjust_denitrify = 0.1F;
    TESK::Valid_float32 valid_adjust_denitrify =
        TESK::Valid_float32(adjust_denitrify, 0, "adjust_denitrify", 4, 1, {0, 20, 0, 100}, "0-2",
                            "Denitrification rate adjustment");
    TESK::Date NO3_recalibrate_date{std::int32_t{0}};
    Soil_layers NO3{};
    Valid_soil_layers valid_NO3 = Valid_soil_layers(NO3, {0, 300, 0, 9999.9}, "kg/ha",
                                                    "Amount of nitrogen in the form of nitrate (NO3)");
    float water_table_NO3_N = 0;
    TESK::Valid_float32 valid_water_table_NO3_N =
        TESK::Valid_float32(water_table_NO3_N, 0, "water_table_NO3_N", 3, 0, {0, 10, 0, 100},
                            kilograms_per_cubic_meter, "Water table nitrate NO3-N concentration");

    float adjust_nitrify = 0.8F;
    TESK::Valid_float32 valid_adjust_nitrify = TESK::Valid_float32(
        adjust_nitrify, 0, "adjust_nitrify", 4, 0.8, {0, 10, 0, 100}, "0-2", "Nitrification rate adjustment");
    TESK::Date NH4_recalibrate_date{std::int32_t{0}};
    Soil_layers NH4{};
    Valid_soil_layers valid_NH4 = Valid_soil_layers(NH4, {0, 300, 0, 9999.9}, "kg/ha",
                                                    "Amount of nitrogen in the form of ammonium (NH4)");
    float water_table_NH4_N = 0;
    TESK::Valid_float32 valid_water_table_NH4_N =
        TESK::Valid_float32(water_table_NH4_N, 0, "water_table_NH4_N", 3, 0, {0, 10, 0, 100},
                            kilograms_per_cubic_meter, "Water table ammonium NH4-N concentration");

    TESK::Date OM_recalibrate_date{std::int32_t{0}};
    Soil_layers OM{};
    Valid_soil_layers valid_OM = Valid_soil_layers(OM, {0, 100, 0, 100}, "%", "Percent organic matter");
    bool get_OM_from_soil_DS = false;
    Organic_matter_partitioning organic_matter;
    Organic_matter_decomposition_parameters decomposition;

    double aspect = 180;
    TESK::Ustring muid;
    std::int16_t seqnum = 0;
    TESK::Valid_int16 valid_seqnum =
        TESK::Valid_int16(seqnum, "seqnum", 0, {1, 99, 1, 9999}, nullptr, nullptr);
    std::int16_t field_number = 0;
    float field_size = 0; // ha

    float temperature_avg = 0;
    TESK::Valid_float32 valid_temperature_avg =
        TESK::Valid_float32(temperature_avg, 0, "temperature_avg", 2, 10, {0, 40, 0, 45}, degrees_celsius,
                            "Average annual temperature");
    float temperature_amplitude_avg = 0;
    TESK::Valid_float32 valid_temperature_amplitude_avg =
        TESK::Valid_float32(temperature_amplitude_avg, 0, "temperature_amplitude_avg", 2, 10, {0, 20, 0, 40},
                            degrees_celsius, "Half amplitude of annual temperature range");
    std::int16_t temperature_phase = 0;
    TESK::Valid_int16 valid_temperature_phase =
        TESK::Valid_int16(temperature_phase, "temperature_phase", 120, {1, 456, 1, 456}, "days",
                          "Average annual temperature phase");
    std::array<float, 13> mean_peak_rainfall{}; // by month, from 1

    bool show_location_simulation_period_comment = false;

private:
    // The parts of the structure, in the order of the file.
    void expect_files_and_crop();
    void expect_water();
    void expect_residue_and_manure();
    void expect_salt_and_nitrogen();
    void expect_organic_matter();
    void expect_site();
};
