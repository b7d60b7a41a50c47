#include "platform/host_names.h"

#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/listing.h"
#include "support/temporary_drives.h"

#include <chrono>
#include <gtest/gtest.h>
#include <set>

using namespace platform;
namespace fs = std::filesystem;

struct host_names : testing::Test {
    Temporary_drives drives;
};
using current_directory_name = host_names;

TEST_F(host_names, a_name_is_placed_on_its_drive) {
    drives.write("Simulation/Projects/maize.tvp");
    // below c: (const char* path;)
    const char* cases[][2] = {{"C:\\Simulation\\Projects\\maize.tvp", "Simulation/Projects/maize.tvp"},
                              {"c:/Simulation/Projects\\\\maize.tvp", "Simulation/Projects/maize.tvp"},
                              {"c:\\SIMULATION\\projects\\MAIZE.TVP", "Simulation/Projects/maize.tvp"},
                              {"\\simulation\\New\\File", "Simulation/New/File"},
                              {"new file", "new file"},
                              {"c:x", "x"},
                              {"C:", ""},
                              {"C:\\", ""},
                              {"c:\\a\\.\\b\\..\\c\\", "a/c"},
                              {"c:\\..\\..\\a", "a"},
                              {"..\\..\\etc", "etc"}};
    for (const auto& [name, path] : cases)
        EXPECT_EQ(host_path(name), drives.host(path)) << name;
    EXPECT_EQ(host_path("z:\\no\\such"), "/no/such");

    for (const char* name : {"", "q:\\a", "a:b", "c:\\a\\d:\\b", "C:\\Simulation\\Projects\\maize.tvp\\"})
        EXPECT_EQ(host_path(name), "") << name;
    EXPECT_EQ(host_path(std::string("a\0b", 3)) + host_path(std::string(5000, 'a')), "");
}

TEST_F(host_names, a_name_that_exists_in_several_cases_is_the_first_in_byte_order_unless_it_stands_so) {
    for (const char* file : {"soil.SIL", "Soil.sil", "SOIL.sil"})
        drives.write(file);
    EXPECT_EQ(host_path("SOIL.SIL"), drives.host("SOIL.sil"));
    EXPECT_EQ(host_path("Soil.sil"), drives.host("Soil.sil"));
    drives.write("M\xC3\x9CLLER");
    EXPECT_EQ(host_path("m\xFCller"), drives.host("M\xC3\x9CLLER"));
}

TEST_F(host_names, every_entry_has_one_name_and_the_name_leads_back_to_it) {
    // In the code page, as its bytes, and put into UTF-8 twice; a Cyrillic letter, and its bytes read as the
    // code page's; a letter beyond the basic plane; what is no UTF-8.
    const std::set<std::string> entries = {"plain.txt",        "M\xC3\xBCller",
                                           "M\xFCller",        "M\xC3\x83\xC2\xBCller",
                                           "\xD0\x96",         "\xC3\x90\xE2\x80\x93",
                                           "\xF0\x9F\x98\x80", "\x80",
                                           "\xC0\xAF",         "\xC2\x81",
                                           "\xED\xA0\x80"};
    for (const std::string& entry : entries)
        drives.write("f/" + entry);

    std::set<std::string> names;
    for (const std::string& entry : entries) {
        const std::string name = name_from_host_path(drives.host("f/" + entry));
        names.insert(name);
        EXPECT_EQ(host_path(name), drives.host("f/" + entry));
    }
    EXPECT_EQ(names.size(), entries.size());
    for (const Folder_entry& entry : list_folder("f"))
        EXPECT_EQ(names.erase("C:\\f\\" + entry.name), 1U) << entry.name;
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(name_from_host_path(drives.host("f/M\xC3\xBCller")), "C:\\f\\M\xFCller");
}

TEST_F(host_names, a_new_entry_is_utf8_unless_its_name_can_only_be_a_host_name) {
    EXPECT_EQ(host_path("M\xFCller"), drives.host("M\xC3\xBCller"));
    EXPECT_EQ(host_path("\xC3\xA4"), drives.host("\xC3\x83\xC2\xA4"));
    EXPECT_EQ(host_path("\xD0\x96_notes.txt"), drives.host("\xD0\x96_notes.txt"));
    // Two Cyrillic letters that differ as the code page's letters differ in case.
    drives.write("\xD0\x9A");
    EXPECT_EQ(host_path("\xD0\x8A"), drives.host("\xD0\x8A"));
}

TEST_F(host_names, lookups_without_case_follow_every_change_of_the_folder) {
    fs::create_directory(drives.host("f"));
    for (int i = 0; i < 300; ++i) {
        // The program's own change and somebody else's, in turn and as good as at the same time.
        const std::string number = std::to_string(i);
        ASSERT_TRUE(write_file("f\\Own" + number, "", Durability::quick).ok());
        ASSERT_EQ(host_path("f\\OWN" + number), drives.host("f/Own" + number));
        drives.write("f/Other" + number);
        ASSERT_EQ(host_path("f\\OTHER" + number), drives.host("f/Other" + number));
        ASSERT_EQ(delete_file("f\\oWN" + number), Delete_outcome::deleted);
        ASSERT_EQ(host_path("f\\OWN" + number), drives.host("f/OWN" + number));
        fs::remove(drives.host("f/Other" + number));
        ASSERT_FALSE(exists("f\\OTHER" + number));
    }
}

TEST_F(host_names, a_listing_is_trusted_only_when_the_time_of_its_folder_proves_it) {
    drives.write("f/known");
    const auto add_unseen = [&](const std::string& file) {
        const auto time = fs::last_write_time(drives.host("f"));
        drives.write("f/" + file);
        fs::last_write_time(drives.host("f"), time);
    };
    // A file system that counts in seconds gives two changes the same time.
    const auto now = fs::file_time_type::clock::now();
    fs::last_write_time(drives.host("f"), std::chrono::floor<std::chrono::seconds>(now));
    ASSERT_TRUE(exists("f\\KNOWN"));
    add_unseen("young");
    EXPECT_TRUE(exists("f\\YOUNG"));
    // When the time is old, the folder is not read for each name that is not there.
    fs::last_write_time(drives.host("f"), now - std::chrono::hours(1));
    ASSERT_TRUE(exists("f\\KNOWN"));
    add_unseen("late");
    EXPECT_FALSE(exists("f\\LATE"));
}

TEST_F(host_names, a_host_path_gets_the_name_on_the_drive_with_the_longest_root) {
    drives.write("data/maize.tvp");
    fs::create_directory_symlink("data", drives.host("link"));
    fs::create_directory(drives.host("a:b"));
    drives.add_drive('d', drives.host("link"));
    Drives_guard with_d(drives.drives_folder());
    const std::tuple<std::string, const char*> cases[] = {
        {drives.host(), "C:\\"},
        {drives.host("none/x"), "C:\\none\\x"},
        {drives.host("link/maize.tvp"), "D:\\maize.tvp"},
        {drives.host("data/maize.tvp"), "D:\\maize.tvp"}, // the root without the link
        {drives.host("data2"), "C:\\data2"},
        {drives.drives_folder() + "/c:/none", "C:\\none"},
        {drives.host("data/../x//./y/"), "C:\\x\\y"},
        {drives.host("a:b"), "C:\\a:b"},
        {drives.host("a\\b"), ""},
        {"/", "Z:\\"},
        {"/etc/../..", "Z:\\"},
        {"", ""}};
    for (const auto& [path, name] : cases)
        EXPECT_EQ(name_from_host_path(path), name) << path;
    EXPECT_TRUE(exists("C:\\a:b"));

    change_directory("c:\\link");
    EXPECT_EQ(name_from_host_path("maize.tvp"), "D:\\maize.tvp");
    fs::create_directories(drives.host("deep/down"));
    fs::create_directory_symlink("deep/down", drives.host("shortcut"));
    EXPECT_EQ(name_from_host_path(drives.host("shortcut/../x")), "C:\\deep\\x");
}

TEST_F(host_names, without_a_setting_the_drives_are_the_root_and_a_folder_of_the_user) {
    {
        const Drives_guard defaults("");
        EXPECT_EQ(drives_folder(), "");
        EXPECT_EQ(name_from_host_path(drives.user_data() + "/tilverra/drive_c/x"), "C:\\x");
        EXPECT_FALSE(fs::exists(drives.user_data()));
        EXPECT_EQ(host_path("\\Simulation"), drives.user_data() + "/tilverra/drive_c/Simulation");
        EXPECT_TRUE(is_folder("c:\\"));
        EXPECT_EQ(host_path("z:\\"), "/");
        EXPECT_EQ(host_path("d:\\"), "");
    }
    const Drives_guard none(drives.host("no such folder"));
    EXPECT_EQ(host_path("c:\\"), "");
    EXPECT_EQ(current_directory(), "");
    EXPECT_EQ(host_path("x"), "");
}

TEST_F(current_directory_name, keeps_the_name_by_which_it_was_set) {
    fs::create_directories(drives.host("data/deep"));
    fs::create_directory_symlink("data/deep", drives.host("link"));
    ASSERT_TRUE(change_directory("C:\\LINK\\"));
    EXPECT_EQ(current_directory(), "C:\\LINK");
    EXPECT_EQ(fs::current_path(), fs::canonical(drives.host("data/deep")));
    EXPECT_EQ(full_name("..\\x"), "C:\\x");
    {
        const Directory_guard guard;
        ASSERT_TRUE(change_directory("..\\data"));
        EXPECT_EQ(current_directory(), "C:\\data");
        EXPECT_FALSE(change_directory("none"));
        EXPECT_EQ(current_directory(), "C:\\data");
    }
    EXPECT_EQ(current_directory(), "C:\\LINK");

    ASSERT_TRUE(change_directory("z:\\"));
    EXPECT_EQ(full_name("\\x"), "C:\\x");
    EXPECT_EQ(full_name("x"), "z:\\x");
    EXPECT_EQ(full_name("c:x"), "c:\\x");
}

TEST_F(current_directory_name, begins_with_the_shells_path_when_that_is_right) {
    fs::create_directories(drives.host("data"));
    fs::create_directory_symlink("data", drives.host("link"));
    fs::current_path(drives.host("data"));
    for (const auto& [path, name] :
         {std::pair(drives.host("link"), "C:\\link"), {drives.host(), "C:\\data"}}) {
        const Environment_guard shell("PWD", path);
        forget_current_directory();
        EXPECT_EQ(current_directory(), name);
    }
    fs::create_directory(drives.host("gone"));
    fs::current_path(drives.host("gone"));
    fs::remove(drives.host("gone"));
    forget_current_directory();
    EXPECT_EQ(current_directory(), "C:\\");
}
