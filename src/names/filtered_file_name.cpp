#include "names/filtered_file_name.h"

#include "names/name_texts.h"

namespace TESK {

File_type_description::File_type_description(const char* new_extension, const char* new_description,
                                             const char* new_filter)
    : extension(text_or_empty(new_extension)), description(text_or_empty(new_description)),
      filter(text_or_empty(new_filter)) {}

std::string& File_type_description::label_to(std::string& buffer) const {
    return buffer = description + "(*." + extension + ")|" + filter;
}

Filtered_file_name::Filtered_file_name(const char* name, const char* extension, const char* description,
                                       const char* filter)
    : Smart_file_name(name) {
    const std::string type = extension != nullptr ? extension : get_ext().substr(get_ext().empty() ? 0 : 1);
    // The extension alone is no name, and "<" stands for none. An extension that is there already stays as it
    // is spelt. Only what is left is worth a look at the disk.
    if (!empty() && !starts_with('<') && !has_ext(type.c_str()) && !exists())
        set_ext(type.c_str());
    if (description != nullptr || filter != nullptr)
        add_file_type(type.c_str(), description, filter == nullptr ? ("*." + type).c_str() : filter);
}

Filtered_file_name::Filtered_file_name(const Filtered_file_name& source) : Smart_file_name(source) {
    copy_file_types(source);
}

Filtered_file_name& Filtered_file_name::operator=(const Filtered_file_name& source) {
    if (this == &source)
        return *this;
    Smart_file_name::operator=(source);
    file_types.delete_all(Item_filter::all);
    copy_file_types(source);
    return *this;
}

void Filtered_file_name::add_file_type(const char* extension, const char* description, const char* filter) {
    file_types.append(new File_type_description(extension, description, filter));
}

std::string& Filtered_file_name::get_default_extension(std::string& out) const {
    return get_default(&File_type_description::extension, out);
}

std::string& Filtered_file_name::get_default_description(std::string& out) const {
    return get_default(&File_type_description::description, out);
}

std::string& Filtered_file_name::get_default_filter(std::string& out) const {
    return get_default(&File_type_description::filter, out);
}

std::string& Filtered_file_name::get_dialog_filter(std::string& out) const {
    out.clear();
    std::string label;
    for (const Item& type : Items_of<const Item>(file_types))
        out += type.label_to(label);
    return out;
}

void Filtered_file_name::copy_file_types(const Filtered_file_name& source) {
    for (const auto& type : Items_of<const File_type_description>(source.file_types))
        file_types.append(new File_type_description(type));
}

std::string& Filtered_file_name::get_default(const Ustring File_type_description::*field,
                                             std::string& out) const {
    const Item* first = file_types.get_at(0);
    return out = first == nullptr ? "*" : static_cast<const File_type_description*>(first)->*field;
}

} // namespace TESK
