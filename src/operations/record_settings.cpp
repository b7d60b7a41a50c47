#include "operations/record_settings.h"

#include "foundation/code_page_1252.h"
#include "foundation/labeled_enum.h"
#include "model/project_editor_parameters.h"
#include "model/tilverra_scenario.h"
#include "operations/operation_outcome.h"
#include "operations/setting_values.h"
#include "platform/files.h"
#include "records/typed_entries.h"
#include "records/vv_file.h"
#include "records/vv_text.h"

#include <algorithm>
#include <map>
#include <span>

using TESK::Entry_type;

namespace {

template <class Entry>
const Entry& as(const TESK::VV_base_entry& entry) {
    return static_cast<const Entry&>(entry);
}

template <class Entry>
bool have_same(const TESK::VV_base_entry& a, const TESK::VV_base_entry& b) {
    return as<Entry>(a).value == as<Entry>(b).value;
}

const char* text_or_nothing(const char* text) {
    return text == nullptr ? "" : text;
}

// Why the file could not be read; nothing when it was.
std::string read_failure(const TESK::File_name& file, platform::Read_outcome outcome) {
    switch (outcome) {
    case platform::Read_outcome::absent: return "There is no file " + file + ".";
    case platform::Read_outcome::unreadable: return "The file " + file + " cannot be read.";
    case platform::Read_outcome::too_large: return "The file " + file + " is too large for a record.";
    default: return {};
    }
}

// The names and values of what the record holds.
std::map<std::string, std::string> values_of(const std::vector<Setting>& settings) {
    std::map<std::string, std::string> values;
    std::string text;
    for (const Setting& setting : settings)
        values[setting.name()] = setting.entry().get_value(text);
    return values;
}

} // namespace

const char* setting_kind_name(Setting_kind kind) {
    constexpr const char* names[] = {"text", "file", "flag", "integer", "number", "date", "choice", "unit"};
    return names[static_cast<std::size_t>(kind)];
}

Setting_kind Setting::kind() const {
    switch (entry_->type_code()) {
    case Entry_type::uint8:
    case Entry_type::uint32:
    case Entry_type::int16:
    case Entry_type::int32: return Setting_kind::integer;
    case Entry_type::float32:
    case Entry_type::float64: return Setting_kind::number;
    case Entry_type::date: return Setting_kind::date;
    case Entry_type::boolean: return Setting_kind::flag;
    case Entry_type::file_name: return Setting_kind::file;
    case Entry_type::enumeration: return Setting_kind::choice;
    case Entry_type::units: return Setting_kind::unit;
    default: return Setting_kind::text;
    }
}

std::string Setting::caption() const {
    if (entry_->guard == nullptr)
        return {};
    std::string caption = text_or_nothing(entry_->guard->caption_1);
    const std::string second = text_or_nothing(entry_->guard->caption_2);
    if (!second.empty())
        caption += (caption.empty() ? "" : " ") + second;
    return caption;
}

std::string Setting::unit() const {
    if (entry_->guard != nullptr)
        return entry_->guard->get_units_label();
    // A number without a guard has its unit, if any, behind it in the file.
    const std::string note = text_or_nothing(entry_->annotation_1);
    return note.substr(std::min(note.find_first_not_of(' '), note.size()));
}

std::vector<std::pair<std::string, std::string>> Setting::choices() const {
    std::vector<std::pair<std::string, std::string>> choices;
    if (kind() == Setting_kind::choice) {
        const Labeled_enum& labels = as<TESK::VV_enum_entry>(*entry_).value;
        for (std::int32_t i = 0; labels.label_at(i) != nullptr; ++i)
            choices.emplace_back(labels.label_at(i), text_or_nothing(labels.description_at(i)));
    }
    return choices;
}

bool Setting::is_in_file() const {
    return owner_->lines().find(section(), key()) != nullptr;
}

const TESK::Filtered_file_name* Setting::typed_file() const {
    return kind() != Setting_kind::file
               ? nullptr
               : dynamic_cast<const TESK::Filtered_file_name*>(&as<TESK::VV_filename_entry>(*entry_).value);
}

std::string Setting::file_masks() const {
    std::string masks;
    if (const TESK::Filtered_file_name* file = typed_file())
        file->get_default_filter(masks);
    return masks == "*" ? std::string() : masks;
}

int Setting::radix() const {
    switch (entry_->type_code()) {
    case Entry_type::uint8: return as<TESK::VV_uint8_entry>(*entry_).get_radix();
    case Entry_type::uint32: return as<TESK::VV_uint32_entry>(*entry_).get_radix();
    default: return 10;
    }
}

std::string Setting::value() const {
    switch (entry_->type_code()) {
    case Entry_type::float32: return shortest_number(as<TESK::VV_float32_entry>(*entry_).value);
    // The file keeps no more of it.
    case Entry_type::float64:
        return shortest_number(static_cast<float>(as<TESK::VV_float64_entry>(*entry_).value));
    case Entry_type::date: return date_in_words(as<TESK::VV_date_entry>(*entry_).value.date_num);
    default: {
        std::string text;
        return entry_->get_value(text);
    }
    }
}

const void* Setting::field() const {
    switch (entry_->type_code()) {
    case Entry_type::uint8: return &as<TESK::VV_uint8_entry>(*entry_).value;
    case Entry_type::uint32: return &as<TESK::VV_uint32_entry>(*entry_).value;
    case Entry_type::int16: return &as<TESK::VV_int16_entry>(*entry_).value;
    case Entry_type::int32: return &as<TESK::VV_int32_entry>(*entry_).value;
    case Entry_type::float32: return &as<TESK::VV_float32_entry>(*entry_).value;
    case Entry_type::float64: return &as<TESK::VV_float64_entry>(*entry_).value;
    case Entry_type::date: return &as<TESK::VV_date_entry>(*entry_).value;
    case Entry_type::boolean: return &as<TESK::VV_bool_entry>(*entry_).value;
    case Entry_type::string: return &as<TESK::VV_string_entry>(*entry_).value;
    case Entry_type::file_name: return &as<TESK::VV_filename_entry>(*entry_).value;
    case Entry_type::enumeration: return &as<TESK::VV_enum_entry>(*entry_).value;
    case Entry_type::units: return &as<TESK::VV_units_entry>(*entry_).value;
    default: return nullptr;
    }
}

bool Setting::has_value_of(const Setting& other) const {
    const TESK::VV_base_entry& a = *entry_;
    const TESK::VV_base_entry& b = *other.entry_;
    if (a.type_code() != b.type_code())
        return value() == other.value();
    switch (a.type_code()) {
    case Entry_type::uint8: return have_same<TESK::VV_uint8_entry>(a, b);
    case Entry_type::uint32: return have_same<TESK::VV_uint32_entry>(a, b);
    case Entry_type::int16: return have_same<TESK::VV_int16_entry>(a, b);
    case Entry_type::int32: return have_same<TESK::VV_int32_entry>(a, b);
    case Entry_type::float32: return have_same<TESK::VV_float32_entry>(a, b);
    case Entry_type::boolean: return have_same<TESK::VV_bool_entry>(a, b);
    case Entry_type::enumeration:
        return as<TESK::VV_enum_entry>(a).value.get_int32() == as<TESK::VV_enum_entry>(b).value.get_int32();
    case Entry_type::string: return have_same<TESK::VV_string_entry>(a, b);
    case Entry_type::file_name: return have_same<TESK::VV_filename_entry>(a, b);
    case Entry_type::date:
        return as<TESK::VV_date_entry>(a).value.date_num == as<TESK::VV_date_entry>(b).value.date_num;
    default: return value() == other.value();
    }
}

std::unique_ptr<TESK::Data_record> make_record_for(const TESK::File_name& file) {
    const std::string name = file.get_name(true);
    const std::string extension = name.substr(std::min(name.rfind('.') + 1, name.size()));
    const auto is_one_of = [&](std::initializer_list<const char*> extensions) {
        return std::any_of(extensions.begin(), extensions.end(),
                           [&](const char* one) { return TESK::equal_ignoring_case(extension, one); });
    };
    if (is_one_of({"tvp", "TVS_project"}))
        return std::make_unique<Tilverra_project_editor_parameters>("");
    if (is_one_of({"tvn", "Tilverra_scenario", "sim", "TVS_init"}))
        return std::make_unique<Tilverra_scenario>();
    if (is_one_of({"op"}))
        return std::make_unique<Common_operation>();
    return std::make_unique<TESK::Data_record>("");
}

Record_settings::Record_settings(const TESK::File_name& file) : file_(file), record_(make_record_for(file)) {
    file_.qualify();
    platform::Read_result content = platform::read_file(file_, TESK::VV_file::largest_file);
    failure_ = read_failure(file_, content.outcome);
    if (failure_.empty())
        failure_ = told_interruption(file_);
    if (!failure_.empty())
        return;
    text_ = text_read_ = std::move(content.contents);
    primary_ = record_->get_primary_section_name();
    TESK::VV_text(text_, true).get(*record_);
    list_settings();
}

void Record_settings::list_settings() {
    record_->redeclare_for_write();
    record_->attach_guards();
    settings_.clear();
    const bool has_version = dynamic_cast<const Common_parameters*>(record_.get()) != nullptr;
    constexpr std::string_view count_mark = ":count";
    for (const TESK::VV_section& section : record_->all_sections()) {
        const bool is_version = has_version && section.label == "version";
        for (TESK::VV_base_entry& entry : section.all_entries()) {
            const std::string_view key = entry.key;
            const bool is_fixed =
                is_version ||
                (key.ends_with(count_mark) && record_->enumerated_sections.find_exact(
                                                  key.substr(0, key.size() - count_mark.size())) != nullptr);
            settings_.emplace_back(this, section, entry, is_fixed);
        }
    }
}

const Record_lines& Record_settings::lines() const {
    if (!lines_)
        lines_.emplace(text_, primary_);
    return *lines_;
}

const Setting* Record_settings::find(std::string_view section, std::string_view key) const {
    const auto found = std::find_if(settings_.begin(), settings_.end(), [&](const Setting& setting) {
        return setting.key() == key && setting.section() == section;
    });
    return found == settings_.end() ? nullptr : &*found;
}

const Setting* Record_settings::find(std::string_view name) const {
    for (std::size_t point = name.find('.'); point != std::string_view::npos;
         point = name.find('.', point + 1))
        if (const Setting* setting = find(name.substr(0, point), name.substr(point + 1)))
            return setting;
    return nullptr;
}

Setting_change Record_settings::set(std::string_view name, const std::string& value) {
    const Setting* setting = find(name);
    if (setting == nullptr)
        return {false, false, "No section and key of that name are known: " + std::string(name) + "."};
    return set(setting->section(), setting->key(), value);
}

std::string Record_settings::reason_not_to_set(const Setting& setting) const {
    if (setting.is_fixed())
        return fixed_reason;
    for (const Older_spelling& older : older_spellings())
        if (setting.section() == older.section && setting.key() == older.key &&
            find(older.old_section, older.old_key) != nullptr)
            return older.reason();
    return {};
}

std::vector<Older_spelling> Record_settings::older_spellings() const {
    std::vector<Older_spelling> older;
    if (const auto* common = dynamic_cast<const Common_parameters_data_record*>(record_.get())) {
        std::uint16_t count = 0;
        const Section_mapping* rows = common->get_section_mapping(count);
        for (const Section_mapping& row : std::span(rows, count))
            if (row.since.number() > common->file_version.number())
                older.push_back({row.new_section, row.new_key, row.old_section, row.old_key});
    }
    return older;
}

Setting_change Record_settings::set(std::string_view section, std::string_view key,
                                    const std::string& value) {
    const Setting* setting = find(section, key);
    if (setting == nullptr)
        return {false, false, "The record has no such section and key."};
    if (const std::string reason = reason_not_to_set(*setting); !reason.empty())
        return {false, false, reason};
    const Value_trial trial = try_value(*setting, value);
    Setting_change change{trial.taken, false, trial.reason};
    if (!trial.taken)
        return change;
    const std::map<std::string, std::string> before = values_of(settings_);
    setting->entry().set_value(TESK::Ustring(trial.text));
    for (const Setting& other : settings_) {
        std::string now;
        if (other.entry().get_value(now) == before.at(other.name()))
            continue;
        change.changed = true;
        if (other.is_in_file() || &other == setting)
            write_value(other);
    }
    // What the file holds stays, even where a later value leaves it undeclared.
    for (const Setting& one : settings_)
        one.entry().encountered = one.is_in_file();
    list_settings();
    return change;
}

// Puts the setting's line in the place of the one that counts in the text, which is the last.
void Record_settings::write_value(const Setting& setting) {
    std::string line;
    setting.entry().label_cstr(line);
    if (const Record_line* old = lines().find(setting.section(), setting.key())) {
        text_.replace(old->begin, old->end - old->begin, line);
    } else {
        std::string longer = text_;
        lines().insert_into(longer, setting.section(), line, keys_before(setting));
        text_ = std::move(longer);
    }
    lines_.reset();
}

// The keys that a save would put before the setting's in its section, the nearest first.
std::vector<std::string_view> Record_settings::keys_before(const Setting& setting) const {
    std::vector<std::string_view> keys;
    for (const Setting& other : settings_) {
        if (&other == &setting)
            break;
        if (other.section() == setting.section())
            keys.insert(keys.begin(), other.key());
    }
    return keys;
}

platform::Write_result Record_settings::save(platform::Durability durability) {
    if (!is_changed())
        return {};
    const platform::Read_result now = platform::read_file(file_, TESK::VV_file::largest_file);
    if (!now.ok() || now.contents != text_read_)
        return {platform::Write_error::other, "Another program has changed the file since it was read."};
    platform::Write_result result = platform::write_file(file_, text_, durability);
    if (result.ok())
        text_read_ = text_;
    return result;
}
