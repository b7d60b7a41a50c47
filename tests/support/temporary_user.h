// A user of the host with an empty home folder, a desktop session, and no tools but those that the test adds:
// all of it is environment variables and a temporary folder, put back and gone afterwards.
#pragma once

#include "support/temporary_tree.h"

#include <chrono>
#include <map>
#include <optional>
#include <thread>

class Temporary_user {
public:
    Temporary_user() {
        std::filesystem::create_directories(home("tools"));
        set("HOME", home());
        set("PATH", home("tools"));
        set("DISPLAY", ":99");
        set("XDG_DATA_DIRS", home("usr/share"));
        set("XDG_CONFIG_DIRS", home("etc/xdg"));
        for (const char* name :
             {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CURRENT_DESKTOP", "WAYLAND_DISPLAY", "VISUAL"})
            unset(name);
    }
    ~Temporary_user() {
        for (const auto& [name, value] : previous_)
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }

    void set(const std::string& name, const std::string& value) {
        keep(name);
        setenv(name.c_str(), value.c_str(), 1);
    }
    void unset(const std::string& name) {
        keep(name);
        unsetenv(name.c_str());
    }

    // The host path of a path below the home folder.
    std::string home(const std::string& path = "") const { return tree_.path(path); }

    // Writes a file below the home folder, with the folders above it. Gives its host path.
    std::string write(const std::string& path, const std::string& contents) const {
        return tree_.write(path, contents);
    }

    // Adds a tool to the user's path that records how it is started. Gives its host path.
    std::string add_tool(const std::string& name) const {
        return make_recorder(home("tools/" + name), home(name + ".record"));
    }
    // How the tool was started since this was last asked.
    std::string record_of_tool(const std::string& name) const { return take_record(home(name + ".record")); }

    // Makes a script at a host path that records its arguments, one a line with brackets around it, and ends
    // with the exit code. Gives its path.
    static std::string make_recorder(const std::string& script, const std::string& record,
                                     int exit_code = 0) {
        std::ofstream(script) << "#!/bin/sh\n"
                              << "for a; do printf '[%s]\\n' \"$a\"; done >'" << record << ".part'\n"
                              << "/bin/mv '" << record << ".part' '" << record << "'\n"
                              << "exit " << exit_code << '\n';
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        return script;
    }

    // Waits up to ten seconds for a record of a program that runs by itself. Gives what is in it and deletes
    // it; "none" when it does not come.
    static std::string take_record(const std::string& record) {
        for (int i = 0; i < 1000 && !std::filesystem::exists(record); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::ifstream file(record, std::ios::binary);
        if (!file)
            return "none";
        const std::string contents{std::istreambuf_iterator<char>(file), {}};
        std::filesystem::remove(record);
        return contents;
    }

private:
    void keep(const std::string& name) {
        const char* value = std::getenv(name.c_str());
        previous_.try_emplace(name, value != nullptr ? std::optional<std::string>(value) : std::nullopt);
    }

    Temporary_tree tree_;
    std::map<std::string, std::optional<std::string>> previous_;
};
