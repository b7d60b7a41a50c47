#include "names/file_name.h"

#include "names/name_texts.h"

namespace TESK {

File_name::File_name() {
    decompose();
}

File_name::File_name(const char* name, const char* ext) {
    set(name);
    if (ext != nullptr)
        set_ext((std::string(".") + ext).c_str());
}

File_name::File_name(const Ustring& name) {
    set(name);
}

File_name::File_name(const Ustring& name, const char* ext) {
    set(name);
    if (ext != nullptr)
        set_ext(ext);
}

void File_name::set_ext(const char* ext) {
    if (ext != nullptr) {
        Directory_entry_name::set_ext(ext);
        return;
    }
    std::string extension;
    get_default_extension(extension);
    Directory_entry_name::set_ext(extension.insert(0, 1, '.').c_str());
}

std::string& File_name::get_default_extension(std::string& out) const {
    return out.assign(1, '*');
}

void File_name::compose(const char* drive, const char* path, const char* name, const char* ext) {
    std::string text;
    for (const char* part : {drive, path, name, ext})
        text += text_or_empty(part);
    set(text);
}

Directory_entry_name& File_name::assign(const char* name) {
    return set(name);
}

} // namespace TESK
