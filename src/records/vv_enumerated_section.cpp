#include "records/vv_enumerated_section.h"

#include "foundation/numbers.h"
#include "records/data_record.h"

#include <algorithm>

namespace TESK {

void VV_enumerated_section::apply_count(std::int16_t told) {
    count = std::max(count, told);
}

void VV_enumerated_section::keep_count(std::int16_t told) {
    if (count == 0)
        apply_count(told);
}

bool VV_enumerated_section::setup_structure(Data_record& record, bool for_write) {
    constexpr int most = INT16_MAX;
    for_write_ = for_write;
    // A reader that meets the count again, the same or a larger one, need not count the elements again.
    if (for_write || sections_expected_ == 0)
        apply_count(static_cast<std::int16_t>(std::min<int>(get_element_count(), most)));
    VV_section* current = record.get_current_section();
    if (for_write) {
        declare_sections_for_writing(record);
    } else if (count > sections_expected_) {
        sections_expected_ = count;
        prepare_to_read();
        elements_ = get_element_count();
        declare_sections_met_early(record);
    }
    record.make_section_current(*current);
    return true;
}

void VV_enumerated_section::declare_sections_for_writing(Data_record& record) {
    sections_expected_ = static_cast<std::int16_t>(std::min<int>(count, get_element_count()));
    for (int index = first_index(); index < first_index() + sections_expected_; ++index) {
        record.set_current_section(section_name(index));
        setup_element(record, true, static_cast<std::uint16_t>(index));
    }
}

void VV_enumerated_section::declare_sections_met_early(Data_record& record) {
    const auto end = met_early_.lower_bound(static_cast<std::uint16_t>(first_index() + sections_expected_));
    for (auto met = met_early_.begin(); met != end; ++met) {
        VV_section& section = *record.set_current_section(met->second);
        Alias_association_list held;
        held.transfer_all_from(section.entries, Item_filter::all);
        setup_element(record, false, met->first);
        std::string value;
        for (const VV_base_entry& entry : Items_of<VV_base_entry>(held))
            section.store(entry.key, entry.get_value(value));
    }
    met_early_.erase(met_early_.begin(), end);
}

VV_section* VV_enumerated_section::find_section_met(Data_record& record, std::string_view name) {
    const auto index = index_of(name);
    if (!index)
        return nullptr;
    if (*index >= first_index() + sections_expected_) {
        met_early_.emplace(*index, name);
        return nullptr;
    }
    const std::string full_name = section_name(*index);
    if (Item* section = record.sections.find_exact(full_name))
        return static_cast<VV_section*>(section);
    if (for_write_ || *index - first_index() >= elements_)
        return nullptr;
    VV_section* section = record.append_section(full_name);
    setup_element(record, false, *index);
    return section;
}

std::string VV_enumerated_section::section_name(int index) const {
    std::string name = label;
    name += ':';
    append_integer(name, index);
    return name;
}

// The index that the name carries, when it is a name of the series.
std::optional<std::uint16_t> VV_enumerated_section::index_of(std::string_view name) const {
    if (name.size() < label.size() + 2 || (name[label.size()] != ':' && name[label.size()] != '_') ||
        !name.starts_with(label))
        return std::nullopt;
    const std::string digits(name.substr(label.size() + 1));
    const std::int64_t index = parse_integer(digits.c_str());
    std::string canonical;
    append_integer(canonical, index);
    if (digits != canonical || index < first_index() || index > INT16_MAX)
        return std::nullopt;
    return static_cast<std::uint16_t>(index);
}

bool VV_container_enumerated_section::setup_element(Data_record& record, bool for_write,
                                                    std::uint16_t index) {
    if (one_based && index == 0)
        return false;
    Item* element = element_at(one_based ? index - 1U : index);
    if (element == nullptr)
        return false;
    element->setup_structure(record, for_write);
    return true;
}

std::uint16_t VV_container_enumerated_section::get_element_count() const {
    return static_cast<std::uint16_t>(std::min<std::uint32_t>(container.count(), UINT16_MAX));
}

Item* VV_container_enumerated_section::element_at(std::uint32_t zero_based) {
    Item* element = place_ != nullptr && zero_based == place_index_ + 1 ? place_->next() : nullptr;
    if (element == nullptr) {
        place_ = container.iterator();
        element = place_->seek(zero_based);
    }
    place_index_ = zero_based;
    if (element == nullptr)
        place_.reset();
    return element;
}

} // namespace TESK
