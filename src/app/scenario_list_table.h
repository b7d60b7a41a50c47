// A list of scenarios as a table: what is known of each beside its name, sorted and filtered as the user
// likes. The list holds the lines, their ticks and the cursor, and its events tell what a user does to them;
// the table is how it looks.
#pragma once

#include "app/scenario_facts.h"
#include "toolkit/combo_box.h"
#include "toolkit/edit.h"
#include "toolkit/file_list_box.h"
#include "toolkit/label.h"
#include "toolkit/panel.h"
#include "toolkit/table.h"
#include "toolkit/timer.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class Scenario_list_table : private Table_rows {
public:
    // Adds the filter, the table, which holds the list of that name, and the line of counts.
    Scenario_list_table(TControl& parent, const std::string& list_name);
    Scenario_list_table(const Scenario_list_table&) = delete;
    Scenario_list_table& operator=(const Scenario_list_table&) = delete;

    // What knows the states of scenarios; null for nobody. Outlives the table, or the next call.
    void set_states(Scenario_states* states);
    // Runs began or ended, or files changed: all is looked at anew, and stays on view as it was until then.
    void facts_changed();

    // Ticks what the filter shows; the rest stays as it is.
    void tick_all_shown();

    TEdit& filter_edit;
    TComboBox& state_combo;
    TTable& table;
    TFileCheckListBox& list;
    TLabel& count_label;

    std::function<void()> on_menu;

    // The lines that are ticked, without the one under the cursor; where none is, the selected ones.
    std::vector<int> lines_beside_cursor() const;
    // How many lines the list has that the filter hides although they are ticked.
    int ticked_out_of_sight() const;

private:
    Scenario_list_table(TControl& parent, TPanel& filter, const std::string& list_name);
    Scenario_list_table(TPanel& filter, TTable& rows_table, TControl& parent, const std::string& list_name);

    enum Column { name_column, state_column, description_column, changed_column, run_column };

    // Table_rows
    int count() const override { return static_cast<int>(shown_.size()); }
    Table_cell cell(int row, int column) const override;
    std::string hint(int row, int column) const override;
    bool ticked(int row) const override { return list.checked(line_of(row)); }
    void set_ticked(int row, bool ticked) override;

    void list_told(const Change& change);

    // A line of the list, as it is looked for.
    struct Known_line {
        std::string file; // full name
        std::string name;
        std::string folded_name;
    };

    int line_of(int row) const { return shown_[static_cast<std::size_t>(row)]; }
    int row_of(int line) const;
    Known_line known_line(int line) const;
    const Scenario_fact* fact_of(int line) const;
    void read_lines();
    void take_new_line();
    bool stands_before(int a, int b) const;
    std::string sort_key(int line) const;
    void reorder();
    bool passes(int line, const std::string& filter) const;
    void refill();
    void number_rows();
    void follow_cursor();
    void show_counts();
    void learn();

    std::vector<Known_line> lines_; // as in the list
    std::vector<int> order_;        // all lines, in the order that the user chose
    std::vector<int> shown_;        // lines, by rows
    std::vector<int> row_of_;       // rows, by lines; -1 for a line that is not shown
    Scenario_facts facts_;
    mutable std::vector<int> wanted_; // lines on view of which nothing is certain
    std::size_t next_unknown_ = 0;
    bool has_news_ = false; // something was learnt since the rows were last filled
    bool counts_are_old_ = false;
    bool changes_itself_ = false;
    mutable TTimer learn_timer_{1};
};
