#include "command_line/run_options.h"

#include "command_line/end_signals.h"
#include "command_line/outcome_report.h"
#include "command_line/report.h"
#include "platform/command_line.h"
#include "platform/files.h"
#include "runs/project_run_set.h"
#include "runs/run_progress.h"
#include "runs/run_supervisor.h"
#include "runs/worker_files.h"

#include <cerrno>
#include <cstdlib>
#include <numeric>
#include <poll.h>
#include <sstream>

namespace {

void wait_for(const Run_engine& engine) {
    constexpr int longest = 1000; // milliseconds
    pollfd watched{engine.descriptor(), POLLIN, 0};
    ::poll(&watched, engine.descriptor() >= 0 ? 1 : 0, longest);
}

void watch(Session& session, Run_engine& engine, Run_journal& journal) {
    const End_signals signals;
    bool is_stopping = false;
    std::string trouble;
    while (engine.poll()) {
        if (End_signals::asked() > 0 && !is_stopping) {
            is_stopping = true;
            engine.stop();
        }
        if (End_signals::asked() > 1 && journal.job() && !journal.job()->is_cancelled) {
            session.console.say("The job " + journal.job()->number +
                                " goes on. \"tvs_project stop\" stops it once the scheduler answers.");
            break;
        }
        if (engine.trouble() != trouble && !(trouble = engine.trouble()).empty())
            session.console.say(screen_text(trouble));
        if (journal.update())
            session.console.show_progress(describe(progress_of(journal, true, moment_now())));
        wait_for(engine);
    }
    journal.update();
    session.console.end_progress();
}

Json seconds_of(const Run_record& record) {
    constexpr double thousandth = 1000;
    return record.has_ended()
               ? Json(static_cast<double>(static_cast<std::int64_t>(record.seconds * thousandth)) /
                      thousandth)
               : Json();
}

std::string name_of(const std::string& scenario) {
    return screen_text(scenario_name(TESK::File_name(scenario.c_str()).get_name(true)));
}

// The command lines of a list, each of which ends with the number of its run.
std::vector<Shown_command> commands_in(const std::string& list, const Run_set& set) {
    std::vector<Shown_command> commands;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t run = std::strtoul(line.c_str() + line.rfind(' ') + 1, nullptr, 10);
        commands.push_back({run < set.scenarios.size() ? set.scenarios[run] : std::string(), line});
    }
    return commands;
}

} // namespace

Run_set make_set(Opened_project& project, const Run_options& options, std::vector<std::string> scenarios) {
    Run_set set = run_set_of(project.record(), project.directory(), project.project_file(),
                             options.common_format, std::move(scenarios));
    set.engine = options.engine == "slurm"  ? Engine_kind::slurm
                 : options.engine == "list" ? Engine_kind::list
                                            : Engine_kind::local;
    set.at_once = options.jobs;
    set.longest = std::chrono::seconds(options.time_limit);
    set.stops_at_first_failure = options.stops_at_failure;
    set.slurm = options.slurm;
    if (const std::string name = unusable_name(set); !name.empty())
        throw Command_failure(exit_found, "No command line can hold the name " + screen_text(name) + ".");
    return set;
}

void have_done(Session& session, const std::string& folder, const Run_set& set, bool in_background,
               const std::vector<Unusable>& unusable) {
    if (const platform::Write_result journal = Journal_writer(folder).state(); !journal.ok())
        throw Command_failure(exit_unreachable, "The folder of the runs " + screen_text(folder) +
                                                    " cannot be written: " + screen_text(journal.reason));
    Supervised_engine supervised(folder);
    const std::unique_ptr<Run_engine> own = in_background ? nullptr : make_engine(folder);
    Run_engine& engine = in_background ? supervised : *own;
    if (const std::string reason = engine.start(); !reason.empty())
        throw Command_failure(exit_found, screen_text(reason));
    Run_journal journal(folder, set.scenarios.size());
    if (in_background) {
        supervised.go_on_alone();
        report_background(session, screen_text(TESK::File_name(folder.c_str()).get_name(true)),
                          set.scenarios.size(), unusable);
        return;
    }
    if (set.engine == Engine_kind::list) {
        report_commands(session, commands_in(platform::read_file(run_list_file(folder)).contents, set),
                        unusable);
        return;
    }
    watch(session, engine, journal);
    report_runs(session, set, &journal, unusable);
    const Run_progress progress = progress_of(journal, is_owned(journal), moment_now());
    session.console.say(describe(progress) + '.');
    std::vector<std::string> failed;
    for (std::size_t run = 0; run < set.scenarios.size(); ++run)
        if (journal.runs()[run].has_failed())
            failed.push_back(name_of(set.scenarios[run]));
    say_failed(session, failed, progress.total);
    if (progress.done != progress.total)
        session.note(exit_found);
}

void report_runs(Session& session, const Run_set& set, const Run_journal* journal,
                 const std::vector<Unusable>& unusable) {
    Report report(session, {{"scenario"}, {"state"}, {"reason"}, {"seconds"}, {"started", false}});
    for (const auto& [file, reason] : unusable)
        report.add({name_of(file), word_for(Run_state::failed), reason, Json(), Json()});
    const bool has_owner = journal != nullptr && is_owned(*journal);
    for (std::size_t run = 0; journal != nullptr && run < set.scenarios.size(); ++run) {
        const Run_record& record = journal->runs()[run];
        const std::string reason = describe_run(*journal, run, has_owner);
        if (!report.add({name_of(set.scenarios[run]), word_for(state_of(record, has_owner)),
                         reason.empty() ? Json() : Json(screen_text(reason)), seconds_of(record),
                         record.started == 0 ? Json() : Json(text_of_moment(record.started))}))
            break;
    }
    report.finish();
}

void report_commands(Session& session, const std::vector<Shown_command>& commands,
                     const std::vector<Unusable>& unusable) {
    if (!session.as_json) {
        for (const Shown_command& one : commands)
            session.console.out() << one.command << '\n';
        return;
    }
    Report report(session, {{"scenario"}, {"command"}, {"reason"}});
    for (const auto& [file, reason] : unusable)
        report.add({name_of(file), Json(), reason});
    for (const Shown_command& one : commands)
        report.add({name_of(one.scenario), one.command, Json()});
    report.finish();
}

std::vector<Shown_command> commands_of(Session& session, const Run_set& set, const std::string& folder) {
    std::vector<Shown_command> commands;
    for (std::size_t run = 0; run < set.scenarios.size(); ++run)
        commands.push_back({set.scenarios[run], screen_text(set.command_line(run))});
    if (set.engine != Engine_kind::list)
        return commands;
    if (const std::string reason = why_not_listed(set); !reason.empty())
        throw Command_failure(exit_found, screen_text(reason));
    std::vector<std::size_t> runs(set.scenarios.size());
    std::iota(runs.begin(), runs.end(), std::size_t(0));
    session.console.say(
        "Without --dry-run the folder that these lines name is made, by a name of that time.");
    return commands_in(run_list_text(folder, runs), set);
}

void report_background(Session& session, const std::string& set, std::size_t runs,
                       const std::vector<Unusable>& unusable) {
    Json told{{"set", set.empty() ? Json() : Json(set)}, {"runs", runs}};
    if (session.as_json) {
        told["failed"] = Json::array();
        for (const auto& [file, reason] : unusable)
            told["failed"].push_back({{"scenario", name_of(file)}, {"reason", reason}});
    }
    print_object(session, told);
}
