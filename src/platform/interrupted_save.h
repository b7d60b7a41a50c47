// Saves into a file that could not be replaced (see file_writer.h) during which the program was killed: the
// file is damaged then, and its old contents lie aside.
#pragma once

#include "platform/write_result.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

struct Interrupted_save {
    std::string copy;  // the full name of the file that holds the old contents; "" when no drive reaches it
    std::string entry; // what tells it from others
};

// The save of the file that was interrupted, of several the first; nothing when there is none, when the file
// holds all the same what it is to hold or held before or has been replaced by another one, and while the
// save still goes on. A file that got another name since is found too, where the file system tells when a
// file was made. Cheap when nothing lies aside.
std::optional<Interrupted_save> interrupted_save(std::string_view name);

// Stands around work on many files: where nothing lies aside, that is looked for once, and not for each file.
// Saves of other programs that are interrupted meanwhile may be missed.
class Interruptions_view {
public:
    Interruptions_view();
    Interruptions_view(const Interruptions_view&) = delete;
    Interruptions_view& operator=(const Interruptions_view&) = delete;
    ~Interruptions_view();
};

// Gives the file its old contents back. When the result is not ok they still lie aside.
Write_result restore(std::string_view name, const Interrupted_save& save);

// Leaves the file as it is, and deletes the old contents.
void discard(const Interrupted_save& save);

} // namespace platform
