#include "tables/dbase_data_source.h"

#include "support/temporary_folder.h"
#include "temporal/date.h"

#include <gtest/gtest.h>

using TESK::Binary_file_fstream;
using TESK::dBase_data_source;
using TESK::Entry_type;
using TESK::Items_of;

namespace {

// A row with a key of each type that a table can hold.
class Row : public TESK::Data_record {
public:
    Row() : Data_record("row") {}

    void expect_structure(bool for_write) override {
        Data_record::expect_structure(for_write);
        expect_string("soil name", soil, 12);
        expect_int16("COUNT", count);
        expect_float32("slope_steepness", slope);
        expect_date("day", day);
        expect_bool("used", used);
        expect_string("absent", absent, 5);
    }

    TESK::Ustring soil;
    std::int16_t count = 0;
    float slope = 0;
    TESK::Date day{0};
    bool used = false;
    TESK::Ustring absent = "kept";
};

class Dbase_test : public testing::Test {
protected:
    // A table file put together byte by byte.
    struct Column {
        const char* name;
        char type;
        int length;
        int decimals;
    };
    std::string table(const std::vector<Column>& columns, const std::string& rows, int count,
                      int header_extra = 1, bool terminated = true) {
        const int header = static_cast<int>(columns.size()) * 32 + 32 + header_extra;
        int row = 1;
        std::string descriptors;
        for (const Column& c : columns) {
            std::string d = c.name;
            d.resize(11);
            d += c.type;
            d.resize(16);
            d += static_cast<char>(c.length);
            d += static_cast<char>(c.decimals);
            d.resize(32);
            descriptors += d;
            row += c.length;
        }
        const auto low = [](int v) { return std::string{static_cast<char>(v), static_cast<char>(v >> 8)}; };
        std::string text = "\x03\x7C\x01\x01" + low(count) + std::string(2, '\0') + low(header) + low(row);
        text.resize(32);
        text += descriptors;
        if (terminated)
            text += '\r';
        text.resize(static_cast<std::size_t>(header));
        return text + rows;
    }
    // The named fields of every row that a walk from the first one meets, "|" between them.
    std::vector<std::string> walk(const std::string& name, const std::vector<std::string>& names,
                                  bool show_deleted = false) {
        Binary_file_fstream file(name.c_str(), false);
        dBase_data_source source(file);
        source.set_show_deleted(show_deleted);
        std::vector<std::string> rows;
        for (bool there = source.goto_first(); there; there = source.goto_next(1)) {
            std::string row;
            for (const std::string& field : names)
                row += std::string(source.get_field_text(*source.find_field(field))) + "|";
            rows.push_back(row);
        }
        return rows;
    }
    static std::vector<std::string> field_names(dBase_data_source& source) {
        std::vector<std::string> names;
        source.read_structure();
        for (const auto& field : Items_of<dBase_data_source::Field_item>(source.fields))
            names.push_back(field.name);
        return names;
    }
    std::string make(const std::vector<std::string>& soils) {
        std::filesystem::remove(folder.path("new.dbf"));
        Binary_file_fstream file(folder.name("new.dbf").c_str(), false);
        dBase_data_source source(file);
        for (const std::string& soil : soils) {
            Row row;
            row.soil = soil;
            row.count = static_cast<std::int16_t>(soil.size());
            row.slope = 0.25F;
            row.day = TESK::Date(2000161);
            row.used = true;
            EXPECT_TRUE(source.set(row));
        }
        source.finish();
        return folder.name("new.dbf");
    }

    Temporary_folder folder;
};

TEST_F(Dbase_test, a_table_is_made_from_the_entries_of_a_record) {
    make({"silt", "a name longer than its field"});
    const std::string bytes = folder.read("new.dbf");
    const std::size_t header = 6 * 32 + 33;
    const std::size_t row = 1 + 12 + 6 + 10 + 8 + 1 + 5;
    ASSERT_EQ(bytes.size(), header + 2 * row);
    EXPECT_EQ(bytes[0], 3);
    EXPECT_EQ(bytes.substr(4, 8),
              std::string({2, 0, 0, 0, static_cast<char>(header), 0, static_cast<char>(row), 0}));
    EXPECT_EQ(bytes.substr(32, 12), std::string("SOIL_NAME\0\0C", 12));
    EXPECT_EQ(bytes.substr(96, 12), "SLOPE_STEEPN");
    EXPECT_EQ(bytes[header - 1], '\r');
    EXPECT_EQ(bytes.substr(header, row), " silt             40.2500000020000609tkept ");
    EXPECT_EQ(bytes.substr(header + row + 1, 12), "a name longe");
}

TEST_F(Dbase_test, a_row_fetched_is_the_row_stored) {
    const std::string name = make({"silt", "clay"});
    Binary_file_fstream file(name.c_str(), false);
    dBase_data_source source(file);
    ASSERT_TRUE(source.goto_record(2));
    Row row;
    row.absent = "";
    EXPECT_TRUE(source.get(row));
    EXPECT_EQ(row.soil, "clay");
    EXPECT_EQ(row.count, 4);
    EXPECT_FLOAT_EQ(row.slope, 0.25F);
    EXPECT_EQ(row.day.date_num, 2000161);
    EXPECT_TRUE(row.used);

    // Stored again it goes into its own row, and a date that is none into blanks.
    row.day = TESK::Date(0);
    row.soil = "loam";
    EXPECT_TRUE(source.set(row));
    source.finish();
    EXPECT_EQ(walk(name, {"soil name", "day"}),
              (std::vector<std::string>{"silt        |20000609|", "loam        |        |"}));
}

TEST_F(Dbase_test, a_new_record_is_added_behind_the_rows_of_a_table_that_exists) {
    const std::string name =
        folder.write("soils.dbf", table({{"COUNT", 'N', 4, 0}, {"SOIL_NAME", 'C', 3, 0}}, "   12abc\x1A", 1));
    {
        Binary_file_fstream file(name.c_str(), false);
        dBase_data_source source(file);
        Row row;
        row.count = -7;
        row.soil = "silt";
        EXPECT_TRUE(source.set(row));
        EXPECT_EQ(row.get_position(), 2);
        source.finish();
    }
    EXPECT_EQ(walk(name, {"COUNT", "SOIL_NAME"}), (std::vector<std::string>{"  12|abc|", "  -7|sil|"}));
}

TEST_F(Dbase_test, names_are_found_by_their_first_eleven_or_ten_characters_in_any_case) {
    const std::string name = folder.write(
        "t.dbf",
        table({{"ELEVEN_CHAR", 'C', 1, 0}, {"ten_charac", 'C', 1, 0}, {"S_N", 'C', 1, 0}}, " abc", 1));
    Binary_file_fstream file(name.c_str(), false);
    dBase_data_source source(file);
    ASSERT_TRUE(source.goto_first());
    const auto text = [&](const char* key) {
        const auto* field = source.find_field(key);
        return field == nullptr ? "none" : std::string(source.get_field_text(*field));
    };
    EXPECT_EQ(text("eleven_characters"), "a");
    EXPECT_EQ(text("ten_characters"), "b");
    EXPECT_EQ(text("TEN_CHARAC"), "b");
    EXPECT_EQ(text("s n"), "c");
    EXPECT_EQ(text("S_"), "none");
}

TEST_F(Dbase_test, deleted_rows_are_passed_over_unless_shown) {
    const std::string name = folder.write("t.dbf", table({{"A", 'C', 1, 0}}, "*1 2*3 4*5", 5));
    EXPECT_EQ(walk(name, {"A"}), (std::vector<std::string>{"2|", "4|"}));
    EXPECT_EQ(walk(name, {"A"}, true).size(), 5U);
    Binary_file_fstream file(name.c_str(), false);
    dBase_data_source source(file);
    EXPECT_TRUE(source.goto_last());
    EXPECT_EQ(source.get_current_record(), 4U);
    EXPECT_TRUE(source.goto_previous(1));
    EXPECT_EQ(source.get_current_record(), 2U);
    EXPECT_FALSE(source.goto_previous(1));
    EXPECT_EQ(source.get_current_record(), 0U);
    EXPECT_TRUE(source.goto_record(3));
    EXPECT_TRUE(source.is_current_deleted());
    for (const std::uint32_t number : {0U, 6U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(source.goto_record(number));
        EXPECT_EQ(source.get_current_record(), 0U);
    }
}

TEST_F(Dbase_test, tables_of_other_writers_are_read_whatever_they_leave_out) {
    const std::vector<Column> columns = {{"a", 'C', 1, 0}, {"b", 'N', 3, 0}};
    struct Case {
        const char* what;
        std::string bytes;
        std::size_t fields;
        std::size_t rows;
    };
    const Case cases[] = {
        {"plain", table(columns, " x 12 y   ", 2), 2, 2},
        {"no terminator", table(columns, " x 12", 1, 0, false), 2, 1},
        {"a longer header", table(columns, " x 12", 1, 264), 2, 1},
        {"more rows counted than written", table(columns, " x 12 y  7", 1000), 2, 2},
        {"the last row broken off", table(columns, " x 12 y ", 2), 2, 1},
        {"an end-of-file byte", table(columns, " x 12\x1A", 1), 2, 1},
        {"no fields", table({}, "", 0), 0, 0},
        {"a field of 255", table({{"a", 'C', 255, 0}}, " " + std::string(255, 'z'), 1), 1, 1},
        {"memo", table({{"M", 'M', 10, 0}}, "          5", 1), 1, 1},
        {"a header broken off", table(columns, "", 1).substr(0, 50), 0, 0},
        {"broken off in the header", std::string("\x03\x7C\x01", 3), 0, 0},
        {"version 0", std::string(200, '\0'), 0, 0},
        {"empty", "", 0, 0},
        {"junk", std::string(500, '\xFF'), 0, 0},
    };
    for (const Case& c : cases) {
        const std::string name = folder.write("t.dbf", c.bytes);
        {
            Binary_file_fstream file(name.c_str(), false);
            dBase_data_source source(file);
            if (std::string(c.what) != "junk") {
                EXPECT_EQ(field_names(source).size(), c.fields) << c.what;
            }
        }
        EXPECT_EQ(walk(name, {}).size(), c.rows) << c.what;
        EXPECT_EQ(folder.read("t.dbf"), c.bytes) << c.what;
    }
}

TEST_F(Dbase_test, blank_and_overflown_numbers_read_as_nothing) {
    const std::string name =
        folder.write("t.dbf", table({{"COUNT", 'N', 4, 0}, {"DAY", 'D', 8, 0}, {"USED", 'L', 1, 0}},
                                    "             ? ****20000609T", 2));
    Binary_file_fstream file(name.c_str(), false);
    dBase_data_source source(file);
    Row row;
    row.count = 5;
    row.day = TESK::Date(5);
    row.used = true;
    ASSERT_TRUE(source.get_first(row));
    EXPECT_EQ(row.count, 0);
    EXPECT_EQ(row.day.date_num, 0);
    EXPECT_FALSE(row.used);
    EXPECT_EQ(row.absent, "kept");
    ASSERT_TRUE(source.goto_next(1));
    ASSERT_TRUE(source.get(row));
    EXPECT_EQ(row.count, 0);
    EXPECT_EQ(row.day.date_num, 2000161);
    EXPECT_TRUE(row.used);
}

TEST_F(Dbase_test, a_file_that_is_no_table_is_not_overwritten_with_one) {
    const std::string bytes(100, '\0');
    const std::string name = folder.write("t.dbf", bytes);
    {
        Binary_file_fstream file(name.c_str(), false);
        dBase_data_source source(file);
        Row row;
        EXPECT_FALSE(source.set(row));
        source.finish();
    }
    EXPECT_EQ(folder.read("t.dbf"), bytes);
}

TEST_F(Dbase_test, fields_are_made_only_for_a_table_that_has_none_and_no_rows) {
    const std::string made = make({"silt"});
    const std::string no_fields = folder.write("none.dbf", table({}, "", 0));
    const std::string bare_rows = folder.write("rows.dbf", table({}, "   ", 3));
    const std::string before = folder.read("new.dbf");
    for (const auto& [name, is_stored] : {std::pair(no_fields, true), std::pair(bare_rows, false)}) {
        Binary_file_fstream file(name.c_str(), false);
        dBase_data_source source(file);
        Row row;
        row.soil = "loam";
        EXPECT_EQ(source.set(row), is_stored) << name;
        source.finish();
    }
    EXPECT_EQ(walk(no_fields, {"soil name"}), std::vector<std::string>{"loam        |"});
    Binary_file_fstream file(made.c_str(), false);
    dBase_data_source source(file);
    Row row;
    row.expect_structure(true);
    source.setup_fields(row);
    EXPECT_TRUE(file.good());
    EXPECT_EQ(folder.read("new.dbf"), before);
}

TEST_F(Dbase_test, blank_rows_are_two_bytes_longer_than_rows) {
    const std::string name = make({"silt"});
    const std::size_t before = folder.read("new.dbf").size();
    {
        Binary_file_fstream file(name.c_str(), false);
        dBase_data_source source(file);
        EXPECT_EQ(source.append_blank(1), 0U);
        source.read_structure();
        EXPECT_EQ(source.append_blank(1), 2U);
        source.finish();
    }
    EXPECT_EQ(folder.read("new.dbf").size(), before + 1 + 12 + 6 + 10 + 8 + 1 + 5 + 2);
    EXPECT_EQ(folder.read("new.dbf")[4], 2);
}

TEST_F(Dbase_test, a_record_for_any_table_takes_each_column_by_its_type) {
    const std::string name = std::string(TEST_DATA) + "/fields.dbf";
    Binary_file_fstream file(platform::name_from_host_path(name).c_str(), false);
    dBase_data_source source(file);
    const auto record = source.make_record();
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->string_count + record->date_count + record->float32_count + record->int16_count +
                  record->flag_count,
              field_names(source).size());
    std::size_t rows = 0;
    for (bool there = source.goto_first(); there; there = source.goto_next(1), ++rows)
        EXPECT_TRUE(source.get(*record));
    EXPECT_GT(rows, 0U);
    EXPECT_LT(rows, source.get_header().record_count);
}

TEST_F(Dbase_test, other_readers_open_the_tables_written_here) {
    make({"silt", "clay"});
    const std::string command =
        "dbfdump " + folder.path("new.dbf") + " > " + folder.path("dump") + " 2>/dev/null";
    if (std::system("command -v dbfdump > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "dbfdump (Debian's shapelib) is not installed";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string dump = folder.read("dump");
    EXPECT_NE(dump.find("SOIL_NAME"), std::string::npos);
    EXPECT_NE(dump.find("silt"), std::string::npos);
    EXPECT_NE(dump.find("0.25"), std::string::npos);
}

} // namespace
