// What is known of a value, in one byte that the whole system shares.
#pragma once

#include <cstdint>

namespace TESK {

enum class Validation_status : std::uint8_t {
    unknown = 0,
    not_valid = 1, // the text is no number
    error_low = 2,
    error = 3,
    error_high = 4,
    possible_error_low = 5,
    possible_error = 6,
    possible_error_high = 7,
    warning_low = 8,
    warning = 9,
    warning_high = 10,
    unchecked = 11, // a new object's
    good = 12,
    disabled = 13,
};

constexpr int validation_status_count = 14;

// The severity that the status belongs to: 0 nothing known or not applicable, 1 no number, 2 errors, 3
// possible errors, 4 warnings, 5 unchecked, 6 good. 0 for a number that is no status.
std::uint8_t severity_group(Validation_status status);

// The colour word of the status in a page; that of the unknown status for a number that is none.
const char* status_colour(Validation_status status);

} // namespace TESK
