// Changing settings of many record files in one operation that can be undone.
#pragma once

#include "operations/change_backups.h"
#include "operations/operation_outcome.h"

#include <string>
#include <vector>

// What a setting of a record is to become; the value as a person writes it, in code page 1252.
struct Wanted_setting {
    std::string section;
    std::string key;
    std::string value;
};

struct Settings_change {
    std::string file;
    std::vector<Wanted_setting> settings;
};

// Why the last of the settings cannot be had in its file together with those before it, or why its value is
// doubtful though it is taken; a plain English sentence. Nothing is written.
struct Setting_verdict {
    bool taken = false;
    std::string reason;
};
Setting_verdict try_settings(const Settings_change& change);

// Puts the files aside under the name "settings" and changes in each what is wanted, and nothing else. A file
// gets all that is wanted of it, or stays as it is and is named in the outcome with the reason. When the
// files cannot be put aside nothing is changed.
Operation_outcome change_settings(const std::vector<Settings_change>& changes, Change_backups& backups,
                                  const Operation_progress& progress);
