#include "platform/listing.h"

#include "foundation/code_page_1252.h"
#include "platform/entry_names.h"
#include "platform/files.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace platform {

namespace {

bool matches_wildcards(std::string_view name, std::string_view mask) {
    std::size_t n = 0;
    std::size_t m = 0;
    // Where to go on when what follows the last "*" does not match here.
    std::size_t retry_name = 0;
    std::size_t retry_mask = std::string_view::npos;
    while (n < name.size()) {
        if (m < mask.size() && mask[m] == '*') {
            retry_mask = ++m;
            retry_name = n;
        } else if (m < mask.size() &&
                   (mask[m] == '?' || TESK::fold_case(mask[m]) == TESK::fold_case(name[n]))) {
            ++m;
            ++n;
        } else if (retry_mask != std::string_view::npos) {
            m = retry_mask;
            n = ++retry_name;
        } else {
            return false;
        }
    }
    return mask.find_first_not_of('*', m) == std::string_view::npos;
}

bool is_folder_entry(int folder, const dirent& entry) {
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat state {};
    return fstatat(folder, entry.d_name, &state, 0) == 0 && S_ISDIR(state.st_mode);
}

bool is_link_entry(int folder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_LNK;
    struct stat state {};
    return fstatat(folder, entry.d_name, &state, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(state.st_mode);
}

} // namespace

bool matches_mask(std::string_view name, std::string_view mask) {
    if (matches_wildcards(name, mask))
        return true;
    constexpr std::string_view any_extension = ".*";
    const bool extension_may_lack = mask.size() >= any_extension.size() &&
                                    mask.substr(mask.size() - any_extension.size()) == any_extension;
    return extension_may_lack && name.find('.') == std::string_view::npos &&
           matches_wildcards(name, mask.substr(0, mask.size() - any_extension.size()));
}

Folder_listing list_folder(std::string_view folder, std::string_view mask, Listed_attributes asked) {
    Folder_listing listing;
    const std::string path = host_path(folder);
    Folder_stream stream(path);
    while (const dirent* entry = stream.next()) {
        const std::string host_name = entry->d_name;
        if (!is_listable(host_name))
            continue;
        std::string name = name_of_entry(path, host_name);
        if (!matches_mask(name, mask))
            continue;
        int bits = is_folder_entry(stream.descriptor(), *entry) ? attribute_directory : attribute_archive;
        if (asked == Listed_attributes::all && is_write_protected(stream.descriptor(), entry->d_name))
            bits |= attribute_read_only;
        listing.entries.push_back(
            {std::move(name), static_cast<std::uint8_t>(bits), is_link_entry(stream.descriptor(), *entry)});
    }
    listing.result = write_result_from_errno(stream.error());
    return listing;
}

} // namespace platform
