#include "names/directory_name.h"

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

void Directory_name::append_to(const char* name, Directory_entry_name& target, bool forward_slash) const {
    std::string text = *this;
    if (!text.empty() && text.back() != '\\' && text.back() != '/')
        text += forward_slash ? '/' : '\\';
    target.set(text + name);
}

void Directory_name::split_first(Directory_name& first, char delimiter) {
    const std::size_t at = std::string::find(delimiter);
    const std::size_t end = at == npos ? size() : at + 1;
    first.set(substr(0, end));
    set(substr(end));
}

} // namespace TESK
