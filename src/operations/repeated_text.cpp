#include "operations/repeated_text.h"

#include "names/file_name.h"
#include "records/typed_entries.h"

#include <algorithm>

namespace {

// The text that the entry is bound to; null when it is bound to something else.
const TESK::Ustring* bound_text(const TESK::VV_base_entry& entry) {
    switch (entry.type_code()) {
    case TESK::Entry_type::string: return &static_cast<const TESK::VV_string_entry&>(entry).value;
    case TESK::Entry_type::file_name: return &static_cast<const TESK::VV_filename_entry&>(entry).value;
    default: return nullptr;
    }
}

bool has_one_of(const TESK::VV_section& section, const std::vector<const TESK::Ustring*>& fields) {
    for (const TESK::VV_base_entry& entry : section.all_entries())
        if (const TESK::Ustring* text = bound_text(entry))
            if (std::find(fields.begin(), fields.end(), text) != fields.end())
                return true;
    return false;
}

} // namespace

Repeated_text::Repeated_text(TESK::Data_record& record, const std::vector<const TESK::Ustring*>& fields)
    : record_(record) {
    record_.prewrite();
    record_.delete_structure();
    record_.expect_structure(true);
    record_.declare_series();
    pieces_.push_back({"", nullptr});
    for (const TESK::VV_section& section : record_.all_sections()) {
        if (has_one_of(section, fields)) {
            pieces_.back().section = &section;
            pieces_.push_back({"", nullptr});
        } else {
            section.append_text(pieces_.back().text);
        }
    }
}

Repeated_text::~Repeated_text() {
    record_.delete_structure();
    record_.postwrite();
}

const std::string& Repeated_text::compose() {
    text_.clear();
    for (const Piece& piece : pieces_) {
        text_ += piece.text;
        if (piece.section != nullptr)
            piece.section->append_text(text_);
    }
    return text_;
}
