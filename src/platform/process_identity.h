// Which process it is, for other processes and later ones, on this machine and others that share a disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

struct Process_identity {
    std::string host; // the machine's name
    std::string boot; // of that machine's system, since it started
    int number = 0;
    std::string started; // when, in ticks of that system: a number is given to many processes in turn

    bool operator==(const Process_identity&) const = default;
};

const Process_identity& own_identity();

// Four words with a blank between them, and back; nothing for a text that is none.
std::string text_of(const Process_identity& process);
std::optional<Process_identity> identity_from_text(std::string_view text);

enum class Process_presence {
    alive,
    gone,
    elsewhere // on another machine, which cannot be asked
};
Process_presence presence_of(const Process_identity& process);

// Asks the process of this machine to end, by the polite signal.
enum class End_request {
    made,
    refused, // it is another user's
    not_here // it is not alive on this machine
};
End_request ask_to_end(const Process_identity& process);

} // namespace platform
