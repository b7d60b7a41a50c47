#include "model/common_event.h"

#include "foundation/numbers.h"
#include "records/data_record.h"
#include "temporal/date_time_64.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::uint8_t operation_record_type = 0;
constexpr Record_version operation_version{4, 14, 4};

// The day on which a synchronization falls, counted from what all synchronizations of its kind count from.
std::int32_t day_number(const Synchronization& sync) {
    switch (sync.mode.get()) {
    case Synchronization_mode::actual_date:
    case Synchronization_mode::relative_to_sow_date: return sync.date_num;
    case Synchronization_mode::thermal_time: return sync.thermal_time;
    default: return sync.signed_offset();
    }
}

} // namespace

Common_operation::Common_operation()
    : Common_parameters_data_record(operation_record_type, operation_version, "operation") {}

bool Common_operation::setup_structure(TESK::Data_record&, bool) {
    return false;
}

void Common_event::Period::setup_structure(TESK::Data_record& record, bool for_write) {
    end_sync.setup_structure(record, for_write, "end_");
    record.expect_bool("repeat_event", repeat_event);
    if (repeat_event || !for_write) {
        record.expect_int16("event_repetitions", event_repetitions);
        record.expect_enum("interval_time_step", interval_time_step);
        record.expect_int16("interval", interval);
    }
    record.expect_int16("period_repetitions", period_repetitions);
    record.expect_int16("period_cycle_years", period_cycle_years);
}

Common_event::Common_event() : Common_event(new_ID()) {}

Common_event::Common_event(const TESK::Ustring& known_ID)
    : Date(std::int32_t{0}), ID(known_ID), operation_filename("") {
    operation_filename.set("noname");
}

Common_event::~Common_event() = default;

std::string& Common_event::label_to(std::string& buffer) const {
    std::string until;
    if (has_period())
        period->end_sync.text_str(until).insert(0, " until ");
    return buffer = operation_name + " (" + ID + ")" + until;
}

int Common_event::compare(const TESK::Item& other) const {
    const Synchronization& other_sync = static_cast<const Common_event&>(other).begin_sync;
    if (!begin_sync.same_sync(other_sync))
        return 0;
    const std::int32_t day = day_number(begin_sync);
    const std::int32_t other_day = day_number(other_sync);
    return day < other_day ? -1 : day > other_day ? 1 : 0;
}

bool Common_event::setup_structure(TESK::Data_record& record, bool for_write) {
    const bool periodic = !for_write || has_period();
    if (for_write && ID.empty())
        ID = new_ID();
    if (!for_write && period == nullptr)
        period = std::make_unique<Period>();

    record.expect_string("ID", ID, 255);
    record.expect_int32("res_set_ID", res_set_ID);
    record.expect_enum("contingency", contingency);
    record.expect_string("operation_type", operation_type, 255);
    record.expect_string("operation_name", operation_name, 255);
    record.expect_file_name("operation_filename", operation_filename, 255);
    record.expect_enum("enable_for_model", enable_for_model);
    if (!timing_excluded && periodic)
        begin_sync.setup_structure(record, for_write, "begin_");
    if (!timing_excluded && !(for_write && periodic))
        begin_sync.setup_structure(record, for_write, "event_");
    record.expect_bool("enabled", enabled);
    record.expect_bool("checked", checked);
    if (owned_operation != nullptr && owned_operation->is_inline())
        owned_operation->setup_structure(record, for_write);
    if (!timing_excluded && periodic)
        period->setup_structure(record, for_write);
    return true;
}

bool Common_event::set_selected(bool is) {
    selected = is;
    return true;
}

bool Common_event::set_checked(bool is) {
    checked = is;
    return true;
}

bool Common_event::has_period() const {
    return period != nullptr && (period->repeat_event || period->period_repetitions > 1);
}

bool Common_event::has_period(bool delete_idle) {
    const bool periodic = std::as_const(*this).has_period();
    if (delete_idle && !periodic)
        period.reset();
    return periodic;
}

void Common_event::own_operation(std::unique_ptr<Common_operation> operation) {
    own_operation_ = std::move(operation);
    owned_operation = own_operation_.get();
}

std::string Common_event::new_ID() {
    // Apart by enough that ten decimals of a day tell two IDs from each other.
    constexpr double step = 1e-9;
    thread_local double last = 0;
    last = std::max(TESK::Date_time_64().date_time, last + step);
    return TESK::float64_to_cstr(last, 10) + " (default)";
}

Common_event* Common_event_list::find_event(const char* ID) const {
    return static_cast<Common_event*>(find(ID, true));
}

std::vector<Common_event*> Common_event_list::due_until(const TESK::Date& day) const {
    std::vector<Common_event*> due;
    for (Common_event& event : TESK::Items_of<Common_event>(*this)) {
        const Synchronization& start = event.begin_sync;
        if (event.enabled && start.mode == Synchronization_mode::actual_date && start.date_num != 0 &&
            start.date_num <= day.date_num)
            due.push_back(&event);
    }
    std::stable_sort(due.begin(), due.end(), [](const Common_event* a, const Common_event* b) {
        return a->begin_sync.date_num < b->begin_sync.date_num;
    });
    return due;
}

void Common_event_list::complete_read_events() {
    for (Common_event& event : TESK::Items_of<Common_event>(*this)) {
        if (event.ID.empty())
            event.ID = Common_event::new_ID();
        if (event.period != nullptr)
            event.period->end_sync.reschedule = event.begin_sync.reschedule;
    }
}

void comment_event_section_VV::prepare_to_read() {
    if (read_.empty())
        for (Common_event& event : TESK::Items_of<Common_event>(events_))
            read_.push_back(&event);
    while (static_cast<int>(read_.size()) < count) {
        read_.push_back(new Common_event(TESK::Ustring()));
        events_.append(read_.back());
    }
}

// A file may have the sections in any order: reading finds each event without walking the list.
bool comment_event_section_VV::setup_element(TESK::Data_record& record, bool for_write, std::uint16_t index) {
    if (for_write)
        return VV_container_enumerated_section::setup_element(record, for_write, index);
    return index >= 1 && index <= read_.size() && read_[index - 1U]->setup_structure(record, for_write);
}
