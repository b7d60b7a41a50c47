// Names of the suite to host paths and back: the one place where the two meet. A name has backslash
// separators, a drive letter and one byte a character in code page 1252; case does not count when it is
// looked up. Nothing above this folder handles a host path.
//
// A drive is a folder. The drives are the symbolic links named "c:", "z:" and so on in the folder that the
// environment variable TVS_DRIVES names. Without it there are two: "z:" is the host's root, and "c:" is the
// folder "tilverra/drive_c" in the user's data directory, made when it is first needed.
//
// The bytes of one entry:
// - A host name that is UTF-8 of characters the code page has is named by them. Any other host name is named
//   by its own bytes, so that every entry has a name.
// - A name therefore means the entry whose UTF-8 it is; where there is none, the entry with the very bytes.
// - Where a folder holds an entry of the very bytes and another that is named by the same bytes, the latter
//   keeps the name (it is the one that records mean), and the former is named as if its bytes had been put
//   into UTF-8 once more, as often as it takes to be alone with its name. So each entry has one name that
//   leads back to it.
// - A new entry is written as UTF-8, unless the name itself is UTF-8 of characters that the code page lacks:
//   that can only come from a host name, and is written as it stands.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// The absolute host path of a name, without a final separator. Forward slashes separate too; "." and ".." are
// worked out in the name itself, and ".." does not leave the drive. A name without a drive is taken from the
// current directory; one that begins with a separator is on the drive of the current directory or, where that
// is z:, on c:. "c:x" is taken from the current directory when that is on c:, otherwise from the root of c:,
// and "c:" alone is the root. Each component is taken as it stands when it exists, else as the one entry that
// differs only in case, of several the first in byte order; what exists in no spelling is what a new file
// gets.
//
// Gives "" for what no host file can be called: an empty name, a NUL byte, a drive that is not there, a colon
// in a component that does not exist. Every operation of this folder answers as if such a file did not exist.
//
// `listing_error`, where it is not null, becomes 0 or the error number with which a folder could not be
// listed to its end. Whatever the path then is, the name may stand there in another spelling: nobody may take
// it for absent, nor make it.
std::string host_path(std::string_view name, int* listing_error = nullptr);

// The name of a host path, taken as it is given: symbolic links stay unresolved, but for one that ".." steps
// out of. A relative path is taken from the current directory. The drive whose root is the longest head of
// the path wins; its letter is written in upper case. Gives "" when no drive holds the path or when a
// component holds a backslash. Whether anything exists at the path does not matter.
std::string name_from_host_path(std::string_view path);

// Whether what a command line calls a file is a name already: it has a backslash or a drive.
bool is_suite_name(std::string_view argument);
// The name of a file that a command line calls by a name or by a path of the host. A name stays as it stands.
std::string name_of_argument(const std::string& argument);

// The name with its drive and all directories, as host_path() understands it, but in the case and spelling in
// which it is given: "..\x" in "C:\a\b" gives "C:\a\x". "" for a name that host_path() could not place
// either, except that the drive need not exist.
std::string full_name(std::string_view name);

// The drive that the name begins with, such as "C:", where there is none of that letter; else "".
std::string missing_drive(std::string_view name);

// The host folder that holds the drives as links, absolute; "" when the two default drives are in use.
std::string drives_folder();

// Whether the name is the root of a drive, or a folder that holds one, by whatever drive it is named: what
// must never be deleted.
bool holds_drive_root(std::string_view name);

// For tests and for a process that looks after several sets of drives: while one lives, the drives are the
// links in the given host folder, for this process and for those that it starts. Afterwards the drives are
// again what they were, and the process is back in the current directory that it had.
class Drives_guard {
public:
    explicit Drives_guard(const std::string& host_folder);
    Drives_guard(const Drives_guard&) = delete;
    Drives_guard& operator=(const Drives_guard&) = delete;
    ~Drives_guard();

private:
    bool was_set_ = false;
    std::string old_folder_;
    int old_directory_ = -1;
};

} // namespace platform
