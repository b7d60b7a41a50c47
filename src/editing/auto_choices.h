// Choices that are bound to a flag, an enumeration or a set of bits of a record.
#pragma once

#include "editing/bound_control.h"
#include "foundation/labeled_enum.h"
#include "toolkit/check_box.h"
#include "toolkit/list_box.h"

#include <cstdint>

class TAutoCheckBox : public TAutoChoice<TCheckBox> {
public:
    using TAutoChoice<TCheckBox>::TAutoChoice;

    // Null shows an empty box.
    void bind_to(bool* flag, const char* help_URL);
    void Update() override { set_checked(value != nullptr && *value); }
    void update_value() override;
    bool is_bound() const override { return value != nullptr; }

protected:
    void do_click() override;

private:
    bool* value = nullptr;
};

// One of several: the index of an enumeration, or a byte that is the index and an offset.
class TAutoRadioGroup : public TAutoChoice<TRadioGroup> {
public:
    using TAutoChoice<TRadioGroup>::TAutoChoice;

    // Null chooses nothing, and so does a value without a line, which stays until the user chooses.
    void bind_to(Labeled_enum* value, const char* help_URL);
    void bind_to(std::int8_t* value, std::int8_t offset, const char* help_URL);
    void Update() override;
    void update_value() override;
    bool is_bound() const override { return enumeration_ != nullptr || byte_ != nullptr; }

protected:
    void do_click() override;

private:
    Labeled_enum* enumeration_ = nullptr;
    std::int8_t* byte_ = nullptr;
    std::int8_t offset_ = 0;
};

// A set of 32 bits: bit i is line i.
class TAutoBitCheckListBox : public TAutoChoice<TCheckListBox> {
public:
    using TAutoChoice<TCheckListBox>::TAutoChoice;

    // The captions become the lines, up to a null. Null for the bits checks nothing.
    void bind_to(std::uint32_t* bits, const char* const* captions, const char* help_URL);
    void Update() override;
    // The bits are those of the lines alone.
    void update_value() override;
    bool is_bound() const override { return bits_ != nullptr; }

protected:
    void do_check(int index) override;
    // Leaves bits that have no line alone as long as no mark differs.
    void leave() override;

private:
    std::uint32_t shown_bits() const;

    std::uint32_t* bits_ = nullptr;
};
