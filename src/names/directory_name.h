// The name of a folder.
#pragma once

#include "names/directory_entry_name.h"

namespace TESK {

class Directory_name : public Directory_entry_name {
public:
    // The current directory of the process.
    Directory_name();
    // A null name counts as the empty text.
    explicit Directory_name(const char* name);
    explicit Directory_name(const std::string& name);
    // With `drop_extension`, less the extension.
    Directory_name(const Directory_name& source, bool drop_extension);
    Directory_name(const Directory_name&) = default;

    Directory_name& operator=(const Directory_name&) = default;
    using Directory_entry_name::operator=;

    // Sets `target`, which may be this name too, to `name` in this folder: with a backslash between, or a
    // forward slash, unless the text of the folder is empty or ends in one of the two. Returns `target`.
    Directory_entry_name& append_to(const char* name, Directory_entry_name& target,
                                    bool forward_slash = false) const;

    // Moves the text up to and including the first delimiter, or all of it without one, into `first`.
    void split_first(Directory_name& first, char delimiter);
};

} // namespace TESK
