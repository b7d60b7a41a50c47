// What in a project would make a run fail, or mislead who reads its outcome.
#pragma once

#include "model/project_editor_parameters.h"
#include "model/tilverra_scenario.h"
#include "names/file_name.h"

#include <string>
#include <unordered_map>
#include <vector>

enum class Finding_weight {
    error,  // a run fails, or works with what nobody meant
    warning // a doubtful value, or something that no program of the suite reads
};

struct Finding {
    Finding_weight weight;
    std::string section; // empty, like the key, for what concerns the whole file
    std::string key;
    std::string message; // a plain English sentence in code page 1252
};

// How many events of the scenario no reader of the suite sees, since they are in the old spelling or more
// than are counted. The record has kept its structure after reading.
int count_unread_events(const Tilverra_scenario& scenario);

// Judges the records of one project by what they declare: files that are named and missing, or required and
// not chosen; values that their type cannot take, or outside their ranges; dates that end before they begin;
// events in the old spelling, which no reader of the suite sees; sections and keys that no program knows. A
// value that every new record has is not judged: nobody chose it.
//
// Relative names count from the project's folder, which must be the current directory. Nothing is written.
// One object judges thousands of scenarios: whether a file is there is asked once.
class Project_check {
public:
    Project_check();

    // The project's own record.
    std::vector<Finding> check_project(const TESK::File_name& file);
    std::vector<Finding> check_scenario(const TESK::File_name& file);
    // What the file would be found to have with that text; of a file of another kind, its values alone.
    std::vector<Finding> check_text(const TESK::File_name& file, const std::string& text);

private:
    // The values of a new record by section and key.
    using Values = std::unordered_map<std::string, std::string>;

    static void add_values(const TESK::VV_section& section, Values& values);
    static bool is_default(const TESK::VV_section& section, const TESK::VV_base_entry& entry,
                           const Values& defaults);
    std::vector<Finding> check_project_text(const std::string& text);
    std::vector<Finding> check_scenario_text(const std::string& text);
    std::vector<Finding> check_file(const TESK::File_name& file,
                                    std::vector<Finding> (Project_check::*check)(const std::string& text));
    // Why the file that a record names serves nobody; nothing when it is there.
    const std::string& reason_not_usable(const TESK::File_name& file);
    // Fills the record and keeps its structure, and what of the values is not read as it is meant.
    void read(const std::string& text, TESK::Data_record& record);
    void judge_entries(TESK::Data_record& record, const Values& defaults, std::vector<Finding>& findings);

    std::unordered_map<std::string, std::string> files_; // why they are not usable
    // The entries of the record read last whose text is not read as it is meant; without section and key.
    std::unordered_map<const TESK::VV_base_entry*, Finding> misread_;
    Values scenario_values_;
    Values project_values_;
};
