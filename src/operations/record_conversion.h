// Brings a record file of an older program to the present spelling.
#pragma once

#include "names/file_name.h"

#include <string>

enum class Conversion_outcome {
    converted,
    is_present, // nothing in it was old; the file was left alone
    failed      // the file is as it was
};

struct Conversion {
    Conversion_outcome outcome;
    std::string backup; // of a converted file: the name of the old one, kept beside it
    std::string reason; // of a failure; a plain English sentence
};

// Converts the file: what stood under keys of older versions is carried over to those of this one, events in
// the old spelling become events that every program reads, and the file says that it is of this program's
// version. What the record does not declare stays. Relative names count from the current directory.
Conversion convert_record(const TESK::File_name& file);
