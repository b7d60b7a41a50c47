#include "tables/dbase_data_source.h"

#include "support/dbase_bytes.h"
#include "support/temporary_folder.h"
#include "temporal/date.h"

#include <gtest/gtest.h>

using TESK::dBase_data_source;

namespace {

using Texts = std::vector<std::string>;

// A row with a key of each type that a table can hold.
class Row : public TESK::Data_record {
public:
    explicit Row(const char* text = "") : Data_record("row"), soil(text) {}
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
    std::int16_t count = 4;
    float slope = 0.25F;
    TESK::Date day{2000161};
    bool used = true;
    TESK::Ustring absent = "kept";
};

// A table whose file is open.
struct Open_table {
    explicit Open_table(const std::string& name) : file(name.c_str(), false), source(file) {}
    ~Open_table() { source.finish(); }
    TESK::Binary_file_fstream file;
    dBase_data_source source;
};

// The named fields of every row that a walk from the first one meets, "|" between them.
Texts walk(const std::string& name, const Texts& names, bool show_deleted = false) {
    Open_table open(name);
    open.source.set_show_deleted(show_deleted);
    Texts rows;
    for (bool there = open.source.goto_first(); there; there = open.source.goto_next(1)) {
        rows.emplace_back();
        for (const std::string& field : names)
            rows.back().append(open.source.get_field_text(*open.source.find_field(field))) += "|";
    }
    return rows;
}

class Dbase_test : public testing::Test {
protected:
    std::string make(const Texts& soils) {
        Open_table open(folder.name("new.dbf"));
        for (const std::string& soil : soils) {
            Row row(soil.c_str());
            EXPECT_TRUE(open.source.set(row));
        }
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

TEST_F(Dbase_test, a_row_fetched_is_the_row_stored_and_goes_back_into_its_place) {
    const std::string name = make({"silt", "clay"});
    {
        Open_table open(name);
        ASSERT_TRUE(open.source.goto_record(2));
        Row row;
        row.count = row.slope = row.used = false;
        row.day = TESK::Date(0);
        EXPECT_TRUE(open.source.get(row));
        EXPECT_EQ(row.soil, "clay");
        EXPECT_EQ(row.count, 4);
        EXPECT_FLOAT_EQ(row.slope, 0.25F);
        EXPECT_EQ(row.day.date_num, 2000161);
        EXPECT_TRUE(row.used);
        row.day = TESK::Date(0); // no date is blanks
        row.soil = "loam";
        EXPECT_TRUE(open.source.set(row));
    }
    EXPECT_EQ(walk(name, {"soil name", "day"}), (Texts{"silt        |20000609|", "loam        |        |"}));
}

TEST_F(Dbase_test, a_new_record_is_added_behind_the_rows_of_a_table_that_exists) {
    const std::string name =
        folder.write("soils.dbf", table_bytes({{"COUNT", 'N', 4}, {"SOIL_NAME", 'C', 3}}, "   12abc\x1A", 1));
    Row row("silt");
    row.count = -7;
    EXPECT_TRUE(Open_table(name).source.set(row));
    EXPECT_EQ(row.get_position(), 2);
    EXPECT_EQ(walk(name, {"COUNT", "SOIL_NAME"}), (Texts{"  12|abc|", "  -7|sil|"}));
}

TEST_F(Dbase_test, names_are_found_by_their_first_eleven_or_ten_characters_in_any_case) {
    const std::string name = folder.write(
        "t.dbf", table_bytes({{"ELEVEN_CHAR", 'C', 1}, {"ten_charac", 'C', 1}, {"S_N", 'C', 1}}, " abc", 1));
    EXPECT_EQ(walk(name, {"eleven_characters", "ten_characters", "TEN_CHARAC", "s n"}), Texts{"a|b|b|c|"});
    Open_table open(name);
    ASSERT_TRUE(open.source.goto_first());
    EXPECT_EQ(open.source.find_field("S_"), nullptr);
}

TEST_F(Dbase_test, deleted_rows_are_passed_over_unless_shown) {
    const std::string name = folder.write("t.dbf", table_bytes({{"A", 'C', 1}}, "*1 2*3 4*5", 5));
    EXPECT_EQ(walk(name, {"A"}), (Texts{"2|", "4|"}));
    EXPECT_EQ(walk(name, {"A"}, true).size(), 5U);
    Open_table open(name);
    EXPECT_TRUE(open.source.goto_last());
    EXPECT_EQ(open.source.get_current_record(), 4U);
    EXPECT_TRUE(open.source.goto_previous(1));
    EXPECT_EQ(open.source.get_current_record(), 2U);
    EXPECT_FALSE(open.source.goto_previous(1));
    EXPECT_TRUE(open.source.goto_record(3) && open.source.is_current_deleted());
    for (const std::uint32_t number : {0U, 6U, 0xFFFFFFFFU})
        EXPECT_FALSE(open.source.goto_record(number) || open.source.get_current_record() != 0U) << number;
}

TEST_F(Dbase_test, tables_of_other_writers_are_read_whatever_they_leave_out) {
    const std::vector<Column> columns = {{"a", 'C', 1}, {"b", 'N', 3}};
    // what it is, its bytes, its fields and its rows
    const std::tuple<const char*, std::string, std::size_t, std::size_t> cases[] = {
        {"no terminator", table_bytes(columns, " x 12", 1, 0, ""), 2, 1},
        {"a longer header", table_bytes(columns, " x 12", 1, 264), 2, 1},
        {"more rows counted than written", table_bytes(columns, " x 12 y  7", 1000), 2, 2},
        {"the last row broken off", table_bytes(columns, " x 12 y ", 2), 2, 1},
        {"an end-of-file byte", table_bytes(columns, " x 12\x1A", 1), 2, 1},
        {"no fields", table_bytes({}, "", 0), 0, 0},
        {"a field of 255", table_bytes({{"a", 'C', 255}}, " " + std::string(255, 'z'), 1), 1, 1},
        {"memo", table_bytes({{"M", 'M', 10}}, "          5", 1), 1, 1},
        {"a header broken off", table_bytes(columns, "", 1).substr(0, 50), 0, 0},
        {"broken off in the header", std::string("\x03\x7C\x01", 3), 0, 0},
        {"version 0", std::string(200, '\0'), 0, 0},
        {"junk", std::string(500, '\xFF'), 14, 0}};
    for (const auto& [what, bytes, fields, rows] : cases) {
        const std::string name = folder.write("t.dbf", bytes);
        EXPECT_EQ(walk(name, {}).size(), rows) << what;
        Open_table open(name);
        open.source.read_structure();
        EXPECT_EQ(open.source.fields.count(), fields) << what;
        EXPECT_EQ(folder.read("t.dbf"), bytes) << what;
    }
}

TEST_F(Dbase_test, blank_and_overflown_fields_read_as_nothing_and_absent_ones_are_left) {
    Open_table open(folder.write("t.dbf", table_bytes({{"COUNT", 'N', 4}, {"DAY", 'D', 8}, {"USED", 'L', 1}},
                                                      "             ? ****20000609T", 2)));
    Row row;
    ASSERT_TRUE(open.source.get_first(row));
    EXPECT_EQ(row.count, 0);
    EXPECT_EQ(row.day.date_num, 0);
    EXPECT_FALSE(row.used);
    EXPECT_EQ(row.absent, "kept");
    row.count = 5;
    ASSERT_TRUE(open.source.goto_next(1) && open.source.get(row));
    EXPECT_EQ(row.count, 0);
    EXPECT_EQ(row.day.date_num, 2000161);
}

TEST_F(Dbase_test, what_holds_rows_or_is_no_table_is_not_overwritten_with_one) {
    const std::string no_fields = folder.write("none.dbf", table_bytes({}, "", 0));
    Row row("loam");
    EXPECT_TRUE(Open_table(no_fields).source.set(row));
    EXPECT_EQ(walk(no_fields, {"soil name"}), Texts{"loam        |"});

    make({"silt"});
    for (const std::string& bytes :
         {std::string(100, '\0'), table_bytes({}, "   ", 3), folder.read("new.dbf")}) {
        Open_table open(folder.write("t.dbf", bytes));
        Row other;
        other.expect_structure(true);
        open.source.setup_fields(other);
        EXPECT_TRUE(open.file.good());
        EXPECT_EQ(folder.read("t.dbf"), bytes);
        EXPECT_EQ(open.source.set(other), bytes == folder.read("new.dbf"));
    }
}

TEST_F(Dbase_test, blank_rows_are_two_bytes_longer_than_rows) {
    const std::string name = make({"silt"});
    const std::size_t before = folder.read("new.dbf").size();
    {
        Open_table open(name);
        EXPECT_EQ(open.source.append_blank(1), 0U) << "without a structure";
        open.source.read_structure();
        EXPECT_EQ(open.source.append_blank(1), 2U);
    }
    EXPECT_EQ(folder.read("new.dbf").size(), before + 1 + 12 + 6 + 10 + 8 + 1 + 5 + 2);
    EXPECT_EQ(folder.read("new.dbf")[4], 2);
}

TEST_F(Dbase_test, a_record_for_any_table_takes_each_column_by_its_type) {
    Open_table open(platform::name_from_host_path(std::string(TEST_DATA) + "/fields.dbf"));
    const auto record = open.source.make_record();
    EXPECT_EQ(record->string_count + record->date_count + record->float32_count + record->int16_count +
                  record->flag_count,
              open.source.fields.count());
    std::size_t rows = 0;
    for (bool there = open.source.goto_first(); there; there = open.source.goto_next(1), ++rows)
        EXPECT_TRUE(open.source.get(*record));
    EXPECT_GT(rows, 0U);
    EXPECT_LT(rows, open.source.get_header().record_count);
}

TEST_F(Dbase_test, other_readers_open_the_tables_written_here) {
    if (std::system("command -v dbfdump > /dev/null 2>&1") != 0)
        GTEST_SKIP() << "dbfdump (Debian's shapelib) is not installed";
    make({"silt", "clay"});
    const std::string command =
        "dbfdump " + folder.path("new.dbf") + " > " + folder.path("dump") + " 2>/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    for (const char* text : {"SOIL_NAME", "silt", "0.25"})
        EXPECT_NE(folder.read("dump").find(text), std::string::npos) << text;
}

} // namespace
