#include "platform/host_description.h"

#include <fstream>
#include <sys/utsname.h>

namespace platform {

namespace {

// What the distribution calls itself: a line `PRETTY_NAME="..."`.
std::string distribution() {
    constexpr std::string_view key = "PRETTY_NAME=";
    std::ifstream file("/etc/os-release");
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with(key))
            continue;
        std::erase(line, '"');
        return line.substr(key.size()) + ", ";
    }
    return {};
}

} // namespace

std::string host_description() {
    utsname told{};
    uname(&told);
    return distribution() + told.sysname + ' ' + told.release + ' ' + told.machine;
}

} // namespace platform
