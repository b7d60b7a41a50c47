// When something happens in a simulation: on a date, so many days before or after something else, or at an
// amount of thermal time. Once it has been resolved it is simply a date.
#pragma once

#include "model/labels.h"
#include "temporal/date.h"

#include <cstdint>
#include <string>

namespace TESK {
class Data_record;
}

enum class Synchronization_mode : std::uint8_t {
    actual_date,
    relative_to_simulation_event,
    relative_to_sow_date,
    before_planting,
    after_normal_crop_growth_stage,
    after_fruit_tree_growth_stage,
    thermal_time,
};
inline constexpr const char* synchronization_mode_labels[] = {"actual_date",
                                                              "relative_to_simulation_event",
                                                              "relative_to_sow_date",
                                                              "before_planting",
                                                              "after_normal_crop_growth_stage",
                                                              "after_fruit_tree_growth_stage",
                                                              "thermal_time",
                                                              nullptr};
using Synchronization_mode_labeled = Labeled<synchronization_mode_labels, Synchronization_mode>;

// Which end of the simulation.
enum class Simulation_event : std::uint8_t { begin, end };
inline constexpr const char* simulation_event_labels[] = {"begin", "end", nullptr};
using Simulation_event_labeled = Labeled<simulation_event_labels, Simulation_event>;

// What files before version 4 knew, with the words that are shown for it.
inline constexpr Label_description synchronizations_V3_labels[] = {
    {"no_sync", ""},
    {"before_planting", "Before planting"},
    {"after_planting", "After planting"},
    {"after_bud_break", "After bud break"},
    {"after_emergence", "After emergence"},
    {"after_flowering", "After flowering"},
    {"after_grain_filling", "After grain filling"},
    {"after_initial_fruit_growth", "After initial fruit growth"},
    {"after_veraison", "After veraison"},
    {"rapid_fruit_growth", "After rapid fruit_growth"},
    {"after_maturity", "After maturity"},
    {"after_harvest", "After harvest"},
    {"after_dormancy", "After dormancy"},
    {"after_termination", "After termination"},
    {"thermal_time", "Thermal time"},
    {"actual_date", "Actual date"},
    {"relative_date", "Relative date"},
    {"relative_to_start_date", "Relative to start date"},
    {"relative_to_end_date", "Relative to end date"},
    {nullptr, nullptr}};
using Synchronizations_V3_labeled = Labeled<synchronizations_V3_labels>;

// What is done when the day has been missed.
inline constexpr const char* reschedule_mode_labels[] = {"no", "once", "multiple", nullptr};
using Reschedule_mode_labeled = Labeled<reschedule_mode_labels>;

inline constexpr const char* normal_crop_growth_stage_labels[] = {"sowing",
                                                                  "emergence",
                                                                  "restart",
                                                                  "active_growth",
                                                                  "flowering",
                                                                  "filling",
                                                                  "reserved_for_future_use_1",
                                                                  "reserved_for_future_use_2",
                                                                  "maturity",
                                                                  "dormant",
                                                                  "harvestable",
                                                                  "harvest",
                                                                  "terminated",
                                                                  nullptr};
using Normal_crop_growth_stage_labeled = Labeled<normal_crop_growth_stage_labels>;

inline constexpr const char* fruit_tree_growth_stage_labels[] = {"planting",    "<reserved>",
                                                                 "bud_break",   "active_growth",
                                                                 "flowering",   "fruit_development",
                                                                 "veraison",    "rapid_fruit_development",
                                                                 "maturity",    "dormant",
                                                                 "harvestable", "harvest",
                                                                 "terminated",  nullptr};
using Fruit_tree_growth_stage_labeled = Labeled<fruit_tree_growth_stage_labels>;

class Synchronization : public TESK::Date {
public:
    // So many days behind the beginning of the simulation, or before its end; without a date.
    explicit Synchronization(std::int16_t days = 0, Simulation_event event = Simulation_event::begin)
        : Date(std::int32_t{0}), offset(days), simulation_event(event) {}

    // In words: "2 Days after flowering". A file holds the plain date instead.
    std::string& text_str(std::string& buffer) const override;

    // Makes this the actual date `date`.
    virtual void set_date(const Date& date);

    // Declares the entries in the record's current section, each key but "reschedule" behind the prefix
    // ("begin_", "event_" or "end_"): for writing those that the mode needs, for reading all of them, and for
    // the prefixes of a start those of old files too.
    virtual void setup_structure(TESK::Data_record& record, bool for_write, const char* prefix);

    // Whether both are counted from the same thing.
    virtual bool same_sync(const Synchronization& other) const;

    bool is_relative() const;
    // Relative to the date of sowing, or an actual date.
    void set_relative(bool relative);

    // The days from what the mode counts from to the date: `offset`, negated where the mode counts backward.
    std::int32_t signed_offset() const;

    // The date, when `base` is the day that the mode counts from: the begin or the end of the simulation, the
    // planting, or the day on which the stage was reached. No date without that day, and for a thermal time,
    // which only the simulation model knows. An actual date stands, whatever `base` is.
    Date resolved(const Date& base) const;

    Synchronizations_V3_labeled old_sync; // as the file of an older version had it
    Synchronization_mode_labeled mode{Synchronization_mode::relative_to_simulation_event};
    std::int16_t offset; // days
    Simulation_event_labeled simulation_event;
    std::int16_t thermal_time = 0; // degree days
    Normal_crop_growth_stage_labeled normal_crop_stage;
    Fruit_tree_growth_stage_labeled fruit_tree_stage;
    bool repeat_each_season = false;
    Reschedule_mode_labeled reschedule;

private:
    void setup_old_keys(TESK::Data_record& record);
};
