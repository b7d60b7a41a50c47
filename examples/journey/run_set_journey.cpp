#include "run_set_journey.h"

#include "editing/bound_control.h"
#include "platform/current_directory.h"
#include "platform/files.h"
#include "records/vv_file.h"
#include "runs/project_run_set.h"
#include "runs/run_folders.h"
#include "runs/run_progress.h"
#include "runs/run_repetition.h"
#include "runs/run_supervisor.h"
#include "trees/suite_directory.h"

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

namespace {

constexpr std::size_t plot_count = 20;
constexpr std::chrono::milliseconds pause(50);

// Copies the scenario for so many plots, into a folder of the project of their own.
std::vector<std::string> make_plots(const std::string& scenario, const std::string& project_folder) {
    const std::string folder = project_folder + "\\Plots";
    platform::make_folders(folder);
    std::vector<std::string> plots;
    for (std::size_t plot = 1; plot <= plot_count; ++plot) {
        plots.push_back(folder + "\\plot " + std::to_string(plot) + ".tvn");
        platform::copy_file(scenario, plots.back());
    }
    return plots;
}

std::string stem_of(const std::string& scenario) {
    return TESK::File_name(scenario.c_str()).get_name(false);
}

// Runs the set to its end, and prints what it comes to. Gives its journal.
Run_journal run(const std::string& runs_folder, const Run_set& set) {
    const Made_run_set made = make_run_set(runs_folder, set);
    Run_journal journal(made.folder, set.scenarios.size());
    Supervised_engine engine(made.folder);
    const std::string reason = made.result.ok() ? engine.start() : made.result.reason;
    if (!reason.empty())
        std::cout << "  cannot be run: " << reason << '\n';
    std::string told;
    for (bool is_at_work = true; is_at_work; std::this_thread::sleep_for(pause)) {
        is_at_work = engine.poll();
        journal.update();
        const Run_progress progress = progress_of(journal, is_at_work, moment_now());
        if ((progress.ended() % 5 == 0 || !is_at_work) && describe(progress) != told)
            std::cout << "  " << (told = describe(progress)) << '\n';
    }
    for (std::size_t number = 0; number < set.scenarios.size(); ++number)
        if (journal.runs()[number].has_failed())
            std::cout << "  failed: " << screen_text(set.scenarios[number]) << ", "
                      << describe_end(journal.runs()[number]) << '\n';
    return journal;
}

} // namespace

void show_run_set(const std::string& project_file, const std::string& scenario) {
    const platform::Directory_guard current; // which the project's directory object moves
    Tilverra_project_editor_parameters project(
        suite_directory->get_tilverra_directory().get_model_exe().c_str());
    TESK::VV_file(project_file.c_str()).get(project);
    const Tilverra_project_directory directory(TESK::File_name(project_file.c_str()), 0);
    Run_set set = run_set_of(project, directory, project_file, false, {});
    set.scenarios = make_plots(scenario, set.folder);
    // What the stand-in for the model is to do is told by its environment.
    setenv("TVS_STAND_IN_SECONDS", "0.1", 1);
    setenv("TVS_STAND_IN_FAILURES",
           (stem_of(set.scenarios.front()) + ';' + stem_of(set.scenarios[7])).c_str(), 1);
    const Run_journal journal = run(directory.Runs, set);
    std::cout << "The cause of the two failures is gone: they are run once more\n";
    unsetenv("TVS_STAND_IN_FAILURES");
    Scenario_states states(set.folder, directory.Runs);
    states.refresh();
    run(directory.Runs, repetition_of(set, journal, states, Repetition::failed));
    unsetenv("TVS_STAND_IN_SECONDS");
}
