// The current directory of the process, which keeps the name by which it was set.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// The name of the current directory, without a final separator but in the root of a drive ("C:\"). At the
// start of the program it is the name of the host's current directory, by the path of the environment
// variable PWD when that is right; where no drive holds that directory, it is the root of c:. "" when there
// is no drive at all.
std::string current_directory();

// Makes the directory the current one, of the process too. False, with nothing changed, when it cannot be
// entered.
bool change_directory(std::string_view name);

// Forgets the name, so that it is made anew from the host's current directory: for when the drives change.
void forget_current_directory();

// Puts the current directory of its beginning back at its end.
class Directory_guard {
public:
    Directory_guard() : directory_(current_directory()) {}
    Directory_guard(const Directory_guard&) = delete;
    Directory_guard& operator=(const Directory_guard&) = delete;
    ~Directory_guard() { change_directory(directory_); }

private:
    std::string directory_;
};

} // namespace platform
