// The text that a save would write of what a record declares, without a file: to tell whether a record was
// changed, and to put it back as it was.
#pragma once

#include "records/data_source.h"

namespace TESK {

class VV_text : public Data_source {
public:
    VV_text() = default;
    explicit VV_text(std::string text) : text_(std::move(text)) {}

    // Reads the text into the record, which keeps what it knows of files. True.
    bool get(Data_record& record) override;
    // Composes the text; set() it with a record.
    bool write_record(Data_record& record) override;
    // There is no name.
    std::string& label(std::string& buffer) const override { return buffer; }

    const std::string& text() const { return text_; }

private:
    std::string text_;
};

} // namespace TESK
