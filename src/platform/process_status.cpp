#include "platform/process_status.h"

#include "platform/host_handle.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <unistd.h>
#include <vector>

namespace platform {

std::string host_text(const std::string& path) {
    const Host_handle file = open_to_read(path);
    std::array<char, 1024> bytes{};
    const ssize_t count = file.is_open() ? read(file.get(), bytes.data(), bytes.size()) : 0;
    std::string text(bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

std::optional<Process_status> process_status(pid_t number) {
    const std::string text = host_text("/proc/" + std::to_string(number) + "/stat");
    const std::size_t name_end = text.rfind(')'); // the name may hold anything
    if (name_end == std::string::npos)
        return std::nullopt;
    std::istringstream words(text.substr(name_end + 1));
    std::vector<std::string> fields;
    constexpr std::size_t group_field = 2;
    constexpr std::size_t start_field = 19;
    for (std::string field; fields.size() <= start_field && words >> field;)
        fields.push_back(field);
    if (fields.size() <= start_field)
        return std::nullopt;
    return Process_status{fields[0] == "Z" || fields[0] == "X", std::atoi(fields[group_field].c_str()),
                          fields[start_field]};
}

bool is_group_alive(pid_t group) {
    // The host is quick to say no; that it says yes may be due to a process that nobody has asked for.
    if (kill(-group, 0) != 0)
        return false;
    Folder_stream processes("/proc");
    while (const dirent* entry = processes.next()) {
        const auto status = process_status(std::atoi(entry->d_name));
        if (status && status->group == group && !status->has_ended)
            return true;
    }
    return false;
}

} // namespace platform
