#include "command_line/commands.h"
#include "command_line/opened_project.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"
#include "operations/record_conversion.h"

#include <memory>

namespace {

void convert(Session& session, const std::vector<std::string>& arguments) {
    Outcome_report report(session);
    for (const std::string& argument : arguments) {
        const TESK::File_name file = session.file_of_argument(argument);
        enter_folder_of_names(file);
        try {
            must_be_idle(file);
        } catch (const Command_failure& failure) {
            report.add(argument, "failed", failure.what(), failure.code);
            continue;
        }
        const Conversion conversion = convert_record(file);
        switch (conversion.outcome) {
        case Conversion_outcome::converted:
            report.add(argument, "done", "The old file is kept as " + screen_text(conversion.backup) + ".");
            break;
        case Conversion_outcome::is_present:
            report.add(argument, "unchanged", "It is in the present spelling already.");
            break;
        case Conversion_outcome::failed:
            report.add(argument, "failed", screen_text(conversion.reason), exit_unreachable);
            break;
        }
    }
    report.finish();
}

} // namespace

void add_convert_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "convert",
                    "Bring old records to the present spelling; the old ones are kept beside them",
                    "  tvs_project convert Scenarios/old.tvn\n");
    auto files = std::make_shared<std::vector<std::string>>();
    command->add_option("FILE", *files, "Record files")->required()->type_name("");
    command->callback([&session, files] { convert(session, *files); });
}
