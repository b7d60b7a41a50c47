#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/scenario_choice.h"
#include "operations/scenario_reset.h"

#include <memory>

namespace {

struct Reset_options {
    std::string project;
    std::string from;
    std::vector<std::string> boxes;
    bool no_backup = false;
    Scenario_choice choice;
};

// A box by what its control is called: "reset_soil_N_checkbox" is "soil_N". Those that copy nothing are none.
std::string box_name(const Reset_box& box) {
    const std::string control = box.control;
    const std::size_t begin = std::string("reset_").size();
    return box.sections[0] == nullptr ? "" : control.substr(begin, control.rfind('_') - begin);
}

std::vector<std::string> box_names() {
    std::vector<std::string> names;
    for (const Reset_box& box : reset_boxes)
        if (const std::string name = box_name(box); !name.empty())
            names.push_back(name);
    return names;
}

Ticked_reset_boxes ticked_boxes(const std::vector<std::string>& names) {
    Ticked_reset_boxes ticked;
    for (std::size_t box = 0; box < reset_boxes.size(); ++box)
        ticked[box] = std::find(names.begin(), names.end(), box_name(reset_boxes[box])) != names.end();
    return ticked;
}

void reset(Session& session, Reset_options& options) {
    resolve_files(session, options.choice);
    Scenario_choice source_choice;
    source_choice.patterns = {options.from};
    resolve_files(session, source_choice);
    Opened_project project(session, options.project);
    const std::string from = choose_one(project, source_choice);
    const TESK::File_name source = project.scenario_file(from, Scenario_folder::created);
    const std::vector<std::string> targets = choose_scenarios(project, options.choice, true);
    std::vector<std::string> files;
    for (const std::string& target : targets)
        if (const TESK::File_name file = project.scenario_file(target, options.choice.folder());
            file != source)
            files.push_back(file);
    must_be_idle(project.states(), files);
    std::optional<Change_backups> backups = backups_for(project, files, options.no_backup);
    const Operation_outcome outcome =
        reset_scenarios(source, files, ticked_boxes(options.boxes), backups ? &*backups : nullptr,
                        shown_progress(session, "resetting"));
    must_be_begun(outcome);
    Outcome_report report(session);
    if (files.size() < targets.size())
        report.add(screen_text(scenario_name(from)), "skipped", "It is the scenario that is copied from.");
    report.add_all(files, outcome);
    report.finish();
}

} // namespace

void add_reset_command(CLI::App& app, Session& session) {
    CLI::App* command =
        add_command(app, session, "reset", "Copy groups of settings from one scenario to others",
                    "  tvs_project reset study.tvp --from base --boxes soil_profile,soil_N --all\n"
                    "  tvs_project reset study.tvp --from base --boxes CO2 'plot*' --generated\n");
    auto options = std::make_shared<Reset_options>();
    add_project(*command, options->project);
    command->add_option("--from", options->from, "The scenario to copy from")
        ->required()
        ->type_name("SCENARIO");
    command->add_option("--boxes", options->boxes, "What to copy, with commas between")
        ->required()
        ->delimiter(',')
        ->allow_extra_args(false)
        ->type_name("")
        ->check(CLI::IsMember(box_names()));
    add_choice(*command, options->choice);
    add_no_backup(*command, options->no_backup);
    command->callback([&session, options] { reset(session, *options); });
}
