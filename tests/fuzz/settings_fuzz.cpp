// Any bytes are a file of user settings: what was read comes back from what is written, and a second section
// leaves the first as it is.
#include "records/vv_text.h"
#include "require.h"
#include "trees/user_settings.h"

namespace {

std::string written(TESK::User_settings& settings, const std::string& section, const std::string& text) {
    TESK::VV_text file(text);
    TESK::write_settings(settings, section, file);
    return file.text();
}

TESK::User_settings read(const std::string& section, const std::string& text) {
    TESK::User_settings settings;
    TESK::VV_text file(text);
    TESK::read_settings(settings, section, file);
    return settings;
}

bool are_same(TESK::User_settings a, TESK::User_settings b) {
    return written(a, "name", "") == written(b, "name", "");
}

} // namespace

void try_input(const std::string& input) {
    std::string text = input;
    // A carriage return inside a value is a blank when it is written.
    std::erase(text, '\r');
    // The first section of the file, when it has one.
    const std::size_t end = text.find(']');
    std::string section = text.starts_with('[') && end != std::string::npos ? text.substr(1, end - 1) : "";
    std::erase_if(section, [](char c) { return c == '\n' || c == '\0'; });
    section.insert(0, section.empty() ? "name" : "");

    TESK::User_settings settings = read(section, text);
    const std::string once = written(settings, section, text);
    TESK::User_settings again = read(section, once);
    require(are_same(settings, again) && written(again, section, once) == once);
    if (input.size() % 2 != 0) // once in a while is enough
        return;
    TESK::User_settings other;
    other.top = 7;
    const std::string both = written(other, section + " 2", once);
    require(are_same(settings, read(section, both)) && are_same(other, read(section + " 2", both)));
}
