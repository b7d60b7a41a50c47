#include "runs/run_folders.h"

#include "names/smart_directory_name.h"
#include "platform/command_line.h"
#include "platform/entry_names.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/listing.h"
#include "runs/run_journal.h"

#include <algorithm>

namespace {

constexpr const char* set_file = "\\set.txt";
constexpr std::size_t largest_set_file = std::size_t{64} << 20;
constexpr int most_sets_a_second = 1000;

// "2026-03-01 12-00-00": names are sorted as the times are.
std::string name_for(Moment moment) {
    std::string name = text_of_moment(moment).substr(0, 19);
    name[10] = ' ';
    std::replace(name.begin(), name.end(), ':', '-');
    return name;
}

// Makes a folder that was not there; "" when that cannot be.
std::string make_new_folder(const std::string& runs_folder) {
    std::string folder = new_run_set_folder(runs_folder);
    while (!platform::make_folder(folder)) {
        if (!platform::exists(folder))
            return "";
        folder = new_run_set_folder(runs_folder);
    }
    return folder;
}

} // namespace

std::string new_run_set_folder(const std::string& runs_folder) {
    const std::string name = runs_folder + '\\' + name_for(moment_now());
    std::string folder = name;
    for (int number = 2; number < most_sets_a_second && platform::exists(folder); ++number)
        folder = name + ' ' + std::to_string(number);
    return folder;
}

Made_run_set make_run_set(const std::string& runs_folder, const Run_set& set) {
    const std::string unusable = unusable_name(set);
    if (!unusable.empty())
        return {"", {platform::Write_error::bad_name, platform::refusal_of_name(unusable)}};
    platform::make_folders(runs_folder);
    const std::string folder = make_new_folder(runs_folder);
    if (folder.empty())
        return {"", platform::write_failure(platform::Write_error::no_permission)};
    const platform::Write_result result =
        platform::write_file(folder + set_file, text_of(set), platform::Durability::durable);
    if (result.ok())
        return {folder, result};
    platform::remove_tree(folder);
    return {"", result};
}

std::optional<Run_set> read_run_set(const std::string& folder) {
    const platform::Read_result file = platform::read_file(folder + set_file, largest_set_file);
    return file.ok() ? run_set_from_text(file.contents) : std::nullopt;
}

std::string unreadable_run_set(const std::string& folder) {
    return "The set of runs '" + folder.substr(folder.rfind('\\') + 1) + "' cannot be read: " + folder +
           set_file + " is damaged, or no file that you may read.";
}

std::vector<std::string> list_run_sets(const std::string& runs_folder, platform::Write_result* failure) {
    std::vector<std::string> folders;
    const platform::Folder_listing listing = platform::list_folder(runs_folder);
    if (failure != nullptr && !listing.ok() && platform::exists(runs_folder))
        *failure = listing.result;
    for (const platform::Folder_entry& entry : listing) {
        const std::string folder = runs_folder + '\\' + entry.name;
        if ((entry.attributes & platform::attribute_directory) != 0 &&
            (platform::is_file(folder + set_file) || platform::is_out_of_reach(folder + set_file)))
            folders.push_back(folder);
    }
    // Of one second, the tenth comes behind the second.
    const std::size_t numbers = runs_folder.size() + 1 + name_for(0).size();
    std::sort(folders.begin(), folders.end(), [&](const std::string& a, const std::string& b) {
        const int order = a.compare(0, numbers, b, 0, numbers);
        return order != 0 ? order > 0 : std::pair(a.size(), a) > std::pair(b.size(), b);
    });
    return folders;
}

std::string reason_not_to_touch(const std::string& folder, const Run_set& set) {
    const std::size_t runs = folder.rfind('\\');
    const std::string project = folder.substr(0, folder.rfind('\\', runs - 1));
    if (platform::real_path(platform::host_path(project)) ==
        platform::real_path(platform::host_path(set.folder)))
        return "";
    return "These runs were asked for by the project in " + set.folder +
           ", of which this one is a copy, or which was moved. Run the scenarios of this one anew.";
}

bool delete_run_set(const std::string& folder, bool permanently) {
    Run_journal journal(folder, 0);
    journal.update();
    const bool may_be_at_work =
        !journal.failure().empty() || (is_owned(journal) && !(journal.job() && journal.job()->is_list()));
    if (may_be_at_work)
        return false;
    return TESK::Smart_directory_name(folder.c_str()).recycle(permanently);
}

std::string printed_file(const std::string& folder, std::size_t run) {
    return folder + "\\printed\\" + std::to_string(run) + ".txt";
}
