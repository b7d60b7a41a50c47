#include "platform/host_tools.h"

#include "foundation/code_page_1252.h"
#include "platform/desktop_applications.h"
#include "platform/entry_names.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/percent_encoding.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

std::string environment_value(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

bool is_program(const std::string& path) {
    struct stat state {};
    return stat(path.c_str(), &state) == 0 && S_ISREG(state.st_mode) && access(path.c_str(), X_OK) == 0;
}

// Without a desktop session the opener would take the terminal for itself, or wait for a display.
bool has_desktop_session() {
    return !environment_value("WAYLAND_DISPLAY").empty() || !environment_value("DISPLAY").empty();
}

std::optional<Program_start> tool_start(const std::string& tool, const std::string& document) {
    Program_start start{find_tool(tool), {document}, {}, false};
    return start.path.empty() ? std::nullopt : std::optional(start);
}

std::optional<Program_start> start_of_words(std::vector<std::string> words, bool keeps_terminal) {
    const std::string path = words.empty() ? "" : find_tool(words.front());
    if (path.empty())
        return std::nullopt;
    words.erase(words.begin());
    return Program_start{path, std::move(words), {}, keeps_terminal};
}

bool is_web_address(std::string_view name) {
    const std::size_t end = name.find("://");
    return end != std::string_view::npos && end > 1 &&
           std::all_of(name.begin(), name.begin() + end, TESK::is_letter);
}

} // namespace

std::string find_tool(const std::string& tool) {
    if (tool.find('/') != std::string::npos)
        return tool.front() == '/' && is_program(tool) ? tool : "";
    const std::string path = environment_value("PATH");
    for (std::size_t begin = 0; begin < path.size() && !tool.empty();) {
        const std::size_t end = std::min(path.find(':', begin), path.size());
        const std::string candidate = join_host_path(path.substr(begin, end - begin), tool);
        if (path[begin] == '/' && is_program(candidate))
            return candidate;
        begin = end + 1;
    }
    return "";
}

std::string wine_prefix() {
    std::string folder = drives_folder();
    folder.erase(folder.find_last_not_of('/') + 1);
    return host_entry_of(folder) == "dosdevices" ? host_folder_of(folder) : "";
}

std::string document_for_tool(std::string_view name) {
    if (is_web_address(name)) {
        std::string address = TESK::utf8_from_code_page(name);
        std::replace(address.begin(), address.end(), '\\', '/');
        return address;
    }
    if (exists(name))
        return host_path(name);
    const std::size_t anchor = name.find('#', 1);
    if (anchor == std::string_view::npos || !exists(name.substr(0, anchor)))
        return "";
    return "file://" + percent_encoded(host_path(name.substr(0, anchor))) +
           TESK::utf8_from_code_page(name.substr(anchor));
}

std::optional<Program_start> opener_start(const std::string& document) {
    return has_desktop_session() ? tool_start("xdg-open", document) : std::nullopt;
}

std::optional<Program_start> printer_start(const std::string& path) {
    return tool_start("lp", path);
}

std::optional<Program_start> text_editor_start(const std::string& path) {
    if (std::vector<std::string> words = command_words(environment_value("VISUAL")); !words.empty()) {
        words.push_back(path);
        if (auto chosen = start_of_words(std::move(words), true))
            return chosen;
    }
    if (has_desktop_session())
        if (auto standard = start_of_words(default_application("text/plain", path), false))
            return standard;
    return opener_start(path);
}

} // namespace platform
