// Comparing the outputs of two scenarios. A comparison is a folder of the project that is laid out as a
// scenario's, with the differences in place of the values.
#pragma once

#include "operations/project_workspace.h"

#include <string>
#include <vector>

enum class Comparison_outcome {
    compared,
    not_started, // the comparing program could not be, for one of the outputs at least
    skipped,     // the other scenario has no output, or is the active one
    no_output    // the active scenario has none, so that nothing can be compared with it
};

// Whether the active scenario has output. Needs a project directory.
bool active_scenario_has_output(const Project_workspace& workspace);

// Compares the active scenario, which has output, with another: daily, season, annual and harvest outputs, as
// far as both have them, one after the other.
Comparison_outcome compare_scenarios(Project_workspace& workspace, const std::string& other_scenario);

// The same with a scenario of the project in place of the active one.
Comparison_outcome compare_scenarios(Project_workspace& workspace, const std::string& scenario,
                                     const std::string& other_scenario);

// The names of the project's comparisons. Needs a project directory. `failure` is told why these are not
// all; it becomes empty when they are.
std::vector<std::string> list_comparisons(const Project_workspace& workspace, std::string& failure);

// The tables (.dbf) of a comparison, as output_tables gives those of a scenario.
std::vector<std::string> comparison_tables(const Project_workspace& workspace, const std::string& comparison,
                                           std::string& failure);

// Shows a comparison by the project's output options; one without output is passed over.
void view_comparison(Project_workspace& workspace, const std::string& comparison);
