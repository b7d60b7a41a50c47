#include "project_support.h"

#include <algorithm>

namespace {

std::string section(const std::string& name, const std::string& entries) {
    return '[' + name + "]\r\n" + entries;
}

// A text without the sections of these names, and those sections alone.
std::string part_of(const std::string& text, const std::vector<std::string>& names, bool those) {
    std::string result;
    for (std::size_t start = text.find('['); start < text.size();) {
        std::size_t end = text.find("\n[", start);
        end = end == std::string::npos ? text.size() : end + 1;
        const std::string name = text.substr(start + 1, text.find(']', start) - start - 1);
        if ((std::find(names.begin(), names.end(), name) != names.end()) == those)
            result += text.substr(start, end - start);
        start = end;
    }
    return result;
}

class Reset : public Project_test {
protected:
    void tick(std::initializer_list<std::size_t> boxes) {
        for (std::size_t box : boxes) {
            form.scenarios.reset_checkboxes[box]->bring_to_front();
            form.scenarios.reset_checkboxes[box]->check();
        }
    }
    void reset() {
        form.senerios_select_all_button_onclick();
        EXPECT_TRUE(press(form.scenarios.reset_scenario_button));
    }
    std::string scenario(const std::string& scenario_name) const {
        return drives.read("projects/study/Scenarios/" + scenario_name + ".tvn");
    }
    void write_scenario(const std::string& scenario_name, const std::string& text) const {
        drives.write("projects/study/Scenarios/" + scenario_name + ".tvn", text);
    }
};

constexpr std::size_t soil_water_box = 3;
constexpr std::size_t crop_box = 12;

TEST_F(Reset, sections_move_to_the_end_and_all_else_stays_as_a_save_writes_it) {
    const std::string source = "C:\\projects\\study\\Scenarios\\base.tvn";
    write_scenario("dry", drives.read("projects/study/Scenarios/base.tvn") +
                              section("mine", "kept=1\r\nkept too\r\n") + section("H2O", "stray=7\r\n"));
    open();
    record->active_scenario = "Scenarios\\base.tvn";
    form.Update();
    reset(); // nothing ticked: the files are only rewritten
    const std::string rewritten = scenario("dry");
    EXPECT_NE(rewritten.find("[mine]\r\nkept=1\r\n"), std::string::npos);
    EXPECT_NE(rewritten.find("stray=7\r\n"), std::string::npos);
    EXPECT_EQ(lines(created()), "base.tvn*;dry.tvn*;wet.tvn*;");
    EXPECT_FALSE(form.scenarios.sim_run_progressbar.visible());

    const std::string base_before = scenario("base");
    std::string changed = base_before;
    changed.insert(changed.find("[H2O]\r\n") + 7, "from the source=1\r\n");
    write_scenario("base", changed);
    tick({soil_water_box, crop_box});
    reset();
    const std::string result = scenario("dry");
    const std::vector<std::string> copied = {"H2O"}; // the source has no section "salt"
    EXPECT_EQ(part_of(result, copied, false), part_of(rewritten, copied, false));
    EXPECT_EQ(result.find("[H2O]"), part_of(result, copied, false).size());
    EXPECT_NE(part_of(result, {"H2O"}, true).find("from the source=1\r\n"), std::string::npos);
    EXPECT_EQ(result.find("stray=7"), std::string::npos);
    EXPECT_EQ(scenario("base"), changed); // the active scenario is not written
}

TEST_F(Reset, an_unreadable_target_stays_and_generated_scenarios_lie_in_their_own_folder) {
    std::filesystem::remove(drives.host("projects/study/Scenarios/dry.tvn"));
    std::filesystem::create_directory(drives.host("projects/study/Scenarios/dry.tvn"));
    copy_data("base.tvn", "projects/study/Generated_scenarios/00001.tvn");
    write_scenario("base", section("H2O", "x=1\r\n"));
    open();
    record->active_scenario = "Scenarios\\base.tvn";
    form.Update();
    tick({soil_water_box});
    EXPECT_TRUE(
        form.scenarios.pagecontrol_scenarios.select_page(form.scenarios.tabsheet_generated_scenarios));
    form.senerios_select_all_button_onclick();
    EXPECT_TRUE(press(form.scenarios.reset_scenario_button));
    EXPECT_NE(drives.read("projects/study/Generated_scenarios/00001.tvn").find("x=1\r\n"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_directory(drives.host("projects/study/Scenarios/dry.tvn")));
}

class Generation : public Project_test {
protected:
    static constexpr const char* title = "Scenarios have been generated";
    static constexpr const char* told =
        "The generated scenarios are found under /Simulation scenarios\\ [Generated scenarios]";

    void open_with_template() {
        open();
        record->template_scenario = "Scenarios\\base.tvn";
        form.Update();
    }
    void database(const std::string& path, const std::string& text = "") const {
        drives.write("projects/study/Database/" + path, text);
    }
    std::string generated(const std::string& number) const {
        return drives.read("projects/study/Generated_scenarios/" + number + ".tvn");
    }
    static std::string value(const std::string& text, const std::string& key) {
        const std::size_t start = text.find("\n" + key + "=") + key.size() + 2;
        return text.substr(start, text.find('\r', start) - start);
    }
    // What lies directly in the project's folder.
    std::string project_folder() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(drives.host("projects/study")))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        std::string text;
        for (const std::string& one : names)
            text += one + ";";
        return text;
    }
};

TEST_F(Generation, an_empty_database_gives_one_scenario_with_the_templates_own_files) {
    open_with_template();
    desktop.expect_message(title, told);
    EXPECT_TRUE(press(form.options.combinatorial_scenario_generation_button));
    EXPECT_EQ(lines(form.scenarios.generated_scenarios_filelistbox), "00001.tvn;");
    EXPECT_EQ(form.scenarios.pagecontrol_scenarios.active_page(),
              &form.scenarios.tabsheet_generated_scenarios);
    EXPECT_EQ(form.project_pagecontrol.active_page(), &form.scenarios.scenarios_tabsheet);
    const std::string base = drives.read("projects/study/Scenarios/base.tvn");
    for (const char* key : {"soil", "weather_database", "rotation", "description"})
        EXPECT_EQ(value(generated("00001"), key), value(base, key)) << key;
}

TEST_F(Generation, the_last_kind_of_file_varies_fastest_and_tells_its_name) {
    for (const char* path : {"Soil/clay.sil", "Soil/loam.SIL", "Weather/east.XEB", "Rotation/wheat.rot",
                             "Rotation/fallow.rot", "Rotation/readme.txt"})
        database(path);
    drives.write("projects/study/Generated_scenarios/00002.tvn", "old");
    drives.write("projects/study/Generated_scenarios/00009.tvn", "old");
    open_with_template();
    desktop.expect_message(title, told);
    EXPECT_TRUE(press(form.options.combinatorial_scenario_generation_button));
    const std::string description = value(drives.read("projects/study/Scenarios/base.tvn"), "description");
    struct Case {
        const char* number;
        const char* soil;
        const char* rotation;
    };
    const Case cases[] = {{"00001", "clay.sil", "fallow.rot"},
                          {"00002", "clay.sil", "wheat.rot"},
                          {"00003", "loam.SIL", "fallow.rot"},
                          {"00004", "loam.SIL", "wheat.rot"}};
    for (const Case& c : cases) {
        const std::string text = generated(c.number);
        EXPECT_EQ(value(text, "soil"), std::string("C:\\projects\\study\\Database\\Soil\\") + c.soil);
        EXPECT_EQ(value(text, "rotation"),
                  std::string("C:\\projects\\study\\Database\\Rotation\\") + c.rotation);
        EXPECT_EQ(value(text, "description"), description + " " + c.soil + " east.XEB " + c.rotation);
    }
    EXPECT_EQ(lines(form.scenarios.generated_scenarios_filelistbox),
              "00001.tvn;00002.tvn;00003.tvn;00004.tvn;00009.tvn;");
    EXPECT_EQ(generated("00009"), "old");
}

TEST_F(Generation, a_user_who_closes_the_window_stops_it_and_no_working_file_is_left) {
    for (int i = 0; i < 20; ++i)
        database("Soil/" + std::to_string(i) + ".sil");
    database("initialization/x/a.TVS_init", "[H2O]\r\n");
    database("initialization/y/b.TVS_init", "[H2O]\r\n");
    open_with_template();
    std::filesystem::create_directory(drives.host("projects/study/Generated_scenarios"));
    const std::string before = project_folder();
    desktop.closing = true;
    desktop.expect_message(title, told);
    EXPECT_TRUE(press(form.options.combinatorial_scenario_generation_button));
    EXPECT_EQ(project_folder(), before);
    EXPECT_EQ(form.scenarios.generated_scenarios_filelistbox.count(), 0);
}

} // namespace
