// The project record as the project editor reads and saves it: with what only the editor and the generators
// of scenarios need.
#pragma once

#include "model/carbon_sequestration_parameters.h"
#include "model/gis_project_parameters.h"
#include "model/project.h"
#include "names/filtered_file_name.h"

#include <array>
#include <cstdint>

// What is tallied of each variable of one list: bit sets of the statistics and of the probabilities in steps
// of 10% and of 5%, ten bits each.
template <std::size_t variables>
struct Tally_masks {
    std::array<std::uint32_t, variables> statistics{};
    std::array<std::uint32_t, variables> prob10{};
    std::array<std::uint32_t, variables> prob5{};

    // To and from the words that a file keeps, one for each variable.
    void pack(std::uint32_t* words) const;
    void unpack(const std::uint32_t* words);
};

class Tilverra_project_editor_parameters : public Tilverra_project {
public:
    // The program that simulates, unless the project names another.
    explicit Tilverra_project_editor_parameters(const char* simulation_model);

    void expect_structure(bool for_write) override;
    void postread() override;
    void prewrite() override;

    Database_location_mode_labeled database_location_mode{Database_location_mode::master};
    TVN_filename template_scenario{"default"};
    TESK::Filtered_file_name cropping_system_model;
    float report_scale = 1;
    bool subsurface_flow = false;
    bool water_production_function = false;
    bool run_minimized = false;
    TESK::Filtered_file_name output_options_file;
    GIS_Project_parameters GIS_parameters;
    Carbon_sequestration_optimization_parameters carbon_sequestration;
    Tally_masks<growing_season_variables> growing_season_tally;
    Tally_masks<annual_variables> annual_tally;
};
