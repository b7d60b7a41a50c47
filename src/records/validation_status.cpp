#include "records/validation_status.h"

namespace TESK {

namespace {

struct Status_row {
    std::uint8_t group;
    const char* colour;
};
constexpr Status_row status_rows[validation_status_count] = {
    {0, "LIGHTBLUE"},  // unknown
    {1, "MAGENTA"},    // not_valid
    {2, "RED"},        // error_low
    {2, "RED"},        // error
    {2, "RED"},        // error_high
    {3, "ORANGE"},     // possible_error_low
    {3, "ORANGE"},     // possible_error
    {3, "ORANGE"},     // possible_error_high
    {4, "YELLOW"},     // warning_low
    {4, "YELLOW"},     // warning
    {4, "YELLOW"},     // warning_high
    {5, "limegreen"},  // unchecked
    {6, "lightgreen"}, // good
    {0, "GRAY"},       // disabled
};

const Status_row& row_of(Validation_status status) {
    const auto index = static_cast<std::uint8_t>(status);
    return status_rows[index < validation_status_count ? index : 0];
}

} // namespace

std::uint8_t severity_group(Validation_status status) {
    return row_of(status).group;
}

const char* status_colour(Validation_status status) {
    return row_of(status).colour;
}

} // namespace TESK
