// What the database editor does beside showing files: the names it begins with, and the utilities that it
// starts on a database.
#pragma once

#include "names/typed_filenames.h"
#include "trees/database_directory.h"

#include <string>

// The name that a file of each kind has before the user gives it one.
struct Database_file_names {
    TESK::Filtered_file_name CRP_filename = ::CRP_filename("noname.crp");
    TESK::Filtered_file_name SIL_filename = ::SIL_filename("noname.sil");
    TESK::Filtered_file_name LOC_filename = ::LOC_filename("noname.loc");
    TESK::Filtered_file_name ROT_filename = ::ROT_filename("noname.rot");
    TESK::Filtered_file_name MGT_filename = ::MGT_filename("noname.mgt");
    TESK::Filtered_file_name Biomass_decomposition_parameters_filename =
        ::Biomass_decomposition_parameters_filename("noname.TVS_biomatter");
    TESK::Filtered_file_name FMT_filename = ::FMT_filename("noname.fmt");
    TESK::Filtered_file_name XEB_File_name = ::XEB_File_name("noname.xeb");
};

// The ones of this process.
Database_file_names& database_file_names();

// Starts a program on a file with an option, each of the two perhaps empty. The program stands without quotes
// in the command. With `wait` it has ended afterwards. A failed start passes in silence; where a name cannot
// be handed to a program nothing is started, and the reason is returned.
std::string run_utility(const std::string& program, const std::string& option, const std::string& file,
                        bool wait);

// Each of these starts a utility with the folder of its kind as the current directory or as its file, and
// leaves the process in the folder of the database. Where the folder cannot be made or entered, nothing is
// started. Returned is what run_utility() returns.

// Has the crop editor make a crop of that name, with a new crop's kind as the option.
std::string create_crop(Database_directory& database, const std::string& name, const std::string& option);

// Has the soil convertor bring soils into the database, and waits for its end.
std::string import_soils(Database_directory& database);

// Has the generator of managements work on those of the database. The current directory stays.
std::string generate_managements(Database_directory& database);
