#include "editing/auto_choices.h"

#include <algorithm>

namespace {

constexpr int bit_count = 32;

}

void TAutoCheckBox::bind_to(bool* flag, const char* help_URL) {
    value = flag;
    Help_link::set(help_URL);
    Update();
}

void TAutoCheckBox::update_value() {
    if (value != nullptr)
        *value = checked();
}

void TAutoCheckBox::do_click() {
    update_value();
    TCheckBox::do_click();
}

void TAutoRadioGroup::bind_to(Labeled_enum* value, const char* help_URL) {
    enumeration_ = value;
    byte_ = nullptr;
    Help_link::set(help_URL);
    Update();
}

void TAutoRadioGroup::bind_to(std::int8_t* value, std::int8_t offset, const char* help_URL) {
    enumeration_ = nullptr;
    byte_ = value;
    offset_ = offset;
    Help_link::set(help_URL);
    Update();
}

void TAutoRadioGroup::Update() {
    if (enumeration_ != nullptr)
        set_item_index(enumeration_->get_int32());
    else
        set_item_index(byte_ == nullptr ? -1 : *byte_ - offset_);
}

void TAutoRadioGroup::update_value() {
    // A value that has no line stays as it is.
    if (item_index() < 0)
        return;
    if (enumeration_ != nullptr)
        enumeration_->set_int32(item_index());
    else if (byte_ != nullptr)
        *byte_ = static_cast<std::int8_t>(item_index() + offset_);
}

void TAutoRadioGroup::do_click() {
    update_value();
    TRadioGroup::do_click();
}

void TAutoBitCheckListBox::bind_to(std::uint32_t* bits, const char* const* captions, const char* help_URL) {
    bits_ = bits;
    Help_link::set(help_URL);
    std::vector<std::string> lines;
    for (; captions != nullptr && *captions != nullptr; ++captions)
        lines.push_back(screen_text(*captions));
    set_lines(lines);
    Update();
}

void TAutoBitCheckListBox::Update() {
    for (int i = 0; i < count(); ++i)
        set_checked(i, bits_ != nullptr && i < bit_count && (*bits_ >> i & 1U) != 0);
}

std::uint32_t TAutoBitCheckListBox::shown_bits() const {
    std::uint32_t shown = 0;
    for (int i = 0; i < std::min(count(), bit_count); ++i)
        shown |= static_cast<std::uint32_t>(checked(i)) << i;
    return shown;
}

void TAutoBitCheckListBox::update_value() {
    if (bits_ != nullptr)
        *bits_ = shown_bits();
}

void TAutoBitCheckListBox::leave() {
    const std::uint32_t lines = count() < bit_count ? (1U << count()) - 1U : ~0U;
    if ((*bits_ & lines) != shown_bits())
        update_value();
}

void TAutoBitCheckListBox::do_check(int index) {
    update_value();
    TCheckListBox::do_check(index);
}
