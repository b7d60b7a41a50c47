#include "platform/profile.h"

#include "support/temporary_drives.h"

#include <gtest/gtest.h>

using namespace platform;

TEST(profile, sets_one_key_and_leaves_the_rest_alone) {
    Temporary_drives drives;
    // null for no file (const char* before;)
    const char* cases[][2] = {
        {nullptr, "[Shell]\r\nIcon=new\r\n"},
        {"", "[Shell]\r\nIcon=new\r\n"},
        {"; no line end", "; no line end\r\n[Shell]\r\nIcon=new\r\n"},
        {"[Shell]\r\nIcon=old\r\nOther=1\r\n", "[Shell]\r\nIcon=new\r\nOther=1\r\n"},
        {"[ shell ]\n  ICON = old \nOther=1", "[ shell ]\n  Icon=new \nOther=1"},
        {"[Shell]\nOther=1\n\n\n[Next]\nIcon=old\n", "[Shell]\nOther=1\nIcon=new\r\n\n\n[Next]\nIcon=old\n"},
        {"Icon=0\n[Shell]", "Icon=0\n[Shell]\r\nIcon=new\r\n"},
        {"[Shell]\n;Icon=old\nIcons\n", "[Shell]\n;Icon=old\nIcons\nIcon=new\r\n"}};
    for (const auto& [before, after] : cases) {
        std::filesystem::remove(drives.host("desktop.ini"));
        if (before != nullptr)
            drives.write("desktop.ini", before);
        EXPECT_TRUE(write_profile_string("desktop.ini", "Shell", "Icon", "new"));
        EXPECT_EQ(drives.read("desktop.ini"), after);
    }
    EXPECT_TRUE(write_profile_string("x.ini", "a", "b", "c\r\n[d]"));
    EXPECT_EQ(drives.read("x.ini"), "[a]\r\nb=c  [d]\r\n");
    std::filesystem::create_directory(drives.host("folder"));
    EXPECT_FALSE(write_profile_string("folder", "a", "b", "c"));
}
