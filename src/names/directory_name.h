// The name of a directory, and the ways of putting names into it and taking it apart.
#pragma once

#include "names/directory_entry_name.h"

namespace TESK {

class Directory_name : public Directory_entry_name {
public:
    // The current directory.
    Directory_name();
    // A null name is the empty text.
    Directory_name(const char* name);
    Directory_name(const std::string& name);
    Directory_name(const Directory_name&) = default;
    // Without its extension, when `drop_extension`.
    Directory_name(const Directory_name& source, bool drop_extension);
    Directory_name& operator=(const Directory_name&) = default;
    using Directory_entry_name::operator=;

    // Makes `target` the name in this directory, with one separator between them. An empty directory leaves
    // the name alone.
    void append_to(const char* name, Directory_entry_name& target, bool forward_slash) const;

    // Moves the text up to and with the first delimiter into `first`; without one, the whole text.
    void split_first(Directory_name& first, char delimiter);
};

} // namespace TESK
