// Any bytes are a record file: they must be read without harm, and what was read must come back from the text
// that it is written as.
#include "records/common_parameters.h"
#include "records/vv_file.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>

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
        expect_float32_array_with_units_label("layers", "m", layers, 1, 20, false);
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
    float layers[21] = {};
};

std::string read(TESK::Data_record& record, const std::string& text) {
    std::istringstream in(text);
    TESK::VV_file(nullptr).read_stream(in, record, false, false);
    std::ostringstream out;
    record.sections.write(out);
    return out.str();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    Fuzzed_record declared;
    declared.expect_structure(false);
    declared.make_primary_section_current();
    read(declared, text);
    declared.postread();

    TESK::Data_record first("project");
    TESK::Data_record second("project");
    const std::string written = read(first, text);
    if (read(second, written) != written)
        std::abort();
    return 0;
}
