// A small integer with a table of words: the word, not the number, stands in a record file.
#pragma once

#include <cstdint>
#include <string>

struct Label_description {
    const char* label;
    const char* description;
};

class Labeled_enum {
public:
    virtual ~Labeled_enum() = default;

    // The label of the value; without a table, or for a value outside it, the value in decimal.
    virtual std::string get_label() const;

    // Sets the value whose label the text is: the last exact match, and while that gives 0, the last match
    // ignoring case. An unknown text gives 0. Without a table the text is the number itself. Returns the
    // value.
    virtual std::int32_t set_label(const char* text);

    virtual std::int32_t get_int32() const = 0;
    virtual void set_int32(std::int32_t value) = 0;

    // Whether the text is a label, exactly.
    virtual bool is_label(const char* text) const;

    // The description of the value, in a table that has them; otherwise the label.
    virtual std::string get_description() const;

    // The label at an index, from 0; null behind the end of the table, and without one.
    const char* label_at(std::int32_t index) const;
    // The description of that label; null in a table that has none.
    const char* description_at(std::int32_t index) const;

    // The number of labels, and the length of the longest.
    virtual std::uint16_t get_label_count() const;
    virtual std::uint16_t get_max_label_length() const;

protected:
    // Both tables end at a null pointer or an empty label, and outlive the object. Null is no table.
    explicit Labeled_enum(const char* const* labels) : labels_(labels) {}
    explicit Labeled_enum(const Label_description* labels) : descriptive_labels_(labels) {}
    Labeled_enum(const Labeled_enum&) = default;
    Labeled_enum& operator=(const Labeled_enum&) = default;

private:
    const char* const* labels_ = nullptr;
    const Label_description* descriptive_labels_ = nullptr;
};

// A Labeled_enum that holds its value in one byte.
class Byte_labeled_enum : public Labeled_enum {
public:
    std::int32_t get_int32() const override { return value_; }
    void set_int32(std::int32_t value) override { value_ = static_cast<std::uint8_t>(value); }

protected:
    Byte_labeled_enum(const char* const* labels, std::uint8_t value) : Labeled_enum(labels), value_(value) {}
    Byte_labeled_enum(const Label_description* labels, std::uint8_t value)
        : Labeled_enum(labels), value_(value) {}

private:
    std::uint8_t value_;
};
