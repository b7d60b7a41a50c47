#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/run_sets.h"
#include "platform/listing.h"
#include "runs/run_folders.h"

#include <memory>

namespace {

struct Delete_runs_options {
    std::string project;
    std::vector<std::string> sets; // names or wildcards
    bool all = false;
    bool permanently = false;
    bool only_shows = false;
};

// The folders of the sets that were asked for, the oldest last. A pattern that none matches fails before
// anything is done.
std::vector<std::string> chosen_sets(Opened_project& project, const Delete_runs_options& options) {
    if (options.all == !options.sets.empty())
        throw Command_failure(exit_misused, "Say which sets of runs: their names, wildcards, or --all alone. "
                                            "'tvs_project status --sets' lists them.");
    std::vector<std::string> folders = folders_of_sets(project);
    const auto is_meant = [](const std::string& folder, const std::string& pattern) {
        return platform::matches_mask(TESK::File_name(folder.c_str()).get_name(true), record_text(pattern));
    };
    for (const std::string& pattern : options.sets)
        if (std::none_of(folders.begin(), folders.end(),
                         [&](const std::string& folder) { return is_meant(folder, pattern); }))
            throw Command_failure(exit_found, "No set of runs matches '" + pattern + "'. Nothing was done.");
    std::erase_if(folders, [&](const std::string& folder) {
        return !options.all && std::none_of(options.sets.begin(), options.sets.end(),
                                            [&](const auto& pattern) { return is_meant(folder, pattern); });
    });
    return folders;
}

void remove(Session& session, const Delete_runs_options& options) {
    Opened_project project(session, options.project);
    Outcome_report report(session, "set");
    std::size_t number = 0;
    const std::vector<std::string> folders = chosen_sets(project, options);
    for (const std::string& folder : folders) {
        session.console.show_progress("deleting", ++number, folders.size());
        const Found_set found = read_set(folder);
        if (found.journal && is_owned(*found.journal) &&
            !(found.journal->job() && found.journal->job()->is_list()))
            report.add(found.name(), "failed", "It is being run. Stop it first.", exit_found);
        else if (options.only_shows)
            report.add(found.name(), "would be deleted");
        else if (delete_run_set(folder, options.permanently))
            report.add(found.name(), "done");
        else
            report.add(found.name(), "failed",
                       found.journal && !found.journal->failure().empty()
                           ? screen_text(found.journal->failure())
                       : options.permanently
                           ? "The folder " + screen_text(folder) + " cannot be deleted."
                           : "The folder " + screen_text(folder) +
                                 " cannot be deleted, or there is no trash for it (--permanently).",
                       exit_unreachable);
    }
    session.console.end_progress();
    if (folders.empty())
        session.console.say("The project has no set of runs.");
    report.finish();
}

} // namespace

void add_delete_runs_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "delete-runs",
        "Delete sets of runs, into the trash unless told otherwise; the outputs of their scenarios stay",
        "  tvs_project delete-runs study.tvp '2026-03-01 12-00-00'\n"
        "  tvs_project delete-runs study.tvp '2026-02-*' --permanently\n"
        "  tvs_project delete-runs study.tvp --all --dry-run\n");
    auto options = std::make_shared<Delete_runs_options>();
    add_project(*command, options->project);
    command->add_option("SET", options->sets, "Sets: their names, or wildcards such as '2026-02-*' in quotes")
        ->type_name("");
    command->add_flag("--all", options->all, "All sets of the project");
    command->add_flag("--permanently", options->permanently, "Not into the trash");
    command->add_flag("--dry-run", options->only_shows, "Only tell what would be deleted");
    command->callback([&session, options] { remove(session, *options); });
}
