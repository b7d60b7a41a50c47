#include "operations/settings_change.h"

#include "operations/record_settings.h"

namespace {

// Sets all that is wanted; the verdict is that on the last one, or on the first that is refused.
Setting_verdict set_all(Record_settings& settings, const std::vector<Wanted_setting>& wanted) {
    Setting_verdict verdict{settings.failure().empty(), settings.failure()};
    for (const Wanted_setting& one : wanted) {
        if (!verdict.taken)
            break;
        const Setting_change change = settings.set(one.section, one.key, one.value);
        verdict = {change.done, change.reason};
    }
    return verdict;
}

} // namespace

Setting_verdict try_settings(const Settings_change& change) {
    Record_settings settings(TESK::File_name(change.file.c_str()));
    return set_all(settings, change.settings);
}

Operation_outcome change_settings(const std::vector<Settings_change>& changes, Change_backups& backups,
                                  const Operation_progress& progress) {
    std::vector<std::string> files;
    files.reserve(changes.size());
    for (const Settings_change& change : changes)
        files.push_back(change.file);
    Operation_outcome outcome = backups.put_copies_aside(
        "settings", files, [&](std::size_t, std::size_t total) { return goes_on(progress, 0, total); });
    if (!outcome.ok() || outcome.stopped)
        return outcome;
    outcome.done = 0;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        outcome.stopped = !goes_on(progress, i, changes.size());
        if (outcome.stopped)
            return outcome;
        Record_settings settings(TESK::File_name(changes[i].file.c_str()));
        if (const Setting_verdict verdict = set_all(settings, changes[i].settings); !verdict.taken) {
            outcome.not_done.push_back({changes[i].file, verdict.reason});
            continue;
        }
        if (const platform::Write_result result = settings.save(); result.ok())
            ++outcome.done;
        else
            outcome.not_done.push_back({changes[i].file, result.reason});
    }
    return outcome;
}
