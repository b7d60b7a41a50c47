// What an operation on a project asks of the form that holds the project's file: to save it, and to start
// programs on it.
#pragma once

#include <string>

class Program_host {
public:
    virtual ~Program_host() = default;

    // The project's file; "" while there is none.
    virtual std::string project_file() const = 0;
    // Saves the project. False when the user gave it up: what wanted the save is not to go on.
    virtual bool save() = 0;
    // Saves the project, then starts a program: "program" options "file" "extra". False when that could not
    // be done; was_cancelled() tells whether because the user gave up the save.
    virtual bool run(const std::string& program, const std::string& options, const std::string& file,
                     const std::string& extra, bool wait, int show_state) = 0;
    virtual bool was_cancelled() const = 0;

    // The same on the project's file, with a further one behind it.
    bool run_on_file(const std::string& program, const std::string& options, const std::string& extra,
                     bool wait, int show_state) {
        return run(program, options, project_file(), extra, wait, show_state);
    }
    // The same without waiting, in a usual window.
    bool run_with_file(const std::string& program, const std::string& file, const std::string& options) {
        return run(program, options, file, "", false, 1);
    }
};
