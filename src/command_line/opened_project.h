// The project that a command works on: its record, its folders and its scenarios, in the process's current
// directory. Nothing is made or written before an operation asks for it.
#pragma once

#include "command_line/session.h"
#include "model/project_editor_parameters.h"
#include "operations/project_workspace.h"
#include "runs/scenario_states.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

// Finds the installed suite, which the programs to be started belong to.
void find_suite(const Session& session);

// What a project whose last save was interrupted means to a command.
enum class If_interrupted {
    refused, // to one that works by what the record holds
    told     // to one that only tells or stops
};

class Opened_project : public Program_host {
public:
    // Opens the project of a file or a folder, as the user names it. Fails with exit_unreachable.
    Opened_project(Session& session, const std::string& argument,
                   If_interrupted if_interrupted = If_interrupted::refused);

    const TESK::File_name& file() const { return file_; }
    // The file of the scenario of that file name.
    TESK::File_name scenario_file(const std::string& file_name, Scenario_folder folder) const;
    const TESK::Smart_directory_name& folder_of(Scenario_folder folder) const {
        return workspace_->scenarios_directory(folder, false);
    }
    Project_workspace& workspace() { return *workspace_; }
    Tilverra_project_directory& directory() { return *workspace_->project_directory; }
    Tilverra_project_editor_parameters& record() { return record_; }

    // The states of its scenarios, as of the first call, which says and notes what of the runs cannot be
    // read.
    Scenario_states& states();

    // Says a sentence (in UTF-8) to the user.
    void say(const std::string& sentence) const { session_.console.say(sentence); }
    // Says why a scenario is left out, which is noted.
    void tell_unreadable(const std::string& scenario, const std::string& reason) const {
        say(screen_text(scenario) + ": " + screen_text(reason));
        session_.note(exit_unreachable);
    }

    std::string project_file() const override { return file_; }
    // Writes the record when a command has changed it. What another program has changed in the file since it
    // was read stays. Fails with exit_unreachable, also where both have changed the same.
    bool save() override;
    // Starts the program on the project as it is on the disk: no screen holds anything that it lacks.
    bool run(const std::string& program, const std::string& options, const std::string& file,
             const std::string& extra, bool wait, int show_state) override;
    bool was_cancelled() const override { return false; }
    // The latest exit code other than 0 of a program that was waited for, since the last call; 0 for none.
    int take_exit_code() { return std::exchange(exit_code_, 0); }

private:
    void read();

    Session& session_;
    TESK::File_name file_;
    Tilverra_project_editor_parameters record_;
    std::string text_in_file_; // when it was read
    std::string saved_text_;   // what a save would have written then
    std::optional<Project_workspace> workspace_;
    std::optional<Scenario_states> states_;
    int exit_code_ = 0;
};

// The project file that the argument means: itself, or that of the folder that it is. Fails with
// exit_unreachable where there is none.
TESK::File_name find_project_file(const Session& session, const std::string& argument);

// Makes the folder where it is missing. Fails with exit_unreachable, naming it, where nothing can be put
// there.
void need_folder(const TESK::Smart_directory_name& folder);

// Makes the folder current from which the relative names of a record file count: of a scenario in a folder of
// scenarios the project's, of a project its own, of any other file the folder that holds it.
void enter_folder_of_names(const TESK::File_name& file);
