// Scenario files, and what stands in a file, for tests.
#pragma once

#include "model/tilverra_scenario.h"
#include "records/vv_file.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

// The bytes of a file of the test data.
inline std::string contents(const std::string& file) {
    std::ifstream in(std::string(TEST_DATA) + "/" + file, std::ios::binary);
    return (std::ostringstream() << in.rdbuf()).str();
}
// The part of a file from the header of a section up to the next header.
inline std::string section(const std::string& file, const std::string& name) {
    const std::size_t start = file.find("[" + name + "]\r\n");
    if (start == std::string::npos)
        return "";
    const std::size_t next = file.find("\r\n[", start);
    return file.substr(start, next == std::string::npos ? next : next + 2 - start);
}
inline bool has(const std::string& text, const std::string& line) {
    return ("\r\n" + text + "\r\n").find("\r\n" + line + "\r\n") != std::string::npos;
}

class Scenario_test : public testing::Test {
protected:
    std::unique_ptr<Tilverra_scenario> read_file(const std::string& name, bool keep_structure = false) {
        auto scenario = std::make_unique<Tilverra_scenario>();
        EXPECT_TRUE(TESK::VV_file(name.c_str(), keep_structure).get(*scenario)) << name;
        return scenario;
    }
    std::unique_ptr<Tilverra_scenario> read(const std::string& text) {
        return read_file(folder.write("read.tvn", text));
    }
    // What a file holds once the scenario has been saved to it.
    std::string save(Tilverra_scenario& scenario, const std::string& file = "saved.tvn") {
        TESK::VV_file target(folder.name(file).c_str());
        EXPECT_TRUE(target.set(scenario));
        EXPECT_TRUE(target.get_last_write().ok());
        return folder.read(file);
    }
    static std::string data(const std::string& file) {
        return platform::name_from_host_path(std::string(TEST_DATA) + "/" + file);
    }
    static Common_event* event_at(const Tilverra_scenario& scenario, std::uint32_t index) {
        return static_cast<Common_event*>(scenario.events.get_at(index));
    }
    Temporary_folder folder;
};
