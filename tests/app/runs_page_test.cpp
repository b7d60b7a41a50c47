#include "app/state_pictures.h"
#include "platform/tool_run.h"
#include "project_support.h"
#include "runs/local_engine.h"
#include "runs/private_slurm.h"
#include "runs/run_folders.h"
#include "runs/run_supervisor.h"
#include "runs/slurm_engine.h"
#include "toolkit/recording_view.h"

#include <set>
#include <thread>

namespace {

// The project with a model that fails on "dry" as long as there is a file of that name, and waits for ever on
// "wet" likewise.
class Runs_page_test : public Project_test {
protected:
    Runs_page_test() {
        drives.write("model.exe", "#!/bin/sh\n"
                                  "for scenario; do :; done\n"
                                  "name=${scenario##*\\\\}; name=${name%.tvn}\n"
                                  "echo \"about $name\"\n"
                                  "[ -e fail_$name ] && exit 3\n"
                                  "[ -e wait_$name ] && exec /bin/sleep 60\n"
                                  "/bin/mkdir -p \"Scenarios/$name/Output\"\n"
                                  "echo done >\"Scenarios/$name/Output/season.xeb\"\n");
        std::filesystem::permissions(drives.host("model.exe"), std::filesystem::perms::owner_all);
        form.runs.make_engine = [](const std::string& folder) {
            return std::make_unique<Local_engine>(folder, *read_run_set(folder),
                                                  std::chrono::milliseconds(50));
        };
        open();
        record->cropping_system_model = "C:\\model.exe";
    }
    // Lets the seconds go by until nothing is at work, or the sign holds.
    template <class Sign>
    void wait_until(Sign sign) {
        for (int i = 0; i < 2000 && !sign(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            desktop.advance(1000);
        }
        EXPECT_TRUE(sign());
    }
    bool at_rest() const { return !page().runs_stop_button.enabled(); }
    const Runs_page& page() const { return form.runs; }
    // "state scenario end;" of each run of the set that is chosen.
    std::string runs() {
        std::string text;
        for (int row = 0; row < page().runs_table.count(); ++row)
            for (const int column : {0, 1, 4}) {
                const Table_cell shown = page().runs_table.rows()->cell(row, column);
                const std::string cell = shown.text;
                EXPECT_EQ(shown.picture.meaning, column == 0 ? cell : "");
                text += cell + (column == 4 ? ";" : cell.empty() ? "" : " ");
            }
        return text;
    }
};

TEST_F(Runs_page_test, runs_checked_scenarios_beside_the_editor_and_the_failed_ones_again) {
    drives.write("projects/study/fail_dry", "");
    created().check(0);
    created().check(1);
    EXPECT_TRUE(press(form.scenarios.run.run_beside_button));
    EXPECT_EQ(form.project_pagecontrol.active_page(), &page().runs_tabsheet);
    wait_until([&] { return at_rest(); });
    EXPECT_EQ(runs(), "done base exit code 0;failed dry exit code 3;");
    const auto sign = [&](int row) {
        const Picture picture = page().runs_table.rows()->cell(row, 0).picture;
        return std::pair(picture.mark, picture.colour);
    };
    EXPECT_EQ(sign(0), std::pair(Mark::tick, sign_colours::green));
    EXPECT_EQ(sign(1), std::pair(Mark::cross, sign_colours::red));
    EXPECT_EQ(parameter_form.status_line.text().find("Runs have failed"), 0u);
    EXPECT_TRUE(created().checked(0)) << "what became of a run is told elsewhere";

    form.runs.runs_table.select_row(1);
    EXPECT_TRUE(form.runs.runs_show_log_button.click());
    EXPECT_EQ(form.runs.run_log_memo.text(), "about dry\n");
    copy_data("fields.dbf", "projects/study/Scenarios/dry/Output/yields.dbf");
    EXPECT_TRUE(form.runs.runs_view_tables_button.click());
    ASSERT_EQ(form.tables.windows().size(), 1U);
    EXPECT_TRUE(form.runs.runs_table.click_header(1));
    EXPECT_TRUE(form.runs.runs_table.click_header(1));
    EXPECT_EQ(runs(), "failed dry exit code 3;done base exit code 0;");

    std::filesystem::remove(drives.host("projects/study/fail_dry"));
    EXPECT_TRUE(form.runs.runs_failed_again_button.click());
    wait_until([&] { return at_rest(); });
    EXPECT_EQ(runs(), "done dry exit code 0;");
    EXPECT_EQ(page().run_sets_table.count(), 2);
    EXPECT_FALSE(page().runs_failed_again_button.enabled());

    desktop.expect_message("Delete set", "Delete this set of runs? The outputs of its scenarios stay.",
                           Modal_result::ok);
    EXPECT_TRUE(form.runs.runs_delete_set_button.click());
    EXPECT_EQ(page().run_sets_table.count(), 1);
    EXPECT_TRUE(there("projects/study/Scenarios/dry/Output"));
}

TEST_F(Runs_page_test, closing_asks_what_is_to_become_of_runs_and_a_stopped_set_is_continued) {
    form.runs.make_engine = [](const std::string& folder) {
        return std::make_unique<Supervised_engine>(folder);
    };
    drives.write("projects/study/wait_wet", "");
    drives.write("projects/other.tvp", drives.read("projects/study.tvp"));
    created().check(2);
    EXPECT_TRUE(press(form.scenarios.run.run_beside_button));
    const auto close = [&](Modal_result answer) {
        wait_until([&] { return runs() == "running wet ;"; });
        desktop.expect_message("Runs at work",
                               "Runs are still at work beside the editor. Stop them? ([No] lets them go on, "
                               "and they are found again at the next start)",
                               answer);
        parameter_form.cancel_button.click();
        return !parameter_form.visible();
    };
    EXPECT_FALSE(close(Modal_result::cancel));
    EXPECT_TRUE(close(Modal_result::yes));
    wait_until([&] { return at_rest(); });
    EXPECT_EQ(runs().substr(0, 12), "stopped wet ");
    open();
    EXPECT_TRUE(press(form.runs.runs_continue_button));
    EXPECT_TRUE(close(Modal_result::no));
    // What this program knew of them goes.
    open("C:\\projects\\other.tvp");
    form.runs.Update();
    EXPECT_EQ(runs(), "");
    open();
    form.runs.Update();
    EXPECT_EQ(runs(), "running wet ;");
    EXPECT_TRUE(press(form.runs.runs_stop_button));
    wait_until([&] { return at_rest(); });
    EXPECT_EQ(runs().substr(0, 12), "stopped wet ");

    std::filesystem::remove(drives.host("projects/study/wait_wet"));
    EXPECT_TRUE(form.runs.runs_continue_button.click());
    wait_until([&] { return at_rest(); });
    EXPECT_EQ(runs(), "done wet exit code 0;");
    EXPECT_EQ(page().run_sets_table.count(), 1);
    EXPECT_FALSE(page().runs_continue_button.enabled());
}

TEST_F(Runs_page_test, a_change_among_10000_runs_redraws_its_line_alone) {
    Run_set set;
    set.project_file = "C:\\projects\\study.tvp";
    set.folder = "C:\\projects\\study";
    set.model = "C:\\model.exe";
    for (int run = 0; run < 10000; ++run)
        set.scenarios.push_back("C:\\projects\\study\\Scenarios\\plot " + std::to_string(run) + ".tvn");
    set.scenarios[500] = "C:\\projects\\study\\Scenarios\\dry.tvn";
    const std::string folder = make_run_set("C:\\projects\\study\\Runs", set).folder;
    Journal_writer writer(folder);
    ASSERT_TRUE(claim_set(folder, set.scenarios.size(), writer));
    Run_record killed;
    killed.outcome = Run_record::Outcome::signalled;
    killed.code = 9;
    writer.end(500, killed);
    form.Update(); // as at the start of the program
    desktop.advance(10);
    EXPECT_EQ(form.scenarios.lists.created.table.rows()->cell(1, 1).text, "failed");
    ASSERT_EQ(page().runs_table.count(), 10000);
    Recording_view view(form.runs.runs_table);
    writer.start(9000);
    writer.end(7000, killed);
    desktop.advance(1000);
    EXPECT_EQ(page().runs_table.rows()->cell(7000, 4).text, "signal 9 (Killed)");
    std::set<int> redrawn;
    for (const auto& change : view.changes)
        for (int row = change.first; row < change.first + change.count; ++row)
            redrawn.insert(row);
    EXPECT_EQ(redrawn, (std::set<int>{7000, 9000}));
}

TEST_F(Runs_page_test, slurm_that_is_chosen_has_the_runs_done_and_stopped_and_told_when_it_is_silent) {
    const Environment_guard path("PATH", "/usr/sbin:/usr/bin:/sbin:/bin");
    auto slurm = std::make_unique<Private_slurm>(10);
    if (!slurm->is_ready())
        GTEST_SKIP() << "munged, slurmctld and slurmd cannot be started on this machine";
    form.runs.make_engine = [](const std::string& folder) {
        return std::make_unique<Slurm_engine>(folder, *read_run_set(folder), std::chrono::milliseconds(100));
    };
    drives.write("projects/study/fail_dry", "");
    drives.write("projects/study/wait_wet", "");
    for (int line = 0; line < 3; ++line)
        created().check(line);
    form.scenarios.run.engine.slurm_checkbox.set_enabled(true);
    press(form.scenarios.run.engine.slurm_checkbox);
    form.scenarios.run.engine.slurm_partition_edit.set_text("main");
    EXPECT_TRUE(press(form.scenarios.run.run_beside_button));
    wait_until([&] { return runs() == "done base exit code 0;failed dry exit code 3;running wet ;"; });
    EXPECT_TRUE(form.runs.runs_stop_button.click());
    wait_until([&] { return at_rest(); });
    EXPECT_EQ(runs(), "done base exit code 0;failed dry exit code 3;stopped wet stopped;");

    slurm.reset();
    EXPECT_TRUE(press(form.scenarios.run.run_beside_button));
    EXPECT_EQ(page().run_sets_table.count(), 1) << "what was never submitted does not stay";
}

TEST_F(Runs_page_test, runs_are_given_to_slurm_where_it_is_and_to_whoever_runs_a_list) {
    const Run_engine_choice& choice = form.scenarios.run.engine;
    EXPECT_EQ(choice.slurm_checkbox.enabled(), platform::has_tool("sbatch"));
    form.runs.make_engine = [](const std::string& folder) { return ::make_engine(folder); };
    created().check(0);
    EXPECT_TRUE(press(form.scenarios.run.write_run_list_button));
    EXPECT_NE(parameter_form.status_line.text().find("The command lines are in "), std::string::npos);
    EXPECT_TRUE(at_rest());
    EXPECT_EQ(runs(), "waiting base ;");

    choice.slurm_checkbox.set_enabled(true);
    press(choice.slurm_checkbox);
    choice.slurm_partition_edit.set_text("main");
    choice.slurm_time_edit.set_text("30");
    form.scenarios.run.longest_run_edit.set_text("2");
    choice.slurm_options_edit.set_text("--nice=1 --comment=x");
    std::string asked;
    form.runs.make_engine = [&](const std::string& folder) -> std::unique_ptr<Run_engine> {
        asked = text_of(*read_run_set(folder));
        return std::make_unique<Local_engine>(folder, *read_run_set(folder));
    };
    EXPECT_TRUE(press(form.scenarios.run.run_beside_button));
    wait_until([&] { return at_rest(); });
    const std::optional<Run_set> set = run_set_from_text(asked);
    ASSERT_TRUE(set);
    EXPECT_EQ(set->engine, Engine_kind::slurm);
    EXPECT_EQ(set->longest, std::chrono::minutes(2));
    EXPECT_EQ(set->slurm.partition + '/' + set->slurm.time + '/' + set->slurm.memory + '/' +
                  set->slurm.options,
              "main/30//--nice=1 --comment=x");
}

} // namespace
