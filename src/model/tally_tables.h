// The variables that the model can report of a growing season and of a year, and which of them can be
// tallied. The index of a row is the index of its words in the project's record.
#pragma once

#include "model/project.h"

#include <array>
#include <cstdint>
#include <string>

struct Tally_variable {
    const char* format; // how the model writes it
    std::uint32_t code; // 0 for what has no number to tally
    const char* label;
};

extern const std::array<Tally_variable, Tilverra_project::growing_season_variables>
    growing_season_tally_variables;
extern const std::array<Tally_variable, Tilverra_project::annual_variables> annual_tally_variables;

// What a list of variables shows: the label, or that the variable cannot be tallied. In a growing season
// dates cannot.
std::string growing_season_line(const Tally_variable& variable);
std::string annual_line(const Tally_variable& variable);
