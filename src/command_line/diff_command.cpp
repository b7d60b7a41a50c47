#include "command_line/commands.h"
#include "command_line/opened_project.h"
#include "command_line/record_targets.h"
#include "command_line/report.h"
#include "operations/record_difference.h"

#include <memory>

namespace {

struct Diff_options {
    std::string first;
    std::string second;
    std::string common;
};

const char* word_for(Changed_by who) {
    switch (who) {
    case Changed_by::first: return "first";
    case Changed_by::second: return "second";
    case Changed_by::both_alike: return "both alike";
    case Changed_by::both_apart: return "both apart";
    }
    return "";
}

void read(Session& session, const std::string& argument, Settings_grid& records) {
    const TESK::File_name file = session.file_of_argument(argument);
    enter_folder_of_names(file);
    if (const std::string failure = records.add(file); !failure.empty())
        throw Command_failure(exit_unreachable, screen_text(failure));
}

Json text_or_null(const std::optional<std::string>& value) {
    return value ? Json(screen_text(*value)) : Json();
}

void diff(Session& session, const Diff_options& options) {
    Settings_grid records;
    read(session, options.first, records);
    read(session, options.second, records);
    const bool is_three_way = !options.common.empty();
    if (is_three_way)
        read(session, options.common, records);
    Report report(session, {{"setting"},
                            {"first"},
                            {"second"},
                            {"common", is_three_way},
                            {"changed_by", is_three_way},
                            {"known", false}});
    for (const Record_difference& one : compare_records(records)) {
        session.note(exit_found);
        if (!report.add({screen_text(one.section + '.' + one.key), text_or_null(one.first),
                         text_or_null(one.second), text_or_null(one.common),
                         is_three_way ? Json(word_for(one.changed_by)) : Json(), one.is_known}))
            break;
    }
    report.finish();
}

} // namespace

void add_diff_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(
        app, session, "diff", "Show the settings in which two records differ; exit code 1 when there are any",
        "  tvs_project diff Scenarios/base.tvn Scenarios/rainfed.tvn\n"
        "  tvs_project diff 'plot 1.tvn' 'plot 2.tvn' template.tvn\n");
    auto options = std::make_shared<Diff_options>();
    command->add_option("A", options->first, "A record file")->required()->type_name("");
    command->add_option("B", options->second, "Another one")->required()->type_name("");
    command->add_option("C", options->common, "What both were made from: shows who changed what")
        ->type_name("");
    command->callback([&session, options] { diff(session, *options); });
}
