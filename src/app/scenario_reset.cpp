#include "app/scenario_reset.h"

#include "model/tilverra_scenario.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "records/vv_file.h"
#include "records/vv_text.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <string_view>

// Splits a scenario's file into sections, as a save of it would write them: what the record declares, and
// what stands in the file beside that.
class Scenario_reset::Section_reader : public TESK::Data_source {
public:
    // False when the file is there and cannot be read.
    bool read(const TESK::File_name& file) {
        const platform::Read_result old_file = platform::read_file(file, TESK::VV_file::largest_file);
        if (!old_file.ok() && old_file.outcome != platform::Read_outcome::absent)
            return false;
        contents_ = old_file.contents;
        Tilverra_scenario scenario;
        TESK::VV_file(file.c_str(), true).get(scenario);
        for (const TESK::VV_section& section : scenario.all_sections())
            if (section.encountered)
                met_.insert(section.label);
        scenario.delete_structure();
        return set(scenario);
    }

    bool write_record(TESK::Data_record& record) override {
        declare_series(record);
        std::istringstream lines(contents_);
        TESK::VV_file(nullptr).read_stream(lines, record, true, false);
        for (const TESK::VV_section& section : record.all_sections()) {
            sections.push_back({section.label, ""});
            section.append_text(sections.back().text);
        }
        record.delete_structure();
        return true;
    }
    std::string& label(std::string& buffer) const override { return buffer; }

    // Whether the section stood in the file; one that is merely declared did not.
    bool stood_in_file(const std::string& name) const { return met_.contains(name); }

    std::vector<Section> sections;

private:
    std::string contents_;
    std::set<std::string> met_;
};

namespace {

bool is_copied(const std::string& section, const std::array<bool, reset_box_count>& ticked) {
    for (std::size_t i = 0; i < reset_box_count; ++i)
        if (ticked[i])
            for (const char* name : reset_boxes[i].sections)
                if (name != nullptr && section == name)
                    return true;
    return false;
}

} // namespace

Scenario_reset::Scenario_reset(const TESK::File_name& source,
                               const std::array<bool, reset_box_count>& ticked) {
    Section_reader reader;
    if (!reader.read(source))
        return;
    for (Section& section : reader.sections)
        if (reader.stood_in_file(section.name) && is_copied(section.name, ticked))
            copied_.push_back(std::move(section));
}

bool Scenario_reset::reset(const TESK::File_name& target) const {
    Section_reader reader;
    if (!reader.read(target))
        return false;
    std::string text;
    for (const Section& section : reader.sections)
        if (std::none_of(copied_.begin(), copied_.end(),
                         [&](const Section& copied) { return copied.name == section.name; }))
            text += section.text;
    for (const Section& copied : copied_)
        text += copied.text;
    return platform::write_file(target, text, platform::Durability::quick).ok();
}
