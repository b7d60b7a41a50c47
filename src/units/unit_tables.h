// The vocabulary of unit codes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace TESK::unit_tables {

// A row of the table of quantities. Rows without a unit are reserved.
struct Quantity {
    std::string_view quantity;
    std::string_view unit;
    std::string_view abbreviation;
    bool takes_prefix; // whether a power of ten is usual before it
};

struct Prefix {
    std::string_view name;
    std::string_view abbreviation;
};

struct Unit {
    std::uint16_t code;
    std::string_view description;
    std::string_view abbreviation;
};

struct Compound {
    std::uint32_t code;
    std::string_view label;
};

constexpr int quantity_count = 128;
constexpr int prefix_count = 25; // row 0 is no prefix

std::span<const Quantity, quantity_count> quantities();
std::span<const Prefix, prefix_count> positive_prefixes();
std::span<const Prefix, prefix_count> negative_prefixes();
std::span<const Unit> plain_units();
std::span<const Unit> english_units();
std::span<const Compound> compounds();

} // namespace TESK::unit_tables
