// A record file in memory: the text that a save would write of what a record declares, to tell whether a
// record was changed; and a text that was read elsewhere.
#pragma once

#include "records/data_source.h"

#include <string>
#include <utility>

namespace TESK {

class VV_text : public Data_source {
public:
    // With `keep_structure` a record keeps its sections and entries after reading.
    explicit VV_text(std::string text = {}, bool keep_structure = false)
        : text_(std::move(text)), keep_structure_(keep_structure) {}

    // Reads the text into the record. True.
    bool get(Data_record& record) override;
    // Composes the text, with what the old one holds beyond it where the record preserves that; set() it with
    // a record.
    bool write_record(Data_record& record) override;
    // There is no name.
    std::string& label(std::string& buffer) const override { return buffer; }

    const std::string& text() const { return text_; }

private:
    std::string text_;
    bool keep_structure_;
};

} // namespace TESK
