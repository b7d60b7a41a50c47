// What a file held when this program last read or wrote it: tells whether another program has changed it
// since.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <string>

class Known_contents {
public:
    // What the file holds now is known.
    void take(const std::string& name) { take(platform::read_file(name)); }
    void take(const platform::Read_result& read);

    enum class Comparison {
        same,
        changed,   // another program has changed or made it
        gone,      // it is not there any more
        unreadable // it is there, and nobody knows what it holds
    };
    Comparison compare(const std::string& name) const;

private:
    platform::Read_outcome outcome_ = platform::Read_outcome::absent;
    std::size_t size_ = 0;
    std::size_t hash_ = 0;
};
