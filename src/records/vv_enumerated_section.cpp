#include "records/vv_enumerated_section.h"

#include "foundation/numbers.h"
#include "records/data_record.h"

#include <algorithm>

namespace TESK {

void VV_enumerated_section::apply_count(std::int16_t told) {
    count = std::max(count, told);
}

bool VV_enumerated_section::setup_structure(Data_record& record, bool for_write) {
    constexpr int most = INT16_MAX;
    // A reader that meets the count again, the same or a larger one, need not count the elements again.
    if (for_write || sections_expected_ == 0)
        apply_count(static_cast<std::int16_t>(std::min<int>(get_element_count(), most)));
    if (!for_write) {
        if (count <= sections_expected_)
            return true;
        sections_expected_ = count;
        prepare_to_read();
        return true;
    }
    const VV_section* current = record.get_current_section();
    const int first = one_based ? 1 : 0;
    for (int index = first; index < first + count; ++index) {
        record.set_current_section(section_name(index));
        setup_element(record, for_write, static_cast<std::uint16_t>(index));
    }
    record.set_current_section(current->label);
    return true;
}

VV_section* VV_enumerated_section::find_section_met(Data_record& record, std::string_view name) {
    const auto index = sections_expected_ > 0 ? index_of(name) : std::nullopt;
    if (!index)
        return nullptr;
    const std::string full_name = section_name(*index);
    if (Item* section = record.sections.find_exact(full_name))
        return static_cast<VV_section*>(section);
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

// The index that the name carries, when it is one of the series.
std::optional<std::uint16_t> VV_enumerated_section::index_of(std::string_view name) const {
    if (name.size() < label.size() + 2 || name.substr(0, label.size()) != label ||
        (name[label.size()] != ':' && name[label.size()] != '_'))
        return std::nullopt;
    const std::string digits(name.substr(label.size() + 1));
    const std::int64_t index = parse_integer(digits.c_str());
    std::string canonical;
    append_integer(canonical, index);
    const int first = one_based ? 1 : 0;
    if (digits != canonical || index < first || index >= first + sections_expected_)
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
