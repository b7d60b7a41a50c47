// Any bytes are a record file: they must be read without harm, and what was read must come back from the text
// that it is written as.
#include "records/common_parameters.h"
#include "records/vv_enumerated_section.h"
#include "round_trip.h"

namespace {

class Element : public TESK::Item {
public:
    bool setup_structure(TESK::Data_record& record, bool) override {
        record.expect_string("value", value, 255);
        return true;
    }
    TESK::Ustring value;
};

class Fuzzed_record : public Common_parameters_data_record {
public:
    Fuzzed_record() : Common_parameters_data_record(1, {4, 14, 4}, "project") {
        for (int i = 0; i < 3; ++i)
            elements.append(new Element);
    }

    void expect_structure(bool for_write) override {
        Common_parameters_data_record::expect_structure(for_write);
        set_current_section("numbers");
        expect_int16("int16", int16);
        expect_uint32("uint32", uint32, 16);
        expect_float32("float32", float32, "caption");
        expect_bool("bool", flag);
        expect_float32_array_with_units_label("layers", "m", layers, 1, 3, false);
        set_current_section("numbers");
        set_entry_alias("int16", "old");
        expect_enumerated_section(
            std::make_unique<TESK::VV_container_enumerated_section>("event", true, elements), false);
    }

    TESK::Bidirectional_list elements;
    std::int16_t int16 = 0;
    std::uint32_t uint32 = 0;
    float float32 = 0;
    bool flag = false;
    float layers[4] = {};
};

class Undeclared_record : public TESK::Data_record {
public:
    Undeclared_record() : Data_record("project") {}
};

} // namespace

void try_input(const std::string& text) {
    // The first byte says what the record knows.
    const bool declared = !text.empty() && text.front() % 2 == 0;
    declared ? expect_round_trip<Fuzzed_record>(text) : expect_round_trip<Undeclared_record>(text);
}
