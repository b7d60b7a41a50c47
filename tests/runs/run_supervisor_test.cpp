#include "runs/run_supervisor.h"

#include "runs/run_project.h"

#include <csignal>
#include <sys/wait.h>

namespace {

using namespace std::chrono_literals;

class Run_supervisor_test : public testing::Test {
protected:
    // Waits until the journal tells what is asked; false after twenty seconds.
    template <class Until>
    static bool await(Run_journal& journal, const Until& until) {
        for (int i = 0; i < 4000 && !until(); ++i) {
            std::this_thread::sleep_for(5ms);
            journal.update();
        }
        return until();
    }

    Run_project project;
};

TEST_F(Run_supervisor_test, has_a_set_done_and_can_be_watched) {
    const Run_set set = project.set_of({"good", "fail", "other"});
    const std::string folder = project.make(set);
    Supervised_engine engine(folder);
    ASSERT_EQ(engine.start(), "");
    while (engine.poll())
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(ends_of(folder, 3), "done \nfailed exit code 3\ndone \n");
    EXPECT_EQ(Supervised_engine("C:\\p\\none").start(), "There is no run set in C:\\p\\none");
}

// The process that starts a set is killed. What becomes of the set is what it had asked for.
TEST_F(Run_supervisor_test, a_set_outlives_its_starter_only_when_told_to) {
    for (const bool goes_on : {false, true}) {
        const std::string name = goes_on ? "wait_on" : "wait";
        const Run_set set = project.set_of({name, "good"}, 1);
        const std::string folder = project.make(set);
        const pid_t starter = fork();
        ASSERT_GE(starter, 0);
        if (starter == 0) {
            Supervised_engine engine(folder);
            engine.start();
            if (goes_on)
                engine.go_on_alone();
            project.drives.write("p/is_ready", "1\n");
            pause();
        }
        const pid_t run = project.await_number(name + ".pid");
        project.await_number("is_ready");
        std::filesystem::remove(project.drives.host("p/is_ready"));
        kill(starter, SIGKILL);
        waitpid(starter, nullptr, 0);
        Run_journal journal = journal_of(folder, 2);
        if (goes_on) {
            kill(run, SIGKILL);
            EXPECT_TRUE(await(journal, [&] { return journal.runs()[1].is_done(); }));
        } else {
            EXPECT_TRUE(is_soon_gone(run));
            EXPECT_TRUE(await(journal, [&] { return !is_owned(journal); }));
            EXPECT_EQ(state_of(journal.runs()[0], false), Run_state::stopped);
            EXPECT_EQ(state_of(journal.runs()[1], false), Run_state::waiting);
        }
    }
}

TEST_F(Run_supervisor_test, a_set_that_was_found_again_can_be_stopped_and_two_sets_do_not_mix) {
    const Run_set set = project.set_of({"wait", "good"}, 1);
    const Run_set other_set = project.set_of({"slow1", "slow2", "slow3"}, 1);
    const std::string folder = project.make(set);
    const std::string other_folder = project.make(other_set);
    EXPECT_NE(folder, other_folder);
    Supervised_engine engine(folder);
    Supervised_engine other(other_folder);
    ASSERT_EQ(engine.start(), "");
    ASSERT_EQ(other.start(), "");
    EXPECT_FALSE(delete_run_set(folder, true)) << "deleted while it is run";
    const pid_t run = project.await_number("wait.pid");
    Run_journal journal = journal_of(folder, 2);
    EXPECT_EQ(stop_run_set(journal), "");
    EXPECT_TRUE(is_soon_gone(run));
    EXPECT_TRUE(await(journal, [&] { return !is_owned(journal); }));
    EXPECT_EQ(stop_run_set(journal), "No process has these runs done any more.");
    while (other.poll())
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(ends_of(other_folder, 3), "done \ndone \ndone \n");
}

} // namespace
