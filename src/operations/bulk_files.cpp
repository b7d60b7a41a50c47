#include "operations/bulk_files.h"

#include "foundation/code_page_1252.h"
#include "names/smart_directory_name.h"
#include "operations/scenario_overview.h"
#include "platform/file_writer.h"
#include "platform/files.h"

#include <algorithm>

namespace {

std::string folded(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), TESK::fold_case);
    return text;
}

} // namespace

Bulk_files::Bulk_files(const TESK::Directory_name& folder) : folder_(folder) {
    for (std::string& name : list_scenarios(folder_, &failure_))
        present_.try_emplace(folded(name), std::move(name));
}

std::string Bulk_files::in_folder(const std::string& file_name) const {
    TESK::File_name file;
    folder_.append_to(file_name.c_str(), file);
    return file;
}

bool Bulk_files::exists(const std::string& file_name) const {
    return !present_.empty() && present_.contains(folded(file_name));
}

std::string Bulk_files::full_name(const std::string& file_name) const {
    const auto found = present_.empty() ? present_.end() : present_.find(folded(file_name));
    return in_folder(found == present_.end() ? file_name : found->second);
}

std::string Bulk_files::begin(const std::string& operation, const std::vector<std::string>& file_names,
                              Change_backups* backups) {
    backups_ = backups;
    TESK::Smart_directory_name(folder_).create();
    if (backups_ == nullptr)
        return {};
    std::vector<std::string> names;
    for (const std::string& name : file_names)
        names.push_back(full_name(name));
    return backups_->announce(operation, names).refused;
}

void Bulk_files::write(const std::string& file_name, const std::string& text,
                       Operation_outcome& outcome) const {
    const std::string target = in_folder(file_name);
    const std::string old = backups_ != nullptr && exists(file_name) ? full_name(file_name) : std::string();
    const bool is_moved = !old.empty() && backups_->move(old).ok();
    if (!old.empty() && !is_moved && platform::exists(old)) {
        outcome.not_done.push_back({old, "It cannot be put aside."});
        return;
    }
    const platform::Write_result result = platform::write_file(target, text, platform::Durability::quick);
    if (result.ok()) {
        ++outcome.done;
        return;
    }
    if (is_moved)
        backups_->move_back(old);
    outcome.not_done.push_back({target, result.reason});
}
