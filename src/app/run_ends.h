// Notices the ends of the runs that the button "Run active/checked scenarios" starts, and tells how they
// ended.
#pragma once

#include "platform/change_times.h"
#include "platform/process.h"
#include "toolkit/label.h"
#include "toolkit/timer.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class Run_ends {
public:
    // Tells in the note.
    explicit Run_ends(TLabel& note);

    // Does `run`, which starts the model on the scenario of that file (full name) without waiting for it.
    void watch(const std::string& file, const std::function<void()>& run);
    // The same with a `run` that waits for the end. What is to be told of a run that failed or left no
    // output;
    // "" when all went well.
    static std::string wait_for(const std::string& file, const std::function<void()>& run);
    void tell(const std::string& text, Mark mark);
    // Takes out of the files (full names) those of scenarios that are run beside the editor, and the folders
    // of their outputs. Returns the names of these scenarios, in code page 1252.
    std::vector<std::string> take_running(std::vector<std::string>& files) const;

    std::function<void()> on_end; // a run has ended

private:
    struct Run {
        explicit Run(const std::string& scenario_file);

        std::string file;
        std::string name;
        std::string folder; // of its outputs
        platform::Folder_mark before;
        std::unique_ptr<platform::End_watch> end = std::make_unique<platform::End_watch>();
    };

    void look();
    // How the run ended, and whether all went well.
    static std::pair<std::string, bool> describe(const Run& run, std::optional<int> exit_code);

    TLabel& note_;
    std::vector<Run> runs_;
    TTimer timer_{500}; // while something runs
};
