#include "units/units_clad.h"

#include "foundation/numbers.h"
#include "units/unit_tables.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <tuple>
#include <unordered_map>

namespace TESK {

namespace {

using namespace unit_tables;

constexpr std::uint16_t date_unit = 0x1001;
constexpr std::uint16_t time_unit = 0x1000;

const Unit* find_row(std::span<const Unit> rows, std::uint32_t code) {
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const Unit& u) { return u.code == code; });
    return row == rows.end() ? nullptr : &*row;
}

const Unit* find_plain(std::uint32_t code) {
    return find_row(plain_units(), code);
}

// Whether the code is one of those that the table of plain units is asked for first.
bool may_be_plain(std::uint16_t unit) {
    return (unit != 0 && unit < 0x1F00) || (unit >= 0x4000 && unit <= 0x40FF);
}

bool append_row(const Unit* row, std::string& description, std::string& abbreviation) {
    if (row == nullptr)
        return false;
    description += row->description;
    abbreviation += row->abbreviation;
    return true;
}

bool append_metric(std::uint16_t unit, std::string& description, std::string& abbreviation) {
    const int power = exponent(unit);
    const int size = std::abs(power);
    if (size < prefix_count) {
        const Prefix& prefix = power < 0 ? negative_prefixes()[size] : positive_prefixes()[size];
        description += prefix.name;
        abbreviation += prefix.abbreviation;
    } else {
        description += "10^";
        append_integer(description, power);
    }
    const Quantity& row = quantities()[quantity_of(unit)];
    // The liquid and the dry weight have no unit of their own, but are told by their name.
    if (row.quantity.empty())
        return false;
    description.append(row.unit).append(" (").append(row.quantity).append(")");
    abbreviation += row.abbreviation;
    return true;
}

// Whether the text ends in the label, which is not empty. Most do not end in its last character.
bool ends_in(std::string_view text, std::string_view label) {
    return text.size() >= label.size() && text.back() == label.back() && text.ends_with(label);
}

// Codes by what they are called. Of several rows with a label the first counts.
using Label_codes = std::unordered_map<std::string_view, std::uint16_t>;

void add_labels(Label_codes& codes, std::span<const Unit> rows) {
    for (const Unit& row : rows) {
        codes.emplace(row.description, row.code);
        codes.emplace(row.abbreviation, row.code);
    }
}

Label_codes plain_labels() {
    constexpr Unit spellings[] = {
        {0x2000, "meters", "meters"}, {0x2A02, "hectare", "hectare"}, {0x1643, "ms", "ms"}, {0, "-", "-"}};
    Label_codes codes;
    add_labels(codes, spellings);
    add_labels(codes, plain_units());
    return codes;
}

Label_codes english_labels() {
    Label_codes codes;
    add_labels(codes, english_units());
    return codes;
}

std::optional<std::uint16_t> find_label(const Label_codes& codes, std::string_view text) {
    const auto found = codes.find(text);
    return found == codes.end() ? std::nullopt : std::optional(found->second);
}

// The rows of the table of quantities and the prefixes stand for one label after another: by exponent, then
// by row, then the positive name and abbreviation before the negative ones. The first that is the text
// counts.
struct Metric_match {
    int exponent;
    int row;
    int form;
};

// What the text says before a label at its end: the exponent of the prefix, when it is one.
std::optional<int> find_prefix(std::span<const Prefix, prefix_count> prefixes, std::string_view text,
                               bool abbreviated) {
    for (int i = 0; i < prefix_count; ++i)
        if (text == (abbreviated ? prefixes[i].abbreviation : prefixes[i].name))
            return i;
    return std::nullopt;
}

std::optional<std::uint16_t> parse_metric(std::string_view text) {
    std::optional<Metric_match> best;
    for (int row = 0; row < quantity_count; ++row) {
        const Quantity& quantity = quantities()[row];
        for (const bool abbreviated : {false, true}) {
            const std::string_view label = abbreviated ? quantity.abbreviation : quantity.unit;
            if (label.empty() || !ends_in(text, label))
                continue;
            const std::string_view prefix = text.substr(0, text.size() - label.size());
            for (const bool negative : {false, true}) {
                const auto power =
                    find_prefix(negative ? negative_prefixes() : positive_prefixes(), prefix, abbreviated);
                const int form = negative * 2 + abbreviated;
                if (power && (!best || std::tuple(*power, row, form) <
                                           std::tuple(best->exponent, best->row, best->form)))
                    best = {*power, row, form};
            }
        }
    }
    if (!best)
        return std::nullopt;
    // Without a power of ten the positive form comes first, so that the sign is never set alone.
    const int sign = best->form >= 2 ? negative_exponent_bit : 0;
    return static_cast<std::uint16_t>(best->row << 8 | best->exponent | sign);
}

// "30 minute", "10 sec": a number of seconds, minutes or hours. The last word found in the text counts.
std::optional<std::uint16_t> parse_time_step(std::string_view text) {
    struct Step {
        std::string_view word;
        std::uint16_t unit;
    };
    constexpr Step steps[] = {{"sec", 0x1300}, {"min", 0x1400}, {"hour", 0x1500}, {"hr", 0x1500}};
    std::optional<std::uint16_t> found;
    std::size_t found_at = 0;
    for (const Step& step : steps) {
        const std::size_t at = text.rfind(step.word);
        if (at != std::string_view::npos && (!found || at > found_at)) {
            found = step.unit;
            found_at = at;
        }
    }
    if (found)
        found = static_cast<std::uint16_t>(*found + cstr_to_uint32(std::string(text).c_str(), 10));
    return found;
}

bool holds_any(std::string_view text, std::initializer_list<const char*> masks) {
    return std::any_of(masks.begin(), masks.end(),
                       [&](const char* mask) { return text.find(mask) != std::string_view::npos; });
}

bool is_hexadecimal(std::string_view text) {
    return text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

} // namespace

std::string& Units_clad::get_label(std::string& buffer) const {
    if (const Unit* row = find_plain(code))
        return buffer = row->description;
    std::string abbreviation;
    compose_labels(buffer, abbreviation);
    return buffer;
}

std::string& Units_clad::get_abbreviation(std::string& buffer) const {
    if (const Unit* row = find_plain(code))
        return buffer = row->abbreviation;
    std::string description;
    compose_labels(description, buffer);
    return buffer;
}

bool Units_clad::unit_labels(std::uint16_t unit, std::string& description, std::string& abbreviation) {
    if ((unit & reciprocal_bit) != 0) {
        description += " per ";
        abbreviation += '/';
    }
    if (may_be_plain(unit) && append_row(find_plain(unit), description, abbreviation))
        return true;
    if ((unit & english_bit) != 0)
        return append_row(find_row(english_units().subspan(1), unit & ~reciprocal_bit), description,
                          abbreviation);
    return append_metric(unit, description, abbreviation);
}

bool Units_clad::compose_labels(std::string& description, std::string& abbreviation) const {
    description.clear();
    abbreviation.clear();
    if (code == 0) {
        description = "unitless";
        abbreviation = "-";
        return true;
    }
    const auto low = static_cast<std::uint16_t>(code);
    const auto high = static_cast<std::uint16_t>(code >> 16);
    const bool labelled = unit_labels(low, description, abbreviation);
    return high == 0 ? labelled : unit_labels(high, description, abbreviation);
}

std::uint32_t Units_clad::parse_label(const char* text) {
    constexpr char ordinal_sign = '\xBA';
    constexpr char degree_sign = '\xB0';
    constexpr std::string_view separators = "*.\xB7\xD7/\xF7";
    constexpr std::string_view per_separators = "/\xF7";

    const std::string original = text == nullptr ? "" : text;
    std::string label = original;
    std::replace(label.begin(), label.end(), ordinal_sign, degree_sign);
    for (const Compound& row : compounds())
        if (label == row.label)
            return row.code;

    const bool has_months = holds_any(original, {"MM", "mm"});
    if (holds_any(original, {"YY", "yy"}) && (has_months || holds_any(original, {"DDD", "ddd"})))
        return date_unit;
    if (holds_any(original, {"HH", "hh"}) && has_months)
        return time_unit;

    const std::size_t separator = label.find_first_of(separators);
    std::uint32_t result = parse_unit(std::string_view(label).substr(0, separator));
    if (separator != std::string::npos) {
        std::uint32_t second = parse_unit(std::string_view(label).substr(separator + 1));
        if (per_separators.find(label[separator]) != std::string_view::npos)
            second |= reciprocal_bit;
        result += second << 16;
    }
    if ((result == 0 || result == unit_not_recognized) && is_hexadecimal(original))
        result = cstr_to_uint32(original.c_str(), 16);
    return result;
}

std::uint16_t Units_clad::parse_unit(std::string_view text) {
    static const Label_codes plain = plain_labels();
    static const Label_codes english = english_labels();
    auto unit = find_label(plain, text);
    if (!unit)
        unit = parse_metric(text);
    if (!unit)
        unit = find_label(english, text);
    if (!unit)
        unit = parse_time_step(text);
    return unit.value_or(unit_not_recognized);
}

} // namespace TESK
