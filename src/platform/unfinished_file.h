// A file or folder that is being made, and that no list of the program shows until it is whole; for the use
// of this folder alone. While its maker lives it is held by a lock, so that others can tell what a killed
// program left behind.
#pragma once

#include "platform/copy_undo.h"
#include "platform/file_steps.h"
#include "platform/host_handle.h"

#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

namespace platform {

// A file: without any name where the file system can have that, otherwise under a name of unfinished saves in
// the folder in which it is to be. Gone when it has got no other name.
class Unfinished_file {
public:
    explicit Unfinished_file(std::string folder) : folder_(std::move(folder)) {}
    Unfinished_file(const Unfinished_file&) = delete;
    Unfinished_file& operator=(const Unfinished_file&) = delete;
    ~Unfinished_file();

    // Each gives 0 or an error number. Without `may_lack_name` it has a name from the beginning.
    int create(mode_t mode, bool may_lack_name);
    int fill(const Content& content);
    int take_over_permissions(const struct stat& old) { return platform::take_over_permissions(file_, old); }
    // Brings it to the disk or, without `to_disk`, only has the file system say whether it has room for it.
    int settle(bool to_disk);
    // Gives it its name in the folder: EEXIST, where the file system can tell, when the name is taken.
    int become_new(const std::string& path);
    // The same in place of the file that has the name.
    int replace(const std::string& path);

private:
    int create_with_name(mode_t mode);

    std::string folder_;
    std::string beside_; // its path among the unfinished saves, "" while it has none
    Host_handle file_;
};

// A folder in which others are made. Gone, with all that is still in it, at the end of life.
class Unfinished_folder {
public:
    Unfinished_folder() = default;
    Unfinished_folder(const Unfinished_folder&) = delete;
    Unfinished_folder& operator=(const Unfinished_folder&) = delete;
    ~Unfinished_folder();

    // Makes it in the folder. Gives 0 or an error number.
    int create(const std::string& folder);
    const std::string& path() const { return path_; }
    // Leaves it where it is.
    void forget() { path_.clear(); }

private:
    std::string path_;
    Host_handle handle_;
};

// Removes from the folder what killed programs left there: unfinished saves that nobody holds. Copies into
// the folder are taken back before; what cannot be put back is left for the next time. Looks at most every
// few seconds.
void clear_unfinished_saves(const std::string& folder);
// The same at once. Gives the copies that were taken back, or should have been.
std::vector<Copy_undo> take_back_unfinished_copies(const std::string& folder);

} // namespace platform
