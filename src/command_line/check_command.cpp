#include "command_line/commands.h"
#include "command_line/report.h"
#include "command_line/scenario_choice.h"
#include "operations/project_check.h"

#include <memory>

namespace {

class Findings_report {
public:
    explicit Findings_report(Session& session)
        : session_(session), report_(session, {{"scenario"}, {"weight"}, {"section"}, {"key"}, {"message"}}) {
    }

    // Without a scenario, of the project itself. False once nobody reads any more.
    bool add(const std::string& scenario, const std::vector<Finding>& findings) {
        for (const Finding& finding : findings) {
            ++count_;
            session_.note(finding.section.empty() ? exit_unreachable : exit_found);
            if (!report_.add({scenario.empty() ? Json() : Json(screen_text(scenario_name(scenario))),
                              finding.weight == Finding_weight::error ? "error" : "warning",
                              screen_text(finding.section), screen_text(finding.key),
                              screen_text(finding.message)}))
                return false;
        }
        return true;
    }
    std::size_t finish() {
        report_.finish();
        return count_;
    }

private:
    Session& session_;
    Report report_;
    std::size_t count_ = 0;
};

void check(Session& session, const std::string& argument, Scenario_choice& choice) {
    resolve_files(session, choice);
    Opened_project project(session, argument, If_interrupted::told);
    const std::vector<std::string> scenarios = choose_scenarios(project, choice, false);
    Findings_report report(session);
    Project_check judge;
    bool has_reader = !choice.is_empty() || report.add("", judge.check_project(project.file()));
    std::size_t checked = 0;
    for (const std::string& scenario : scenarios) {
        session.console.show_progress("checking", ++checked, scenarios.size());
        has_reader =
            has_reader &&
            report.add(scenario, judge.check_scenario(project.scenario_file(scenario, choice.folder())));
        if (!has_reader)
            break;
    }
    session.console.end_progress();
    const std::size_t found = report.finish();
    if (session.console.out_is_terminal() && !session.as_json)
        session.console.say("Scenarios checked: " + std::to_string(scenarios.size()) +
                            ", findings: " + std::to_string(found));
}

} // namespace

void add_check_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "check",
                    "Find what would make a run fail or mislead; exit code 1 when anything is found",
                    "  tvs_project check study.tvp\n"
                    "  tvs_project check study.tvp 'plot*' --generated && tvs_project run study.tvp 'plot*' "
                    "--generated\n");
    auto project = std::make_shared<std::string>();
    auto choice = std::make_shared<Scenario_choice>();
    add_project(*command, *project);
    add_choice(*command, *choice);
    command->callback([&session, project, choice] { check(session, *project, *choice); });
}
