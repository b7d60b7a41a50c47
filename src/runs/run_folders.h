// The folders of run sets below a project's folder "Runs": one each, named after the time at which it was
// made (UTC), with what was asked, the journal, and what the runs have printed. Folders are full names
// without a final separator.
#pragma once

#include "platform/write_result.h"
#include "runs/run_set.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

struct Made_run_set {
    std::string folder; // "" when it could not be made
    platform::Write_result result;
};

// Makes the folder of a new set, and the folder of all sets above it when that is missing. Nothing is run.
Made_run_set make_run_set(const std::string& runs_folder, const Run_set& set);

// The folder that a set would get if it were made now.
std::string new_run_set_folder(const std::string& runs_folder);

// What was asked of the set in the folder; nothing when there is none, or it was never completely made.
std::optional<Run_set> read_run_set(const std::string& folder);
// What is to be said of a folder in which that finds none; a plain English sentence.
std::string unreadable_run_set(const std::string& folder);

// The folders of all sets, the newest first, those too of which this user may not read what was asked. Where
// the folder is there and cannot be read, `failure`, which may be null, says why.
std::vector<std::string> list_run_sets(const std::string& runs_folder,
                                       platform::Write_result* failure = nullptr);

// Why a set in the folder is not to be stopped or gone on with: it came here with a copied or moved project,
// and its runs are those of the folder that it names. "" when it is this project's own.
std::string reason_not_to_touch(const std::string& folder, const Run_set& set);

// Deletes the set with all that is known of it, into the trash unless `permanently`; the outputs of its
// scenarios stay. False when anything of it is left, and when it is being run, or its journal cannot tell.
bool delete_run_set(const std::string& folder, bool permanently);

// The file with what a run has printed; there is none for one that printed nothing.
std::string printed_file(const std::string& folder, std::size_t run);
