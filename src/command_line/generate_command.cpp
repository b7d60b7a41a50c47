#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"
#include "foundation/code_page_1252.h"
#include "operations/scenario_generator.h"
#include "operations/scenario_table.h"
#include "platform/files.h"

#include <algorithm>
#include <memory>
#include <unordered_set>

namespace {

void tell_failures(Session& session, const Operation_outcome& outcome) {
    if (outcome.ok())
        return;
    session.console.say(screen_text(describe_failures(outcome)));
    session.note(exit_unreachable);
}

struct Generate_options {
    std::string project;
    bool only_counts = false;
    bool no_backup = false;
    std::string table;
};

// How many of the scenarios that were there are written anew: those that are not among the failures.
std::size_t count_replaced(const std::vector<std::string>& planned, const Operation_outcome& outcome) {
    const auto folded_name = [](const std::string& file) {
        std::string name = TESK::File_name(file.c_str()).get_name(true);
        std::transform(name.begin(), name.end(), name.begin(), TESK::fold_case);
        return name;
    };
    std::unordered_set<std::string> failed;
    for (const Not_done& one : outcome.not_done)
        failed.insert(folded_name(one.file));
    const auto replaced = std::count_if(planned.begin(), planned.end(), [&](const std::string& file) {
        return failed.count(folded_name(file)) == 0;
    });
    return std::min(static_cast<std::size_t>(replaced), outcome.done);
}

Json rows_of(const std::vector<Table_fault>& faults) {
    Json rows = Json::array();
    for (const Table_fault& fault : faults)
        rows.push_back({{"row", fault.row},
                        {"column", screen_text(fault.column)},
                        {"reason", screen_text(fault.reason)}});
    return rows;
}

// What was generated, or would be.
struct Told {
    std::uint64_t count = 0;
    std::size_t replaced = 0;
    std::string folder;
    Table_check check{}; // empty without a table
    Operation_outcome outcome{};
};

// Programs get the same keys whatever came of it.
void tell(Session& session, const Generate_options& options, const Told& told) {
    if (!session.as_json) {
        Json shown{{options.only_counts ? "count" : "generated",
                    options.only_counts ? told.count : told.outcome.done},
                   {"replaced", told.replaced}};
        if (!options.only_counts || !options.table.empty())
            shown["folder"] = screen_text(told.folder);
        print_object(session, shown);
        return;
    }
    Json failed = Json::array();
    for (const Not_done& one : told.outcome.not_done)
        failed.push_back(
            {{"scenario", screen_text(scenario_name(TESK::File_name(one.file.c_str()).get_name(true)))},
             {"reason", screen_text(one.reason)}});
    print_object(session, {{"generated", told.outcome.done},
                           {"replaced", told.replaced},
                           {"folder", screen_text(told.folder)},
                           {"count", told.count},
                           {"fault_count", told.check.fault_count},
                           {"faults", rows_of(told.check.faults)},
                           {"doubts", rows_of(told.check.doubts)},
                           {"failed", failed}});
}

// Tells people what the check of a table has found: faults as a table, doubts by sentences.
void show_check(Session& session, const Table_check& check) {
    for (const Table_fault& doubt : check.doubts)
        session.console.say("Row " + std::to_string(doubt.row) + ", column " + screen_text(doubt.column) +
                            ": " + screen_text(doubt.reason));
    Report report(session, {{"row"}, {"column"}, {"weight"}, {"reason"}});
    for (const Table_fault& fault : check.faults)
        report.add({fault.row, screen_text(fault.column), "error", screen_text(fault.reason)});
    report.finish();
}

// Writes the scenarios of the table, and notes what came of it.
void write_table(Session& session, Opened_project& project, const Generate_options& options,
                 Scenario_table& table, Told& told) {
    std::vector<std::string> replaced;
    for (const std::string& name : told.check.existing)
        replaced.push_back(project.scenario_file(name, Scenario_folder::generated));
    must_be_idle(project.states(), replaced);
    need_folder(project.folder_of(Scenario_folder::generated));
    std::optional<Change_backups> backups = backups_for(project, replaced, options.no_backup);
    told.outcome = table.write(backups ? &*backups : nullptr, shown_progress(session, "generating"));
    session.console.end_progress();
    must_be_begun(told.outcome);
    tell_failures(session, told.outcome);
    say_stopped(session, told.outcome, told.count);
    told.replaced = count_replaced(replaced, told.outcome);
}

void generate_from_table(Session& session, const Generate_options& options) {
    const TESK::File_name file = session.file_of_argument(options.table);
    Opened_project project(session, options.project);
    const platform::Read_result text = platform::read_file(file);
    if (!text.ok())
        throw Command_failure(exit_unreachable, "The table '" + options.table + "' cannot be read.");
    TESK::File_name template_file(project.record().template_scenario);
    template_file.qualify();
    const TESK::Smart_directory_name& folder = project.folder_of(Scenario_folder::generated);
    Scenario_table table(session.table_reader.read(text.contents), template_file, folder);
    const Table_check& check = table.check();
    if (!check.refused.empty())
        throw Command_failure(exit_unreachable, screen_text(check.refused));
    Told told{check.count, options.only_counts ? check.existing.size() : 0, folder, check};
    if (!session.as_json)
        show_check(session, check);
    if (!check.may_write()) {
        session.console.say("Nothing was written: the table has " + std::to_string(check.fault_count) +
                            (check.fault_count == 1 ? " fault." : " faults."));
        session.note(exit_found);
    } else if (!options.only_counts) {
        write_table(session, project, options, table, told);
    }
    if (check.may_write() || session.as_json)
        tell(session, options, told);
}

void generate(Session& session, const Generate_options& options) {
    Opened_project project(session, options.project);
    if (project.workspace().is_template_project())
        throw Command_failure(exit_misused, "A project of templates has no combinations.");
    const Generation_plan plan = plan_generation(project.record(), project.directory());
    if (!plan.refused.empty())
        throw Command_failure(exit_unreachable, screen_text(plan.refused));
    if (plan.unread_events > 0)
        session.console.say(
            "Events of the template that no scenario gets, since they are in the old spelling or "
            "more than are counted: " +
            std::to_string(plan.unread_events));
    Told told{plan.count, plan.replaced.size(), project.folder_of(Scenario_folder::generated)};
    if (options.only_counts) {
        tell(session, options, told);
        return;
    }
    must_be_idle(project.states(), plan.replaced);
    need_folder(project.folder_of(Scenario_folder::generated));
    std::optional<Change_backups> backups = backups_for(project, plan.replaced, options.no_backup);
    std::ostream nowhere(nullptr);
    const Operation_progress progress = shown_progress(session, "generating");
    std::size_t heard = 0;
    told.outcome = generate_scenarios(project.record(), project.directory(), backups ? &*backups : nullptr,
                                      session.as_json ? nowhere : session.console.out(),
                                      [&](const std::string&) { return progress(++heard, plan.count); });
    session.console.end_progress();
    must_be_begun(told.outcome);
    tell_failures(session, told.outcome);
    say_stopped(session, told.outcome, told.count);
    told.replaced = count_replaced(plan.replaced, told.outcome);
    tell(session, options, told);
}

} // namespace

void add_generate_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "generate",
        "Generate the scenarios of all combinations of the project's parameter files, or of a table's rows",
        "  tvs_project generate study.tvp --count\n"
        "  tvs_project generate study.tvp\n"
        "  tvs_project generate study.tvp --table design.csv\n");
    auto options = std::make_shared<Generate_options>();
    add_project(*command, options->project);
    command->add_flag("--count", options->only_counts,
                      "Only tell how many there would be, and how many are replaced");
    add_no_backup(*command, options->no_backup);
    command
        ->add_option("--table", options->table,
                     "The scenarios of a table's rows (*.csv) instead of combinations")
        ->type_name("FILE");
    command->callback([&session, options] {
        if (options->table.empty())
            generate(session, *options);
        else
            generate_from_table(session, *options);
    });
}
