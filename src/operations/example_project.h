// The example project that comes with the program, which a user tries it on.
#pragma once

#include "names/smart_directory_name.h"
#include "platform/write_result.h"

#include <string>

class Example_project {
public:
    // `shipped` holds the example's "Database" and "Projects", as they are to lie in the simulation folder.
    Example_project(const TESK::Directory_name& shipped, const TESK::Directory_name& simulation_folder);

    // Whether there is an example, shipped or put in place before.
    bool is_available() const { return !name_.empty(); }
    // The project's file in the simulation folder.
    std::string file() const;
    // Puts the example into the simulation folder. What is there already is the user's, and stays.
    platform::Write_result put_in_place() const;

private:
    std::string shipped_;
    std::string simulation_folder_;
    std::string name_; // of the project, without extension
};
