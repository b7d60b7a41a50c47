#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "operations/scenario_generator.h"
#include "operations/scenario_table.h"
#include "platform/files.h"

#include <memory>

namespace {

void tell_failures(Session& session, const Operation_outcome& outcome) {
    if (outcome.ok())
        return;
    session.console.say(screen_text(describe_failures(outcome)));
    session.note(exit_unreachable);
}

struct Options {
    std::string project;
    bool only_counts = false;
    bool no_backup = false;
    std::string table;
};

// Shows what the check of a table has found, and ends the command where nothing can be written.
void tell_check(Session& session, const Table_check& check) {
    if (!check.refused.empty())
        throw Command_failure(exit_unreachable, screen_text(check.refused));
    Report report(session, {{"row"}, {"column"}, {"weight"}, {"reason"}});
    for (const auto& [faults, weight] :
         {std::pair(&check.faults, "error"), std::pair(&check.doubts, "warning")})
        for (const Table_fault& fault : *faults)
            report.add({fault.row, screen_text(fault.column), weight, screen_text(fault.reason)});
    report.finish();
    if (!check.may_write())
        throw Command_failure(exit_found, check.count == 0 && check.fault_count == 0
                                              ? "The table has no scenario."
                                              : "Nothing was written: the table has " +
                                                    std::to_string(check.fault_count) +
                                                    (check.fault_count == 1 ? " fault." : " faults."));
}

void generate_from_table(Session& session, const Options& options) {
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
    Json told{{options.only_counts ? "count" : "generated", check.count},
              {"replaced", check.existing.size()},
              {"folder", screen_text(folder)}};
    if (!check.refused.empty() || !check.may_write() || (options.only_counts && !session.as_json))
        tell_check(session, check);
    if (!options.only_counts) {
        std::vector<std::string> replaced;
        for (const std::string& name : check.existing)
            replaced.push_back(project.scenario_file(name, Scenario_folder::generated));
        std::optional<Change_backups> backups = backups_for(project, replaced, options.no_backup);
        const Operation_outcome outcome =
            table.write(backups ? &*backups : nullptr, shown_progress(session, "generating"));
        session.console.end_progress();
        must_be_begun(outcome);
        tell_failures(session, outcome);
        told["generated"] = outcome.done;
    }
    print_object(session, told);
}

void generate(Session& session, const Options& options) {
    Opened_project project(session, options.project);
    if (project.workspace().is_template_project())
        throw Command_failure(exit_misused, "A project of templates has no combinations.");
    const Generation_plan plan = plan_generation(project.record(), project.directory());
    if (!plan.refused.empty())
        throw Command_failure(exit_unreachable, screen_text(plan.refused));
    if (options.only_counts) {
        print_object(session, {{"count", plan.count}, {"replaced", plan.replaced.size()}});
        return;
    }
    project.directory().create();
    std::optional<Change_backups> backups = backups_for(project, plan.replaced, options.no_backup);
    std::ostream nowhere(nullptr);
    std::size_t heard = 0;
    const Operation_outcome outcome =
        generate_scenarios(project.record(), project.directory(), backups ? &*backups : nullptr,
                           session.as_json ? nowhere : session.console.out(), [&](const std::string&) {
                               session.console.show_progress("generating", ++heard, plan.count);
                               return true;
                           });
    session.console.end_progress();
    must_be_begun(outcome);
    tell_failures(session, outcome);
    print_object(session, {{"generated", outcome.done},
                           {"replaced", plan.replaced.size()},
                           {"folder", screen_text(project.folder_of(Scenario_folder::generated))}});
}

} // namespace

void add_generate_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "generate",
        "Generate the scenarios of all combinations of the project's parameter files, or of a table's rows",
        "  tvs_project generate study.tvp --count\n"
        "  tvs_project generate study.tvp\n"
        "  tvs_project generate study.tvp --table design.csv\n");
    auto options = std::make_shared<Options>();
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
