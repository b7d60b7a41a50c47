#include "scenario_support.h"

#include "temporal/date_time_64.h"

#include <functional>
#include <set>

namespace {

using Mode = Synchronization_mode;

class Common_event_test : public Scenario_test {
protected:
    // The section that an event so changed has in a saved scenario.
    std::string saved(const std::function<void(Common_event&)>& change) {
        Tilverra_scenario scenario;
        auto* event = new Common_event("first");
        scenario.events.append(event);
        event->operation_name = "furrow";
        change(*event);
        return section(save(scenario), "event:1");
    }
};

const std::string before_timing = "[event:1]\r\nID=first\r\nres_set_ID=0\r\ncontingency=none\r\n"
                                  "operation_type=\r\noperation_name=furrow\r\noperation_filename=noname\r\n"
                                  "enable_for_model=secondary_only\r\n";
const std::string switches = "enabled=true\r\nchecked=true\r\n";

TEST_F(Common_event_test, how_an_event_recurs_decides_what_is_written_of_its_time) {
    EXPECT_EQ(saved([](Common_event&) {}),
              before_timing +
                  "event_synchronization=relative_to_simulation_event\r\nevent_offset=0\r\n"
                  "event_relative_to_simulation_event=begin\r\n" +
                  switches);
    const std::string begin = before_timing +
                              "begin_synchronization=relative_to_simulation_event\r\nbegin_offset=0\r\n"
                              "begin_relative_to_simulation_event=begin\r\n" +
                              switches +
                              "end_synchronization=relative_to_simulation_event\r\nend_offset=0\r\n"
                              "end_relative_to_simulation_event=";
    EXPECT_EQ(saved([](Common_event& event) {
                  event.period->repeat_event = true;
                  event.period->interval_time_step.set_label("fortnight");
                  event.period->end_sync.simulation_event = Simulation_event::end;
              }),
              begin +
                  "end\r\nrepeat_event=true\r\nevent_repetitions=32767\r\ninterval_time_step=fortnight\r\n"
                  "interval=1\r\nperiod_repetitions=1\r\nperiod_cycle_years=1\r\n");
    EXPECT_EQ(saved([](Common_event& event) { event.period->period_repetitions = 3; }),
              begin + "begin\r\nrepeat_event=false\r\nperiod_repetitions=3\r\nperiod_cycle_years=1\r\n");
}

TEST_F(Common_event_test, an_inline_operation_has_its_keys_in_the_event_and_timing_can_be_left_out) {
    struct Inline_operation : Common_operation {
        bool is_inline() const override { return true; }
        bool setup_structure(TESK::Data_record& record, bool) override {
            return record.expect_int16("depth", depth) != nullptr;
        }
        std::int16_t depth = 12;
    };
    for (const bool is_inline : {false, true}) {
        const std::string text = saved([is_inline](Common_event& event) {
            event.period->repeat_event = true;
            event.timing_excluded = true;
            event.own_operation(is_inline ? std::make_unique<Inline_operation>()
                                          : std::make_unique<Common_operation>());
        });
        EXPECT_EQ(text, before_timing + switches + (is_inline ? "depth=12\r\n" : ""));
    }
}

TEST_F(Common_event_test, a_start_is_read_under_either_prefix_and_under_the_keys_of_old_files) {
    // the lines, and the mode, offset and old mode that come of them
    for (const auto& [lines, read_as] :
         {std::pair("begin_synchronization=before_planting\nbegin_offset=4", "before_planting 4 no_sync"),
          {"event_synchronization=before_planting\nevent_offset=4", "before_planting 4 no_sync"},
          {"sync=after_flowering\noffset=5", "relative_to_simulation_event 5 after_flowering"},
          {"phen_sync=after_harvest", "relative_to_simulation_event 0 after_harvest"},
          {"synchronization=after_veraison", "relative_to_simulation_event 0 after_veraison"},
          {"synchronisation=relative_date", "relative_to_simulation_event 0 relative_date"},
          {"end_synchronization=before_planting", "relative_to_simulation_event 0 no_sync"},
          {"event_synchronization=tomorrow", "actual_date 0 no_sync"}}) {
        const auto scenario = read(std::string("event:count=1\n[event:1]\n") + lines);
        const Synchronization& start = event_at(*scenario, 0)->begin_sync;
        EXPECT_EQ(start.mode.get_label() + " " + std::to_string(start.offset) + " " +
                      start.old_sync.get_label(),
                  read_as)
            << lines;
    }
}

TEST_F(Common_event_test, a_reschedule_is_one_key_for_both_ends) {
    const auto scenario = read("event:count=1\n[event:1]\nbegin_synchronization=actual_date\n"
                               "end_synchronization=thermal_time\nreschedule=multiple\nrepeat_event=true\n");
    const std::string first = save(*scenario);
    EXPECT_TRUE(has(first, "reschedule=multiple")) << first;
    EXPECT_EQ(save(*read(first)), first);
}

TEST_F(Common_event_test, an_event_without_an_ID_has_a_moment_for_one_and_each_another) {
    const double before = TESK::Date_time_64().date_time;
    const auto scenario = read("event:count=4\n[event:1]\nID=a\n[event:2]\nID=\n");
    ASSERT_EQ(scenario->events.count(), 4U);
    EXPECT_EQ(scenario->events.find_event("a"), event_at(*scenario, 0));
    for (const char* unknown : {"A", "b", static_cast<const char*>(nullptr)})
        EXPECT_EQ(scenario->events.find_event(unknown), nullptr);
    std::set<std::string> met;
    for (const std::uint32_t index : {1U, 2U, 3U})
        EXPECT_TRUE(met.insert(event_at(*scenario, index)->ID).second);
    for (int event = 0; event < 100; ++event)
        EXPECT_TRUE(met.insert(Common_event().ID).second);
    for (const std::string& ID : met) {
        EXPECT_GE(std::stod(ID), before);
        EXPECT_EQ(ID.find('.'), 7U) << ID;
        EXPECT_EQ(ID.substr(18), " (default)") << ID;
    }
    const std::string first = save(*scenario);
    EXPECT_EQ(save(*read(first)), first);
}

TEST_F(Common_event_test, a_hostile_count_makes_the_events_that_it_tells_and_no_sections) {
    for (const char* count : {":count=-1", ":count=65536", ":count=junk", ":count=40000", "_count=2"})
        EXPECT_TRUE(read(std::string("event") + count)->events.is_empty()) << count;
    std::string text;
    for (int growing = 30000; growing < 32767; ++growing)
        text += "event:count=" + std::to_string(growing) + "\n";
    text += "event:count=32767\n";
    for (int index = 32767; index > 32000; --index)
        text += "[event:" + std::to_string(index) + "]\nID=" + std::to_string(index) + "\n";
    const auto scenario = read_file(folder.write("hostile.tvn", text), true);
    EXPECT_EQ(scenario->events.count(), 32767U);
    EXPECT_LT(scenario->sections.count(), 900U);
    EXPECT_EQ(event_at(*scenario, 32766)->ID, "32767");
}

TEST_F(Common_event_test, shows_its_name_its_ID_and_until_when_it_repeats) {
    std::string text;
    Common_event event("first");
    event.operation_name = "furrow";
    EXPECT_EQ(event.label_to(text), "furrow (first)");
    event.period->repeat_event = true;
    event.period->end_sync.offset = 3;
    EXPECT_EQ(event.label_to(text), "furrow (first) until 3 Days begin");
}

TEST_F(Common_event_test, a_period_that_does_nothing_can_be_deleted_and_comes_back_on_reading) {
    Common_event event("first");
    event.period->period_repetitions = 2;
    EXPECT_TRUE(event.has_period(true));
    event.period->period_repetitions = 1;
    EXPECT_FALSE(event.has_period(true));
    EXPECT_EQ(event.period, nullptr);
    TESK::Data_record record("event:1");
    event.setup_structure(record, false);
    EXPECT_NE(event.period, nullptr);
}

TEST_F(Common_event_test, events_compare_by_the_day_on_which_they_start) {
    for (const auto& [mode, by_date, by_offset] : {std::tuple(Mode::actual_date, 1, 0),
                                                   {Mode::relative_to_sow_date, 1, 0},
                                                   {Mode::relative_to_simulation_event, 0, 1},
                                                   {Mode::before_planting, 0, -1}}) {
        Common_event plain("plain"), later("later"), behind("behind");
        for (Common_event* event : {&plain, &later, &behind})
            event->begin_sync.mode = mode;
        later.begin_sync.set_datenum(1998201);
        behind.begin_sync.offset = 5;
        EXPECT_EQ(later.compare(plain), by_date);
        EXPECT_EQ(behind.compare(plain), by_offset);
        plain.begin_sync.mode = Mode::thermal_time;
        EXPECT_EQ(later.compare(plain), 0);
    }
}

TEST_F(Common_event_test, the_events_due_are_walked_by_date) {
    Common_event_list events;
    for (const auto& [ID, date] : {std::pair("late", 1998300),
                                   {"b", 1998200},
                                   {"off", 1998100},
                                   {"a", 1998100},
                                   {"b2", 1998200},
                                   {"no date", 0}}) {
        auto* event = new Common_event(ID);
        event->begin_sync.set_date(TESK::Date(std::int32_t{date}));
        event->enabled = event->ID != "off";
        events.append(event);
    }
    events.append(new Common_event("relative"));
    std::string walked;
    for (const Common_event* event : events.due_until(TESK::Date(std::int32_t{1998200})))
        walked += event->ID + " ";
    EXPECT_EQ(walked, "a b b2 ");
}

} // namespace
