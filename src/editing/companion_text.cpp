#include "editing/companion_text.h"

#include "editing/bound_control.h"
#include "foundation/code_page_1252.h"
#include "platform/file_writer.h"
#include "platform/files.h"

#include <algorithm>

namespace {

constexpr std::size_t largest_companion = std::size_t{16} << 20;

bool is_ascii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Whether the bytes are well-formed UTF-8: continuation bytes stand where, and only where, a leading byte
// asks for them.
bool is_well_formed(const std::string& text) {
    for (std::size_t i = 0; i < text.size();) {
        const auto byte = static_cast<unsigned char>(text[i++]);
        int more = 0;
        if (byte >= 0xC2 && byte < 0xE0)
            more = 1;
        else if (byte >= 0xE0 && byte < 0xF0)
            more = 2;
        else if (byte >= 0xF0 && byte < 0xF5)
            more = 3;
        else if (byte >= 0x80)
            return false;
        for (; more > 0; --more, ++i)
            if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80)
                return false;
    }
    return true;
}

// Whatever ends a line in the file: a carriage return, a line feed or both.
std::string without_carriage_returns(const std::string& text) {
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r')
            lines += text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            lines += '\n';
    }
    return lines;
}

std::string with_line_ends(const std::string& text) {
    std::string lines;
    for (const char c : text)
        lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return lines;
}

} // namespace

Companion_text::Companion_text(TMemo& memo) : memo_(memo) {
    set_encoding(false);
}

void Companion_text::set_encoding(bool is_utf8) {
    is_utf8_ = is_utf8;
    memo_.input_filter = is_utf8 ? nullptr : std::function<std::string(const std::string&)>(typable_text);
}

void Companion_text::load(const TESK::Smart_file_name& file) {
    const platform::Read_result read = platform::read_file(file, largest_companion);
    set_encoding(!is_ascii(read.contents) && is_well_formed(read.contents));
    const std::string text = without_carriage_returns(read.contents);
    memo_.set_read_only(!read.ok() && read.outcome != platform::Read_outcome::absent);
    memo_.set_text(is_utf8_ ? text : screen_text(text));
    memo_.set_modified(false);
}

platform::Write_result Companion_text::save(const TESK::Smart_file_name& file) {
    const std::string text = with_line_ends(memo_.text());
    const platform::Write_result result =
        platform::write_file(file, is_utf8_ ? text : record_text(text), platform::Durability::durable);
    if (result.ok())
        memo_.set_modified(false);
    return result;
}
