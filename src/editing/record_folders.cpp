#include "editing/record_folders.h"

#include "editing/bound_control.h"
#include "foundation/code_page_1252.h"
#include "platform/files.h"
#include "platform/listing.h"
#include "toolkit/screen_language.h"

#include <algorithm>

namespace {

bool is_folder(const platform::Folder_entry& entry) {
    return (entry.attributes & platform::attribute_directory) != 0;
}

// Whether the name fits one of the masks.
bool fits(const std::string& name, const std::string& masks) {
    for (std::size_t start = 0; start <= masks.size();) {
        const std::size_t end = std::min(masks.find_first_of(";|", start), masks.size());
        if (platform::matches_mask(name, masks.substr(start, end - start)))
            return true;
        start = end + 1;
    }
    return false;
}

template <class Wanted>
std::vector<Folder_entry> entries_of(const std::string& folder, platform::Write_result& result,
                                     Wanted wanted) {
    const std::string name = record_text(folder);
    platform::Folder_listing listing = platform::list_folder(name);
    result = std::move(listing.result);
    std::vector<platform::Folder_entry> found = std::move(listing.entries);
    std::erase_if(found, [&](const platform::Folder_entry& entry) { return !wanted(entry); });
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
        const int order = TESK::compare_ignoring_case(a.name, b.name);
        return order != 0 ? order < 0 : a.name < b.name;
    });
    const std::string separator = name.ends_with('\\') ? "" : "\\";
    std::vector<Folder_entry> entries;
    entries.reserve(found.size());
    for (const platform::Folder_entry& entry : found)
        entries.push_back({screen_text(entry.name), screen_text(name + separator + entry.name)});
    return entries;
}

} // namespace

std::vector<Folder_entry> Record_folders::files(const std::string& folder, const std::string& mask) {
    const std::string masks = record_text(mask);
    platform::Write_result result;
    auto entries = entries_of(folder, result, [&](const platform::Folder_entry& entry) {
        return !is_folder(entry) && fits(entry.name, masks);
    });
    const bool is_whole = result.ok() || result.error == platform::Write_error::absent;
    failure_ = is_whole ? "" : worded("The folder cannot be read: %1", folder) + ' ' + worded(result.reason);
    return entries;
}

std::vector<Folder_entry> Record_folders::folders(const std::string& folder) {
    platform::Write_result result;
    return entries_of(folder, result, [](const platform::Folder_entry& entry) {
        return is_folder(entry) && !entry.name.starts_with('.');
    });
}
