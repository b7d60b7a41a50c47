#include "names/directory_name.h"

#include "names/name_texts.h"
#include "platform/current_directory.h"

namespace TESK {

Directory_name::Directory_name() {
    set(platform::current_directory());
}

Directory_name::Directory_name(const char* name) {
    set(name);
}

Directory_name::Directory_name(const std::string& name) {
    set(name);
}

Directory_name::Directory_name(const Directory_name& source, bool drop_extension)
    : Directory_entry_name(source) {
    if (drop_extension)
        set_ext("");
}

Directory_entry_name& Directory_name::append_to(const char* name, Directory_entry_name& target,
                                                bool forward_slash) const {
    std::string text = *this;
    if (!text.empty() && text.back() != '\\' && text.back() != '/')
        text += forward_slash ? '/' : '\\';
    return target.set(text.append(text_or_empty(name)));
}

void Directory_name::split_first(Directory_name& first, char delimiter) {
    const std::string text = *this;
    std::string_view rest = text;
    const std::string piece(take_piece(rest, delimiter));
    set(std::string(rest));
    first.set(piece);
}

} // namespace TESK
