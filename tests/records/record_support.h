// Small records for the tests of the record framework.
#pragma once

#include "records/data_record.h"
#include "records/vv_enumerated_section.h"
#include "records/vv_file.h"
#include "records/vv_section.h"
#include "support/temporary_folder.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

// A record that declares nothing.
class Undeclared_record : public TESK::Data_record {
public:
    explicit Undeclared_record(const std::string& primary = "primary") : Data_record(primary) {}
};

// A record with a handful of keys in two sections.
class Small_record : public TESK::Data_record {
public:
    Small_record() : Data_record("primary") {}

    void expect_structure(bool for_write) override {
        Data_record::expect_structure(for_write);
        expect_string("title", title, 255);
        set_current_section("numbers");
        expect_int16("whole", whole);
        expect_float32("real", real, "a caption");
        set_current_section("empty");
    }

    TESK::Ustring title = "untitled";
    std::int16_t whole = 7;
    float real = 0.5F;
};

// An element of a series: one key.
class Element : public TESK::Item {
public:
    explicit Element(const char* text = "default") : value(text) {}
    bool setup_structure(TESK::Data_record& record, bool) override {
        if (value != "nothing to declare")
            record.expect_string("value", value, 255);
        return true;
    }
    TESK::Ustring value;
};

// The text of the value of an entry in a record whose structure stands; "<none>" when it is not there.
inline std::string value_of(const TESK::Data_record& record, const std::string& section,
                            const std::string& key) {
    const auto* found = static_cast<const TESK::VV_section*>(record.sections.find(section.c_str(), true));
    const TESK::VV_base_entry* entry = found == nullptr ? nullptr : found->find_entry(key);
    std::string text;
    return entry == nullptr ? "<none>" : entry->get_value(text);
}

// What the record's sections would be in a file.
inline std::string text_of(const TESK::Data_record& record) {
    return record.text_of_sections();
}

// A series that makes the elements that a file counts.
template <class Element>
class Growing_series : public TESK::VV_container_enumerated_section {
public:
    using VV_container_enumerated_section::VV_container_enumerated_section;

protected:
    void prepare_to_read() override {
        for (auto missing = count - static_cast<int>(container.count()); missing > 0; --missing)
            container.append(new Element);
    }
};

class Record_test : public testing::Test {
protected:
    void read(TESK::Data_record& record, const std::string& text, bool keep_structure = false) {
        EXPECT_TRUE(TESK::VV_file(folder.write("file.txt", text).c_str(), keep_structure).get(record));
    }
    // What the file holds after the record was saved over it.
    std::string save(TESK::Data_record& record, const std::string& file = "file.txt") {
        TESK::VV_file target(folder.name(file).c_str());
        EXPECT_TRUE(target.set(record) && target.get_last_write().ok());
        return folder.read(file);
    }

    Temporary_folder folder;
};
