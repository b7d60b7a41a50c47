#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/record_targets.h"
#include "command_line/report.h"
#include "operations/project_check.h"
#include "operations/settings_change.h"
#include "platform/current_directory.h"
#include "platform/files.h"

#include <memory>

namespace {

struct Set_options {
    std::string target;
    std::vector<std::string> assignments;
    bool only_tries = false;
    bool no_backup = false;
    Scenario_choice choice;
};

// The assignment in the code page. Its setting must be one of the record's: a key may have an equals sign no
// more than in a file.
Wanted_setting parse(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || text.find('.') > equals)
        throw Command_failure(exit_misused,
                              "'" + text + "' is no assignment such as 'submodels.salinity=true'.");
    if (screen_text(record_text(text)) != text)
        throw Command_failure(exit_misused, "'" + text + "' has a character that records cannot hold.");
    return {{}, record_text(text.substr(0, equals)), record_text(text.substr(equals + 1))};
}

using State = Settings_result::State;

// What became of a setting whose file had this result, or would become of it.
const char* word_for(State file, const Setting_change& change, bool only_tries) {
    if (!change.done)
        return "refused";
    if (!change.changed)
        return "unchanged";
    return file == State::refused       ? "left"
           : file == State::not_written ? "failed"
           : only_tries                 ? "would be done"
                                        : "done";
}

// Says what was done to each setting, and at the end which files failed.
void tell(Session& session, const Record_targets& targets, const std::vector<Wanted_setting>& wanted,
          const std::vector<Settings_result>& results, bool only_tries) {
    Report report(
        session,
        {{"scenario", !targets.is_one_file}, {"setting"}, {"old"}, {"new"}, {"outcome"}, {"reason"}});
    std::vector<std::string> failed;
    for (std::size_t i = 0; i < results.size(); ++i) {
        const Settings_result& result = results[i];
        const std::string& name = targets.targets[i].name;
        if (!result.reason.empty()) {
            failed.push_back(name);
            session.note(result.state == State::refused ? exit_found : exit_unreachable);
        }
        if (result.state == State::unreadable)
            for (const Wanted_setting& setting : wanted)
                report.add({name, screen_text(setting.key), Json(), screen_text(setting.value), "failed",
                            screen_text(result.reason)});
        for (std::size_t k = 0; k < result.settings.size(); ++k) {
            const auto& [before, change] = result.settings[k];
            const bool is_unwritten = result.state == State::not_written && change.changed;
            const std::string reason = is_unwritten ? result.reason : change.reason;
            report.add({name, screen_text(wanted[k].key), screen_text(before), screen_text(wanted[k].value),
                        word_for(result.state, change, only_tries),
                        reason.empty() ? Json() : Json(screen_text(reason))});
        }
    }
    report.finish();
    say_failed(session, failed, results.size());
}

// What was tried becomes what was done, which does not tell the doubts once more.
void take_result(Settings_result& tried, Settings_result done) {
    for (std::size_t i = 0; i < std::min(tried.settings.size(), done.settings.size()); ++i)
        if (std::string& reason = done.settings[i].change.reason; reason.empty())
            reason = tried.settings[i].change.reason;
    tried = std::move(done);
}

// For a file that is a scenario of a project whose folder is the current one.
std::optional<Change_backups> backups_of_scenario(const std::string& file) {
    const TESK::Directory_name folder(platform::current_directory().c_str());
    std::optional<Change_backups> backups;
    if (platform::is_file(folder + ".tvp") && Change_backups(folder).can_hold(file))
        backups.emplace(folder);
    return backups;
}

// All of the assignments to a file are done, or none. Only the files that will change are put aside, so that
// the change to scenarios of a project can be undone.
void set(Session& session, Set_options& options) {
    std::vector<Wanted_setting> wanted;
    for (const std::string& text : options.assignments)
        wanted.push_back(parse(text));
    const Record_targets targets = find_targets(session, options.target, options.choice);
    Project_check check;
    std::vector<Settings_result> results;
    std::vector<Settings_change> changes;
    std::vector<std::string> files;
    std::vector<std::size_t> places; // of the changes among the results
    const Operation_progress checking = shown_progress(session, "checking");
    for (const auto& target : targets.targets) {
        if (!checking(results.size() + 1, targets.targets.size()))
            throw Command_failure(exit_found, "Stopped. Nothing was done.");
        results.push_back(try_settings({target.file, wanted}, &check));
        if (results.back().state != State::changed)
            continue;
        changes.push_back({target.file, wanted});
        files.push_back(target.file);
        places.push_back(results.size() - 1);
    }
    if (!options.only_tries && !changes.empty()) {
        if (targets.project == nullptr)
            must_be_idle(targets.targets.front().file);
        else
            must_be_idle(targets.project->states(), files);
        std::optional<Change_backups> backups;
        if (targets.project != nullptr)
            backups = backups_for(*targets.project, files, options.no_backup);
        else if (!options.no_backup)
            backups = backups_of_scenario(files.front());
        std::vector<Settings_result> done;
        const Operation_outcome outcome = change_settings(changes, backups ? &*backups : nullptr,
                                                          shown_progress(session, "setting"), &done);
        must_be_begun(outcome);
        for (std::size_t i = 0; i < places.size(); ++i)
            if (i < done.size())
                take_result(results[places[i]], std::move(done[i]));
            else
                results[places[i]].state = State::refused; // left alone
        say_stopped(session, outcome, changes.size());
    }
    session.console.end_progress();
    tell(session, targets, wanted, results, options.only_tries);
}

} // namespace

void add_set_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "set", "Change settings of a record, or of many scenarios, and nothing else in them",
        "  tvs_project set Scenarios/base.tvn simulation.ending_date=2001-12-31\n"
        "  tvs_project set study.tvp submodels.salinity=true salt.1=0.4 --scenarios 'plot*'\n"
        "  tvs_project set study.tvp CO2.enable=true --all --dry-run\n");
    auto options = std::make_shared<Set_options>();
    command
        ->add_option(
            "FILE", options->target,
            "A record file, or the project of the scenarios; only a change to scenarios can be undone")
        ->required()
        ->type_name("");
    command->add_option("SETTING=VALUE", options->assignments, "What to set, such as submodels.salinity=true")
        ->required()
        ->type_name("");
    command->add_flag("--dry-run", options->only_tries, "Only tell what would be done");
    add_choice(*command, options->choice, true);
    add_no_backup(*command, options->no_backup);
    command->callback([&session, options] { set(session, *options); });
}
