#include "names/smart_directory_name.h"

#include "foundation/code_page_1252.h"
#include "names/file_name.h"
#include "platform/command_line.h"
#include "platform/current_directory.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/listing.h"
#include "platform/process.h"
#include "platform/shell.h"

#include <algorithm>
#include <memory>
#include <set>
#include <vector>

namespace TESK {

namespace {

constexpr std::string_view unnamed = "noname";
constexpr std::size_t longest_folder_name = 32767; // on any system of the suite

bool is_folder(const platform::Folder_entry& entry) {
    return (entry.attributes & platform::attribute_directory) != 0;
}

bool is_folder_to_enter(const platform::Folder_entry& entry) {
    return is_folder(entry) && entry.name.front() != '.';
}

// In an order that users know: the host's own is that of no human.
platform::Folder_listing sorted_entries(const std::string& folder) {
    platform::Folder_listing listing = platform::list_folder(folder);
    std::sort(listing.entries.begin(), listing.entries.end(), [](const auto& a, const auto& b) {
        const int order = compare_ignoring_case(a.name, b.name);
        return order != 0 ? order < 0 : a.name < b.name;
    });
    return listing;
}

// The folders that a search has entered. It ends, as each of them is entered by a link only once, and what is
// below without links is finite.
class Entered_folders {
public:
    explicit Entered_folders(const std::string& first) { note(first); }

    bool may_enter(const std::string& folder, bool by_link) { return note(folder) || !by_link; }

private:
    // True when the folder is a new one.
    bool note(const std::string& folder) {
        const auto identity = platform::entry_identity(folder);
        return identity && entered_.insert(*identity).second;
    }

    std::set<platform::Entry_identity> entered_;
};

class Listing {
public:
    Listing(Container& out, std::uint8_t kind, const std::string& first_folder)
        : out_(out), kind_(kind), entered_(first_folder) {}

    bool recurse = false;
    bool qualified = false;
    bool with_extension = false;
    bool show_full_path = false;
    bool show_extension = false;
    const char* extension = nullptr;

    // `relative_path` may be null. False when this folder or one below could not be read.
    bool add_entries_of(const Directory_name& folder, const Directory_name* relative_path) {
        const platform::Folder_listing listing = sorted_entries(folder);
        bool is_whole = listing.ok();
        for (const platform::Folder_entry& entry : listing) {
            if (is_listed(entry))
                add(entry, folder, relative_path);
            if (recurse && is_folder_to_enter(entry))
                is_whole = enter(entry, folder, relative_path) && is_whole;
        }
        return is_whole;
    }

private:
    // Other kinds than the two are those of folders where they are come across, which only a search that goes
    // deeper looks for.
    bool is_listed(const platform::Folder_entry& entry) const {
        if (kind_ == list_files)
            return !is_folder(entry);
        return (kind_ == list_directories || recurse) && is_folder_to_enter(entry);
    }

    void add(const platform::Folder_entry& entry, const Directory_name& folder,
             const Directory_name* relative_path) {
        std::unique_ptr<Directory_entry_name> item;
        if (kind_ == list_files)
            item = std::make_unique<File_name>(entry.name.c_str());
        else
            item = std::make_unique<Directory_name>(entry.name);
        item->show_full_path = show_full_path;
        item->show_extension = show_extension || kind_ != list_files;
        if (qualified)
            folder.append_to(entry.name.c_str(), *item);
        else if (relative_path != nullptr)
            item->set_path(*relative_path);
        if (kind_ == list_files) {
            if (extension != nullptr && !item->has_ext(extension))
                return;
            // The point of a folder above, or one before all of the name, begins no extension of this file.
            if (!with_extension && item->ext_pos > item->name_pos)
                item->set_ext("");
        }
        // A list of unique keys leaves a refused item with its owner.
        if (out_.append(item.get()) != nullptr)
            item.release();
    }

    bool enter(const platform::Folder_entry& entry, const Directory_name& folder,
               const Directory_name* relative_path) {
        Directory_name below("");
        folder.append_to(entry.name.c_str(), below);
        if (!entered_.may_enter(below, entry.is_link))
            return true;
        Directory_name relative_below(entry.name);
        if (relative_path != nullptr)
            relative_below.set_path(*relative_path);
        return add_entries_of(below, &relative_below);
    }

    Container& out_;
    std::uint8_t kind_;
    Entered_folders entered_;
};

bool find_below(const Directory_name& folder, const std::string& name, Entered_folders& entered,
                Smart_file_name& result) {
    for (const platform::Folder_entry& entry : sorted_entries(folder)) {
        if (is_folder_to_enter(entry)) {
            Directory_name below("");
            folder.append_to(entry.name.c_str(), below);
            if (entered.may_enter(below, entry.is_link) && find_below(below, name, entered, result))
                return true;
        } else if (equal_ignoring_case(entry.name, name)) {
            result.set_name_ext(entry.name.c_str());
            result.set_path(folder);
            return true;
        }
    }
    return false;
}

} // namespace

Smart_directory_name::Smart_directory_name(int special_folder) {
    if (special_folder >= 0)
        set_special_folder(special_folder);
}

bool Smart_directory_name::set_as_current() const {
    return platform::change_directory(*this);
}

int Smart_directory_name::open() const {
    if (!platform::refusal_of_name(*this).empty())
        return 0;
    // The lone quote is what the desktop is given.
    platform::launcher().execute("explorer /n,/e," + platform::in_quotes(*this).substr(1),
                                 platform::normal_window);
    return 1;
}

bool Smart_directory_name::is_root() const {
    return *this == "\\" || (is_qualified(true) && (size() == 2 || (size() == 3 && (*this)[2] == '\\')));
}

bool Smart_directory_name::create() const {
    if (exists())
        return true;
    if (size() > longest_folder_name)
        return false;
    for (std::size_t end = std::string::find('\\', 1); end != npos; end = std::string::find('\\', end + 1)) {
        const std::string level = substr(0, end);
        if (!platform::make_folder(level) && !platform::is_folder(level))
            return false;
    }
    return *this == unnamed || platform::make_folder(*this) || platform::is_folder(*this);
}

bool Smart_directory_name::set_special_folder(int folder) {
    const std::string name = platform::shell().special_folder(folder);
    if (name.empty())
        return false;
    set(name);
    return true;
}

bool Smart_directory_name::remove_tree(std::string& failures, bool keep_root) {
    if (platform::holds_drive_root(*this))
        return false;
    Smart_directory_name absolute(*this);
    absolute.qualify();
    if (!set_as_current())
        return true;
    // From here on nothing depends on where the process is: the folders below move it about.
    const Smart_directory_name here(platform::current_directory());
    const bool is_link = platform::is_link(here);
    bool all_deleted = true;
    if (keep_root || !is_link)
        all_deleted = here.remove_entries(failures, keep_root);

    here.set_as_current();
    platform::change_directory("..");
    set(absolute);
    platform::change_directory("..");
    if (!keep_root) {
        if (is_link)
            platform::delete_file(here);
        else
            platform::remove_folder(here);
    }
    return all_deleted;
}

bool Smart_directory_name::remove_entries(std::string& failures, bool keep_folders) const {
    const platform::Folder_listing listing = sorted_entries(*this);
    bool all_deleted = listing.ok();
    if (!all_deleted)
        failures += '"' + std::string(get_name(true)) + "\", ";
    for (const platform::Folder_entry& entry : listing) {
        if (is_folder(entry) && (entry.name.front() == '.' || (entry.is_link && keep_folders)))
            continue;
        if (is_folder(entry) && !entry.is_link) {
            Smart_directory_name below("");
            append_to(entry.name.c_str(), below);
            all_deleted = below.remove_tree(failures, keep_folders) && all_deleted;
            continue;
        }
        Smart_file_name file;
        append_to(entry.name.c_str(), file);
        if (!file.delete_file()) {
            all_deleted = false;
            failures += '"' + entry.name + "\", ";
        }
    }
    return all_deleted;
}

bool Smart_directory_name::list_entries(Container& out, bool recurse, bool qualified, bool with_extension,
                                        bool items_show_full_path, bool items_show_extension,
                                        std::uint8_t kind, const char* extension,
                                        const char* relative_path) const {
    Listing listing(out, kind, *this);
    listing.recurse = recurse;
    listing.qualified = qualified;
    listing.with_extension = with_extension;
    listing.show_full_path = items_show_full_path;
    listing.show_extension = items_show_extension;
    listing.extension = extension;
    const Directory_name relative(relative_path);
    return listing.add_entries_of(*this, relative_path == nullptr ? nullptr : &relative);
}

bool Smart_directory_name::find_file(const std::string& name, Smart_file_name& result) const {
    Entered_folders entered(*this);
    return find_below(*this, name, entered, result);
}

} // namespace TESK
