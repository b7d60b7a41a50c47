// A list of lines of text.
#pragma once

#include "foundation/lists.h"
#include "foundation/ustring.h"

namespace TESK {

class Text_list : public Bidirectional_list {
public:
    class Item : public TESK::Item, public Ustring {
    public:
        using Ustring::Ustring;
        using Ustring::operator=;

        using Ustring::compare;
        // Always 0: lines of text keep their order when sorted.
        int compare(const TESK::Item& other) const override { return TESK::Item::compare(other); }
        std::string& label_to(std::string& buffer) const override { return buffer.assign(*this); }
        // The text and a line end.
        std::ostream& write(std::ostream& out) const override {
            return out << static_cast<const std::string&>(*this) << '\n';
        }
    };

    Text_list() = default;
    // The pieces of the text between the separators. A text that does not end in the separator loses its last
    // character ("ab,cd" gives "ab" and "c"); one that does has no empty piece behind it. A null text gives
    // an empty list.
    Text_list(const char* text, char separator);

    // The first line equal to the text, byte for byte or ignoring case, or null.
    virtual Item* find(const char* text, bool case_sensitive) const;

    // Appends the lines to `out`, with nothing between them, and returns it.
    virtual std::string& to_string(std::string& out) const;
};

} // namespace TESK
