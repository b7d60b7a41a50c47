// The name of a file.
#pragma once

#include "names/directory_entry_name.h"

namespace TESK {

class File_name : public Directory_entry_name {
public:
    File_name() = default;
    File_name(const File_name&) = default;
    // A null name is the empty text. A null extension leaves the name as it is; the one behind a plain text
    // is given without a point.
    File_name(const Ustring& name, const char* ext = nullptr);
    File_name(const char* name, const char* ext = nullptr);
    File_name& operator=(const File_name&) = default;
    using Directory_entry_name::operator=;
    using Directory_entry_name::set;

    // As for any name; null stands for the default extension.
    void set_ext(const char* ext) override;

    // The extension that files of this kind have, without its point: "*" where there is none.
    virtual Ustring& get_default_extension(Ustring& out) const;

    // The four parts run together, with nothing added.
    virtual Directory_entry_name& compose(const char* drive, const char* path, const char* name,
                                          const char* ext);
    virtual Directory_entry_name& set(const Ustring& name);
    virtual Directory_entry_name& assign(const char* name);
};

} // namespace TESK
