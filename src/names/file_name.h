// The name of a file.
#pragma once

#include "names/directory_entry_name.h"

namespace TESK {

class File_name : public Directory_entry_name {
public:
    File_name();
    // A null name counts as the empty text. `ext`, when it is not null, replaces the extension and is written
    // without a point.
    explicit File_name(const char* name, const char* ext = nullptr);
    explicit File_name(const Ustring& name);
    // Here `ext` may have its point.
    File_name(const Ustring& name, const char* ext);
    File_name(const File_name&) = default;

    File_name& operator=(const File_name&) = default;
    using Directory_entry_name::operator=;

    // Null stands for the extension that names of this kind have by default.
    void set_ext(const char* ext) override;

    // The extension, without a point, of a name that is given none: "*" unless the kind of name knows better.
    // Returns `out`.
    virtual std::string& get_default_extension(std::string& out) const;

    // Sets the text to the four parts, joined as they are; null parts count as empty.
    virtual void compose(const char* drive, const char* path, const char* name, const char* ext);

    // As set().
    virtual Directory_entry_name& assign(const char* name);
};

} // namespace TESK
