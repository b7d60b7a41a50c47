// The texts of many scenarios that are one template with other values in a few of its settings. Each is what
// Record_settings would make of the template by setting these values one by one: every other byte stays; only
// sections that the template lacks come in the same order in all of them. The template is read once, so that
// a scenario costs no more than the copy of its text.
#pragma once

#include "operations/record_lines.h"
#include "operations/record_settings.h"

#include <cstddef>
#include <string>
#include <vector>

class Scenario_variants {
public:
    // Reads the template, of which there will be `count` variants.
    Scenario_variants(const TESK::File_name& template_file, std::size_t count);
    Scenario_variants(const Scenario_variants&) = delete;
    Scenario_variants& operator=(const Scenario_variants&) = delete;

    // Empty when the template was read; else why not.
    const std::string& failure() const { return settings_.failure(); }

    // Adds a setting, by its name "section.key", that has values of its own in some variants. Gives why that
    // cannot be; nothing when it can.
    std::string add_column(const std::string& name);

    struct Verdict {
        std::string refusal; // why the value is not taken
        std::string doubt;   // why it is doubtful; empty, like the other, when all is well
    };
    // Gives the setting of the column, by the order of addition, its value in a variant.
    Verdict set(std::size_t column, std::size_t variant, const std::string& value);

    // Says that all values are set. Gives for each column why it cannot stand beside the others; nothing for
    // those that can.
    std::vector<std::string> settle();
    // The text of a variant once all is settled, good until the next call.
    const std::string& text(std::size_t variant);

private:
    // A line that changes, for each variant in which it does.
    struct Lines {
        const Setting* setting;
        std::vector<std::string> of_variant;
    };
    struct Column {
        const Setting* setting;
        std::string old_value;    // as its entry has it
        std::string sample;       // some value that is another one
        std::vector<Lines> lines; // of all keys bound to the field; none until a value differs
    };
    // A part of the text that changes.
    struct Hole {
        std::size_t begin;
        std::size_t end;
        std::string original;           // what stands there without a value
        std::vector<const Lines*> fill; // the line that stands there, or those that a header is there for
        bool is_header = false;
        std::string header_or_end; // the header with its end, or what stands behind a line with a value
    };

    void find_lines(Column& column);
    std::string extend(Record_settings& extended, const Column& column) const;
    void dig_hole(const Record_lines& before, const Record_lines& now, const Lines& lines);
    void dig_header(const Record_lines& before, const Lines& lines, std::size_t line_begin);

    Record_settings settings_;
    std::size_t count_;
    std::vector<std::string> old_values_; // of all settings
    std::vector<Column> columns_;
    std::string base_;
    std::vector<Hole> holes_;
    std::string text_;
};
