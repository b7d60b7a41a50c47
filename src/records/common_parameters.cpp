#include "records/common_parameters.h"

#include <span>

void Common_parameters_data_record::expect_structure(bool for_write) {
    Data_record::expect_structure(for_write);
    set_current_section("version");
    expect_uint8("major", file_version.major, 10);
    expect_uint8("release", file_version.release, 10);
    expect_uint8("minor", file_version.minor, 10);
    make_primary_section_current();
    expect_string("details_URL", details_URL, 255);
    expect_description(*this);
}

void Common_parameters_data_record::postread() {
    std::uint16_t count = 0;
    const Section_mapping* rows = get_section_mapping(count);
    std::string text;
    for (const Section_mapping& row : std::span(rows, count)) {
        if (row.since.number() <= file_version.number())
            continue;
        const TESK::VV_base_entry* old_entry = set_current_section(row.old_section)->find_entry(row.old_key);
        if (old_entry == nullptr)
            continue;
        const TESK::VV_section* const section = set_current_section(row.new_section);
        TESK::VV_base_entry* new_entry = section->find_entry(row.new_key);
        if (new_entry == nullptr)
            continue;
        new_entry->set_value(old_entry->get_value(text).c_str());
        tell_value(*section, *new_entry, TESK::Ustring(text));
    }
}

const Section_mapping* Common_parameters_data_record::get_section_mapping(std::uint16_t& count) const {
    count = 0;
    return nullptr;
}

void Common_parameters_data_record::expect_description(Data_record& record) {
    record.expect_string("description", description, 255);
}
