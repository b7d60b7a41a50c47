#include "model/synchronization.h"

#include "foundation/numbers.h"
#include "records/data_record.h"

#include <algorithm>
#include <string_view>

using Mode = Synchronization_mode;

std::string& Synchronization::text_str(std::string& buffer) const {
    buffer.clear();
    const auto days = [&]() -> std::string& {
        TESK::append_integer(buffer, offset);
        return buffer += " Days ";
    };
    switch (mode.get()) {
    case Mode::actual_date: Date::text_str(buffer) += " (actual date)"; break;
    case Mode::relative_to_simulation_event: days() += simulation_event.get_label(); break;
    case Mode::relative_to_sow_date: Date::text_str(buffer) += " (relative to planting)"; break;
    case Mode::before_planting: days() += " (before planting)"; break;
    case Mode::after_normal_crop_growth_stage: days() += "after " + normal_crop_stage.get_label(); break;
    case Mode::after_fruit_tree_growth_stage: days() += "after " + fruit_tree_stage.get_label(); break;
    case Mode::thermal_time:
        TESK::append_integer(buffer, thermal_time);
        buffer += " Degree days";
        break;
    }
    std::replace(buffer.begin(), buffer.end(), '_', ' ');
    return buffer;
}

void Synchronization::set_date(const Date& date) {
    mode = Mode::actual_date;
    offset = 0;
    set_datenum(date.date_num);
}

void Synchronization::setup_structure(TESK::Data_record& record, bool for_write, const char* prefix) {
    std::string prefixed;
    const auto key = [&](const char* name) { return (prefixed = prefix).append(name).c_str(); };
    const auto has = [&](auto... modes) { return !for_write || ((mode == modes) || ...); };
    const bool has_stage = has(Mode::after_normal_crop_growth_stage);
    const bool has_fruit_tree_stage = has(Mode::after_fruit_tree_growth_stage);
    const bool has_thermal_time = has(Mode::thermal_time);

    record.expect_enum(key("synchronization"), mode);
    if (has(Mode::actual_date, Mode::relative_to_sow_date))
        record.expect_date(key("date"), *this);
    if (has(Mode::relative_to_simulation_event, Mode::before_planting) || has_stage || has_fruit_tree_stage)
        record.expect_int16(key("offset"), offset);
    if (has(Mode::relative_to_simulation_event))
        record.expect_enum(key("relative_to_simulation_event"), simulation_event);
    if (has_stage)
        record.expect_enum(key("phenologic"), normal_crop_stage);
    if (has_fruit_tree_stage)
        record.expect_enum(key("phenologic(fruit)"), fruit_tree_stage);
    if (has_thermal_time)
        record.expect_int16(key("thermal_time"), thermal_time);
    if (has_stage || has_fruit_tree_stage || has_thermal_time) {
        record.expect_enum("reschedule", reschedule);
        record.expect_bool(key("repeat_each_season"), repeat_each_season);
    }
    if (!for_write && std::string_view(prefix) != "end_")
        setup_old_keys(record);
}

void Synchronization::setup_old_keys(TESK::Data_record& record) {
    // The other prefix of the same start may have declared them.
    if (record.get_current_section()->find_entry("sync") != nullptr)
        return;
    record.expect_enum("sync", old_sync);
    record.expect_int16("offset", offset);
    record.expect_int16("thermal_time", thermal_time);
    record.expect_date("date", *this);
    record.expect_enum("phen_sync", old_sync);
    record.expect_enum("synchronization", old_sync);
    record.expect_enum("synchronisation", old_sync);
    record.set_entry_alias("sync", "phen_sync");
}

bool Synchronization::same_sync(const Synchronization& other) const {
    if (mode != other.mode)
        return false;
    switch (mode.get()) {
    case Mode::relative_to_simulation_event: return simulation_event == other.simulation_event;
    case Mode::after_normal_crop_growth_stage: return normal_crop_stage == other.normal_crop_stage;
    case Mode::after_fruit_tree_growth_stage: return fruit_tree_stage == other.fruit_tree_stage;
    default: return true;
    }
}

bool Synchronization::is_relative() const {
    return mode == Mode::relative_to_simulation_event || mode == Mode::relative_to_sow_date;
}

void Synchronization::set_relative(bool relative) {
    mode = relative ? Mode::relative_to_sow_date : Mode::actual_date;
}

std::int32_t Synchronization::signed_offset() const {
    const bool backward = mode == Mode::before_planting || (mode == Mode::relative_to_simulation_event &&
                                                            simulation_event == Simulation_event::end);
    return backward ? -offset : offset;
}

TESK::Date Synchronization::resolved(const Date& base) const {
    Date date(std::int32_t{0});
    if (mode == Mode::actual_date) {
        date.set_datenum(date_num);
    } else if (base.date_num == 0 || mode == Mode::thermal_time) {
        return date;
    } else if (mode == Mode::relative_to_sow_date) {
        const auto year = static_cast<std::int16_t>(base.get_year() + get_year());
        std::uint16_t day = get_day_of_year();
        if (TESK::is_leap_year(base.get_year()) != TESK::is_leap_year(year) && day > 60)
            --day;
        date.set_YD(year, day);
    } else {
        date.set_datenum(base.date_num);
        const std::int32_t days = signed_offset();
        days < 0 ? date.dec_days(-days) : date.inc_days(days);
    }
    return date;
}
