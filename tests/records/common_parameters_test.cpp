#include "records/common_parameters.h"

#include "record_support.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace {

constexpr Section_mapping moves[] = {
    {{4, 0, 0}, "old", "name", "new", "name"},        {{4, 0, 0}, "old", "size", "new", "size"},
    {{4, 2, 1}, "new", "name", "new", "second_name"}, {{9, 0, 0}, "old", "absent", "new", "size"},
    {{9, 0, 0}, "old", "lost", "new", "undeclared"},
};

class Moved_record : public Common_parameters_data_record {
public:
    Moved_record() : Common_parameters_data_record(1, {4, 14, 4}, "main") {}
    void expect_structure(bool for_write) override {
        Common_parameters_data_record::expect_structure(for_write);
        set_current_section("new");
        expect_string("name", name, 255);
        expect_int16("size", size);
        expect_string("second_name", second_name, 255);
    }
    const Section_mapping* get_section_mapping(std::uint16_t& count) const override {
        count = std::size(moves);
        return moves;
    }
    TESK::Ustring name;
    TESK::Ustring second_name;
    std::int16_t size = 0;
};

TEST(Common_parameters, keys_that_moved_since_the_version_of_the_file_are_carried_over_in_order) {
    const std::string keys = "[old]\nname=A\nsize=12 m\nlost=x\n";
    struct Case {
        const char* version;
        const char* name;
        const char* second_name;
        int size;
    };
    const Case cases[] = {
        {"", "A", "A", 12},
        {"[version]\nmajor=3\nrelease=99\nminor=99\n", "A", "A", 12},
        {"[version]\nmajor=4\nrelease=0\nminor=0\n", "", "", 0},
        {"[version]\nmajor=4\nrelease=2\nminor=1\n", "", "", 0},
        {"[version]\nmajor=200\n", "", "", 0},
    };
    Temporary_folder folder;
    for (const Case& c : cases) {
        Moved_record record;
        ASSERT_TRUE(TESK::VV_file(folder.write("f", c.version + keys).c_str()).get(record));
        EXPECT_EQ(record.name, c.name) << c.version;
        EXPECT_EQ(record.second_name, c.second_name) << c.version;
        EXPECT_EQ(record.size, c.size) << c.version;
    }
}

TEST(Common_parameters, a_saved_file_begins_with_them_and_states_the_version_of_the_program) {
    Temporary_folder folder;
    const std::string name =
        folder.write("f", "description=" + std::string(300, 'd') + "\n[version]\nmajor=2\n");
    Moved_record record;
    TESK::VV_file file(name.c_str());
    ASSERT_TRUE(file.get(record));
    EXPECT_EQ(record.file_version.number(), 2 * 65536);
    EXPECT_EQ(record.description.size(), 300U);
    record.description = "short";
    EXPECT_TRUE(file.set(record));
    EXPECT_EQ(folder.read("f").substr(0, 84), "[main]\r\ndetails_URL=\r\ndescription=short\r\n"
                                              "[version]\r\nmajor=4\r\nrelease=14\r\nminor=4\r\n[n");
    EXPECT_EQ(record.file_version.number(), record.program_version.number());
}

} // namespace
