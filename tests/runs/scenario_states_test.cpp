#include "platform/files.h"
#include "platform/host_names.h"
#include "runs/list_engine.h"
#include "runs/local_engine.h"
#include "runs/run_project.h"
#include "runs/run_repetition.h"

namespace {

class Scenario_states_test : public testing::Test {
protected:
    void run(const Run_set& set) { have_done(Local_engine(project.make(set), set)); }
    std::string state_of(const std::string& name) {
        states.refresh();
        return word_for(states.status_of("C:\\P\\Scenarios\\" + name + ".tvn").state);
    }
    // Makes a file look as if it had been changed so many seconds from now.
    void age(const std::string& path, int seconds) const {
        std::filesystem::last_write_time(project.drives.host(path),
                                         std::filesystem::file_time_type::clock::now() +
                                             std::chrono::seconds(seconds));
    }

    Run_project project;
    Scenario_states states{"C:\\p", "C:\\p\\Runs"};
};

TEST_F(Scenario_states_test, follow_from_journals_and_the_times_of_files) {
    const Run_set set = project.set_of({"good", "fail", "silent", "fresh"});
    EXPECT_EQ(state_of("good"), "never run");
    Run_set first = set;
    first.scenarios.pop_back();
    run(first);
    EXPECT_EQ(state_of("good"), "done");
    EXPECT_EQ(state_of("fail"), "failed");
    EXPECT_EQ(state_of("silent"), "failed");
    EXPECT_EQ(states.status_of(set.scenarios[2]).reason, "no output");
    EXPECT_EQ(state_of("fresh"), "never run");

    const std::string record = "[parameter_filenames]\r\nsoil=Database\\loam.sil\r\n"
                               "rotation=C:\\master\\Wheat.ROT\r\nwater_table=<Optional.wtb\r\n";
    project.drives.write("p/Scenarios/good.tvn", record);
    project.drives.write("p/Database/loam.sil");
    project.drives.write("master/wheat.rot");
    const char* const files[] = {"p/Scenarios/good.tvn", "p/Database/loam.sil", "master/wheat.rot"};
    for (const char* file : files)
        age(file, -100);
    EXPECT_EQ(state_of("good"), "done");
    for (const char* file : files) {
        age(file, 100);
        EXPECT_EQ(state_of("good"), "out of date") << file;
        age(file, -100);
        EXPECT_EQ(state_of("good"), "done") << file;
    }
    // Changed while the run was at work: its output is newer, and of what was there before.
    const Moment now = moment_now();
    const std::string journal = platform::host_path(project.make(project.set_of({"late"})) + "\\journal.txt");
    std::ofstream(journal) << "start " << text_of_moment(now - 60'000) << " 0 .\nend " << text_of_moment(now)
                           << " 0 exit 0 60.000 output .\n";
    project.drives.write("p/Scenarios/late/Output/season.xeb");
    for (const auto& [seconds, state] : {std::pair(-55, "out of date"), {-60, "done"}, {-65, "done"}}) {
        age("p/Scenarios/late.tvn", seconds);
        EXPECT_EQ(state_of("late"), state) << seconds;
    }
    // Started by other means, and cleaned by hand.
    age("p/Scenarios/good.tvn", 50);
    age("p/Scenarios/good/Output/season.xeb", 100);
    EXPECT_EQ(state_of("good"), "done");
    const Scenario_status by_hand = states.status_of(set.scenarios[0]);
    EXPECT_GT(by_hand.output_time, by_hand.record.ended + 50'000);
    project.drives.write("p/Scenarios/fail/Output/season.xeb");
    age("p/Scenarios/fail/Output/season.xeb", 100);
    EXPECT_EQ(state_of("fail"), "done");
    std::filesystem::remove(project.drives.host("p/Scenarios/good/Output/season.xeb"));
    age("p/Scenarios/good/Output", 100);
    EXPECT_EQ(state_of("good"), "never run");

    // What a set at work has to run is kept out of others. Its process gone, no output tells of an end.
    const std::string folder = project.make(set);
    Journal_writer writer(folder);
    ASSERT_TRUE(claim_set(folder, 4, writer));
    states.refresh();
    std::vector<std::string> wanted = project.set_of({"good", "other", "fail"}).scenarios;
    EXPECT_EQ(states.take_busy(wanted).running.size(), 2U);
    EXPECT_EQ(wanted, project.set_of({"other"}).scenarios);
    writer.start(1);
    writer.leave("gone");
    EXPECT_EQ(state_of("fail"), "stopped");
    Scenario_states moved("C:\\moved", project.runs_folder);
    moved.refresh();
    EXPECT_EQ(moved.status_of("C:\\moved\\Scenarios\\silent.tvn").state, Scenario_state::failed);
}

TEST_F(Scenario_states_test, what_cannot_be_read_leaves_unknown_what_no_newer_set_tells) {
    run(project.set_of({"good"}));
    // A journal that is none.
    const std::string folder = project.make(project.set_of({"fail"}));
    platform::make_folders(folder + "\\journal.txt");
    EXPECT_EQ(state_of("fail"), "unknown");
    EXPECT_EQ(state_of("good"), "done");
    EXPECT_EQ(busy_among(states, project.set_of({"good", "fail"}).scenarios).unknown,
              std::vector<std::string>{"fail"});
    EXPECT_EQ(Local_engine(folder, project.set_of({"fail"})).start(), "There is a folder of this name.");
    EXPECT_FALSE(delete_run_set(folder, true));
    // A set of which nobody knows what was asked.
    project.drives.write("p/Runs/2999-01-01 00-00-00/set.txt", "run set 1\n");
    EXPECT_EQ(state_of("good"), "unknown");
    EXPECT_EQ(states.failures().size(), 2U);
    std::filesystem::rename(project.drives.host("p/Runs"), project.drives.host("p/old"));
    project.drives.write("p/Runs");
    EXPECT_EQ(state_of("never"), "unknown");
    EXPECT_EQ(states.failures().size(), 1U);
}

TEST_F(Scenario_states_test, choose_what_is_to_be_repeated) {
    const Run_set set = project.set_of({"good", "fail", "other"});
    run(set);
    age("p/Scenarios/other.tvn", 100);
    states.refresh();
    const Run_journal journal = journal_of(list_run_sets(project.runs_folder).front(), 3);
    const auto repeated = [&](Repetition which) {
        return repetition_of(set, journal, states, which).scenarios;
    };
    EXPECT_EQ(repeated(Repetition::all), set.scenarios);
    EXPECT_EQ(repeated(Repetition::failed), std::vector<std::string>{set.scenarios[1]});
    EXPECT_EQ(repeated(Repetition::out_of_date), std::vector<std::string>{set.scenarios[2]});
    EXPECT_TRUE(repeated(Repetition::left).empty());

    // A later set that was stopped before it came to a scenario says nothing of it.
    project.make(set);
    EXPECT_EQ(state_of("fail"), "failed");
    // Nor does a list that was handed out, of the runs that nobody has begun.
    EXPECT_EQ(List_engine(project.make(set), set).start(), "");
    EXPECT_EQ(state_of("fail"), "failed");
    // A repaired one, run in another set, is judged by that.
    project.change_model("exit 3", ":");
    run(repetition_of(set, journal, states, Repetition::failed));
    EXPECT_EQ(state_of("fail"), "done");
}

} // namespace
