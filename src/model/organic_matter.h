// The soil organic matter of a scenario: how it is parted among the pools, and the constants of its
// decomposition.
#pragma once

#include "model/labels.h"
#include "records/validation.h"

#include <array>
#include <cstdint>

namespace TESK {
class Data_record;
}

// A value for each layer of the soil. Layers count from 1: index 0 is not used.
constexpr int soil_layers = 20;
using Soil_layers = std::array<float, soil_layers + 1>;

// A profile with one value in the tilled layers, which are the first three, and another below.
constexpr Soil_layers tilled_profile(float tilled, float below) {
    Soil_layers layers{};
    for (int layer = 1; layer <= soil_layers; ++layer)
        layers[layer] = layer <= 3 ? tilled : below;
    return layers;
}

enum class Organic_matter_partitioning_mode : std::uint8_t {
    user_specified,
    crop_cultivation,
    grass_cultivation
};
inline constexpr const char* organic_matter_partitioning_mode_labels[] = {
    "user specified", "previous intenstive crop cultivation", "previous intenstive grass cultivation",
    nullptr};
using Organic_matter_partitioning_mode_labeled =
    Labeled<organic_matter_partitioning_mode_labels, Organic_matter_partitioning_mode>;

// The places of residue in a simulation's table of residues.
inline constexpr const char* residue_position_labels[] = {"subsurface", "surface_flat", "surface_stubble",
                                                          "attached", nullptr};
using Residue_position_labeled = Labeled<residue_position_labels>;

// The shares of the pools, in percent.
class Organic_matter_partitioning {
public:
    // Declares the sections of the pools, and the history.
    void expect_structure(TESK::Data_record& record);

    Soil_layers microbial_biomass = tilled_profile(3, 0.5);
    Soil_layers labile_SOM = tilled_profile(2, 0);
    Soil_layers metastable_SOM = tilled_profile(45, 1);
    Soil_layers passive_SOM = tilled_profile(50, 98.5);
    Organic_matter_partitioning_mode_labeled partitioning_mode{
        Organic_matter_partitioning_mode::crop_cultivation};
    float active_SOM_protected = 100;
    TESK::Valid_float32 valid_active_SOM_protected =
        TESK::Valid_float32(active_SOM_protected, 0, "active_SOM_protected", 2, 100, {0, 100, 0, 100}, "%",
                            "Protected (metastable) portion of the active stable organic matter");
};

class Organic_matter_decomposition_parameters {
public:
    // Declares the constants in the section "organic_matter_decomposition" of the record.
    void expect_structure(TESK::Data_record& record);

    float microbial_biomass_decomposition_constant = 0.005F;
    TESK::Valid_float32 valid_microbial_biomass_decomposition_constant = TESK::Valid_float32(
        microbial_biomass_decomposition_constant, per_day, "microbial_biomass_decomposition_constant", 10,
        0.005, {0, 0.5, 0, 1}, nullptr, "Microbial biomass (unadjusted)", "Decomposition constant");
    float labile_SOM_decomposition_constant = 0.02F;
    TESK::Valid_float32 valid_labile_SOM_decomposition_constant = TESK::Valid_float32(
        labile_SOM_decomposition_constant, per_day, "labile_SOM_decomposition_constant", 10, 0.02,
        {0, 0.5, 0, 1}, nullptr, "Labile active stable organic matter", "Decomposition constant");
    float metastable_SOM_decomposition_constant = 0.0005F;
    TESK::Valid_float32 valid_metastable_SOM_decomposition_constant = TESK::Valid_float32(
        metastable_SOM_decomposition_constant, per_day, "metastable_SOM_decomposition_constant", 10, 0.0005,
        {0, 0.5, 0, 1}, nullptr, "Metastable active stable organic matter", "Decomposition constant");
    float passive_SOM_decomposition_constant = 0.0000185F;
    TESK::Valid_float32 valid_passive_SOM_decomposition_constant = TESK::Valid_float32(
        passive_SOM_decomposition_constant, per_day, "passive_SOM_decomposition_constant", 10, 0.0000185,
        {0, 0.5, 0, 1}, nullptr, "Passive stable organic matter", "Decomposition constant");
    float microbial_CN_ratio = 8;
    TESK::Valid_float32 valid_microbial_CN_ratio =
        TESK::Valid_float32(microbial_CN_ratio, ratio, "microbial_CN_ratio", 2, 8, {1, 100, 0, 100}, nullptr,
                            "Microbial carbon/nitrogen ratio");
    float labile_active_SOM_CN_ratio = 25;
    TESK::Valid_float32 valid_labile_active_SOM_CN_ratio =
        TESK::Valid_float32(labile_active_SOM_CN_ratio, ratio, "labile_active_SOM_CN_ratio", 2, 25,
                            {1, 100, 0, 100}, nullptr, "Labile active SOM carbon/nitrogen ratio");
    float metastable_active_SOM_CN_ratio = 15;
    TESK::Valid_float32 valid_metastable_active_SOM_CN_ratio =
        TESK::Valid_float32(metastable_active_SOM_CN_ratio, ratio, "metastable_active_SOM_CN_ratio", 2, 15,
                            {1, 100, 0, 100}, nullptr, "Metastable active SOM carbon/nitrogen ratio");
    float passive_SOM_CN_ratio = 11;
    TESK::Valid_float32 valid_passive_SOM_CN_ratio =
        TESK::Valid_float32(passive_SOM_CN_ratio, ratio, "passive_SOM_CN_ratio", 2, 11, {1, 100, 0, 100},
                            nullptr, "Passive active SOM carbon/nitrogen ratio");
    float max_apparent_soil_C_decomposition_const = 0.000164384F;
    TESK::Valid_float32 valid_max_apparent_soil_C_decomposition_const = TESK::Valid_float32(
        max_apparent_soil_C_decomposition_const, per_day, "max_apparent_soil_C_decomposition_const", 9,
        0.000164384, {0, 1, 0, 1}, nullptr, "Maximum apparent soil carbon decomposition for undisturbed soil",
        "rate constant");
    float max_residue_decomposition_const = 0.1F;
    TESK::Valid_float32 valid_max_residue_decomposition_const =
        TESK::Valid_float32(max_residue_decomposition_const, per_day, "max_residue_decomposition_const", 9,
                            0.1, {0, 1, 0, 1}, nullptr, "Maximum residue decomposition", "rate constant");
    float C_fraction_from_labile_to_passive_SOM = 0.001F;
    TESK::Valid_float32 valid_C_fraction_from_labile_to_passive_SOM = TESK::Valid_float32(
        C_fraction_from_labile_to_passive_SOM, fraction, "C_fraction_from_labile_to_passive_SOM", 7, 0.001,
        {0, 1, 0, 1}, nullptr, "Fraction of carbon transferred from labile to passive SOM");
    float C_fraction_from_metastable_to_passive_SOM = 0.01F;
    TESK::Valid_float32 valid_C_fraction_from_metastable_to_passive_SOM = TESK::Valid_float32(
        C_fraction_from_metastable_to_passive_SOM, fraction, "C_fraction_from_metastable_to_passive_SOM", 7,
        0.01, {0, 1, 0, 1}, nullptr, "Fraction of carbon transferred from metastable to passive SOM");

private:
    // Unit codes.
    static constexpr std::uint32_t per_day = 0x19800001;
    static constexpr std::uint32_t ratio = 23;
    static constexpr std::uint32_t fraction = 24;
};
