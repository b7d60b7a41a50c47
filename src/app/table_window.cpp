#include "app/table_window.h"

#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "foundation/code_page_1252.h"
#include "names/file_name.h"
#include "toolkit/desktop.h"
#include "toolkit/screen_language.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int usual_width = 900;
constexpr int usual_height = 560;
constexpr std::size_t narrowest = 6; // columns, in characters
constexpr std::size_t widest = 40;

std::string counted(std::size_t rows, std::size_t columns) {
    return worded("Rows: %1", std::to_string(rows)) + ", " + worded("columns: %1", std::to_string(columns));
}

} // namespace

std::string trouble_with(const Attribute_table& table, const std::string& file_name) {
    const std::string file = screen_text(file_name);
    switch (table.fault()) {
    case Attribute_table::Fault::missing: return worded("There is no table %1.", file);
    case Attribute_table::Fault::unreadable:
        return worded("%1 is damaged or no table: it cannot be read.", file);
    case Attribute_table::Fault::too_large: return worded("%1 is too large to be shown.", file);
    default: break;
    }
    return table.missing_rows() == 0
               ? ""
               : worded("The file is damaged. Rows that it should have and does not: %1",
                        std::to_string(table.missing_rows()));
}

Table_window::Table_window()
    : TForm("table_window"), file_label(add<TLabel>("table_file_label")),
      table(fill(add<TTable>("attributes_table", TTable::Selects::cells))),
      copy_all_button(add_button(add_row(*this, "table_buttons"), "table_copy_all_button", "Copy all",
                                 "Copy the whole table as it is on view, with the names of its columns. "
                                 "Ctrl+C copies the selected cells.")),
      close_button(add_button(*copy_all_button.parent(), "table_close_button", "Close")),
      status_line(add<TStatusLine>("table_status_line")) {
    set_text_is_data(true);
    set_bounds({0, 0, usual_width, usual_height});
    file_label.set_text_is_data(true);
    file_label.set_cut(Cut::middle);
    file_label.set_names_next(true);
    table.set_text_is_data(true); // and so are the names of its columns
    table.set_rows(&rows_);
    table.on_sort = [this](int column, bool down) { sort(column, down); };
    copy_all_button.on_click = [this] { copy_all(); };
    close_button.set_cancel(true);
    close_button.on_click = [this] { close(); };
}

void Attribute_rows::set_contents(Attribute_table contents) {
    contents_ = std::move(contents);
    order_.resize(contents_.row_count());
    std::iota(order_.begin(), order_.end(), 0);
}

void Attribute_rows::sort(int column, bool down) {
    order_ = rows_in_order(contents_, static_cast<std::size_t>(column), down);
}

Table_cell Attribute_rows::cell(int row, int column) const {
    return {screen_text(std::string(contents_.text(number_at(row), static_cast<std::size_t>(column))))};
}

int Attribute_rows::place_of(std::uint32_t number) const {
    return static_cast<int>(std::find(order_.begin(), order_.end(), number) - order_.begin());
}

void Table_window::read(const std::string& file_name) {
    const Busy_pointer busy;
    file_ = file_name;
    rows_.set_contents(Attribute_table(file_, false));
    const Attribute_table& contents = rows_.contents();
    const std::string trouble = trouble_with(contents, file_);
    set_text(screen_text(TESK::File_name(file_.c_str()).get_name(true)));
    file_label.set_text(screen_text(file_));
    show_columns();
    table.set_text(contents.fault() == Attribute_table::Fault::none ? worded("This table has no rows.")
                                                                    : trouble);
    table.set_sort(-1, false);
    table.rows_changed();
    table.set_cursor(rows_.count() > 0 ? 0 : -1, 0);
    copy_all_button.set_enabled(rows_.count() > 0);
    if (trouble.empty())
        status_line.show(counted(contents.row_count(), contents.field_count()));
    else
        status_line.show(trouble, Mark::exclamation);
}

void Table_window::show_columns() {
    const Attribute_table& contents = rows_.contents();
    std::vector<Table_column> columns;
    for (std::size_t field = 0; field < contents.field_count(); ++field) {
        const std::string name = screen_text(contents.field_name(field));
        const std::size_t width = std::max(contents.field_length(field), name.size() + 2);
        columns.push_back({name, name, static_cast<int>(std::clamp(width, narrowest, widest)),
                           contents.is_number(field) ? Align::end : Align::start});
    }
    table.set_columns(std::move(columns));
}

// The cursor stays on its row.
void Table_window::sort(int column, bool down) {
    const Busy_pointer busy;
    const int before = table.cursor_row();
    const std::uint32_t number = before < 0 ? 0 : rows_.number_at(before);
    rows_.sort(column, down);
    table.set_sort(column, down);
    table.rows_changed();
    if (before >= 0) {
        const int place = rows_.place_of(number);
        table.set_cursor(place, table.cursor_column());
        table.show_row(place);
    }
}

void Table_window::copy_all() {
    if (current_desktop == nullptr)
        return;
    const Busy_pointer busy;
    std::string text;
    for (int row = -1; row < rows_.count(); ++row) {
        for (int column = 0; column < table.column_count(); ++column) {
            text += column > 0 ? "\t" : "";
            text += row < 0 ? table.columns()[static_cast<std::size_t>(column)].caption
                            : rows_.cell(row, column).text;
        }
        text += '\n';
    }
    current_desktop->set_clipboard_text(text);
    status_line.show(worded("Rows copied: %1", std::to_string(rows_.count())));
}

void Table_windows::show(const std::string& file_name) {
    auto found = std::find_if(windows_.begin(), windows_.end(), [&](const auto& window) {
        return window->visible() && TESK::equal_ignoring_case(window->file(), file_name);
    });
    if (found == windows_.end()) {
        std::erase_if(windows_, [](const auto& window) { return !window->visible(); });
        found = windows_.insert(windows_.end(), std::make_unique<Table_window>());
    }
    Table_window& window = **found;
    window.read(file_name);
    window.show();
    window.table.focus();
}
