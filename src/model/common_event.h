// The scheduled events of a scenario: what is done (an operation) and when (a synchronization, and a period
// in which it recurs); their list; and the series of sections that keeps them in the scenario's file.
#pragma once

#include "foundation/association_list.h"
#include "foundation/ustring.h"
#include "model/synchronization.h"
#include "names/typed_filenames.h"
#include "records/common_parameters.h"
#include "records/vv_enumerated_section.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// Which of the coupled models runs an event.
inline constexpr const char* enable_for_model_labels[] = {"secondary_only", "primary_and_secondary",
                                                          "secondary_over_primary", nullptr};
using Enable_for_model_labeled = Labeled<enable_for_model_labels>;

inline constexpr const char* interval_timestep_labels[] = {
    "day",    "week",    "fortnight", "month",    "trimester", "quarter",  "biannum", "year", "sunday",
    "monday", "tuesday", "wednesday", "thursday", "friday",    "saturday", "never",   nullptr};
using Interval_timestep_labeled = Labeled<interval_timestep_labels>;

// The kinds of operation.
inline constexpr const char* tilverra_Op_labels[] = {"UNKNOWN",
                                                     "SOWING",
                                                     "HARVEST",
                                                     "TILLAGE",
                                                     "RESIDUE",
                                                     "IRRIGATION",
                                                     "INORGANIC_NITROGEN",
                                                     "ORGANIC_NITROGEN",
                                                     "BIOMATTER_APPLICATION",
                                                     "CHEMICAL",
                                                     "AUTO_IRRIGATION",
                                                     "AUTO_N_OPTIMAL",
                                                     "AUTO_NO3",
                                                     "AUTO_NO3_BALANCED",
                                                     "AUTO_NO3_CALIBRATED",
                                                     "AUTO_NO3_APPL",
                                                     "SOIL_N_SAMPLING",
                                                     "AUTO_CLIP_BIOMASS",
                                                     "RECALIBRATION",
                                                     "PROFILE_PRINT",
                                                     nullptr};
using Tilverra_Op_labeled = Labeled<tilverra_Op_labels>;

// The record of an operation file. What the operations do is the simulation model's business: here one is a
// file with a description.
class Common_operation : public Common_parameters_data_record {
public:
    Common_operation();

    // Whether the operation's keys stand in the section of its event.
    virtual bool is_inline() const { return false; }
    // Declares them there. True when there were any.
    virtual bool setup_structure(TESK::Data_record& record, bool for_write);
};

// As a Date an event is the day on which a simulation does it next; here it has none.
class Common_event : public TESK::Date, public TESK::Association {
public:
    // How an event recurs.
    class Period {
    public:
        // Declares the period's entries in the record's current section.
        void setup_structure(TESK::Data_record& record, bool for_write);

        std::int16_t event_repetitions = 32767; // how often the event recurs in the period
        bool repeat_event = false;
        Interval_timestep_labeled interval_time_step;
        std::int16_t interval = 1; // steps between two repetitions
        Synchronization end_sync;
        std::int16_t period_repetitions = 1; // how often the period comes
        std::int16_t period_cycle_years = 1; // years between two periods

        // How far a simulation has come.
        std::int16_t events_done = 0;
        std::int16_t periods_done = 0;
        std::int16_t events_left = 32767;
        std::int16_t periods_left = 32767;
        Date next_date{std::int32_t{0}};
    };

    // A new event, whose ID is the present moment, or the next one that no ID of this process has been given.
    Common_event();
    // An event with the ID, which may be empty until the event has been read.
    explicit Common_event(const TESK::Ustring& known_ID);
    ~Common_event() override;

    // The operation's name and, in brackets, the ID; of a repeating event also until when.
    std::string& label_to(std::string& buffer) const override;
    const char* get_key() const override { return ID.c_str(); }
    bool is_key_case_sensitive() const override { return true; }

    // Events on actual dates, and events that count from the same thing, by the day on which they start: -1,
    // 0 or 1. Any others are equal, so that sorting leaves them in their order. The other item is an event.
    int compare(const TESK::Item& other) const override;

    // Declares the event's entries in the record's current section. True.
    bool setup_structure(TESK::Data_record& record, bool for_write) override;

    bool is_enabled() const override { return enabled; }
    bool is_selected() const override { return selected; }
    bool is_checked() const override { return checked; }
    bool set_selected(bool is) override;
    bool set_checked(bool is) override;

    // Whether the event repeats, or its period does.
    bool has_period() const;
    // The same; with `delete_idle`, a period that does neither is deleted.
    bool has_period(bool delete_idle);

    // Gives the event an operation to keep as its own; null for none.
    void own_operation(std::unique_ptr<Common_operation> operation);

    // The ID of a new event: a moment as a number, marked as a default.
    static std::string new_ID();

    Synchronization begin_sync;
    Contingency_labeled contingency;
    TESK::Ustring ID;
    Common_operation* owned_operation = nullptr; // null for none; the event's own, or outliving it
    TESK::Ustring operation_type;                // a label of Tilverra_Op_labeled
    TESK::Ustring operation_name;
    OP_filename operation_filename;
    Enable_for_model_labeled enable_for_model;
    std::int32_t res_set_ID = 0;
    std::unique_ptr<Period> period = std::make_unique<Period>(); // null when the event happens once
    bool checked = true;
    bool enabled = true;
    bool selected = false;
    bool timing_excluded = false; // whether the file leaves out when the event happens
    TESK::Ustring status_text;

private:
    std::unique_ptr<Common_operation> own_operation_;
};

// The events of a scenario, in the order in which they were read.
class Common_event_list : public TESK::Association_list {
public:
    // The first event with the ID, byte for byte; null when there is none, or the ID is null.
    Common_event* find_event(const char* ID) const;

    // The enabled events on actual dates up to the day, ordered by their dates; those of one date in the
    // list's order.
    std::vector<Common_event*> due_until(const TESK::Date& day) const;

    // After reading: each event without an ID gets a new one, and what a file holds once for both ends of a
    // period becomes the same in both.
    void complete_read_events();
};

// The sections [event:1], [event:2]... of a scenario. Reading makes as many events as the file tells.
class comment_event_section_VV : public TESK::VV_container_enumerated_section {
public:
    explicit comment_event_section_VV(Common_event_list& events)
        : VV_container_enumerated_section("event", true, events), events_(events) {}

    bool setup_element(TESK::Data_record& record, bool for_write, std::uint16_t index) override;

protected:
    void prepare_to_read() override;

private:
    Common_event_list& events_;
    std::vector<Common_event*> read_; // the events of the list, once the first count has been met
};
