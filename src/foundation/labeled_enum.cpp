#include "foundation/labeled_enum.h"

#include "foundation/code_page_1252.h"
#include "foundation/numbers.h"

#include <algorithm>
#include <cstring>

const char* Labeled_enum::label_at(std::int32_t index) const {
    const char* label = labels_ != nullptr               ? labels_[index]
                        : descriptive_labels_ != nullptr ? descriptive_labels_[index].label
                                                         : nullptr;
    return label == nullptr || *label == 0 ? nullptr : label;
}

const char* Labeled_enum::description_at(std::int32_t index) const {
    return descriptive_labels_ == nullptr ? nullptr : descriptive_labels_[index].description;
}

std::string Labeled_enum::get_label() const {
    const std::int32_t value = get_int32();
    if (value >= 0 && value < get_label_count())
        return label_at(value);
    std::string number;
    TESK::append_integer(number, value);
    return number;
}

std::int32_t Labeled_enum::set_label(const char* text) {
    if (text == nullptr)
        text = "";
    std::int32_t value = 0;
    if (labels_ == nullptr && descriptive_labels_ == nullptr) {
        value = static_cast<std::int32_t>(TESK::parse_integer(text));
    } else {
        for (std::int32_t i = 0; label_at(i) != nullptr; ++i)
            if (std::strcmp(label_at(i), text) == 0)
                value = i;
        // A match at 0 cannot be told from none, so a later label that differs only in case wins over it.
        if (value == 0)
            for (std::int32_t i = 0; label_at(i) != nullptr; ++i)
                if (TESK::equal_ignoring_case(label_at(i), text))
                    value = i;
    }
    set_int32(value);
    return value;
}

bool Labeled_enum::is_label(const char* text) const {
    for (std::int32_t i = 0; text != nullptr && label_at(i) != nullptr; ++i)
        if (std::strcmp(label_at(i), text) == 0)
            return true;
    return false;
}

std::string Labeled_enum::get_description() const {
    const std::int32_t value = get_int32();
    if (descriptive_labels_ == nullptr || value < 0 || value >= get_label_count())
        return get_label();
    const char* description = descriptive_labels_[value].description;
    return description == nullptr ? "" : description;
}

std::uint16_t Labeled_enum::get_label_count() const {
    std::uint16_t count = 0;
    while (label_at(count) != nullptr)
        ++count;
    return count;
}

std::uint16_t Labeled_enum::get_max_label_length() const {
    std::size_t longest = 0;
    for (std::int32_t i = 0; label_at(i) != nullptr; ++i)
        longest = std::max(longest, std::strlen(label_at(i)));
    return static_cast<std::uint16_t>(longest);
}
