#include "operations/attribute_table.h"

#include "foundation/code_page_1252.h"
#include "foundation/lists.h"
#include "platform/files.h"
#include "tables/dbase_data_source.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <set>
#include <unordered_map>

namespace {

constexpr std::uint64_t largest_table = 256ULL << 20;
constexpr std::int32_t no_value = 0xb0b0b0;
// Dark to light, told apart by lightness alone too, and by who does not see red and green apart.
constexpr std::int32_t ramp[] = {0x540144, 0x83443f, 0x8d6731, 0x8c9121, 0x75b735, 0x3bd890, 0x24e7fd};
constexpr std::size_t class_count = std::size(ramp);
constexpr std::int32_t kinds[] = {0xb27200, 0x009fe6, 0x739e00, 0x42e4f0, 0xe9b456,
                                  0xa779cc, 0x005ed5, 0x5a3a8a, 0x7f7f4d, 0x9bc3f2};
constexpr std::int32_t other_kind = 0x808080;

std::string_view without_blanks(std::string_view text) {
    constexpr std::string_view blanks(" \0\t", 3);
    const std::size_t begin = text.find_first_not_of(blanks);
    return begin == text.npos ? std::string_view()
                              : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::optional<double> number_in(std::string_view text) {
    double value = 0;
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string text_of(double value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 6).ptr;
    return {digits, end};
}

Map_colouring in_classes(const std::vector<std::string_view>& values, double lowest, double highest) {
    Map_colouring colouring;
    const double width = (highest - lowest) / class_count;
    for (const std::string_view value : values) {
        const std::optional<double> number = number_in(value);
        const double place = number ? (*number - lowest) / width : 0;
        colouring.colours.push_back(
            number ? ramp[std::min(class_count - 1, static_cast<std::size_t>(std::max(place, 0.0)))]
                   : no_value);
    }
    for (std::size_t i = 0; i < class_count; ++i)
        colouring.legend.push_back({text_of(lowest + static_cast<double>(i) * width) + " .. " +
                                        text_of(lowest + static_cast<double>(i + 1) * width),
                                    ramp[i]});
    return colouring;
}

Map_colouring by_kind(const std::vector<std::string_view>& values, bool are_numbers) {
    std::unordered_map<std::string_view, std::size_t> counts;
    for (const std::string_view value : values)
        if (!value.empty())
            ++counts[value];
    std::vector<std::pair<std::string_view, std::size_t>> most(counts.begin(), counts.end());
    std::sort(most.begin(), most.end(), [](const auto& a, const auto& b) {
        return a.second != b.second ? a.second > b.second : a.first < b.first;
    });
    const bool has_others = most.size() > std::size(kinds);
    most.resize(std::min(most.size(), std::size(kinds)));
    std::sort(most.begin(), most.end(), [&](const auto& a, const auto& b) {
        return are_numbers ? number_in(a.first) < number_in(b.first) : a.first < b.first;
    });
    Map_colouring colouring;
    std::unordered_map<std::string_view, std::int32_t> colours;
    for (const auto& [value, count] : most) {
        const std::int32_t colour = kinds[colouring.legend.size()];
        colours.emplace(value, colour);
        colouring.legend.push_back({std::string(value), colour});
    }
    if (has_others)
        colouring.legend.push_back({"", other_kind});
    for (const std::string_view value : values) {
        const auto found = colours.find(value);
        colouring.colours.push_back(value.empty()            ? no_value
                                    : found != colours.end() ? found->second
                                                             : other_kind);
    }
    return colouring;
}

// What two keys have in common when they are the same: "7", "7.0" and "007" are.
std::string key_of(std::string_view text) {
    const std::optional<double> number = number_in(text);
    return number ? std::to_string(*number) : std::string(text);
}

} // namespace

Attribute_table::Attribute_table(const std::string& file_name, bool with_deleted) {
    if (!platform::is_file(file_name)) {
        fault_ = Fault::missing;
        return;
    }
    TESK::Binary_file_fstream file(file_name.c_str(), false);
    TESK::dBase_data_source source(file);
    source.set_show_deleted(with_deleted);
    const bool is_table = source.read_structure() && !source.fields.is_empty();
    const auto& header = source.get_header();
    if (!is_table || std::uint64_t(header.record_count) * header.record_length > largest_table) {
        fault_ = is_table ? Fault::too_large : Fault::unreadable;
        return;
    }
    missing_rows_ = source.get_missing_rows();
    std::vector<const TESK::dBase_data_source::Field_item*> items;
    for (const auto& item : TESK::Items_of<TESK::dBase_data_source::Field_item>(source.fields)) {
        fields_.push_back({item.name, row_length_, item.length, item.type == 'N' || item.type == 'F'});
        row_length_ += item.length;
        items.push_back(&item);
    }
    for (bool more = source.goto_first(); more; more = source.goto_next(1))
        for (const auto* item : items) {
            std::string value(source.get_field_text(*item));
            value.resize(item->length, ' ');
            rows_ += value;
        }
}

std::size_t Attribute_table::find_field(std::string_view name) const {
    const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const Field& field) {
        return TESK::equal_ignoring_case(field.name, name);
    });
    return static_cast<std::size_t>(found - fields_.begin());
}

std::string_view Attribute_table::text(std::size_t row, std::size_t field) const {
    const Field& place = fields_[field];
    return without_blanks(std::string_view(rows_).substr(row * row_length_ + place.offset, place.length));
}

std::vector<std::uint32_t> rows_in_order(const Attribute_table& table, std::size_t field, bool down) {
    struct Row {
        std::uint32_t number;
        bool has_value;
        double value;
        std::string_view text;
    };
    std::vector<Row> rows;
    rows.reserve(table.row_count());
    for (std::uint32_t number = 0; number < table.row_count(); ++number) {
        const std::string_view text = table.text(number, field);
        const std::optional<double> value = table.is_number(field) ? number_in(text) : std::nullopt;
        if (table.is_number(field))
            rows.push_back({number, value.has_value(), value.value_or(0), {}});
        else
            rows.push_back({number, !text.empty(), 0, text});
    }
    std::stable_sort(rows.begin(), rows.end(), [down](const Row& a, const Row& b) {
        if (!a.has_value || !b.has_value)
            return a.has_value && !b.has_value;
        const Row& first = down ? b : a;
        const Row& second = down ? a : b;
        return first.value != second.value ? first.value < second.value
                                           : TESK::compare_ignoring_case(first.text, second.text) < 0;
    });
    std::vector<std::uint32_t> numbers;
    numbers.reserve(rows.size());
    for (const Row& row : rows)
        numbers.push_back(row.number);
    return numbers;
}

Map_colouring colour_by(const std::vector<std::string_view>& values, bool are_numbers) {
    std::set<double> different;
    double lowest = 0;
    double highest = 0;
    for (const std::string_view value : values) {
        const std::optional<double> number = number_in(value);
        are_numbers = are_numbers && (number || value.empty());
        if (!number)
            continue;
        lowest = different.empty() ? *number : std::min(lowest, *number);
        highest = different.empty() ? *number : std::max(highest, *number);
        if (different.size() <= class_count + 1)
            different.insert(*number);
    }
    return are_numbers && different.size() > class_count + 1 ? in_classes(values, lowest, highest)
                                                             : by_kind(values, are_numbers);
}

std::vector<std::string_view> joined_values(const Attribute_table& map, std::size_t map_key,
                                            const Attribute_table& other, std::size_t other_key,
                                            std::size_t other_field) {
    std::unordered_map<std::string, std::size_t> rows;
    for (std::size_t row = 0; row < other.row_count(); ++row)
        rows.emplace(key_of(other.text(row, other_key)), row);
    std::vector<std::string_view> values;
    for (std::size_t row = 0; row < map.row_count(); ++row) {
        const auto found = rows.find(key_of(map.text(row, map_key)));
        values.push_back(found == rows.end() ? std::string_view() : other.text(found->second, other_field));
    }
    return values;
}
