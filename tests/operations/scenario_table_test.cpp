#include "operations/scenario_table.h"

#include "support/temporary_drives.h"

#include <gtest/gtest.h>

#include <deque>

#include <random>
#include <sstream>

namespace {

class Scenario_table_test : public testing::Test {
protected:
    Scenario_table_test() {
        drives.write("base.tvn", "[scenario]\r\ndescription=Base\r\n[stranger]\r\nkey= kept \r\n[H2O]\r\n"
                                 "2=0.5\r\n1=0.25\r\n[version]\r\nmajor=4\r\nrelease=14\r\n");
    }
    // The table of the lines, with "|" between cells.
    static Text_table table(const std::string& text) {
        Text_table result;
        std::istringstream lines(text);
        std::size_t number = 0;
        for (std::string line; std::getline(lines, line);) {
            Text_table::Row row{++number, {}};
            std::istringstream cells(line);
            for (std::string cell; std::getline(cells, cell, '|');)
                row.cells.push_back(cell);
            result.rows.push_back(std::move(row));
        }
        return result;
    }
    static Scenario_table make(const std::string& text) {
        return {table(text), TESK::File_name("C:\\base.tvn"),
                TESK::Directory_name(std::string("C:\\p\\made"))};
    }

    Temporary_drives drives;
};

TEST_F(Scenario_table_test, a_row_gives_the_template_with_its_values_and_an_empty_cell_keeps_the_templates) {
    drives.write("p/made/WET.tvn", "old");
    Scenario_table family = make("name|H2O.1|description|salt.3|NO3.1\n"
                                 "dry|0.1|\xC3\xA9t\xC3\xA9||\n"
                                 "wet||Wet|2.5|\n");
    EXPECT_EQ(describe_table_check(family.check()), "2 scenarios, 1 exists already.\n");
    Change_backups backups(TESK::Directory_name(std::string("C:\\p")));
    EXPECT_EQ(family.write(&backups, {}).done, 2U);
    const std::string rest = "[version]\r\nmajor=4\r\nrelease=14\r\n";
    EXPECT_EQ(drives.read("p/made/dry.tvn"),
              "[scenario]\r\ndescription=\xE9t\xE9\r\n[stranger]\r\nkey= kept \r\n[H2O]\r\n2=0.5\r\n"
              "1=0.1000000015\r\n" +
                  rest);
    EXPECT_EQ(drives.read("p/made/wet.tvn"),
              "[scenario]\r\ndescription=Wet\r\n[stranger]\r\nkey= kept \r\n[H2O]\r\n2=0.5\r\n1=0.25\r\n" +
                  rest + "[salt]\r\n3=2.5000000000\r\n");

    EXPECT_EQ(backups.undo_last({}).done, 2U);
    EXPECT_EQ(drives.read("p/made/WET.tvn"), "old");
    EXPECT_FALSE(std::filesystem::exists(drives.host("p/made/dry.tvn")));
    EXPECT_EQ(family.write(nullptr, [](std::size_t done, std::size_t) { return done < 1; }).done, 1U);
    EXPECT_EQ(drives.read("p/made/WET.tvn"), "old");
}

TEST_F(Scenario_table_test, every_fault_is_named_by_row_and_column_and_nothing_is_written) {
    Scenario_table family = make("name|H2O.1|H2O.x|scenario.description|description|scenario.event:count\n"
                                 "a|7|1|\n"
                                 "A|much|\n"
                                 "x\\y|2|||new\n"
                                 "b|0.5|||\xCE\xA9|\n"
                                 "c||||other||stray\n"
                                 "d|||same||\n"
                                 "|0.5\n");
    EXPECT_EQ(
        describe_table_check(family.check()),
        "7 scenarios.\n"
        "Row 5, column description: It has a character that the files cannot hold.\n"
        "Row 1, column H2O.x: No section and key of that name are known.\n"
        "Row 1, column scenario.event:count: It follows from the rest of the file and is not set by hand.\n"
        "Row 3, column name: The scenario of row 2 has this name.\n"
        "Row 4, column name: No scenario can have this name.\n"
        "Row 8, column name: The scenario has no name.\n"
        "Row 2, column H2O.1: The value must be less than 1.000.\n"
        "Row 3, column H2O.1: The value must be a number such as 12 or 0.25.\n"
        "Row 4, column H2O.1: The value must be less than 1.000.\n"
        "Row 6: The cell stands in a column without a header.\n"
        "Row 1, column description: It is the same setting as that of a column before.\n");
    EXPECT_FALSE(family.write(nullptr, {}).refused.empty());
    EXPECT_FALSE(std::filesystem::exists(drives.host("p")));

    EXPECT_EQ(make("H2O.1\n1\n").check().refused, "The table has no column \"name\".");
    EXPECT_EQ(make("name|H2O.1\n").check().refused, "The table has no scenarios.");
    std::filesystem::remove(drives.host("base.tvn"));
    EXPECT_EQ(make("name\na\n").check().refused, "There is no file C:\\base.tvn.");
}

TEST_F(Scenario_table_test, a_variant_is_what_setting_the_values_one_by_one_would_give) {
    const char* const names[] = {"H2O.1",
                                 "H2O.3",
                                 "salt.7",
                                 "salt.8",
                                 "scenario.description",
                                 "parameter_filenames.soil",
                                 "parameter_filenames.rotation",
                                 "submodels.salinity",
                                 "cropping_system.sowing_date",
                                 "CO2.enable",
                                 "STATSGO.muid",
                                 "weather.temperature_phase"};
    const std::vector<std::string> values = {"0.5", "1", "0", "true", "false", "1996-05-02", "text", "100"};
    std::mt19937 random(3);
    for (int round = 0; round < 12; ++round) {
        // Some of the settings stand in the template, in the order of a save, some with the value of a row.
        std::string base;
        for (const char* line : {"[scenario]", "description=text", "[parameter_filenames]", "soil=x.sil",
                                 "rotation=y.rot", "[cropping_system]", "rotation=y.rot", "[submodels]",
                                 "salinity=true", "[H2O]", "1=0.5", "2=0.125", "[salt]", "7=1", "strange=1"})
            if (*line == '[' ? random() % 8 != 0 : random() % 3 != 0)
                base += std::string(line) + (round % 2 == 0 ? "\r\n" : "\n");
        drives.write("base.tvn", base);
        Scenario_variants variants(TESK::File_name("C:\\base.tvn"), 6);
        std::deque<Record_settings> expected;
        for (int i = 0; i < 6; ++i)
            expected.emplace_back(TESK::File_name("C:\\base.tvn"));
        for (std::size_t column = 0; column < std::size(names); ++column) {
            ASSERT_EQ(variants.add_column(names[column]), "");
            for (std::size_t i = 0; i < expected.size(); ++i) {
                const std::string& value = values[random() % values.size()];
                if (random() % 2 == 0) {
                    EXPECT_EQ(variants.set(column, i, value).refusal.empty(),
                              expected[i].set(names[column], value).done);
                }
            }
        }
        variants.settle();
        for (std::size_t i = 0; i < expected.size(); ++i)
            ASSERT_EQ(variants.text(i), expected[i].text()) << base;
    }
}

} // namespace
