#include "platform/command_line.h"

#include <gtest/gtest.h>

using namespace platform;
using Texts = std::vector<std::string>;

TEST(command_line, arguments_are_split_by_the_rules_of_the_run_time) {
    struct {
        const char* text;
        Texts arguments;
    } cases[] = {
        {"", {}},
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
        {"caf\xE9.tvn", {"caf\xE9.tvn"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(split_arguments(c.text), c.arguments) << c.text;
}

TEST(command_line, a_program_without_quotes_can_end_at_each_blank) {
    struct {
        std::string line;
        Texts readings; // the program, a bar, what stands behind it
    } cases[] = {
        {"", {}},
        {"  ", {}},
        {"\"C:\\a b\\x.exe\"  \"f\"", {"C:\\a b\\x.exe|  \"f\""}},
        {"\"C:\\a b", {"C:\\a b|"}},
        {"C:\\a b\\x.exe  y", {"C:\\a| b\\x.exe  y", "C:\\a b\\x.exe|  y", "C:\\a b\\x.exe  y|"}},
        {" x.exe \"a b\" ", {"x.exe| \"a b\" "}},
        {"explorer /n,/e,C:\\a b\"", {"explorer| /n,/e,C:\\a b\"", "explorer /n,/e,C:\\a| b\""}},
        {std::string(100000, 'x'), {}},
    };

    for (const auto& c : cases) {
        Texts readings;
        for (const Command_reading& reading : command_readings(c.line))
            readings.push_back(std::string(reading.program) + "|" + std::string(reading.arguments));
        EXPECT_EQ(readings, c.readings) << c.line;
    }
}
