#include "names/smart_file_name.h"

#include "names/name_texts.h"
#include "platform/command_line.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/shell.h"

#include <algorithm>
#include <optional>

namespace TESK {

namespace {

constexpr int highest_start_error = 31;
constexpr int highest_shell_error = 32;
constexpr std::size_t longest_extension = 19;

bool shell_accepts(const char* verb, const std::string& name, int show_mode) {
    return platform::shell().shell_execute(verb, name, show_mode) > highest_shell_error;
}

// The command with the file's name in it. What stands behind the place of the name is lost.
std::string command_for(const std::string& command, const std::string& name) {
    const std::size_t place = command.find("%1");
    return place == std::string::npos ? command + ' ' + platform::in_quotes(name)
                                      : command.substr(0, place) + name;
}

} // namespace

bool Smart_file_name::exists() const {
    if (File_name::exists())
        return true;
    const std::size_t anchor = std::string::find('#', 1);
    return anchor != npos && Smart_file_name(Ustring(substr(0, anchor))).exists();
}

int Smart_file_name::open() const {
    return open_with_verb("open");
}

int Smart_file_name::edit() const {
    return shell_accepts("edit", *this, platform::shown_window);
}

bool Smart_file_name::print() const {
    return shell_accepts("print", *this, platform::normal_window);
}

bool Smart_file_name::shell_open() const {
    return shell_accepts("open", *this, platform::shown_window);
}

int Smart_file_name::open_with_verb(const char* verb) const {
    if (!platform::refusal_of_name(*this).empty())
        return platform::result_refused;
    std::string type = get_ext().substr(0, longest_extension);
    type.erase(std::min(type.find('#'), type.size()));
    const std::optional<std::string> command =
        platform::shell().registered_command(type, text_or_empty(verb));
    int result = 0;
    if (command) {
        if (command->find("firefox") != npos)
            return 1;
        result = platform::launcher().execute(command_for(*command, *this), platform::shown_window);
    }
    if (result == 0)
        result =
            platform::launcher().execute("explorer " + platform::in_quotes(*this), platform::shown_window);
    return result > highest_start_error ? 0 : result;
}

bool Smart_file_name::delete_file() const {
    const platform::Delete_outcome outcome = platform::delete_file(*this);
    return outcome == platform::Delete_outcome::deleted || outcome == platform::Delete_outcome::absent;
}

Date_time_64 Smart_file_name::get_date_time() const {
    Date_time_64 moment;
    if (const auto packed = platform::file_time(*this))
        moment.set_YMD_hms(
            static_cast<std::int16_t>((packed->date >> 9) + 1980),
            static_cast<std::uint8_t>(packed->date >> 5 & 15), static_cast<std::uint8_t>(packed->date & 31),
            static_cast<std::uint8_t>(packed->time >> 11), static_cast<std::uint8_t>(packed->time >> 5 & 63),
            static_cast<std::uint8_t>((packed->time & 31) * 2));
    return moment;
}

} // namespace TESK
