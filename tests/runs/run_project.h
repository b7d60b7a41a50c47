// A project with scenarios and a model that does what the name of a scenario says, for tests of run sets.
#pragma once

#include "runs/run_folders.h"
#include "runs/run_journal.h"
#include "runs/run_progress.h"
#include "support/temporary_drives.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

class Run_project {
public:
    Run_project() {
        drives.write("model.exe",
                     "#!/bin/sh\n"
                     "for scenario; do :; done\n"
                     "name=${scenario##*\\\\}; name=${name%.tvn}\n"
                     "echo \"$name\" >>\"started.txt\"\n"
                     "case $name in\n"
                     "  fail*) echo 'it is wrong' >&2; exit 3 ;;\n"
                     "  killed*) kill -9 $$ ;;\n"
                     "  silent*) exit 0 ;;\n"
                     "  wait*) echo $$ >\"$name.pid\"; sleep 60 ;;\n"
                     "  deaf*) trap '' TERM; echo $$ >\"$name.pid\"; while :; do sleep 1; done ;;\n"
                     "  fork*) sleep 60 & echo $! >\"$name.pid\" ;;\n"
                     "  parent*) sleep 60 & echo $! >\"$name.pid\"; wait ;;\n"
                     "  slow*) sleep 0.05 ;;\n"
                     "  loud*) i=0; while [ $i -lt 40000 ]; do echo \"line $i\"; i=$((i+1)); done ;;\n"
                     "esac\n"
                     "mkdir -p \"Scenarios/$name/Output\"\n"
                     "echo done >\"Scenarios/$name/Output/season.xeb\"\n");
        std::filesystem::permissions(drives.host("model.exe"), std::filesystem::perms::owner_all);
        drives.write("p.tvp");
        std::filesystem::create_directories(drives.host("p"));
    }

    Run_set set_of(const std::vector<std::string>& names, std::size_t at_once = 2) const {
        Run_set set;
        set.project_file = "C:\\p.tvp";
        set.folder = "C:\\p";
        set.model = "C:\\model.exe";
        set.at_once = at_once;
        for (const std::string& name : names) {
            drives.write("p/Scenarios/" + name + ".tvn");
            set.scenarios.push_back("C:\\p\\Scenarios\\" + name + ".tvn");
        }
        return set;
    }
    std::string make(const Run_set& set) const { return make_run_set(runs_folder, set).folder; }

    // Lets the model do something else in the place of what it does.
    void change_model(const std::string& old_text, const std::string& new_text) const {
        std::string model = drives.read("model.exe");
        drives.write("model.exe", model.replace(model.find(old_text), old_text.size(), new_text));
    }

    // What runs have written into the project's folder.
    std::string text(const std::string& file) const { return drives.read("p/" + file); }
    // The names of the scenarios that the model was started on, sorted.
    std::vector<std::string> started() const {
        std::istringstream lines(text("started.txt"));
        std::vector<std::string> names;
        for (std::string name; std::getline(lines, name);)
            names.push_back(name);
        std::sort(names.begin(), names.end());
        return names;
    }
    // Waits for a number that a run writes, such as the one of its process. Throws when it does not come: no
    // signal is to go to process 0.
    pid_t await_number(const std::string& file) const {
        for (int i = 0; i < 4000 && text(file).find('\n') == std::string::npos; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        const pid_t number = std::atoi(text(file).c_str());
        if (number <= 0)
            throw std::runtime_error("nothing comes in " + file);
        return number;
    }

    const std::string runs_folder = "C:\\p\\Runs";
    Temporary_drives drives;
};

// The journal of a set's folder as it is now.
inline Run_journal journal_of(const std::string& folder, std::size_t runs) {
    Run_journal journal(folder, runs);
    journal.update();
    return journal;
}

// How each run of a set ended, a line each: its state, and what there is to say of it.
inline std::string ends_of(const std::string& folder, std::size_t runs) {
    const Run_journal journal = journal_of(folder, runs);
    std::string text;
    for (std::size_t run = 0; run < runs; ++run) {
        const bool has_owner = is_owned(journal);
        text += std::string(word_for(state_of(journal.runs()[run], has_owner))) + ' ' +
                describe_run(journal, run, has_owner) + '\n';
    }
    return text;
}

// Does the runs of a set until nothing is left to do, or until `until` says so.
template <class Engine, class Until>
void finish(Engine& engine, const Until& until) {
    while (engine.poll() && !until())
        engine.wait(std::chrono::milliseconds(10));
}
template <class Engine>
void finish(Engine& engine) {
    finish(engine, [] { return false; });
}
// The same from the start.
template <class Engine>
void have_done(Engine&& engine) {
    ASSERT_EQ(engine.start(), "");
    finish(engine);
}

// Waits until a process is gone, or nobody's but a zombie; false after twenty seconds.
inline bool is_soon_gone(pid_t process) {
    const std::string status = "/proc/" + std::to_string(process) + "/stat";
    for (int i = 0; i < 4000; ++i) {
        std::ifstream file(status);
        std::string text;
        std::getline(file, text);
        const std::size_t name_end = text.rfind(") ");
        if (name_end == std::string::npos || text[name_end + 2] == 'Z')
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}
