#include "temporal/local_clock.h"

#include <algorithm>
#include <ctime>

namespace TESK {

Local_moment local_now() {
    std::timespec now{};
    std::tm local{};
    if (std::timespec_get(&now, TIME_UTC) == 0 || localtime_r(&now.tv_sec, &local) == nullptr)
        return {};
    Local_moment moment;
    moment.year = static_cast<std::int16_t>(local.tm_year + 1900);
    moment.month = static_cast<std::uint8_t>(local.tm_mon + 1);
    moment.day_of_month = static_cast<std::uint8_t>(local.tm_mday);
    moment.hour = static_cast<std::uint8_t>(local.tm_hour);
    moment.minute = static_cast<std::uint8_t>(local.tm_min);
    moment.second = static_cast<std::uint8_t>(std::min(local.tm_sec, 59)); // a leap second shows as 60
    moment.part_of_second = static_cast<double>(now.tv_nsec) / 1e9;
    return moment;
}

} // namespace TESK
