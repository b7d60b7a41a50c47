// One section of a record in memory: a name, and the entries that stand under it.
#pragma once

#include "foundation/association_list.h"
#include "records/vv_entry.h"

#include <string_view>

namespace TESK {

class VV_section : public Association, public Arena_object {
public:
    explicit VV_section(std::string_view name) : label(name) {}

    // "[", the name and "]". A line break in the name is a blank.
    std::string& label_cstr(std::string& buffer) const;
    std::string& label_to(std::string& buffer) const override { return label_cstr(buffer); }

    // The header and the entries, each with its line end; nothing for a section without entries.
    std::ostream& write(std::ostream& out) const override;
    void append_text(std::string& text) const;

    const char* get_key() const override { return label.c_str(); }
    std::string_view get_key_view() const override { return label; }
    bool is_key_case_sensitive() const override { return true; }

    // The entry with exactly this key, or the one that has replaced it; null when there is none.
    VV_base_entry* find_entry(std::string_view key) const;

    // Stores a text under a key: in the entry that is found for it, or in a new one that the record does not
    // know.
    void store(std::string_view key, const Ustring& value);

    // The entries, in order.
    Items_of<VV_base_entry> all_entries() const { return Items_of<VV_base_entry>(entries); }

    const std::string label;
    bool encountered = false; // whether the reader met a header of this section
    Alias_association_list entries;
};

} // namespace TESK
