#include "table_csv/csv_table_reader.h"

#include <csv.h>

#include <algorithm>
#include <exception>

namespace {

constexpr std::size_t most_rows = 100'000;
constexpr std::size_t most_cells = 2'000'000;
constexpr std::size_t buffer_growth = 4096;
constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

// A tab is in no name; of the other two, the one that there is more of.
char separator_in(std::string_view first_line) {
    if (first_line.find('\t') != std::string_view::npos)
        return '\t';
    const auto semicolons = std::count(first_line.begin(), first_line.end(), ';');
    return semicolons > std::count(first_line.begin(), first_line.end(), ',') ? ';' : ',';
}

class Parser {
public:
    explicit Parser(char separator) {
        // Empty rows are reported too, so that rows can be counted.
        csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL);
        csv_set_delim(&parser_, static_cast<unsigned char>(separator));
        csv_set_blk_size(&parser_, buffer_growth);
    }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;
    ~Parser() { csv_free(&parser_); }

    Text_table parse(std::string_view text) {
        const bool ok =
            csv_parse(&parser_, text.data(), text.size(), take_cell, take_row, this) == text.size() &&
            csv_fini(&parser_, take_cell, take_row, this) == 0;
        if (failed_)
            std::rethrow_exception(failed_);
        if (is_too_large())
            table_.failure = "The table has more than a hundred thousand rows or two million cells.";
        else if (!ok)
            table_.failure = "Row " + std::to_string(row_) +
                             ": a quotation mark has no counterpart, or stands in the middle of a cell.";
        return std::move(table_);
    }

private:
    bool is_too_large() const { return table_.rows.size() > most_rows || cell_count_ > most_cells; }

    // Nothing may be thrown through the library.
    static void take_cell(void* cell, std::size_t size, void* parser) noexcept {
        auto& self = *static_cast<Parser*>(parser);
        try {
            ++self.cell_count_;
            if (!self.failed_ && !self.is_too_large())
                self.cells_.emplace_back(static_cast<const char*>(cell), size);
        } catch (...) {
            self.failed_ = std::current_exception();
        }
    }
    static void take_row(int end, void* parser) noexcept {
        auto& self = *static_cast<Parser*>(parser);
        try {
            self.end_row(end);
        } catch (...) {
            self.failed_ = std::current_exception();
        }
    }
    // A carriage return and a line feed end one row, though both are reported.
    void end_row(int end) {
        const bool is_second = end == CSV_LF && last_end_ == CSV_CR && cells_.empty();
        last_end_ = end;
        if (is_second)
            return;
        if (std::any_of(cells_.begin(), cells_.end(), [](const std::string& cell) { return !cell.empty(); }))
            table_.rows.push_back({row_, std::move(cells_)});
        cells_.clear();
        ++row_;
    }

    csv_parser parser_{};
    Text_table table_;
    std::vector<std::string> cells_;
    std::size_t row_ = 1;
    std::size_t cell_count_ = 0;
    int last_end_ = 0;
    std::exception_ptr failed_;
};

} // namespace

Text_table Csv_table_reader::read(std::string_view text) {
    if (text.starts_with(utf8_mark))
        text.remove_prefix(utf8_mark.size());
    if (text.substr(0, buffer_growth).find('\0') != std::string_view::npos)
        return {{}, "The table must be saved as text of 8 bits a character, such as UTF-8."};
    return Parser(separator_in(text.substr(0, text.find_first_of("\r\n")))).parse(text);
}
