#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"

#include <memory>

namespace {

struct Undo_options {
    std::string project;
    std::string change;
    bool only_lists = false;
    bool is_sure = false;
};

constexpr const char* of_the_trash = "What was deleted into the trash is brought back from there.";

std::vector<Change_backups::Change> all_changes(const Change_backups& backups) {
    std::string failure;
    std::vector<Change_backups::Change> changes = backups.list(&failure);
    if (!failure.empty())
        throw Command_failure(exit_unreachable, screen_text(failure));
    return changes;
}

// Whether there is the change, or for an empty name any.
bool is_there(const Change_backups& backups, const std::string& name) {
    const std::vector<Change_backups::Change> changes = all_changes(backups);
    return std::any_of(changes.begin(), changes.end(), [&](const Change_backups::Change& change) {
        return name.empty() || change.set == record_text(name);
    });
}

// Says what will be undone, and what will not, before it is done. False when the user, who is asked where
// there is one, does not want that.
bool is_wanted(Session& session, const Change_backups& backups, const Undo_options& options) {
    for (const Change_backups::Change& change : all_changes(backups)) {
        if (!options.change.empty() && change.set != record_text(options.change))
            continue;
        session.console.say(
            "The change that is undone: " + screen_text(change.operation) + ", " + change.time +
            ", files: " + std::to_string(change.entries) +
            ". What has since been deleted into the trash lies there, and what has since been made stays.");
        return options.is_sure || !options.change.empty() || !session.console.can_ask() ||
               session.console.ask("Undo it?");
    }
    return true; // there is none, which is told then
}

// Names the files that others have changed since. Fails unless the user wants them to be put back.
void must_be_wanted(Session& session, const std::vector<std::string>& changed, const Undo_options& options) {
    for (const std::string& name : changed)
        session.console.say("Changed since by others: " + screen_text(name));
    if (changed.empty() || options.is_sure)
        return;
    if (!session.console.can_ask())
        throw Command_failure(exit_found, "Nothing was undone. Say --yes to put back these files, too, as "
                                          "they were before the change; that can be undone as well.");
    if (!session.console.ask("Put them back all the same?"))
        throw Command_failure(exit_found, "Nothing was undone.");
}

void undo(Session& session, const Undo_options& options) {
    Opened_project project(session, options.project);
    Change_backups backups(project.directory());
    if (options.only_lists) {
        Report report(session, {{"change"}, {"operation"}, {"time"}, {"files"}});
        for (const Change_backups::Change& change : all_changes(backups))
            report.add({screen_text(change.set), screen_text(change.operation), change.time, change.entries});
        report.finish();
        return;
    }
    if (!is_wanted(session, backups, options))
        throw Command_failure(exit_found, "Nothing was undone.");
    const Operation_progress progress = shown_progress(session, "bringing back");
    const std::string newest = backups.newest().value_or(Change_backups::Change()).set;
    const auto refusal = [&](const std::vector<std::string>& files, const std::vector<std::string>& changed) {
        must_be_idle(project.states(), files);
        must_be_wanted(session, changed, options);
        return std::string();
    };
    const Operation_outcome outcome = options.change.empty()
                                          ? backups.undo_last(progress, refusal)
                                          : backups.undo(record_text(options.change), progress, refusal);
    session.console.end_progress();
    if (!outcome.refused.empty() && !is_there(backups, options.change))
        throw Command_failure(exit_found, screen_text(outcome.refused) + ' ' + of_the_trash);
    must_be_begun(outcome);
    if (outcome.stopped) {
        session.console.say("Stopped. What had been brought back until then stays so.");
        session.note(exit_found);
    }
    if (!outcome.ok()) {
        session.console.say(screen_text(describe_failures(outcome)));
        session.note(exit_unreachable);
    }
    // An undo leaves a change of its own, which tells of what it is one.
    const Change_backups::Change made = backups.newest().value_or(Change_backups::Change());
    print_object(session, {{"change", made.set == newest ? Json() : Json(screen_text(made.operation))},
                           {"brought_back", outcome.done},
                           {"failed", outcome.not_done.size()}});
}

} // namespace

void add_undo_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "undo",
        std::string("Undo the last change to scenarios, which can itself be undone. ") + of_the_trash,
        "  tvs_project undo study.tvp --list\n"
        "  tvs_project undo study.tvp\n");
    auto options = std::make_shared<Undo_options>();
    add_project(*command, options->project);
    command->add_option("--change", options->change, "A change by the name that the list gives it")
        ->type_name("NAME");
    command->add_flag("--yes", options->is_sure,
                      "Do not ask, also on a terminal, and put back what others have changed since");
    command->add_flag("--list", options->only_lists, "List the changes that can be undone");
    command->callback([&session, options] { undo(session, *options); });
}
