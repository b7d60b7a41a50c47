#include "names/file_name.h"

namespace TESK {

File_name::File_name(const Ustring& name, const char* ext) {
    Directory_entry_name::set(static_cast<const std::string&>(name));
    if (ext != nullptr)
        Directory_entry_name::set_ext(ext);
}

File_name::File_name(const char* name, const char* ext) {
    Directory_entry_name::set(name);
    if (ext != nullptr)
        Directory_entry_name::set_ext((std::string(".") + ext).c_str());
}

void File_name::set_ext(const char* ext) {
    if (ext != nullptr) {
        Directory_entry_name::set_ext(ext);
        return;
    }
    Ustring usual;
    get_default_extension(usual);
    set(substr(0, ext_start()) + "." + usual);
}

Ustring& File_name::get_default_extension(Ustring& out) const {
    return out = "*";
}

Directory_entry_name& File_name::compose(const char* drive, const char* path, const char* name,
                                         const char* ext) {
    return set(std::string(drive) + path + name + ext);
}

Directory_entry_name& File_name::set(const Ustring& name) {
    return Directory_entry_name::set(static_cast<const std::string&>(name));
}

Directory_entry_name& File_name::assign(const char* name) {
    return set(Ustring(name));
}

} // namespace TESK
