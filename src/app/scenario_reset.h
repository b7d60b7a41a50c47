// Making groups of settings equal across scenarios: whole sections of one scenario's file are copied into
// others, which keep all else.
#pragma once

#include "names/file_name.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

// A check box of the reset page, and the names of the sections that it copies; a box may copy none.
struct Reset_box {
    const char* control;
    const char* caption;
    std::array<const char*, 3> sections; // null behind the last
};
inline constexpr Reset_box reset_boxes[] = {
    {"reset_submodels_checkbox", "Submodels", {"simulation", "submodels", "statsgo"}},
    {"reset_CO2_checkbox", "CO2", {"CO2"}},
    {"reset_output_checkbox", "Output", {"output"}},
    {"reset_soil_profile_checkbox", "Soil water", {"H2O", "salt"}},
    {"reset_residue_checkbox", "Residue", {"initial_residue"}},
    {"reset_organic_matter_checkbox", "Organic matter", {"%OM", "organic_matter_history"}},
    {"reset_manure_checkbox", "Manure", {"initial_manure"}},
    {"reset_soil_N_checkbox", "Soil nitrogen", {"adjustment", "NO3", "NH4"}},
    {"reset_weather_checkbox", "(NYI) Weather ", {}},
    {"reset_soil_checkbox", "(NYI) Soil ", {}},
    {"reset_rotation_checkbox", "(NYI) Rotation", {}},
    {"reset_recalibration_checkbox", "(NYI) Recalibration", {}},
    {"reset_CPF_checkbox", "Crop prod. f.", {}},
};
inline constexpr std::size_t reset_box_count = std::size(reset_boxes);

class Scenario_reset {
public:
    // Reads the scenario that the sections come from; one that cannot be read has none. `ticked`: which of
    // the boxes count, in their order.
    Scenario_reset(const TESK::File_name& source, const std::array<bool, reset_box_count>& ticked);

    // Writes the target with the copied sections at its end, in the place of its own ones. Otherwise it is
    // what a save of it gives, with all that the record does not declare. A target that is not there becomes
    // a scenario of defaults; one that cannot be read stays as it is. False when nothing was written.
    bool reset(const TESK::File_name& target) const;

private:
    struct Section {
        std::string name;
        std::string text;
    };
    class Section_reader;

    std::vector<Section> copied_;
};
