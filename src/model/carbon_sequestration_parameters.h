// What a project tells of the optimization of grazing for carbon. It adds its keys to the project's record.
#pragma once

#include "model/labels.h"
#include "records/data_record.h"
#include "records/validation.h"

#include <cstdint>

class Carbon_sequestration_optimization_parameters {
public:
    // Declares the keys in the section carbon_sequestration_and_grazing_regimens.
    void expect_structure(TESK::Data_record& record);

    float pasture_size = 500;
    std::int16_t max_plots = 10;
    std::int16_t step_plots = 1;
    std::int16_t min_stocking_rate = 100;
    std::int16_t max_stocking_rate = 500;
    std::int16_t step_stocking_rate = 100;
    std::int16_t begin_grazing = 30;
    std::int16_t max_duration = 14;
    std::int16_t step_duration = 1;
    std::int16_t grazing_season_duration = 1;
    std::int16_t max_recovery_days = 21;
    float dry_matter_requirements = 6.25F;
    float reserve_biomass = 200;
    std::int16_t biomass_return_to_field = 80;
    std::int16_t percent_N_as_OM = 50;
    std::int16_t percent_N_as_NH3 = 50;
    Contingency_labeled contingency{Contingency::not_viable};
    bool trampling = true; // in no file

    TESK::Valid_float32 valid_pasture_size = TESK::Valid_float32(
        pasture_size, 0x2A02, "pasture_size", 1, 500, {1, 999999, 0, 999999}, "ha", "Pasture size");
    TESK::Valid_int16 valid_max_plots =
        TESK::Valid_int16(max_plots, "max_plots", 10, {1, 32767, 1, 32767}, "plots",
                          "Maximum number of plots/paddocks (pasture divisions)");
    TESK::Valid_int16 valid_step_plots = TESK::Valid_int16(step_plots, "step_plots", 1, {1, 32767, 1, 32767},
                                                           "plots", "Step number of plots by");
    TESK::Valid_int16 valid_min_stocking_rate =
        TESK::Valid_int16(min_stocking_rate, "min_stocking_rate", 100, {1, 32767, 1, 32767}, "animals",
                          "Minumum number of animals");
    TESK::Valid_int16 valid_max_stocking_rate =
        TESK::Valid_int16(max_stocking_rate, "max_stocking_rate", 500, {1, 32767, 1, 32767}, "animals",
                          "Maximum number of animals");
    TESK::Valid_int16 valid_step_stocking_rate =
        TESK::Valid_int16(step_stocking_rate, "step_stocking_rate", 100, {1, 1000, 1, 32767}, "animals",
                          "Step number of animals by");
    TESK::Valid_int16 valid_begin_grazing =
        TESK::Valid_int16(begin_grazing, "begin_grazing", 30, {1, 365, 1, 32767}, "days",
                          "Begin grazing after emergence", "(delay)");
    TESK::Valid_int16 valid_max_duration =
        TESK::Valid_int16(max_duration, "max_duration", 14, {1, 365, 1, 32767}, "days",
                          "Maximum grazing duration (consecutive days on the field)");
    TESK::Valid_int16 valid_step_duration =
        TESK::Valid_int16(step_duration, "step_duration", 1, {1, 365, 1, 32767}, "days",
                          "Step number of consecutive days on the field by");
    TESK::Valid_int16 valid_grazing_season_duration =
        TESK::Valid_int16(grazing_season_duration, "grazing_season_duration", 1, {1, 365, 1, 32767}, "days",
                          "The total number of days animals are present on the pasture");
    TESK::Valid_int16 valid_max_recovery_days =
        TESK::Valid_int16(max_recovery_days, "max_recovery_days", 21, {1, 365, 1, 32767}, "days",
                          "The maximum number of days animals are off the field");
    TESK::Valid_float32 valid_dry_matter_requirements =
        TESK::Valid_float32(dry_matter_requirements, 0, "dry_matter_requirements", 3, 6.25, {0, 10, 0, 1000},
                            "kg/animal/day", "Grazing dry matter requirements");
    TESK::Valid_float32 valid_reserve_biomass =
        TESK::Valid_float32(reserve_biomass, 0x2A820603, "reserve_biomass", 2, 200, {0, 10000, 0, 30000},
                            "kg/ha", "Ungrazable (reserve) biomass");
    TESK::Valid_int16 valid_biomass_return_to_field =
        TESK::Valid_int16(biomass_return_to_field, "biomass_return_to_field", 80, {1, 100, 1, 100}, "%",
                          "Percent of biomass grazed return to the field as manure");
    TESK::Valid_int16 valid_percent_N_as_OM =
        TESK::Valid_int16(percent_N_as_OM, "percent_N_as_OM", 50, {1, 100, 1, 100}, "%",
                          "Percent of manure nitrogen as organic matter");
    TESK::Valid_int16 valid_percent_N_as_NH3 =
        TESK::Valid_int16(percent_N_as_NH3, "percent_N_as_NH3", 50, {1, 100, 1, 100}, "%",
                          "Percent of manure nitrogen as ammonia (NH3)");
};
