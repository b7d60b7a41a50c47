// What became of each file of an operation on many: the failure of one does not end the work on the others,
// and the end says how many failed, and which.
#pragma once

#include "command_line/opened_project.h"
#include "command_line/report.h"
#include "operations/change_backups.h"
#include "operations/operation_outcome.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class Outcome_report {
public:
    // `what` has an outcome: the key of the first column.
    explicit Outcome_report(Session& session, const char* what = "scenario");

    // `name` and reason in UTF-8. An outcome with a code is a failure.
    void add(const std::string& name, const std::string& outcome, const std::string& reason = "",
             int code = exit_done);
    // The same for the scenarios of the files (full names) that an operation was given, in their order. Those
    // that it had not come to when it was stopped are no failures.
    void add_all(const std::vector<std::string>& files, const Operation_outcome& outcome);
    void finish();

private:
    Session& session_;
    Report report_;
    std::vector<std::string> failed_;
    std::size_t count_ = 0;
    Operation_outcome outcome_;
};

// Says how many of the files failed, and which; nothing when none did.
void say_failed(Session& session, const std::vector<std::string>& failed, std::size_t count);

// Says of an operation that was stopped how far it had come; nothing of another.
void say_stopped(Session& session, const Operation_outcome& outcome, std::uint64_t count);

// Ends the command when the operation was refused.
void must_be_begun(const Operation_outcome& outcome);

// Adds the option by which a user does without a way back.
void add_no_backup(CLI::App& command, bool& no_backup);

// Where an operation of the project puts aside what it will replace: `names`. Fails where that does not fit;
// nothing for who wants none.
std::optional<Change_backups> backups_for(Opened_project& project, const std::vector<std::string>& names,
                                          bool no_backup);

// Shows the progress of an operation by a word, and has it stop when the user ends the program (Ctrl-C).
Operation_progress shown_progress(Session& session, const std::string& word);
