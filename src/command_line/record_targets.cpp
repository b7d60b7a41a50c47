#include "command_line/record_targets.h"

#include "operations/record_settings.h"
#include "platform/files.h"

Record_targets find_targets(Session& session, const std::string& argument, Scenario_choice& choice) {
    Record_targets found;
    if (choice.is_empty() && !choice.generated) {
        TESK::File_name file = session.file_of_argument(argument);
        if (!platform::is_file(file)) {
            const bool may_be_project = platform::is_folder(file) || file.has_ext("tvp") ||
                                        file.get_ext().empty() || platform::is_file(project_file_of(file));
            if (!may_be_project)
                throw Command_failure(exit_unreachable, "There is no record '" + argument + "'.");
            file = find_project_file(session, argument);
        }
        enter_folder_of_names(file);
        found.targets.push_back({file, screen_text(file.get_name(true))});
        found.is_one_file = true;
        return found;
    }
    resolve_files(session, choice);
    found.project = std::make_unique<Opened_project>(session, argument);
    for (const std::string& scenario : choose_scenarios(*found.project, choice, true))
        found.targets.push_back(
            {found.project->scenario_file(scenario, choice.folder()), screen_text(scenario_name(scenario))});
    return found;
}

bool was_read(Session& session, const Record_settings& settings) {
    if (settings.failure().empty())
        return true;
    session.console.say(screen_text(settings.failure()));
    session.note(exit_unreachable);
    return false;
}
