#include "names/filtered_file_name.h"

namespace TESK {

namespace {

const File_type_description* first_type(const Association_list& types) {
    return static_cast<const File_type_description*>(types.get_at(0));
}

} // namespace

std::string& File_type_description::label_to(std::string& buffer) const {
    return buffer = description + "(*." + extension + ")|" + filter;
}

Filtered_file_name::Filtered_file_name(const char* name, const char* extension, const char* description,
                                       const char* filter)
    : Smart_file_name(name) {
    std::string ext = extension == nullptr ? "" : extension;
    if (extension == nullptr)
        ext = get_ext().substr(get_ext().empty() ? 0 : 1);
    if (!empty() && !starts_with('<') && !has_ext(ext.c_str()) && !exists())
        set_ext(ext.c_str());
    if (description != nullptr || filter != nullptr)
        add_file_type(ext.c_str(), description == nullptr ? "" : description,
                      filter == nullptr ? ("*." + ext).c_str() : filter);
}

Filtered_file_name::Filtered_file_name(const Filtered_file_name& source) : Smart_file_name(source) {
    for (const auto& type : Items_of<File_type_description>(source.file_types))
        file_types.append(new File_type_description(type));
}

Filtered_file_name& Filtered_file_name::operator=(const Filtered_file_name& source) {
    if (this == &source)
        return *this;
    Smart_file_name::operator=(source);
    file_types.delete_all(Item_filter::all);
    for (const auto& type : Items_of<File_type_description>(source.file_types))
        file_types.append(new File_type_description(type));
    return *this;
}

void Filtered_file_name::add_file_type(const char* extension, const char* description, const char* filter) {
    file_types.append(new File_type_description(extension, description, filter));
}

Ustring& Filtered_file_name::get_default_extension(Ustring& out) const {
    const File_type_description* type = first_type(file_types);
    return out = type == nullptr ? Ustring("*") : type->extension;
}

Ustring& Filtered_file_name::get_default_description(Ustring& out) const {
    const File_type_description* type = first_type(file_types);
    return out = type == nullptr ? Ustring("*") : type->description;
}

Ustring& Filtered_file_name::get_default_filter(Ustring& out) const {
    const File_type_description* type = first_type(file_types);
    return out = type == nullptr ? Ustring("*") : type->filter;
}

Ustring& Filtered_file_name::get_dialog_filter(Ustring& out) const {
    out.clear();
    std::string text;
    for (const auto& type : Items_of<File_type_description>(file_types))
        out += type.label_to(text);
    return out;
}

} // namespace TESK
