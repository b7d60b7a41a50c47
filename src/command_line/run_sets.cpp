#include "command_line/run_sets.h"

#include "runs/run_folders.h"

std::string Found_set::name() const {
    return screen_text(TESK::Directory_name(folder).get_name(true));
}

void add_set(CLI::App& command, std::string& set) {
    command.add_option("--set", set, "The set, by the name of its folder; without it the newest")
        ->type_name("NAME");
}

Found_set find_set(Opened_project& project, const std::string& name) {
    platform::Write_result failure;
    const std::vector<std::string> folders = list_run_sets(project.directory().Runs, &failure);
    if (!failure.ok())
        throw Command_failure(exit_unreachable, "The folder of the runs cannot be read: " + failure.reason);
    for (const std::string& folder : folders) {
        Found_set found{folder, {}, nullptr};
        if (!name.empty() && found.name() != name)
            continue;
        std::optional<Run_set> set = read_run_set(folder);
        // An older one is not what was meant.
        if (!set)
            throw Command_failure(exit_unreachable,
                                  "The set of runs '" + found.name() +
                                      "' cannot be read: " + screen_text(folder) +
                                      "\\set.txt is damaged, or no file that you may "
                                      "read. Say another one by --set, or delete that folder.");
        found.set = std::move(*set);
        found.journal = std::make_unique<Run_journal>(folder, found.set.scenarios.size());
        found.journal->update();
        return found;
    }
    throw Command_failure(exit_found, name.empty() ? "The project has no set of runs."
                                                   : "The project has no set of runs '" + name + "'.");
}
