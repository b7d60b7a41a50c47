// The text of a record that is written thousands of times, each time with other values in the same few
// fields: only the sections that hold these are composed anew.
#pragma once

#include "foundation/ustring.h"
#include "records/data_record.h"

#include <string>
#include <vector>

class Repeated_text {
public:
    // Declares the structure of the record, as a save does. The record and its fields, texts and file names,
    // outlive this; nothing else of the record may change, and it must not be read or written meanwhile.
    Repeated_text(TESK::Data_record& record, const std::vector<const TESK::Ustring*>& fields);
    Repeated_text(const Repeated_text&) = delete;
    Repeated_text& operator=(const Repeated_text&) = delete;
    ~Repeated_text();

    // What a save of the record would write now, good until the next call.
    const std::string& compose();

private:
    // Text that never changes, and behind it a section that does; null behind the last.
    struct Piece {
        std::string text;
        const TESK::VV_section* section;
    };
    TESK::Data_record& record_;
    std::vector<Piece> pieces_;
    std::string text_;
};
