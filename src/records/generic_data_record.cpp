#include "records/generic_data_record.h"

namespace TESK {

VV_base_entry* Generic_data_record::add_string(const char* key, std::uint16_t max_strlen) {
    return string_count == strings.size() ? nullptr : expect_string(key, strings[string_count++], max_strlen);
}

VV_base_entry* Generic_data_record::add_date(const char* key) {
    return date_count == dates.size() ? nullptr : expect_date(key, dates[date_count++]);
}

VV_base_entry* Generic_data_record::add_float32(const char* key) {
    return float32_count == float32s.size() ? nullptr : expect_float32(key, float32s[float32_count++]);
}

VV_base_entry* Generic_data_record::add_int16(const char* key) {
    return int16_count == int16s.size() ? nullptr : expect_int16(key, int16s[int16_count++]);
}

VV_base_entry* Generic_data_record::add_bool(const char* key) {
    return flag_count == flags.size() ? nullptr : expect_bool(key, flags[flag_count++]);
}

std::array<Date, 20> Generic_data_record::no_dates() {
    std::array<Date, 20> dates;
    dates.fill(Date(0));
    return dates;
}

} // namespace TESK
