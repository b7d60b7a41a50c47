// Notices the ends of the runs that go on beside the editor, and tells how they ended.
#pragma once

#include "platform/change_times.h"
#include "platform/process.h"
#include "toolkit/label.h"
#include "toolkit/timer.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class Run_ends {
public:
    // Tells in the note.
    explicit Run_ends(TLabel& note);

    // Does `run`, which starts the model on the scenario of that name (in code page 1252) without waiting for
    // it; the folder is that of the scenario's outputs.
    void watch(const std::string& name, const std::string& folder, const std::function<void()>& run);

    std::function<void()> on_end; // a run has ended

private:
    struct Run {
        std::string name;
        std::string folder;
        platform::Folder_mark before;
        std::unique_ptr<platform::End_watch> end;
    };

    void look();
    void tell(const Run& run, int exit_code);

    TLabel& note_;
    std::vector<Run> runs_;
    TTimer timer_{500}; // while something runs
};
