#include "command_line/commands.h"
#include "command_line/outcome_report.h"
#include "command_line/record_targets.h"
#include "command_line/report.h"
#include "operations/record_settings.h"
#include "platform/listing.h"

#include <memory>

namespace {

struct Get_options {
    std::string target;
    std::vector<std::string> keys;
    Scenario_choice choice;
};

// The value in the type that JSON has for it.
Json typed_value(const Setting& setting) {
    const std::string value = setting.value();
    switch (setting.kind()) {
    case Setting_kind::flag: return value == "true";
    case Setting_kind::number:
        return Json::parse(value, nullptr, false).is_discarded() ? Json(value) : Json::parse(value);
    case Setting_kind::integer: return setting.radix() == 10 ? Json(std::stoll(value)) : Json(value);
    case Setting_kind::date: return value.empty() ? Json() : Json(value);
    default: return screen_text(value);
    }
}

Json choices_of(const Setting& setting) {
    Json labels = Json::array();
    for (const auto& [label, description] : setting.choices())
        labels.push_back(screen_text(label));
    return labels.empty() ? Json() : labels;
}

Json range_of(const Setting& setting) {
    const TESK::Valid_number* guard = setting.guard();
    if (guard == nullptr)
        return nullptr;
    return {{"warning", {guard->warning_low, guard->warning_high}},
            {"error", {guard->error_low, guard->error_high}}};
}

bool is_wanted(const Setting& setting, const std::vector<std::string>& keys) {
    const std::string name = setting.name();
    return keys.empty() || std::any_of(keys.begin(), keys.end(), [&](const std::string& key) {
               return name == key ||
                      (key.find_first_of("*?") != std::string::npos && platform::matches_mask(name, key));
           });
}

// The row of what cannot be told. Only programs get it; people are told by a sentence.
void add_failure(Session& session, Report& report, const std::string& name, const Json& setting,
                 const std::string& reason) {
    if (session.as_json)
        report.add({name, Json(), Json(), setting, Json(), Json(), Json(), Json(), Json(), Json(), Json(),
                    Json(), reason});
}

// Tells what was asked for and is not there. False when there is anything.
bool tell_missing(Session& session, Report& report, const std::string& name, const Record_settings& settings,
                  const std::vector<std::string>& keys) {
    bool has_all = true;
    for (const std::string& key : keys) {
        if (std::any_of(settings.all().begin(), settings.all().end(),
                        [&](const Setting& setting) { return is_wanted(setting, {key}); }))
            continue;
        const std::string sentence =
            "There is no setting '" + screen_text(key) + "' in " + screen_text(settings.file()) + ".";
        session.console.say(sentence);
        add_failure(session, report, name, screen_text(key), sentence);
        session.note(exit_found);
        has_all = false;
    }
    return has_all;
}

void get(Session& session, Get_options& options) {
    std::vector<std::string> keys;
    for (const std::string& key : options.keys)
        keys.push_back(record_text(key));
    const Record_targets targets = find_targets(session, options.target, options.choice);
    const bool is_one = targets.is_one_file;
    // One value of one file is all there is to print.
    if (is_one && keys.size() == 1 && !session.as_json) {
        const Record_settings settings(targets.targets.front().file);
        if (!was_read(session, settings))
            return;
        if (const Setting* setting = settings.find(keys.front())) {
            session.console.out() << screen_text(setting->value()) << '\n';
            return;
        }
    }
    Report report(session, {{"scenario", !is_one},
                            {"section", false},
                            {"key", false},
                            {"setting"},
                            {"value"},
                            {"unit"},
                            {"caption", is_one},
                            {"kind", false},
                            {"known", false},
                            {"in_file", false},
                            {"range", false},
                            {"choices", false},
                            {"reason", false}});
    std::vector<std::string> failed;
    for (const auto& [file, name] : targets.targets) {
        const Record_settings settings(file);
        if (!was_read(session, settings)) {
            add_failure(session, report, name, Json(), screen_text(settings.failure()));
            failed.push_back(name);
            continue;
        }
        if (!tell_missing(session, report, name, settings, keys))
            failed.push_back(name);
        for (const Setting& setting : settings.all()) {
            if (!is_wanted(setting, keys))
                continue;
            if (!report.add({name, screen_text(setting.section()), screen_text(setting.key()),
                             screen_text(setting.name()),
                             session.as_json ? typed_value(setting) : Json(screen_text(setting.value())),
                             screen_text(setting.unit()), screen_text(setting.caption()),
                             setting_kind_name(setting.kind()), setting.is_known(), setting.is_in_file(),
                             range_of(setting), choices_of(setting), Json()}))
                return;
        }
    }
    report.finish();
    if (!is_one)
        say_failed(session, failed, targets.targets.size());
}

} // namespace

void add_get_command(CLI::App& app, Session& session) {
    CLI::App* command = add_command(app, session, "get", "Print settings of a record, or of many scenarios",
                                    "  tvs_project get Scenarios/base.tvn simulation.starting_date\n"
                                    "  tvs_project get study.tvp 'submodels.*' --scenarios 'plot*'\n"
                                    "  tvs_project get study.tvp --all parameter_filenames.soil --json\n");
    auto options = std::make_shared<Get_options>();
    command->add_option("FILE", options->target, "A record file, or the project of the scenarios")
        ->required()
        ->type_name("");
    command
        ->add_option("SETTING", options->keys,
                     "section.key, or a wildcard such as 'submodels.*'; all without")
        ->type_name("");
    add_choice(*command, options->choice, true);
    command->callback([&session, options] { get(session, *options); });
}
