#include "app/scenario_table_form.h"

#include "app/project_page.h"
#include "app/state_pictures.h"
#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "platform/files.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

using namespace sign_colours;
constexpr Picture fault_sign{Shape::octagon, red, Mark::cross, false, "fault"};
constexpr Picture doubt_sign{Shape::diamond, orange, Mark::exclamation, false, "doubtful"};
constexpr Picture replaced_sign{Shape::disc, blue, Mark::asterisk, false, "replaced"};

enum Column { finding_column, row_column, column_column, reason_column };

std::vector<Table_column> finding_columns() {
    return {{"finding", "Finding", 17, Align::start, true, false},
            {"row", "Row", 7, Align::end, true, false},
            {"column", "Column", 30, Align::start, true, false},
            {"reason", "What is found", 60, Align::start, true, false}};
}

constexpr int least_width = 960;
constexpr int least_height = 520;

} // namespace

// The faults of a check by their rows, then its doubts, then what it will replace.
class Tscenario_table_form::Findings : public Table_rows {
public:
    // Null for none.
    void show(const Table_check* check) {
        check_ = check;
        faults_.clear();
        for (std::size_t i = 0; check != nullptr && i < check->faults.size(); ++i)
            faults_.push_back(&check->faults[i]);
        std::stable_sort(faults_.begin(), faults_.end(),
                         [](const Table_fault* a, const Table_fault* b) { return a->row < b->row; });
    }

    int count() const override {
        return check_ == nullptr ? 0 : static_cast<int>(faults_.size() + doubts() + check_->existing.size());
    }
    Table_cell cell(int row, int column) const override {
        auto place = static_cast<std::size_t>(row);
        if (place < faults_.size())
            return cell_of(*faults_[place], fault_sign, column);
        place -= faults_.size();
        if (place < doubts())
            return cell_of(check_->doubts[place], doubt_sign, column);
        place -= doubts();
        if (column == finding_column)
            return {.text = worded(replaced_sign.meaning), .picture = replaced_sign};
        return {.text = column == reason_column ? worded("The scenario %1 is there already.",
                                                         screen_text(check_->existing[place]))
                                                : ""};
    }
    std::string hint(int row, int column) const override { return cell(row, column).text; }

private:
    static Table_cell cell_of(const Table_fault& fault, const Picture& sign, int column) {
        switch (column) {
        case finding_column: return {.text = worded(sign.meaning), .picture = sign};
        case row_column: return {.text = std::to_string(fault.row)};
        case column_column: return {.text = screen_text(fault.column)};
        default: return {.text = worded(screen_text(fault.reason))};
        }
    }
    std::size_t doubts() const { return check_->doubts.size(); }

    const Table_check* check_ = nullptr;
    std::vector<const Table_fault*> faults_;
};

Tscenario_table_form::Tscenario_table_form(Table_reader& reader, const TESK::File_name& template_file,
                                           const TESK::Directory_name& folder)
    : TForm("scenario_table_form", "Scenarios from a table"), choose_table_button([this]() -> TButton& {
          add_note(*this, "table_form_note",
                   "Each row makes a scenario from the template. The column \"name\" names it, "
                   "\"description\" describes it, and every other column is a setting such as "
                   "\"parameter_filenames.soil\". An empty cell keeps the template's value.");
          return add_button(add_row(*this, "panel_table_source"), "choose_table_button", "Choose a &file...",
                            "Read the table from a CSV file, as spreadsheets save it.");
      }()),
      paste_table_button(add_button(*choose_table_button.parent(), "paste_table_button", "&Paste",
                                    "Take the cells that were copied in a spreadsheet.")),
      check_again_button(add_button(*choose_table_button.parent(), "check_again_button", "Check &again", "")),
      table_source_label(fill(choose_table_button.parent()->add<TLabel>("table_source_label"))),
      table_verdict_label(add<TLabel>("table_verdict_label", "", true)),
      findings_table(fill(add<TTable>("findings_table"))),
      table_progressbar(add<TProgressBar>("table_progressbar")),
      table_progress_note(add<TLabel>("table_progress_note", "Closing this window stops the generation.")),
      write_scenarios_button(add_row(*this, "panel_table_buttons")
                                 .add<TButton>("write_scenarios_button", "&Generate scenarios")),
      cancel_button(write_scenarios_button.parent()->add<TButton>("cancel_button", "Cancel")),
      reader_(reader), template_file_(template_file), folder_(folder),
      findings_(std::make_unique<Findings>()) {
    set_bounds({0, 0, least_width, least_height});
    table_source_label.set_text_is_data(true);
    table_source_label.set_cut(Cut::middle);
    table_verdict_label.set_text_is_data(true);
    findings_table.set_columns(finding_columns());
    findings_table.set_rows(findings_.get());
    table_progressbar.set_visible(false);
    table_progress_note.set_visible(false);
    cancel_button.set_cancel(true);
    cancel_button.set_modal_result(Modal_result::cancel);
    dialog_.title = "Table of scenarios";
    dialog_.filter = "Table (*.csv)|*.csv|*.tsv|*.txt|All files (*.*)|*.*";
    dialog_.default_extension = "csv";
    dialog_.must_exist = true;
    wire();
    show_check();
}

Tscenario_table_form::~Tscenario_table_form() {
    findings_table.set_rows(nullptr);
}

void Tscenario_table_form::wire() {
    choose_table_button.on_click = [this] { choose_file(); };
    paste_table_button.on_click = [this] { paste(); };
    check_again_button.on_click = [this] { read_file(); };
    write_scenarios_button.on_click = [this] { write(); };
    on_key = [this](const Key& key) { return take_key(key); };
    findings_table.on_key = on_key;
}

bool Tscenario_table_form::take_key(const Key& key) {
    const std::string name = key_name(key);
    if (name != "Ctrl+V" && name != "Shift+Ins")
        return false;
    paste();
    return true;
}

void Tscenario_table_form::choose_file() {
    if (!dialog_.execute())
        return;
    file_ = record_text(dialog_.file_name);
    read_file();
}

void Tscenario_table_form::read_file() {
    const platform::Read_result read = platform::read_file(file_);
    if (!read.ok()) {
        message_box(worded("The table cannot be read: %1", screen_text(file_)), "Scenarios from a table",
                    Button_set::ok);
        return;
    }
    text_ = read.contents;
    table_source_label.set_text(screen_text(file_));
    check();
}

void Tscenario_table_form::paste() {
    std::string text = current_desktop == nullptr ? "" : current_desktop->clipboard_text();
    if (text.empty()) {
        message_box("Nothing is on the clipboard. Copy the rows in the spreadsheet first, with the headers.",
                    "Scenarios from a table", Button_set::ok);
        return;
    }
    file_.clear();
    text_ = std::move(text);
    table_source_label.set_text(worded("pasted from the clipboard; to check it again, paste it again"));
    check();
}

void Tscenario_table_form::check() {
    const Busy_pointer busy;
    findings_->show(nullptr);
    table_ = std::make_unique<Scenario_table>(reader_.read(text_), template_file_, folder_);
    show_check();
}

void Tscenario_table_form::show_check() {
    const Table_check* const check = table_ ? &table_->check() : nullptr;
    findings_->show(check);
    findings_table.rows_changed();
    findings_table.set_text(check == nullptr     ? "No table has been chosen yet."
                            : check->may_write() ? "Nothing is wrong with the table."
                                                 : "");
    check_again_button.set_enabled(check != nullptr && !file_.empty());
    check_again_button.set_hint(check_again_button.enabled() ? "Read the file once more, after it was mended."
                                : check == nullptr
                                    ? "No table has been chosen yet."
                                    : "What was pasted cannot be read again: copy and paste it anew.");
    write_scenarios_button.set_enabled(check != nullptr && check->may_write());
    write_scenarios_button.set_default(write_scenarios_button.enabled());
    std::string verdict;
    Mark mark = Mark::none;
    if (check != nullptr && !check->refused.empty()) {
        verdict = worded(screen_text(check->refused));
        mark = Mark::cross;
    } else if (check != nullptr) {
        const auto add = [&](const char* text, std::size_t count, Mark weight) {
            if (count == 0)
                return;
            verdict += "; " + worded(text, std::to_string(count));
            mark = weight;
        };
        mark = Mark::tick;
        verdict = worded("Scenarios in the table: %1", std::to_string(check->count));
        add("there already, to be replaced: %1", check->existing.size(), Mark::exclamation);
        add("doubtful values: %1", check->doubts.size(), Mark::exclamation);
        add("faults: %1", check->fault_count, Mark::cross);
        if (check->fault_count > 0)
            verdict += ". " + worded("Nothing is written as long as there are faults.");
    }
    table_verdict_label.set_text(verdict);
    table_verdict_label.set_mark(mark);
}

std::vector<std::string> Tscenario_table_form::replaced() const {
    std::vector<std::string> files;
    for (const std::string& name : table_->check().existing) {
        TESK::File_name file;
        folder_.append_to(name.c_str(), file);
        files.push_back(file);
    }
    return files;
}

// Looks once more at the folder, in which others may have written since. False when the user has to look
// again.
bool Tscenario_table_form::is_as_shown() {
    const std::vector<std::string> shown = table_->check().existing;
    check();
    if (table_->check().may_write() && table_->check().existing == shown)
        return true;
    message_box("The folder of generated scenarios has changed meanwhile. Look once more at what is found.",
                "Scenarios from a table", Button_set::ok);
    return false;
}

void Tscenario_table_form::write() {
    std::optional<Change_backups> backups;
    if (!table_ || !is_as_shown() || (prepare_backups && !prepare_backups(replaced(), backups)))
        return;
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds between_paints{40};
    Clock::time_point next_paint = Clock::now();
    for (TButton* button :
         {&choose_table_button, &paste_table_button, &check_again_button, &write_scenarios_button})
        button->set_enabled(false);
    table_progressbar.set_maximum(static_cast<int>(table_->check().count));
    table_progressbar.set_visible(true);
    table_progress_note.set_visible(true);
    {
        const Busy_pointer busy;
        outcome_ = table_->write(pointer_to(backups), [&](std::size_t done, std::size_t) {
            if (Clock::now() < next_paint)
                return true;
            table_progressbar.set_position(static_cast<int>(done));
            const bool goes_on = paint_pending();
            next_paint = Clock::now() + between_paints;
            return goes_on;
        });
    }
    if (outcome_.stopped && current_desktop != nullptr)
        current_desktop->stay_open();
    set_modal_result(Modal_result::ok);
}
