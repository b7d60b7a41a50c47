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

// The lines that the synchronization has in a file, run together.
std::string written(Synchronization sync, const char* prefix) {
    TESK::Data_record record("s");
    record.expect_structure(true);
    sync.setup_structure(record, true, prefix);
    std::ostringstream text;
    record.sections.write(text);
    return text.str();
}

TEST(Synchronization_test, a_mode_decides_the_keys_in_the_file_and_the_words_on_the_screen) {
    const std::string seasons = "reschedule=no\r\nend_repeat_each_season=false\r\n";
    // the mode, the lines behind the first, the words
    const std::tuple<Mode, const char*, const char*> cases[] = {
        {Mode::actual_date, "end_date=1998213 (1998/8/1)\r\n", "1998/8/1 (actual date)"},
        {Mode::relative_to_simulation_event, "end_offset=-3\r\nend_relative_to_simulation_event=begin\r\n",
         "-3 Days begin"},
        {Mode::relative_to_sow_date, "end_date=1998213 (1998/8/1)\r\n", "1998/8/1 (relative to planting)"},
        {Mode::before_planting, "end_offset=-3\r\n", "-3 Days  (before planting)"},
        {Mode::after_normal_crop_growth_stage, "end_offset=-3\r\nend_phenologic=active_growth\r\n",
         "-3 Days after active growth"},
        {Mode::after_fruit_tree_growth_stage, "end_offset=-3\r\nend_phenologic(fruit)=bud_break\r\n",
         "-3 Days after bud break"},
        {Mode::thermal_time, "end_thermal_time=450\r\n", "450 Degree days"},
    };
    for (const auto& [mode, lines, words] : cases) {
        Synchronization sync = sync_of(mode, -3, 1998213);
        sync.normal_crop_stage.set_label("active_growth");
        sync.fruit_tree_stage.set_label("bud_break");
        std::string text = "old";
        EXPECT_EQ(sync.text_str(text), words);
        EXPECT_EQ(written(sync, "end_"), "[s]\r\nend_synchronization=" + sync.mode.get_label() + "\r\n" +
                                             lines +
                                             (mode < Mode::after_normal_crop_growth_stage ? "" : seasons));
    }
}

TEST(Synchronization_test, resolves_by_its_mode_and_a_negative_offset_moves_the_other_way) {
    const auto sown = [](std::int32_t date) { return sync_of(Mode::relative_to_sow_date, 9, date); };
    const std::tuple<Synchronization, std::int32_t, std::int32_t> cases[] = {
        {sync_of(Mode::actual_date, 9, 1998213), 2000001, 1998213},
        {Synchronization(5), 2000364, 2001003},
        {Synchronization(-5), 2001003, 2000364},
        {Synchronization(5, Simulation_event::end), 2001003, 2000364},
        {Synchronization(-5, Simulation_event::end), 2000364, 2001003},
        {sync_of(Mode::before_planting, 5), 2001003, 2000364},
        {sync_of(Mode::before_planting, INT16_MIN), 2000001, 2089261},
        {sync_of(Mode::after_normal_crop_growth_stage, -5), 2001003, 2000364},
        {sync_of(Mode::after_fruit_tree_growth_stage, 5), 1999364, 2000004},
        {sync_of(Mode::thermal_time, 5), 1999364, 0},
        {Synchronization(5), 0, 0}, // nothing to count from
        // The year of the date counts from that of the planting.
        {sown(213), 1999100, 1999213},
        {sown(1213), 1999100, 2000212}, // one of the years is a leap year
        {sown(1213), 2000100, 2001212},
        {sown(1060), 1999100, 2000060}, // up to the 60th day that does not count
        {sown(4213), 2000100, 2004213},
        {sown(1213), 1899100, 1900213}}; // 1900 is no leap year
    for (const auto& [sync, base, result] : cases)
        EXPECT_EQ(sync.resolved(TESK::Date(base)).date_num, result)
            << sync.mode.get_label() << sync.offset << " from " << base;
}

TEST(Synchronization_test, two_count_from_the_same_thing_when_mode_and_stage_agree) {
    const Mode modes[] = {Mode::actual_date, Mode::relative_to_simulation_event,
                          Mode::after_normal_crop_growth_stage, Mode::after_fruit_tree_growth_stage};
    for (const Mode mode : modes) {
        const Synchronization plain = sync_of(mode, 1);
        Synchronization other_event = sync_of(mode, 2);
        Synchronization other_crop = other_event;
        Synchronization other_tree = other_event;
        other_event.simulation_event = Simulation_event::end;
        other_crop.normal_crop_stage.set_label("harvest");
        other_tree.fruit_tree_stage.set_label("harvest");
        EXPECT_EQ(plain.same_sync(other_event), mode != Mode::relative_to_simulation_event);
        EXPECT_EQ(plain.same_sync(other_crop), mode != Mode::after_normal_crop_growth_stage);
        EXPECT_EQ(plain.same_sync(other_tree), mode != Mode::after_fruit_tree_growth_stage);
        EXPECT_FALSE(plain.same_sync(sync_of(Mode::thermal_time, 1)));
    }
}

} // namespace
