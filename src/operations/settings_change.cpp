#include "operations/settings_change.h"

#include "operations/project_check.h"
#include "platform/interrupted_save.h"

#include <algorithm>

namespace {

// What would make a run fail in a file with that text.
std::vector<Finding> errors_in(Project_check& check, const TESK::File_name& file, const std::string& text) {
    std::vector<Finding> findings = check.check_text(file, text);
    std::erase_if(findings, [](const Finding& one) { return one.weight != Finding_weight::error; });
    return findings;
}

// Says of the settings, beside them or else beside the last one, what is found only since they were set.
void tell_new_errors(Settings_result& result, const std::vector<Wanted_setting>& wanted,
                     const std::vector<Finding>& before, const std::vector<Finding>& now) {
    for (const Finding& one : now) {
        const auto is_same = [&](const Finding& other) {
            return other.section == one.section && other.key == one.key && other.message == one.message;
        };
        if (std::any_of(before.begin(), before.end(), is_same))
            continue;
        const std::string name = one.section + '.' + one.key;
        const auto place = std::find_if(wanted.begin(), wanted.end(), [&](const Wanted_setting& setting) {
            return (setting.section ? *setting.section + '.' : "") + setting.key == name;
        });
        const std::size_t at =
            place == wanted.end() ? wanted.size() - 1 : static_cast<std::size_t>(place - wanted.begin());
        std::string& reason = result.settings[at].change.reason;
        reason += (reason.empty() ? "" : " ") + one.message;
    }
}

// Sets all that is wanted of the record in memory, and goes on after a refusal, to tell of all.
Settings_result set_all(Record_settings& settings, const std::vector<Wanted_setting>& wanted) {
    using State = Settings_result::State;
    if (!settings.failure().empty())
        return {State::unreadable, settings.failure()};
    Settings_result result;
    for (const Wanted_setting& one : wanted) {
        const Setting* const setting =
            one.section ? settings.find(*one.section, one.key) : settings.find(one.key);
        const std::string before = setting == nullptr ? "" : setting->value();
        result.settings.push_back({before, one.section ? settings.set(*one.section, one.key, one.value)
                                                       : settings.set(one.key, one.value)});
        const Setting_change& change = result.settings.back().change;
        if (!change.done && result.state != State::refused) {
            result.state = State::refused;
            result.reason = change.reason;
        }
    }
    if (result.state == State::unchanged && settings.is_changed())
        result.state = State::changed;
    return result;
}

Settings_result change_file(const Settings_change& change) {
    Record_settings settings(TESK::File_name(change.file.c_str()));
    Settings_result result = set_all(settings, change.settings);
    if (result.state != Settings_result::State::changed)
        return result;
    if (const platform::Write_result written = settings.save(); !written.ok()) {
        result.state = Settings_result::State::not_written;
        result.reason = written.reason;
    }
    return result;
}

} // namespace

Settings_result try_settings(const Settings_change& change, Project_check* check) {
    Record_settings settings(TESK::File_name(change.file.c_str()));
    const std::string text = settings.text();
    Settings_result result = set_all(settings, change.settings);
    if (check == nullptr || result.state != Settings_result::State::changed)
        return result;
    const std::vector<Finding> now = errors_in(*check, settings.file(), settings.text());
    if (!now.empty())
        tell_new_errors(result, change.settings, errors_in(*check, settings.file(), text), now);
    return result;
}

Operation_outcome change_settings(const std::vector<Settings_change>& changes, Change_backups* backups,
                                  const Operation_progress& progress, std::vector<Settings_result>* results) {
    Operation_outcome outcome;
    if (backups != nullptr) {
        std::vector<std::string> files;
        files.reserve(changes.size());
        for (const Settings_change& change : changes)
            files.push_back(change.file);
        outcome = backups->put_copies_aside(
            "settings", files, [&](std::size_t, std::size_t total) { return goes_on(progress, 0, total); });
        if (!outcome.ok() || outcome.stopped)
            return outcome;
        outcome.done = 0;
    }
    const platform::Interruptions_view view;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        outcome.stopped = !goes_on(progress, i, changes.size());
        if (outcome.stopped)
            return outcome;
        Settings_result result = change_file(changes[i]);
        if (result.reason.empty())
            ++outcome.done;
        else
            outcome.not_done.push_back({changes[i].file, result.reason});
        if (results != nullptr)
            results->push_back(std::move(result));
    }
    return outcome;
}
