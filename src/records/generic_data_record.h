// A record whose fields are known only at run time: a row of any table.
#pragma once

#include "records/data_record.h"
#include "temporal/date.h"

#include <array>
#include <cstdint>

namespace TESK {

class Generic_data_record : public Data_record {
public:
    explicit Generic_data_record(const char* primary_section) : Data_record(primary_section) {}

    // Each takes the next free slot of its kind and declares an entry bound to it in the current section.
    // Null when the slots are used up.
    VV_base_entry* add_string(const char* key, std::uint16_t max_strlen);
    VV_base_entry* add_date(const char* key);
    VV_base_entry* add_float32(const char* key);
    VV_base_entry* add_int16(const char* key);
    VV_base_entry* add_bool(const char* key);

    std::array<Ustring, 20> strings;
    std::array<Date, 20> dates = no_dates();
    std::array<float, 200> float32s{};
    std::array<std::int16_t, 200> int16s{};
    std::array<bool, 20> flags{};
    std::size_t string_count = 0;
    std::size_t date_count = 0;
    std::size_t float32_count = 0;
    std::size_t int16_count = 0;
    std::size_t flag_count = 0;

private:
    static std::array<Date, 20> no_dates();
};

} // namespace TESK
