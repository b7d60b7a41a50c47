// A table of attributes, read whole to be looked at: the polygons of a map, or what a run over them left. And
// the colours that its values give to a map.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class Attribute_table {
public:
    Attribute_table() = default;
    // Reads a dBase table, with the rows that are marked as deleted or without them: a map's polygons count
    // these as well.
    Attribute_table(const std::string& file_name, bool with_deleted);

    // Why there is nothing to be seen; the table is then empty. A table of more than 256 MiB is not read.
    enum class Fault { none, missing, unreadable, too_large };
    Fault fault() const { return fault_; }
    // The rows that the file's header tells of and the file, which is damaged, does not hold.
    std::size_t missing_rows() const { return missing_rows_; }
    std::size_t row_count() const { return row_length_ == 0 ? 0 : rows_.size() / row_length_; }
    std::size_t field_count() const { return fields_.size(); }
    const std::string& field_name(std::size_t field) const { return fields_[field].name; }
    // The first field of that name, case not significant; field_count() when there is none.
    std::size_t find_field(std::string_view name) const;
    // How many characters its values have room for.
    std::size_t field_length(std::size_t field) const { return fields_[field].length; }
    bool is_number(std::size_t field) const { return fields_[field].is_number; }
    // The value without the blanks round it, in code page 1252.
    std::string_view text(std::size_t row, std::size_t field) const;

private:
    struct Field {
        std::string name;
        std::size_t offset;
        std::size_t length;
        bool is_number;
    };

    std::vector<Field> fields_;
    std::string rows_; // one behind the other, each row_length_ bytes
    std::size_t row_length_ = 0;
    Fault fault_ = Fault::none;
    std::size_t missing_rows_ = 0;
};

// The numbers of the rows in the order of a field's values: numbers by what they are worth, texts by the
// alphabet, case not significant. Equal values keep the order of the table; empty ones, and what is no number
// among numbers, come last in either direction.
std::vector<std::uint32_t> rows_in_order(const Attribute_table& table, std::size_t field, bool down);

// Which colour each of a list of values has, and what the colours stand for.
struct Map_colouring {
    struct Entry {
        std::string text; // in code page 1252; empty for all other values
        std::int32_t colour;
    };
    std::vector<std::int32_t> colours; // one a value, as 0xbbggrr
    std::vector<Entry> legend;
};

// Numbers of more than eight different values are put into seven classes of equal width; anything else is a
// kind of its own, the ten most frequent ones with a colour each. An empty value is grey.
Map_colouring colour_by(const std::vector<std::string_view>& values, bool are_numbers);

// For each row of a map's table the value of another table's row with the same key; empty where there is
// none. Keys that are numbers are compared as numbers. Of several rows with one key the first counts.
std::vector<std::string_view> joined_values(const Attribute_table& map, std::size_t map_key,
                                            const Attribute_table& other, std::size_t other_key,
                                            std::size_t other_field);
