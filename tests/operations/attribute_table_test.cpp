#include "operations/attribute_table.h"

#include "support/temporary_drives.h"

#include <gtest/gtest.h>

TEST(Attribute_table, reads_the_values_of_all_rows) {
    const Temporary_drives drives;
    std::filesystem::copy_file(TEST_DATA "/fields.dbf", drives.host("fields.dbf"));
    const Attribute_table table("C:\\fields.dbf", true);
    ASSERT_EQ(table.fault(), Attribute_table::Fault::none);
    ASSERT_GT(table.row_count(), 1u);
    const std::size_t soil = table.find_field("soil");
    ASSERT_LT(soil, table.field_count());
    EXPECT_FALSE(table.is_number(soil));
    EXPECT_NE(table.text(0, soil), "");
    // Each polygon finds itself in a table of the same keys.
    std::vector<std::string_view> soils;
    for (std::size_t row = 0; row < table.row_count(); ++row)
        soils.push_back(table.text(row, soil));
    EXPECT_EQ(joined_values(table, 0, table, 0, soil), soils);
}

TEST(Attribute_table, says_why_a_table_cannot_be_shown) {
    const Temporary_drives drives;
    EXPECT_EQ(Attribute_table("C:\\none.dbf", false).fault(), Attribute_table::Fault::missing);
    drives.write("text.dbf", "no table");
    EXPECT_EQ(Attribute_table("C:\\text.dbf", false).fault(), Attribute_table::Fault::unreadable);
}

TEST(Map_colouring, puts_numbers_in_classes_and_anything_else_in_kinds) {
    std::vector<std::string> texts;
    for (int i = 0; i < 70; ++i)
        texts.push_back(std::to_string(i));
    texts.push_back("");
    const std::vector<std::string_view> numbers(texts.begin(), texts.end());
    const Map_colouring classes = colour_by(numbers, true);
    ASSERT_EQ(classes.legend.size(), 7u);
    EXPECT_EQ(classes.colours.front(), classes.legend.front().colour);
    EXPECT_EQ(classes.colours[69], classes.legend.back().colour); // the highest is inside the last class
    EXPECT_NE(classes.colours[9], classes.colours[10]);
    EXPECT_EQ(colour_by(numbers, false).legend.size(), 11u); // ten kinds, and the others

    const Map_colouring kinds = colour_by({"clay", "", "loam", "clay"}, true);
    ASSERT_EQ(kinds.legend.size(), 2u);
    EXPECT_EQ(kinds.legend[0].text, "clay");
    EXPECT_EQ(kinds.colours[0], kinds.colours[3]);
    EXPECT_NE(kinds.colours[1], kinds.colours[2]);
    EXPECT_EQ(colour_by({"10", "9", "x"}, true).legend.size(), 3u); // a text among numbers
}
