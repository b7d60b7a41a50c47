// What came of an operation on many files, and how it tells of its progress.
#pragma once

#include "platform/write_result.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// Hears how many of the files have been dealt with, before each of them. False stops the operation: what was
// done until then stands. Empty for who does not care.
using Operation_progress = std::function<bool(std::size_t done, std::size_t total)>;

struct Not_done {
    std::string file;   // in code page 1252, as the operation was given it
    std::string reason; // a plain English sentence
};

struct Operation_outcome {
    std::size_t done = 0; // files dealt with as asked
    std::vector<Not_done> not_done;
    bool stopped = false;
    std::string refused; // why nothing was done at all, a plain English sentence; empty when it was begun

    bool ok() const { return refused.empty() && not_done.empty(); }
};

// The first ten of the files that failed, with the reasons, a line each; `told` puts names and reasons into
// the user's words, and none leaves them as they are.
std::string first_failures(const Operation_outcome& outcome,
                           const std::function<std::string(const std::string&)>& told = {});

// What was not done, in a few lines: why the operation was refused, or how many files failed, and the first
// of them. Empty when all went well.
std::string describe_failures(const Operation_outcome& outcome);

// Why the file is not worked on as it stands, in a sentence: its last save was interrupted, and what it held
// before lies aside. Empty for any other file, also one that is not there.
std::string told_interruption(const std::string& file_name);

// Takes those files out, and gives them with the reasons.
std::vector<Not_done> take_interrupted(std::vector<std::string>& file_names);

// Why what was listed of the folder is not all, in a sentence. Empty when it is, and where there is no
// folder.
std::string told_listing(const std::string& folder, const platform::Write_result& listed);

// Whether the operation goes on, with `done` of `total` files dealt with.
inline bool goes_on(const Operation_progress& progress, std::size_t done, std::size_t total) {
    return !progress || progress(done, total);
}
