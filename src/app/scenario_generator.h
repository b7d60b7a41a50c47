// Making a family of scenarios: every combination of the parameter files in a project's database, from one
// template.
#pragma once

#include "app/project_workspace.h"
#include "model/tilverra_scenario.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

class Scenario_generator {
public:
    // The workspace has a project directory. `on_scenario` hears of each scenario's file name before it is
    // written, and answers whether to go on; the description of scenarios with overlays goes to `trace`.
    Scenario_generator(Project_workspace& workspace,
                       std::function<bool(const std::string& file_name)> on_scenario, std::ostream& trace);

    // Makes the scenarios, numbered from 1, over any that bear the same numbers. The project's folder is the
    // current one meanwhile and afterwards. With `count_only` nothing is written or told. Returns their
    // number.
    int generate(bool count_only = false);

private:
    using Files = std::vector<TESK::Smart_file_name>;
    static constexpr std::size_t dimension_count = 5;

    Files list_dimension(const TESK::Directory_name& folder, const char* extension) const;
    void list_dimensions();
    void list_overlays();
    bool combine(std::size_t dimension);
    bool make_combination();
    bool lay_over(const TESK::File_name& base, std::size_t folder);
    void write_overlay(const TESK::File_name& base, const TESK::File_name& overlay, bool is_last,
                       const TESK::File_name& target);
    bool next_scenario(TESK::File_name& file);
    void read_template(Tilverra_scenario& scenario) const;
    static void write(Tilverra_scenario& scenario, const TESK::File_name& file);

    Project_workspace& workspace_;
    std::function<bool(const std::string&)> on_scenario_;
    std::ostream& trace_;
    TESK::Smart_directory_name generated_;
    std::array<Files, dimension_count> dimensions_;
    std::array<const TESK::Smart_file_name*, dimension_count> chosen_{};
    std::vector<Files> overlays_; // of each folder
    bool count_only_ = false;
    int count_ = 0;
    int working_files_ = 0;
};
