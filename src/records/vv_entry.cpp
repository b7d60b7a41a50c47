#include "records/vv_entry.h"

#include "records/line_text.h"

#include <cstring>

namespace TESK {

std::uint8_t Field_format::decimals() const {
    const char* point = picture == nullptr ? nullptr : std::strchr(picture, '.');
    return point == nullptr ? 0 : static_cast<std::uint8_t>(std::strlen(point + 1));
}

VV_base_entry::VV_base_entry(std::string_view entry_key, std::uint16_t longest_value,
                             const char* first_annotation, const char* second_annotation)
    : key(entry_key), annotation_1(first_annotation), annotation_2(second_annotation),
      max_strlen(longest_value) {}

std::string& VV_base_entry::label_cstr(std::string& buffer) const {
    buffer.clear();
    append_line(buffer);
    buffer.resize(buffer.size() - std::strlen(line_end));
    return buffer;
}

void VV_base_entry::append_line(std::string& text) const {
    const std::size_t start = text.size();
    text += key;
    text += '=';
    append_value(text);
    for (const char* annotation : {annotation_1, annotation_2}) {
        if (annotation != nullptr && *annotation != 0) {
            text += ' ';
            text += annotation;
        }
    }
    blank_line_breaks(text, start);
    text += line_end;
}

std::ostream& VV_base_entry::write(std::ostream& out) const {
    std::string line;
    append_line(line);
    return out << line;
}

std::string& VV_base_entry::get_value(std::string& buffer) const {
    buffer.clear();
    append_value(buffer);
    return buffer;
}

VV_unexpected_entry::VV_unexpected_entry(std::string_view entry_key, std::string_view text)
    : VV_base_entry(entry_key, 0, nullptr, nullptr), value(text) {}

bool VV_unexpected_entry::set_value(const char* text) {
    value.assign(text);
    return true;
}

bool VV_unexpected_entry::set_value(const Ustring& text) {
    value.assign(text);
    return true;
}

} // namespace TESK
