#include "records/data_record.h"

#include "foundation/numbers.h"
#include "records/typed_entries.h"
#include "records/validation.h"

#include <new>
#include <optional>
#include <typeinfo>
#include <utility>
#include <vector>

namespace TESK {

class Data_record::Units_label_item : public Association {
public:
    Units_label_item(std::string where, const char* label) : place(std::move(where)), text(label) {}
    const char* get_key() const override { return text.c_str(); }

    const std::string place;
    Ustring text;
};

namespace {

// A unit as a file spells it.
struct Unit_as_read {
    std::string text;
    std::uint32_t code = 0; // what it is read as
};

} // namespace

class Data_record::Units_code_item : public Enumeration {
public:
    Units_code_item(std::string where, std::uint32_t code) : place(std::move(where)), units(code) {}
    std::int32_t get_int32() const override { return static_cast<std::int32_t>(units.code); }

    const std::string place;
    Units_clad units;
    std::optional<Unit_as_read> as_read;
};

namespace {

// A unit that is written as it was read, unless it was changed: a file's own spelling of a unit, and a unit
// that no table holds, belong to the numbers beside it.
class Units_line_entry : public VV_units_entry {
public:
    Units_line_entry(std::string_view entry_key, Units_clad& field, std::optional<Unit_as_read>& as_read)
        : VV_units_entry(entry_key, field), as_read_(as_read) {}
    using VV_units_entry::set_value;
    bool set_value(const Ustring& text) override {
        VV_units_entry::set_value(text.c_str());
        as_read_ = {text, value.code};
        return true;
    }
    void append_value(std::string& text) const override {
        if (as_read_ && as_read_->code == value.code)
            text += as_read_->text;
        else
            VV_units_entry::append_value(text);
    }

private:
    std::optional<Unit_as_read>& as_read_;
};

// An entry of the type and the key, in the place of one that goes.
template <class Entry, class... Arguments>
VV_base_entry* made_anew(VV_base_entry& old, Arguments&&... arguments) noexcept {
    old.~VV_base_entry();
    return ::new (static_cast<void*>(&old)) Entry(std::forward<Arguments>(arguments)...);
}

} // namespace

Data_record::Data_record(const std::string& primary_section) : primary_section_(primary_section) {}

Data_record::~Data_record() {
    Data_record::delete_structure();
}

void Data_record::delete_structure() {
    sections.delete_all(Item_filter::all);
    sections.delete_aliases();
    enumerated_sections.delete_all(Item_filter::all);
    current_section_ = nullptr;
    structure_defined_ = false;
    unread_.clear();
}

void Data_record::expect_structure(bool) {
    structure_defined_ = true;
    make_primary_section_current();
}

void Data_record::begin_reading() {
    make_primary_section_current();
    // The units read before stay: their numbers do, where the second of two files does not name them.
    if (!is_structure_defined())
        expect_structure(false);
    make_primary_section_current();
    preread();
}

void Data_record::end_reading(bool keep_structure) {
    postread();
    if (!keep_structure)
        delete_structure();
}

void Data_record::declare_series() {
    make_primary_section_current();
    for (VV_enumerated_section& series : Items_of<VV_enumerated_section>(enumerated_sections))
        series.setup_structure(*this, true);
    make_primary_section_current();
}

std::string Data_record::text_of_sections() const {
    constexpr std::size_t usual_size = 1 << 14;
    std::string text;
    text.reserve(usual_size);
    for (const VV_section& section : all_sections())
        section.append_text(text);
    return text += unread_;
}

void Data_record::redeclare_for_write() {
    // Entries point into the series.
    Alias_association_list read_sections;
    Alias_association_list read_series;
    read_sections.take_over(sections);
    read_series.take_over(enumerated_sections);
    const std::string unread = std::move(unread_);
    delete_structure();

    declaring_anew_ = &read_sections;
    expect_structure(true);
    declare_series();
    declaring_anew_ = nullptr;
    for (const VV_enumerated_section& read : Items_of<VV_enumerated_section>(read_series))
        if (Item* series = enumerated_sections.find_exact(read.label))
            static_cast<VV_enumerated_section*>(series)->keep_count(read.count);
    std::vector<std::unique_ptr<VV_section>> undeclared;
    for (VV_section& section : all_sections())
        if (auto rest = section.end_declaring_anew())
            undeclared.push_back(std::move(rest));
    for (const auto& section : undeclared)
        keep_undeclared(*section);
    for (const VV_section& section : Items_of<VV_section>(read_sections))
        keep_undeclared(section);
    make_primary_section_current();
    unread_ = unread;
}

void Data_record::keep_undeclared(const VV_section& read) {
    VV_section* section = find_section(read.label);
    // Most entries stand there in the same order: the one behind the last is tried first.
    const Unidirectional_list::Node* next = section == nullptr ? nullptr : section->entries.head();
    std::string value;
    for (const VV_base_entry& entry : read.all_entries()) {
        if (!entry.encountered)
            continue;
        if (section == nullptr)
            section = append_section(read.label);
        if (next != nullptr && next->item->get_key_view() == entry.key) {
            const auto* const same = static_cast<const VV_base_entry*>(next->item.get());
            next = next->next;
            if (same->type_code() != Entry_type::unexpected)
                continue;
        }
        VV_base_entry* there = section->find_entry(entry.key);
        if (there == nullptr) {
            there = new VV_unexpected_entry(entry.key, entry.get_value(value));
            section->entries.append(there);
        } else if (there->type_code() == Entry_type::unexpected) {
            // The section stood in the file in both spellings: what stood later counts.
            there->set_value(Ustring(entry.get_value(value)));
        }
    }
}

void Data_record::make_primary_section_current() {
    const std::string name = get_primary_section_name();
    current_section_ = find_section(name);
    if (current_section_ == nullptr)
        append_section(name);
}

VV_section* Data_record::set_current_section(std::string_view name) {
    if (name.empty())
        return current_section_;
    current_section_ = find_section(name);
    return current_section_ != nullptr ? current_section_ : append_section(name);
}

VV_section* Data_record::get_current_section() {
    if (current_section_ == nullptr)
        make_primary_section_current();
    return current_section_;
}

VV_section* Data_record::append_section(std::string_view name) {
    // Most sections are declared in the order in which they were declared before.
    const Unidirectional_list::Node* read = declaring_anew_ == nullptr ? nullptr : declaring_anew_->head();
    if (read != nullptr && static_cast<const VV_section&>(*read->item).label == name) {
        current_section_ = static_cast<VV_section*>(declaring_anew_->pop_first());
        current_section_->begin_declaring_anew();
    } else {
        current_section_ = new VV_section(name);
    }
    sections.append(current_section_);
    return current_section_;
}

void Data_record::make_section_current(VV_section& section) {
    current_section_ = &section;
}

VV_section* Data_record::find_section(std::string_view name) {
    if (Item* section = sections.find_exact(name))
        return static_cast<VV_section*>(section);
    for (VV_enumerated_section& series : Items_of<VV_enumerated_section>(enumerated_sections))
        if (VV_section* section = series.find_section_met(*this, name))
            return section;
    return nullptr;
}

void Data_record::set_entry_alias(const char* actual_key, const char* old_key) {
    get_current_section()->entries.add_alias(actual_key, old_key);
}

template <class Entry, class... Arguments>
VV_base_entry* Data_record::expect(std::string_view key, Arguments&&... arguments) {
    VV_section* section = get_current_section();
    if (section->is_declared_anew())
        if (VV_base_entry* read = section->declare_anew(key, typeid(Entry)))
            return made_anew<Entry>(*read, key, std::forward<Arguments>(arguments)...);
    if (VV_base_entry* entry = section->find_entry(key))
        return entry;
    auto* entry = new Entry(key, std::forward<Arguments>(arguments)...);
    section->entries.append(entry);
    return entry;
}

VV_base_entry* Data_record::expect_string(const char* key, Ustring& field, std::uint16_t max_strlen,
                                          const char* annotation_1, const char* annotation_2) {
    return expect<VV_string_entry>(key, field, max_strlen, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_file_name(const char* key, File_name& field, std::uint16_t max_strlen,
                                             const char* annotation_1, const char* annotation_2) {
    return expect<VV_filename_entry>(key, field, max_strlen, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_int16(const char* key, std::int16_t& field, const char* annotation_1,
                                         const char* annotation_2) {
    return expect<VV_int16_entry>(key, field, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_int32(const char* key, std::int32_t& field, const char* annotation_1,
                                         const char* annotation_2) {
    return expect<VV_int32_entry>(key, field, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_uint8(const char* key, std::uint8_t& field, std::uint8_t radix,
                                         const char* annotation_1, const char* annotation_2) {
    return expect<VV_uint8_entry>(key, field, radix, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_uint32(const char* key, std::uint32_t& field, std::uint8_t radix,
                                          const char* annotation_1, const char* annotation_2) {
    return expect<VV_uint32_entry>(key, field, radix, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_float32(const char* key, float& field, const char* annotation_1,
                                           const char* annotation_2) {
    return expect<VV_float32_entry>(key, field, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_float64(const char* key, double& field, const char* annotation_1,
                                           const char* annotation_2) {
    return expect<VV_float64_entry>(key, field, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_bool(const char* key, bool& field, std::uint8_t form,
                                        const char* annotation_1, const char* annotation_2) {
    return expect<VV_bool_entry>(key, field, form, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_date(const char* key, Date& field, bool form, const char* annotation_1,
                                        const char* annotation_2) {
    return expect<VV_date_entry>(key, field, form, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_enum(const char* key, Labeled_enum& field, const char* annotation_1,
                                        const char* annotation_2) {
    return expect<VV_enum_entry>(key, field, annotation_1, annotation_2);
}

VV_base_entry* Data_record::expect_units(const char* key, Units_clad& field) {
    return expect<Units_line_entry>(key, field, units_code_item(key, field.code).as_read);
}

VV_base_entry* Data_record::expect_valid_int16(Valid_int16& valid) {
    VV_base_entry* entry = expect_int16(valid.key.c_str(), valid.value, valid.caption_1, valid.caption_2);
    entry->guard = &valid;
    expect_units_shown(valid);
    return entry;
}

VV_base_entry* Data_record::expect_valid_float32(Valid_float32& valid) {
    VV_base_entry* entry = expect_float32(valid.key.c_str(), valid.value, valid.caption_1, valid.caption_2);
    entry->guard = &valid;
    entry->set_validation_status(&valid.status);
    expect_units_shown(valid);
    return entry;
}

void Data_record::expect_units_shown(Valid_number& valid) {
    if (valid.units_selectable == nullptr)
        return;
    expect_units((valid.key + "_units").c_str(), valid.stored_units);
    expect_units((valid.key + "_shown").c_str(), valid.shown_units);
}

void Data_record::expect_enumerated_section(std::unique_ptr<VV_enumerated_section> series, bool no_alias) {
    if (enumerated_sections.find_exact(series->label) != nullptr)
        return;
    const std::string key = series->label + ":count";
    expect_int16(key.c_str(), series->count);
    if (!no_alias)
        set_entry_alias(key.c_str(), (series->label + "_count").c_str());
    enumerated_sections.append(series.release());
}

std::string Data_record::place_of(const std::string& key) {
    // No name in a file holds a line feed.
    return get_current_section()->label + '\n' + key;
}

Data_record::Units_label_item& Data_record::units_label_item(const std::string& key, const char* label) {
    std::string place = place_of(key);
    for (Units_label_item& item : Items_of<Units_label_item>(units_labels))
        if (item.place == place)
            return item;
    auto* item = new Units_label_item(std::move(place), label);
    units_labels.append(item);
    return *item;
}

Data_record::Units_code_item& Data_record::units_code_item(const std::string& key, std::uint32_t code) {
    std::string place = place_of(key);
    for (Units_code_item& item : Items_of<Units_code_item>(units_codes))
        if (item.place == place)
            return item;
    auto* item = new Units_code_item(std::move(place), code);
    units_codes.append(item);
    return *item;
}

std::string Data_record::begin_array(const char* name, bool in_current_section) {
    if (in_current_section)
        return std::string(name) + '_';
    set_current_section(name);
    return {};
}

template <class Expect>
void Data_record::expect_elements(std::string prefix, int first, int last, Expect expect_element) {
    std::string& key = prefix;
    const std::size_t prefix_length = prefix.size();
    for (int index = first; index <= last; ++index) {
        key.resize(prefix_length);
        append_integer(key, index);
        expect_element(key, index);
    }
}

void Data_record::expect_float32_array(const char* name, float* array, int first, int last,
                                       bool in_current_section) {
    expect_float32_elements(begin_array(name, in_current_section), array, first, last);
}

void Data_record::expect_float32_elements(std::string prefix, float* array, int first, int last) {
    expect_elements(std::move(prefix), first, last, [&](std::string_view key, int index) {
        expect<VV_float32_entry>(key, array[index], nullptr, nullptr);
    });
}

void Data_record::expect_uint32_array(const char* name, std::uint32_t* array, int first, int last,
                                      std::uint8_t radix, bool in_current_section) {
    expect_elements(begin_array(name, in_current_section), first, last, [&](std::string_view key, int index) {
        expect<VV_uint32_entry>(key, array[index], radix, nullptr, nullptr);
    });
}

void Data_record::expect_float32_array_with_units_code(const char* name, std::uint32_t units_code,
                                                       float* array, int first, int last,
                                                       bool in_current_section) {
    std::string prefix = begin_array(name, in_current_section);
    const std::string key = prefix + "units";
    Units_code_item& item = units_code_item(key, units_code);
    expect<Units_line_entry>(key, item.units, item.as_read);
    expect_float32_elements(std::move(prefix), array, first, last);
}

void Data_record::expect_float32_array_with_units_label(const char* name, const char* units_label,
                                                        float* array, int first, int last,
                                                        bool in_current_section) {
    std::string prefix = begin_array(name, in_current_section);
    const std::string key = prefix + "units";
    expect_string(key.c_str(), units_label_item(key, units_label).text, 255);
    expect_float32_elements(std::move(prefix), array, first, last);
}

} // namespace TESK
