// File names that know which types of file they are for: the extension, the description and the filter that
// the file dialogs show.
#pragma once

#include "foundation/association_list.h"
#include "names/smart_file_name.h"

namespace TESK {

class File_type_description : public Association {
public:
    Ustring extension; // without the point; the key
    Ustring description;
    Ustring filter; // one or several masks, with "|" between them

    // Null counts as the empty text.
    File_type_description(const char* new_extension, const char* new_description, const char* new_filter);
    File_type_description(const File_type_description&) = default;

    // The text for the dialogs: "Tilverra Crop(*.crp)|*.crp".
    std::string& label_to(std::string& buffer) const override;
    const char* get_key() const override { return extension.c_str(); }
};

class Filtered_file_name : public Smart_file_name {
public:
    // A name of a file that is not there gets the extension; an empty one, and one that begins with "<", stay
    // as they are. Without an `extension` (null) it is that of the name. With a
    // `description` or a `filter` the name has a file type, whose filter is by default "*." and the extension
    // and whose description is empty by default.
    explicit Filtered_file_name(const char* name, const char* extension = nullptr,
                                const char* description = nullptr, const char* filter = nullptr);
    // With the types of the other name, and without a look at the files.
    Filtered_file_name(const Filtered_file_name& source);

    // Takes the types of the other name too. Assigning any other text keeps the types.
    Filtered_file_name& operator=(const Filtered_file_name& source);
    using Smart_file_name::operator=;

    void add_file_type(const char* extension, const char* description, const char* filter);

    // Each gives a field of the first file type, or "*" without one, and returns `out`.
    std::string& get_default_extension(std::string& out) const override;
    std::string& get_default_description(std::string& out) const;
    std::string& get_default_filter(std::string& out) const;

    // The dialog texts of all file types, run together. Returns `out`.
    std::string& get_dialog_filter(std::string& out) const;

private:
    void copy_file_types(const Filtered_file_name& source);
    std::string& get_default(const Ustring File_type_description::*field, std::string& out) const;

    Association_list file_types;
};

} // namespace TESK
