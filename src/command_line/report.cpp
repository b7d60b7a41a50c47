#include "command_line/report.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr std::size_t between_columns = 2;
constexpr std::size_t narrowest = 12; // to which a column is cut
constexpr const char* ellipsis = "\xE2\x80\xA6";

bool is_continuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

std::size_t width_of(const std::string& text) {
    return text.size() - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), is_continuation));
}

// The text in no more than so many characters.
std::string fitted(const std::string& text, std::size_t width) {
    if (width_of(text) <= width)
        return text;
    std::size_t end = 0;
    for (std::size_t characters = 0; end < text.size(); ++end)
        if (!is_continuation(text[end]) && ++characters == width)
            break;
    return text.substr(0, end) + ellipsis;
}

// What is no UTF-8 can only come from a name of the host, and is shown by the character that stands for such.
std::string json_text(const Json& value, int indent) {
    return value.dump(indent, ' ', false, Json::error_handler_t::replace);
}

// The colour of a word that tells how something is; nothing for any other.
const char* colour_of(const std::string& word) {
    struct Coloured {
        const char* word;
        const char* colour;
    };
    constexpr Coloured words[] = {{"failed", "31"},  {"error", "31"},   {"refused", "31"},
                                  {"missing", "31"}, {"warning", "33"}, {"out of date", "33"},
                                  {"stopped", "33"}, {"running", "36"}, {"done", "32"}};
    for (const Coloured& one : words)
        if (word == one.word)
            return one.colour;
    return nullptr;
}

} // namespace

std::string cell_text(const Json& value) {
    if (value.is_null())
        return "";
    std::string text = value.is_string() ? value.get<std::string>() : value.dump();
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return text;
}

Report::Report(Session& session, std::vector<Column> columns)
    : session_(session), columns_(std::move(columns)) {}

Report::~Report() {
    if (!is_first_ && !is_finished_)
        session_.console.out() << "\n]\n";
}

bool Report::add(const std::vector<Json>& row) {
    std::ostream& out = session_.console.out();
    session_.has_printed = true;
    if (session_.as_json) {
        Json object = Json::object();
        for (std::size_t i = 0; i < columns_.size(); ++i)
            object[columns_[i].key] = row[i];
        out << (is_first_ ? "[\n  " : ",\n  ") << json_text(object, -1);
        is_first_ = false;
        return session_.console.output().has_reader();
    }
    std::vector<std::string> cells;
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (columns_[i].is_shown)
            cells.push_back(cell_text(row[i]));
    if (session_.console.out_is_terminal())
        rows_.push_back(std::move(cells));
    else
        write_line(cells);
    return session_.console.output().has_reader();
}

void Report::write_line(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells)
        line.append(line.empty() && &cell == &cells.front() ? "" : "\t").append(cell);
    session_.console.out() << line << '\n';
}

void Report::finish() {
    session_.has_printed = true;
    is_finished_ = true;
    if (session_.as_json)
        session_.console.out() << (is_first_ ? "[]\n" : "\n]\n");
    else if (!rows_.empty())
        write_table();
    session_.console.out().flush();
}

void Report::write_table() {
    std::vector<std::string> captions;
    for (const Column& column : columns_) {
        if (!column.is_shown)
            continue;
        std::string caption = column.key;
        for (char& c : caption)
            c = c == '_' ? ' ' : static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        captions.push_back(caption);
    }
    rows_.insert(rows_.begin(), captions);
    std::vector<std::size_t> widths(captions.size(), 0);
    for (const auto& row : rows_)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], width_of(row[i]));
    const auto total = [&] {
        return std::accumulate(widths.begin(), widths.end(), between_columns * (widths.size() - 1));
    };
    while (total() > session_.console.width()) {
        const auto widest = std::max_element(widths.begin(), widths.end());
        if (*widest <= narrowest)
            break;
        *widest = std::max(narrowest, *widest - std::min(*widest, total() - session_.console.width()));
    }
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string cell = fitted(row[i], widths[i]);
            const char* colour = session_.console.has_colours() ? colour_of(cell) : nullptr;
            line += colour == nullptr ? cell : "\033[" + std::string(colour) + 'm' + cell + "\033[0m";
            if (i + 1 < row.size())
                line.append(widths[i] - width_of(cell) + between_columns, ' ');
        }
        session_.console.out() << line << '\n';
    }
}

void print_refusal(Session& session, const std::string& sentence) {
    if (session.as_json && !session.has_printed)
        print_object(session, {{"refused", sentence}});
}

void print_object(Session& session, const Json& object) {
    std::ostream& out = session.console.out();
    session.has_printed = true;
    if (session.as_json) {
        out << json_text(object, 2) << '\n';
    } else {
        std::size_t widest = 0;
        for (const auto& [key, value] : object.items())
            widest = std::max(widest, key.size());
        for (const auto& [key, value] : object.items())
            out << key
                << (session.console.out_is_terminal()
                        ? std::string(widest - key.size() + between_columns, ' ')
                        : "\t")
                << cell_text(value) << '\n';
    }
    out.flush();
}
