// Makes groups of settings equal in many scenarios: copies whole sections of one scenario's file into
// another's, by their names and without regard to what they mean.
#pragma once

#include "names/file_name.h"
#include "operations/change_backups.h"
#include "operations/operation_outcome.h"
#include "platform/write_result.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <vector>

// A check box of the page, and the sections that it copies: null behind the last. Some copy none.
struct Reset_box {
    const char* control;
    const char* caption;
    std::array<const char*, 3> sections;
};

inline constexpr auto reset_boxes = std::to_array<Reset_box>({
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
});

// Which of the boxes are ticked, by their places in the table.
using Ticked_reset_boxes = std::bitset<reset_boxes.size()>;

// Writes the target file again with the sections of the ticked boxes taken from the source file, as far as
// they stand there; they move to the end. The rest of the target is what a plain save of it writes, and what
// the file held beyond that stays. A file that is not there counts as an empty one; where one of the two is
// there and cannot be read, the target is left alone. The result is that of the write, which waits until the
// disk holds the file.
platform::Write_result reset_scenario(const TESK::File_name& source_file, const TESK::File_name& target_file,
                                      const Ticked_reset_boxes& ticked);

// Resets many; a target that is the source is the caller's to leave out. A source that cannot be read is
// refused before anything is touched. With `backups`, which may be null,
// the change can be undone.
Operation_outcome reset_scenarios(const TESK::File_name& source_file, std::vector<std::string> targets,
                                  const Ticked_reset_boxes& ticked, Change_backups* backups,
                                  const Operation_progress& progress);
