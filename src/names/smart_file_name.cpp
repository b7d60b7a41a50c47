#include "names/smart_file_name.h"

#include "platform/files.h"
#include "platform/process.h"
#include "platform/shell.h"

#include <algorithm>

namespace TESK {

namespace {

constexpr int normal_window = 1;
constexpr int show_window = 5;
constexpr int last_error_code = 31;
constexpr int last_shell_error_code = 32;

bool shell_does(const char* verb, const std::string& name, int show_mode) {
    return platform::shell().shell_execute(verb, name, show_mode) > last_shell_error_code;
}

} // namespace

bool Smart_file_name::exists() const {
    if (File_name::exists())
        return true;
    const std::size_t anchor = std::string::find('#', 1);
    return anchor != npos && platform::exists(substr(0, anchor));
}

int Smart_file_name::open() {
    return open_with_verb("open");
}

int Smart_file_name::edit() {
    return shell_does("edit", *this, show_window) ? 1 : 0;
}

bool Smart_file_name::print() {
    return shell_does("print", *this, normal_window);
}

bool Smart_file_name::shell_open() {
    return shell_does("open", *this, show_window);
}

int Smart_file_name::open_with_verb(const char* verb) {
    std::string ext = get_ext();
    ext.resize(std::min(ext.find('#'), ext.size()));
    int result = 0;
    if (auto command = platform::shell().registered_command(ext, verb)) {
        if (command->find("firefox") != npos)
            return 1;
        const std::size_t place = command->find("%1");
        if (place != npos)
            command->replace(place, npos, *this);
        else
            *command += " \"" + *this + '"';
        result = platform::launcher().execute(*command, show_window);
    }
    if (result == 0)
        result = platform::launcher().execute("explorer \"" + *this + '"', show_window);
    return result > last_error_code ? 0 : result;
}

bool Smart_file_name::delete_file() {
    return platform::delete_file(*this) != platform::Delete_outcome::denied;
}

Date_time_64 Smart_file_name::get_date_time() const {
    Date_time_64 moment;
    const auto stamp = platform::file_time(*this);
    if (!stamp)
        return moment;
    const unsigned date = stamp->date;
    const unsigned time = stamp->time;
    moment.set_YMD_hms(static_cast<std::int16_t>((date >> 9) + 1980),
                       static_cast<std::uint8_t>(date >> 5 & 0xF), static_cast<std::uint8_t>(date & 0x1F),
                       static_cast<std::uint8_t>(time >> 11), static_cast<std::uint8_t>(time >> 5 & 0x3F),
                       static_cast<std::uint8_t>((time & 0x1F) * 2));
    return moment;
}

} // namespace TESK
