// What the scenario of every model has: the common parameters and the list of scheduled events.
#pragma once

#include "model/common_event.h"
#include "names/smart_file_name.h"
#include "records/common_parameters.h"

class Common_scenario : public Common_parameters_data_record {
public:
    explicit Common_scenario(Record_version version);

    void expect_structure(bool for_write) override;
    void postread() override;
    const char* get_kind() const override { return "scenario"; }

    Common_event_list events;
    TESK::Smart_file_name filename; // where the scenario lies
};
