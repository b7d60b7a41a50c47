// The engines that leave the runs to others: a scheduler, or whoever runs a list of command lines.

#include "platform/files.h"
#include "platform/host_names.h"
#include "runs/printed_text.h"
#include "runs/private_slurm.h"
#include "runs/run_project.h"
#include "runs/run_supervisor.h"
#include "runs/slurm_engine.h"
#include "runs/worker_files.h"

namespace {

using namespace std::chrono_literals;

class Other_engines_test : public testing::Test {
protected:
    Run_project project;
};

TEST_F(Other_engines_test, a_list_of_command_lines_can_be_run_by_other_runners_and_is_noted) {
    Run_set set =
        project.set_of({"good", "fail", "killed", "silent", "loud", "it's & $HOME", "wait", "gone"});
    set.engine = Engine_kind::list;
    set.longest = 1s;
    const std::string folder = project.make(set);
    const auto engine = make_engine(folder);
    ASSERT_EQ(engine->start(), "");
    EXPECT_FALSE(engine->poll());
    EXPECT_TRUE(is_owned(journal_of(folder, 8)));
    std::filesystem::remove(project.drives.host("p/Scenarios/gone.tvn"));
    const Environment_guard list("LIST", platform::host_path(run_list_file(folder)));
    const Environment_guard parallel_home("PARALLEL_HOME", project.drives.host("parallel"));
    // Whoever runs them sees that some have failed.
    ASSERT_NE(std::system("cd /; command -v parallel >/dev/null || exec sh <\"$LIST\"\n"
                          "exec parallel --will-cite -j 2 <\"$LIST\""),
              0);
    EXPECT_EQ(ends_of(folder, 8), "done \nfailed exit code 3\nfailed signal 9 (Killed)\nfailed no output\n"
                                  "done \ndone \nfailed longer than the time allowed\n"
                                  "failed not started: its record was not there\n");
    EXPECT_EQ(platform::read_file(printed_file(folder, 1)).contents, "it is wrong\n");
    EXPECT_EQ(platform::read_file(printed_file(folder, 4)).contents.size(), Printed_text::longest_beginning);
    EXPECT_FALSE(platform::exists(printed_file(folder, 0)));
    // What is done is not on the list the next time.
    ASSERT_EQ(make_engine(folder)->start(), "");
    EXPECT_EQ(platform::read_file(run_list_file(folder)).contents, "");

    // Whoever runs a line and is killed says nothing more: that it is gone is found out.
    set.scenarios = project.set_of({"wait 2"}).scenarios;
    set.longest = 0s;
    const std::string killed = project.make(set);
    ASSERT_EQ(make_engine(killed)->start(), "");
    const Environment_guard one("LIST", platform::host_path(run_list_file(killed)));
    std::system(
        "cd /; eval \"$(cat \"$LIST\") &\"; until grep -q start \"${LIST%/*}/journal.txt\"; do sleep 0.01; "
        "done; kill -9 $!; wait $!");
    EXPECT_EQ(ends_of(killed, 1), "stopped its process has gone\n");
    kill(project.await_number("wait 2.pid"), SIGKILL);
}

// The scheduler's commands are scripts here: what they answer is what a test can have no real one answer.
TEST_F(Other_engines_test, a_silent_scheduler_settles_nothing_and_its_books_tell_what_it_has_forgotten) {
    const auto answer = [&](const std::string& tool, const std::string& script) {
        project.drives.write("tools/" + tool, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(project.drives.host("tools/" + tool), std::filesystem::perms::owner_all);
    };
    const Environment_guard path("PATH", project.drives.host("tools") + ":/usr/bin:/bin");
    Run_set set = project.set_of({"good", "more", "other"});
    set.engine = Engine_kind::slurm;
    const std::string folder = project.make(set);
    answer("scontrol", "echo 'MaxArraySize            = 1001'");
    answer("sbatch", "echo '7;cluster'");
    answer("squeue", "echo 'slurm_load_jobs error: Unable to contact slurm controller'; exit 1");
    answer("sacct", "echo '7_0|NODE_FAIL'; echo '7_1|CANCELLED by 1000'; echo '7_2|COMPLETED'");
    Slurm_engine engine(folder, set, 0ms);
    ASSERT_EQ(engine.start(), "");
    Run_record done;
    done.outcome = Run_record::Outcome::exited;
    done.left_output = true;
    Journal_writer(folder).end(2, done);
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(engine.poll());
    EXPECT_EQ(engine.trouble(), "The scheduler does not answer.");
    EXPECT_EQ(ends_of(folder, 3), "waiting \nwaiting \ndone \n");
    // A process of its own tells of it, a word at a time.
    const std::string watched = project.make(set);
    Supervised_engine supervised(watched);
    ASSERT_EQ(supervised.start(), "");
    for (int i = 0; i < 4000 && supervised.poll() && supervised.trouble().empty(); ++i)
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(supervised.trouble(), engine.trouble());
    Journal_writer(watched).close_job("7");
    answer("scancel", "exit 1");
    Slurm_engine stopped(folder, set, 0ms);
    ASSERT_EQ(stopped.start(), "");
    stopped.stop();
    EXPECT_TRUE(stopped.poll());
    EXPECT_NE(stopped.trouble().find("\"scancel 7\""), std::string::npos) << "what a user can do";
    answer("squeue", "echo 'slurm_load_jobs error: Invalid job id specified'; exit 1");
    EXPECT_TRUE(engine.poll());
    while (engine.poll()) {
    }
    EXPECT_EQ(ends_of(folder, 3), "failed scheduler: NODE_FAIL\nfailed scheduler: CANCELLED\ndone \n");
}

TEST_F(Other_engines_test, a_scheduler_runs_an_array_that_can_be_stopped_and_whose_lost_tasks_are_found) {
    const Private_slurm slurm(4);
    if (!slurm.is_ready())
        GTEST_SKIP() << "munged, slurmctld and slurmd cannot be started on this machine";

    // More runs than an array can have tasks; one that is cancelled; one whose task is killed.
    Run_set set = project.set_of({"good", "fail", "silent", "more", "other", "it's"});
    Run_set waiting = project.set_of({"wait", "good"}, 1);
    Run_set waiting_more = project.set_of({"wait_more"});
    std::vector<std::string> folders;
    std::vector<std::unique_ptr<Slurm_engine>> engines;
    for (Run_set* asked : {&set, &waiting, &waiting_more}) {
        asked->engine = Engine_kind::slurm;
        asked->slurm = {"main", "5", "", "--nice=1 --comment=none"};
        folders.push_back(project.make(*asked));
        engines.push_back(std::make_unique<Slurm_engine>(folders.back(), *asked, 100ms));
        ASSERT_EQ(engines.back()->start(), "");
    }
    EXPECT_EQ(Slurm_engine(folders[0], set, 100ms).start(), "") << "a second one looks after the same job";

    const pid_t run = project.await_number("wait.pid");
    EXPECT_EQ(stop_run_set(journal_of(folders[1], 2)), "");
    const pid_t task = getpgid(project.await_number("wait_more.pid"));
    ASSERT_GT(task, 1);
    kill(-task, SIGKILL);
    for (const auto& engine : engines)
        while (engine->poll())
            std::this_thread::sleep_for(20ms);
    EXPECT_EQ(ends_of(folders[0], 6), "done \nfailed exit code 3\nfailed no output\ndone \ndone \ndone \n");
    EXPECT_TRUE(is_soon_gone(run));
    EXPECT_EQ(ends_of(folders[1], 2), "stopped stopped\nwaiting \n");
    EXPECT_EQ(ends_of(folders[2], 1), "failed scheduler: FAILED\n");
    EXPECT_EQ(project.started().size(), 8U);

    waiting.slurm.partition = "none";
    EXPECT_NE(Slurm_engine(project.make(waiting), waiting).start().find("invalid partition"),
              std::string::npos);
}

} // namespace
