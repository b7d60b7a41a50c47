#include "operations/scenario_renaming.h"

#include "foundation/code_page_1252.h"
#include "operations/record_settings.h"
#include "operations/scenario_catalogue.h"
#include "operations/scenario_comparison.h"
#include "operations/scenario_overview.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/interrupted_save.h"
#include "platform/moving.h"
#include "records/typed_entries.h"
#include "records/vv_file.h"

#include <algorithm>
#include <span>

namespace {

constexpr std::string_view extension = ".tvn";
constexpr std::string_view between = " vs "; // of the two names of a comparison

// An entry of the project that gets another name, by full names.
struct Move {
    std::string from;
    std::string to;
};

// The record of a scenario, its folder, and those of the scenario that is made of it.
struct Names {
    Names(const TESK::File_name& scenario, const std::string& new_name) {
        file.from = platform::full_name(scenario);
        file.to = file.from.substr(0, file.from.rfind('\\') + 1) + new_name + std::string(extension);
        folder.from = without_extension(file.from);
        folder.to = without_extension(file.to);
        name.from = folder.from.substr(folder.from.rfind('\\') + 1);
        name.to = new_name;
    }
    static std::string without_extension(const std::string& name) {
        return TESK::Directory_name(TESK::Directory_name(name), true);
    }
    Move file;
    Move folder;
    Move name;
};

// What a name in a record becomes: relative or not as it was. Nothing when it leads elsewhere.
std::string renamed(const std::string& name, std::span<const Move> moves) {
    const std::string full = name.empty() || name.front() == '<' ? std::string() : platform::full_name(name);
    for (const Move& move : moves) {
        const std::size_t size = move.from.size();
        if (full.size() < size || (full.size() > size && full[size] != '\\') ||
            !TESK::equal_ignoring_case(std::string_view(full).substr(0, size), move.from))
            continue;
        const std::string behind = full.substr(size);
        // What both names have in front may be written in any way.
        const auto differ = std::mismatch(move.from.begin(), move.from.end(), move.to.begin(), move.to.end());
        const std::string same(move.from.begin(), differ.first);
        const std::size_t common = same.rfind('\\');
        const std::string written_end = move.from.substr(common + 1) + behind;
        if (name.size() < written_end.size() ||
            !TESK::equal_ignoring_case(std::string_view(name).substr(name.size() - written_end.size()),
                                       written_end))
            return move.to + behind;
        return name.substr(0, name.size() - written_end.size()) + move.to.substr(common + 1) + behind;
    }
    return {};
}

// Whether the line of the text around the place sets a name that becomes another.
bool is_renamed_at(std::string_view text, std::size_t place, std::span<const Move> moves) {
    const std::size_t line = text.find_last_of("\r\n", place) + 1; // 0 in the first one
    const std::size_t equals = text.find('=', line);
    if (equals >= place)
        return false;
    std::string_view value = text.substr(equals + 1, text.find_first_of("\r\n", place) - equals - 1);
    constexpr std::string_view blanks = " \t\"";
    value.remove_prefix(std::min(value.find_first_not_of(blanks), value.size()));
    value = value.substr(0, value.find_last_not_of(blanks) + 1);
    return !renamed(std::string(value), moves).empty();
}

// Whether a line of the text sets one of the names. Most texts are told to have none without being read as
// records.
bool mentions(std::string_view text, std::span<const Move> moves) {
    return std::any_of(moves.begin(), moves.end(), [&](const Move& move) {
        const std::string_view entry = std::string_view(move.from).substr(move.from.rfind('\\') + 1);
        const char first = TESK::fold_case(entry.front());
        for (std::size_t place = 0; place + entry.size() <= text.size(); ++place)
            if (TESK::fold_case(text[place]) == first &&
                TESK::equal_ignoring_case(text.substr(place, entry.size()), entry) &&
                is_renamed_at(text, place, moves))
                return true;
        return false;
    });
}

// Puts the new names into the record of a scenario, where it has one of the old ones.
void rename_in_record(const std::string& file, std::span<const Move> moves, Operation_outcome& outcome) {
    const platform::Read_result text = platform::read_file(file, TESK::VV_file::largest_file);
    if (!text.ok() || !mentions(text.contents, moves))
        return;
    Record_settings settings{TESK::File_name(file.c_str())};
    if (!settings.failure().empty()) {
        outcome.not_done.push_back({file, settings.failure()});
        return;
    }
    std::vector<std::pair<std::string, std::string>> changes;
    for (const Setting& setting : settings.all())
        if (setting.is_in_file() && setting.kind() == Setting_kind::file)
            if (const std::string name = renamed(setting.value(), moves); !name.empty())
                changes.emplace_back(setting.name(), name);
    std::string reason;
    for (const auto& [setting, name] : changes)
        if (const Setting_change change = settings.set(setting, name); !change.done)
            reason = change.reason;
    if (const platform::Write_result result = settings.save(); !result.ok())
        reason = result.reason;
    if (!reason.empty())
        outcome.not_done.push_back({file, reason});
    else if (!changes.empty())
        ++outcome.done;
}

// Puts them into the project's own record. Whether it has changed.
bool rename_in_project(Tilverra_project_editor_parameters& record, std::span<const Move> moves) {
    bool changed = false;
    record.delete_structure();
    record.expect_structure(true);
    for (const TESK::VV_section& section : record.all_sections())
        for (const TESK::VV_base_entry& entry : section.all_entries()) {
            if (entry.type_code() != TESK::Entry_type::file_name)
                continue;
            TESK::File_name& file = static_cast<const TESK::VV_filename_entry&>(entry).value;
            if (const std::string name = renamed(file, moves); !name.empty()) {
                file.set(name);
                changed = true;
            }
        }
    record.delete_structure();
    return changed;
}

void rename_comparisons(const Project_workspace& workspace, const Move& name, Operation_outcome& outcome) {
    const std::string first = name.from + std::string(between);
    const std::string second = std::string(between) + name.from;
    const TESK::Directory_name& folder =
        workspace.project_directory->get_scenario_comparison_directory(false);
    if (!platform::is_folder(folder))
        return;
    std::string failure;
    const std::vector<std::string> comparisons = list_comparisons(workspace, failure);
    if (!failure.empty())
        outcome.not_done.push_back({folder, failure});
    for (const std::string& comparison : comparisons) {
        std::string now = comparison;
        if (comparison.starts_with(first))
            now = name.to + comparison.substr(name.from.size());
        else if (comparison.ends_with(second))
            now = comparison.substr(0, comparison.size() - name.from.size()) + name.to;
        if (now == comparison)
            continue;
        const platform::Write_result result =
            platform::move_entry(folder + '\\' + comparison, folder + '\\' + now);
        if (result.ok())
            ++outcome.done;
        else
            outcome.not_done.push_back({folder + '\\' + comparison, result.reason});
    }
}

// Why the scenario cannot become one of the new name; nothing when it can.
std::string refuse(Project_workspace& workspace, const TESK::File_name& file, const std::string& new_name) {
    if (!workspace.need_project_directory())
        return "The project has not been saved, so it has no folder yet.";
    if (std::string reason = refuse_scenario_name(new_name); !reason.empty())
        return reason;
    if (!platform::is_file(file))
        return "There is no file " + file + '.';
    if (std::string reason = told_interruption(file); !reason.empty())
        return reason;
    const Names names(file, new_name);
    for (const std::string* taken : {&names.file.to, &names.folder.to})
        if (platform::exists(*taken))
            return "There is something of this name already: " + *taken;
    return {};
}

} // namespace

Operation_outcome rename_scenario(Project_workspace& workspace, const TESK::File_name& file,
                                  const std::string& new_name) {
    Operation_outcome outcome;
    outcome.refused = refuse(workspace, file, new_name);
    if (!outcome.refused.empty())
        return outcome;
    const Names names(file, new_name);
    const bool has_folder = platform::is_folder(names.folder.from);
    platform::Write_result result;
    if (has_folder)
        result = platform::move_entry(names.folder.from, names.folder.to);
    if (result.ok()) {
        result = platform::move_entry(names.file.from, names.file.to);
        if (!result.ok() && has_folder)
            platform::move_entry(names.folder.to, names.folder.from);
    }
    if (!result.ok()) {
        outcome.refused = result.reason;
        return outcome;
    }
    ++outcome.done;
    const platform::Interruptions_view view;
    const Move moves[] = {names.file, names.folder};
    for (const Scenario_folder kind : {Scenario_folder::created, Scenario_folder::generated}) {
        const TESK::Directory_name& folder = workspace.scenarios_directory(kind, false);
        std::string failure;
        for (const std::string& scenario : list_scenarios(folder, &failure))
            rename_in_record(folder + '\\' + scenario, moves, outcome);
        if (!failure.empty())
            outcome.not_done.push_back({folder, failure});
    }
    rename_comparisons(workspace, names.name, outcome);
    if (rename_in_project(workspace.project_parameters, moves) && !workspace.host.save())
        outcome.not_done.push_back({workspace.host.project_file(), "The project was not saved."});
    workspace.enter_project_folder();
    return outcome;
}

Operation_outcome duplicate_scenario(Project_workspace& workspace, const TESK::File_name& file,
                                     const std::string& new_name) {
    Operation_outcome outcome;
    outcome.refused = refuse(workspace, file, new_name);
    if (!outcome.refused.empty())
        return outcome;
    const Names names(file, new_name);
    const Move database{names.folder.from + "\\Database", names.folder.to + "\\Database"};
    platform::Write_result result;
    if (platform::is_folder(database.from))
        result = platform::copy_tree(database.from, database.to);
    if (result.ok())
        result = platform::copy_file(names.file.from, names.file.to);
    if (!result.ok()) {
        platform::remove_tree(names.folder.to);
        outcome.refused = result.reason;
        return outcome;
    }
    rename_in_record(names.file.to, std::span(&database, 1), outcome);
    outcome.done = 1;
    return outcome;
}

std::string folder_to_show(const TESK::File_name& file) {
    const std::string full = platform::full_name(file);
    const std::string own = Names::without_extension(full);
    return platform::is_folder(own) ? own : full.substr(0, full.rfind('\\'));
}
