#include "platform/command_line.h"

#include <gtest/gtest.h>

using namespace platform;
using Texts = std::vector<std::string>;

TEST(command_line, arguments_are_split_by_the_rules_of_the_run_time) {
    const std::tuple<const char*, Texts> cases[] = {{"", {}},
                                                    {" \t ", {}},
                                                    {"a  b\tc ", {"a", "b", "c"}},
                                                    {"\"C:\\My project\\.TVS_project\" \"C:\\a b\\c.tvn\" ",
                                                     {"C:\\My project\\.TVS_project", "C:\\a b\\c.tvn"}},
                                                    {"\"\" x \"\"", {"", "x", ""}},
                                                    {"a\"b c\"d", {"ab cd"}},
                                                    {"\"never closed ", {"never closed "}},
                                                    {"\"a\"\"b\" c", {"a\"b", "c"}},
                                                    {"a\"\"b", {"ab"}},
                                                    {"\\\\server\\x\\ y", {"\\\\server\\x\\", "y"}},
                                                    {"\\\"a b\\\\\\\"", {"\"a", "b\\\""}},
                                                    {"\"C:\\a\\\\\" b", {"C:\\a\\", "b"}},
                                                    {"\"C:\\a\\\" b", {"C:\\a\" b"}},
                                                    {"\"a\\\\\\\\\\\"\"", {"a\\\\\""}},
                                                    {"caf\xE9.tvn", {"caf\xE9.tvn"}}};
    for (const auto& [text, arguments] : cases)
        EXPECT_EQ(split_arguments(text), arguments) << text;
}

TEST(command_line, a_program_without_quotes_can_end_at_each_blank) {
    // the program, a bar, what stands behind it (Texts readings;)
    const std::tuple<std::string, Texts> cases[] = {
        {"", {}},
        {"  ", {}},
        {"\"C:\\a b\\x.exe\"  \"f\"", {"C:\\a b\\x.exe|  \"f\""}},
        {"\"C:\\a b", {"C:\\a b|"}},
        {"C:\\a b\\x.exe  y", {"C:\\a| b\\x.exe  y", "C:\\a b\\x.exe|  y", "C:\\a b\\x.exe  y|"}},
        {" x.exe \"a b\" ", {"x.exe| \"a b\" "}},
        {"explorer /n,/e,C:\\a b\"", {"explorer| /n,/e,C:\\a b\"", "explorer /n,/e,C:\\a| b\""}},
        {std::string(100000, 'x'), {}}};

    for (const auto& [line, expected] : cases) {
        Texts readings;
        for (const Command_reading& reading : command_readings(line))
            readings.push_back(std::string(reading.program) + "|" + std::string(reading.arguments));
        EXPECT_EQ(readings, expected) << line;
    }
}
