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

TEST(command_line, a_name_in_quotes_comes_back_as_one_argument) {
    // the name, in quotes, as it comes back
    const char* cases[][3] = {{"C:\\a b\\c.tvn", "\"C:\\a b\\c.tvn\"", "C:\\a b\\c.tvn"},
                              {"", "\"\"", ""},
                              {"C:\\my study\\", "\"C:\\my study\"", "C:\\my study"},
                              {"C:\\a\\\\", "\"C:\\a\"", "C:\\a"},
                              {"C:\\", "\"C:\\\\\"", "C:\\"},
                              {"\\", "\"\\\\\"", "\\"},
                              {"a\" \"b", "\"a\\\" \\\"b\"", "a\" \"b"},
                              {"a\\\\\"b", "\"a\\\\\\\\\\\"b\"", "a\\\\\"b"},
                              {"\\\"", "\"\\\\\\\"\"", "\\\""}};
    for (const auto& [name, text, back] : cases) {
        EXPECT_EQ(in_quotes(name), text);
        EXPECT_EQ(split_arguments("x " + in_quotes(name) + " y"), (Texts{"x", back, "y"})) << name;
    }
}

TEST(command_line, what_cannot_stand_between_quotes_is_refused) {
    const std::string good = in_quotes("C:\\caf\xE9 (1)\\a.tvn");
    // what is no name of a file is refused wherever it stands
    for (const std::string bad : {"a\"b", "\"", "a\" \"b", "a\nb", "a\tb", "\x7F", "C:\\a\\\""}) {
        EXPECT_FALSE(refusal_of_name(bad).empty()) << bad;
        for (const std::string& command :
             {in_quotes(bad) + " " + good, good + "  " + in_quotes(bad) + ' ',
              "notepad.exe " + in_quotes(bad), good + " " + in_quotes(bad) + ' ' + good})
            EXPECT_FALSE(refusal_of_command(command).empty()) << command;
    }
    EXPECT_EQ(refusal_of_name("C:\\caf\xE9 (1)\\it's a.tvn"), "");
    for (const std::string& command :
         {good + "  " + good + ' ', "C:\\My programs\\x.exe " + good + " -o", good, std::string(),
          "x.exe " + in_quotes("C:\\") + ' ' + in_quotes("")})
        EXPECT_EQ(refusal_of_command(command), "") << command;
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
