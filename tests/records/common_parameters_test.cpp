#include "records/common_parameters.h"

#include "record_support.h"

namespace {

constexpr Section_mapping moves[] = {
    {{4, 0, 0}, "old", "name", "new", "name"},        {{4, 0, 0}, "old", "size", "new", "size"},
    {{4, 2, 1}, "new", "name", "new", "second_name"}, {{9, 0, 0}, "old", "absent", "new", "size"},
    {{9, 0, 0}, "old", "lost", "new", "undeclared"},
};

using Common_parameters_test = Record_test;

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

TEST_F(Common_parameters_test, keys_that_moved_since_the_version_of_the_file_are_carried_over_in_order) {
    for (const auto& [version, moved] : {std::pair("", true),
                                         {"[version]\nmajor=3\nrelease=99\nminor=99\n", true},
                                         {"[version]\nmajor=4\nrelease=0\nminor=0\n", false},
                                         {"[version]\nmajor=4\nrelease=2\nminor=1\n", false},
                                         {"[version]\nmajor=200\n", false}}) {
        Moved_record record;
        read(record, std::string(version) + "[old]\nname=A\nsize=12 m\nlost=x\n");
        EXPECT_EQ(record.name, moved ? "A" : "") << version;
        EXPECT_EQ(record.second_name, moved ? "A" : "") << version;
        EXPECT_EQ(record.size, moved ? 12 : 0) << version;
    }
}

} // namespace
