#include "runs/local_engine.h"

#include "platform/files.h"
#include "runs/run_project.h"

#include <csignal>
#include <set>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {

using namespace std::chrono_literals;

class Local_engine_test : public testing::Test {
protected:
    Run_project project;
};

TEST_F(Local_engine_test, tells_how_each_run_ended_and_keeps_what_it_printed) {
    const Run_set set = project.set_of({"good", "fail", "killed", "silent", "loud", "fork", "wait"}, 7);
    const std::string folder = project.make(set);
    Run_set limited = set;
    limited.longest = 1s;
    have_done(Local_engine(folder, limited, 100ms));
    EXPECT_EQ(ends_of(folder, 7), "done \nfailed exit code 3\nfailed signal 9 (Killed)\nfailed no output\n"
                                  "done \ndone \nfailed longer than the time allowed\n");
    EXPECT_TRUE(is_soon_gone(project.await_number("fork.pid"))) << "what a run has left running";
    EXPECT_EQ(platform::read_file(printed_file(folder, 1)).contents, "it is wrong\n");
    EXPECT_FALSE(platform::exists(printed_file(folder, 0)));
    const std::string printed = platform::read_file(printed_file(folder, 4)).contents;
    EXPECT_LT(printed.size(), Printed_text::longest_beginning + 3 * Printed_text::longest_ending);
    EXPECT_NE(printed.find(" bytes left out here]\n"), std::string::npos);
    EXPECT_TRUE(printed.ends_with("line 39999\n"));
}

TEST_F(Local_engine_test, tells_of_a_model_that_cannot_be_started_or_has_no_record) {
    Run_set set = project.set_of({"good", "other"});
    set.model = "C:\\none.exe";
    std::filesystem::remove(project.drives.host("p/Scenarios/other.tvn"));
    const std::string folder = project.make(set);
    have_done(Local_engine(folder, set));
    EXPECT_EQ(ends_of(folder, 2),
              "failed the model is not there\nfailed not started: its record was not there\n");

    // Nor does that stand in the way of a stop while another run is at work.
    set = project.set_of({"wait", "good", "other", "more"}, 1);
    const std::string stopped = project.make(set);
    Local_engine second(stopped, set, 100ms);
    ASSERT_EQ(second.start(), "");
    const pid_t run = project.await_number("wait.pid");
    std::filesystem::remove(project.drives.host("model.exe"));
    kill(run, SIGKILL);
    finish(second, [&] { return !ends_of(stopped, 4).ends_with("\nwaiting \nwaiting \nwaiting \n"); });
    second.stop();
    finish(second);
    EXPECT_TRUE(ends_of(stopped, 4).starts_with("failed signal 9 (Killed)\nfailed the model is not there\n"))
        << ends_of(stopped, 4);
    EXPECT_EQ(project.started(), std::vector<std::string>{"wait"});
}

TEST_F(Local_engine_test, stops_politely_then_hard_and_goes_on_where_it_ended) {
    const Run_set set = project.set_of({"good", "wait", "deaf", "parent", "other"}, 3);
    const std::string folder = project.make(set);
    pid_t deaf = 0;
    pid_t child = 0; // of a run that forks
    {
        Local_engine engine(folder, set, 100ms);
        ASSERT_EQ(engine.start(), "");
        finish(engine,
               [&] { return !project.text("deaf.pid").empty() && !project.text("parent.pid").empty(); });
        deaf = project.await_number("deaf.pid");
        child = project.await_number("parent.pid");
        EXPECT_EQ(Local_engine(folder, set).start(), "Another program has this set run.");
        engine.stop();
        finish(engine);
    }
    EXPECT_TRUE(is_soon_gone(deaf) && is_soon_gone(child));
    EXPECT_EQ(ends_of(folder, 5), "done \nstopped stopped\nstopped stopped\nstopped stopped\nwaiting \n");

    project.drives.write("model.exe", "#!/bin/sh\nmkdir -p \"$0.d\"; exit 7\n");
    have_done(Local_engine(folder, set));
    EXPECT_EQ(ends_of(folder, 5), "done \nfailed exit code 7\nfailed exit code 7\nfailed exit code 7\n"
                                  "failed exit code 7\n");
}

TEST_F(Local_engine_test, stops_at_the_first_failure_when_asked_to) {
    Run_set set = project.set_of({"good", "fail", "other", "more"}, 1);
    set.stops_at_first_failure = true;
    const std::string folder = project.make(set);
    have_done(Local_engine(folder, set));
    EXPECT_EQ(project.started(), (std::vector<std::string>{"fail", "good"}));
}

std::vector<std::string> good_ones(int count) {
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i)
        names.push_back("good" + std::to_string(i));
    return names;
}

// Lets a child process do the body, and gives its number.
template <class Body>
pid_t in_child(const Body& body) {
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("no process can be started");
    if (child == 0) {
        body();
        _exit(0);
    }
    return child;
}

TEST_F(Local_engine_test, a_set_of_200_whose_owner_was_killed_goes_on_and_runs_nothing_done_twice) {
    std::vector<std::string> names = good_ones(200);
    names.front() = "wait";
    const Run_set set = project.set_of(names, 2);
    const std::string folder = project.make(set);
    const pid_t owner = in_child([&] {
        Local_engine engine(folder, set, 100ms);
        if (engine.start().empty())
            finish(engine);
    });
    Run_journal journal(folder, set.scenarios.size());
    while (progress_of(journal, true, moment_now()).done < 60) {
        std::this_thread::sleep_for(5ms);
        journal.update();
    }
    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);
    EXPECT_TRUE(is_soon_gone(project.await_number("wait.pid"))) << "a run outlived the owner";
    journal.update();
    EXPECT_FALSE(is_owned(journal));
    EXPECT_EQ(state_of(journal.runs()[0], is_owned(journal)), Run_state::crashed);
    std::vector<std::string> done;
    for (std::size_t run = 0; run < names.size(); ++run)
        if (journal.runs()[run].is_done())
            done.push_back(names[run]);

    project.drives.write("p/started.txt");
    project.change_model("sleep 60", "true");
    have_done(Local_engine(folder, set));
    journal.update();
    EXPECT_EQ(describe(progress_of(journal, false, moment_now())), "200 of 200 done");
    // What the killed owner started last may write its name as late as this.
    const std::vector<std::string> started = project.started();
    const std::set<std::string> names_started(started.begin(), started.end());
    for (const std::string& name : names_started)
        EXPECT_EQ(std::count(done.begin(), done.end(), name), 0) << name;
    EXPECT_EQ(names_started.size(), 200 - done.size());
}

TEST_F(Local_engine_test, a_full_disk_holds_the_set_up_and_loses_nothing) {
    const std::vector<std::string> names = good_ones(20);
    const Run_set set = project.set_of(names, 2);
    const std::string folder = project.make(set);
    const pid_t owner = in_child([&] {
        signal(SIGXFSZ, SIG_IGN);
        Local_engine engine(folder, set, 100ms);
        rlimit room{};
        getrlimit(RLIMIT_FSIZE, &room);
        room.rlim_cur = 500; // bytes of the journal
        setrlimit(RLIMIT_FSIZE, &room);
        if (!engine.start().empty())
            _exit(1);
        finish(engine, [&] { return !engine.trouble().empty(); });
        for (int i = 0; i < 50 && engine.poll(); ++i)
            engine.wait(10ms);
        const std::size_t started = project.started().size();
        room.rlim_cur = RLIM_INFINITY;
        setrlimit(RLIMIT_FSIZE, &room);
        finish(engine);
        _exit(started < names.size() && engine.trouble().empty() ? 0 : 2);
    });
    int status = 0;
    waitpid(owner, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(describe(progress_of(journal_of(folder, names.size()), false, moment_now())), "20 of 20 done");
    EXPECT_EQ(project.started().size(), names.size());
}

} // namespace
