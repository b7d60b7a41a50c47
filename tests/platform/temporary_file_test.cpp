#include "platform/temporary_file.h"

#include "platform/file_writer.h"
#include "platform/files.h"
#include "support/temporary_drives.h"

#include <gtest/gtest.h>

TEST(Temporary_file_test, lies_in_the_hosts_folder_or_where_no_drive_reaches_that_in_the_current_directory) {
    const Temporary_drives drives;
    drives.write("temporary/file");
    {
        const Environment_guard temporary("TMPDIR", drives.host("temporary"));
        const std::string one = platform::make_temporary_file();
        EXPECT_TRUE(one.starts_with("C:\\temporary\\")) << one;
        EXPECT_TRUE(platform::is_file(one));
        EXPECT_NE(platform::make_temporary_file(), one);
    }
    const Environment_guard temporary("TMPDIR", "/tmp");
    std::filesystem::remove(drives.drives_folder() + "/z:");
    const platform::Drives_guard without_root(drives.drives_folder());
    platform::change_directory("C:\\temporary");
    EXPECT_TRUE(platform::make_temporary_file().starts_with("C:\\temporary\\"));
    std::filesystem::remove_all(drives.host("temporary"));
    EXPECT_EQ(platform::make_temporary_file(), "");
}

TEST(Temporary_file_test, a_scratch_file_goes_at_the_end_of_its_scope_whatever_has_been_written_to_it) {
    const Temporary_drives drives;
    try {
        const platform::Scratch_file scratch("C:\\scratch");
        const platform::Scratch_file none("");
        EXPECT_TRUE(platform::write_file(scratch.name(), "text", platform::Durability::quick).ok());
        throw 1;
    } catch (int) {
    }
    EXPECT_FALSE(platform::exists("C:\\scratch"));
}
