// A counted series of sections of one record, named label:1, label:2 and so on, one for each element.
#pragma once

#include "foundation/association_list.h"
#include "foundation/ustring.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace TESK {

class VV_section;

class VV_enumerated_section : public Association {
public:
    // The elements are numbered from 1 when `one_based`, otherwise from 0.
    VV_enumerated_section(const char* section_label, bool is_one_based)
        : one_based(is_one_based), label(section_label) {}

    const char* get_key() const override { return label.c_str(); }
    bool is_key_case_sensitive() const override { return true; }

    // The count that a file tells never makes the series shorter.
    void apply_count(std::int16_t told);

    // Takes over a count that a file told under an old key, where the record has no elements: the sections
    // that it counts come back as the file spelled them.
    void keep_count(std::int16_t told);

    // Makes the count no smaller than the number of elements, and declares the elements' sections: for
    // writing all of them at once, for reading each one when its header is met, so that a file's count costs
    // nothing that the file does not hold; those whose headers were met before the count, at once, with what
    // they hold already. The record's current section stays. True.
    bool setup_structure(Data_record& record, bool for_write) override;

    // The section of this series that has the name, in the spelling label:1 or, of old, label_1. In reading
    // it is declared if it is not in the record yet. Null when the name is none of the series, or above the
    // count: then the record gives it a section that knows nothing of the series.
    VV_section* find_section_met(Data_record& record, std::string_view name);

    // Declares the entries of an element in the current section. False when there is no such element.
    virtual bool setup_element(Data_record& record, bool for_write, std::uint16_t index) = 0;
    virtual std::uint16_t get_element_count() const = 0;

    bool one_based;
    Ustring label;
    std::int16_t count = 0;

protected:
    // Called once the file's count is known, before any element's section is met.
    virtual void prepare_to_read() {}

private:
    int first_index() const { return one_based ? 1 : 0; }
    std::string section_name(int index) const;
    std::optional<std::uint16_t> index_of(std::string_view name) const;
    void declare_sections_for_writing(Data_record& record);
    void declare_sections_met_early(Data_record& record);

    // How many sections the reader may meet, by the highest count met: the count itself is a field of the
    // record, which a later line of the file can set lower. In writing, how many there can be.
    std::int16_t sections_expected_ = 0;
    // How many elements there are to be read; a section that has none is not the series' own.
    int elements_ = 0;
    bool for_write_ = false;
    // The names that were met before a count told that they are of the series, by their index.
    std::multimap<std::uint16_t, std::string> met_early_;
};

// A series whose elements are the items of a list. The list belongs to the record.
class VV_container_enumerated_section : public VV_enumerated_section {
public:
    VV_container_enumerated_section(const char* section_label, bool is_one_based, Container& elements)
        : VV_enumerated_section(section_label, is_one_based), container(elements) {}

    bool setup_element(Data_record& record, bool for_write, std::uint16_t index) override;
    std::uint16_t get_element_count() const override;

protected:
    Container& container;

private:
    Item* element_at(std::uint32_t zero_based);

    // Where the last element was found, so that elements asked for in order cost one step each.
    std::unique_ptr<Container::Iterator> place_;
    std::uint32_t place_index_ = 0;
};

} // namespace TESK
