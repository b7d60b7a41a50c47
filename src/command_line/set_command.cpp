#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/record_targets.h"
#include "command_line/report.h"
#include "operations/record_settings.h"
#include "platform/host_names.h"

#include <memory>

namespace {

struct Options {
    std::string target;
    std::vector<std::string> assignments;
    bool only_tries = false;
    bool no_backup = false;
    Scenario_choice choice;
};

struct Assignment {
    std::string name;
    std::string value;
};

// The assignment in the code page. Its setting must be one of the record's: a key may have an equals sign no
// more than in a file.
Assignment parse(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || text.find('.') > equals)
        throw Command_failure(exit_misused,
                              "'" + text + "' is no assignment such as 'submodels.salinity=true'.");
    if (screen_text(record_text(text)) != text)
        throw Command_failure(exit_misused, "'" + text + "' has a character that records cannot hold.");
    return {record_text(text.substr(0, equals)), record_text(text.substr(equals + 1))};
}

class Setter {
public:
    Setter(Session& session, const std::vector<Assignment>& assignments, bool only_tries, bool is_one_file)
        : session_(session), assignments_(assignments), only_tries_(only_tries),
          report_(session,
                  {{"scenario", !is_one_file}, {"setting"}, {"old"}, {"new"}, {"outcome"}, {"reason"}}) {}

    // All of the assignments to a file are done, or none.
    void set(const TESK::File_name& file, const std::string& name) {
        ++count_;
        Record_settings settings(file);
        if (!was_read(session_, settings)) {
            failed_.push_back(name);
            return;
        }
        std::vector<std::vector<Json>> rows;
        bool is_refused = false;
        for (const Assignment& assignment : assignments_) {
            const Setting* setting = settings.find(assignment.name);
            const std::string old = setting == nullptr ? "" : setting->value();
            std::string value = assignment.value;
            if (setting != nullptr && setting->kind() == Setting_kind::file && value.starts_with('/'))
                value = platform::name_from_host_path(value);
            const Setting_change change = settings.set(assignment.name, value);
            is_refused = is_refused || !change.done;
            rows.push_back({name, screen_text(assignment.name), screen_text(old), screen_text(value),
                            !change.done     ? "refused"
                            : change.changed ? "done"
                                             : "unchanged",
                            change.reason.empty() ? Json() : Json(screen_text(change.reason))});
        }
        const std::string reason = is_refused || only_tries_ ? std::string() : save(settings);
        if (is_refused)
            session_.note(exit_found);
        if (is_refused || !reason.empty())
            failed_.push_back(name);
        for (std::vector<Json>& row : rows) {
            if (is_refused && row[4] == "done")
                row[4] = "left";
            if (!reason.empty() && row[4] == "done") {
                row[4] = "failed";
                row[5] = reason;
            }
            report_.add(row);
        }
    }
    void finish() {
        report_.finish();
        say_failed(session_, failed_, count_);
    }

private:
    // Gives why it could not be written; nothing when it was.
    std::string save(Record_settings& settings) {
        const platform::Write_result result = settings.save(platform::Durability::quick);
        if (!result.ok())
            session_.note(exit_unreachable);
        return screen_text(result.reason);
    }

    Session& session_;
    const std::vector<Assignment>& assignments_;
    bool only_tries_;
    Report report_;
    std::vector<std::string> failed_;
    std::size_t count_ = 0;
};

// Lets the change to scenarios of a project be undone.
void put_aside(Opened_project& project, const Record_targets& targets, bool no_backup) {
    std::vector<std::string> files;
    for (const auto& target : targets.targets)
        files.push_back(target.file);
    if (std::optional<Change_backups> backups = backups_for(project, files, no_backup))
        must_be_begun(backups->put_copies_aside("settings", files, {}));
}

void set(Session& session, Options& options) {
    std::vector<Assignment> assignments;
    for (const std::string& text : options.assignments)
        assignments.push_back(parse(text));
    const Record_targets targets = find_targets(session, options.target, options.choice);
    if (targets.project != nullptr && !options.only_tries)
        put_aside(*targets.project, targets, options.no_backup);
    Setter setter(session, assignments, options.only_tries, targets.is_one_file);
    std::size_t done = 0;
    for (const auto& [file, name] : targets.targets) {
        session.console.show_progress("setting", ++done, targets.targets.size());
        setter.set(file, name);
    }
    session.console.end_progress();
    setter.finish();
}

} // namespace

void add_set_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "set", "Change settings of a record, or of many scenarios, and nothing else in them",
        "  tvs_project set Scenarios/base.tvn simulation.ending_date=2001-12-31\n"
        "  tvs_project set study.tvp submodels.salinity=true salt.1=0.4 --scenarios 'plot*'\n"
        "  tvs_project set study.tvp CO2.enable=true --all --dry-run\n");
    auto options = std::make_shared<Options>();
    command->add_option("FILE", options->target, "A record file, or the project of the scenarios")
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
