#include "command_line/commands.h"
#include "command_line/report.h"
#include "command_line/scenario_choice.h"
#include "operations/operation_outcome.h"
#include "operations/scenario_overview.h"

#include <cstdio>
#include <ctime>
#include <memory>

namespace {

Json time_text(const std::optional<platform::Packed_time>& time) {
    if (!time)
        return nullptr;
    constexpr int first_year = 1980;
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d", first_year + (time->date >> 9),
                  time->date >> 5 & 15, time->date & 31, time->time >> 11, time->time >> 5 & 63);
    return text;
}

// In local time, like the other column.
Json last_run_text(const Scenario_status& status) {
    const Moment moment = status.output_time != 0 ? status.output_time : status.record.started;
    if (moment == 0)
        return nullptr;
    const std::time_t seconds = moment / 1000;
    std::tm local{};
    localtime_r(&seconds, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local);
    return text;
}

void list(Session& session, const std::string& argument, Scenario_choice& choice) {
    resolve_files(session, choice);
    Opened_project project(session, argument, If_interrupted::told);
    Report report(session,
                  {{"name"}, {"state"}, {"description"}, {"changed"}, {"last_run"}, {"reason", false}});
    for (const std::string& scenario : choose_scenarios(project, choice, false)) {
        const TESK::File_name file = project.scenario_file(scenario, choice.folder());
        const Scenario_overview overview = read_scenario_overview(file);
        const Scenario_status status = project.states().status_of(file);
        Json reason = status.reason.empty() ? Json() : Json(screen_text(status.reason));
        if (!overview.is_readable) {
            const std::string sentence = "The scenario " + screen_text(scenario) + " cannot be read.";
            session.console.say(sentence);
            reason = sentence;
            session.note(exit_unreachable);
        }
        if (const std::string interruption = told_interruption(file); !interruption.empty()) {
            reason = screen_text(interruption);
            session.console.say(screen_text(scenario) + ": " + screen_text(interruption));
            session.note(exit_unreachable);
        }
        if (!report.add({screen_text(scenario_name(scenario)),
                         overview.is_readable ? word_for(status.state) : "unreadable",
                         screen_text(overview.description), time_text(overview.changed),
                         last_run_text(status), reason}))
            break;
    }
    report.finish();
}

} // namespace

void add_list_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "list", "List scenarios: name, state, description, last change, last run",
                    "  tvs_project list study.tvp\n"
                    "  tvs_project list study.tvp 'plot*' --generated --json\n"
                    "  tvs_project list study.tvp --state failed,stale\n"
                    "  tvs_project list study.tvp --where cropping_system.cropping_mode=rotation\n");
    auto project = std::make_shared<std::string>();
    auto choice = std::make_shared<Scenario_choice>();
    add_project(*command, *project);
    add_choice(*command, *choice);
    command->callback([&session, project, choice] { list(session, *project, *choice); });
}
