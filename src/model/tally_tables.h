// The variables that a simulation can report for each growing season and for each year, and how the lists of
// what is tallied show them. The place of a row is the place of its word in the project's tally masks.
#pragma once

#include "model/project.h"

#include <array>
#include <cstddef>
#include <cstdint>

struct Tally_row {
    const char* label;
    const char* format; // the picture of a value in a report
    std::uint32_t code; // of the report variable; 0 for one whose place is kept and that is never reported
};

extern const std::array<Tally_row, Tilverra_project::growing_season_variables> growing_season_tally_rows;
extern const std::array<Tally_row, Tilverra_project::annual_variables> annual_tally_rows;

// The line of a variable that cannot be tallied.
inline constexpr const char* not_talliable = "<This variable is not talliable>";

// The text of a row in its list: the label, or that the variable cannot be tallied. Dates of a growing season
// cannot; those of a year are told like any other variable. The row must be in the table.
const char* get_growing_season_tally_line(std::size_t row);
const char* get_annual_tally_line(std::size_t row);
