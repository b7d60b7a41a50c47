// The settings of a record file: what stands in it under which section and key, what may stand there, and
// changing single values while every other byte of the file stays. What is known of a setting comes from the
// declarations of the record alone. All texts are in code page 1252.
#pragma once

#include "names/filtered_file_name.h"
#include "operations/record_lines.h"
#include "platform/file_writer.h"
#include "records/data_record.h"
#include "records/validation.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// What may stand as a value, from which follows how it is edited.
enum class Setting_kind : std::uint8_t { text, file, flag, integer, number, date, choice, unit };

// The kind in one word.
const char* setting_kind_name(Setting_kind kind);

class Record_settings;

// One setting of a record: a look at an entry of its structure, good until the Record_settings that gave it
// changes a value.
class Setting {
public:
    Setting(const Record_settings* owner, const TESK::VV_section& section, TESK::VV_base_entry& entry,
            bool fixed)
        : owner_(owner), section_(&section), entry_(&entry), fixed_(fixed) {}

    const std::string& section() const { return section_->label; }
    const std::string& key() const { return entry_->key; }
    // "section.key", by which a user names it.
    std::string name() const { return section() + '.' + key(); }

    // Whether the record declares it: else it belongs to another program, and is text.
    bool is_known() const { return entry_->type_code() != TESK::Entry_type::unexpected; }
    // Whether it follows from the rest of the file, as the version and the counts do, and cannot be set.
    bool is_fixed() const { return fixed_; }
    // Whether the file holds it: else the value is the record's default.
    bool is_in_file() const;

    Setting_kind kind() const;
    // What it is, in words; empty where the record has none.
    std::string caption() const;
    std::string unit() const;
    // The ranges and decimals of a number; null without.
    const TESK::Valid_number* guard() const { return entry_->guard; }
    // Of a choice: the labels, each with its description or an empty one.
    std::vector<std::pair<std::string, std::string>> choices() const;
    // Of a file: its name with the types of file that it may be; null for any.
    const TESK::Filtered_file_name* typed_file() const;
    // Of a file: the masks that a file of its type has, with "|" between them; empty for any.
    std::string file_masks() const;
    // Of an integer: the radix in which it stands, 2, 10 or 16.
    int radix() const;
    // The longest value that an editor takes, in characters.
    std::size_t longest_value() const { return entry_->get_max_strlen(); }

    // The value as a person writes it, in the form that Record_settings::set() takes: a number with the
    // digits that tell it from its neighbours, a date as 1996-05-02 and none as "", any other as in the file.
    std::string value() const;
    // Whether value() is the same for the other one, a setting of the same name in another record. Mostly
    // that is told without composing it.
    bool has_value_of(const Setting& other) const;
    TESK::Validation_status judge() const {
        return entry_->guard == nullptr ? TESK::Validation_status::good : entry_->guard->judge();
    }

    TESK::VV_base_entry& entry() const { return *entry_; }
    // The field that it is bound to; null for what the record does not declare.
    const void* field() const;

private:
    const Record_settings* owner_;
    const TESK::VV_section* section_;
    TESK::VV_base_entry* entry_;
    bool fixed_;
};

// What became of a wish to change a setting.
struct Setting_change {
    bool done = false;    // the setting has the value now, whether it had it before or not
    bool changed = false; // it had another one before
    std::string reason;   // why it was refused, or why the value is doubtful; a plain English sentence
};

// The record that the name of a file tells of, with its defaults: a project's, a scenario's, an operation's,
// or for any other name one that declares nothing.
std::unique_ptr<TESK::Data_record> make_record_for(const TESK::File_name& file);

// A key of older files that has moved, and where it belongs now.
struct Older_spelling {
    std::string section;
    std::string key;
    std::string old_section;
    std::string old_key;

    // Why what stands there cannot be set; a plain English sentence.
    std::string reason() const {
        return "The file is of an older version and says it under [" + old_section + "] " + old_key +
               ". Convert the file first.";
    }
};

class Record_settings {
public:
    // Reads the file. Relative names in it count from the current directory.
    explicit Record_settings(const TESK::File_name& file);
    Record_settings(const Record_settings&) = delete; // its settings look at it
    Record_settings& operator=(const Record_settings&) = delete;

    // Empty when the file was read; else why not. There are no settings then.
    const std::string& failure() const { return failure_; }
    const TESK::File_name& file() const { return file_; }

    // The settings as a save would order them, behind each section what the record does not declare.
    const std::vector<Setting>& all() const { return settings_; }
    // Null where there is none.
    const Setting* find(std::string_view section, std::string_view key) const;
    // By its name; a section may have points.
    const Setting* find(std::string_view name) const;

    // The keys that have moved since the version of the file: where it has one of them, that is read,
    // whatever stands under the new one.
    std::vector<Older_spelling> older_spellings() const;
    static constexpr const char* fixed_reason =
        "It follows from the rest of the file and is not set by hand.";
    // Why the setting cannot be set, whatever the value; nothing when it can.
    std::string reason_not_to_set(const Setting& setting) const;
    // Gives the setting the value, where its type and its guard allow that. Keys that are bound to the same
    // field change with it. A key that the record does not know must stand in the file.
    Setting_change set(std::string_view section, std::string_view key, const std::string& value);
    Setting_change set(std::string_view name, const std::string& value);

    bool is_changed() const { return text_ != text_read_; }
    // The text of the file, with the changes.
    const std::string& text() const { return text_; }
    // Writes the file when something was changed. Fails when another program has written it since.
    platform::Write_result save(platform::Durability durability = platform::Durability::durable);

    const TESK::Data_record& record() const { return *record_; }
    // Where the values stand in text(); good until the next change.
    const Record_lines& lines() const;

private:
    void list_settings();
    void write_value(const Setting& setting);
    std::vector<std::string_view> keys_before(const Setting& setting) const;

    TESK::File_name file_;
    std::unique_ptr<TESK::Data_record> record_;
    std::string text_;
    std::string text_read_;
    std::string primary_;
    mutable std::optional<Record_lines> lines_; // found when they are first asked for
    std::string failure_;
    std::vector<Setting> settings_;
};
