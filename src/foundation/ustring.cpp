#include "foundation/ustring.h"

#include "foundation/code_page_1252.h"

#include <algorithm>
#include <stdexcept>

namespace TESK {

Ustring::Ustring(const Ustring& source, std::size_t pos, std::size_t count)
    : std::string(source, pos, count), case_flag(source.case_flag) {}

Ustring::Ustring(const char* text, std::size_t pos, std::size_t count)
    : std::string(std::string(text), pos, count) {}

Ustring::Ustring(const char* text) : std::string(text) {}

Ustring::Ustring(const std::string& text) : std::string(text) {}

Ustring& Ustring::operator=(const char* text) {
    assign(text);
    return *this;
}

Ustring& Ustring::operator=(const std::string& text) {
    assign(text);
    return *this;
}

Ustring& Ustring::prepend(const Ustring& prefix) {
    insert(0, prefix);
    return *this;
}

bool Ustring::contains(const char* text) const {
    if (text == nullptr)
        throw std::logic_error("Ustring::contains: null text");
    return std::string::find(text) != npos;
}

void Ustring::to_lower() {
    std::transform(begin(), end(), begin(), to_ascii_lower);
}

Ustring& Ustring::strip(Strip_mode mode, char ch) {
    if (mode != Strip_mode::trailing)
        erase(0, std::min(find_first_not_of(ch), size()));
    if (mode != Strip_mode::leading && !empty()) {
        std::size_t last = size() - 1;
        while (last != 0 && (*this)[last] == ch)
            --last;
        // The walk stops on the last character that stays, or on the first one, which always stays.
        erase(last + 1);
    }
    return *this;
}

std::int32_t Ustring::find(const char* text) const {
    if (empty())
        return -1;
    const std::size_t found = std::string::find(text);
    return found == npos ? -1 : static_cast<std::int32_t>(found);
}

std::istream& UIO_string::read_to_delimiter(std::istream& in, char delimiter) {
    // getline leaves the text alone when the stream has ended before.
    clear();
    // getline stops as wanted, but a last line without a delimiter leaves the stream's end-of-file flag set
    // and, when it was empty, its fail flag too, as reading behind the end does.
    std::getline(in, *this, delimiter);
    return in;
}

std::istream& UIO_string::read_line(std::istream& in) {
    if (skip_whitespace != 0) {
        int next = in.peek();
        while (in.good() && next != '\n' && is_white_space(static_cast<char>(next))) {
            in.get();
            next = in.peek();
        }
    }
    return read_to_delimiter(in, '\n');
}

std::string& wide_to_narrow(const std::wstring& source, std::string& result) {
    result.clear();
    for (const wchar_t c : source)
        result += static_cast<char>(c & 0xFF);
    return result;
}

} // namespace TESK
