// Changing settings of many record files in one operation that can be undone.
#pragma once

#include "operations/change_backups.h"
#include "operations/operation_outcome.h"
#include "operations/record_settings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class Project_check;

// What a setting of a record is to become; the value as a person writes it, in code page 1252.
struct Wanted_setting {
    std::optional<std::string> section; // nothing where `key` is the whole name, "section.key"
    std::string key;
    std::string value;
};

struct Settings_change {
    std::string file;
    std::vector<Wanted_setting> settings;
};

// Whether a value can be had, and why not, or why it is doubtful; a plain English sentence.
struct Setting_verdict {
    bool taken = false;
    std::string reason;
};

// What became of a file, and of each setting that was wanted of it.
struct Settings_result {
    enum class State : std::uint8_t { unchanged, changed, refused, unreadable, not_written };
    struct One {
        std::string before; // empty where there is no such setting
        Setting_change change;
    };
    State state = State::unchanged;
    std::string reason{}; // why the file cannot be read or written, or the first refusal
    std::vector<One> settings{};
};

// What would become of it. Nothing is written. With a check, null for none, the reason of a setting that can
// be had also tells what it would make a run fail for.
Settings_result try_settings(const Settings_change& change, Project_check* check = nullptr);

// Puts the files aside under the name "settings", unless `backups` is null, and changes in each what is
// wanted, and nothing else. A file gets all that is wanted of it, or stays as it is and is named in the
// outcome with the reason. When the files cannot be put aside nothing is changed. `results`, null for who
// does not care, gets one for each change that was dealt with before the operation was stopped, in order.
Operation_outcome change_settings(const std::vector<Settings_change>& changes, Change_backups* backups,
                                  const Operation_progress& progress,
                                  std::vector<Settings_result>* results = nullptr);
