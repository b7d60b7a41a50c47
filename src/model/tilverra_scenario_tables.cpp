#include "model/tilverra_scenario.h"

#include <iterator>

namespace {

constexpr Record_version version_4{4, 0, 0};

constexpr Section_mapping mappings[] = {
    {version_4, "simulation", "description", "scenario", "description"},
    {version_4, "simulation", "soil_filename", "parameter_filenames", "soil"},
    {version_4, "simulation", "location_filename", "parameter_filenames", "location"},
    {version_4, "simulation", "management_filename", "parameter_filenames", "management"},
    {version_4, "simulation", "rotation_filename", "parameter_filenames", "rotation"},
    {version_4, "simulation", "recalibration_filename", "parameter_filenames", "recalibration"},
    {version_4, "simulation", "water_table_filename", "parameter_filenames", "water_table"},
    {version_4, "simulation", "grass_filename", "parameter_filenames", "grass"},
    {version_4, "simulation", "run_time_graph", "output", "run_time_graph"},
    {version_4, "simulation", "display_profile", "output", "display_profile"},
    {version_4, "simulation", "run_chemical", "submodels", "run_chemical"},
    {version_4, "simulation", "run_nitrogen", "submodels", "run_nitrogen"},
    {version_4, "simulation", "run_erosion", "submodels", "run_erosion"},
    {version_4, "simulation", "run_freezing", "submodels", "run_freezing"},
    {version_4, "simulation", "erode_soil", "submodels", "erode_soil"},
    {version_4, "simulation", "constant_organic_matter", "submodels", "constant_organic_matter"},
    {version_4, "simulation", "salinity", "submodels", "salinity"},
    {version_4, "simulation", "infiltration_model", "submodels", "infiltration_model"},
    {version_4, "simulation", "snow_pack_model", "submodels", "snow_pack_model"},
    {version_4, "simulation", "runoff_model", "submodels", "runoff_model"},
    {version_4, "simulation", "rainfall_intensity", "submodels", "rainfall_intensity"},
    {version_4, "simulation", "simulate_CO2", "CO2", "enable"},
    {version_4, "initialize", "surface_residue", "initial_residue", "surface_biomass"},
    {version_4, "initialize", "incorp_residue", "initial_residue", "incorporated_biomass"},
    {version_4, "initialize", "residue_water_hold", "initial_residue", "water_hold"},
    {version_4, "initialize", "residue_N_conc", "initial_residue", "N_conc"},
    {version_4, "initialize", "decomposition_time", "initial_residue", "decomposition_time"},
    {version_4, "organic_matter_history", "microbial_biomass_decomposition_constant",
     "organic_matter_decomposition", "microbial_biomass_decomposition_constant"},
    {version_4, "organic_matter_history", "labile_SOM_decomposition_constant", "organic_matter_decomposition",
     "labile_SOM_decomposition_constant"},
    {version_4, "organic_matter_history", "metastable_SOM_decomposition_constant",
     "organic_matter_decomposition", "metastable_SOM_decomposition_constant"},
    {version_4, "organic_matter_history", "passive_SOM_decomposition_constant",
     "organic_matter_decomposition", "passive_SOM_decomposition_constant"},
};

} // namespace

const Section_mapping* Tilverra_scenario::get_section_mapping(std::uint16_t& count) const {
    count = static_cast<std::uint16_t>(std::size(mappings));
    return mappings;
}
