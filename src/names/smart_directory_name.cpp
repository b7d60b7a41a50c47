#include "names/smart_directory_name.h"

#include "foundation/code_page_1252.h"
#include "foundation/container.h"
#include "names/smart_file_name.h"
#include "platform/current_directory.h"
#include "platform/files.h"
#include "platform/listing.h"
#include "platform/process.h"
#include "platform/shell.h"

#include <algorithm>
#include <memory>

namespace TESK {

namespace {

constexpr int normal_window = 1;

bool is_directory(const platform::Folder_entry& entry) {
    return (entry.attributes & platform::attribute_directory) != 0;
}

// Whether a walk goes into the entry: a link could lead round in a circle, or out of the tree.
bool is_walked(const platform::Folder_entry& entry) {
    return is_directory(entry) && !entry.is_link && !entry.name.starts_with('.');
}

std::vector<platform::Folder_entry> sorted_entries(const std::string& directory) {
    auto entries = platform::list_folder(directory);
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        const int order = compare_ignoring_case(a.name, b.name);
        return order != 0 ? order < 0 : a.name < b.name;
    });
    return entries;
}

template <class Name>
std::unique_ptr<Name> make_item(const Directory_name& directory, const std::string& entry,
                                const Listing& listing) {
    auto item = std::make_unique<Name>(entry.c_str());
    if (listing.qualified)
        directory.append_to(entry.c_str(), *item, false);
    else if (listing.relative_path != nullptr)
        item->set_path(Directory_name(listing.relative_path));
    item->show_full_path = listing.show_full_path;
    return item;
}

} // namespace

Smart_directory_name::Smart_directory_name(int special_folder) {
    if (special_folder >= 0)
        set_special_folder(special_folder);
}

bool Smart_directory_name::set_as_current() const {
    return platform::change_directory(*this);
}

int Smart_directory_name::open() {
    // The quote that only closes is how the desktop is given this command.
    platform::launcher().execute("explorer /n,/e," + *this + '"', normal_window);
    return 1;
}

bool Smart_directory_name::is_root() const {
    if (*this == "\\")
        return true;
    return is_qualified(true) && (size() == 2 || (size() == 3 && back() == '\\'));
}

bool Smart_directory_name::create() const {
    return exists() || *this == "noname" || platform::make_folders(*this);
}

bool Smart_directory_name::set_special_folder(int folder) {
    const std::string name = platform::shell().special_folder(folder);
    if (!name.empty())
        set(name);
    return !name.empty();
}

bool Smart_directory_name::remove_tree(Ustring& failures, bool keep_root) {
    if (!set_as_current())
        return true;
    // The walk moves the current directory, so that only full names mean the same throughout.
    const Smart_directory_name here(platform::current_directory());
    bool all_deleted = true;
    for (const platform::Folder_entry& entry : platform::list_folder(here)) {
        Smart_file_name file;
        here.append_to(entry.name.c_str(), file, false);
        if (!is_directory(entry) || entry.is_link) {
            if (!file.delete_file()) {
                all_deleted = false;
                failures += '"' + entry.name + "\", ";
            }
        } else if (is_walked(entry)) {
            all_deleted = Smart_directory_name(file).remove_tree(failures, keep_root) && all_deleted;
        }
    }
    here.set_as_current();
    platform::change_directory("..");
    qualify();
    platform::change_directory("..");
    if (!keep_root)
        platform::remove_folder(here);
    return all_deleted;
}

void Smart_directory_name::list_entries(Container& out, const Listing& listing) const {
    for (const platform::Folder_entry& entry : sorted_entries(*this)) {
        if (listing.kind == list_files && !is_directory(entry)) {
            auto item = make_item<File_name>(*this, entry.name, listing);
            item->show_extension = listing.show_extension;
            if (listing.extension == nullptr || item->has_ext(listing.extension)) {
                if (!listing.with_extension)
                    item->set_ext("");
                out.append(item.release());
            }
        } else if (listing.kind != list_files && is_directory(entry) && !entry.name.starts_with('.')) {
            auto item = make_item<Directory_name>(*this, entry.name, listing);
            item->show_extension = true;
            out.append(item.release());
        }
        if (listing.recurse && is_walked(entry)) {
            Smart_directory_name below("");
            append_to(entry.name.c_str(), below, false);
            Directory_name relative("");
            const char* path = listing.relative_path;
            Directory_name(path).append_to(entry.name.c_str(), relative, false);
            Listing deeper = listing;
            deeper.relative_path = relative.c_str();
            below.list_entries(out, deeper);
        }
    }
}

bool Smart_directory_name::find_file(const Ustring& name, Smart_file_name& result) const {
    Ustring wanted = name;
    wanted.to_lower();
    for (const platform::Folder_entry& entry : sorted_entries(*this)) {
        if (is_walked(entry)) {
            Smart_directory_name below("");
            append_to(entry.name.c_str(), below, false);
            if (below.find_file(wanted, result))
                return true;
        } else if (!is_directory(entry)) {
            Ustring own = entry.name;
            own.to_lower();
            if (own == wanted) {
                result.set_name_ext(entry.name.c_str());
                result.set_path(*this);
                return true;
            }
        }
    }
    return false;
}

} // namespace TESK
