#include "editing/companion_text.h"

#include "editing/bound_control.h"
#include "foundation/code_page_1252.h"
#include "platform/file_stream.h"
#include "platform/file_writer.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

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
    lines.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n')
            lines += '\r';
        lines += c;
    }
    return lines;
}

// The first lines of a file that is too long to be shown whole.
std::string beginning_of(const std::string& file) {
    platform::File_stream stream(file, false);
    std::string text(Companion_text::largest_shown, '\0');
    text.resize(stream.read(text.data(), text.size()));
    const std::size_t end = text.rfind('\n');
    if (end != std::string::npos)
        text.resize(end + 1);
    return text;
}

} // namespace

TESK::Smart_file_name Companion_text::name(bool create_folder) const {
    TESK::Smart_file_name file;
    (record_.folder(create_folder).*get_name_)(file, false);
    return file;
}

void Companion_text::show_anew() {
    if (!modified())
        load();
}

void Companion_text::load() {
    const TESK::Smart_file_name file = name();
    if (!has_offered_)
        offer_interrupted_save(file);
    has_offered_ = true;
    platform::Read_result read = platform::read_file(file, largest_shown);
    known_.take(read);
    is_cut_ = read.outcome == platform::Read_outcome::too_large;
    if (is_cut_)
        read.contents = beginning_of(file);
    std::string text = without_carriage_returns(read.contents);
    encoding_ = Encoding::code_page;
    if (!is_ascii(text) && is_well_formed(text)) {
        const bool has_mark = text.starts_with(utf8_mark);
        encoding_ = has_mark ? Encoding::utf8_with_mark : Encoding::utf8;
        text.erase(0, has_mark ? utf8_mark.size() : 0);
    }
    const bool is_text = text.find('\0') == std::string::npos;
    const bool is_whole = read.ok() || read.outcome == platform::Read_outcome::absent;
    memo_.set_read_only(!is_text || !is_whole);
    memo_.set_text(encoding_ == Encoding::code_page ? screen_text(text) : text);
    memo_.set_modified(false);
}

platform::Write_result Companion_text::write() {
    std::string text = with_line_ends(memo_.text());
    Encoding encoding = encoding_;
    if (encoding == Encoding::code_page) {
        if (const auto bytes = TESK::code_page_from_utf8(text))
            text = *bytes;
        else
            encoding = Encoding::utf8_with_mark;
    }
    if (encoding == Encoding::utf8_with_mark)
        text.insert(0, utf8_mark);
    const platform::Write_result result =
        platform::write_file(name(true), text, platform::Durability::durable);
    if (result.ok()) {
        encoding_ = encoding;
        known_.take({platform::Read_outcome::read, text});
        memo_.set_modified(false);
    }
    return result;
}

Save_outcome Companion_text::save() {
    if (!modified())
        return Save_outcome::saved;
    if (known_.compare(name()) == Known_contents::Comparison::changed) {
        const Conflict_answer answer = ask_about_conflict(name());
        if (answer == Conflict_answer::load)
            load();
        if (answer != Conflict_answer::overwrite)
            return Save_outcome::aborted;
    }
    // What cannot be read may be more than what is shown here.
    while (known_.compare(name()) == Known_contents::Comparison::unreadable || !write().ok()) {
        const Save_outcome answer = ask_after_failed_save();
        if (answer != Save_outcome::saved)
            return answer;
    }
    return Save_outcome::saved;
}
