#include "records/vv_section.h"

#include "records/line_text.h"

namespace TESK {

std::string& VV_section::label_cstr(std::string& buffer) const {
    buffer = "[" + label + "]";
    blank_line_breaks(buffer, 0);
    return buffer;
}

void VV_section::append_text(std::string& text) const {
    if (entries.is_empty())
        return;
    std::string header;
    text += label_cstr(header);
    text += line_end;
    for (const VV_base_entry& entry : all_entries())
        entry.append_line(text);
}

std::ostream& VV_section::write(std::ostream& out) const {
    std::string text;
    append_text(text);
    return out << text;
}

void VV_section::store(std::string_view key, const Ustring& value) {
    VV_base_entry* entry = find_entry(key);
    if (entry == nullptr) {
        entry = new VV_unexpected_entry(key, value);
        entries.append(entry);
    } else {
        entry->set_value(value);
    }
    entry->encountered = true;
}

VV_base_entry* VV_section::find_entry(std::string_view key) const {
    return static_cast<VV_base_entry*>(entries.find_exact(key));
}

} // namespace TESK
