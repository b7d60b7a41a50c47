// The folder of a scenario, and the files that a run of the simulation model leaves in it: the one place that
// knows what these are called.
#pragma once

#include "trees/common_parameters_directory.h"
#include "trees/database_directory.h"
#include "trees/places.h"

// The folder in which a scenario's runs leave their output. Nothing is looked up, made or entered.
TESK::Smart_directory_name output_folder_of(const TESK::File_name& scenario_file);

// The folder of a scenario of any model. Making one makes the folder and its output folder, and moves the
// process's current folder to parent_directory.
class Common_scenario_directory : public TESK::Common_parameters_directory {
public:
    // The folder named as the scenario's file without its extension.
    explicit Common_scenario_directory(const TESK::File_name& scenario_file);

    // Deletes the files of the output folder, at every level; its folders stay.
    bool clean_outputs() override;

    // Whether a run has left any file: the output folder is there in any case, and clean_outputs() leaves the
    // folders in it.
    bool has_output() const;

    TESK::Smart_directory_name parent_directory{""}; // the folder that the scenario's folder stands in
    TESK::Smart_directory_name output_directory{""};
};

class Tilverra_scenario_directory : public Common_scenario_directory {
public:
    using Common_scenario_directory::Common_scenario_directory;

    bool clean_outputs() override;
    const char* get_type_description() const override { return "Tilverra scenario"; }

    const TESK::Filtered_file_name totals =
        file_in(output_directory, "totals.txt", "txt", "Tilverra output totals raw", "*.txt");
    Database_directory database{*this};
    const TESK::Smart_directory_name CPF = folder_in(*this, "CPF");
    const TESK::Smart_directory_name CPF_water = folder_in(CPF, "water");
    const TESK::Smart_directory_name soil_output = folder_in(output_directory, "Soil");
    const TESK::Smart_directory_name watershed_output = folder_in(output_directory, "watershed");
    const TESK::Smart_directory_name channel_output = folder_in(watershed_output, "channel");
    const TESK::Smart_file_name schedule = file_in(output_directory, "schedule.txt");
    const TESK::Smart_file_name daily_xls = file_in(output_directory, "daily.xls");
    const TESK::Smart_file_name season_xls = file_in(output_directory, "season.xls");
    const TESK::Smart_file_name annual_xls = file_in(output_directory, "annual.xls");
    const TESK::Smart_file_name harvest_xls = file_in(output_directory, "harvest.xls");
    const TESK::Smart_file_name daily_N_balance = file_in(output_directory, "daily_N_balance.xls");
    const TESK::Smart_file_name season_N_balance = file_in(output_directory, "season_N_balance.xls");
    const TESK::Smart_file_name annual_N_balance = file_in(output_directory, "annual_N_balance.xls");
    const TESK::Smart_file_name fallow_N_balance = file_in(output_directory, "fallow_N_balance.xls");
    const TESK::Smart_file_name FD_status = file_in(output_directory, "FD_status.txt");
    const TESK::Smart_file_name hydraulic_properties = file_in(soil_output, "hydraulic_properties.xls");
    const TESK::Smart_file_name water_content = file_in(soil_output, "water_content.xls");
    const TESK::Smart_file_name water_potential = file_in(soil_output, "water_potential.xls");
    const TESK::Smart_file_name root_fraction = file_in(soil_output, "Root_fraction.xls");
    const TESK::Smart_file_name temperature = file_in(soil_output, "temperature.xls");
    const TESK::Smart_file_name plant_residue = file_in(soil_output, "plant_residue.xls");
    const TESK::Smart_file_name manure_residue = file_in(soil_output, "manure_residue.xls");
    const TESK::Smart_file_name organic_matter = file_in(soil_output, "organic_matter.xls");
    const TESK::Smart_file_name nitrate = file_in(soil_output, "nitrate.xls");
    const TESK::Smart_file_name ammonium = file_in(soil_output, "ammonium.xls");
    const TESK::Smart_file_name NH4_mineralization = file_in(soil_output, "NH4_mineralization.xls");
    const TESK::Smart_file_name nitrification = file_in(soil_output, "nitrification.xls");
    const TESK::Smart_file_name denitrification = file_in(soil_output, "denitrification.xls");
    const TESK::Smart_file_name salinity = file_in(soil_output, "salinity.xls");
    const TESK::Smart_file_name watershed_in = file_in(watershed_output, "in.xeb");
    const TESK::Smart_file_name watershed_out = file_in(watershed_output, "out.xeb");
    const TESK::Filtered_file_name detail =
        file_in(output_directory, "detail.txt", "txt", "Tilverra output details", "*.txt");
    const TESK::Filtered_file_name crop_N_fate =
        file_in(output_directory, "crop_N_fate.txt", "txt", "Tilverra crop N fate details", "*.txt");
    const TESK::Filtered_file_name harvest_report =
        file_in(output_directory, "harvest.htm", "htm", "Tilverra harvest", "*.htm");
    TESK::Smart_file_name recorded = file_in(output_directory, "recorded.xeb");
    const TESK::Smart_file_name daily_xeb = file_in(output_directory, "daily.xeb");
    const TESK::Smart_file_name season_xeb = file_in(output_directory, "season.xeb");
    const TESK::Smart_file_name annual_xeb = file_in(output_directory, "annual.xeb");
    const TESK::Smart_file_name harvest_xeb = file_in(output_directory, "harvest.xeb");
    const TESK::Smart_file_name grazing_regimen = file_in(output_directory, "grazing_regimen.dat");
    const TESK::Smart_file_name organic_matter_percents =
        file_in(output_directory, "organic_matter_percents.dat");
};
