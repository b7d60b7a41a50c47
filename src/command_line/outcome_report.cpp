#include "command_line/outcome_report.h"

#include "command_line/end_signals.h"
#include "command_line/scenario_choice.h"

#include <map>
#include <memory>

Outcome_report::Outcome_report(Session& session, const char* what)
    : session_(session), report_(session, {{what}, {"outcome"}, {"reason"}}) {}

void Outcome_report::add(const std::string& name, const std::string& outcome, const std::string& reason,
                         int code) {
    session_.note(code);
    if (code != exit_done)
        failed_.push_back(name);
    ++count_;
    report_.add({name, outcome, reason.empty() ? Json() : Json(reason)});
}

void Outcome_report::add_all(const std::vector<std::string>& files, const Operation_outcome& outcome) {
    session_.console.end_progress();
    must_be_begun(outcome);
    outcome_ = outcome;
    std::size_t left = outcome.stopped ? outcome.done : files.size();
    std::map<std::string, std::string> reasons;
    for (const Not_done& one : outcome.not_done)
        reasons.emplace(one.file, one.reason);
    for (const std::string& file : files) {
        const std::string name = screen_text(scenario_name(TESK::File_name(file.c_str()).get_name(true)));
        if (const auto reason = reasons.find(file); reason != reasons.end()) {
            add(name, "failed", screen_text(reason->second), exit_unreachable);
            continue;
        }
        add(name, left > 0 ? "done" : "not done");
        left -= left > 0 ? 1 : 0;
    }
}

void Outcome_report::finish() {
    report_.finish();
    say_stopped(session_, outcome_, count_);
    say_failed(session_, failed_, count_);
}

void say_stopped(Session& session, const Operation_outcome& outcome, std::uint64_t count) {
    if (!outcome.stopped)
        return;
    session.console.say("Stopped: " + std::to_string(outcome.done) + " of " + std::to_string(count) +
                        " done.");
    session.note(exit_found);
}

void say_failed(Session& session, const std::vector<std::string>& failed, std::size_t count) {
    if (failed.empty())
        return;
    constexpr std::size_t most_named = 10;
    std::string names;
    for (std::size_t i = 0; i < failed.size() && i < most_named; ++i)
        names += (i > 0 ? ", " : "") + failed[i];
    if (failed.size() > most_named)
        names += ", ...";
    session.console.say(std::to_string(failed.size()) + " of " + std::to_string(count) + " failed: " + names);
}

void must_be_begun(const Operation_outcome& outcome) {
    if (!outcome.refused.empty())
        throw Command_failure(exit_unreachable, screen_text(outcome.refused));
}

void add_no_backup(CLI::App& command, bool& no_backup) {
    command.add_flag("--no-backup", no_backup, "Put nothing aside, so that it cannot be undone");
}

std::optional<Change_backups> backups_for(Opened_project& project, const std::vector<std::string>& names,
                                          bool no_backup) {
    if (no_backup || names.empty())
        return std::nullopt;
    if (!Change_backups::need(names).fits())
        throw Command_failure(exit_found,
                              "What would be replaced is more than the project keeps to undo a change. "
                              "Say --no-backup to do it all the same.");
    return std::make_optional<Change_backups>(project.directory());
}

Operation_progress shown_progress(Session& session, const std::string& word) {
    const auto signals = std::make_shared<End_signals>(SA_RESTART | SA_RESETHAND);
    return [&session, word, signals](std::size_t done, std::size_t total) {
        session.console.show_progress(word, done, total);
        return signals->asked() == 0;
    };
}
