#include "scenario_support.h"

#include "platform/current_directory.h"

#include <cmath>
#include <sstream>

namespace {

class Tilverra_scenario_test : public Scenario_test {};

TEST_F(Tilverra_scenario_test, a_new_scenario_is_written_in_the_order_of_the_format) {
    Tilverra_scenario scenario;
    const std::string text = save(scenario);
    std::istringstream lines(text);
    std::string headers;
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with('['))
            headers += line.substr(1, line.find(']') - 1) + " ";
    EXPECT_EQ(headers, "scenario version parameter_filenames cropping_system simulation output submodels CO2 "
                       "crop_production_function leaching_observation optimization_output H2O "
                       "initial_residue incorporated_residue initial_manure salt adjustment NO3 NH4 %OM "
                       "microbial_biomass labile_SOM metastable_SOM passive_SOM organic_matter_history "
                       "organic_matter_decomposition topography STATSGO field weather mean_peak_rainfall "
                       "GUI ");

    EXPECT_EQ(section(text, "scenario"), "[scenario]\r\ndetails_URL=\r\ndescription=\r\nevent:count=0\r\n");
    EXPECT_EQ(section(text, "parameter_filenames"),
              "[parameter_filenames]\r\nSOIL_ID=0\r\nLOC_ID=0\r\nROT_ID=0\r\nLBF_ID=0\r\nLBF_INIT_ID=0\r\n"
              "soil=<Required (This must be selected)>\r\nlocation=<Required (This must be selected)>\r\n"
              "weather_database=<Required (This must be selected)>\r\n"
              "rotation=<Usually specified (unless always fallow)>\r\n"
              "management=<Optional (Currently not selected)>\r\n"
              "fixed_management=<Optional (Currently not selected)>\r\n"
              "recalibration=<Optional (Currently not selected)>\r\n"
              "water_table=<Optional (Currently not_selected)>\r\n");
    EXPECT_TRUE(has(text, "previous_crop=<unknown or no previous crop residue>.crp"));
    EXPECT_TRUE(has(text, "report_format=no_format.fmt"));
    EXPECT_TRUE(has(text, "options=no_options.tvs_output_options"));

    // One line of each sort.
    EXPECT_TRUE(has(text, "water_percents=7ff"));
    EXPECT_TRUE(has(text, "sowing_date=0 (Date omitted)"));
    EXPECT_TRUE(has(text, "ending_date=2001001 (2001/1/1)"));
    EXPECT_TRUE(has(text, "precipitaton_duration=1440"));
    EXPECT_TRUE(has(text, "adjust_denitrify=0.1000000015"));
    EXPECT_TRUE(has(text, "aspect=180.0000000000"));
    EXPECT_TRUE(has(text, "size=0.0000000000  ha"));
    EXPECT_TRUE(has(text, "depth=0.0000000000 Observation depth (0.0 indicates bottom of soil profile)"));
    EXPECT_TRUE(has(text, "passive_SOM_decomposition_constant=0.0000185000 Passive stable organic matter "
                          "Decomposition constant"));
    EXPECT_TRUE(has(section(text, "initial_residue"),
                    "incorporated_biomass=0.0000000000 Incorporated biomass (obsolete V4.4.1) Residue"));
    EXPECT_TRUE(has(text,
                    "ECw_to_TDS=0.6399999857 Water table ECw (dS/m) -> TDS (kg/m\xB3) conversion factor "
                    "Eletrical conductivity in water (dS/m) to total dissolved solids (l/g or "
                    "kg/m\xB3). Usually about 0.64."));
    EXPECT_TRUE(has(text, "partitioning_mode=previous intenstive crop cultivation"));

    EXPECT_EQ(save(*read(text)), text);
}

TEST_F(Tilverra_scenario_test, layers_stand_behind_the_unit_of_their_quantity) {
    struct Case {
        const char* section;
        const char* units;
        const char* third_and_fourth;
        int last;
    };
    const Case cases[] = {
        {"H2O", "m H2O/m soil", "3=0.0000000000\r\n4=0.0000000000", 20},
        {"incorporated_residue", "kg/m\xB2", "3=0.0000000000\r\n4=0.0000000000", 20},
        {"salt", "dS/m", "3=0.0000000000\r\n4=0.0000000000", 20},
        {"NO3", "kg/ha", "3=0.0000000000\r\n4=0.0000000000", 20},
        {"NH4", "kg/ha", "3=0.0000000000\r\n4=0.0000000000", 20},
        {"%OM", "%", "3=0.0000000000\r\n4=0.0000000000", 20},
        {"microbial_biomass", "%", "3=3.0000000000\r\n4=0.5000000000", 20},
        {"labile_SOM", "%", "3=2.0000000000\r\n4=0.0000000000", 20},
        {"metastable_SOM", "%", "3=45.0000000000\r\n4=1.0000000000", 20},
        {"passive_SOM", "%", "3=50.0000000000\r\n4=98.5000000000", 20},
        {"mean_peak_rainfall", "mm", "3=0.0000000000\r\n4=0.0000000000", 12},
    };
    Tilverra_scenario scenario;
    const std::string file = save(scenario);
    for (const Case& c : cases) {
        const std::string text = section(file, c.section);
        const auto holds = [&text](const std::string& lines) {
            return text.find(lines) != std::string::npos;
        };
        EXPECT_TRUE(holds(std::string("\r\nunits=") + c.units + "\r\n1=")) << text;
        EXPECT_TRUE(holds(c.third_and_fourth)) << text;
        EXPECT_TRUE(holds("\r\n" + std::to_string(c.last) + "=")) << text;
        EXPECT_FALSE(holds("\r\n" + std::to_string(c.last + 1) + "=")) << text;
    }
}

TEST_F(Tilverra_scenario_test, the_record_holds_what_a_file_says) {
    const auto scenario = read_file(data("base.tvn"));
    const Tilverra_model_options& options = *scenario->model_options;
    EXPECT_EQ(scenario->description, "Winter wheat, deficit irrigation");
    EXPECT_EQ(scenario->soil, "Database\\Soil\\silt loam.sil");
    EXPECT_EQ(scenario->rotation, "Database\\Rotation\\wheat-fallow.rot");
    EXPECT_EQ(scenario->management, "<Optional (Currently not selected)>");
    EXPECT_EQ(scenario->cropping_mode, Cropping_system_mode::rotation);
    EXPECT_EQ(options.starting_date.date_num, 1996001);
    EXPECT_EQ(options.ending_date.date_num, 2001365);
    EXPECT_EQ(options.hourly, 5U);
    EXPECT_TRUE(options.run_nitrogen);
    EXPECT_EQ(options.infiltration_model.get_label(), "finite_diff");
    EXPECT_EQ(options.runoff_model, Runoff_model::curve_number); // not in the file
    EXPECT_FLOAT_EQ(scenario->H2O[1], 0.25F);
    EXPECT_FLOAT_EQ(scenario->H2O[3], 0.3F);
    EXPECT_FLOAT_EQ(scenario->NO3[2], 8.5F);
    EXPECT_EQ(scenario->field_number, 7);
    EXPECT_FLOAT_EQ(scenario->field_size, 12.5F);

    ASSERT_EQ(scenario->events.count(), 2U);
    const Common_event& irrigation = *event_at(*scenario, 0);
    EXPECT_EQ(irrigation.ID, "2451545.0000000000 (default)");
    EXPECT_EQ(scenario->describe_operation(irrigation), "IRRIGATION");
    EXPECT_EQ(irrigation.operation_filename, "Database\\Management\\furrow.op");
    std::string text;
    EXPECT_EQ(irrigation.begin_sync.text_str(text), "2 Days after flowering");
    EXPECT_TRUE(irrigation.begin_sync.repeat_each_season);
    EXPECT_FALSE(irrigation.has_period());
    const Common_event& harvest = *event_at(*scenario, 1);
    EXPECT_EQ(harvest.begin_sync.text_str(text), "1998/8/1 (actual date)");
    EXPECT_TRUE(harvest.has_period());
    EXPECT_EQ(harvest.period->event_repetitions, 3);
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
        const auto scenario = read_file(data(file));
        const Tilverra_model_options& options = *scenario->model_options;
        EXPECT_EQ(scenario->description, "Version 3 control file");
        EXPECT_EQ(scenario->soil, "palouse.sil");
        EXPECT_EQ(scenario->location, "pullen.loc");
        EXPECT_EQ(scenario->management, "spring.mgt");
        EXPECT_EQ(scenario->rotation, "barley.rot");
        EXPECT_TRUE(options.run_nitrogen);
        EXPECT_FALSE(options.run_erosion);
        EXPECT_EQ(options.infiltration_model.get_label(), "cascade");
        EXPECT_TRUE(options.simulate_CO2);
        EXPECT_EQ(options.starting_date.date_num, 1985001);
        EXPECT_EQ(options.ending_date.date_num, 1990365);
        EXPECT_FLOAT_EQ(scenario->residue.surface_biomass, 0.25F);
        EXPECT_FLOAT_EQ(scenario->residue.incorporated_biomass, 0.05F);
        EXPECT_EQ(scenario->residue.decomposition_time, 0); // its row leads nowhere
        EXPECT_FLOAT_EQ(scenario->decomposition.labile_SOM_decomposition_constant, 0.03F);
        EXPECT_TRUE(scenario->events.is_empty());
        const std::string saved = save(*scenario);
        EXPECT_EQ(section(saved, "version"), "[version]\r\nmajor=4\r\nrelease=14\r\nminor=4\r\n");
        EXPECT_EQ(saved.find("soil_filename"), std::string::npos);
    }
}

TEST_F(Tilverra_scenario_test, keys_that_moved_in_version_4_are_carried_over_from_older_files_only) {
    struct Case {
        const char* old_section;
        const char* old_key;
        const char* section;
        const char* key;
        const char* value; // a text that the new key writes back as it is
    };
    const Case cases[] = {
        {"simulation", "description", "scenario", "description", "text"},
        {"simulation", "soil_filename", "parameter_filenames", "soil", "x.sil"},
        {"simulation", "location_filename", "parameter_filenames", "location", "x.loc"},
        {"simulation", "management_filename", "parameter_filenames", "management", "x.mgt"},
        {"simulation", "rotation_filename", "parameter_filenames", "rotation", "x.rot"},
        {"simulation", "recalibration_filename", "parameter_filenames", "recalibration", "x.rcl"},
        {"simulation", "water_table_filename", "parameter_filenames", "water_table", "x.wtb"},
        {"simulation", "grass_filename", "parameter_filenames", "grass", nullptr},
        {"simulation", "run_time_graph", "output", "run_time_graph", "false"},
        {"simulation", "display_profile", "output", "display_profile", "true"},
        {"simulation", "run_chemical", "submodels", "run_chemical", "true"},
        {"simulation", "run_nitrogen", "submodels", "run_nitrogen", "true"},
        {"simulation", "run_erosion", "submodels", "run_erosion", "true"},
        {"simulation", "run_freezing", "submodels", "run_freezing", "true"},
        {"simulation", "erode_soil", "submodels", "erode_soil", "true"},
        {"simulation", "constant_organic_matter", "submodels", "constant_organic_matter", "true"},
        {"simulation", "salinity", "submodels", "salinity", "true"},
        {"simulation", "infiltration_model", "submodels", "infiltration_model", "finite_diff"},
        {"simulation", "snow_pack_model", "submodels", "snow_pack_model", "energy"},
        {"simulation", "runoff_model", "submodels", "runoff_model", "numerical"},
        {"simulation", "rainfall_intensity", "submodels", "rainfall_intensity", "true"},
        {"simulation", "simulate_CO2", "CO2", "enable", "true"},
        {"initialize", "surface_residue", "initial_residue", "surface_biomass", "2.0000000000"},
        {"initialize", "incorp_residue", "initial_residue", "incorporated_biomass", "2.0000000000"},
        {"initialize", "residue_water_hold", "initial_residue", "water_hold", nullptr},
        {"initialize", "residue_N_conc", "initial_residue", "N_conc", nullptr},
        {"initialize", "decomposition_time", "initial_residue", "decomposition_time", nullptr},
        {"organic_matter_history", "microbial_biomass_decomposition_constant", "organic_matter_decomposition",
         "microbial_biomass_decomposition_constant", "2.0000000000"},
        {"organic_matter_history", "labile_SOM_decomposition_constant", "organic_matter_decomposition",
         "labile_SOM_decomposition_constant", "2.0000000000"},
        {"organic_matter_history", "metastable_SOM_decomposition_constant", "organic_matter_decomposition",
         "metastable_SOM_decomposition_constant", "2.0000000000"},
        {"organic_matter_history", "passive_SOM_decomposition_constant", "organic_matter_decomposition",
         "passive_SOM_decomposition_constant", "2.0000000000"},
    };
    Tilverra_scenario unchanged;
    const std::string defaults = save(unchanged);
    for (const Case& c : cases) {
        const std::string value = c.value == nullptr ? "2" : c.value;
        const std::string old = std::string("[") + c.old_section + "]\n" + c.old_key + "=" + value + "\n";
        const std::string saved = save(*read("[version]\nmajor=3\nrelease=99\nminor=99\n" + old));
        const std::string line = std::string("\r\n") + c.key + "=" + value;
        EXPECT_EQ(section(saved, c.section).find(line) != std::string::npos, c.value != nullptr)
            << c.old_key << "\n"
            << section(saved, c.section);
        if (c.value == nullptr) {
            EXPECT_EQ(saved, defaults) << c.old_key;
        }
        EXPECT_EQ(save(*read("[version]\nmajor=4\n" + old)), defaults) << c.old_key;
    }
    std::uint16_t count = 0;
    unchanged.get_section_mapping(count);
    EXPECT_EQ(count, std::size(cases));
}

TEST_F(Tilverra_scenario_test, an_old_name_of_a_key_does_not_reach_the_key_that_has_its_new_name) {
    Tilverra_scenario unchanged;
    const std::string defaults = save(unchanged);
    const char* const inert[] = {
        "[initialize]\nstubble_biomass=1\nsurface_biomass=1\n",
        "[initial_residue]\nsurface_residue=1\nincorporated_residue=1\n",
        "[output]\nstarting_date=1990001\n",
        "[submodels]\nending_date=1990001\n",
    };
    for (const char* text : inert)
        EXPECT_EQ(save(*read(text)), defaults) << text;
    const auto scenario =
        read("[simulation]\nrun_nitrogen=true\nstarting_date=1990001\n[version]\nmajor=4\n");
    EXPECT_FALSE(scenario->model_options->run_nitrogen);
    EXPECT_EQ(scenario->model_options->starting_date.date_num, 1990001);
}

TEST_F(Tilverra_scenario_test, keys_that_share_a_field_take_the_last_value_and_write_the_same) {
    const auto scenario = read("[parameter_filenames]\nrotation=a.rot\nmanagement=a.mgt\n"
                               "fixed_management=b.mgt\n[cropping_system]\nrotation=b.rot\n"
                               "management=crop.mgt\n[incorporated_residue]\nwater_hold=1\n"
                               "[initial_manure]\nwater_hold=2\nsurface_biomass=3\n");
    const std::string text = save(*scenario);
    const std::string names = section(text, "parameter_filenames");
    const std::string cropping = section(text, "cropping_system");
    EXPECT_TRUE(has(names, "rotation=b.rot"));
    EXPECT_TRUE(has(names, "management=b.mgt"));
    EXPECT_TRUE(has(names, "fixed_management=b.mgt"));
    EXPECT_TRUE(has(cropping, "rotation=b.rot"));
    EXPECT_TRUE(has(cropping, "management=crop.mgt"));
    EXPECT_TRUE(has(section(text, "incorporated_residue"), "water_hold=2.0000000000"));
    EXPECT_TRUE(has(section(text, "initial_manure"), "water_hold=2.0000000000"));
    EXPECT_EQ(scenario->residue.surface_biomass, 0);
    EXPECT_EQ(scenario->manure.surface_biomass, 3);
}

TEST_F(Tilverra_scenario_test, options_that_contradict_each_other_are_settled_on_reading) {
    struct Case {
        const char* runoff_model;
        bool rainfall_intensity;
        const char* leaching_mode;
    };
    for (const Case& c : {Case{"numerical", true, "bottom"},
                          {"curve_number", false, "specified"},
                          {"none", false, "specified"}}) {
        const auto scenario = read(std::string("[submodels]\nrunoff_model=") + c.runoff_model +
                                   "\nrainfall_intensity=true\n[leaching_observation]\nmode=specified\n");
        EXPECT_EQ(scenario->model_options->rainfall_intensity, c.rainfall_intensity) << c.runoff_model;
        EXPECT_EQ(scenario->model_options->leaching_observation_mode.get_label(), c.leaching_mode);
    }
    // The keys of older files come after that, so theirs stays.
    const auto old = read("[simulation]\nrainfall_intensity=true\n");
    EXPECT_TRUE(old->model_options->rainfall_intensity);
}

TEST_F(Tilverra_scenario_test, the_half_life_of_residue_follows_from_its_decomposition_time) {
    struct Case {
        const char* lines;
        std::int16_t half_life;
    };
    const Case cases[] = {
        {"decomposition_time=60", 41},       {"decomposition_time=60\ndecomposition_time_50=7", 7},
        {"decomposition_time=2", 1},         {"decomposition_time=1", 0}, // by the logarithm of 0
        {"decomposition_time=0", 0},         {"decomposition_time=-5", 0},
        {"decomposition_time=32767", 22712},
    };
    for (const Case& c : cases) {
        const auto scenario = read(std::string("[incorporated_residue]\n") + c.lines);
        EXPECT_EQ(scenario->residue.decomposition_time_50, c.half_life) << c.lines;
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
    EXPECT_TRUE(has(section(save(*scenario), "H2O"), "units=m H2O/m soil"));

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
