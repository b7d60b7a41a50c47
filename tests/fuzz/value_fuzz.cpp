// Any bytes are a value: a number, a unit, a date under any format. Numbers are read as the C library reads
// them, and what is written is read back as it was.
#include "foundation/numbers.h"
#include "records/typed_entries.h"
#include "require.h"
#include "temporal/date_time_64.h"
#include "units/units_clad.h"
#include "units/units_convertor.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>

namespace {

// Takes a value off the front of the bytes; what is missing is 0.
template <class T>
T take(std::string_view& bytes) {
    T value{};
    const std::size_t there = std::min(bytes.size(), sizeof value);
    std::memcpy(&value, bytes.data(), there);
    bytes.remove_prefix(there);
    return value;
}

void check_numbers(const std::string& text, float number) {
    const double read = TESK::parse_float64(text.c_str());
    const double expected = std::strtod(text.c_str(), nullptr);
    require(std::isnan(expected) ? std::isnan(read) : read == expected || std::fabs(expected) < 1e-300);
    for (const int radix : {0, 2, 10, 16, 36}) {
        errno = 0;
        const long long whole = std::strtoll(text.c_str(), nullptr, radix);
        require(errno == ERANGE || TESK::parse_integer(text.c_str(), radix) == whole);
    }
    std::string quick;
    std::string plain;
    TESK::append_ten_decimals(quick, number);
    TESK::append_fixed(plain, number, 10);
    require(quick == plain);
    TESK::is_number_text(text.c_str());
    TESK::float64_to_cstr_formatted(read, plain, static_cast<std::uint8_t>(text.size()), 3, ',', false);
}

void check_units(const std::string& text, float number, std::uint32_t other) {
    const TESK::Units_clad unit(TESK::Units_clad::parse_label(text.c_str()));
    std::string label;
    std::string abbreviation;
    unit.get_label(label);
    unit.compose_labels(label, abbreviation);
    TESK::Units_clad(other).compose_labels(label, abbreviation);
    float converted = 0;
    require(TESK::Units_convertor().convert(number, unit.code, converted, other));
    require(TESK::Units_convertor().convert(number, other, converted, unit.code));
}

void check_dates(const std::string& text, std::int16_t steps, std::uint32_t format) {
    TESK::Date date(text.c_str(), static_cast<std::uint16_t>(format),
                    static_cast<std::uint16_t>(format >> 16), static_cast<char>(steps), format % 3 == 0);
    date.set_format(text.c_str());
    date.set_c_str(text.c_str());
    TESK::VV_date_entry entry("date", date, false, nullptr, nullptr);
    const std::int32_t number = date.date_num;
    std::string written;
    entry.get_value(written);
    entry.set_value(TESK::Ustring(written));
    require(date.date_num == number);
    date.inc_months(steps);
    date.dec_months(steps);
    date.inc_days(steps);
    date.dec_days(steps);
    date.inc_years(steps);
    date.get_month();
    date.get_day_of_month();
    TESK::Date_time_64 moment(TESK::parse_float64(text.c_str()));
    moment.text_str(written);
    TESK::Time time(0, 0, 0);
    time.set_c_str(text.c_str());
    time.text_str(written);
}

} // namespace

void try_input(const std::string& input) {
    std::string_view bytes = input;
    const auto number = take<float>(bytes);
    const auto other = take<std::uint32_t>(bytes);
    const auto steps = take<std::int16_t>(bytes);
    const std::string text(bytes.substr(0, 256));
    check_numbers(text, number);
    check_units(text, number, other);
    check_dates(text, steps, other);
}
