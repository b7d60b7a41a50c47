#include "scenario_support.h"

#include "platform/current_directory.h"

#include <cmath>
#include <span>

namespace {

class Tilverra_scenario_test : public Scenario_test {};

TEST_F(Tilverra_scenario_test, a_new_scenario_is_this_file_byte_for_byte) {
    Tilverra_scenario scenario;
    const std::string text = save(scenario);
    EXPECT_EQ(text, contents("new_scenario.tvn"));
    EXPECT_EQ(save(*read(text)), text);
}

TEST_F(Tilverra_scenario_test, the_record_holds_what_a_file_says) {
    const auto scenario = read_file(data("base.tvn"));
    EXPECT_EQ(scenario->soil, "Database\\Soil\\silt loam.sil");
    EXPECT_EQ(scenario->model_options->ending_date.date_num, 2001365);
    EXPECT_EQ(scenario->model_options->runoff_model, Runoff_model::curve_number); // not in the file
    EXPECT_FLOAT_EQ(scenario->NO3[2], 8.5F);
    ASSERT_EQ(scenario->events.count(), 2U);
    const Common_event& irrigation = *event_at(*scenario, 0);
    EXPECT_EQ(scenario->describe_operation(irrigation), "IRRIGATION");
    std::string text;
    EXPECT_EQ(irrigation.begin_sync.text_str(text), "2 Days after flowering");
    EXPECT_TRUE(irrigation.begin_sync.repeat_each_season);
    EXPECT_FALSE(irrigation.has_period());
    const Common_event& harvest = *event_at(*scenario, 1);
    EXPECT_EQ(harvest.begin_sync.text_str(text), "1998/8/1 (actual date)");
    EXPECT_EQ(harvest.period->interval_time_step.get_label(), "fortnight");
    EXPECT_EQ(harvest.period->end_sync.text_str(text), "0 Days end");
    EXPECT_FALSE(harvest.checked);
}

TEST_F(Tilverra_scenario_test, a_scenario_saved_and_read_again_is_the_same) {
    for (const char* file : {"base.tvn", "version3.sim", "version3_unix_ends.sim"}) {
        const auto scenario = read_file(data(file));
        const std::string first = save(*scenario, "first.tvn");
        EXPECT_EQ(save(*read(first), "second.tvn"), first) << file;
        // Saved from the structure of its reading a scenario has more lines, and says the same.
        const std::string all_keys = save(*read_file(data(file), true), "all_keys.tvn");
        EXPECT_GT(all_keys.size(), first.size()) << file;
        EXPECT_EQ(save(*read(all_keys)), first) << file;
    }
}

TEST_F(Tilverra_scenario_test, a_version_3_file_is_carried_over) {
    for (const char* file : {"version3.sim", "version3_unix_ends.sim"}) {
        const std::string saved = save(*read_file(data(file)));
        for (const char* line :
             {"description=Version 3 control file", "soil=palouse.sil", "location=pullen.loc",
              "management=spring.mgt", "rotation=barley.rot", "run_nitrogen=true", "run_erosion=false",
              "infiltration_model=cascade", "enable=true", "starting_date=1985001 (1985/1/1)",
              "ending_date=1990365 (1990/12/31)", "event:count=0",
              "surface_biomass=0.2500000000 Surface biomass Residue",
              "incorporated_biomass=0.0500000007 Incorporated biomass (obsolete V4.4.1) Residue",
              "decomposition_time=0 Decomposition time constant Residue"}) // its row leads nowhere
            EXPECT_TRUE(has(saved, line)) << line;
        EXPECT_NE(saved.find("\r\nlabile_SOM_decomposition_constant=0.0299999993"), std::string::npos);
        EXPECT_EQ(section(saved, "version"), "[version]\r\nmajor=4\r\nrelease=14\r\nminor=4\r\n");
        EXPECT_EQ(saved.find("soil_filename"), std::string::npos);
    }
}

TEST_F(Tilverra_scenario_test, all_keys_that_moved_in_version_4_but_four_have_a_place_now) {
    Tilverra_scenario scenario;
    scenario.expect_structure(true);
    std::uint16_t count = 0;
    const Section_mapping* rows = scenario.get_section_mapping(count);
    std::string lost;
    for (const Section_mapping& row : std::span(rows, count)) {
        auto* section = static_cast<TESK::VV_section*>(scenario.sections.find_exact(row.new_section));
        ASSERT_NE(section, nullptr) << row.new_section;
        lost += section->find_entry(row.new_key) == nullptr ? std::string(row.old_key) + " " : "";
    }
    EXPECT_EQ(lost, "grass_filename residue_water_hold residue_N_conc decomposition_time ");
}

TEST_F(Tilverra_scenario_test, an_old_name_of_a_key_does_not_reach_the_key_that_has_its_new_name) {
    Tilverra_scenario unchanged;
    const std::string defaults = save(unchanged);
    for (const char* text : {"[initialize]\nstubble_biomass=1\nsurface_biomass=1\n",
                             "[initial_residue]\nsurface_residue=1\nincorporated_residue=1\n",
                             "[output]\nstarting_date=1990001\n", "[submodels]\nending_date=1990001\n",
                             "[simulation]\nrun_nitrogen=true\n[version]\nmajor=4\n"})
        EXPECT_EQ(save(*read(text)), defaults) << text;
}

TEST_F(Tilverra_scenario_test, keys_that_share_a_field_take_the_last_value_and_write_the_same) {
    const std::string text = save(*read(
        "[parameter_filenames]\nrotation=a.rot\nmanagement=a.mgt\nfixed_management=b.mgt\n[cropping_system]\n"
        "rotation=b.rot\nmanagement=crop.mgt\n[incorporated_residue]\nwater_hold=1\n[initial_manure]\n"
        "water_hold=2\nsurface_biomass=3\n"));
    const std::pair<const char*, const char*> lines[] = {
        {"parameter_filenames", "rotation=b.rot"},
        {"parameter_filenames", "management=b.mgt"},
        {"parameter_filenames", "fixed_management=b.mgt"},
        {"cropping_system", "rotation=b.rot"},
        {"cropping_system", "management=crop.mgt"},
        {"incorporated_residue", "water_hold=2.0000000000"},
        {"initial_manure", "water_hold=2.0000000000"},
        {"initial_manure", "surface_biomass=3.0000000000 Surface biomass Manure"},
        {"initial_residue", "surface_biomass=0.0000000000 Surface biomass Residue"}};
    for (const auto& [name, line] : lines)
        EXPECT_TRUE(has(section(text, name), line)) << name << line;
}

TEST_F(Tilverra_scenario_test, options_that_contradict_each_other_are_settled_on_reading) {
    for (const auto& [runoff_model, intensity, leaching_mode] : {std::tuple("numerical", true, "bottom"),
                                                                 {"curve_number", false, "specified"},
                                                                 {"none", false, "specified"}}) {
        const auto scenario = read(std::string("[submodels]\nrunoff_model=") + runoff_model +
                                   "\nrainfall_intensity=true\n[leaching_observation]\nmode=specified\n");
        EXPECT_EQ(scenario->model_options->rainfall_intensity, intensity) << runoff_model;
        EXPECT_EQ(scenario->model_options->leaching_observation_mode.get_label(), leaching_mode);
    }
    // The keys of older files come after that, so theirs stays.
    EXPECT_TRUE(read("[simulation]\nrainfall_intensity=true\n")->model_options->rainfall_intensity);
}

TEST_F(Tilverra_scenario_test, the_half_life_of_residue_follows_from_its_decomposition_time) {
    const std::pair<const char*, int> cases[] = {
        {"decomposition_time=60", 41},      {"decomposition_time=60\ndecomposition_time_50=7", 7},
        {"decomposition_time=2", 1},        {"decomposition_time=1", 0}, // by the logarithm of 0
        {"decomposition_time=0", 0},        {"decomposition_time=-5", 0},
        {"decomposition_time=32767", 22712}};
    for (const auto& [lines, half_life] : cases) {
        const auto scenario = read(std::string("[incorporated_residue]\n") + lines);
        EXPECT_EQ(scenario->residue.decomposition_time_50, half_life) << lines;
        EXPECT_EQ(scenario->manure.decomposition_time_50, 41);
    }
}

TEST_F(Tilverra_scenario_test, a_rotation_file_that_exists_sets_the_cropping_mode) {
    const platform::Directory_guard guard;
    ASSERT_TRUE(platform::change_directory(folder.name()));
    folder.write("wheat.rot", "");
    const auto mode = [this](const std::string& lines) {
        return read("[cropping_system]\n" + lines)->cropping_mode.get_label();
    };
    EXPECT_EQ(mode("rotation=wheat.rot"), "rotation");
    EXPECT_EQ(mode("rotation=barley.rot"), "none");
    EXPECT_EQ(mode("rotation=wheat.rot\ncropping_mode=single"), "single");
    EXPECT_EQ(mode("cropping_mode=no such mode"), "none");
}

TEST_F(Tilverra_scenario_test, numbers_and_words_out_of_range_are_quiet) {
    const auto scenario =
        read("[submodels]\nhourly=2\nrunoff_model=NUMERICAL\nsnow_pack_model=7\n"
             "evapotranspiration_model=penman-monteith\n[field]\nnumber=70000\nsize=1e999\n"
             "[weather]\ntemperature_phase=x\n[H2O]\n21=5\n0=5\nunits=furlong\n1=nonsense\n");
    EXPECT_EQ(scenario->model_options->hourly, 0U);
    EXPECT_EQ(scenario->model_options->runoff_model, Runoff_model::numerical);
    EXPECT_EQ(scenario->model_options->snow_pack_model.get_label(), "none");
    EXPECT_EQ(scenario->model_options->evapotranspiration_model.get_description(),
              "Penman - Monteith (FAO implementation)");
    EXPECT_EQ(scenario->field_number, 4464);
    EXPECT_TRUE(std::isinf(scenario->field_size));
    EXPECT_EQ(scenario->H2O[1], 0);
    // The unit of a file's own numbers stays beside them.
    EXPECT_TRUE(has(section(save(*scenario), "H2O"), "units=furlong"));

    Runoff_model_labeled outside;
    outside.set_int32(300);
    EXPECT_EQ(outside.get_label(), "44");
}

TEST_F(Tilverra_scenario_test, values_are_judged_by_the_ranges_of_their_quantity) {
    Tilverra_scenario scenario;
    scenario.NO3[20] = 10000;
    scenario.salt[1] = 30;
    scenario.H2O[2] = -1; // a lower limit of 0 never holds
    scenario.residue.N_conc = 0.001F;
    const std::pair<TESK::Valid_number&, int> expected[] = {{scenario.valid_NO3[20], 4},
                                                            {scenario.valid_salt[1], 10},
                                                            {scenario.valid_H2O[2], 12},
                                                            {scenario.residue.valid_N_conc, 8}};
    std::string message;
    for (const auto& [valid, status] : expected)
        EXPECT_EQ(static_cast<int>(valid.validate(message, false)), status) << message;
    EXPECT_EQ(scenario.valid_NO3[20].key, "20");
}

} // namespace
