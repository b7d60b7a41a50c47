#include "command_line/run_options.h"

#include "command_line/report.h"
#include "platform/command_line.h"
#include "platform/files.h"
#include "runs/project_run_set.h"
#include "runs/run_progress.h"
#include "runs/run_supervisor.h"
#include "runs/worker_files.h"

#include <cerrno>
#include <csignal>
#include <poll.h>

namespace {

volatile std::sig_atomic_t asked_to_end = 0;

// Has the signals by which a user ends a program ask for it, as long as it lives.
class End_signals {
public:
    End_signals() {
        struct sigaction action {};
        action.sa_handler = [](int) { asked_to_end = asked_to_end + 1; };
        for (std::size_t i = 0; i < std::size(signals); ++i)
            sigaction(signals[i], &action, &old_[i]);
    }
    End_signals(const End_signals&) = delete;
    End_signals& operator=(const End_signals&) = delete;
    ~End_signals() {
        for (std::size_t i = 0; i < std::size(signals); ++i)
            sigaction(signals[i], &old_[i], nullptr);
    }

private:
    static constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};
    struct sigaction old_[std::size(signals)]{};
};

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
        if (asked_to_end != 0 && !is_stopping) {
            is_stopping = true;
            engine.stop();
        }
        if (asked_to_end > 1 && journal.job() && !journal.job()->is_cancelled) {
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
               const std::vector<std::string>& unusable) {
    Supervised_engine supervised(folder);
    const std::unique_ptr<Run_engine> own = in_background ? nullptr : make_engine(folder);
    Run_engine& engine = in_background ? supervised : *own;
    if (const std::string reason = engine.start(); !reason.empty())
        throw Command_failure(exit_found, screen_text(reason));
    Run_journal journal(folder, set.scenarios.size());
    if (in_background) {
        supervised.go_on_alone();
        print_object(session, {{"set", screen_text(TESK::File_name(folder.c_str()).get_name(true))},
                               {"runs", set.scenarios.size()}});
        return;
    }
    if (set.engine == Engine_kind::list) {
        session.console.out() << platform::read_file(run_list_file(folder)).contents;
        return;
    }
    watch(session, engine, journal);
    report_runs(session, set, journal, unusable);
    const Run_progress progress = progress_of(journal, is_owned(journal), moment_now());
    session.console.say(describe(progress) + '.');
    if (progress.done != progress.total)
        session.note(exit_found);
}

void report_runs(Session& session, const Run_set& set, const Run_journal& journal,
                 const std::vector<std::string>& unusable) {
    Report report(session, {{"scenario"}, {"state"}, {"reason"}, {"seconds"}, {"started", false}});
    for (const std::string& file : unusable)
        report.add({screen_text(scenario_name(TESK::File_name(file.c_str()).get_name(true))),
                    word_for(Run_state::failed), platform::refusal_of_name(file), Json(), Json()});
    const bool has_owner = is_owned(journal);
    for (std::size_t run = 0; run < set.scenarios.size(); ++run) {
        const Run_record& record = journal.runs()[run];
        const std::string reason = describe_end(record, journal.reason(run));
        const TESK::File_name file(set.scenarios[run].c_str());
        if (!report.add({screen_text(scenario_name(file.get_name(true))),
                         word_for(state_of(record, has_owner)),
                         reason.empty() ? Json() : Json(screen_text(reason)), seconds_of(record),
                         record.started == 0 ? Json() : Json(text_of_moment(record.started))}))
            break;
    }
    report.finish();
}
