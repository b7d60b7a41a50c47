#include "operations/scenario_reset.h"

#include "model/tilverra_scenario.h"
#include "platform/files.h"
#include "platform/interrupted_save.h"
#include "records/vv_file.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace {

bool is_copied(std::string_view section, const Ticked_reset_boxes& ticked) {
    for (std::size_t box = 0; box < reset_boxes.size(); ++box) {
        const auto& names = reset_boxes[box].sections;
        if (ticked[box] && std::any_of(names.begin(), names.end(),
                                       [&](const char* name) { return name != nullptr && section == name; }))
            return true;
    }
    return false;
}

// Moves the sections of the ticked boxes to the end of the target's list. Their entries go on pointing into
// the source.
void move_sections(Tilverra_scenario& source, Tilverra_scenario& target, const Ticked_reset_boxes& ticked) {
    while (!source.sections.is_empty()) {
        std::unique_ptr<TESK::VV_section> section(
            static_cast<TESK::VV_section*>(source.sections.pop_first()));
        if (!section->encountered || !is_copied(section->label, ticked))
            continue;
        if (TESK::Item* old = target.sections.find_exact(section->label))
            target.sections.remove(old);
        target.sections.append(section.release());
    }
}

// Why nothing is copied from the file; nothing when it was read. One that is not there counts as an empty
// one.
std::string read_source(const TESK::File_name& source_file, Tilverra_scenario& source) {
    constexpr const char* unreadable = "The scenario to copy from cannot be read.";
    if (const std::string reason = told_interruption(source_file); !reason.empty())
        return unreadable + (' ' + reason);
    TESK::VV_file file(source_file.c_str(), true);
    return file.get(source) || !file.exists() ? "" : unreadable;
}

} // namespace

platform::Write_result reset_scenario(const TESK::File_name& source_file, const TESK::File_name& target_file,
                                      const Ticked_reset_boxes& ticked) {
    Tilverra_scenario source;
    if (std::string reason = read_source(source_file, source); !reason.empty())
        return {platform::Write_error::other, std::move(reason)};
    if (std::string reason = told_interruption(target_file); !reason.empty())
        return {platform::Write_error::other, std::move(reason)};
    Tilverra_scenario target;
    TESK::VV_file file(target_file.c_str(), true);
    if (!file.get(target) && file.exists())
        return {platform::Write_error::other, "The file cannot be read."};
    target.redeclare_for_write();
    move_sections(source, target, ticked);
    if (!file.set(target))
        return platform::write_failure(platform::Write_error::bad_name);
    return file.get_last_write();
}

Operation_outcome reset_scenarios(const TESK::File_name& source_file, std::vector<std::string> targets,
                                  const Ticked_reset_boxes& ticked, Change_backups* backups,
                                  const Operation_progress& progress) {
    Operation_outcome outcome;
    const platform::Interruptions_view view;
    Tilverra_scenario source;
    outcome.refused = read_source(source_file, source);
    if (!outcome.refused.empty())
        return outcome;
    outcome.not_done = take_interrupted(targets);
    // One that cannot be put aside must not keep the others from their reset.
    std::erase_if(targets, [&](const std::string& target) {
        const bool is_unreadable = platform::is_file(target) && !platform::file_time(target);
        if (is_unreadable)
            outcome.not_done.push_back({target, "The file cannot be read."});
        return is_unreadable;
    });
    if (backups != nullptr && !targets.empty()) {
        const Operation_outcome aside = backups->put_copies_aside(
            "reset", targets, [&](std::size_t, std::size_t total) { return goes_on(progress, 0, total); });
        if (!aside.ok() || aside.stopped)
            return aside;
    }
    for (std::size_t i = 0; i < targets.size(); ++i) {
        outcome.stopped = !goes_on(progress, i, targets.size());
        if (outcome.stopped)
            return outcome;
        const platform::Write_result result =
            reset_scenario(source_file, TESK::File_name(targets[i].c_str()), ticked);
        if (result.ok())
            ++outcome.done;
        else
            outcome.not_done.push_back({targets[i], result.reason});
    }
    return outcome;
}
