// The entries of one host folder by their names, for the use of this folder alone: how the bytes of an entry
// stand for its name, looking an entry up when case does not count, and the listings remembered for that.
//
// A remembered listing is used as long as the folder's time of change is the one it was read with. A time
// that was still young when the folder was read proves nothing, since a second change may bear the same time:
// such a listing is read again. Changes that this program makes itself are entered by a Folder_change, so
// that a loop that fills a folder does not read it again for each file; a listing that was mended so is read
// again after a second, in case somebody else made a change at the same moment.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace platform {

// Whether the entry exists, be it a link to nowhere.
bool host_entry_exists(const std::string& path);

// The folder of a host path, and the entry in it: "/" and "a" for "/a".
std::string host_folder_of(const std::string& path);
std::string host_entry_of(const std::string& path);
std::string join_host_path(const std::string& folder, std::string_view entry);

// The text of a symbolic link; nothing, with the reason in errno, where there is no link.
std::optional<std::string> link_text(const std::string& path);
// The path that the text of a link in the folder means.
std::string linked_path(const std::string& folder, const std::string& text);
// The path without symbolic links; "" where nothing is there.
std::string real_path(const std::string& path);

// The beginning of the name of a file that is being written beside the one that it will replace.
constexpr std::string_view unfinished_save_prefix = ".~saving-";
constexpr std::size_t unfinished_save_digits = 12; // hexadecimal, in lower case, behind the prefix
bool is_unfinished_save(std::string_view entry);

// Whether the program shows an entry of the name: not when it holds a backslash or a colon, nor when it is an
// unfinished save.
bool is_listable(std::string_view entry);

// The name of an entry that is, or could be, in the host folder.
std::string name_of_entry(const std::string& folder, const std::string& entry);

// The entry of the host folder that has the name exactly, or else the one that differs only in case; nothing
// when there is neither. `error` as for find_entry_ignoring_case().
std::optional<std::string> find_entry(const std::string& folder, std::string_view name, int* error = nullptr);

// The entry that differs from the name only in case, of several the first in byte order. `error`, where it is
// not null, becomes 0 or, when the folder could not be read to its end, the error number.
std::optional<std::string> find_entry_ignoring_case(const std::string& folder, std::string_view name,
                                                    int* error = nullptr);

// What a new entry of the name is called on the host.
std::string new_entry(std::string_view name);

// Makes the host folder and every level above it that is missing, each known to the listings remembered.
// Gives 0 when the folder is there afterwards, else the error number.
int make_host_levels(const std::string& path);

// Stands around a change that the program makes to a host folder, from before the change until after it.
class Folder_change {
public:
    explicit Folder_change(const std::string& folder);
    Folder_change(const Folder_change&) = delete;
    Folder_change& operator=(const Folder_change&) = delete;
    // Takes the folder's new time over.
    ~Folder_change();

    void added(const std::string& entry);
    void removed(const std::string& entry);

private:
    std::string folder_;
    dev_t device_ = 0;
    ino_t number_ = 0;
    bool remembered_ = false; // a true listing of the folder was there before the change
};

} // namespace platform
