#include "operations/scenario_generator.h"

#include "model/tilverra_scenario.h"
#include "records/vv_file.h"
#include "support/failing_step.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>
#include <stdexcept>

namespace {

class Scenario_generator_test : public testing::Test {
protected:
    Scenario_generator_test() {
        drives.write("p.tvp");
        drives.write("temporary/.keep");
        drives.write("p/Scenarios/base.tvn", "[scenario]\ndescription=Base\n[parameter_filenames]\n"
                                             "soil=Database\\Soil\\own.sil\n[H2O]\n1=0.5\n");
        project.template_scenario.set("Scenarios\\base.tvn");
        directory.emplace(TESK::File_name("C:\\p.tvp"), 0);
    }

    // Gives how many scenarios were written.
    std::size_t generate(Change_backups* backups = nullptr) {
        trace.str("");
        listed.clear();
        outcome = generate_scenarios(project, *directory, backups, trace, [this](const std::string& name) {
            listed.push_back(name);
            return on_listed(listed.size());
        });
        return outcome.done;
    }
    Generation_plan plan() { return plan_generation(project, *directory); }
    std::unique_ptr<Tilverra_scenario> generated(const std::string& number) {
        auto scenario = std::make_unique<Tilverra_scenario>();
        EXPECT_TRUE(TESK::VV_file(("C:\\p\\Generated_scenarios\\" + number + ".tvn").c_str()).get(*scenario))
            << number;
        return scenario;
    }
    // The entries of a folder below c:, each with a blank.
    std::string entries(const std::string& path) const { return entries_of(drives.host(path)); }
    void write_overlays() {
        drives.write("p/Database/initialization/1 water/dry.TVS_init", "[H2O]\n1=0.1\n");
        drives.write("p/Database/initialization/1 water/wet.tvs_INIT", "[H2O]\n2=0.4\n");
        drives.write("p/Database/initialization/1 water/readme.txt");
        drives.write("p/Database/initialization/2 salt/fresh.TVS_init", "[salt]\n1=1\n");
        drives.write("p/Database/initialization/2 salt/salty.TVS_init", "[salt]\n2=9\n[H2O]\n3=0.3\n");
    }
    void expect_nothing_left_over() const {
        EXPECT_EQ(entries("temporary"), ".keep ");
        EXPECT_EQ(entries("p"), "Database Generated_scenarios Scenarios ");
    }

    Temporary_drives drives;
    Environment_guard temporary{"TMPDIR", drives.host("temporary")};
    Tilverra_project_editor_parameters project{"model.exe"};
    std::optional<Tilverra_project_directory> directory;
    std::ostringstream trace;
    std::vector<std::string> listed;
    Operation_outcome outcome;
    std::function<bool(std::size_t count)> on_listed = [](std::size_t) { return true; };
};

TEST_F(Scenario_generator_test, an_empty_database_gives_one_scenario_with_the_templates_own_files) {
    EXPECT_EQ(generate(), 1U);
    EXPECT_EQ(entries("p/Generated_scenarios"), "00001.tvn ");
    EXPECT_EQ(listed, std::vector<std::string>{"00001.tvn"});
    const auto scenario = generated("00001");
    EXPECT_EQ(scenario->description, "Base");
    EXPECT_EQ(scenario->soil, "Database\\Soil\\own.sil");
    EXPECT_EQ(scenario->rotation, "<Usually specified (unless always fallow)>");
    EXPECT_EQ(trace.str(), "");
    EXPECT_EQ(platform::current_directory(), "C:\\p");

    // Relative names count from the project's folder. The file is none of the soil dimension, but it is
    // there.
    drives.write("p/Database/Soil/sub/deep.sil");
    drives.write("p/Scenarios/base.tvn", "[parameter_filenames]\nsoil=Database\\Soil\\sub\\deep.sil\n");
    drives.write("Scenarios/base.tvn", "[scenario]\ndescription=Wrong\n");
    EXPECT_EQ(generate(), 1U);
    EXPECT_EQ(generated("00001")->description, " deep.sil");
}

TEST_F(Scenario_generator_test, combinations_come_in_the_order_of_the_loops_each_from_the_template_afresh) {
    for (const char* file : {"Soil/clay.sil", "Soil/Sand.SIL", "Soil/notes.txt", "Weather/north.XEB",
                             "Rotation/wheat.rot", "Rotation/barley.rot", "recalibration/none.txt"})
        drives.write(std::string("p/Database/") + file);
    drives.write("p/Generated_scenarios/00004.tvn", "[scenario]\ndescription=old\n");
    drives.write("p/Generated_scenarios/00005.tvn", "old");
    std::filesystem::remove(drives.host("p/Generated_scenarios/00004.tvn"));

    EXPECT_EQ(generate(), 4U);
    const char* expected[] = {"Base clay.sil north.XEB barley.rot", "Base clay.sil north.XEB wheat.rot",
                              "Base Sand.SIL north.XEB barley.rot", "Base Sand.SIL north.XEB wheat.rot"};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(generated("0000" + std::to_string(i + 1))->description, expected[i]);
    const auto scenario = generated("00003");
    EXPECT_EQ(scenario->soil, "C:\\p\\Database\\Soil\\Sand.SIL");
    EXPECT_EQ(scenario->weather_database, "C:\\p\\Database\\Weather\\north.XEB");
    EXPECT_EQ(scenario->rotation, "C:\\p\\Database\\Rotation\\barley.rot");
    EXPECT_EQ(scenario->water_table, "<Optional (Currently not_selected)>");
    EXPECT_EQ(scenario->H2O[1], 0.5F);
    EXPECT_EQ(drives.read("p/Generated_scenarios/00005.tvn"), "old");
}

TEST_F(Scenario_generator_test, overlays_of_each_folder_lie_over_each_other_and_over_nothing_else) {
    write_overlays();
    drives.write("p/Database/Soil/clay.sil");
    drives.write("p/Scenarios/base.tvn",
                 "[scenario]\ndescription=Base\n[H2O]\n1=0.5\n[NO3]\nunits=lb/acre\n");
    EXPECT_EQ(generate(), 4U);
    const std::pair<std::string, std::vector<float>> cases[] = {
        // Three layers of water, and two of salt.
        {"Base clay.sil dry.TVS_init fresh.TVS_init", {0.1F, 0, 0, 1, 0}},
        {"Base clay.sil dry.TVS_init salty.TVS_init", {0.1F, 0, 0.3F, 0, 9}},
        {"Base clay.sil wet.tvs_INIT fresh.TVS_init", {0.5F, 0.4F, 0, 1, 0}},
        {"Base clay.sil wet.tvs_INIT salty.TVS_init", {0.5F, 0.4F, 0.3F, 0, 9}},
    };
    std::string lines;
    for (int i = 0; i < 4; ++i) {
        const auto scenario = generated("0000" + std::to_string(i + 1));
        const auto& [description, layers] = cases[i];
        EXPECT_EQ(scenario->description, description);
        EXPECT_EQ((std::vector<float>{scenario->H2O[1], scenario->H2O[2], scenario->H2O[3], scenario->salt[1],
                                      scenario->salt[2]}),
                  layers)
            << description;
        EXPECT_NE(drives.read("p/Generated_scenarios/0000" + std::to_string(i + 1) + ".tvn").find("lb/acre"),
                  std::string::npos)
            << description;
        lines += description + '\n';
    }
    EXPECT_EQ(trace.str(), lines);
    expect_nothing_left_over();

    // One folder without an overlay leaves nothing to combine.
    drives.write("p/Database/initialization/3/readme.txt");
    EXPECT_EQ(plan().count, 0U);
    EXPECT_EQ(generate(), 0U);
}

TEST_F(Scenario_generator_test, a_file_of_the_users_in_the_place_of_the_working_file_stays) {
    write_overlays();
    drives.write("p/base_clay", "precious");
    const std::string long_name(120, 'n');
    for (const std::string& file :
         {std::string("Soil/clay.sil"), "Weather/" + long_name + ".XEB", "Rotation/" + long_name + ".rot",
          "recalibration/" + long_name + ".rcl"}) {
        drives.write("p/Database/" + file);
        std::filesystem::remove_all(drives.host("p/Generated_scenarios"));
        EXPECT_EQ(generate(), 4U) << file;
        EXPECT_EQ(generated("00001")->salt[1], 1) << file;
        EXPECT_EQ(generated("00001")->H2O[1], 0.1F) << file;
    }
    EXPECT_EQ(drives.read("p/base_clay"), "precious");
    EXPECT_EQ(entries("p"), "Database Generated_scenarios Scenarios base_clay ");
}

TEST_F(Scenario_generator_test, a_listener_stops_it_before_the_next_file_and_leaves_nothing_over) {
    write_overlays();
    on_listed = [](std::size_t count) { return count < 3; };
    EXPECT_EQ(generate(), 2U);
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(entries("p/Generated_scenarios"), "00001.tvn 00002.tvn ");
    expect_nothing_left_over();

    std::filesystem::remove_all(drives.host("p/Generated_scenarios"));
    on_listed = [](std::size_t count) { return count < 2 ? true : throw std::runtime_error("gone"); };
    EXPECT_THROW(generate(), std::runtime_error);
    expect_nothing_left_over();

    std::filesystem::remove_all(drives.host("p/Generated_scenarios"));
    std::filesystem::remove_all(drives.host("p/Database/initialization"));
    on_listed = [](std::size_t) { return false; };
    EXPECT_EQ(generate(), 0U);
    EXPECT_EQ(entries("p/Generated_scenarios"), "");
}

TEST_F(Scenario_generator_test, a_plan_tells_what_there_will_be_and_makes_nothing) {
    write_overlays();
    drives.write("p/Generated_scenarios/00003.TVN", "old");
    drives.write("p/Generated_scenarios/00005.tvn", "beyond");
    EXPECT_EQ(plan().count, 4U);
    EXPECT_EQ(plan().replaced, std::vector<std::string>{"C:\\p\\Generated_scenarios\\00003.TVN"});
    std::filesystem::remove_all(drives.host("p/Database"));
    EXPECT_EQ(plan().count, 1U);
    EXPECT_EQ(plan().unread_events, 0);
    drives.write("p/Scenarios/base.tvn", "[scenario]\nevent_count=1\n[event_1]\nID=a\n");
    EXPECT_EQ(plan().unread_events, 1);
    EXPECT_EQ(entries("p/Generated_scenarios"), "00003.TVN 00005.tvn ");
}

TEST_F(Scenario_generator_test, what_cannot_be_written_is_told_and_so_is_what_would_be_made_from_it) {
    write_overlays();
    drives.write("p/Generated_scenarios", "a file");
    EXPECT_EQ(generate(), 0U);
    EXPECT_EQ(outcome.not_done.size(), 4U);
    expect_nothing_left_over();

    // Without a base there is nothing to lay an overlay over.
    std::filesystem::remove(drives.host("p/Generated_scenarios"));
    Full_disk faults;
    on_listed = [&](std::size_t count) {
        if (count == 1)
            faults.clear();
        return true;
    };
    EXPECT_EQ(generate(), 0U);
    ASSERT_EQ(outcome.not_done.size(), 4U);
    EXPECT_EQ(outcome.not_done[3].reason, "The disk is full.");
    EXPECT_EQ(entries("p/Generated_scenarios"), "");
    expect_nothing_left_over();
}

TEST_F(Scenario_generator_test, what_cannot_be_read_generates_nothing_and_is_named) {
    drives.write("p/Generated_scenarios/00001.tvn", "old");
    drives.write("p/Database/Soil/clay.sil");
    const auto expect_refused = [this](const char* reason) {
        EXPECT_EQ(generate(), 0U);
        EXPECT_EQ(outcome.refused, reason);
        EXPECT_EQ(plan().refused, reason);
        EXPECT_EQ(drives.read("p/Generated_scenarios/00001.tvn"), "old");
    };
    project.template_scenario.set("Scenarios\\gone.tvn");
    expect_refused("The template scenario cannot be read: C:\\p\\Scenarios\\gone.tvn");
    project.template_scenario.set("Scenarios\\base.tvn");
    Failing_step faults(platform::Write_step::list, EIO);
    expect_refused("The folder cannot be read: C:\\p\\Database\\Soil");
    faults.clear();
    write_overlays();
    std::filesystem::resize_file(drives.host("p/Database/initialization/2 salt/salty.TVS_init"),
                                 TESK::VV_file::largest_file + 1);
    expect_refused("The file cannot be read: C:\\p\\Database\\initialization\\2 salt\\salty.TVS_init");
}

// A template with some of the lines that a scenario can have, some of other programs, and events.
std::string random_template(std::mt19937& random, const std::string& all_lines) {
    std::istringstream lines(all_lines);
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        const unsigned draw = random() % 8;
        if (line.starts_with('[') || line.starts_with("event:count") || draw > 3)
            text += line + '\n';
        else if (draw == 1)
            text += line.substr(0, line.find('=') + 1) + std::to_string(random() % 500) + '\n';
        else if (draw == 2)
            text += "stranger" + std::to_string(random() % 9) + "=x\n";
    }
    const unsigned events = random() % 4;
    text += "[scenario]\nevent:count=" + std::to_string(events) + '\n';
    for (unsigned i = 1; i <= events; ++i)
        text += "[event:" + std::to_string(i) + "]\nID=" + std::to_string(random()) + "\nenabled=true\n";
    return text;
}

TEST_F(Scenario_generator_test, each_scenario_is_the_one_that_the_template_read_afresh_would_give) {
    const std::vector<std::string> soils = {"a", "much longer", "b"};
    for (const std::string& soil : soils)
        drives.write("p/Database/Soil/" + soil + ".sil");
    for (const char* file : {"Rotation/r.rot", "Rotation/s.rot", "water_table/w.wtb"})
        drives.write(std::string("p/Database/") + file);
    const auto saved = [this](const std::string& name, auto change) {
        Tilverra_scenario scenario;
        TESK::VV_file("C:\\p\\Scenarios\\base.tvn").get(scenario);
        change(scenario);
        TESK::VV_file(("C:\\" + name).c_str()).set(scenario);
        return drives.read(name);
    };
    const std::string all_lines = saved("plain.tvn", [](Tilverra_scenario&) {});
    std::mt19937 random(7);
    for (int round = 0; round < 25; ++round) {
        drives.write("p/Scenarios/base.tvn", random_template(random, all_lines));
        ASSERT_EQ(generate(), 6U);
        for (int i = 0; i < 6; ++i) {
            const std::string soil = soils[i / 2 == 0 ? 0 : 3 - i / 2];
            const std::string rotation = i % 2 == 0 ? "r.rot" : "s.rot";
            const std::string expected = saved("afresh.tvn", [&](Tilverra_scenario& scenario) {
                scenario.description += " " + soil + ".sil " + rotation + " w.wtb";
                scenario.soil.set("C:\\p\\Database\\Soil\\" + soil + ".sil");
                scenario.rotation.set("C:\\p\\Database\\Rotation\\" + rotation);
                scenario.water_table.set("C:\\p\\Database\\water_table\\w.wtb");
            });
            ASSERT_EQ(drives.read("p/Generated_scenarios/0000" + std::to_string(i + 1) + ".tvn"), expected);
        }
    }
}

TEST_F(Scenario_generator_test, a_generation_over_an_earlier_one_can_be_undone_also_when_it_was_stopped) {
    for (const char* soil : {"a", "b", "c"})
        drives.write(std::string("p/Database/Soil/") + soil + ".sil");
    drives.write("p/Generated_scenarios/00001.tvn", "first");
    drives.write("p/Generated_scenarios/00003.tvn", "third");
    const auto contents = [this] {
        std::string text;
        for (const char* number : {"1", "2", "3"})
            text +=
                drives.read(std::string("p/Generated_scenarios/0000") + number + ".tvn").substr(0, 10) + ';';
        return text;
    };
    Change_backups backups(TESK::Directory_name(std::string("C:\\p")));
    on_listed = [](std::size_t count) { return count < 3; };
    EXPECT_EQ(generate(&backups), 2U);
    EXPECT_EQ(contents(), "[scenario];[scenario];third;");
    EXPECT_EQ(backups.undo_last({}).done, 2U);
    EXPECT_EQ(contents(), "first;;third;");
    EXPECT_EQ(backups.undo_last({}).done, 2U);
    EXPECT_EQ(contents(), "[scenario];[scenario];third;");

    platform::File_faults faults;
    on_listed = [&faults](std::size_t) {
        faults.fail(platform::Write_step::rename, EXDEV);
        return true;
    };
    drives.write("p/Generated_scenarios/00001.tvn", "precious");
    generate(&backups);
    EXPECT_EQ(outcome.not_done.at(0).reason, "It cannot be put aside.");
    EXPECT_EQ(drives.read("p/Generated_scenarios/00001.tvn"), "precious");
}

} // namespace
