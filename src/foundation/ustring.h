// The text class of the suite: a std::string that other classes can derive from, and the same class with line
// input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>

namespace TESK {

// Which end of a text strip() works on.
enum class Strip_mode { leading = 0, trailing = 1, both = 2 };

class Ustring : public std::string {
public:
    Ustring() = default;
    Ustring(const Ustring&) = default;
    Ustring(Ustring&&) = default;
    Ustring(const Ustring& source, std::size_t pos, std::size_t count);
    Ustring(const char* text, std::size_t pos, std::size_t count);
    // A null text is not allowed.
    Ustring(const char* text);
    Ustring(const std::string& text);

    Ustring& operator=(const Ustring&) = default;
    Ustring& operator=(Ustring&&) = default;
    Ustring& operator=(const char* text);
    Ustring& operator=(const std::string& text);

    // Makes this text `prefix` followed by its old text.
    virtual Ustring& prepend(const Ustring& prefix);

    // Whether `text` occurs anywhere. A null text raises std::logic_error.
    virtual bool contains(const char* text) const;

    // Folds the letters A to Z to lower case, in place; bytes above 127 stay.
    virtual void to_lower();

    virtual ~Ustring() = default;

    // Takes off the characters equal to `ch` at the ends that `mode` names. The trailing pass never looks at
    // the first character: "xxx" stripped of trailing "x" is "x".
    Ustring& strip(Strip_mode mode, char ch);

    // The index of the first occurrence of `text`, or -1. An empty text is found at 0, unless this text is
    // empty. A null text is not allowed. (std::string's own find goes by its full name.)
    std::int32_t find(const char* text) const;

    // The character at `index`; behind the end, raises std::out_of_range.
    char char_at(std::size_t index) const { return at(index); }

    // Stores the flag, and returns it.
    bool set_case_flag(bool flag) { return case_flag = flag; }

protected:
    std::int32_t skip_whitespace = 1; // whether UIO_string::read_line skips leading white space
    bool case_flag = false;
};

class UIO_string : public Ustring {
public:
    using Ustring::Ustring;
    using Ustring::operator=;

    void set_skip_whitespace(bool skip) { skip_whitespace = skip; }

    // Reads up to the next `delimiter`, which is consumed and not stored, or to the end of the stream. An
    // immediate delimiter gives an empty text. Returns `in`.
    std::istream& read_to_delimiter(std::istream& in, char delimiter);

    // Skips leading white space other than a line feed, when that is asked for, and reads to the line feed.
    std::istream& read_line(std::istream& in);
};

// Empties `result`, then appends the low byte of each character of `source`. Returns `result`.
std::string& wide_to_narrow(const std::wstring& source, std::string& result);

} // namespace TESK
