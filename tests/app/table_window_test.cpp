#include "project_support.h"
#include "support/dbase_bytes.h"

namespace {

// A table with a number and a text in each row, whose header tells of `more` rows that are not there.
std::string table_of(const std::vector<std::pair<std::string, std::string>>& rows, int more = 0) {
    std::string bytes;
    for (auto [number, text] : rows) {
        number.resize(6, ' ');
        text.resize(8, ' ');
        bytes += ' ' + number + text;
    }
    return table_bytes({{"YIELD", 'N', 6}, {"SOIL", 'C', 8}}, bytes, static_cast<int>(rows.size()) + more);
}

class Table_window_test : public Project_test {
protected:
    Table_window& window(std::size_t index = 0) { return *form.tables.windows().at(index); }
    std::string copied(TButton* button = nullptr) {
        if (button != nullptr)
            button->click();
        else
            window().table.copy();
        return desktop.clipboard_text();
    }
};

TEST_F(Table_window_test, sorts_numbers_by_worth_texts_by_alphabet_and_copies_for_spreadsheets) {
    drives.write("projects/study/GIS/yields.dbf",
                 table_of({{"10.5", "loam"}, {"", "Clay"}, {"9", "\xC9tang"}, {"-3", ""}}));
    open();
    form.tables.show("C:\\projects\\study\\GIS\\yields.dbf");
    TTable& table = window().table;
    EXPECT_EQ(window().text(), "yields.dbf");
    EXPECT_EQ(window().status_line.text(), "Rows: 4, columns: 2");
    table.set_cursor(2, 0);
    EXPECT_TRUE(table.click_header(0));
    EXPECT_TRUE(table.click_header(0));
    EXPECT_EQ(copied(&window().copy_all_button), "YIELD\tSOIL\n10.5\tloam\n9\t\xC3\x89tang\n-3\t\n\tClay\n");
    EXPECT_EQ(table.cursor_row(), 1) << "the cursor stays on its row";
    EXPECT_TRUE(table.click_header(1));
    EXPECT_TRUE(table.click_cell(0, 0));
    EXPECT_TRUE(table.click_cell(1, 1, TTable::Select::extend));
    EXPECT_TRUE(table.key({Key_code::character, "C", false, true}));
    EXPECT_EQ(desktop.clipboard_text(), "\tClay\n10.5\tloam\n");
    EXPECT_TRUE(window().key(key(Key_code::escape)));
    EXPECT_FALSE(window().visible());
}

TEST_F(Table_window_test, shows_a_hundred_thousand_rows_and_says_what_a_damaged_table_lacks) {
    std::vector<std::pair<std::string, std::string>> rows;
    for (int i = 0; i < 100'000; ++i)
        rows.emplace_back(std::to_string(i * 7919 % 100'000), "soil");
    drives.write("large.dbf", table_of(rows, 5));
    drives.write("text.dbf", "no table");
    open();
    form.tables.show("C:\\large.dbf");
    EXPECT_NE(window().status_line.text().find("does not: 5"), std::string::npos);
    EXPECT_TRUE(window().table.click_header(0));
    EXPECT_EQ(window().table.rows()->cell(99'999, 0).text, "99999");
    form.tables.show("C:\\text.dbf");
    EXPECT_EQ(window(1).table.count(), 0);
    EXPECT_EQ(window(1).table.text(), "C:\\text.dbf is damaged or no table: it cannot be read.");
    drives.write("text.dbf", table_of({{"1", "loam"}}));
    form.tables.show("C:\\text.dbf");
    EXPECT_EQ(form.tables.windows().size(), 2u) << "a window for each table, which reads it anew";
    EXPECT_EQ(window(1).table.count(), 1);
}

TEST_F(Table_window_test, is_opened_from_the_pages_of_the_map_and_of_the_runs) {
    copy_data("fields.dbf", "projects/study/Coverage/fields.dbf");
    copy_data("fields.dbf", "projects/study/GIS/yields.dbf");
    open("C:\\projects\\study.tvp", Tilverra_project_type::gis);
    record->GIS_parameters.coverage_PAT_filename = "Coverage\\fields.dbf";
    form.GIS.GIS_coverage_filebar_onchange();
    EXPECT_TRUE(press(form.GIS.GIS_coverage_table_button));
    EXPECT_EQ(window().file(), "C:\\projects\\study\\Coverage\\fields.dbf");
    form.GIS.GIS_tally_shellistview.bring_to_front();
    EXPECT_TRUE(form.GIS.GIS_tally_shellistview.select(0));
    EXPECT_TRUE(form.GIS.GIS_tally_shellistview.key(key(Key_code::enter)));
    EXPECT_EQ(window(1).file(), "C:\\projects\\study\\GIS\\yields.dbf");
    EXPECT_EQ(started(), "") << "what other programs are asked to show is another road";
}

TEST_F(Table_window_test, shows_the_tables_of_a_scenario_one_at_once_and_several_by_choice) {
    open_with("C:\\projects\\study\\Scenarios\\dry.tvn");
    EXPECT_TRUE(press(form.scenarios.run.view_tables_button));
    EXPECT_TRUE(form.tables.windows().empty());
    drives.write("projects/study/Scenarios/dry/Output/season.dbf", table_of({{"1", "loam"}}));
    EXPECT_TRUE(press(form.scenarios.run.view_tables_button));
    EXPECT_EQ(window().text(), "season.dbf");
    drives.write("projects/study/Scenarios/dry/Output/annual.dbf", table_of({{"1", "loam"}}));
    desktop.expect_menu("annual.dbf");
    EXPECT_TRUE(press(form.scenarios.run.view_tables_button));
    EXPECT_EQ(window(1).text(), "annual.dbf");
}

} // namespace
