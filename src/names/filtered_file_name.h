// A file name that knows what kinds of file it may be: their extensions, descriptions and dialog filters.
#pragma once

#include "foundation/association_list.h"
#include "names/smart_file_name.h"

namespace TESK {

class File_type_description : public Association {
public:
    // The extension without its point; the filter is one mask or several with "|" between them.
    File_type_description(const char* type_extension, const char* type_description, const char* type_filter)
        : extension(type_extension), description(type_description), filter(type_filter) {}

    const char* get_key() const override { return extension.c_str(); }
    // As a dialog wants it: "Tilverra Crop(*.crp)|*.crp".
    std::string& label_to(std::string& buffer) const override;

    Ustring extension;
    Ustring description;
    Ustring filter;
};

class Filtered_file_name : public Smart_file_name {
public:
    // A name of a file that does not exist takes on the extension; one that begins with "<", which is no
    // file, and an empty one stay as they are. Any argument may be null: no extension is that of the name, no
    // filter is "*." and the extension. Without description and filter there is no kind of file.
    explicit Filtered_file_name(const char* name = nullptr, const char* extension = nullptr,
                                const char* description = nullptr, const char* filter = nullptr);
    // With copies of the kinds of file.
    Filtered_file_name(const Filtered_file_name& source);
    Filtered_file_name& operator=(const Filtered_file_name& source);
    using Smart_file_name::operator=;

    void add_file_type(const char* extension, const char* description, const char* filter);

    // Of the first kind of file; "*" when there is none.
    Ustring& get_default_extension(Ustring& out) const override;
    Ustring& get_default_description(Ustring& out) const;
    Ustring& get_default_filter(Ustring& out) const;

    // The dialog texts of all kinds, run together.
    Ustring& get_dialog_filter(Ustring& out) const;

    Association_list file_types; // of File_type_description
};

} // namespace TESK
