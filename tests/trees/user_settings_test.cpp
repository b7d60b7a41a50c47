#include "trees/user_settings.h"

#include "platform/folder_lock.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using TESK::Application_data_directory;
using TESK::File_name;
using TESK::User_settings;

namespace {

class User_settings_test : public testing::Test {
protected:
    Temporary_drives drives;
    Environment_guard config{"XDG_CONFIG_HOME", drives.host("L")};
    const Application_data_directory directory{File_name("C:\\Suite\\Tilverra\\project_editor.exe")};
};

TEST_F(User_settings_test, the_file_is_named_after_the_program_and_its_folder) {
    EXPECT_EQ(directory, "C:\\L\\Tilverra");
    EXPECT_EQ(directory.settings_file, "C:\\L\\Tilverra\\project_editor.ini");
    EXPECT_EQ(Application_data_directory(File_name("C:\\project_editor.exe")).settings_file,
              "C:\\L\\project_editor.ini");
    EXPECT_EQ(Application_data_directory(File_name("C:\\v1.2\\editor.5.exe")).settings_file,
              "C:\\L\\v1.2\\editor.5.ini");
    EXPECT_FALSE(std::filesystem::exists(drives.host("L")));
}

TEST_F(User_settings_test, each_record_file_keeps_a_section_of_its_own) {
    User_settings first;
    first.top = 10;
    first.language = "es";
    first.advanced = true;
    User_settings second;
    second.left = -5;
    directory.save(first, "C:\\a\\one.tvp");
    directory.save(second, "C:\\a [old]\\two.tvp");
    first.top = 11;
    directory.save(first, "C:\\a\\one.tvp");
    const std::string text = drives.read("L/Tilverra/project_editor.ini");
    EXPECT_EQ(
        text.substr(0, 223),
        "[C:\\a\\one.tvp]\r\ntop=11\r\nleft=0\r\nwidth=0\r\nheight=0\r\nactivepageindex=0\r\n"
        "active_control=\r\nlanguage=es\r\nadvanced=true\r\nauto_explore_context=false\r\nrecent_context=\r\n"
        "[C:\\a [old)\\two.tvp]\r\ntop=0\r\nleft=-5\r\nwidth=0\r\nheight=0\r\nactive");

    User_settings loaded;
    directory.load(loaded, "C:\\a [old]\\two.tvp");
    directory.load(loaded, "C:\\a\\three.tvp");
    EXPECT_EQ(loaded.left, -5);
    directory.load(loaded, "C:\\a\\one.tvp");
    EXPECT_EQ(loaded.top, 11);
    EXPECT_EQ(loaded.language, "es");
    EXPECT_TRUE(loaded.advanced);
}

TEST_F(User_settings_test, programs_that_save_at_the_same_time_keep_the_sections_of_both) {
    constexpr int programs = 3;
    constexpr int sections = 8;
    for (int program = 0; program < programs; ++program)
        if (fork() == 0) {
            User_settings settings;
            for (int i = 1; i <= sections; ++i) {
                settings.top = static_cast<std::int16_t>(i);
                directory.save(settings, std::to_string(program) + '-' + std::to_string(i));
            }
            _exit(0);
        }
    while (wait(nullptr) > 0) {
    }
    for (int program = 0; program < programs; ++program)
        for (int i = 1; i <= sections; ++i) {
            User_settings settings;
            directory.load(settings, std::to_string(program) + '-' + std::to_string(i));
            EXPECT_EQ(settings.top, i) << program;
        }
    // One that hangs is waited for a few seconds, and its file left alone.
    const platform::Folder_lock hanging(directory);
    User_settings settings;
    settings.top = sections + 1;
    directory.save(settings, "0-1");
    directory.load(settings, "0-1");
    EXPECT_EQ(settings.top, 1);
}

TEST_F(User_settings_test, a_disk_that_cannot_be_written_is_quiet) {
    drives.write("L", "a file where the folder should be");
    User_settings settings;
    settings.top = 3;
    directory.save(settings, "C:\\a\\one.tvp");
    directory.load(settings, "C:\\a\\one.tvp");
    EXPECT_EQ(settings.top, 3);
}

} // namespace
