// The present moment as the user's calendar and clock show it.
#pragma once

#include <cstdint>

namespace TESK {

struct Local_moment {
    std::int16_t year = 0;
    std::uint8_t month = 0; // from 1
    std::uint8_t day_of_month = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    double part_of_second = 0; // from 0, below 1
};

// All zero when the host cannot tell.
Local_moment local_now();

} // namespace TESK
