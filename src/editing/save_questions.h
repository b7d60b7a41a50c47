// What a user is asked when files are loaded and saved.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// What became of a save, for who must decide whether to go on.
enum class Save_outcome {
    saved,
    ignored, // the disk was not reached, and the user goes on all the same
    aborted  // not saved; what asked for the save is not to go on either
};

// Asks what is to become of a save that failed: saved stands for "try again". `cause` is said too, unless it
// is empty.
Save_outcome ask_after_failed_save(const std::string& cause = {});

// What is to become of a file that was changed here and by another program as well.
enum class Conflict_answer { overwrite, load, stay };
Conflict_answer ask_about_conflict(const std::string& file_name);

// Whether a file of that size is to be loaded, which takes a while.
bool may_load_large_file(const std::string& file_name, std::uint64_t bytes);

// Whether the file may be replaced.
bool may_replace_file(const std::string& file_name);
// Whether all these files may be.
bool may_replace_files(const std::vector<std::string>& file_names);

// Where a save of the file was interrupted before it was done, offers what the file held before it. Whatever
// is answered, the file can be loaded afterwards.
void offer_interrupted_save(const std::string& file_name);

// Where copying into the folder was interrupted before it was done, undoes it and tells the user.
void undo_interrupted_copy(const std::string& folder);

// What the user is told before the names of such files.
inline constexpr const char* not_put_back = "These files were replaced, and could not be put back:";

// The names in a few lines, with the number of those that are left out.
std::string some_of(const std::vector<std::string>& names);
