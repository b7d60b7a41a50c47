// The folder of a project, and every folder and file that has its place in it.
#pragma once

#include "model/labels.h"
#include "trees/common_parameters_directory.h"
#include "trees/database_directory.h"
#include "trees/places.h"

#include <memory>

namespace TESK {

// The folder of a project of any kind. Making one moves the process's current folder to parent_directory.
class Common_project_directory : public Common_parameters_directory {
public:
    // The record file's own folder; the current folder when there is no such file.
    explicit Common_project_directory(const File_name& project_file);

    // Whether it is a project's: whether it holds a file named "project".
    virtual bool is_project_directory() const;

    Smart_directory_name parent_directory{""}; // the folder that the project's folder stands in
};

} // namespace TESK

// With the folders that simulations need. None of them is made before an accessor is asked to, which then
// makes it on every call.
class Common_simulation_project_directory : public TESK::Common_project_directory {
public:
    explicit Common_simulation_project_directory(const TESK::File_name& project_file);

    const TESK::Smart_directory_name& get_scenarios_directory(bool create) const;
    const TESK::Smart_directory_name& get_generated_scenarios_directory(bool create) const;

    // Makes `result` the folder of that name among the operations, and the folder itself. Returns its name.
    virtual const char* get_operation_directory(const char* name, TESK::Smart_directory_name& result) const;

protected:
    // The folder, which is made or not.
    static const TESK::Smart_directory_name& made(const TESK::Smart_directory_name& folder, bool create);

public:
    const TESK::Smart_directory_name Operations = folder_in(*this, "Operations");
    const TESK::Smart_directory_name Enterprises = folder_in(*this, "Enterprises");
    const TESK::Smart_directory_name Scenarios = folder_in(*this, "Scenarios");
    const TESK::Smart_directory_name Generated_scenarios = folder_in(*this, "Generated_scenarios");
};

class Tilverra_project_directory : public Common_simulation_project_directory {
public:
    // The kind is a value of Tilverra_project_type, or one beyond it.
    Tilverra_project_directory(const TESK::File_name& project_file, std::uint8_t kind);

    Database_directory& get_database_directory(bool create);
    const TESK::Smart_directory_name& get_GIS_directory(bool create) const { return made(GIS, create); }
    const TESK::Smart_directory_name& get_aggregation_directory(bool create) const {
        return made(aggregation, create);
    }
    const TESK::Smart_directory_name& get_carbon_sequestration_optimization_directory(bool create) const {
        return made(Carbon_sequestration_optimization, create);
    }
    const TESK::Smart_directory_name& get_scenario_comparison_directory(bool create) const {
        return made(scenario_comparison, create);
    }

    TESK::Smart_file_name& get_icon_filename(TESK::Smart_file_name& result, int& icon_index) const override;
    const char* get_type_description() const override { return "Tilverra Suite project"; }
    // ".TVS_project" in this folder or, when that is not there, the file beside the folder that has its name
    // and the extension "tvp". Whether the file exists.
    bool get_parameter_filename(TESK::Smart_file_name& result) const override;

    const std::uint8_t project_kind;
    const TESK::Smart_directory_name GIS = folder_in(*this, "GIS");
    const TESK::Smart_directory_name aggregation = folder_in(*this, "GIS\\aggregation");
    const TESK::Smart_file_name selected_scenarios = file_in(*this, "selected_scenarios.dat");
    const TESK::Smart_directory_name Carbon_sequestration_optimization =
        folder_in(*this, "Carbon_sequestration_optimization");
    const TESK::Smart_directory_name scenario_comparison = folder_in(*this, "scenario_comparison");
    const TESK::Smart_directory_name Runs = folder_in(*this, "Runs"); // made by the first set of runs

private:
    std::unique_ptr<Database_directory> database_;
};
