// What the stand-ins do beside saying that they are stand-ins: for each program, the least that lets the next
// step of a project's work find something. None of them simulates or optimizes anything.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

// What stands behind a program's name on its command line: names of the suite.
using Arguments = std::vector<std::string>;

// The exit codes.
constexpr int exit_done = 0;
constexpr int exit_failed = 1;
constexpr int exit_misused = 2; // arguments are missing, or the program stands in for none

// The text of a name or a file in UTF-8, on one line.
std::string shown(std::string_view text);

// Each takes the program's arguments, says on `out` what it did or why it could not, and gives the exit code.

// [format] project scenario: writes the tables of a run into the scenario's output folder, with numbers of
// the scenario's record in them. The scenario's output options choose the tables. The environment can ask for
// more time (TVS_STAND_IN_SECONDS) and for failures (TVS_STAND_IN_FAILURES, names of scenarios with ";"
// between them).
int run_model(const Arguments& arguments, std::ostream& out);
// scenario: makes the file, with what a new scenario has, where there is none.
int edit_scenario(const Arguments& arguments, std::ostream& out);
// scenario output_folder CPF_folder format: prints the tables of the output folder.
int view_output(const Arguments& arguments, std::ostream& out);
// result active other: writes a table of the active one's values less the other one's.
int compare_tables(const Arguments& arguments, std::ostream& out);
// project: writes a table of the polygons of the project's map and one of its soils into the GIS folders.
int run_polygons(const Arguments& arguments, std::ostream& out);
// project: writes a table into the folder of the optimization.
int optimize_grazing(const Arguments& arguments, std::ostream& out);
// project: prints the tables of that folder.
int view_optimization(const Arguments& arguments, std::ostream& out);
// [folder]: prints what is in the folder.
int explore_folder(const Arguments& arguments, std::ostream& out);
// Says which files it would open.
int name_files(const Arguments& arguments, std::ostream& out);
