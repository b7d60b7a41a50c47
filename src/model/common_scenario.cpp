#include "model/common_scenario.h"

namespace {

constexpr std::uint8_t scenario_record_type = 1;

} // namespace

Common_scenario::Common_scenario(Record_version version)
    : Common_parameters_data_record(scenario_record_type, version, "scenario") {}

void Common_scenario::expect_structure(bool for_write) {
    Common_parameters_data_record::expect_structure(for_write);
    expect_enumerated_section(std::make_unique<comment_event_section_VV>(events), false);
}

void Common_scenario::postread() {
    events.complete_read_events();
    Common_parameters_data_record::postread();
}
