// Any bytes are the name of a file: its parts make up the whole, and what is set is got back.
#include "names/directory_name.h"
#include "names/file_name.h"
#include "platform/entry_names.h"
#include "platform/listing.h"
#include "require.h"

namespace {

void check_parts(const std::string& text) {
    TESK::File_name file{TESK::Ustring(text)};
    TESK::Directory_name path("");
    file.get_path(path, false);
    require(std::string(path) + std::string(file.get_name(true)) == text);
    std::string part;
    file.get_ext(part);
    require(file.has_ext(part.c_str()) || part.empty());

    // A name that stands for no file keeps its extension; one that begins with a point has none of its own.
    if (!text.starts_with('<')) {
        file.set_ext("tvn");
        require(file.has_ext("tvn") || file.get_name(true).starts_with('.') || file.starts_with('.'));
        file.set_ext("");
        file.decompose();
    }
    file.set(text);
    file.set_drive("q");
    require(file.is_qualified(true));
    file.set_drive("");
    file.set(text);
    file.set_name("name");
    file.set_name_ext("name.ext");
    require(file.get_name(true) == "name.ext");
    TESK::Directory_name first("");
    TESK::Directory_name rest{text};
    rest.split_first(first, '\\');
    require(std::string(first) + std::string(rest) == text);
    TESK::Directory_name(TESK::Directory_name(text), true).is_qualified(false);
}

} // namespace

void try_input(const std::string& whole) {
    const std::string text = whole.substr(0, whole.find('\n'));
    const std::string mask = text.size() < whole.size() ? whole.substr(text.size() + 1) : "*.*";
    if (text.find('\0') == std::string::npos)
        check_parts(text);
    platform::matches_mask(text, mask);
    require(platform::matches_mask(text, "*") && platform::matches_mask(text, "*.*"));
    if (text.find_first_of("*?") == std::string::npos)
        require(platform::matches_mask(text, text));
    // A new entry is named back as it was called.
    platform::new_entry(text);
    platform::is_unfinished_save(text);
}
