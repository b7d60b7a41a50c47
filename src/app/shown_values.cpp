#include "app/shown_values.h"

#include "toolkit/screen_language.h"

#include <array>
#include <charconv>

namespace {

std::string two_digits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

std::string size_text(std::uint64_t bytes) {
    constexpr std::uint64_t step = 1024;
    constexpr std::array<const char*, 5> units{"%1 B", "%1 KB", "%1 MB", "%1 GB", "%1 TB"};
    if (bytes < step)
        return worded(units[0], std::to_string(bytes));
    std::size_t unit = 1;
    auto size = static_cast<double>(bytes) / step;
    for (; size >= step && unit + 1 < units.size(); ++unit)
        size /= step;
    std::array<char, 32> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), size, std::chars_format::fixed, 1);
    return worded(units[unit], std::string(digits.data(), end.ptr));
}

std::string time_text(const platform::Packed_time& time) {
    return std::to_string(1980 + (time.date >> 9)) + '-' + two_digits(time.date >> 5 & 15) + '-' +
           two_digits(time.date & 31) + ' ' + two_digits(time.time >> 11) + ':' +
           two_digits(time.time >> 5 & 63);
}
