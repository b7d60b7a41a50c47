#include "operations/project_check.h"

#include "foundation/code_page_1252.h"
#include "operations/operation_outcome.h"
#include "operations/setting_values.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "records/typed_entries.h"
#include "records/vv_file.h"
#include "records/vv_text.h"
#include "trees/suite_directory.h"
#include "units/units_clad.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string_view>

using TESK::Validation_status;

namespace {

constexpr const char* event_label = "event";

// The number of an event's section in the old spelling "event_1" or in the present one; 0 for any other.
int event_number(std::string_view section) {
    if (!section.starts_with(event_label))
        return 0;
    section.remove_prefix(std::string_view(event_label).size());
    if (section.size() < 2 || (section.front() != '_' && section.front() != ':'))
        return 0;
    section.remove_prefix(1);
    if (!std::all_of(section.begin(), section.end(), TESK::is_digit))
        return 0;
    return std::atoi(std::string(section).c_str());
}

// Whether the record declares anything in the section.
bool is_known(const TESK::VV_section& section) {
    for (const TESK::VV_base_entry& entry : section.all_entries())
        if (entry.type_code() != TESK::Entry_type::unexpected)
            return true;
    return false;
}

bool ends_before_it_begins(const TESK::Date& begin, const TESK::Date& end) {
    const bool comparable =
        begin.date_num > 0 && end.date_num > 0 && (begin.get_year() == 0) == (end.get_year() == 0);
    return comparable && end.date_num < begin.date_num;
}

// Why the value is doubtful; nothing when it is not.
std::string doubt(const TESK::VV_base_entry& entry, Validation_status verdict) {
    if (entry.validation_status != nullptr && *entry.validation_status == Validation_status::not_valid)
        return "The value is not written as a number.";
    if (verdict >= Validation_status::unchecked)
        return {};
    const std::string unit = entry.guard->get_units_label();
    return "The value " + entry.guard->get_value_text() + (unit.empty() ? "" : " " + unit) + ' ' +
           entry.guard->range_text(verdict) + ".";
}

// Files that the model cannot do without.
void judge_required(const Tilverra_scenario& scenario, std::vector<Finding>& findings) {
    const auto require = [&](const char* section, const char* key, const TESK::File_name& file) {
        if (file.empty() || file.starts_with('<'))
            findings.push_back(
                {Finding_weight::error, section, key, "A file is required and none is chosen."});
    };
    require("parameter_filenames", "soil", scenario.soil);
    require("parameter_filenames", "location", scenario.location);
    require("parameter_filenames", "weather_database", scenario.weather_database);
    switch (scenario.cropping_mode.get()) {
    case Cropping_system_mode::rotation: require("cropping_system", "rotation", scenario.rotation); break;
    case Cropping_system_mode::single:
    case Cropping_system_mode::established: require("cropping_system", "crop", scenario.crop); break;
    case Cropping_system_mode::none: break;
    }
}

void judge_dates(const Tilverra_scenario& scenario, std::vector<Finding>& findings) {
    const auto add = [&](const std::string& section, const char* key, const char* message) {
        findings.push_back({Finding_weight::error, section, key, message});
    };
    const Tilverra_model_options& options = *scenario.model_options;
    if (ends_before_it_begins(options.starting_date, options.ending_date))
        add("simulation", "ending_date", "The simulation ends before it begins.");
    int number = 0;
    for (const Common_event& event : TESK::Items_of<Common_event>(scenario.events)) {
        ++number;
        if (event.has_period() && event.begin_sync.mode == Synchronization_mode::actual_date &&
            event.period->end_sync.mode == Synchronization_mode::actual_date &&
            ends_before_it_begins(event.begin_sync, event.period->end_sync))
            add("event:" + std::to_string(number), "end_date", "The event's period ends before it begins.");
    }
}

// The sections of events that were read, of which the record declares something or nothing.
int count_events(const Tilverra_scenario& scenario, bool known) {
    int count = 0;
    for (const TESK::VV_section& section : scenario.all_sections())
        if (section.encountered && event_number(section.label) != 0 && is_known(section) == known)
            ++count;
    return count;
}

// Events that no reader sees, and events of which nothing stands in the file.
void judge_events(const Tilverra_scenario& scenario, std::vector<Finding>& findings) {
    const int unseen = count_unread_events(scenario);
    const int seen = count_events(scenario, true);
    const int told = static_cast<int>(scenario.events.count());
    if (unseen > 0)
        findings.push_back(
            {Finding_weight::error, "scenario", "event:count",
             "Events in the old spelling, or more than are counted, which no program of the suite "
             "reads: " +
                 std::to_string(unseen) + "."});
    if (seen < told)
        findings.push_back({Finding_weight::warning, "scenario", "event:count",
                            std::to_string(told) + " events are counted and " + std::to_string(seen) +
                                " are there: the others are events with nothing chosen."});
}

// Whether the suite has a program of that name: what it keeps in records stands under its name.
bool is_program(const std::string& name) {
    if (name.find_first_of("\\/:.") != std::string::npos)
        return false;
    const TESK::Directory_name* const folders[] = {
        suite_directory, &suite_directory->get_tilverra_directory(), &suite_directory->get_XEB_directory()};
    return std::any_of(std::begin(folders), std::end(folders), [&](const TESK::Directory_name* folder) {
        return platform::is_file(*folder + '\\' + name + ".exe");
    });
}

// Sections of which nothing is declared. The places from which an older file's values are carried over are
// known.
void judge_unknown_sections(const Common_parameters_data_record& record, std::vector<Finding>& findings) {
    if (suite_directory == nullptr || !suite_directory->is_suite_root())
        return; // its programs, of which each may read a section, are not known
    std::uint16_t count = 0;
    const Section_mapping* rows = record.get_section_mapping(count);
    for (const TESK::VV_section& section : record.all_sections()) {
        const bool is_old_place = std::any_of(
            rows, rows + count, [&](const Section_mapping& row) { return section.label == row.old_section; });
        if (section.encountered && !section.entries.is_empty() && !is_known(section) && !is_old_place &&
            event_number(section.label) == 0 && !is_program(section.label))
            findings.push_back({Finding_weight::warning, section.label, "",
                                "No program of the suite is known to read this section."});
    }
}

// Why a number is doubtful behind which the text has another unit than the record writes there: a save
// changes the unit, and not the number. Empty when it is not.
std::string reason_relabelled(const TESK::VV_base_entry& entry, const std::string& text) {
    if (entry.annotation_1 == nullptr || entry.type_code() != TESK::Entry_type::float32)
        return {};
    char* behind = nullptr;
    std::strtof(text.c_str(), &behind);
    std::string found;
    std::string unit;
    std::istringstream(behind) >> found;
    std::istringstream(entry.annotation_1) >> unit;
    found.resize(found.find_last_not_of(".,;:)") + 1);
    const std::uint16_t code = TESK::Units_clad::parse_unit(unit);
    const std::uint16_t code_found = TESK::Units_clad::parse_unit(found);
    if (behind == text.c_str() || code == TESK::unit_not_recognized ||
        code_found == TESK::unit_not_recognized || code_found == code)
        return {};
    return "The number is read in " + unit + ", and \"" + found + "\" stands behind it.";
}

Finding unreadable(const TESK::File_name& file) {
    return {Finding_weight::error, "", "",
            platform::exists(file) ? "The file cannot be read." : "There is no such file."};
}

} // namespace

int count_unread_events(const Tilverra_scenario& scenario) {
    return count_events(scenario, false);
}

Project_check::Project_check() {
    Tilverra_scenario scenario;
    scenario.expect_structure(true);
    for (const TESK::VV_section& section : scenario.all_sections())
        add_values(section, scenario_values_);
    Tilverra_project_editor_parameters project("");
    project.expect_structure(true);
    for (const TESK::VV_section& section : project.all_sections())
        add_values(section, project_values_);
    // Those of one new event serve for all.
    TESK::Data_record events(event_label);
    Common_event event(TESK::Ustring("-"));
    event.setup_structure(events, false);
    add_values(*events.get_current_section(), scenario_values_);
}

void Project_check::add_values(const TESK::VV_section& section, Values& values) {
    for (const TESK::VV_base_entry& entry : section.all_entries())
        entry.get_value(values[section.label + '\n' + entry.key]);
}

bool Project_check::is_default(const TESK::VV_section& section, const TESK::VV_base_entry& entry,
                               const Values& defaults) {
    const std::string label = event_number(section.label) > 0 ? event_label : section.label;
    const auto found = defaults.find(label + '\n' + entry.key);
    std::string text;
    return found != defaults.end() && found->second == entry.get_value(text);
}

const std::string& Project_check::reason_not_usable(const TESK::File_name& file) {
    const auto [place, is_new] = files_.try_emplace(file);
    if (!is_new)
        return place->second;
    const std::string drive = platform::missing_drive(file);
    if (!TESK::Smart_file_name(file.c_str()).exists())
        place->second = "The file " + file +
                        (!drive.empty()                    ? " is not there: there is no drive " + drive + "."
                         : platform::is_out_of_reach(file) ? " lies in a folder that you may not enter."
                                                           : " is not there.");
    else if (platform::is_folder(file))
        place->second = "A file is meant, and " + file + " is a folder.";
    return place->second;
}

void Project_check::read(const std::string& text, TESK::Data_record& record) {
    misread_.clear();
    record.set_value_listener(
        [this](const TESK::VV_section& section, TESK::VV_base_entry& entry, const TESK::Ustring& value) {
            std::string reason = reason_misread(Setting(nullptr, section, entry, false), value);
            const auto weight = reason.empty() ? Finding_weight::warning : Finding_weight::error;
            if (reason.empty())
                reason = reason_relabelled(entry, value);
            if (!reason.empty())
                misread_[&entry] = {weight, "", "", std::move(reason)};
            else if (!misread_.empty())
                misread_.erase(&entry);
        });
    TESK::VV_text(text, true).get(record);
    record.set_value_listener(nullptr);
}

void Project_check::judge_entries(TESK::Data_record& record, const Values& defaults,
                                  std::vector<Finding>& findings) {
    record.attach_guards();
    std::set<const TESK::File_name*> judged; // a file can stand under several keys
    for (const TESK::VV_section& section : record.all_sections()) {
        if (!section.encountered)
            continue;
        for (const TESK::VV_base_entry& entry : section.all_entries()) {
            if (!entry.encountered)
                continue;
            std::string message;
            Finding_weight weight = Finding_weight::error;
            if (entry.type_code() == TESK::Entry_type::file_name) {
                const TESK::File_name& file = static_cast<const TESK::VV_filename_entry&>(entry).value;
                if (!file.empty() && !file.starts_with('<') && !is_default(section, entry, defaults) &&
                    judged.insert(&file).second)
                    message = reason_not_usable(file);
            } else if (const auto misread = misread_.find(&entry); misread != misread_.end()) {
                message = misread->second.message;
                weight = misread->second.weight;
            } else if (entry.guard != nullptr) {
                const Validation_status verdict = entry.guard->judge();
                message = doubt(entry, verdict);
                if (!message.empty() && is_default(section, entry, defaults))
                    message.clear();
                if (TESK::severity_group(verdict) != TESK::severity_group(Validation_status::error))
                    weight = Finding_weight::warning;
            }
            if (!message.empty())
                findings.push_back({weight, section.label, entry.key, std::move(message)});
        }
    }
}

std::vector<Finding> Project_check::check_project_text(const std::string& text) {
    Tilverra_project_editor_parameters project("");
    read(text, project);
    std::vector<Finding> findings;
    judge_entries(project, project_values_, findings);
    judge_unknown_sections(project, findings);
    const TESK::File_name& coverage = project.GIS_parameters.coverage_PAT_filename;
    if (project.project_type == Tilverra_project_type::gis && !reason_not_usable(coverage).empty() &&
        std::none_of(findings.begin(), findings.end(),
                     [](const Finding& finding) { return finding.key == "coverage_PAT_filename"; }))
        findings.push_back(
            {Finding_weight::error, "GIS", "coverage_PAT_filename", "A map is required and none is chosen."});
    return findings;
}

std::vector<Finding> Project_check::check_scenario_text(const std::string& text) {
    const auto scenario = std::make_unique<Tilverra_scenario>();
    read(text, *scenario);
    std::vector<Finding> findings;
    judge_required(*scenario, findings);
    judge_entries(*scenario, scenario_values_, findings);
    judge_dates(*scenario, findings);
    judge_events(*scenario, findings);
    judge_unknown_sections(*scenario, findings);
    return findings;
}

std::vector<Finding> Project_check::check_text(const TESK::File_name& file, const std::string& text) {
    const std::unique_ptr<TESK::Data_record> record = make_record_for(file);
    if (dynamic_cast<const Tilverra_project_editor_parameters*>(record.get()) != nullptr)
        return check_project_text(text);
    if (dynamic_cast<const Tilverra_scenario*>(record.get()) != nullptr)
        return check_scenario_text(text);
    read(text, *record);
    std::vector<Finding> findings;
    judge_entries(*record, {}, findings);
    return findings;
}

std::vector<Finding> Project_check::check_project(const TESK::File_name& file) {
    return check_file(file, &Project_check::check_project_text);
}

std::vector<Finding> Project_check::check_scenario(const TESK::File_name& file) {
    return check_file(file, &Project_check::check_scenario_text);
}

std::vector<Finding>
Project_check::check_file(const TESK::File_name& file,
                          std::vector<Finding> (Project_check::*check)(const std::string&)) {
    const platform::Read_result content = platform::read_file(file, TESK::VV_file::largest_file);
    if (!content.ok())
        return {unreadable(file)};
    std::vector<Finding> findings = (this->*check)(content.contents);
    if (std::string interruption = told_interruption(file); !interruption.empty())
        findings.insert(findings.begin(), {Finding_weight::error, "", "", std::move(interruption)});
    return findings;
}
