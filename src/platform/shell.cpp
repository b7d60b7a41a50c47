#include "platform/shell.h"

#include "foundation/code_page_1252.h"
#include "platform/desktop_applications.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/host_tools.h"
#include "platform/process.h"
#include "platform/recent_documents.h"
#include "platform/trash.h"
#include "platform/user_folders.h"

#include <algorithm>
#include <ifaddrs.h>
#include <iterator>
#include <net/if.h>
#include <sys/socket.h>
#include <utility>

namespace platform {

namespace {

std::string file_for_tool(std::string_view name) {
    return is_file(name) ? host_path(name) : "";
}

struct Verb {
    std::string_view name;
    std::string (*document)(std::string_view name); // what the tool is told; "" for what it cannot work on
    std::optional<Program_start> (*start)(const std::string& document);
    const char* command; // the same as a command line
};

constexpr Verb verbs[] = {
    {"open", document_for_tool, opener_start, "xdg-open \"%1\""},
    {"edit", file_for_tool, text_editor_start, "notepad.exe \"%1\""},
    {"print", file_for_tool, printer_start, "lp \"%1\""},
};

const Verb* find_verb(const std::string& name) {
    const auto* found = std::find_if(std::begin(verbs), std::end(verbs), [&](const Verb& verb) {
        return TESK::equal_ignoring_case(verb.name, name);
    });
    return found == std::end(verbs) ? nullptr : found;
}

bool leads_to_a_network(const ifaddrs& interface) {
    constexpr unsigned up = IFF_UP | IFF_RUNNING;
    return interface.ifa_addr != nullptr && (interface.ifa_flags & (up | IFF_LOOPBACK)) == up &&
           (interface.ifa_addr->sa_family == AF_INET || interface.ifa_addr->sa_family == AF_INET6);
}

Shell*& shell_in_use() {
    static Shell host_shell;
    static Shell* in_use = &host_shell;
    return in_use;
}

} // namespace

int Shell::shell_execute(const std::string& verb, const std::string& name, int /*show_mode*/) {
    const Verb* known = find_verb(verb);
    if (known == nullptr)
        return result_no_association;
    const std::string document = known->document(name);
    if (document.empty())
        return result_file_not_found;
    const auto start = known->start(document);
    return start ? start_detached(*start) : result_no_association;
}

std::optional<std::string> Shell::registered_command(const std::string& extension, const std::string& verb) {
    const Verb* known = find_verb(verb);
    if (extension.empty() || known == nullptr || !known->start(""))
        return std::nullopt;
    return known->command;
}

bool Shell::recycle(const std::string& name) {
    return !holds_drive_root(name) && move_to_trash(host_path(name));
}

std::vector<bool> Shell::recycle_all(const std::vector<std::string>& names,
                                     const std::function<bool(std::size_t done)>& progress) {
    std::vector<std::string> paths;
    for (const std::string& name : names)
        paths.push_back(holds_drive_root(name) ? "" : host_path(name));
    return move_to_trash(paths, progress);
}

bool Shell::delete_permanently(const std::string& name) {
    return (exists(name) || is_link(name)) && remove_tree(name);
}

std::string Shell::special_folder(int number) {
    switch (number) {
    case folder_personal_documents: return name_from_host_path(documents_folder());
    case folder_recent_documents: return name_from_host_path(recent_documents_folder());
    case folder_local_application_data: return name_from_host_path(user_config_folder());
    default: return "";
    }
}

void Shell::add_to_recent_documents(const std::string& name) {
    if (is_file(name))
        note_recent_document(host_path(name));
}

std::vector<std::string> Shell::recent_documents() {
    std::vector<std::string> names;
    for (const std::string& path : recent_shortcuts())
        if (std::string name = name_from_host_path(path); !name.empty())
            names.push_back(std::move(name));
    return names;
}

std::optional<std::string> Shell::resolve_shortcut(const std::string& name) {
    const std::string target = target_of_link(host_path(name));
    std::string target_name = name_from_host_path(target);
    return exists(target_name) ? std::optional(std::move(target_name)) : std::nullopt;
}

bool Shell::is_network_connected() {
    ifaddrs* interfaces = nullptr;
    if (getifaddrs(&interfaces) != 0)
        return false;
    bool connected = false;
    for (const ifaddrs* interface = interfaces; interface != nullptr; interface = interface->ifa_next)
        connected = connected || leads_to_a_network(*interface);
    freeifaddrs(interfaces);
    return connected;
}

Shell& shell() {
    return *shell_in_use();
}

Shell_guard::Shell_guard(Shell& replacement) : previous_(std::exchange(shell_in_use(), &replacement)) {}

Shell_guard::~Shell_guard() {
    shell_in_use() = previous_;
}

} // namespace platform
