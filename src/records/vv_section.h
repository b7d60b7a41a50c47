// One section of a record in memory: a name, and the entries that stand under it.
#pragma once

#include "foundation/association_list.h"
#include "records/vv_entry.h"

#include <memory>
#include <string_view>
#include <typeinfo>

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

    // A section whose record is declared anew keeps the entries that it has, as far as they are declared
    // again in the order in which they stand.
    void begin_declaring_anew();
    bool is_declared_anew() const { return is_declared_anew_; }
    // The next entry with the key, when it is of the type: its declaration takes its place. Null when there
    // is none: this and all further entries are then declared as in a new section.
    VV_base_entry* declare_anew(std::string_view key, const std::type_info& type);
    // Returns what the file held and is not declared again, as a section of the same name, or null; keys that
    // the record does not know stay where nothing else is left.
    std::unique_ptr<VV_section> end_declaring_anew();

    const std::string label;
    bool encountered = false; // whether the reader met a header of this section
    Alias_association_list entries;

private:
    const Unidirectional_list::Node* first_undeclared() const {
        return declared_ == nullptr ? entries.head() : declared_->next;
    }
    // Takes out the entry behind those that are declared again.
    void pass_over();

    Unidirectional_list::Node* declared_ = nullptr; // the last one that is declared again
    bool is_declared_anew_ = false;
    std::unique_ptr<VV_section> passed_over_; // what the file held of them
};

} // namespace TESK
