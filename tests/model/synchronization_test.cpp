#include "model/synchronization.h"

#include "records/data_record.h"

#include <gtest/gtest.h>
#include <sstream>

using Mode = Synchronization_mode;

namespace {

Synchronization sync_of(Mode mode, std::int16_t offset, std::int32_t date_num = 0) {
    Synchronization sync(offset);
    sync.mode = mode;
    sync.set_datenum(date_num);
    sync.thermal_time = 450;
    return sync;
}

std::int32_t resolved(const Synchronization& sync, std::int32_t base) {
    return sync.resolved(TESK::Date(base)).date_num;
}

// The lines that the synchronization has in a file, run together.
std::string written(Synchronization sync, const char* prefix) {
    TESK::Data_record record("s");
    record.expect_structure(true);
    sync.setup_structure(record, true, prefix);
    std::ostringstream text;
    record.sections.write(text);
    return text.str();
}

TEST(Synchronization_test, a_mode_writes_the_keys_that_it_needs) {
    struct Case {
        Mode mode;
        const char* lines;
    };
    const Case cases[] = {
        {Mode::actual_date, "end_synchronization=actual_date\r\nend_date=1998213 (1998/8/1)\r\n"},
        {Mode::relative_to_simulation_event, "end_synchronization=relative_to_simulation_event\r\n"
                                             "end_offset=-3\r\nend_relative_to_simulation_event=begin\r\n"},
        {Mode::relative_to_sow_date,
         "end_synchronization=relative_to_sow_date\r\nend_date=1998213 (1998/8/1)\r\n"},
        {Mode::before_planting, "end_synchronization=before_planting\r\nend_offset=-3\r\n"},
        {Mode::after_normal_crop_growth_stage,
         "end_synchronization=after_normal_crop_growth_stage\r\nend_offset=-3\r\nend_phenologic=sowing\r\n"
         "reschedule=no\r\nend_repeat_each_season=false\r\n"},
        {Mode::after_fruit_tree_growth_stage,
         "end_synchronization=after_fruit_tree_growth_stage\r\nend_offset=-3\r\n"
         "end_phenologic(fruit)=planting\r\nreschedule=no\r\nend_repeat_each_season=false\r\n"},
        {Mode::thermal_time, "end_synchronization=thermal_time\r\nend_thermal_time=450\r\n"
                             "reschedule=no\r\nend_repeat_each_season=false\r\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(written(sync_of(c.mode, -3, 1998213), "end_"), std::string("[s]\r\n") + c.lines);
}

TEST(Synchronization_test, shows_itself_in_words) {
    struct Case {
        Mode mode;
        const char* text;
    };
    const Case cases[] = {
        {Mode::actual_date, "1998/8/1 (actual date)"},
        {Mode::relative_to_simulation_event, "2 Days end"},
        {Mode::relative_to_sow_date, "1998/8/1 (relative to planting)"},
        {Mode::before_planting, "2 Days  (before planting)"},
        {Mode::after_normal_crop_growth_stage, "2 Days after active growth"},
        {Mode::after_fruit_tree_growth_stage, "2 Days after bud break"},
        {Mode::thermal_time, "450 Degree days"},
    };
    for (const Case& c : cases) {
        Synchronization sync = sync_of(c.mode, 2, 1998213);
        sync.simulation_event = Simulation_event::end;
        sync.normal_crop_stage.set_label("active_growth");
        sync.fruit_tree_stage.set_label("bud_break");
        std::string text = "old";
        EXPECT_EQ(sync.text_str(text), c.text);
    }
    Synchronization outside;
    outside.mode.set_int32(200);
    std::string text;
    EXPECT_EQ(outside.text_str(text), "");
}

TEST(Synchronization_test, resolves_to_a_date_by_its_mode) {
    EXPECT_EQ(resolved(sync_of(Mode::actual_date, 9, 1998213), 2000001), 1998213);
    EXPECT_EQ(resolved(sync_of(Mode::relative_to_simulation_event, 5), 2000364), 2001003);
    EXPECT_EQ(resolved(sync_of(Mode::before_planting, 5), 2001003), 2000364);
    EXPECT_EQ(resolved(sync_of(Mode::after_normal_crop_growth_stage, 5), 1999364), 2000004);
    EXPECT_EQ(resolved(sync_of(Mode::after_fruit_tree_growth_stage, 0), 1999364), 1999364);
    EXPECT_EQ(resolved(sync_of(Mode::thermal_time, 5), 1999364), 0);

    Synchronization from_end(5, Simulation_event::end);
    EXPECT_EQ(resolved(from_end, 2001003), 2000364);
    // Nothing to count from.
    EXPECT_EQ(resolved(from_end, 0), 0);
}

TEST(Synchronization_test, a_negative_offset_moves_the_other_way) {
    EXPECT_EQ(resolved(sync_of(Mode::relative_to_simulation_event, -5), 2001003), 2000364);
    EXPECT_EQ(resolved(sync_of(Mode::before_planting, -5), 2000364), 2001003);
    EXPECT_EQ(resolved(sync_of(Mode::after_normal_crop_growth_stage, -5), 2001003), 2000364);
    EXPECT_EQ(resolved(Synchronization(-5, Simulation_event::end), 2000364), 2001003);
    EXPECT_EQ(resolved(sync_of(Mode::before_planting, INT16_MIN), 2000001), 2089261);
}

TEST(Synchronization_test, a_date_relative_to_planting_falls_in_the_year_of_the_planting) {
    struct Case {
        std::int32_t date; // the year is an offset
        std::int32_t base;
        std::int32_t result;
    };
    const Case cases[] = {
        {213, 1999100, 1999213},  {1213, 1999100, 2000212}, // one of the years is a leap year
        {1213, 2000100, 2001212}, {1060, 1999100, 2000060}, // up to the 60th day that does not count
        {4213, 2000100, 2004213}, {1213, 1899100, 1900213}, // 1900 is no leap year
    };
    for (const Case& c : cases)
        EXPECT_EQ(resolved(sync_of(Mode::relative_to_sow_date, 9, c.date), c.base), c.result) << c.date;
}

TEST(Synchronization_test, two_count_from_the_same_thing_when_mode_and_stage_agree) {
    const auto same = [](Mode mode, auto change) {
        Synchronization a = sync_of(mode, 1);
        const Synchronization b = sync_of(mode, 2);
        change(a);
        return a.same_sync(b);
    };
    const auto other_event = [](Synchronization& s) { s.simulation_event = Simulation_event::end; };
    const auto other_crop = [](Synchronization& s) { s.normal_crop_stage.set_label("harvest"); };
    const auto other_tree = [](Synchronization& s) { s.fruit_tree_stage.set_label("harvest"); };
    EXPECT_FALSE(same(Mode::relative_to_simulation_event, other_event));
    EXPECT_FALSE(same(Mode::after_normal_crop_growth_stage, other_crop));
    EXPECT_FALSE(same(Mode::after_fruit_tree_growth_stage, other_tree));
    EXPECT_TRUE(same(Mode::relative_to_simulation_event, other_crop));
    EXPECT_TRUE(same(Mode::after_normal_crop_growth_stage, other_tree));
    EXPECT_TRUE(same(Mode::after_fruit_tree_growth_stage, other_event));
    EXPECT_FALSE(sync_of(Mode::actual_date, 0).same_sync(sync_of(Mode::thermal_time, 0)));
}

TEST(Synchronization_test, becomes_an_actual_or_a_relative_date) {
    Synchronization sync(7);
    EXPECT_TRUE(sync.is_relative());
    sync.set_date(TESK::Date(std::int32_t{1998213}));
    EXPECT_FALSE(sync.is_relative());
    EXPECT_EQ(sync.date_num, 1998213);
    EXPECT_EQ(sync.offset, 0);
    sync.set_relative(true);
    EXPECT_EQ(sync.mode.get_label(), "relative_to_sow_date");
    sync.set_relative(false);
    EXPECT_EQ(sync.mode.get_label(), "actual_date");
}

} // namespace
