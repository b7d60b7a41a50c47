// The STATSGO soil data of a state: which states there are, and how their archives come into a database.
#pragma once

#include "names/directory_name.h"
#include "operations/file_transfer_client.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

// The states as they are listed: a code of two letters, a blank and the name.
extern const std::array<const char*, 53> statsgo_states;

// What the user is to see while the states are installed; both are called when an archive is there.
struct Statsgo_progress {
    std::function<void()> before_first_is_opened;
    std::function<bool(int state)> installed; // answers whether to go on with the next
};

// Downloads the archive of each of the states (indexes of statsgo_states) into the folder, and opens it with
// what the user's desktop has for archives, without waiting for that. Ends with the first failure, and then
// leaves the connection open.
// The host that publishes the data is what the environment variable TVS_STATSGO_SERVER says, or one that only
// stands for such a host.
File_transfer_result install_statsgo_states(File_transfer_client& client, const TESK::Directory_name& folder,
                                            const std::vector<int>& states, const Statsgo_progress& progress);
