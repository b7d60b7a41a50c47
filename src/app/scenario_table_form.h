// The dialog for a family of scenarios from a table: it takes a file or what was copied from a spreadsheet,
// shows what was found in it before anything is written, and then writes the scenarios.
#pragma once

#include "operations/scenario_table.h"
#include "toolkit/button.h"
#include "toolkit/dialogs.h"
#include "toolkit/label.h"
#include "toolkit/table.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

class Tscenario_table_form : public TForm {
public:
    // The scenarios are made from the template and written into the folder. The reader outlives the form.
    Tscenario_table_form(Table_reader& reader, const TESK::File_name& template_file,
                         const TESK::Directory_name& folder);
    ~Tscenario_table_form() override;

    // Asked with the full names of what will be replaced, before it is: false when the user does not go on.
    std::function<bool(const std::vector<std::string>& files, std::optional<Change_backups>& backups)>
        prepare_backups;
    // What was written, once the dialog has ended with OK.
    const Operation_outcome& outcome() const { return outcome_; }

    TButton& choose_table_button;
    TButton& paste_table_button;
    TButton& check_again_button;
    TLabel& table_source_label;
    TLabel& table_verdict_label;
    TTable& findings_table;
    TProgressBar& table_progressbar;
    TLabel& table_progress_note;
    TButton& write_scenarios_button;
    TButton& cancel_button;

private:
    class Findings;

    void wire();
    void choose_file();
    void read_file();
    void paste();
    bool take_key(const Key& key);
    void check();
    void show_check();
    void write();
    bool is_as_shown();
    std::vector<std::string> replaced() const;

    Table_reader& reader_;
    const TESK::File_name template_file_;
    const TESK::Directory_name folder_;
    TFileDialog dialog_;
    std::string file_; // in code page 1252; empty for what was pasted
    std::string text_;
    std::unique_ptr<Scenario_table> table_; // null before there is one
    std::unique_ptr<Findings> findings_;
    Operation_outcome outcome_;
};
