#include "project_support.h"

namespace {

constexpr std::size_t soil_water_box = 3;

class Reset : public Project_test {
protected:
    // Opens the project with one scenario active, and the box of the soil water ticked.
    void open_with_active(const char* file) {
        open_with(file);
        form.scenarios.reset.reset_checkboxes[soil_water_box]->bring_to_front();
        EXPECT_TRUE(form.scenarios.reset.reset_checkboxes[soil_water_box]->check());
    }
    void write_scenario(const std::string& path, const std::string& text) const {
        drives.write("projects/study/" + path + ".tvn", text);
    }
    std::string scenario(const std::string& path) const {
        return drives.read("projects/study/" + path + ".tvn");
    }
    bool is_reset(const std::string& path) const {
        return scenario(path).find("from the source=1\r\n") != std::string::npos;
    }
};

TEST_F(Reset, the_checked_scenarios_are_written_but_for_the_active_one) {
    const std::string source = "[H2O]\nfrom the source=1\n[salt]\n1=5\n";
    write_scenario("Scenarios/base", source);
    write_scenario("Scenarios/wet", "[H2O]\n1=0.5\n");
    open_with_active("Scenarios\\base.tvn");
    created().bring_to_front();
    for (const char* line : {"base.tvn", "dry.tvn"})
        EXPECT_TRUE(created().check(created().index_of(line)));
    EXPECT_TRUE(press(form.scenarios.reset.reset_scenario_button));

    EXPECT_EQ(scenario("Scenarios/base"), source);
    EXPECT_TRUE(is_reset("Scenarios/dry"));
    EXPECT_EQ(scenario("Scenarios/wet"), "[H2O]\n1=0.5\n");
    EXPECT_EQ(lines(created()), "base.tvn*;dry.tvn*;wet.tvn;");
    EXPECT_EQ(record->active_scenario, "Scenarios\\base.tvn");
    EXPECT_EQ(form.scenarios.sim_run_progressbar.position(), 3);
    EXPECT_FALSE(form.scenarios.sim_run_progressbar.visible());
    EXPECT_EQ(desktop.messages_processed(), 0);
    EXPECT_EQ(started(), "");
    EXPECT_FALSE(there("projects/study/Scenarios/dry"));
}

TEST_F(Reset, generated_scenarios_lie_in_their_own_folder_and_the_actives_name_is_passed_over_there_too) {
    write_scenario("Scenarios/00002", "[H2O]\nfrom the source=1\n");
    for (const char* number : {"00001", "00002"})
        write_scenario(std::string("Generated_scenarios/") + number, "[H2O]\n1=0.5\n");
    write_scenario("Scenarios/00001", "[H2O]\n1=0.5\n");
    open_with_active("Scenarios\\00002.tvn");
    EXPECT_TRUE(form.scenarios.lists.pagecontrol_scenarios.select_page(
        form.scenarios.lists.tabsheet_generated_scenarios));
    form.scenarios.lists.senerios_select_all_button_onclick();
    EXPECT_TRUE(press(form.scenarios.reset.reset_scenario_button));
    EXPECT_TRUE(is_reset("Generated_scenarios/00001"));
    EXPECT_EQ(scenario("Generated_scenarios/00002"), "[H2O]\n1=0.5\n");
    EXPECT_EQ(scenario("Scenarios/00001"), "[H2O]\n1=0.5\n");
}

class Generation : public Project_test {
protected:
    Generation() {
        for (const char* file : {"clay.sil", "loam.sil"})
            drives.write(std::string("projects/study/Database/Soil/") + file);
        drives.write("projects/study/Generated_scenarios/00009.tvn");
    }
    void
    generate(const char* title = "Scenarios have been generated",
             const char* text =
                 "The generated scenarios are found under /Simulation scenarios\\ [Generated scenarios]") {
        open();
        record->template_scenario = "Scenarios\\base.tvn";
        form.Update();
        desktop.expect_message(title, text);
        EXPECT_TRUE(press(form.options.combinatorial_scenario_generation_button));
        EXPECT_TRUE(desktop.script_done());
        EXPECT_EQ(form.scenarios.lists.pagecontrol_scenarios.active_page(),
                  &form.scenarios.lists.tabsheet_generated_scenarios);
        EXPECT_EQ(form.project_pagecontrol.active_page(), &form.scenarios.scenarios_tabsheet);
    }
    TFileCheckListBox& generated() { return form.scenarios.lists.generated_scenarios_filelistbox; }
};

TEST_F(Generation, the_list_grows_while_it_works_and_is_listed_anew_afterwards) {
    std::vector<std::string> seen;
    desktop.on_process_messages = [&] { seen.push_back(lines(generated())); };
    generate();
    EXPECT_EQ(seen, (std::vector<std::string>{"00009.tvn;00001.tvn;", "00009.tvn;00001.tvn;00002.tvn;"}));
    EXPECT_EQ(lines(generated()), "00001.tvn;00002.tvn;00009.tvn;");
}

TEST_F(Generation, a_user_who_closes_the_window_stops_it) {
    desktop.closing = true;
    generate("Generation stopped", "The generation was stopped. Scenarios generated until then: 0");
    EXPECT_EQ(lines(generated()), "00009.tvn;");
}

TEST_F(Project_test, the_number_of_scenarios_of_an_optimization_follows_the_bar_that_is_left) {
    open();
    Optimization_page& page = form.optimization;
    const auto shown = [&] { return page.carbon_seq_scenario_count_output.text(); };
    record->carbon_sequestration.max_plots = 1;
    record->carbon_sequestration.min_stocking_rate = 100;
    record->carbon_sequestration.max_stocking_rate = 500;
    record->carbon_sequestration.step_stocking_rate = 100;
    form.Update();
    EXPECT_EQ(shown(), "5");
    EXPECT_TRUE(press(form.options.show_optimization_model_button));
    TAutoInt16Edit& step = page.opt_C_seq_step_herdsize_editbar.edit_field;
    step.bring_to_front();
    step.select_all();
    EXPECT_TRUE(step.type_text("200"));
    EXPECT_EQ(shown(), "5");
    parameter_form.leave_focus();
    EXPECT_EQ(shown(), "3");
}

} // namespace
