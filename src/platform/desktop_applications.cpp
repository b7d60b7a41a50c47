#include "platform/desktop_applications.h"

#include "foundation/code_page_1252.h"
#include "platform/entry_names.h"
#include "platform/host_handle.h"
#include "platform/host_tools.h"
#include "platform/percent_encoding.h"
#include "platform/user_folders.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr std::size_t largest_file = std::size_t{4} << 20;

using Texts = std::vector<std::string>;

Texts split(std::string_view text, char separator) {
    Texts parts;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find(separator), text.size());
        if (length > 0)
            parts.emplace_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return parts;
}

std::string environment_or(const char* variable, const char* otherwise) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

// The user's folder, then those of the system that the variable lists.
Texts folders(const std::string& of_user, const char* variable, const char* otherwise) {
    Texts result{of_user};
    for (std::string& folder : split(environment_or(variable, otherwise), ':'))
        if (folder.front() == '/')
            result.push_back(std::move(folder));
    return result;
}

Texts application_folders() {
    Texts result = folders(user_data_folder(), "XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    for (std::string& folder : result)
        folder = join_host_path(folder, "applications");
    return result;
}

// The folders of the lists of default applications, the weightiest first.
Texts list_folders() {
    Texts result = folders(user_config_folder(), "XDG_CONFIG_DIRS", "/etc/xdg");
    for (std::string& folder : application_folders())
        result.push_back(std::move(folder));
    return result;
}

// Each desktop may have a list of its own, which goes before the common one.
Texts list_files() {
    Texts result;
    for (std::string& desktop : split(environment_or("XDG_CURRENT_DESKTOP", ""), ':')) {
        std::transform(desktop.begin(), desktop.end(), desktop.begin(), TESK::to_ascii_lower);
        result.push_back(desktop + "-mimeapps.list");
    }
    result.emplace_back("mimeapps.list");
    return result;
}

// "" when it is not a readable file of a sensible size.
std::string contents_of(const std::string& path) {
    const Host_handle file = open_to_read(path);
    struct stat state {};
    if (!file.is_open() || fstat(file.get(), &state) != 0 || !S_ISREG(state.st_mode) ||
        static_cast<std::size_t>(state.st_size) > largest_file)
        return "";
    std::string contents(static_cast<std::size_t>(state.st_size), '\0');
    const ssize_t count = read(file.get(), contents.data(), contents.size());
    contents.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
    return contents;
}

// The value of a key of a group ("[Group]"); "" when it is not there.
std::string value_in(const std::string& contents, const std::string& group, const std::string& key) {
    bool in_group = false;
    for (const std::string& line : split(contents, '\n')) {
        if (line.front() == '[')
            in_group = line.compare(0, group.size(), group) == 0;
        const std::size_t equals = line.find('=');
        if (!in_group || equals == std::string::npos || line.compare(0, key.size(), key) != 0 ||
            line.find_first_not_of(' ', key.size()) != equals)
            continue;
        const std::size_t begin = line.find_first_not_of(' ', equals + 1);
        return begin == std::string::npos ? "" : line.substr(begin);
    }
    return "";
}

// The names of the applications' desktop entries for the type, the preferred first.
Texts application_ids(const std::string& mime_type) {
    Texts ids;
    const auto add = [&](const std::string& path, const char* group) {
        for (std::string& id : split(value_in(contents_of(path), group, mime_type), ';'))
            ids.push_back(std::move(id));
    };
    const Texts lists = list_files();
    for (const std::string& folder : list_folders())
        for (const std::string& list : lists)
            add(join_host_path(folder, list), "[Default Applications]");
    for (const std::string& folder : application_folders())
        add(join_host_path(folder, "mimeinfo.cache"), "[MIME Cache]");
    return ids;
}

// The contents of the first entry of the id, in which each "-" can stand for a folder.
std::string desktop_entry(const std::string& id) {
    if (id.find('/') != std::string::npos)
        return "";
    for (const std::string& folder : application_folders()) {
        std::string relative = id;
        for (;;) {
            if (std::string contents = contents_of(join_host_path(folder, relative)); !contents.empty())
                return contents;
            const std::size_t dash = relative.find('-');
            if (dash == std::string::npos)
                break;
            relative[dash] = '/';
        }
    }
    return "";
}

// A word of an entry's command with its field codes filled in.
std::string filled_in(const std::string& word, const std::string& path) {
    std::string result;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] != '%' || i + 1 == word.size()) {
            result += word[i];
            continue;
        }
        switch (word[++i]) {
        case 'f':
        case 'F': result += path; break;
        case 'u':
        case 'U': result += "file://" + percent_encoded(path); break;
        case '%': result += '%'; break;
        default: break;
        }
    }
    return result;
}

// The words of an entry's command on the file; empty when the program is not installed.
Texts command_on(const std::string& command, const std::string& path) {
    const Texts words = command_words(command);
    const std::string program = words.empty() ? "" : find_tool(words.front());
    if (program.empty())
        return {};
    Texts result{program};
    for (auto word = words.begin() + 1; word != words.end(); ++word)
        if (std::string filled = filled_in(*word, path); !filled.empty())
            result.push_back(std::move(filled));
    constexpr const char* file_codes[] = {"%f", "%F", "%u", "%U"};
    const bool takes_file = std::any_of(std::begin(file_codes), std::end(file_codes), [&](const char* code) {
        return command.find(code) != std::string::npos;
    });
    if (!takes_file)
        result.push_back(path);
    return result;
}

} // namespace

std::vector<std::string> command_words(std::string_view text) {
    std::vector<std::string> words;
    std::string word;
    bool in_word = false;
    char quote = '\0';
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quote == '\0' && TESK::is_white_space(c)) {
            if (in_word)
                words.push_back(std::move(word));
            word.clear();
            in_word = false;
            continue;
        }
        in_word = true;
        if (c == '\\' && quote != '\'' && i + 1 < text.size())
            word += text[++i];
        else if (c == quote)
            quote = '\0';
        else if (quote == '\0' && (c == '"' || c == '\''))
            quote = c;
        else
            word += c;
    }
    if (in_word)
        words.push_back(std::move(word));
    return words;
}

std::vector<std::string> default_application(const std::string& mime_type, const std::string& path) {
    for (const std::string& id : application_ids(mime_type)) {
        const std::string entry = desktop_entry(id);
        const std::string command = value_in(entry, "[Desktop Entry]", "Exec");
        if (command.empty() || value_in(entry, "[Desktop Entry]", "Terminal") == "true")
            continue;
        if (std::vector<std::string> words = command_on(command, path); !words.empty())
            return words;
    }
    return {};
}

std::string documents_folder() {
    constexpr std::string_view key = "XDG_DOCUMENTS_DIR=";
    constexpr std::string_view home_variable = "$HOME";
    const std::string home = home_folder();
    std::string folder;
    for (const std::string& line :
         split(contents_of(join_host_path(user_config_folder(), "user-dirs.dirs")), '\n')) {
        const std::vector<std::string> words = command_words(line);
        if (!words.empty() && words.front().compare(0, key.size(), key) == 0)
            folder = words.front().substr(key.size());
    }
    if (folder.compare(0, home_variable.size(), home_variable) == 0)
        folder.replace(0, home_variable.size(), home);
    struct stat state {};
    const bool is_there = !folder.empty() && folder.front() == '/' && stat(folder.c_str(), &state) == 0 &&
                          S_ISDIR(state.st_mode);
    return is_there ? folder : home;
}

} // namespace platform
