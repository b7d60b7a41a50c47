// The memory of screens in the user's settings: a section of its own, with a key for each control.
#pragma once

#include "toolkit/screen_memory.h"
#include "trees/user_settings.h"

#include <map>

class Remembered_screens : public Screen_memory {
public:
    // Is the memory in use until it goes. The directory outlives it.
    explicit Remembered_screens(const TESK::Application_data_directory& settings);
    Remembered_screens(const Remembered_screens&) = delete;
    Remembered_screens& operator=(const Remembered_screens&) = delete;
    ~Remembered_screens() override;

    std::string recall(const std::string& name) const override;
    void remember(const std::string& name, const std::string& arrangement) override;
    // Writes what was remembered since; quietly nothing where that cannot be. Keys of others stay as they
    // are.
    void save();

private:
    const TESK::Application_data_directory& settings_;
    std::map<std::string, std::string> changed_;
};
