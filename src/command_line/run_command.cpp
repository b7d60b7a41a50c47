#include "command_line/commands.h"
#include "command_line/run_options.h"
#include "operations/operation_outcome.h"
#include "platform/command_line.h"
#include "runs/run_folders.h"

#include <memory>
#include <tuple>

namespace {

// Takes out the scenarios that are being run, and those of which no command line can hold the name: they
// fail, and the others are run.
std::vector<Unusable> take_unusable(Session& session, const Scenario_states& states,
                                    std::vector<std::string>& scenarios) {
    std::vector<Unusable> unusable;
    std::erase_if(scenarios, [&](const std::string& file) {
        std::vector<std::string> one{file};
        const std::string interruption = screen_text(told_interruption(file));
        const Busy_scenarios busy = states.take_busy(one);
        const std::string reason =
            !busy.doubt.empty()
                ? "Whether another set of runs has it run cannot be told: " + screen_text(busy.doubt)
            : !busy.empty()         ? "Another set of runs has it run."
            : !interruption.empty() ? interruption
                                    : platform::refusal_of_name(file);
        if (!reason.empty())
            unusable.push_back({file, reason});
        return !reason.empty();
    });
    for (const auto& [file, reason] : unusable) {
        session.console.say("Not run: " + screen_text(TESK::File_name(file.c_str()).get_name(true)) + ". " +
                            reason);
        session.note(exit_found);
    }
    return unusable;
}

// Says, and adds, of which scenarios nobody knows whether they are out of date.
void tell_unknown(Session& session, Opened_project& project, Scenario_choice choice,
                  std::vector<Unusable>& unusable) {
    choice.states = {"unknown"};
    for (const std::string& scenario : choose_scenarios(project, choice, false)) {
        const std::string file = project.scenario_file(scenario, choice.folder());
        unusable.push_back({file, "Whether it is out of date cannot be told: " +
                                      screen_text(project.states().status_of(file).reason)});
        session.console.say("Not run: " + screen_text(scenario) + ". " + unusable.back().reason);
        session.note(exit_unreachable);
    }
}

// Says so, and tells it to programs in the shape that any other number of runs has.
void tell_nothing(Session& session, const Run_options& options, const std::vector<Unusable>& unusable) {
    session.console.say("There is nothing to run.");
    if (options.only_shows || (options.engine == "list" && !options.in_background))
        report_commands(session, {}, unusable);
    else if (!options.in_background)
        report_runs(session, {}, nullptr, unusable);
    else if (session.as_json)
        report_background(session, "", 0, unusable);
}

void run(Session& session, Run_options& options) {
    if (options.stops_at_failure && options.engine != "local")
        throw Command_failure(exit_misused,
                              "--stop-on-failure is for runs on this machine (--engine local).");
    const Slurm_request& slurm = options.slurm;
    if (!(slurm.partition + slurm.time + slurm.memory + slurm.options).empty() && options.engine != "slurm")
        throw Command_failure(exit_misused,
                              "--partition, --time, --memory and --sbatch are for the scheduler "
                              "(--engine slurm).");
    if (options.jobs > 0 && options.engine == "list")
        throw Command_failure(exit_misused, "--jobs is for runs that are started here, not for a list.");
    resolve_files(session, options.choice);
    if (options.only_failed)
        options.choice.states.emplace_back("failed");
    if (options.only_stale)
        options.choice.states.emplace_back("stale");
    Opened_project project(session, options.project);
    std::vector<std::string> scenarios;
    // What has failed or is out of date may be run again wherever it is.
    const bool needs_names = options.choice.states.empty() && options.choice.conditions.empty();
    for (const std::string& scenario : choose_scenarios(project, options.choice, needs_names))
        scenarios.push_back(project.scenario_file(scenario, options.choice.folder()));
    std::vector<Unusable> unusable = take_unusable(session, project.states(), scenarios);
    if (options.only_stale)
        tell_unknown(session, project, options.choice, unusable);
    if (scenarios.empty()) {
        tell_nothing(session, options, unusable);
        return;
    }
    const Run_set set = make_set(project, options, std::move(scenarios));
    if (options.only_shows) {
        report_commands(session, commands_of(session, set, new_run_set_folder(project.directory().Runs)),
                        unusable);
        return;
    }
    const Made_run_set made = make_run_set(project.directory().Runs, set);
    if (made.folder.empty())
        throw Command_failure(exit_unreachable, "The folder of the runs " +
                                                    screen_text(project.directory().Runs) +
                                                    " cannot be written: " + screen_text(made.result.reason));
    try {
        have_done(session, made.folder, set, options.in_background, unusable);
    } catch (const Command_failure&) {
        delete_run_set(made.folder, true); // nobody has taken it on
        throw;
    }
}

} // namespace

void add_run_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "run", "Run the model on scenarios; exit code 1 when any does not end well",
                    "  tvs_project run study.tvp base 'plot*' --jobs 4\n"
                    "  tvs_project run study.tvp --stale\n"
                    "  tvs_project run study.tvp --all --generated --background\n"
                    "  tvs_project run study.tvp --failed --time-limit 600\n");
    auto options = std::make_shared<Run_options>();
    add_project(*command, options->project);
    add_choice(*command, options->choice);
    CLI::Option* state = command->get_option("--state");
    command
        ->add_flag("--stale", options->only_stale,
                   "Only those that are out of date or were never run: the same as --state stale")
        ->excludes(state);
    command
        ->add_flag("--failed", options->only_failed,
                   "Only those whose last run failed: the same as --state failed; with --stale, those of "
                   "either kind")
        ->excludes(state);
    command->add_option("--jobs", options->jobs, "How many at a time; without it one for each core")
        ->check(CLI::Range(1, 10000))
        ->type_name("N");
    command
        ->add_option("--engine", options->engine,
                     "Who runs them: this machine, the scheduler Slurm, or whoever runs a list of commands, "
                     "which is printed")
        ->check(CLI::IsMember({"local", "slurm", "list"}))
        ->type_name("");
    for (const auto& [name, field, what, value] :
         {std::tuple("--partition", &Slurm_request::partition, "Slurm: the partition", "NAME"),
          std::tuple("--time", &Slurm_request::time, "Slurm: the time of one task", "TIME"),
          std::tuple("--memory", &Slurm_request::memory, "Slurm: the memory of one task", "SIZE"),
          std::tuple("--sbatch", &Slurm_request::options, "Slurm: further options of sbatch", "OPTIONS")})
        command->add_option(name, options->slurm.*field, what)->type_name(value);
    command->add_flag("--stop-on-failure", options->stops_at_failure,
                      "Start nothing more once a run has failed");
    command->add_option("--time-limit", options->time_limit, "End a run that takes longer")
        ->check(CLI::Range(1, 100000000))
        ->type_name("SECONDS");
    command->add_flag("--common-format", options->common_format,
                      "Use the project's report format instead of each scenario's own");
    command->add_flag("--background", options->in_background, "Leave the runs to a process of their own");
    command->add_flag("--dry-run", options->only_shows, "Only print the command lines");
    command->callback([&session, options] { run(session, *options); });
}
