#include "command_line/run_sets.h"

#include "runs/run_folders.h"

std::string Found_set::name() const {
    return screen_text(TESK::Directory_name(folder).get_name(true));
}

void add_set(CLI::App& command, std::string& set) {
    command
        .add_option(
            "--set", set,
            "The set, by the name of its folder; without it the newest, for status and stop the newest at "
            "work")
        ->type_name("NAME");
}

std::string Found_set::failure() const {
    return journal ? journal->failure() : unreadable_run_set(folder);
}

std::vector<std::string> folders_of_sets(Opened_project& project) {
    platform::Write_result failure;
    std::vector<std::string> folders = list_run_sets(project.directory().Runs, &failure);
    if (!failure.ok())
        throw Command_failure(exit_unreachable, "The folder of the runs " +
                                                    screen_text(project.directory().Runs) +
                                                    " cannot be read: " + failure.reason);
    return folders;
}

Found_set read_set(const std::string& folder) {
    Found_set found{folder, {}, nullptr};
    if (std::optional<Run_set> set = read_run_set(folder)) {
        found.set = std::move(*set);
        found.journal = std::make_unique<Run_journal>(folder, found.set.scenarios.size());
        found.journal->update();
    }
    return found;
}

std::map<std::string, Moment> silent_machines(const Run_journal& journal) {
    std::map<std::string, Moment> machines;
    const auto note = [&machines](const std::string& machine, Moment sign) {
        machines[machine] = std::max(machines[machine], sign);
    };
    const auto& owner = journal.owner();
    const bool is_owner_silent =
        owner && platform::presence_of(*owner) == platform::Process_presence::elsewhere;
    if (is_owner_silent)
        note(owner->host, journal.owned_since());
    for (std::size_t run = 0; run < journal.runs().size(); ++run) {
        const Run_record& record = journal.runs()[run];
        if (const std::string machine = journal.elsewhere(run); !machine.empty())
            note(machine, record.started);
        if (is_owner_silent)
            note(owner->host, std::max(record.started, record.ended));
    }
    return machines;
}

void must_be_own(const Found_set& found) {
    if (const std::string reason = reason_not_to_touch(found.folder, found.set); !reason.empty())
        throw Command_failure(exit_found, screen_text(reason));
}

Found_set find_set(Opened_project& project, const std::string& name, Newest which) {
    std::vector<std::string> folders = folders_of_sets(project);
    if (!name.empty())
        std::erase_if(folders, [&](const std::string& folder) {
            return Found_set{folder, {}, nullptr}.name() != name;
        });
    if (folders.empty())
        throw Command_failure(exit_found, name.empty() ? "The project has no set of runs."
                                                       : "The project has no set of runs '" + name + "'.");
    if (which == Newest::at_work)
        for (const std::string& folder : folders)
            if (Found_set found = read_set(folder);
                found.journal && is_owned(*found.journal) &&
                !(found.journal->job() && found.journal->job()->is_list()))
                return found;
    Found_set found = read_set(folders.front());
    // An older one is not what was meant.
    if (const std::string failure = found.failure(); !failure.empty())
        throw Command_failure(exit_unreachable,
                              screen_text(failure) + " Say another one by --set, or " +
                                  (found.journal ? "see to it that it can be read: as long as it cannot, the "
                                                   "set may be at work, and delete-runs leaves it."
                                                 : "delete it with delete-runs."));
    return found;
}
