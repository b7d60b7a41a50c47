#include "model/project_editor_parameters.h"

#include "names/directory_name.h"

namespace {

// The bits of a word: the statistics, two bits that mean nothing here and stay as they are, and the two sets
// of probabilities.
constexpr std::uint32_t field_mask = 0x3FF;
constexpr std::uint32_t kept_mask = 0xC00;
constexpr int prob10_shift = 12;
constexpr int prob5_shift = 22;

} // namespace

template <std::size_t variables>
void Tally_masks<variables>::pack(std::uint32_t* words) const {
    for (std::size_t i = 0; i < variables; ++i)
        words[i] = (prob5[i] & field_mask) << prob5_shift | (prob10[i] & field_mask) << prob10_shift |
                   (words[i] & kept_mask) | (statistics[i] & field_mask);
}

template <std::size_t variables>
void Tally_masks<variables>::unpack(const std::uint32_t* words) {
    for (std::size_t i = 0; i < variables; ++i) {
        statistics[i] = words[i] & field_mask;
        prob10[i] = words[i] >> prob10_shift & field_mask;
        prob5[i] = words[i] >> prob5_shift;
    }
}

template struct Tally_masks<Tilverra_project::growing_season_variables>;
template struct Tally_masks<Tilverra_project::annual_variables>;

Tilverra_project_editor_parameters::Tilverra_project_editor_parameters(const char* simulation_model)
    : cropping_system_model(simulation_model, "exe", "Cropping system simulation model", "*.exe"),
      output_options_file("\\Simulation\\Database\\Output\\default.tvs_output_options", "tvs_output_options",
                          "Output options", "*.tvs_output_options") {
    template_scenario.set_path(TESK::Directory_name("Scenarios"));
}

void Tilverra_project_editor_parameters::expect_structure(bool for_write) {
    Tilverra_project::expect_structure(for_write);
    make_primary_section_current();
    expect_file_name("cropping_system_model", cropping_system_model, 128);
    expect_file_name("template_scenario", template_scenario, 128);
    set_current_section("crop_production_function");
    expect_bool("water", water_production_function);
    set_current_section("GIS");
    expect_bool("subsurface_flow", subsurface_flow);
    carbon_sequestration.expect_structure(*this);
    GIS_parameters.expect_structure(*this);
}

void Tilverra_project_editor_parameters::postread() {
    Tilverra_project::postread();
    growing_season_tally.unpack(growing_season_statistics());
    annual_tally.unpack(annual_statistics());
}

void Tilverra_project_editor_parameters::prewrite() {
    Tilverra_project::prewrite();
    growing_season_tally.pack(growing_season_statistics());
    annual_tally.pack(annual_statistics());
}
