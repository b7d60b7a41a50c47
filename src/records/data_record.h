// The base of every record that is kept in a store: an object with ordinary fields that declares in
// expect_structure() which section and key each field lives in. The declaration is a tree of sections and
// entries that point at the fields; it exists only while the record is read or written.
#pragma once

#include "foundation/association_list.h"
#include "foundation/enumeration.h"
#include "records/vv_enumerated_section.h"
#include "records/vv_section.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

class Labeled_enum;

namespace TESK {

class Date;
class File_name;
class Units_clad;
class Valid_float32;
class Valid_int16;
class Valid_number;

class Data_record {
public:
    // The name of the section for the entries that stand before any header.
    explicit Data_record(const std::string& primary_section);
    virtual ~Data_record();
    Data_record(const Data_record&) = delete;
    Data_record& operator=(const Data_record&) = delete;

    // Drops the sections and entries, their aliases, the current section, and what reading has left unread.
    virtual void delete_structure();
    virtual bool is_structure_defined() const { return structure_defined_; }

    // Declares the structure. A derived record calls its base first, and then declares its own; an entry that
    // is declared already stays as it is.
    virtual void expect_structure(bool for_write);

    // What a store does before and after it fills the fields: the structure is declared where it is not, with
    // its own units, the primary section is current, and the record's own hooks are called. The structure is
    // kept only on demand.
    void begin_reading();
    void end_reading(bool keep_structure);

    // Declares the elements of every series for writing. The primary section is current afterwards.
    void declare_series();

    // Puts in place of the structure that a reading has kept the one that a save declares, with the elements
    // of every series. What the file held beyond it stays behind it, as it was read: entries that the record
    // does not know, and those in spellings that are declared only for reading. A record whose sections are
    // exchanged before they are saved needs this; for any other, get_preserve_unexpected() is enough.
    void redeclare_for_write();

    // Whether a save keeps what the old file holds and the record does not declare.
    virtual bool get_preserve_unexpected() const { return preserve_unexpected_; }
    virtual void set_preserve_unexpected(bool preserve) { preserve_unexpected_ = preserve; }

    // What a record does before and after it is read and written.
    virtual void preread() {}
    virtual void postread() {}
    virtual void prewrite() {}
    virtual void postwrite() {}

    virtual std::string get_primary_section_name() const { return primary_section_; }
    virtual bool get_record_flag() const { return record_flag_; }
    virtual void set_record_flag(bool flag) { record_flag_ = flag; }
    // The place of the record in a store of many, from 1; 0 in a file, and for a record not yet stored.
    virtual std::int32_t get_position() const { return position_; }
    virtual void set_position(std::int32_t position) { position_ = position; }

    // Finds the section, by its name or an alias, or appends a new one, and makes it current. An empty name
    // stays with the current section. Never null but for an empty name with no section current.
    VV_section* set_current_section(std::string_view name);
    // The current section; without one, the primary section, made when it is missing.
    VV_section* get_current_section();

    // The current section becomes the primary one, which is made when it is missing.
    void make_primary_section_current();
    // The section is one of the record's.
    void make_section_current(VV_section& section);
    // Appends a section of this name, whatever stands in the record, and makes it current.
    VV_section* append_section(std::string_view name);

    // Lets a search for the old key in the current section find the entry with the actual key.
    void set_entry_alias(const char* actual_key, const char* old_key);

    // Each of these declares one entry in the current section, bound to a field that outlives the structure,
    // and returns it. A key that the section has already, under this name or an alias, is returned as it is.
    // The annotations stand behind the value in the file; null for none.
    VV_base_entry* expect_string(const char* key, Ustring& field, std::uint16_t max_strlen,
                                 const char* annotation_1 = nullptr, const char* annotation_2 = nullptr);
    VV_base_entry* expect_file_name(const char* key, File_name& field, std::uint16_t max_strlen,
                                    const char* annotation_1 = nullptr, const char* annotation_2 = nullptr);
    VV_base_entry* expect_int16(const char* key, std::int16_t& field, const char* annotation_1 = nullptr,
                                const char* annotation_2 = nullptr);
    VV_base_entry* expect_int32(const char* key, std::int32_t& field, const char* annotation_1 = nullptr,
                                const char* annotation_2 = nullptr);
    VV_base_entry* expect_uint8(const char* key, std::uint8_t& field, std::uint8_t radix,
                                const char* annotation_1 = nullptr, const char* annotation_2 = nullptr);
    VV_base_entry* expect_uint32(const char* key, std::uint32_t& field, std::uint8_t radix,
                                 const char* annotation_1 = nullptr, const char* annotation_2 = nullptr);
    VV_base_entry* expect_float32(const char* key, float& field, const char* annotation_1 = nullptr,
                                  const char* annotation_2 = nullptr);
    VV_base_entry* expect_float64(const char* key, double& field, const char* annotation_1 = nullptr,
                                  const char* annotation_2 = nullptr);
    VV_base_entry* expect_bool(const char* key, bool& field, std::uint8_t form = usual_bool_form,
                               const char* annotation_1 = nullptr, const char* annotation_2 = nullptr);
    VV_base_entry* expect_date(const char* key, Date& field, bool form = false,
                               const char* annotation_1 = nullptr, const char* annotation_2 = nullptr);
    VV_base_entry* expect_enum(const char* key, Labeled_enum& field, const char* annotation_1 = nullptr,
                               const char* annotation_2 = nullptr);
    VV_base_entry* expect_units(const char* key, Units_clad& field);

    // The value of the object, with its captions behind it, and its units where a user may choose them.
    VV_base_entry* expect_valid_int16(Valid_int16& valid);
    VV_base_entry* expect_valid_float32(Valid_float32& valid);

    // Declares the series and, in the current section, its count under the key label:count; unless
    // `no_alias`, the old key label_count leads to it too. A series that is declared already stays as it is.
    void expect_enumerated_section(std::unique_ptr<VV_enumerated_section> series, bool no_alias);

    // One entry for each element from `first` to `last`, both included; `array` is where index 0 would stand.
    // The keys are the bare indexes in a section of that name, which becomes current; or, in the current
    // section, the name, "_" and the index.
    void expect_float32_array(const char* name, float* array, int first, int last, bool in_current_section);
    void expect_uint32_array(const char* name, std::uint32_t* array, int first, int last, std::uint8_t radix,
                             bool in_current_section);
    // The same, with an entry for the unit before the elements: "units", or the name and "_units".
    void expect_float32_array_with_units_code(const char* name, std::uint32_t units_code, float* array,
                                              int first, int last, bool in_current_section);
    void expect_float32_array_with_units_label(const char* name, const char* units_label, float* array,
                                               int first, int last, bool in_current_section);

    // Lets the entries of the declared structure know what guards their values, as far as the declaration
    // itself has not: for who shows or judges values, which reading and writing do not.
    virtual void attach_guards() {}

    // Is called in reading for each value that an entry gets, with the text that stands in the file, behind
    // the entry's having it: of a key that stands there twice the later one counts. Null, as it is at first,
    // for nobody.
    using Value_listener = std::function<void(const VV_section&, VV_base_entry&, const Ustring&)>;
    void set_value_listener(Value_listener listener) { value_listener_ = std::move(listener); }
    void tell_value(const VV_section& section, VV_base_entry& entry, const Ustring& text) const {
        if (value_listener_)
            value_listener_(section, entry, text);
    }

    // The sections, in order.
    Items_of<VV_section> all_sections() const { return Items_of<VV_section>(sections); }
    // What they are in a file, and behind them what reading has left unread.
    std::string text_of_sections() const;

    // The end of the file that was read, from the empty lines on that end a reading, when there is text
    // behind them; otherwise empty. It belongs to the structure.
    void set_unread(std::string_view text) { unread_ = text; }

    // The full name of the file that the record was last read from or written to; empty for none.
    const std::string& get_loaded_from() const { return loaded_from_; }
    void set_loaded_from(const std::string& file_name) { loaded_from_ = file_name; }

    Alias_association_list sections;            // of VV_section
    Alias_association_list enumerated_sections; // of VV_enumerated_section

    // The units of arrays. They outlive the structure, as fields do: a unit that was read is written again.
    Association_list units_labels;
    Enumeration_list units_codes;

private:
    class Units_label_item;
    class Units_code_item;

    template <class Entry, class... Arguments>
    VV_base_entry* expect(std::string_view key, Arguments&&... arguments);
    void expect_units_shown(Valid_number& valid);
    // Appends the entries that the file held in the section and that are not declared.
    void keep_undeclared(const VV_section& read);
    // The unit that stands, or will stand, under the key of the current section; kept for the record's life.
    Units_label_item& units_label_item(const std::string& key, const char* label);
    Units_code_item& units_code_item(const std::string& key, std::uint32_t code);
    // What tells a key of the current section from any other of the record.
    std::string place_of(const std::string& key);
    // The section that an array of this name stands in becomes current. Returns what stands before the key of
    // an element.
    std::string begin_array(const char* name, bool in_current_section);
    // Calls `expect_element` with the key of each element, the prefix and its index, and the index.
    template <class Expect>
    void expect_elements(std::string prefix, int first, int last, Expect expect_element);
    void expect_float32_elements(std::string prefix, float* array, int first, int last);

    // The section with the name, an alias of it, or an element's section that now declares itself; or null.
    VV_section* find_section(std::string_view name);

    std::string primary_section_;
    VV_section* current_section_ = nullptr;
    std::int32_t position_ = 0;
    bool record_flag_ = false;
    bool structure_defined_ = false;
    bool preserve_unexpected_ = false;
    std::string loaded_from_;
    std::string unread_;
    Value_listener value_listener_;
    // While the record is declared anew: the sections that were read and are not declared again yet.
    Alias_association_list* declaring_anew_ = nullptr;
};

} // namespace TESK
