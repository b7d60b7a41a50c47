#include "operations/scenario_catalogue.h"

#include "foundation/code_page_1252.h"
#include "model/tilverra_scenario.h"
#include "names/recycling.h"
#include "platform/command_line.h"
#include "platform/files.h"
#include "platform/interrupted_save.h"
#include "platform/moving.h"
#include "records/vv_file.h"

#include <algorithm>
#include <memory>

namespace {

constexpr const char* scenario_extension = "tvn";
constexpr const char* path_separators = "\\/:";
constexpr const char* no_project_folder = "The project has not been saved, so it has no folder yet.";

// Whether a scenario of that name, without its extension, has a folder of its own: a name of points alone
// stands for the folder of all scenarios or one above it, and blanks at the end do not count on every system.
bool has_own_folder(const std::string& name) {
    return name.find_first_not_of(". ") != std::string::npos;
}

// A file to import, and the scenario that it becomes.
struct Import {
    std::string source;
    std::size_t number; // of the file, from 0
    TESK::Smart_file_name target;
};

std::unique_ptr<Tilverra_scenario> read_scenario(const std::string& file) {
    auto scenario = std::make_unique<Tilverra_scenario>();
    return TESK::VV_file(file.c_str()).get(*scenario) ? std::move(scenario) : nullptr;
}

// Why the file is not imported; empty when it is. One without a key of a scenario is read as one of defaults:
// a file cut short by a full disk must not replace anything.
std::string refuse_source(const std::string& file, bool replaces) {
    if (std::string reason = told_interruption(file); !reason.empty())
        return reason;
    Tilverra_scenario scenario;
    if (!TESK::VV_file(file.c_str(), true).get(scenario))
        return "The file cannot be read.";
    for (const TESK::VV_section& section : TESK::Items_of<TESK::VV_section>(scenario.sections))
        for (const TESK::VV_base_entry& entry : section.all_entries())
            if (entry.encountered && entry.type_code() != TESK::Entry_type::unexpected)
                return "";
    return replaces ? "The file holds nothing of a scenario, so it replaces none." : "";
}

// The files that are to be imported, once the user has been asked. Empty when they stop it.
std::vector<Import> choose_imports(const TESK::Directory_name& folder, const std::vector<std::string>& files,
                                   const Import_question& ask, const Operation_progress& progress,
                                   Operation_outcome& outcome) {
    std::vector<Import> imports;
    Import_answer answer = ask ? Import_answer::replace : Import_answer::replace_all;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::string& file = files[i];
        outcome.stopped = !goes_on(progress, 0, files.size());
        if (outcome.stopped)
            return {};
        Import import{file, i, TESK::Smart_file_name(file.c_str())};
        import.target.set_ext(scenario_extension);
        import.target.set_path(folder);
        const auto same = std::find_if(imports.begin(), imports.end(), [&](const Import& one) {
            return TESK::equal_ignoring_case(one.target, import.target);
        });
        const bool replaces = same != imports.end() || platform::exists(import.target);
        std::string reason = refuse_scenario_name(import.target.get_name(false));
        if (reason.empty())
            reason = refuse_source(file, replaces);
        if (!reason.empty()) {
            outcome.not_done.push_back({file, std::move(reason)});
            continue;
        }
        if (!replaces) {
            imports.push_back(std::move(import));
            continue;
        }
        if (const std::string interruption = told_interruption(import.target); !interruption.empty()) {
            outcome.not_done.push_back({file, import.target + ": " + interruption});
            continue;
        }
        if (answer != Import_answer::replace_all && answer != Import_answer::keep_all)
            answer = ask(import.target.get_name(true));
        if (answer == Import_answer::stop) {
            outcome.stopped = true;
            return {};
        }
        if (answer == Import_answer::keep || answer == Import_answer::keep_all)
            continue;
        if (same != imports.end())
            imports.erase(same);
        imports.push_back(std::move(import));
    }
    return imports;
}

std::string delete_entry(const std::string& name, bool permanently, const Change_backups* backups) {
    const TESK::File_name entry(name.c_str());
    if (!platform::exists(name) && !platform::is_link(name))
        return {};
    if (permanently && backups != nullptr)
        return backups->move(name).reason;
    if (entry.recycle(permanently))
        return {};
    return why_not_deleted(name, permanently);
}

// Moves the files of the scenarios from one place of the list up to another to the trash. What stays is for
// delete_entry() to tell.
void recycle_together(const std::vector<std::vector<std::string>>& scenarios, std::size_t begin,
                      std::size_t end) {
    std::vector<std::string> names;
    for (std::size_t i = begin; i < std::min(end, scenarios.size()); ++i)
        names.insert(names.end(), scenarios[i].begin(), scenarios[i].end());
    TESK::recycle_all(names, false, nullptr);
}

} // namespace

std::string why_not_deleted(const std::string& name, bool permanently) {
    const std::string reason = platform::permission_to_remove(name).reason;
    if (reason.empty() && !permanently)
        return no_trash;
    return "It could not be deleted." + (reason.empty() ? "" : ' ' + reason);
}

std::string new_scenario_name(const std::string& typed) {
    const std::string name = typed.substr(typed.find_last_of(path_separators) + 1);
    return has_own_folder(name) ? name : std::string();
}

std::string refuse_scenario_name(const std::string& name) {
    constexpr std::size_t longest_name = 200;
    const auto is_refused = [](char c) {
        return !platform::can_be_handed_over(c) ||
               std::string_view("\\/:*?<>|").find(c) != std::string_view::npos;
    };
    if (name.empty())
        return "The scenario has no name.";
    if (name.size() > longest_name)
        return "The name is too long.";
    if (std::any_of(name.begin(), name.end(), is_refused) || new_scenario_name(name) != name ||
        name.ends_with('.'))
        return "No scenario can have this name.";
    return {};
}

Operation_outcome create_scenario(Project_workspace& workspace, const std::string& name, bool copies_active) {
    Operation_outcome outcome;
    TVN_filename& active = workspace.project_parameters.active_scenario;
    outcome.refused = workspace.need_project_directory() ? refuse_scenario_name(name) : no_project_folder;
    if (!outcome.refused.empty())
        return outcome;
    const std::string template_file = copies_active ? active : std::string();
    const TESK::Smart_directory_name& folder = workspace.scenarios_directory(Scenario_folder::created, true);
    // Behind the whole name: a point in it begins no extension, whatever the name before looked like.
    folder.append_to((name + '.' + scenario_extension).c_str(), active);
    if (platform::entry_kind(template_file) == platform::Entry_kind::other)
        outcome.not_done.push_back({active, "The scenario to copy is no regular file."});
    if (platform::is_file(active) || !platform::is_file(template_file))
        return outcome;
    outcome.refused = told_interruption(template_file);
    if (!outcome.refused.empty()) {
        active.set(template_file);
        return outcome;
    }
    const platform::Write_result copy = platform::copy_file(template_file, active);
    if (copy.ok())
        ++outcome.done;
    else
        outcome.not_done.push_back({active, copy.reason});
    return outcome;
}

Operation_outcome import_version_3_scenarios(Project_workspace& workspace,
                                             const std::vector<std::string>& files,
                                             const Import_question& ask, Change_backups* backups,
                                             const Operation_progress& progress) {
    Operation_outcome outcome;
    if (!workspace.need_project_directory()) {
        outcome.refused = no_project_folder;
        return outcome;
    }
    const platform::Interruptions_view view;
    const TESK::Smart_directory_name& folder = workspace.scenarios_directory(Scenario_folder::created, true);
    const std::vector<Import> imports = choose_imports(folder, files, ask, progress, outcome);
    if (backups != nullptr && !imports.empty()) {
        std::vector<std::string> targets;
        for (const Import& import : imports)
            targets.push_back(import.target);
        const Operation_outcome aside = backups->put_copies_aside(
            "import", targets, [&](std::size_t, std::size_t total) { return goes_on(progress, 0, total); });
        if (!aside.ok())
            return aside;
        outcome.stopped = aside.stopped;
    }
    for (std::size_t i = 0; i < imports.size() && !outcome.stopped; ++i) {
        outcome.stopped = !goes_on(progress, imports[i].number, files.size());
        if (outcome.stopped)
            break;
        const auto scenario = read_scenario(imports[i].source);
        TESK::VV_file target(imports[i].target.c_str());
        if (scenario != nullptr && target.set(*scenario) && target.get_last_write().ok())
            ++outcome.done;
        else
            outcome.not_done.push_back({imports[i].source, scenario == nullptr
                                                               ? "The file cannot be read."
                                                               : target.get_last_write().reason});
    }
    return outcome;
}

std::vector<std::string> files_of_scenario(const TESK::Directory_name& folder, const std::string& file_name) {
    TESK::File_name file;
    folder.append_to(file_name.c_str(), file);
    std::vector<std::string> files{file};
    const TESK::Directory_name outputs(TESK::Directory_name(std::string(file)), true);
    if (has_own_folder(file.get_name(false)) && platform::is_folder(outputs))
        files.push_back(outputs);
    return files;
}

Operation_outcome delete_scenarios(const TESK::Directory_name& folder,
                                   const std::vector<std::string>& file_names, bool permanently,
                                   Change_backups* backups, const Operation_progress& progress) {
    Operation_outcome outcome;
    std::vector<std::vector<std::string>> scenarios;
    std::vector<std::string> all;
    for (const std::string& file_name : file_names) {
        scenarios.push_back(files_of_scenario(folder, file_name));
        all.insert(all.end(), scenarios.back().begin(), scenarios.back().end());
    }
    if (permanently && backups != nullptr && !all.empty()) {
        const Operation_outcome announced = backups->announce("deletion", all);
        if (!announced.ok())
            return announced;
    }
    // The trash takes some together at the cost of one; not more than a bar has steps that can be seen.
    constexpr std::size_t most_steps = 50;
    const std::size_t step = permanently ? 1 : 1 + scenarios.size() / most_steps;
    bool is_to_stop = false;
    for (std::size_t i = 0; i < scenarios.size(); ++i) {
        is_to_stop = !goes_on(progress, i, scenarios.size()) || is_to_stop;
        // Those that have gone together are finished together.
        outcome.stopped = is_to_stop && i % step == 0;
        if (outcome.stopped)
            return outcome;
        if (step > 1 && i % step == 0)
            recycle_together(scenarios, i, i + step);
        const std::size_t failures = outcome.not_done.size();
        for (const std::string& name : scenarios[i])
            if (std::string reason = delete_entry(name, permanently, backups); !reason.empty())
                outcome.not_done.push_back({name, std::move(reason)});
        outcome.done += outcome.not_done.size() == failures ? 1 : 0;
    }
    return outcome;
}

Operation_outcome delete_scenario_file(const TESK::File_name& file, bool permanently,
                                       Change_backups* backups) {
    if (permanently && backups != nullptr) {
        const Operation_outcome announced = backups->announce("deletion", {file});
        if (!announced.ok())
            return announced;
    }
    Operation_outcome outcome;
    if (const std::string reason = delete_entry(file, permanently, backups); reason.empty())
        ++outcome.done;
    else
        outcome.not_done.push_back({file, reason});
    return outcome;
}

void complete_active_scenario(Project_workspace& workspace, Scenario_folder folder) {
    TVN_filename& active = workspace.project_parameters.active_scenario;
    if (active.starts_with('<') || active.empty() || !workspace.ensure_project_directory())
        return;
    workspace.enter_project_folder();
    if (platform::is_file(active))
        return;
    active.set_ext(scenario_extension);
    active.set_path(workspace.scenarios_directory(folder, true));
}
